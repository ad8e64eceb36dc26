#ifndef ZQ_PRIMITIVES_GECAMERABUILDER_H
#define ZQ_PRIMITIVES_GECAMERABUILDER_H

#include "geProjectiveMatrix3.h"

namespace Zq
{

/// The projection matrices of a camera. For float and double; static functions only.
///
/// The camera stands at the origin and looks along the negative z axis, x to the right and y up. After division by w
/// the view volume is the cube from -1 to 1 on each axis: the near distance lands at z = -1, the far distance at 1. The
/// view is symmetric. Its field of view is the full vertical angle in radians, its aspect ratio is width / height.
/// A perspective and an orthographic camera of the same four arguments show the same extent at the near distance.
///
/// Nothing is reported; a degenerate argument is replaced. Zero means equal to 0 within the default tolerance of
/// FloatUtil::isEqual (float 1e-6, double 1e-7), the substitute is 0.0001 for float and 1e-7 for double:
/// - an angle below 0 becomes 0, an angle of pi or more becomes pi - 0.001; angles between the two limits are kept;
/// - a distance of 0 or less becomes the substitute, and so does an aspect ratio that is zero;
/// - when the sum or the difference of the two distances is zero, 0.5 is added to it;
/// - an ortho radius of 0 or less, or a cotangent that is zero, becomes the substitute.
///
/// The tests for zero are absolute: choose units in which the distances and their difference are well above them. A near
/// distance above the far distance is accepted and flips the depth. A perspective of angle 0 has an infinite scale, and
/// an infinite distance or a NaN argument gives NaN elements.
///
/// Which to take: this class where matrices must be those of programs that have it, or where a degenerate camera has to
/// be drawn all the same. GeProjectionBuilder for depth from 0 to 1, reversed, infinite, off-centre or oblique, and where
/// a mistake is better reported than replaced; its makePerspectiveFromVerticalAngle() with MINUS_ONE_TO_ONE is this
/// makePerspective() up to rounding.
template <class T>
class ZQ_PRIMITIVES_API GeCameraBuilder
{
public:
    GeCameraBuilder() = delete;

    /// @name Queries
    /// @{

    /// Half the height of the view at a distance: tan( angle / 2 ) * distance.
    static T computeOrthoRadius( T fieldOfView, T distance );
    /// @}

    /// @name Construction
    /// @{

    /// With c = 1 / tan( fieldOfView / 2 ), n the near and f the far distance:
    ///
    ///     | c / aspect 0 0 0 |
    ///     | 0 c 0 0 |
    ///     | 0 0 -( f + n ) / ( f - n ) -2 f n / ( f - n ) |
    ///     | 0 0 -1 0 |
    static GeProjectiveMatrix3<T> makePerspective( T fieldOfView, T nearDistance, T farDistance, T aspect );

    /// With r the ortho radius of the angle at the near distance as it was passed:
    ///
    ///     | 1 / ( r aspect ) 0 0 0 |
    ///     | 0 1 / r 0 0 |
    ///     | 0 0 -2 / ( f - n ) -( f + n ) / ( f - n ) |
    ///     | 0 0 0 1 |
    static GeProjectiveMatrix3<T> makeOrthographic( T fieldOfView, T nearDistance, T farDistance, T aspect );
    /// @}
};

extern template class GeCameraBuilder<float>;
extern template class GeCameraBuilder<double>;

} // namespace Zq

#endif
