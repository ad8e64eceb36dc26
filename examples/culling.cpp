// Which boxes does a camera see?

#include "example.h"

#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geCameraBuilder.h>
#include <zq/primitives/geFrustum.h>

#include <iostream>

using namespace Zq;

static void answer()
{
    // a camera at the origin that looks along -z: half a radian high, 16:9, from 1 to 100
    const GeFrustum<float> frustum( GeCameraBuilder<float>::makePerspective( 0.5F, 1, 100, 16.0F / 9.0F ) );

    const GeAlignedBox3<float> boxes[] = {
        { GePoint3<float>( -1, -1, -12 ), GePoint3<float>( 1, 1, -10 ) },  // before the camera
        { GePoint3<float>( 4, -1, -12 ), GePoint3<float>( 6, 1, -10 ) },   // at the edge of the picture
        { GePoint3<float>( 14, -1, -12 ), GePoint3<float>( 16, 1, -10 ) }, // to the right of it
        { GePoint3<float>( -1, -1, 10 ), GePoint3<float>( 1, 1, 12 ) },    // behind the camera
    };

    // one at a time
    for ( const GeAlignedBox3<float>& box : boxes )
    {
        switch ( frustum.classify( box ) )
        {
        case GeFrustum<float>::FRUSTUM_OUTSIDE:
            std::cout << box << " is outside\n";
            break;
        case GeFrustum<float>::FRUSTUM_INSIDE:
            std::cout << box << " is inside\n";
            break;
        case GeFrustum<float>::FRUSTUM_INTERSECT:
            std::cout << box << " crosses the boundary\n";
            break;
        }
    }

    // many at once, which is much faster: the indices of those that have to be drawn
    std::uint32_t indices[4];
    const std::size_t count = frustum.findNotOutside( boxes, 4, indices );
    std::cout << "to be drawn:";
    for ( std::size_t i = 0; i < count; ++i )
    {
        std::cout << ' ' << indices[i];
    }
    std::cout << '\n';
}

int main( int argc, char** argv )
{
    return Examples::runExample( argc, argv, "culling", "Which boxes does a camera see?", answer );
}
