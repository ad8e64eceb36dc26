#ifndef ZQ_EXAMPLES_SUPPORT_CAMERA_H
#define ZQ_EXAMPLES_SUPPORT_CAMERA_H

#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/gePoint3.h>
#include <zq/primitives/geProjectionBuilder.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geViewBuilder.h>

namespace Examples
{

/// An eye that looks at a target, upright.
struct Camera
{
    Zq::GePoint3<float> eye;
    Zq::GePoint3<float> target;
    float fieldOfView;                     // the whole angle from bottom to top, in radians
    float aspect;                          // width / height
    float nearDistance;                    // of the clip planes, along the line of sight
    float farDistance;                     // may be infinity: nothing is cut off far away
    Zq::GeVector3<float> up = { 0, 0, 1 }; // of the world
    Zq::GeDepthRange range = Zq::GeDepthRange::MINUS_ONE_TO_ONE;
};

/// From world space to camera space: the eye at the origin, x to the right, y up, looking along -z.
template <class T>
Zq::GeAffineMatrix3<T> makeView( const Camera& camera )
{
    return Zq::GeViewBuilder<T>::makeView(
        Zq::GePoint3<T>( camera.eye ), Zq::GePoint3<T>( camera.target ), Zq::GeVector3<T>( camera.up ) );
}

/// From world space to clip space.
template <class T>
Zq::GeProjectiveMatrix3<T> makeClipMatrix( const Camera& camera )
{
    return Zq::GeProjectionBuilder<T>::makePerspectiveFromVerticalAngle( static_cast<T>( camera.fieldOfView ),
               static_cast<T>( camera.aspect ), static_cast<T>( camera.nearDistance ),
               static_cast<T>( camera.farDistance ), camera.range ) *
        makeView<T>( camera );
}

} // namespace Examples

#endif
