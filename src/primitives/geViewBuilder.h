#ifndef ZQ_PRIMITIVES_GEVIEWBUILDER_H
#define ZQ_PRIMITIVES_GEVIEWBUILDER_H

#include "geRotation3.h"

namespace Zq
{

/// The matrix from the world to a camera that stands at `eye` and looks along its negative z axis, x to the right and y up.
/// For float and double; static functions only. Times a projection of GeProjectionBuilder or GeCameraBuilder, which stands
/// to the left, it leads from the world to clip space.
///
/// With the unit vectors r to the right, u up and b back, away from what is seen, the view is
///
///     | rx ry rz -( r . eye ) |
///     | ux uy uz -( u . eye ) |
///     | bx by bz -( b . eye ) |
///     | 0  0  0  1            |
///
/// worked out in double and rounded to T. All reports come from src/primitives/geViewBuilder.imp; NaN is reported, too.
template <class T>
class ZQ_PRIMITIVES_API GeViewBuilder
{
public:
    GeViewBuilder() = delete;

    /// @name Construction of views
    /// @{

    /// Looks at `target`, which appears in the middle, with `up` pointing upwards in the image; `up` has any length and
    /// need not be perpendicular. Where it is parallel to the view, up to an angle whose sine is 16 epsilon of T, the
    /// coordinate axis that the view has the smallest component along takes its place, z before y before x where
    /// several have: looking along y, z is up; looking along z, y.
    /// Reports "isFinite( eye )", "isDirection( target - eye )" for a target at the eye or not finite,
    /// "isDirection( up )" for a zero vector.
    static GeAffineMatrix3<T> makeView( const GePoint3<T>& eye, const GePoint3<T>& target, const GeVector3<T>& up );

    /// The same with the direction in place of the target. Reports "isFinite( eye )", "isDirection( towards )",
    /// "isDirection( up )".
    static GeAffineMatrix3<T> makeViewAlong(
        const GePoint3<T>& eye, const GeVector3<T>& towards, const GeVector3<T>& up );

    /// The view of a camera that is placed in the world by a rotation: its columns are r, u and b. The linear block is the
    /// transpose of the rotation, unchanged. Reports "isFinite( eye )".
    static GeAffineMatrix3<T> makeView( const GePoint3<T>& eye, const GeRotation3<T>& rotation );
    /// @}
};

extern template class GeViewBuilder<float>;
extern template class GeViewBuilder<double>;

} // namespace Zq

#endif
