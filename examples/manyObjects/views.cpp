#include "views.h"

#include <zq/primitives/geTranslation3.h>
#include <zq/primitives/geYAxisRotation3.h>

#include <limits>

namespace ManyObjects
{

using namespace Zq;

Views makeViews( const Camera& camera )
{
    Camera endless = camera;
    endless.range = GeDepthRange::ONE_TO_ZERO;
    endless.farDistance = std::numeric_limits<float>::infinity();

    const View eyes[] = { View( makeEyeMatrix( endless, {}, -1 ), endless.range ),
        View( makeEyeMatrix( endless, {}, 1 ), endless.range ) };
    return { View( makeClipMatrix<float>( camera ), camera.range ),
        View( makeClipMatrix<float>( endless ), endless.range ), eyes[0], eyes[1], View::makeUnion( eyes, 2 ) };
}

GeProjectiveMatrix3<float> makeEyeMatrix( const Camera& head, const Lens& lens, float side )
{
    const float left = side < 0 ? lens.outwards : lens.inwards;
    const float right = side < 0 ? lens.inwards : lens.outwards;
    const GeProjectiveMatrix3<float> projection = GeProjectionBuilder<float>::makePerspectiveFromTangents(
        -left, right, -lens.upwards, lens.upwards, head.nearDistance, head.farDistance, head.range );
    // what turns the eye one way turns the world the other way
    const GeAffineMatrix3<float> headToEye =
        GeYAxisRotation3<float>( side * lens.turn ) * GeTranslation3<float>( -side * lens.offset, 0, 0 );
    return projection * ( headToEye * makeView<float>( head ) );
}

} // namespace ManyObjects
