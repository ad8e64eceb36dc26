#include "support/exactVector.h"
#include "support/random.h"
#include "support/scalars.h"

#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFloatingConeBuilder.h>

#include <algorithm>
#include <cmath>
#include <sstream>

using namespace Zq;
using ZqTest::combine;
using ZqTest::cross;
using ZqTest::difference;
using ZqTest::dot;
using ZqTest::Exact;
using ZqTest::Random;
using ZqTest::widen;

namespace
{

using Unit = GeUnitVector3<float>;
using Vector = GeVector3<float>;
using Point = GePoint3<float>;

const Unit X( 1, 0, 0 );
const Unit Z( 0, 0, 1 );
constexpr float QUARTER_PI = 0.785398163F;
const long double RIGHT_ANGLE = std::acos( -1.0L ) / 2;

// Clusters ----------------------------------------------------------------------------------------------------------

struct Face
{
    Point corners[3]; // counter-clockwise, seen from the front
};
using Cluster = std::vector<Face>;

Exact computeNormal( const Face& face )
{
    const Exact origin = widen( face.corners[0] );
    return ZqTest::normalized(
        cross( difference( widen( face.corners[1] ), origin ), difference( widen( face.corners[2] ), origin ) ) );
}

// How far the eye is in front of the face's plane.
long double computeFacing( const Face& face, const Point& eye )
{
    return dot( computeNormal( face ), difference( widen( eye ), widen( face.corners[0] ) ) );
}

GeCullingCones build( const Cluster& cluster )
{
    GeFloatingConeBuilder normals;
    GeAnchoredConeBuilder points;
    for ( const Face& face : cluster )
    {
        normals( Unit( ( face.corners[1] - face.corners[0] ).cross( face.corners[2] - face.corners[0] ) ) );
        for ( const Point& corner : face.corners )
            points( corner );
    }
    return GeCullingCones( points.createCone( normals.createCone() ) );
}

// Whether a corner of the face lies in the cone that grants a right answer; see the class comment. The tip is lowered
// by a trifle, because the corners that decide the bottom disc lie on the surface of that cone.
bool isGranted( const GeCullingCones& cones, const Face& face )
{
    const GeFloatingCone& cone = cones.getFloatingCone();
    const GeCullingCones mirrored( cone, cones.getBackfacingApex() - cone.getAxis() * 2e-6F, 0 );
    return std::any_of( std::begin( face.corners ), std::end( face.corners ),
        [&mirrored]( const Point& corner ) { return mirrored.isInFront( corner ); } );
}

// A turned patch of 4 by 4 squares over a square, with random heights.
Cluster makeHeightField( Random& random, float steepness )
{
    const Unit up = random.direction<float>();
    const Unit right( up.cross( random.direction<float>() ) );
    const Vector forward = up.cross( right );
    const float tiltX = random.uniform( -steepness, steepness );
    const float tiltY = random.uniform( -steepness, steepness );
    Point grid[5][5];
    for ( int i = 0; i < 5; ++i )
    {
        for ( int j = 0; j < 5; ++j )
        {
            const float x = static_cast<float>( i );
            const float y = static_cast<float>( j );
            const float z = tiltX * x + tiltY * y + random.uniform( -0.5F, 0.5F ) * steepness;
            grid[i][j] = Point( right * x + forward * y + up * z );
        }
    }
    Cluster cluster;
    for ( int i = 0; i < 4; ++i )
    {
        for ( int j = 0; j < 4; ++j )
        {
            cluster.push_back( { { grid[i][j], grid[i + 1][j], grid[i + 1][j + 1] } } );
            cluster.push_back( { { grid[i][j], grid[i + 1][j + 1], grid[i][j + 1] } } );
        }
    }
    return cluster;
}

// Loose triangles that face roughly the same way.
Cluster makeSoup( Random& random, float spread )
{
    const Unit up = random.direction<float>();
    Cluster cluster;
    for ( int i = 0; i < 8; ++i )
    {
        const Unit normal( up + random.direction<float>() * ( spread * random.uniform( 0.0F, 1.0F ) ) );
        const Unit right( normal.cross( random.direction<float>() ) );
        const Vector forward = normal.cross( right );
        const float size = random.uniform( 0.05F, 1.0F );
        const Point corner = random.point<float>( 1 );
        cluster.push_back( { { corner, corner + right * size, corner + forward * size } } );
    }
    return cluster;
}

// Viewpoints in and around the regions, many of them close to an apex and close to a surface.
Point makeEye( Random& random, const GeCullingCones& cones, bool isFront )
{
    const Unit& axis = cones.getFloatingCone().getAxis();
    const Vector sideways = Unit( axis.cross( random.direction<float>() ) );
    const float beta = cones.getCullingSemiAngle();
    const float angle = random.index( 2 ) ? beta * 0.9999F : random.uniform( 0.0F, beta );
    const float distance = std::pow( 10.0F, random.uniform( -3.0F, 1.0F ) );
    const Vector offset = ( axis * std::cos( angle ) + sideways * std::sin( angle ) ) * distance;
    return isFront ? cones.getBackfacingApex() + axis * cones.getFrontfacingOffset() + offset
                   : cones.getBackfacingApex() - offset;
}

TEST( CullingCones, UpTo45DegreesTheAnswersAreRight )
{
    Random random( 1 );
    const long double bound = 1e-5L; // the clusters are up to ten units wide
    int answers = 0;
    int ungrantedField = 0;
    for ( int i = 0; i < 2000; ++i )
    {
        const bool isField = i % 2;
        const Cluster cluster =
            isField ? makeHeightField( random, random.uniform( 0.05F, 0.6F ) ) : makeSoup( random, 0.8F );
        const GeCullingCones cones = build( cluster );
        if ( cones.getFloatingCone().getSemiAngle() > QUARTER_PI )
            continue;
        for ( int k = 0; k < 20; ++k )
        {
            const Point behind = makeEye( random, cones, false );
            const Point front = makeEye( random, cones, true );
            const bool isBehind = cones.isBehind( behind );
            const bool isInFront = cones.isInFront( front );
            answers += isBehind + isInFront;
            for ( const Face& face : cluster )
            {
                // a height field is granted as a whole
                ungrantedField += isField && !isGranted( cones, face );
                if ( isBehind && ( isField || isGranted( cones, face ) ) )
                {
                    EXPECT_LE( computeFacing( face, behind ), bound );
                }
                if ( isInFront && isField )
                {
                    EXPECT_GE( computeFacing( face, front ), -bound );
                }
            }
        }
    }
    EXPECT_GT( answers, 10000 );
    EXPECT_EQ( ungrantedField, 0 );
}

TEST( CullingCones, AGrantMakesWiderConesRightToo )
{
    Random random( 2 );
    int granted = 0;
    int wrong = 0;
    for ( int i = 0; i < 4000; ++i )
    {
        const Cluster cluster = i % 2 ? makeHeightField( random, 1.5F ) : makeSoup( random, 1.2F );
        const GeCullingCones cones = build( cluster );
        if ( cones.getFloatingCone().getSemiAngle() <= QUARTER_PI || cones.getCosBeta() < 0 )
            continue;
        for ( int k = 0; k < 20; ++k )
        {
            const Point eye = makeEye( random, cones, false );
            if ( !cones.isBehind( eye ) )
                continue;
            for ( const Face& face : cluster )
            {
                const bool isWrong = computeFacing( face, eye ) > 1e-5L;
                wrong += isWrong;
                granted += isGranted( cones, face );
                EXPECT_FALSE( isWrong && isGranted( cones, face ) );
            }
        }
    }
    EXPECT_GT( granted, 1000 );
    EXPECT_GT( wrong, 0 ) << "cones wider than 45 degrees go wrong";
}

TEST( CullingCones, BeyondFortyFiveDegreesEvenAConnectedSurfaceGoesWrong )
{
    // a gutter whose walls grow steeper outwards, half a unit long
    Cluster gutter;
    const auto addStrip = [&gutter]( float x0, float z0, float x1, float z1 )
    {
        const Point a( x0, 0, z0 ), b( x1, 0, z1 ), c( x1, 0.5F, z1 ), d( x0, 0.5F, z0 );
        gutter.push_back( { { a, b, c } } );
        gutter.push_back( { { a, c, d } } );
    };
    addStrip( 0, 0, 1, 0.5F );
    addStrip( 1, 0.5F, 1.5F, 1.5F );
    addStrip( -1, 0.5F, 0, 0 );
    addStrip( -1.5F, 1.5F, -1, 0.5F );
    const GeCullingCones cones = build( gutter );
    EXPECT_NEAR( cones.getFloatingCone().getSemiAngle(), std::atan( 2.0 ), 1e-6 );

    const Point eye( 0, 0.25F, -0.75F );
    EXPECT_TRUE( cones.isBehind( eye ) );
    const Face& wall = gutter[2];
    EXPECT_GT( computeFacing( wall, eye ), 0.1L );
    EXPECT_FALSE( isGranted( cones, wall ) );
}

TEST( CullingCones, AFaceThatHoversAboveALopsidedSetGoesWrongAtAnyAngle )
{
    // a level triangle whose lowest corner is farther from the middle of the bottom disc than the disc reaches; above
    // that corner a small face, tilted towards the middle; far up its mirror image, which keeps the axis upright
    const auto tilted = []( Point p, float side, float size ) -> Face
    {
        const Vector level( 1, -1, 0 );
        const Vector rising( -side, -side, 1 );
        return { { p, p - level * ( side * size ) + rising * size, p + level * ( side * size ) + rising * size } };
    };
    const Cluster cluster{ { { Point(), Point( 1, 0.5F, 0 ), Point( 0.5F, 1, 0 ) } },
        tilted( Point( 0, 0, 0.0625F ), 1, 0.015625F ), tilted( Point( 0.5F, 0.5F, 2 ), -1, 0.0625F ) };
    const GeCullingCones cones = build( cluster );
    EXPECT_NEAR( cones.getFloatingCone().getSemiAngle(), 0.6154797, 1e-6 ); // 35 degrees

    const Point eye = cones.getBackfacingApex();
    EXPECT_TRUE( cones.isBehind( eye ) );
    EXPECT_GT( computeFacing( cluster[1], eye ), 0.05L );
    EXPECT_FALSE( isGranted( cones, cluster[1] ) );
    EXPECT_TRUE( isGranted( cones, cluster[0] ) );
}

// The regions -------------------------------------------------------------------------------------------------------

TEST( CullingCones, RegionsAgreeWithLongDouble )
{
    Random random( 3 );
    int inside = 0;
    for ( int i = 0; i < 5000; ++i )
    {
        const GeCullingCones cones( { random.direction<float>(), random.uniform( 0.0F, 1.5F ) },
            random.point<float>( 1 ), random.uniform( -1.0F, 3.0F ) );
        const Point p = random.point<float>( 4 );
        const Exact axis = widen( cones.getFloatingCone().getAxis() );
        const Exact back = widen( cones.getBackfacingApex() );
        const Exact front = combine( 1, back, cones.getFrontfacingOffset(), axis );
        const long double beta = RIGHT_ANGLE - cones.getFloatingCone().getSemiAngle();
        EXPECT_LE( std::fabs( cones.getCullingSemiAngle() - beta ), 3e-5L );
        const long double behindAngle = ZqTest::angleBetween( axis, difference( back, widen( p ) ) );
        const long double frontAngle = ZqTest::angleBetween( axis, difference( widen( p ), front ) );
        if ( std::fabs( behindAngle - beta ) > 1e-4L )
        {
            EXPECT_EQ( cones.isBehind( p ), behindAngle < beta );
        }
        if ( std::fabs( frontAngle - beta ) > 1e-4L )
        {
            EXPECT_EQ( cones.isInFront( p ), frontAngle < beta );
        }
        inside += cones.isBehind( p ) + cones.isInFront( p );
    }
    EXPECT_GT( inside, 1000 );
}

TEST( CullingCones, NamedViewpoints )
{
    const GeCullingCones cones( { Z, QUARTER_PI }, Point(), 10 );
    EXPECT_NEAR( cones.getCosBeta(), 0.70710678, 1e-7 );
    EXPECT_TRUE( cones.isBehind( Point( 0, 0, -1 ) ) );
    EXPECT_FALSE( cones.isBehind( Point( 1, 0, -0.5F ) ) );
    EXPECT_TRUE( cones.isInFront( Point( 0, 0, 11 ) ) );
    EXPECT_FALSE( cones.isInFront( Point( 0, 0, 9 ) ) );
    // the tips count, and the surface: a flat cluster is seen edge on from its own plane
    EXPECT_TRUE( cones.isBehind( Point() ) );
    EXPECT_TRUE( cones.isInFront( Point( 0, 0, 10 ) ) );
    const GeCullingCones flat( { Z, 0 }, Point(), 0 );
    EXPECT_EQ( flat.getCosBeta(), 0.0F );
    EXPECT_TRUE( flat.isBehind( Point( 5, 3, 0 ) ) );
    EXPECT_TRUE( flat.isInFront( Point( 5, 3, 0 ) ) );
    EXPECT_FALSE( flat.isBehind( Point( 5, 3, 0.001F ) ) );
    EXPECT_FALSE( flat.isInFront( Point( 5, 3, -0.001F ) ) );

    const GeCullingCones half( { Z, 0.5F }, Point(), 0 );
    EXPECT_NEAR( half.getCosBeta(), std::sin( 0.5 ), 1e-7 );
    EXPECT_NEAR( half.getCullingSemiAngle(), 1.0707963, 1e-6 );
}

TEST( CullingCones, ThereAreNoneBeyondARightAngle )
{
    const float belowRightAngle = 1.57079625F; // twice this is the largest float below pi
    const GeCullingCones widest( { Z, belowRightAngle }, Point(), 0 );
    EXPECT_EQ( widest.getCosBeta(), 1.0F );
    EXPECT_TRUE( widest.isBehind( Point( 0, 0, -2 ) ) );
    EXPECT_FALSE( widest.isBehind( Point( 0.01F, 0, -2 ) ) );

    for ( const GeCullingCones& none :
        { GeCullingCones(), GeCullingCones( { Z, std::nextafter( belowRightAngle, 2.0F ) }, Point(), 0 ),
            GeCullingCones( { Z, ZqTest::nan<float> }, Point(), 0 ),
            GeCullingCones( GeAnchoredCone( { Z, 3 }, Point(), 1, 1 ) ) } )
    {
        EXPECT_EQ( none.getCosBeta(), -1.0F );
        EXPECT_EQ( none.getCullingSemiAngle(), 0.0F );
        for ( const Point& p : { Point(), Point( 0, 0, -100 ), Point( 0, 0, 100 ), Point( ZqTest::nan<float>, 0, 0 ) } )
        {
            EXPECT_FALSE( none.isBehind( p ) );
            EXPECT_TRUE( none.isInFront( p ) );
        }
    }
    const GeCullingCones empty;
    EXPECT_TRUE( empty.getFloatingCone().isSphere() );
    EXPECT_EQ( empty.getFloatingCone().getAxis(), Z );
    EXPECT_EQ( empty.getBackfacingApex(), Point() );
    EXPECT_EQ( empty.getFrontfacingOffset(), 0.0F );
}

TEST( CullingCones, NaNAndOverflow )
{
    const float nan = ZqTest::nan<float>;
    const Point apex( 0, 0, 1 );
    struct Row
    {
        float semiAngle;
        Point p;
        bool isBehind, isInFront;
    };
    const float noCosine = -ZqTest::infinity<float>; // passes the angle test, and its sine is NaN
    for ( const Row& row : {
              Row{ 0.5F, Point( nan, 0, 0 ), false, false },
              Row{ 0.5F, Point( 0, 0, -1e30F ), false, false }, // the direction overflows to zero
              Row{ 0.5F, Point( 0, 0, 1e30F ), false, false },
              Row{ noCosine, Point( 0, 0, -1 ), false, false },
              Row{ noCosine, apex, false, true }, // the tip is asked for first
              Row{ -0.5F, Point( 0, 0, -1 ), false, true },
          } )
    {
        const GeCullingCones cones( { Z, row.semiAngle }, apex, 0 );
        EXPECT_EQ( cones.isBehind( row.p ), row.isBehind ) << cones << row.p;
        EXPECT_EQ( cones.isInFront( row.p ), row.isInFront ) << cones << row.p;
    }
    EXPECT_TRUE( std::isnan( GeCullingCones( { Z, noCosine }, apex, 0 ).getCullingSemiAngle() ) );
    EXPECT_TRUE( std::isnan( GeCullingCones( { Z, noCosine }, apex, 0 ).getCosBeta() ) );
}

TEST( CullingCones, AnAnchoredConeGivesItsApexes )
{
    Random random( 4 );
    for ( int i = 0; i < 500; ++i )
    {
        const GeAnchoredCone anchored( { random.direction<float>(), random.uniform( 0.0F, 1.2F ) },
            random.point<float>( 1 ), random.uniform( 0.0F, 1.0F ), random.uniform( 0.0F, 1.0F ) );
        const GeCullingCones cones( anchored );
        EXPECT_EQ( cones.getFloatingCone(), anchored.getFloatingCone() );
        EXPECT_EQ( cones.getBackfacingApex(), anchored.getBackfacingApex() );
        const Point front =
            cones.getBackfacingApex() + cones.getFloatingCone().getAxis() * cones.getFrontfacingOffset();
        EXPECT_TRUE( front.isEqual( anchored.getFrontfacingApex(), 1e-5F ) );
    }
}

TEST( CullingCones, ComparisonsIgnoreTheAxisAndText )
{
    const GeCullingCones cones( { Z, 0.5F }, Point( 1, 2, 3 ), 4 );
    EXPECT_TRUE( cones == GeCullingCones( { X, 0.5F }, Point( 1, 2, 3 ), 4 ) );
    EXPECT_TRUE( cones.isEqual( GeCullingCones( { X, 0.5F }, Point( 1, 2, 3 ), 4 ), 0.1F, 0.1F ) );
    for ( const GeCullingCones& other : { GeCullingCones( { Z, 0.5F }, Point( 1.25F, 2, 3 ), 4 ),
              GeCullingCones( { Z, 0.5F }, Point( 1, 2.25F, 3 ), 4 ),
              GeCullingCones( { Z, 0.5F }, Point( 1, 2, 3.25F ), 4 ),
              GeCullingCones( { Z, 0.5F }, Point( 1, 2, 3 ), 4.25F ) } )
    {
        EXPECT_TRUE( cones != other );
        EXPECT_FALSE( cones.isEqual( other, 0.25F, 1 ) );
        EXPECT_TRUE( cones.isEqual( other, 0.5F, 0.0001F ) );
    }
    const GeCullingCones wider( { Z, 0.75F }, Point( 1, 2, 3 ), 4 );
    EXPECT_FALSE( cones == wider );
    EXPECT_FALSE( cones.isEqual( wider, 1, 0.1F ) );
    EXPECT_TRUE( cones.isEqual( wider, 0.1F, 1 ) );

    std::ostringstream os;
    os << GeCullingCones( { Z, 3 }, Point( 1, 2.5F, 3 ), 4 );
    EXPECT_EQ( os.str(),
        "cullingCones( backfacingApex=(1, 2.5, 3), frontfacingOffset=4, cosBeta=-1, "
        "floatingCone( axis=(0, 0, 1), alpha=3 ) )" );
}

} // namespace
