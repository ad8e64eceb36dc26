#ifndef ZQ_PRIMITIVES_GEPROJECTIONBUILDER_H
#define ZQ_PRIMITIVES_GEPROJECTIONBUILDER_H

#include "geDepthRange.h"
#include "gePlane3.h"
#include "geProjectiveMatrix3.h"

namespace Zq
{

/// Projection matrices for every depth range, by what is known of the camera: an angle, edges or tangents. For float and
/// double; static functions only. GeViewBuilder makes the other half, the matrix from the world to the camera.
///
/// The camera stands at the origin and looks along the negative z axis, x to the right and y up. After division by w
/// what is seen lies from -1 to 1 in x and y, and from the near to the far depth of the GeDepthRange in z. Angles are full
/// ones, in radians; an aspect ratio is width / height; distances are positive, along the view, in any unit. Of a
/// perspective, `farDistance` may be infinity: nothing is cut off far away.
///
/// With the tangents l, r, b, t of the edges of the view (left and bottom are negative where the view is not far off
/// its axis), n the near and f the far distance, a perspective is
///
///     | 2 / ( r - l )  0              ( r + l ) / ( r - l )  0 |
///     | 0              2 / ( t - b )  ( t + b ) / ( t - b )  0 |
///     | 0              0              A                      B |
///     | 0              0              -1                     0 |
///
///                         A                       B                      A, B for f infinite
///     MINUS_ONE_TO_ONE    -( f + n ) / ( f - n )  -2 f n / ( f - n )     -1, -2 n
///     ZERO_TO_ONE         -f / ( f - n )          -f n / ( f - n )       -1, -n
///     ONE_TO_ZERO         n / ( f - n )           f n / ( f - n )        0, n
///
/// and an orthographic projection, with the edges l, r, b, t themselves
///
///     | 2 / ( r - l )  0              0  -( r + l ) / ( r - l ) |
///     | 0              2 / ( t - b )  0  -( t + b ) / ( t - b ) |
///     | 0              0              A  B                      |
///     | 0              0              0  1                      |
///
///                         A               B
///     MINUS_ONE_TO_ONE    -2 / ( f - n )  -( f + n ) / ( f - n )
///     ZERO_TO_ONE         -1 / ( f - n )  -n / ( f - n )
///     ONE_TO_ZERO         1 / ( f - n )   f / ( f - n )
///
/// Elements are worked out in double and rounded to T; what follows from a tangent is as good as that of the C library.
///
/// What is given in the wrong order or unit is reported where it can be told, and so is NaN. GeCameraBuilder takes its
/// arguments in another order and replaces what is degenerate. All reports come from
/// src/primitives/geProjectionBuilder.imp:
/// "isRepresentable( rows )" from every function but makeYDown(): an element is too large for T, or one so small that the
/// matrix would be singular.
template <class T>
class ZQ_PRIMITIVES_API GeProjectionBuilder
{
public:
    GeProjectionBuilder() = delete;

    /// @name Construction of projections
    /// @{

    /// By the angle from the bottom to the top of the view. Reports "verticalAngle > 0 && verticalAngle < PI" (60 is no
    /// angle in radians), "aspect > 0 && isFinite( aspect )", "nearDistance > 0", "nearDistance < farDistance".
    static GeProjectiveMatrix3<T> makePerspectiveFromVerticalAngle(
        T verticalAngle, T aspect, T nearDistance, T farDistance, GeDepthRange range );

    /// By the angle from the left to the right of the view. Reports "horizontalAngle > 0 && horizontalAngle < PI",
    /// "aspect > 0 && isFinite( aspect )", "nearDistance > 0", "nearDistance < farDistance".
    static GeProjectiveMatrix3<T> makePerspectiveFromHorizontalAngle(
        T horizontalAngle, T aspect, T nearDistance, T farDistance, GeDepthRange range );

    /// By the edges of the view on the near plane, as lengths; off-centre where they are not symmetric. Reports
    /// "nearDistance > 0", "nearDistance < farDistance", "left < right && isFinite( right - left )",
    /// "bottom < top && isFinite( top - bottom )".
    static GeProjectiveMatrix3<T> makePerspectiveFromNearEdges(
        T left, T right, T bottom, T top, T nearDistance, T farDistance, GeDepthRange range );

    /// By the tangents of the four angles between the view direction and the edges of the view, as headsets tell them for
    /// each eye: left and down are negative for angles to the left and downwards. Reports "nearDistance > 0",
    /// "nearDistance < farDistance", "left < right && isFinite( right - left )",
    /// "down < up && isFinite( up - down )".
    static GeProjectiveMatrix3<T> makePerspectiveFromTangents(
        T left, T right, T down, T up, T nearDistance, T farDistance, GeDepthRange range );

    /// By the edges of the view, as lengths. The near distance may be negative: behind the camera. Reports
    /// "nearDistance < farDistance && isFinite( farDistance - nearDistance )",
    /// "left < right && isFinite( right - left )", "bottom < top && isFinite( top - bottom )".
    static GeProjectiveMatrix3<T> makeOrthographicFromEdges(
        T left, T right, T bottom, T top, T nearDistance, T farDistance, GeDepthRange range );

    /// The projection with its near plane replaced by a plane in camera space, for mirrors, portals and the surface of
    /// water: what lies on the side of its normal is seen. The plane may have any length. x, y and w stay as they are.
    /// The far plane slants, too: it passes through that far corner of the old volume that lies deepest on the visible
    /// side, so that nothing visible is lost, and depth between the two is as fine as it can be. What lies beyond the
    /// old far plane may be seen.
    /// Source: E. Lengyel, Oblique View Frustum Depth Projection and Clipping, 2005.
    ///
    /// `projection` is one of the above, perhaps y down, for the range that is given. Reports "isProjection( projection )"
    /// for another shape, oblique ones included, "isPlane( plane )" for a zero normal or elements that are not finite,
    /// "isEyeBehindPlane" for a perspective unless the plane's offset is negative, "isPlaneInView" when
    /// nothing of the volume is on the visible side.
    static GeProjectiveMatrix3<T> makeOblique(
        const GeProjectiveMatrix3<T>& projection, const GePlane3<T>& plane, GeDepthRange range );

    /// The same with y down in clip space, as Vulkan has it: row 1 negated. What is counter-clockwise becomes clockwise.
    static GeProjectiveMatrix3<T> makeYDown( const GeProjectiveMatrix3<T>& projection );
    /// @}
};

extern template class GeProjectionBuilder<float>;
extern template class GeProjectionBuilder<double>;

} // namespace Zq

#endif
