#ifndef ZQ_PRIMITIVES_GEPLANE3BUILDER_H
#define ZQ_PRIMITIVES_GEPLANE3BUILDER_H

#include "geNormalizedPlane3.h"

#include <cstdint>

namespace Zq
{

/// Fits a plane to a polygon, planar or not, vertex by vertex. For float and double.
///
/// The normal is Newell's: its components are the areas of the polygon's projections, so that it follows the winding:
/// where the vertices run counter-clockwise, the normal points at the viewer. The plane goes through the mean of the
/// vertices. All sums are relative to the first vertex, which keeps polygons far from the origin precise.
/// Products of coordinates are squared in T: in float the area should lie between about 1e-19 and 1e19, above which
/// the normal becomes zero without a report; see GeVector3::normalize.
/// Source: M. Newell's method, after I. Sutherland, R. Sproull and R. Schumacker, A Characterization of Ten
/// Hidden-Surface Algorithms, 1974.
///
///     GePlane3Builder<float> builder;
///     for ( const GePoint3<float>& vertex : polygon )
///         builder.addPoint( vertex );
///     const GeNormalizedPlane3<float> plane = builder.getPlane();
template <class T>
class ZQ_PRIMITIVES_API GePlane3Builder
{
public:
    /// @name Construction
    /// @{

    /// Begins without a vertex.
    GePlane3Builder();
    /// @}

    /// @name Feeding
    /// @{

    /// Adds the next vertex. After a successful getPlane() it begins a new polygon. At most 2^31 - 1 vertices.
    void addPoint( const GePoint3<T>& point );
    /// @}

    /// @name Queries
    /// @{

    /// The plane of the polygon; asked again, the same one. Aborts (src/primitives/gePlane3Builder) with fewer than
    /// three vertices, and reports "len > 0" (the same file) when the polygon has no area, as when its vertices are
    /// collinear, and for NaN. Both leave the builder as it was: more vertices may follow.
    GeNormalizedPlane3<T> getPlane();
    /// @}

private:
    void computeQuantities();

    std::int32_t _nbPoints; // -1 once the plane is computed
    GePoint3<T> _firstPoint;
    // The rest is relative to the first point.
    GeVector3<T> _previous;
    GeVector3<T> _sum;
    GeVector3<T> _newellNormal;
    GeNormalizedPlane3<T> _plane;
};

} // namespace Zq

#include "gePlane3Builder.inline"

namespace Zq
{

extern template class GePlane3Builder<float>;
extern template class GePlane3Builder<double>;

} // namespace Zq

#endif
