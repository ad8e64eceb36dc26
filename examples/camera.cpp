// How does a point of the world get its place on the screen?

#include "example.h"

#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/geProjectionBuilder.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geViewBuilder.h>

#include <iostream>

using namespace Zq;

static void answer()
{
    const int width = 800;
    const int height = 600;
    // from the world to the camera, which stands at (3, -4, 2) and looks at the origin; z is up in this world
    const GeAffineMatrix3<float> view = GeViewBuilder<float>::makeView( { 3, -4, 2 }, { 0, 0, 0 }, { 0, 0, 1 } );
    // from the camera to the picture: 0.8 radians high, from 1 to 20; depth from 0 to 1, as most APIs have it today
    const GeProjectiveMatrix3<float> projection = GeProjectionBuilder<float>::makePerspectiveFromVerticalAngle(
        0.8F, static_cast<float>( width ) / height, 1, 20, GeDepthRange::ZERO_TO_ONE );
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
