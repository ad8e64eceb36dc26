// The parts of cullMesh: the teapot, the split, the bounds, and the self-check's ability to find fault.

#include "culling.h"
#include "clusters.h"
#include "selfCheck.h"
#include "teapot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>

using namespace CullMesh;
using namespace Zq;

namespace
{

Mesh makePreparedTeapot( unsigned nbSegments )
{
    Preparation report;
    return prepareMesh( makeTeapot( nbSegments ), report );
}

Camera makeTestCamera()
{
    Camera camera{ { 1.2F, -1.9F, 0.45F }, { -0.3F, 0, 0.05F }, 0.5F, 1.25F, 0, 0 };
    fitClipPlanes( camera, makePreparedTeapot( 8 ).points );
    return camera;
}

} // namespace

TEST( Teapot, HasItsTrianglesAndFacesOutwards )
{
    Preparation report;
    const Mesh mesh = prepareMesh( makeTeapot( 32 ), report );
    EXPECT_EQ( mesh.triangles.size(), 65280U );
    EXPECT_EQ( report.nbTrianglesDropped, 256U );

    // The volume that the faces enclose, by the divergence theorem: positive when they face outwards. A cylinder
    // through the belly (radius 2, height 2.4 in units of the table) has about the same.
    double volume = 0;
    float farthest = 0;
    for ( const Triangle& triangle : mesh.triangles )
    {
        const GePoint3<float>& corner = mesh.points[triangle[0]];
        volume += GeVector3<double>( GePoint3<double>( corner ) ).dot( computeAreaVector( mesh, triangle ) ) / 6;
        farthest = std::max( farthest, GeVector3<float>( corner ).length() );
    }
    const double unit = report.scale;
    EXPECT_NEAR( volume, 3.14 * 4 * 2.4 * unit * unit * unit, 0.25 );
    EXPECT_NEAR( farthest, 1, 1e-6 );
}

TEST( Teapot, EdgesOfNeighbouringPatchesAreWelded )
{
    // Each edge inside the surface belongs to two triangles, which run along it in opposite directions.
    const Mesh mesh = makePreparedTeapot( 7 );
    std::set<std::pair<std::uint32_t, std::uint32_t>> edges;
    for ( const Triangle& triangle : mesh.triangles )
    {
        for ( std::size_t i = 0; i < 3; ++i )
        {
            EXPECT_TRUE( edges.emplace( triangle[i], triangle[( i + 1 ) % 3] ).second );
        }
    }
    const auto nbOpen = std::count_if( edges.begin(), edges.end(),
        [&edges]( const auto& edge ) {
            return edges.count( { edge.second, edge.first } ) == 0;
        } );
    // Open are the edge of the lid and the rim of the pot, four patches each, and both ends of the spout and of the
    // handle, two patches each.
    EXPECT_EQ( nbOpen, 7 * ( 4 + 4 + 2 * 2 + 2 * 2 ) );
}

TEST( Mesh, TurnsUpWithoutMirroring )
{
    // forward and right of a mesh with y up: they keep their handedness, and y ends on z
    RawMesh raw;
    raw.points = { { 1, 0, 0 }, { 0, 1, 0 }, { 0, 0, 1 } };
    turnUp( raw );
    const GeVector3<double> x( raw.points[0] ), y( raw.points[1] ), z( raw.points[2] );
    EXPECT_EQ( y, GeVector3<double>( 0, 0, 1 ) );
    EXPECT_EQ( x.cross( y ), z );
}

TEST( Split, HalvesAtTheMedianAndKeepsEveryTriangle )
{
    Mesh mesh = makePreparedTeapot( 12 );
    std::vector<Triangle> before = mesh.triangles;
    const std::vector<TriangleRange> ranges = splitIntoRanges( mesh, 40 );

    std::size_t next = 0;
    for ( const TriangleRange& range : ranges )
    {
        EXPECT_EQ( range.first, next );
        EXPECT_LE( range.count, 40U );
        EXPECT_GE( range.count, 20U );
        next += range.count;
    }
    EXPECT_EQ( next, mesh.triangles.size() );
    std::vector<Triangle> after = mesh.triangles;
    std::sort( before.begin(), before.end() );
    std::sort( after.begin(), after.end() );
    EXPECT_EQ( before, after );
}

TEST( Split, EndsWhereAllTrianglesAreTheSame )
{
    Mesh mesh;
    mesh.points = { { 0, 0, 0 }, { 1, 0, 0 }, { 0, 1, 0 } };
    mesh.triangles.assign( 1000, { 0, 1, 2 } );
    EXPECT_EQ( splitIntoRanges( mesh, 1 ).size(), 1000U );
}

TEST( Clusters, HoldTheirTriangles )
{
    Mesh mesh = makePreparedTeapot( 12 );
    for ( const Cluster& cluster : makeClusters( mesh, splitIntoRanges( mesh, 64 ) ) )
    {
        for ( std::size_t i = cluster.triangles.first; i < cluster.triangles.first + cluster.triangles.count; ++i )
        {
            for ( const std::uint32_t corner : mesh.triangles[i] )
            {
                EXPECT_TRUE( cluster.box.contains( mesh.points[corner] ) );
            }
        }
    }
}

TEST( Clusters, DoNotTrustAConeThatMissesAHoveringFace )
{
    // Two small faces hover above the corner of a large level one, tilted towards its middle and away from it; seen
    // from the backfacing apex, the first shows its front.
    Mesh mesh;
    mesh.points = { { 0, 0, 0 }, { 4, 2, 0 }, { 2, 4, 0 },                //
        { 0, 0, 0.2F }, { 0.01F, -0.01F, 0.2F }, { 0.01F, 0.01F, 0.19F }, //
        { 2, 2, 1 }, { 2.01F, 1.99F, 1 }, { 2.01F, 2.01F, 1.01F } };
    mesh.triangles = { { 0, 1, 2 }, { 3, 4, 5 }, { 6, 7, 8 } };
    const Cluster whole = makeClusters( mesh, { { 0, 3 } } ).front();
    EXPECT_FALSE( whole.isConeUsable );
    const GePoint3<float> apex = whole.cones.getBackfacingApex();
    EXPECT_TRUE( whole.cones.isBehind( apex ) );
    EXPECT_GT( ( GePoint3<double>( apex ) - GePoint3<double>( mesh.points[3] ) )
                   .dot( computeAreaVector( mesh, mesh.triangles[1] ) ),
        0 );

    mesh.triangles.pop_back();
    mesh.triangles.pop_back();
    EXPECT_TRUE( makeClusters( mesh, { { 0, 1 } } ).front().isConeUsable );
}

TEST( SelfCheck, CountsEveryTriangleThatAWrongVerdictCosts )
{
    Mesh mesh = makePreparedTeapot( 8 );
    const std::vector<Cluster> clusters = makeClusters( mesh, splitIntoRanges( mesh, 64 ) );
    const Camera camera = makeTestCamera();
    const GePoint3<double> eye( camera.eye );
    std::size_t nbTurned = 0;
    for ( const Triangle& triangle : mesh.triangles )
    {
        const GeVector3<double> toEye = eye - GePoint3<double>( mesh.points[triangle[1]] );
        nbTurned += static_cast<std::size_t>( toEye.dot( computeAreaVector( mesh, triangle ) ) > 0 );
    }

    SelfCheck allBehind;
    allBehind.add( mesh, clusters, camera, std::vector<Verdict>( clusters.size(), Verdict::BEHIND ) );
    EXPECT_EQ( allBehind.behindButTurned, nbTurned );
    EXPECT_EQ( allBehind.outsideButIn, 0U );

    // what is in view, by the corners alone: too few where only the middle of a triangle is in view
    const GeProjectiveMatrix3<double> clipMatrix = makeClipMatrix<double>( camera );
    std::size_t nbInView = 0;
    for ( const Triangle& triangle : mesh.triangles )
    {
        nbInView += static_cast<std::size_t>( std::any_of( triangle.begin(), triangle.end(),
            [&]( std::uint32_t corner )
            {
                const GePoint3<double> p( mesh.points[corner] );
                const GeHomogeneousCoord3<double> h =
                    clipMatrix * GeHomogeneousCoord3<double>( p.getX(), p.getY(), p.getZ(), 1 );
                return std::max( { std::abs( h.getX() ), std::abs( h.getY() ), std::abs( h.getZ() ) } ) < h.getW();
            } ) );
    }
    SelfCheck allOutside;
    allOutside.add( mesh, clusters, camera, std::vector<Verdict>( clusters.size(), Verdict::OUTSIDE ) );
    EXPECT_EQ( allOutside.behindButTurned, 0U );
    EXPECT_GE( allOutside.outsideButIn, nbInView );
    EXPECT_LE( allOutside.outsideButIn, nbInView + 20 );
    EXPECT_LT( allOutside.outsideButIn, mesh.triangles.size() );

    // clip planes that cut through the mesh leave the same triangles, whatever they are called
    Camera slice = camera;
    slice.nearDistance += 0.3F * ( camera.farDistance - camera.nearDistance );
    slice.farDistance -= 0.3F * ( camera.farDistance - camera.nearDistance );
    const auto countIn = [&]( GeDepthRange range )
    {
        slice.range = range;
        SelfCheck check;
        check.add( mesh, clusters, slice, std::vector<Verdict>( clusters.size(), Verdict::OUTSIDE ) );
        return check.outsideButIn;
    };
    const std::size_t nbInSlice = countIn( GeDepthRange::MINUS_ONE_TO_ONE );
    EXPECT_LT( nbInSlice, allOutside.outsideButIn );
    EXPECT_EQ( countIn( GeDepthRange::ZERO_TO_ONE ), nbInSlice );
    EXPECT_EQ( countIn( GeDepthRange::ONE_TO_ZERO ), nbInSlice );
    slice.farDistance = std::numeric_limits<float>::infinity();
    const std::size_t nbWithoutFarPlane = countIn( GeDepthRange::ONE_TO_ZERO );
    EXPECT_GT( nbWithoutFarPlane, nbInSlice );
    EXPECT_LT( nbWithoutFarPlane, allOutside.outsideButIn );

    // nothing of this triangle but its middle is in view
    Mesh large;
    large.points = { { -9, 0, -9 }, { 9, 0, -9 }, { 0, 0, 9 } };
    large.triangles = { { 0, 1, 2 } };
    const std::vector<Cluster> one = makeClusters( large, { { 0, 1 } } );
    SelfCheck middle;
    middle.add( large, one, camera, { Verdict::OUTSIDE } );
    EXPECT_EQ( middle.outsideButIn, 1U );
}

TEST( Camera, SeesItsTargetInTheMiddleAndUpwardsAsUp )
{
    const Camera camera = makeTestCamera();
    const auto project = [&camera]( const GePoint3<float>& point ) {
        return makeClipMatrix<float>( camera ) *
            GeHomogeneousCoord3<float>( point.getX(), point.getY(), point.getZ(), 1 );
    };
    const GeHomogeneousCoord3<float> target = project( camera.target );
    EXPECT_NEAR( target.getX(), 0, 1e-5 );
    EXPECT_NEAR( target.getY(), 0, 1e-5 );
    const GeHomogeneousCoord3<float> above = project( camera.target + GeVector3<float>( 0, 0, 0.1F ) );
    EXPECT_NEAR( above.getX(), 0, 1e-5 );
    EXPECT_GT( above.getY(), 0 );

    for ( const float z : { 2.0F, -2.0F } ) // straight down and straight up
    {
        Camera steep = camera;
        steep.eye = camera.target + GeVector3<float>( 0, 0, z );
        EXPECT_NEAR( makeView<float>( steep ).computeDeterminant(), 1, 1e-6 );
    }
}

TEST( Orbit, SpreadsItsEyesEvenly )
{
    GeVector3<float> sum;
    const std::vector<GePoint3<float>> eyes = makeOrbit( 162, { 1.25F, 2.5F, 6 } );
    ASSERT_EQ( eyes.size(), 162U );
    for ( std::size_t i = 0; i < eyes.size(); ++i )
    {
        const GeVector3<float> offset( eyes[i] );
        EXPECT_NEAR( offset.length(), i % 3 == 0 ? 1.25F : i % 3 == 1 ? 2.5F : 6.0F, 1e-5 );
        sum += offset / offset.length();
    }
    EXPECT_LT( sum.length(), 1.5F );
}
