#include "solid.h"
#include "objFile.h"

#include <zq/primitives/geCameraBuilder.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace Figures;
using namespace Zq;

namespace
{

using Box = GeAlignedBox3<float>;

struct Random
{
    float operator()( float low, float high )
    {
        return low + ( high - low ) * static_cast<float>( engine() >> 8U ) * 0x1p-24F;
    }
    std::mt19937 engine;
};

Box makeRandomBox( Random& random )
{
    const auto point = [&] { return GePoint3<float>{ random( -3, 3 ), random( -3, 3 ), random( -3, 3 ) }; };
    const GePoint3<float> corner = point();
    return { corner, point() };
}

// By the divergence theorem: right only if the faces close up and all look outwards.
double computeVolume( const Solid& solid )
{
    double volume = 0;
    for ( const Polygon& face : solid.faces )
    {
        for ( std::size_t i = 2; i < face.size(); ++i )
        {
            volume += static_cast<double>(
                          GeVector3<float>( face[0] ).dot( ( face[i - 1] - face[0] ).cross( face[i] - face[0] ) ) ) /
                6;
        }
    }
    return volume;
}

// Every side of a face is a side of another one, the other way round.
bool isClosed( const Solid& solid )
{
    int nbOpen = 0;
    const auto hasSide = [&]( const GePoint3<float>& from, const GePoint3<float>& to )
    {
        for ( const Polygon& face : solid.faces )
        {
            for ( std::size_t i = 0; i < face.size(); ++i )
            {
                if ( face[i].isEqual( from, 2e-3F ) && face[( i + 1 ) % face.size()].isEqual( to, 2e-3F ) )
                {
                    return true;
                }
            }
        }
        return false;
    };
    for ( const Polygon& face : solid.faces )
    {
        for ( std::size_t i = 0; i < face.size(); ++i )
        {
            nbOpen += hasSide( face[( i + 1 ) % face.size()], face[i] ) ? 0 : 1;
        }
    }
    return nbOpen == 0;
}

TEST( GallerySolid, TwoHalvesOfABoxMakeTheWhole )
{
    Random random;
    for ( int i = 0; i < 200; ++i )
    {
        const Box box = makeRandomBox( random );
        const GeVector3<float> normal( random( -1, 1 ), random( -1, 1 ), random( -1, 1 ) );
        const GePlane3<float> plane(
            normal, -normal.dot( GeVector3<float>( box.getCenter() ) ) + random( -0.5F, 0.5F ) );
        const Solid below = cut( makeBox( box ), plane );
        const Solid above = cut( makeBox( box ), GePlane3<float>( -normal, -plane.getOffset() ) );
        EXPECT_NEAR( computeVolume( below ) + computeVolume( above ), static_cast<double>( box.getVolume() ), 1e-2 );
        EXPECT_TRUE( isClosed( below ) && isClosed( above ) ) << plane;
    }
    // a plane along a face cuts off nothing, or all
    const Box unit( GePoint3<float>( 0, 0, 0 ), GePoint3<float>( 1, 1, 1 ) );
    EXPECT_EQ( cut( makeBox( unit ), { 1, 0, 0, -1 } ).faces.size(), 6U );
    EXPECT_TRUE( cut( makeBox( unit ), { -1, 0, 0, 1 } ).faces.empty() );
}

TEST( GallerySolid, TheShaftHasTheVolumeOfThePointsThatItContains )
{
    Random random;
    for ( int i = 0; i < 20; ++i )
    {
        const Box box1 = makeRandomBox( random );
        const GeShaft shaft( box1, makeRandomBox( random ) );
        const Solid solid = makeShaftSolid( shaft );
        EXPECT_TRUE( isClosed( solid ) ) << shaft;

        constexpr int NB_POINTS = 20000;
        const Box& extent = shaft.getExtentBox();
        int nbContained = 0;
        for ( int k = 0; k < NB_POINTS; ++k )
        {
            const auto coordinate = [&]( int axis )
            { return random( extent.getInterval( axis ).min, extent.getInterval( axis ).max ); };
            const float x = coordinate( 0 );
            const float y = coordinate( 1 );
            nbContained += shaft.contains( { x, y, coordinate( 2 ) } ) ? 1 : 0;
        }
        const double share = static_cast<double>( nbContained ) / NB_POINTS;
        const auto whole = static_cast<double>( extent.getVolume() );
        EXPECT_NEAR( computeVolume( solid ) / whole, share, 0.02 ) << shaft;
    }
}

TEST( GallerySolid, TheFrustumReachesFromCornerToCornerOfClipSpace )
{
    const auto projection = GeCameraBuilder<float>::makePerspective( 0.9F, 1, 9, 1.5F );
    const Solid solid = makeFrustumSolid( GeFrustum<float>( projection ) );
    EXPECT_EQ( solid.faces.size(), 6U );
    EXPECT_TRUE( isClosed( solid ) );
    for ( const Polygon& face : solid.faces )
    {
        EXPECT_EQ( face.size(), 4U );
        for ( const GePoint3<float>& corner : face )
        {
            const auto clip = projection * GeHomogeneousCoord3<float>( corner.getX(), corner.getY(), corner.getZ(), 1 );
            for ( const float coordinate : { clip.getX(), clip.getY(), clip.getZ() } )
            {
                EXPECT_NEAR( std::abs( coordinate / clip.getW() ), 1, 2e-3F ) << corner;
            }
        }
    }
}

TEST( GallerySolid, ConesAreClosedAndOfTheRightVolume )
{
    const GeUnitVector3<float> axis( 1, -2, 3 );
    struct Case
    {
        float bottom, top;
    };
    for ( const Case& c : { Case{ 1, 2 }, Case{ 0, 2 }, Case{ 2, 0 } } )
    {
        const Solid cone = makeTruncatedCone( GePoint3<float>( 1, 2, 3 ), axis, c.bottom, c.top, 1.5F );
        EXPECT_TRUE( isClosed( cone ) );
        const double round =
            3.14159265 * 1.5 / 3 * static_cast<double>( c.bottom * c.bottom + c.bottom * c.top + c.top * c.top );
        EXPECT_NEAR( computeVolume( cone ), round, 0.002 * round );
    }
}

TEST( ObjFile, CornersThenFacesOfNamedObjects )
{
    ObjFile file;
    file.addSolid( "triangle", { { { { 0, 0, 0 }, { 0.1F, 0, 0 }, { 0, 1, 0 } } } } );
    file.addSolid( "other", { { { { 0, 0, 1 }, { 1, 0, 1 }, { 0, 1, 1 } } } } );
    EXPECT_EQ( file.getText(),
        "# made by gallery; z is up\n"
        "o triangle\nv 0 0 0\nv 0.100000001 0 0\nv 0 1 0\nf 1 2 3\n"
        "o other\nv 0 0 1\nv 1 0 1\nv 0 1 1\nf 4 5 6\n" );
}

} // namespace
