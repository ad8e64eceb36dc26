// From where does a cluster of triangles show only its back?

#include "example.h"

#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFloatingConeBuilder.h>
#include <zq/primitives/geUnitVector3.h>

#include <array>
#include <iostream>
#include <vector>

using namespace Zq;

// Corners counter-clockwise as seen from outside.
using Triangle = std::array<GePoint3<float>, 3>;

static GeCullingCones bound( const std::vector<Triangle>& cluster )
{
    GeFloatingConeBuilder normals;
    GeAnchoredConeBuilder points;
    for ( const Triangle& triangle : cluster )
    {
        normals( GeUnitVector3<float>( ( triangle[1] - triangle[0] ).cross( triangle[2] - triangle[0] ) ) );
        for ( const GePoint3<float>& corner : triangle )
        {
            points( corner );
        }
    }
    const GeFloatingCone tight = normals.createCone();
    // In single precision an arc cosine near 0 is good to 0.00035 only. Culling cones are made for normals within
    // 45 degrees of their axis; beyond, the default cones say of no eye that it sees nothing but backs.
    const GeFloatingCone cone( tight.getAxis(), tight.getSemiAngle() + 0.001F );
    return cone.getSemiAngle() <= 0.785F ? GeCullingCones( points.createCone( cone ) ) : GeCullingCones();
}

static void answer()
{
    // a shallow pyramid that points up
    const GePoint3<float> tip( 0, 0, 0.3F );
    const GePoint3<float> base[4] = { { 1, 0, 0 }, { 0, 1, 0 }, { -1, 0, 0 }, { 0, -1, 0 } };
    std::vector<Triangle> cluster;
    for ( std::size_t i = 0; i < 4; ++i )
    {
        cluster.push_back( { base[i], base[( i + 1 ) % 4], tip } );
    }
    const GeCullingCones cones = bound( cluster );

    for ( const GePoint3<float>& eye :
        { GePoint3<float>( 0, 0, 3 ), GePoint3<float>( 3, 0, 0.1F ), GePoint3<float>( 1, 0, -3 ) } )
    {
        std::cout << "from " << eye
                  << ( cones.isBehind( eye )          ? " only backs: not to be drawn\n"
                             : cones.isInFront( eye ) ? " only fronts\n"
                                                      : " perhaps both\n" );
    }
}

int main( int argc, char** argv )
{
    return Examples::runExample(
        argc, argv, "clusters", "From where does a cluster of triangles show only its back?", answer );
}
