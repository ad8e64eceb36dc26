// How does a point of the world get its place on the screen?

#include "example.h"

#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geCameraBuilder.h>
#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geUnitVector3.h>

#include <iostream>

using namespace Zq;

// From world space to camera space: the eye at the origin, x to the right, y up, looking along -z. The eye must not look
// straight up or down.
static GeAffineMatrix3<float> makeView( const GePoint3<float>& eye, const GePoint3<float>& target )
{
    const GeUnitVector3<float> back( eye - target );
    const GeUnitVector3<float> right( GeVector3<float>( 0, 0, 1 ).cross( back ) ); // z is up in this world
    const GeUnitVector3<float> up( back.cross( right ) );

    // The rows are the camera's axes: a vector's components along them are its coordinates in camera space.
    const GeLinearMatrix3<float> rotation( right, up, back );
    return { rotation, -( rotation * GeVector3<float>( eye ) ) };
}

static void answer()
{
    const int width = 800;
    const int height = 600;
    const GeAffineMatrix3<float> view = makeView( GePoint3<float>( 3, -4, 2 ), GePoint3<float>( 0, 0, 0 ) );
    const GeProjectiveMatrix3<float> projection =
        GeCameraBuilder<float>::makePerspective( 0.8F, 1, 20, static_cast<float>( width ) / height );
    const GeProjectiveMatrix3<float> toClip = projection * view;

    for ( const GePoint3<float>& point : { GePoint3<float>( 0, 0, 0 ), GePoint3<float>( 0, 0, 1 ),
              GePoint3<float>( 2, 1.5F, 0 ), GePoint3<float>( 6, -8, 4 ) } )
    {
        const GeHomogeneousCoord3<float> clip =
            toClip * GeHomogeneousCoord3<float>( point.getX(), point.getY(), point.getZ(), 1 );
        std::cout << point;
        if ( clip.getW() <= 0 )
        {
            std::cout << " is behind the camera\n";
            continue;
        }
        // -1 to 1 in the picture after the division; y points up, rows of pixels run down
        const GeHomogeneousCoord3<float> image = clip / clip.getW();
        std::cout << " is at " << ( 1 + image.getX() ) / 2 * width << ", " << ( 1 - image.getY() ) / 2 * height
                  << ", depth " << image.getZ() << '\n';
    }
}

int main( int argc, char** argv )
{
    return Examples::runExample(
        argc, argv, "camera", "How does a point of the world get its place on the screen?", answer );
}
