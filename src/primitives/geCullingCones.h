#ifndef ZQ_PRIMITIVES_GECULLINGCONES_H
#define ZQ_PRIMITIVES_GECULLINGCONES_H

#include "geAlignedBox.h"
#include "geAnchoredCone.h"

#include <cstddef>
#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// Says from where a piece of surface is seen from behind only, or from the front only: two regions of viewpoints.
/// Single precision only; immutable but for assignment, and safe to ask from any number of threads.
///
/// The normals of the surface lie in a floating cone about the axis a, with the semi-angle alpha; whether they point
/// along the surface's outside is up to the caller, and "front" is the side that they point to. Both regions are cones
/// of the culling semi-angle beta = pi/2 - alpha:
///
/// - behind: its tip is the backfacing apex, and it opens along -a;
/// - in front: its tip lies the frontfacing offset along +a from the backfacing apex, and it opens along +a.
///
/// The tips and the surfaces of the cones count. There are no culling cones for an alpha wider than a right angle: the
/// stored cosine of beta is -1 then, nothing is behind, and everything is in front. So isInFront() alone does not say
/// that front faces are all there is to see; getCosBeta() < 0 tells the cases apart.
///
/// What isBehind() is worth. It is right about a face as soon as one point of the face lies in the cone that has its
/// tip at the backfacing apex, opens along +a and has the semi-angle beta. Cones made from a GeAnchoredCone grant that
/// for all points of its truncated cone while alpha is at most 45 degrees (pi/4). Beyond, the truncated cone opens
/// faster than the region of viewpoints, and the answer can be wrong: do not use it there. The truncated cone of
/// GeAnchoredConeBuilder takes in a point of every face of a height field with a convex outline; a face that hovers
/// steeply above the lowest point of a lopsided set can be missed, and be called behind while it is seen, at any
/// angle. docs/culling.md shows both cases and how to verify a set.
///
/// Method: L. A. Shirman and S. S. Abi-Ezzi, The Cone of Normals Technique for Fast Processing of Curved Patches, 1993.
///
/// Text form: "cullingCones( backfacingApex=(0, 0, 0), frontfacingOffset=10, cosBeta=0.5, floatingCone( ... ) )".
class ZQ_PRIMITIVES_API GeCullingCones
{
public:
    /// @name Construction
    /// @{

    /// No culling cones: a sphere of normals about (0, 0, 1), cosine -1; apex and offset are zero.
    GeCullingCones();
    /// The culling cones of a surface with normals in the anchored cone's floating cone and points in its truncated
    /// cone. The cosine of beta is sin( alpha ) while 2 alpha, in double, is at most pi, else -1; also below.
    explicit GeCullingCones( const GeAnchoredCone& anchored );
    /// Stores the three as they are.
    GeCullingCones( const GeFloatingCone& cone, const GePoint3<float>& backfacingApex, float frontfacingOffset );
    /// @}

    /// @name Access
    /// @{

    /// The cone of the normals.
    const GeFloatingCone& getFloatingCone() const;
    /// The tip of the region behind.
    GePoint3<float> getBackfacingApex() const;
    /// How far the tip of the region in front lies along +a from the backfacing apex.
    float getFrontfacingOffset() const;
    /// The cosine of beta; -1 when there are no culling cones.
    float getCosBeta() const;
    /// beta in radians; 0 when there are no culling cones.
    float getCullingSemiAngle() const;
    /// @}

    /// @name Comparison
    /// @{

    /// The same as isEqualExact().
    bool operator==( const GeCullingCones& other ) const;
    /// The exact negation of ==.
    bool operator!=( const GeCullingCones& other ) const;
    /// Backfacing apex, frontfacing offset and the cosine of beta are equal; NaN equals nothing. The floating cone is
    /// not looked at: cones that open in different directions are equal. Compare the floating cones where it matters.
    bool isEqualExact( const GeCullingCones& other ) const;
    /// The same values within tolerances, strictly: one for apex and offset, the other for the cosine. See
    /// FloatUtil::isEqual.
    bool isEqual( const GeCullingCones& other, float lengthTolerance, float cosineTolerance ) const;
    /// @}

    /// @name Queries
    /// @{

    /// Whether a viewpoint lies in the front region; true for every point when there are no culling cones. Otherwise
    /// false for NaN.
    bool isInFront( const GePoint3<float>& p ) const;
    /// Whether a viewpoint lies in the region behind; false for every point when there are no culling cones, and for
    /// NaN. Distances above about 1.8e19 overflow and count as square to the axis: not behind, unless alpha is 0.
    bool isBehind( const GePoint3<float>& p ) const;
    /// Whether every viewpoint of a closed box lies in the region behind, for an eye that moves, two eyes, or a lamp that
    /// is not a point. Proved: when it is true, w . a >= cosBeta |w| holds for the exact numbers w = backfacing apex - p
    /// of all points p of the box, with apex, axis a and cosBeta as they are stored. False when that does not hold, or
    /// only by less than about 2^-47 of |w| |a|; so a box that reaches the surface is mostly told false, and a cosBeta of
    /// 1 leaves the tip alone. isBehind( p ), which rounds in float, can differ on either side of the surface.
    /// False as well for a box that is inverted on any axis, the empty one included, for NaN and infinity in either, and
    /// when there are no culling cones. Distances do not overflow. The cone is convex: the eight corners are asked, in
    /// double. docs/culling.md derives the error bound, here and below.
    bool isBehind( const GeAlignedBox3<float>& eyes ) const;
    /// Whether all normals n in the floating cone have n . direction >= 0: seen from infinitely far away by who looks
    /// along the direction, in an orthographic view, the faces show their back; light that travels along it does not
    /// reach their front. The direction points from the eye or lamp to the surface, and has any length. Its negative
    /// asks for the front: isBehindDirection( -d ) says that every n . d <= 0.
    /// Proved: when it is true, the inequality holds for the exact numbers and all n at the stored semi-angle or less
    /// from the stored axis, whatever its length. False when it does not hold, or only by less than about three units in
    /// the last place of cosBeta. False as well for a direction or an axis that is zero, NaN or infinite, and when there
    /// are no culling cones. The apex is of no importance.
    bool isBehindDirection( const GeVector3<float>& direction ) const;
    /// isInFront() for one viewpoint and many cones, much faster: verdict i is 1 where cones[i] answers true, else 0. Any count, also 0; no
    /// alignment is asked for. The verdicts must not lie within the cones.
    static void isInFront(
        const GeCullingCones* cones, std::size_t count, const GePoint3<float>& p, unsigned char* verdicts );
    /// isBehind() for one viewpoint and many cones, in the same way.
    static void isBehind(
        const GeCullingCones* cones, std::size_t count, const GePoint3<float>& p, unsigned char* verdicts );
    /// isBehind() for one box of viewpoints and many cones, in the same way.
    static void isBehind(
        const GeCullingCones* cones, std::size_t count, const GeAlignedBox3<float>& eyes, unsigned char* verdicts );
    /// isBehindDirection() for one direction and many cones, in the same way.
    static void isBehindDirection(
        const GeCullingCones* cones, std::size_t count, const GeVector3<float>& direction, unsigned char* verdicts );
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
    GePoint3<float> _backfacingApex;
    float _frontfacingOffset;
    float _cosBeta;
};

/// Writes the text form, as dump() does.
std::ostream& operator<<( std::ostream& os, const GeCullingCones& cones );

} // namespace Zq

#include "geCullingCones.inline"

namespace Zq
{

static_assert( sizeof( GeCullingCones ) == 9 * sizeof( float ) && std::is_trivially_copyable_v<GeCullingCones> );

} // namespace Zq

#endif
