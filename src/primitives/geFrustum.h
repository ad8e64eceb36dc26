#ifndef ZQ_PRIMITIVES_GEFRUSTUM_H
#define ZQ_PRIMITIVES_GEFRUSTUM_H

#include "geAlignedBox.h"
#include "geNormalizedPlane3.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// The view volume of a projection: six unit planes that face inwards, and the classification of points and boxes
/// against them. For float and double.
///
/// The matrix maps the volume onto the cube from -1 to 1 on every axis, depth included: a projection whose depth runs
/// from 0 to 1 does not fit. The planes lie in the space that the matrix maps from, in this order:
///
///     0  left     x >= -w        2  bottom   y >= -w        4  near   z >= -w
///     1  right    x <=  w        3  top      y <=  w        5  far    z <=  w
///
/// A point is inside when its value, the signed distance, is at least -0.0001 for every plane; the slack is an absolute
/// length, the float nearest 0.0001 for both scalars, and serves scenes whose sizes are around 1 to 1000. A NaN value
/// is never below it: a NaN plane rejects nothing, nor does a NaN point.
///
/// Each normal comes from the rows of the matrix, each offset from one of two corners of the cube projected back,
/// (-1, -1, -1) for planes 0, 2, 4 and (1, 1, 1) for 1, 3, 5. The far corner is only as good as the inverse in T, which
/// sets how deep a volume may be: in float, with far above about 1,000 times near, planes 1, 3 and 5 can be off by more
/// than a pixel at the near plane; from about 1e6 times (double: 7e14) a few cameras have the corner at w = 0, which
/// leaves planes 1, 3 and 5 NaN, 5 sometimes infinite, without a report; from about 5e6 times the far plane means
/// nothing; and from 2^25 times (double: 2^54) the constructor reports most cameras, not all. GeFrustum<double> is the
/// cure for float.
/// docs/culling.md has the figures.
///
/// GeViewVolume takes all that is left out here, and proves its verdicts: depth from 0 to 1 and reversed depth, which it
/// is told; an infinitely far plane, reported here, which it leaves out; far planes of any distance, also in float;
/// scenes in small units, since it has no slack; matrices without inverse, or of sizes that the inverse takes for that;
/// boxes that may be empty; and boxes beyond an edge, by GeViewVolume::classifyTight(). Spheres, placed boxes and several
/// eyes at once are its alone.
///
/// Source of the rows: G. Gribb and K. Hartmann, Fast Extraction of Viewing Frustum Planes, 2001.
///
/// Text form: for each plane a line end, then "plane( 0 ) = [a, b, c, d]"; it begins with a line end and ends without.
template <class T>
class ZQ_PRIMITIVES_API GeFrustum
{
public:
    /// The number of planes.
    enum
    {
        NB_PLANES = 6
    };

    /// How a point or a box lies relative to the view volume.
    enum Classification
    {
        FRUSTUM_OUTSIDE = 1,  ///< wholly beyond one of the planes
        FRUSTUM_INSIDE = 2,   ///< within all six planes
        FRUSTUM_INTERSECT = 3 ///< a box that crosses planes, and is wholly beyond none
    };

    /// @name Construction
    /// @{

    /// Reports "nonSingular" (src/base/matrix4x4Imp, line 175) for a matrix without inverse, "len > 0"
    /// (src/primitives/geVector3.inline, line 496) where the sum or difference of two rows has no direction, as for an
    /// infinitely far plane. GeViewVolume takes both.
    /// Traces its steps at the level "GeFrustum".
    explicit GeFrustum( const GeProjectiveMatrix3<T>& projection );
    /// Copies the planes.
    GeFrustum( const GeFrustum& ) = default;
    /// Takes over the planes.
    GeFrustum& operator=( const GeFrustum& ) = default;
    /// Nothing is to be given back.
    ~GeFrustum() = default;
    /// @}

    /// @name Access
    /// @{

    /// Plane 0 to 5. Reports "plane >= 0 && plane <= NB_PLANES" (src/primitives/geFrustum.inline) for others, except
    /// that 6 passes and gives the default plane, z = 0.
    GeNormalizedPlane3<T> getPlane( int plane ) const;
    /// @}

    /// @name Comparison
    /// @{

    /// The six planes exactly equal.
    bool isEqualExact( const GeFrustum& other ) const;
    /// All 24 numbers within the tolerance, strictly; see FloatUtil::isEqual.
    bool isEqual( const GeFrustum& other, T tolerance ) const;
    /// @}

    /// @name Queries
    /// @{

    /// FRUSTUM_OUTSIDE or FRUSTUM_INSIDE.
    Classification classify( const GePoint3<T>& point ) const;

    /// Looks at the two corners of the box that are extreme along each normal. FRUSTUM_OUTSIDE and FRUSTUM_INSIDE are
    /// certain; FRUSTUM_INTERSECT is cautious: a box beyond an edge or a corner of the volume, yet wholly beyond none
    /// of the planes, is said to intersect; GeViewVolume::classifyTight() tells. A NaN value intersects. An empty box is
    /// not recognised: the canonical one is FRUSTUM_INSIDE, so ask GeAlignedBox3::isEmpty() first where boxes may be
    /// empty, or a GeViewVolume, for which they are outside.
    /// Source: U. Assarsson and T. Moeller, Optimized View Frustum Culling Algorithms for Bounding Boxes, 2000.
    Classification classify( const GeAlignedBox3<T>& box ) const;

    /// classify() for arrays, and much faster: verdict i, a byte with the value of the enumerator, is what the call for
    /// element i alone answers. Any count, also 0; no alignment is asked for. The verdicts must not lie within the input.
    void classify( const GePoint3<T>* points, std::size_t count, unsigned char* verdicts ) const;
    /// The same for boxes.
    void classify( const GeAlignedBox3<T>* boxes, std::size_t count, unsigned char* verdicts ) const;

    /// Writes the indices of the boxes that are not FRUSTUM_OUTSIDE, in ascending order, and returns their number. The
    /// array takes up to `count` indices; those behind the ones returned are left with any value. Reports
    /// "count <= 0xFFFFFFFF" (src/primitives/geFrustum.inline).
    std::size_t findNotOutside( const GeAlignedBox3<T>* boxes, std::size_t count, std::uint32_t* indices ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form.
    void dump( std::ostream& os ) const;
    /// @}

private:
    void setPlane( int plane, const GeNormalizedPlane3<T>& value );

    T _planes[4][NB_PLANES]; // by component, so that a register takes several planes
};

/// The same as isEqualExact().
template <class T>
bool operator==( const GeFrustum<T>& a, const GeFrustum<T>& b );
/// The exact negation of ==.
template <class T>
bool operator!=( const GeFrustum<T>& a, const GeFrustum<T>& b );
/// The same as a.isEqual( b, tolerance ).
template <class T>
bool isEqual( const GeFrustum<T>& a, const GeFrustum<T>& b, T tolerance );
/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeFrustum<T>& frustum );

} // namespace Zq

#include "geFrustum.inline"

namespace Zq
{

extern template class GeFrustum<float>;
extern template class GeFrustum<double>;

static_assert( sizeof( GeFrustum<float> ) == 24 * sizeof( float ) && std::is_trivially_copyable_v<GeFrustum<float>> );
static_assert(
    sizeof( GeFrustum<double> ) == 24 * sizeof( double ) && std::is_trivially_copyable_v<GeFrustum<double>> );

} // namespace Zq

#endif
