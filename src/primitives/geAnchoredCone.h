#ifndef ZQ_PRIMITIVES_GEANCHOREDCONE_H
#define ZQ_PRIMITIVES_GEANCHOREDCONE_H

#include "geFloatingCone.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A truncated cone in space: a floating cone placed on a bottom disc. Single precision only.
///
/// The axis a points from the narrow end to the wide one. The bottom disc is perpendicular to it, with centre B and
/// radius r; at the distance z above the disc, from 0 to the height h, the radius is r + z t, where t is the tangent of
/// the semi-angle, computed once by the constructor.
///
/// If the floating cone bounds the normals of a piece of surface and the truncated cone its points, three places on
/// the axis follow. All distances are in the unit of the points.
///
/// - The apex, where the truncated cone would come to its point: r / t below B.
/// - The backfacing apex, t r below B: the tip of the region, opening along -a, that sees the surface from behind only.
/// - The frontfacing apex, ( h t + r ) t + h above B: the tip of the region, opening along +a, that sees the front only.
///
/// GeCullingCones holds the two regions and says what they are good for. Nothing is checked: a semi-angle of 0 puts the
/// apex infinitely far away, one beyond a right angle makes t negative.
///
/// Text form: "anchoredCone( bottomCenter=(0, 0, 0), bottomRadius=1, height=2, floatingCone( ... ) )".
class ZQ_PRIMITIVES_API GeAnchoredCone
{
public:
    /// @name Construction
    /// @{

    /// Stores the four as they are, and the tangent of the semi-angle.
    GeAnchoredCone( const GeFloatingCone& cone, const GePoint3<float>& bottomCenter, float bottomRadius, float height );
    /// @}

    /// @name Access
    /// @{

    /// The axis and the semi-angle.
    const GeFloatingCone& getFloatingCone() const;
    /// B.
    const GePoint3<float>& getBottomCenter() const;
    /// r.
    float getBottomRadius() const;
    /// h.
    float getHeight() const;
    /// The tangent of the semi-angle.
    float getTangent() const;
    /// @}

    /// @name Comparison
    /// @{

    /// The same as isEqualExact().
    bool operator==( const GeAnchoredCone& other ) const;
    /// The exact negation of ==.
    bool operator!=( const GeAnchoredCone& other ) const;
    /// Bottom centre, bottom radius, height and tangent are equal; NaN equals nothing. The axis and the semi-angle are
    /// not looked at: cones that differ only in the direction of their axis are equal. Compare the floating cones where
    /// that matters.
    bool isEqualExact( const GeAnchoredCone& other ) const;
    /// The same values within tolerances, strictly: one for bottom centre, bottom radius and height, the other for the
    /// tangent. See FloatUtil::isEqual.
    bool isEqual( const GeAnchoredCone& other, float lengthTolerance, float tangentTolerance ) const;
    /// @}

    /// @name Queries
    /// @{

    /// The radius at the height h.
    float getTopRadius() const;
    /// The distance of the apex below B. Not guarded: infinite at semi-angle 0, NaN if r is 0 as well.
    float getApexDistance() const;
    /// The apex; not guarded either.
    GePoint3<float> getApex() const;
    /// The distance of the backfacing apex below B.
    float getBackfacingDistance() const;
    /// The backfacing apex.
    GePoint3<float> getBackfacingApex() const;
    /// The distance of the frontfacing apex above B.
    float getFrontfacingDistance() const;
    /// The frontfacing apex.
    GePoint3<float> getFrontfacingApex() const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form; no line end.
    std::ostream& dump( std::ostream& os ) const;
    /// @}

private:
    GeFloatingCone _cone;
    GePoint3<float> _bottomCenter;
    float _bottomRadius;
    float _height;
    float _tangent;
};

/// Writes the text form, as dump() does.
std::ostream& operator<<( std::ostream& os, const GeAnchoredCone& cone );

} // namespace Zq

#include "geAnchoredCone.inline"

namespace Zq
{

static_assert( sizeof( GeAnchoredCone ) == 10 * sizeof( float ) && std::is_trivially_copyable_v<GeAnchoredCone> );

} // namespace Zq

#endif
