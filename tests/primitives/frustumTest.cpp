#include "support/collectingTraceManager.h"
#include "support/prelude.h"

#include <zq/primitives/geCameraBuilder.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geRotation3.h>

namespace
{

ZQ_TWIN_SUITE( Frustum );

template <class T>
using I = Interval<T>;

/// The volume from 0 to 2 on every axis: three of its planes go through the origin, where values are exact.
const double CUBE_FROM_ZERO_TO_TWO[4][4] = { { 1, 0, 0, -1 }, { 0, 1, 0, -1 }, { 0, 0, 1, -1 }, { 0, 0, 0, 1 } };

/// A perspective of a random shape that looks in a random direction from a random place, multiplied in double.
template <class T>
GeProjectiveMatrix3<T> randomCamera( Random& random )
{
    const GeUnitVector3<double> back = random.direction<double>();
    const GeLinearMatrix3<double> turn = GeRotation3<double>::aim( back, random.vector<double>( 1 ), 2, 1, true );
    const double nearDistance = random.uniform<double>( 0.5, 2 ),
                 farDistance = nearDistance * random.uniform( 4.0, 20.0 );
    const auto camera = GeCameraBuilder<double>::makePerspective(
                            random.uniform( 0.6, 2.2 ), nearDistance, farDistance, random.uniform( 0.5, 2.0 ) ) *
        GeAffineMatrix3<double>( turn, random.vector<double>( 5 ) );
    GeProjectiveMatrix3<T> rounded;
    for ( int i = 0; i < 16; ++i )
        rounded( i / 4, i % 4 ) = static_cast<T>( camera( i / 4, i % 4 ) );
    return rounded;
}

/// Signed distance of a point to one of the planes by its clip inequality, w +- x >= 0 and so on, offset included:
/// another construction than that of the frustum.
template <class T>
double clipDistance( const GeProjectiveMatrix3<T>& m, int plane, const GePoint3<T>& p )
{
    long double value = 0, squares = 0;
    for ( int c = 0; c < 4; ++c )
    {
        const long double element = static_cast<long double>( m( 3, c ) ) + ( plane % 2 ? -1 : 1 ) * m( plane / 2, c );
        value += element * ( c < 3 ? p[c] : T( 1 ) );
        squares += c < 3 ? element * element : 0;
    }
    return static_cast<double>( value / std::sqrt( squares ) );
}

ZQ_TWIN_TEST( Frustum, BoxesAndPointsAgreeWithTheirCornersInClipSpace )
{
    Random random( 2 );
    int counts[4] = {};
    for ( int i = 0; i < 20000; ++i )
    {
        const GeProjectiveMatrix3<T> camera = randomCamera<T>( random );
        const GeFrustum<T> frustum( camera );
        const GePoint3<T> p = random.point<T>( 10 );
        const GeAlignedBox3<T> box( p, p + random.vector<T>( T( i % 4 * 2 ) ) );
        bool isBeyondOne = false, isWithinAll = true, isClose = false;
        for ( int plane = 0; plane < 6; ++plane )
        {
            int beyond = 0;
            for ( int corner = 0; corner < 8; ++corner )
            {
                const double distance = clipDistance( camera, plane, box.getCorner( corner ) );
                beyond += distance < -0.0001;
                // the offsets are good to far below this
                isClose = isClose || std::fabs( distance + 0.0001 ) < 2000 * epsilon<T>;
            }
            isBeyondOne = isBeyondOne || beyond == 8;
            isWithinAll = isWithinAll && beyond == 0;
        }
        if ( isClose )
            continue;
        const auto answer = frustum.classify( box );
        const auto expected = isWithinAll ? frustum.FRUSTUM_INSIDE : frustum.FRUSTUM_INTERSECT;
        ASSERT_EQ( answer, isBeyondOne ? frustum.FRUSTUM_OUTSIDE : expected ) << i << ' ' << box;
        ASSERT_TRUE( frustum.classify( p ) == answer || i % 4 != 0 ) << i << ' ' << p; // every fourth box is a point
        ++counts[answer];
    }
    EXPECT_TRUE( counts[1] > 1000 && counts[2] > 500 && counts[3] > 1000 );
}

ZQ_TWIN_TEST( Frustum, TheThresholdIsTheSameFloatInBothScalars )
{
    const GeFrustum<T> frustum( GeProjectiveMatrix3<T>( CUBE_FROM_ZERO_TO_TWO, false ) );
    const T threshold = -0.0001F; // the double nearest -0.0001 lies below the float
    for ( int axis = 0; axis < 3; ++axis )
        for ( const T x : { T( 0 ), threshold, std::nextafter( threshold, T( -1 ) ), T( -1 ) } )
        {
            const bool isInside = x >= threshold;
            GePoint3<T> p( 1, 1, 1 );
            GeAlignedBox3<T> lower( p ), upper( p );
            p[axis] = x;
            lower.setInterval( axis, I<T>( x, 1 ) );
            upper.setInterval( axis, I<T>( -3, x ) );
            EXPECT_EQ( frustum.classify( p ), isInside ? frustum.FRUSTUM_INSIDE : frustum.FRUSTUM_OUTSIDE ) << p;
            EXPECT_EQ( frustum.classify( lower ), isInside ? frustum.FRUSTUM_INSIDE : frustum.FRUSTUM_INTERSECT ) << x;
            EXPECT_EQ( frustum.classify( upper ), isInside ? frustum.FRUSTUM_INTERSECT : frustum.FRUSTUM_OUTSIDE ) << x;
        }
}

ZQ_TWIN_TEST( Frustum, EmptyInfiniteAndNaNArguments )
{
    const GeFrustum<T> frustum{ GeProjectiveMatrix3<T>() };
    const T nan = ZqTest::nan<T>, infinity = ZqTest::infinity<T>;
    EXPECT_EQ( frustum.classify( GePoint3<T>( nan, 0, 0 ) ), frustum.FRUSTUM_INSIDE );
    EXPECT_EQ( frustum.classify( GeAlignedBox3<T>() ), frustum.FRUSTUM_INSIDE );
    // one past the last passes the check and reads nothing
    EXPECT_EQ( frustum.getPlane( 3 ), ( GeNormalizedPlane3<T>( 0, -1, 0, 1 ) ) );
    EXPECT_EQ( frustum.getPlane( 6 ), GeNormalizedPlane3<T>() );
    for ( int axis = 0; axis < 3; ++axis )
    {
        const auto classify = [&]( const I<T>& one, const I<T>& next )
        {
            GeAlignedBox3<T> box( GePoint3<T>( 0, 0, 0 ) );
            box.setInterval( axis, one );
            box.setInterval( ( axis + 1 ) % 3, next );
            return frustum.classify( box );
        };
        EXPECT_EQ( classify( { nan, nan }, { 0, 0 } ), frustum.FRUSTUM_INTERSECT );
        EXPECT_EQ( classify( { nan, nan }, { 2, 3 } ), frustum.FRUSTUM_INTERSECT );
        // A zero component of a normal takes the upper bound at the near corner and the lower one at the far corner.
        // It shows where a bound is infinite, because 0 * infinity is NaN.
        EXPECT_EQ( classify( { 0, infinity }, { 2, 3 } ), frustum.FRUSTUM_OUTSIDE );
        EXPECT_EQ( classify( { -infinity, 0 }, { 2, 3 } ), frustum.FRUSTUM_INTERSECT );
    }
}

TEST( FrustumRounding, SumsFollowTheirStatedOrder )
{
    // Plane 0 is x + y + z >= 0, and the volume reaches to 2^19 in y and z. Two large coordinates cancel; the small
    // third survives when it is added after them and is swallowed when added before.
    const float s = 1.0F / 524288;
    const float rows[4][4] = { { 1, 1, 1, -1 }, { 0, s, 0, 0 }, { 0, 0, s, 0 }, { 0, 0, 0, 1 } };
    const GeFrustum<float> frustum( GeProjectiveMatrix3<float>( rows, false ) );
    ASSERT_EQ( frustum.getPlane( 0 ).getOffset(), 0.0F );
    const auto outside = frustum.FRUSTUM_OUTSIDE, inside = frustum.FRUSTUM_INSIDE, both = frustum.FRUSTUM_INTERSECT;
    // For each place of the small coordinate a point, which adds x and z first; a box of no size, whose near corner
    // adds y and x first; and one that reaches far out, whose far corner adds y and z first.
    const decltype( outside ) expected[3][3] = {
        { inside, inside, outside }, { outside, inside, both }, { inside, both, both } };
    for ( int axis = 0; axis < 3; ++axis )
    {
        GePoint3<float> p( 500000, axis == 0 ? 500000.0F : -500000.0F, -500000 ), out = p;
        p[axis] = -0.001F;
        out[axis] = -9;
        EXPECT_EQ( frustum.classify( p ), expected[axis][0] ) << axis;
        EXPECT_EQ( frustum.classify( GeAlignedBox3<float>( p ) ), expected[axis][1] ) << axis;
        EXPECT_EQ( frustum.classify( GeAlignedBox3<float>( p, out ) ), expected[axis][2] ) << axis;
    }
}

// Three planes go through one corner each side. Where it is the image of a direction it lies at infinity, and their
// offsets are NaN, which rejects nothing, while the other three planes still work.
ZQ_TWIN_TEST( Frustum, ACornerAtInfinityLeavesThreePlanes )
{
    for ( const T side : { T( -1 ), T( 1 ) } )
    {
        GeProjectiveMatrix3<T> bent;
        bent( 3, 0 ) = bent( 3, 1 ) = side / 4;
        bent( 3, 2 ) = side / 2;
        const GeFrustum<T> frustum( bent );
        for ( int plane = 0; plane < 6; ++plane )
            EXPECT_EQ( std::isnan( frustum.getPlane( plane ).getOffset() ), ( plane % 2 == 1 ) == ( side > 0 ) );
        const GePoint3<T> there( side * 100, side * 100, side * 100 ), back( side * -100, 0, 0 );
        EXPECT_EQ( frustum.classify( there ), frustum.FRUSTUM_INSIDE );
        EXPECT_EQ( frustum.classify( GeAlignedBox3<T>( there ) ), frustum.FRUSTUM_INTERSECT );
        EXPECT_EQ( frustum.classify( GeAlignedBox3<T>( back ) ), frustum.FRUSTUM_OUTSIDE );
    }
}

ZQ_TWIN_TEST( Frustum, TracesItsConstructionWhenAsked )
{
    const GeProjectiveMatrix3<T> m( CUBE_FROM_ZERO_TO_TWO, false );
    ZqTest::CollectingTraceManager traces( "GeFrustum" );
    const GeFrustum<T> silent( m );
    traces.level->setEnabled( true );
    const GeFrustum<T> frustum( m );

    std::ostringstream expected;
    expected << " imapping: \n"
             << m.computeInverse() << "\n tmapping: \n"
             << m.computeTranspose()
             << "\nhiminp = (0, 0, 0, 1)\nhimaxp = (2, 2, 2, 1)\niminp = (0, 0, 0)\nimaxp = (2, 2, 2)\n"
             << "htleftp  = (1, 0, 0, 0)\nhtrightp = (-1, 0, 0, 2)\n";
    EXPECT_EQ( traces.takeText( "src/primitives/geFrustum.imp" ), expected.str() );
}

} // namespace
