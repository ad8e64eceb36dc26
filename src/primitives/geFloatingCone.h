#ifndef ZQ_PRIMITIVES_GEFLOATINGCONE_H
#define ZQ_PRIMITIVES_GEFLOATINGCONE_H

#include "export.h"
#include "forward.h"
#include "geVector3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A cone of directions: a unit axis and a semi-angle, with no position. It bounds a set of directions, for instance
/// the normals of a piece of surface. Single precision only.
///
/// The semi-angle is half the opening angle in radians, from 0 (the axis alone) to pi. A cone of pi or more holds all
/// directions and is called a sphere. Where the library makes a sphere it stores the float nearest to pi, 3.1415927
/// (bits 0x40490FDB); that float lies above pi, so such a cone always counts as a sphere.
///
/// A set of normals is collected with GeFloatingConeBuilder; a GeAnchoredCone gives the cone a place.
///
/// Text form: "floatingCone( axis=(0, 0, 1), alpha=0.5 )", with the number format and locale of the stream.
class ZQ_PRIMITIVES_API GeFloatingCone
{
public:
    /// @name Construction
    /// @{

    /// Stores both as they are; nothing is checked.
    GeFloatingCone( const GeUnitVector3<float>& axis, float semiAngle );
    /// @}

    /// @name Access
    /// @{

    /// The axis.
    const GeUnitVector3<float>& getAxis() const;
    /// The semi-angle in radians.
    float getSemiAngle() const;
    /// @}

    /// @name Comparison
    /// @{

    /// The same as isEqualExact().
    bool operator==( const GeFloatingCone& other ) const;
    /// The exact negation of ==.
    bool operator!=( const GeFloatingCone& other ) const;
    /// The three components of the axis and the semi-angle are equal; NaN equals nothing. Two spheres with different
    /// axes hold the same directions, yet they are not equal.
    bool isEqualExact( const GeFloatingCone& other ) const;
    /// Each component of the axes within one tolerance and the semi-angles within the other, strictly. See
    /// FloatUtil::isEqual.
    bool isEqual( const GeFloatingCone& other, float axisTolerance, float angleTolerance ) const;
    /// @}

    /// @name Growth
    /// @{

    /// Grows the cone about another one that sticks out of it: the result is the smallest cone around both.
    ///
    /// Only for cones of which neither contains the other. Containment is not tested: if this cone contains the other,
    /// the result is narrower than this cone was, turned towards the other, and may lose directions. A cone of
    /// semi-angle 1 that is grown by one of 0.1 about the same axis ends at 0.55. The semi-angle is not limited either:
    /// two wide cones can end beyond pi.
    ///
    /// Spheres: a sphere stays as it is. Growing by a sphere, or by a cone whose axis is more than about 154 degrees
    /// away (its cosine is below -0.9), makes a sphere and keeps the axis.
    ///
    /// Rounding: the dot product of an axis with itself may fall short of 1 by one unit in the last place, which reads
    /// as an angle of 0.0003; growing a cone by itself widens it by half of that then.
    ///
    /// Reports "len > 0" (src/primitives/geFloatingCone) if the turned axis has no length, as it happens for a zero
    /// axis and for NaN; the cone is unchanged then. A cosine above 1 is cut to 1 and traced at level "Geometry".
    void expand( const GeFloatingCone& other );
    /// @}

    /// @name Queries
    /// @{

    /// Whether the cone holds all directions: the semi-angle is at least pi, compared in double precision.
    bool isSphere() const;
    /// Whether a direction lies in the cone or on its surface: cos( semi-angle ) <= axis . direction, in float. False
    /// for NaN. Both sides are rounded. At semi-angle 0 even the axis is outside if its dot product with itself falls
    /// short of 1; a sphere misses directions only where the dot product is rounded below -1.
    bool contains( const GeUnitVector3<float>& direction ) const;
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
    GeUnitVector3<float> _axis;
    float _semiAngle;
};

/// Writes the text form, as dump() does.
std::ostream& operator<<( std::ostream& os, const GeFloatingCone& cone );

} // namespace Zq

#include "geFloatingCone.inline"

namespace Zq
{

static_assert( sizeof( GeFloatingCone ) == 4 * sizeof( float ) && std::is_trivially_copyable_v<GeFloatingCone> );

} // namespace Zq

#endif
