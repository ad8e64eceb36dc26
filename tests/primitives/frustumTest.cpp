#include "support/collectingTraceManager.h"
#include "support/random.h"
#include "support/report.h"
#include "support/scalars.h"

#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/geProjectiveMatrix3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>
#include <vector>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( Frustum );

template <class T>
using I = Interval<T>;

template <class T>
GeAlignedBox3<T> boxAbout( const GePoint3<T>& center, T half )
{
    return { center - GeVector3<T>( half, half, half ), center + GeVector3<T>( half, half, half ) };
}

/// The volume from 0 to 2 on every axis: three of its planes go through the origin, where values are exact.
template <class T>
GeProjectiveMatrix3<T> cubeFromZeroToTwo()
{
    const double rows[4][4] = { { 1, 0, 0, -1 }, { 0, 1, 0, -1 }, { 0, 0, 1, -1 }, { 0, 0, 0, 1 } };
    return GeProjectiveMatrix3<T>( rows, false );
}

/// A perspective of a random shape that looks in a random direction from a random place, multiplied in double.
template <class T>
GeProjectiveMatrix3<T> randomCamera( Random& random, double depth )
{
    const GeUnitVector3<double> back = random.direction<double>();
    const GeUnitVector3<double> right( back.cross( random.direction<double>() ) );
    const GeVector3<double> axes[3] = { right, back.cross( right ), back };
    const GeVector3<double> eye = random.vector<double>( 5 );
    const double scaleX = random.uniform<double>( 0.5, 3 ), scaleY = random.uniform<double>( 0.5, 3 );
    const double n = random.uniform<double>( 0.5, 2 ), f = n * depth;
    double view[3][4], rows[4][4];
    for ( int r = 0; r < 3; ++r )
        for ( int c = 0; c < 4; ++c )
            view[r][c] = c < 3 ? axes[r][c] : -axes[r].dot( eye );
    for ( int c = 0; c < 4; ++c )
    {
        rows[0][c] = scaleX * view[0][c];
        rows[1][c] = scaleY * view[1][c];
        rows[2][c] = -( f + n ) / ( f - n ) * view[2][c] - ( c == 3 ? 2 * f * n / ( f - n ) : 0 );
        rows[3][c] = -view[2][c];
    }
    return GeProjectiveMatrix3<T>( rows, false );
}

/// Signed distances of a point to the six planes by the clip inequalities themselves, w +- x and so on, offsets
/// included, in long double: another construction than that of the frustum.
template <class T>
std::array<long double, 6> clipDistances( const GeProjectiveMatrix3<T>& m, const GePoint3<T>& p )
{
    std::array<long double, 6> distances;
    for ( int plane = 0; plane < 6; ++plane )
    {
        const long double sign = plane % 2 ? -1 : 1;
        long double value = 0, squares = 0;
        for ( int c = 0; c < 4; ++c )
        {
            const long double element = static_cast<long double>( m( 3, c ) ) + sign * m( plane / 2, c );
            value += element * ( c < 3 ? static_cast<long double>( p[c] ) : 1 );
            squares += c < 3 ? element * element : 0;
        }
        distances[static_cast<std::size_t>( plane )] = value / std::sqrt( squares );
    }
    return distances;
}

TYPED_TEST( Frustum, PointsAgreeWithClipSpace )
{
    using T = TypeParam;
    Random random( 1 );
    int counts[4] = {};
    for ( int i = 0; i < 100; ++i )
    {
        const GeProjectiveMatrix3<T> camera = randomCamera<T>( random, random.uniform<double>( 4, 20 ) );
        const GeFrustum<T> frustum( camera );
        for ( int k = 0; k < 500; ++k )
        {
            const GePoint3<T> p = random.point<T>( 15 );
            const auto distances = clipDistances( camera, p );
            const long double least = *std::min_element( distances.begin(), distances.end() );
            // the offsets are good to far below this
            if ( std::fabs( least + 0.0001L ) < 2000 * ZqTest::epsilon<T> )
                continue;
            const auto answer = frustum.classify( p );
            ASSERT_EQ( answer, least < -0.0001L ? frustum.FRUSTUM_OUTSIDE : frustum.FRUSTUM_INSIDE )
                << i << ' ' << p << ' ' << double( least );
            ++counts[answer];
        }
    }
    EXPECT_TRUE( counts[1] > 1000 && counts[2] > 1000 && !counts[0] && !counts[3] );
}

TYPED_TEST( Frustum, BoxesAgreeWithTheirEightCornersInClipSpace )
{
    using T = TypeParam;
    Random random( 2 );
    int counts[4] = {};
    for ( int i = 0; i < 100; ++i )
    {
        const GeProjectiveMatrix3<T> camera = randomCamera<T>( random, random.uniform<double>( 4, 20 ) );
        const GeFrustum<T> frustum( camera );
        for ( int k = 0; k < 200; ++k )
        {
            const GePoint3<T> p = random.point<T>( 15 );
            const GeAlignedBox3<T> box( p, p + random.vector<T>( T( k % 8 ) + T( 0.1 ) ) );
            bool isBeyondOne = false, isWithinAll = true, isClose = false;
            long double least[6], most[6];
            std::fill_n( least, 6, 1e30L );
            std::fill_n( most, 6, -1e30L );
            for ( int corner = 0; corner < 8; ++corner )
            {
                const auto distances = clipDistances( camera, box.getCorner( corner ) );
                for ( std::size_t plane = 0; plane < 6; ++plane )
                {
                    least[plane] = std::min( least[plane], distances[plane] );
                    most[plane] = std::max( most[plane], distances[plane] );
                }
            }
            for ( int plane = 0; plane < 6; ++plane )
            {
                isBeyondOne = isBeyondOne || most[plane] < -0.0001L;
                isWithinAll = isWithinAll && least[plane] >= -0.0001L;
                for ( const long double distance : { least[plane], most[plane] } )
                    isClose = isClose || std::fabs( distance + 0.0001L ) < 2000 * ZqTest::epsilon<T>;
            }
            if ( isClose )
                continue;
            const auto answer = frustum.classify( box );
            ASSERT_EQ( answer,
                isBeyondOne       ? frustum.FRUSTUM_OUTSIDE
                    : isWithinAll ? frustum.FRUSTUM_INSIDE
                                  : frustum.FRUSTUM_INTERSECT )
                << i << ' ' << box;
            ++counts[answer];
        }
    }
    EXPECT_TRUE( counts[1] > 1000 && counts[2] > 100 && counts[3] > 1000 && !counts[0] );
}

TYPED_TEST( Frustum, PlanesHaveTheirOrderAndFaceInwards )
{
    using T = TypeParam;
    const GeFrustum<T> frustum{ GeProjectiveMatrix3<T>() };
    std::ostringstream os;
    os << frustum;
    EXPECT_EQ( os.str(),
        "\nplane( 0 ) = [1, 0, 0, 1]\nplane( 1 ) = [-1, 0, 0, 1]\nplane( 2 ) = [0, 1, 0, 1]"
        "\nplane( 3 ) = [0, -1, 0, 1]\nplane( 4 ) = [0, 0, 1, 1]\nplane( 5 ) = [0, 0, -1, 1]" );
    EXPECT_EQ( frustum.getPlane( 3 ), ( GeNormalizedPlane3<T>( 0, -1, 0, 1 ) ) );
    // one past the last passes the check and reads nothing
    EXPECT_EQ( frustum.getPlane( 6 ), GeNormalizedPlane3<T>() );
    const char* text = "plane >= 0 && plane <= NB_PLANES";
    EXPECT_REPORT( frustum.getPlane( -1 ), "src/primitives/geFrustum.inline", text );
    EXPECT_REPORT( frustum.getPlane( 7 ), "src/primitives/geFrustum.inline", text );
}

TYPED_TEST( Frustum, PlanesMeetInTheCornersProjectedBack )
{
    using T = TypeParam;
    // In a deep volume the corner projected back is visibly off the planes of the matrix; the frustum's go through it.
    const double eps = double( ZqTest::epsilon<T> );
    Random random( 3 );
    double farthest = 0;
    for ( int i = 0; i < 50; ++i )
    {
        const GeProjectiveMatrix3<T> camera = randomCamera<T>( random, 0.001 / eps );
        const GeFrustum<T> frustum( camera );
        const GeProjectiveMatrix3<T> inverse = camera.computeInverse();
        for ( int plane = 0; plane < 6; ++plane )
        {
            const T side = plane % 2 ? T( 1 ) : T( -1 );
            const GeHomogeneousCoord3<T> h = inverse * GeHomogeneousCoord3<T>( side, side, side, 1 );
            const GePoint3<T> corner( h.getX() / h.getW(), h.getY() / h.getW(), h.getZ() / h.getW() );
            const double rounding = 4 * eps * double( GeVector3<T>( corner ).computeAbsSum() );
            EXPECT_NEAR( double( frustum.getPlane( plane ).computeValue( corner ) ), 0, rounding ) << plane;
            const auto distances = clipDistances( camera, corner );
            farthest = std::max( farthest, std::fabs( double( distances[std::size_t( plane )] ) ) / rounding );
        }
    }
    EXPECT_GT( farthest, 50 );
}

TYPED_TEST( Frustum, TheThresholdIsTheSameFloatInBothScalars )
{
    using T = TypeParam;
    const GeFrustum<T> frustum( cubeFromZeroToTwo<T>() );
    const T threshold = -0.0001F;
    const T below = std::nextafter( threshold, T( -1 ) );
    for ( int axis = 0; axis < 3; ++axis )
        for ( const T x : { T( 0 ), threshold / 2, threshold, below, 2 * threshold, T( -1 ) } )
        {
            GePoint3<T> p( 1, 1, 1 );
            p[axis] = x;
            const bool isInside = x >= threshold;
            EXPECT_EQ( frustum.classify( p ), isInside ? frustum.FRUSTUM_INSIDE : frustum.FRUSTUM_OUTSIDE ) << p;
            GeAlignedBox3<T> lower( GePoint3<T>( 1, 1, 1 ) ), upper = lower;
            lower.setInterval( axis, I<T>( x, 1 ) );
            upper.setInterval( axis, I<T>( -3, x ) );
            EXPECT_EQ( frustum.classify( lower ), isInside ? frustum.FRUSTUM_INSIDE : frustum.FRUSTUM_INTERSECT ) << x;
            EXPECT_EQ( frustum.classify( upper ), isInside ? frustum.FRUSTUM_INTERSECT : frustum.FRUSTUM_OUTSIDE ) << x;
        }
    // the double nearest -0.0001 lies below the float
    EXPECT_EQ( GeFrustum<double>( cubeFromZeroToTwo<double>() ).classify( GePoint3<double>( -0.0001, 1, 1 ) ),
        GeFrustum<double>::FRUSTUM_OUTSIDE );
}

TYPED_TEST( Frustum, NamedBoxes )
{
    using T = TypeParam;
    const GeFrustum<T> frustum{ GeProjectiveMatrix3<T>() };
    EXPECT_EQ( frustum.classify( GePoint3<T>( T( 1.00005 ), 0, 0 ) ), frustum.FRUSTUM_INSIDE );
    const T nan = ZqTest::nan<T>;
    struct Case
    {
        const char* what;
        I<T> x, y, z;
        typename GeFrustum<T>::Classification expected;
    };
    const I<T> middle( T( -0.5 ), T( 0.5 ) );
    for ( const Case& c : std::vector<Case>{
              { "in the middle", middle, middle, middle, frustum.FRUSTUM_INSIDE },
              { "exactly the volume", { -1, 1 }, { -1, 1 }, { -1, 1 }, frustum.FRUSTUM_INSIDE },
              { "crosses one plane", { T( 0.5 ), T( 1.5 ) }, middle, middle, frustum.FRUSTUM_INTERSECT },
              { "touches from outside", middle, { 1, 2 }, middle, frustum.FRUSTUM_INTERSECT },
              { "beyond one plane", { 2, 3 }, middle, middle, frustum.FRUSTUM_OUTSIDE },
              { "crosses an early plane, beyond a late one", { 0, 2 }, middle, { 2, 3 }, frustum.FRUSTUM_OUTSIDE },
              { "around everything", { -9, 9 }, { -9, 9 }, { -9, 9 }, frustum.FRUSTUM_INTERSECT },
              { "the canonical empty box", I<T>::makeEmpty(), I<T>::makeEmpty(), I<T>::makeEmpty(),
                  frustum.FRUSTUM_INSIDE },
              { "NaN", { nan, nan }, middle, middle, frustum.FRUSTUM_INTERSECT },
              { "NaN, beyond one plane", { nan, nan }, { 2, 3 }, middle, frustum.FRUSTUM_INTERSECT },
          } )
        EXPECT_EQ( frustum.classify( GeAlignedBox3<T>( c.x, c.y, c.z ) ), c.expected ) << c.what;
    // A zero component of a normal takes the upper bound at the near corner and the lower one at the far corner. It
    // shows where a bound is infinite, because 0 * infinity is NaN.
    const T infinity = ZqTest::infinity<T>;
    for ( int axis = 0; axis < 3; ++axis )
    {
        GeAlignedBox3<T> upwards( middle, middle, middle );
        upwards.setInterval( ( axis + 1 ) % 3, I<T>( 2, 3 ) );
        GeAlignedBox3<T> downwards = upwards;
        upwards.setInterval( axis, I<T>( 0, infinity ) );
        downwards.setInterval( axis, I<T>( -infinity, 0 ) );
        EXPECT_EQ( frustum.classify( upwards ), frustum.FRUSTUM_OUTSIDE ) << axis;
        EXPECT_EQ( frustum.classify( downwards ), frustum.FRUSTUM_INTERSECT ) << axis;
    }
    EXPECT_EQ( frustum.classify( GePoint3<T>( nan, 0, 0 ) ), frustum.FRUSTUM_INSIDE );

    // Cautious at an edge: with the planes x + y <= 1 and x - y <= 1 this box misses the volume near (1, 0), though no
    // single plane says so.
    const double rows[4][4] = { { 1, 1, 0, 0 }, { 1, -1, 0, 0 }, { 0, 0, 1, 0 }, { 0, 0, 0, 1 } };
    const GeFrustum<T> diamond( GeProjectiveMatrix3<T>( rows, false ) );
    const GeAlignedBox3<T> beyond( I<T>( T( 1.1 ), 2 ), I<T>( -1, 1 ), I<T>( 0, 0 ) );
    EXPECT_EQ( diamond.classify( beyond ), diamond.FRUSTUM_INTERSECT );
    EXPECT_EQ( diamond.classify( boxAbout( GePoint3<T>( T( 1.6 ), 0, 0 ), T( 0.2 ) ) ), diamond.FRUSTUM_OUTSIDE );
}

TEST( FrustumRounding, SumsFollowTheirStatedOrder )
{
    // Plane 0 is x + y + z >= 0, and the volume reaches to 2^19 in y and z. Two large coordinates cancel; the small
    // third survives when it is added after them and is swallowed when added before.
    const float s = 1.0F / 524288;
    const float rows[4][4] = { { 1, 1, 1, -1 }, { 0, s, 0, 0 }, { 0, 0, s, 0 }, { 0, 0, 0, 1 } };
    const GeFrustum<float> frustum( GeProjectiveMatrix3<float>( rows, false ) );
    ASSERT_EQ( frustum.getPlane( 0 ).getOffset(), 0.0F );
    const float big = 500000, small = -0.001F;
    using Point = GePoint3<float>;
    using Box = GeAlignedBox3<float>;
    // a point: x and z first, then y
    EXPECT_EQ( frustum.classify( Point( big, small, -big ) ), frustum.FRUSTUM_OUTSIDE );
    EXPECT_EQ( frustum.classify( Point( big, -big, small ) ), frustum.FRUSTUM_INSIDE );
    EXPECT_EQ( frustum.classify( Point( small, big, -big ) ), frustum.FRUSTUM_INSIDE );
    // the near corner: y and x first, then z
    EXPECT_EQ( frustum.classify( Box( Point( big, -big, small ) ) ), frustum.FRUSTUM_INTERSECT );
    EXPECT_EQ( frustum.classify( Box( Point( big, small, -big ) ) ), frustum.FRUSTUM_INSIDE );
    EXPECT_EQ( frustum.classify( Box( Point( small, big, -big ) ) ), frustum.FRUSTUM_INSIDE );
    // the far corner, where the near one is outside: y and z first, then x
    EXPECT_EQ( frustum.classify( Box( Point( -9, big, -big ), Point( small, big, -big ) ) ), frustum.FRUSTUM_OUTSIDE );
    EXPECT_EQ(
        frustum.classify( Box( Point( big, -9, -big ), Point( big, small, -big ) ) ), frustum.FRUSTUM_INTERSECT );
    EXPECT_EQ(
        frustum.classify( Box( Point( big, -big, -9 ), Point( big, -big, small ) ) ), frustum.FRUSTUM_INTERSECT );
}

TYPED_TEST( Frustum, DegenerateProjections )
{
    using T = TypeParam;
    const double flat[4][4] = { { 1, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, 0, 0 }, { 0, 0, 0, 1 } };
    EXPECT_REPORT( GeFrustum<T>( GeProjectiveMatrix3<T>( flat, false ) ), "src/base/matrix4x4Imp", "nonSingular" );
    // invertible, and yet row 3 + row 2 has no direction
    const double noNear[4][4] = { { 1, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, 1, 0 }, { 0, 0, -1, 1 } };
    EXPECT_REPORT(
        GeFrustum<T>( GeProjectiveMatrix3<T>( noNear, false ) ), "src/primitives/geVector3.inline", "len > 0" );

    // an infinitely far plane has no direction either
    const double infinite[4][4] = { { 1, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, -1, -2 }, { 0, 0, -1, 0 } };
    EXPECT_REPORT(
        GeFrustum<T>( GeProjectiveMatrix3<T>( infinite, false ) ), "src/primitives/geVector3.inline", "len > 0" );

    // (1, 1, 1) is the image of a direction: the corner lies at infinity and three offsets are NaN, which rejects
    // nothing, while the other three planes still work
    const double bent[4][4] = { { 1, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, 1, 0 }, { 0.25, 0.25, 0.5, 1 } };
    const GeFrustum<T> frustum( GeProjectiveMatrix3<T>( bent, false ) );
    for ( int plane = 0; plane < 6; ++plane )
        EXPECT_EQ( std::isnan( frustum.getPlane( plane ).getOffset() ), plane % 2 == 1 );
    for ( const T x : { T( 0 ), T( 100 ), T( -100 ) } )
    {
        const GePoint3<T> p( x, x, x );
        EXPECT_EQ( frustum.classify( p ), x < 0 ? frustum.FRUSTUM_OUTSIDE : frustum.FRUSTUM_INSIDE );
        EXPECT_EQ(
            frustum.classify( boxAbout( p, T( 0.1 ) ) ), x < 0 ? frustum.FRUSTUM_OUTSIDE : frustum.FRUSTUM_INTERSECT );
    }
}

TYPED_TEST( Frustum, ComparisonLooksAtEveryPlane )
{
    using T = TypeParam;
    const GeFrustum<T> frustum{ GeProjectiveMatrix3<T>() };
    EXPECT_TRUE( frustum == frustum && frustum.isEqualExact( frustum ) && !frustum.isEqual( frustum, 0 ) );
    for ( int axis = 0; axis < 3; ++axis )
    {
        // one pair of planes closer together by a little
        GeProjectiveMatrix3<T> narrower;
        narrower( axis, axis ) = T( 1.25 );
        const GeFrustum<T> other( narrower );
        EXPECT_TRUE( frustum != other && !( frustum == other ) );
        EXPECT_TRUE( isEqual( frustum, other, T( 0.25 ) ) && !isEqual( frustum, other, T( 0.125 ) ) );
    }
}

TYPED_TEST( Frustum, TracesItsConstructionWhenAsked )
{
    using T = TypeParam;
    const GeProjectiveMatrix3<T> m = cubeFromZeroToTwo<T>();
    ZqTest::CollectingTraceManager traces;
    TraceLevel* level = Trace::findLevel( "GeFrustum" );
    ASSERT_NE( level, nullptr );
    const GeFrustum<T> silent( m );
    EXPECT_TRUE( traces.messages.empty() );
    level->setEnabled( true );
    const GeFrustum<T> frustum( m );
    level->setEnabled( false );

    std::ostringstream inverse, transpose;
    inverse << m.computeInverse();
    transpose << m.computeTranspose();
    const std::string expected[] = { " imapping: \n" + inverse.str(), " tmapping: \n" + transpose.str(),
        "himinp = (0, 0, 0, 1)", "himaxp = (2, 2, 2, 1)", "iminp = (0, 0, 0)", "imaxp = (2, 2, 2)",
        "htleftp  = (1, 0, 0, 0)", "htrightp = (-1, 0, 0, 2)" };
    ASSERT_EQ( traces.messages.size(), std::size( expected ) );
    for ( std::size_t i = 0; i < std::size( expected ); ++i )
    {
        const std::string& message = traces.messages[i];
        EXPECT_EQ( message.rfind( "src/primitives/geFrustum.imp:", 0 ), 0U ) << message;
        EXPECT_EQ( message.substr( message.find( ": " ) + 2 ), expected[i] + '\n' );
    }
}

} // namespace
