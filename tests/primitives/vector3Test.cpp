#include "support/random.h"
#include "support/scalars.h"

#include <zq/primitives/geVector3.h>

#include <algorithm>
#include <cmath>
#include <sstream>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( Vector3 );

TYPED_TEST( Vector3, OperationsTakeEachComponentInTheirStatedOrder )
{
    using T = TypeParam;
    using Vector = GeVector3<T>;
    using Point = GePoint3<T>;
    Random random( 1 );
    for ( int i = 0; i < 1000; ++i )
    {
        const Vector a = random.vector<T>( 10 ), b = random.vector<T>( 10 );
        const Point p( a ), q( b );
        const T factor = random.uniform<T>( 1, 50 ), reciprocal = 1 / factor;
        for ( int axis = 0; axis < 3; ++axis )
        {
            const int next = ( axis + 1 ) % 3, last = ( axis + 2 ) % 3;
            const T x = a[axis], y = b[axis];
            EXPECT_TRUE( ( a + b )[axis] == x + y && ( a - b )[axis] == x - y );
            EXPECT_TRUE( ( a * factor )[axis] == x * factor && ( a / factor )[axis] == x * reciprocal );
            EXPECT_EQ( a.cross( b )[axis], a[next] * b[last] - a[last] * b[next] );
            EXPECT_EQ( Vector::computeMin( a, b )[axis], std::min( x, y ) );
            EXPECT_EQ( Vector::computeMax( a, b )[axis], std::max( x, y ) );
        }
        const T sizes[] = { std::fabs( a[0] ), std::fabs( a[1] ), std::fabs( a[2] ) };
        EXPECT_EQ( a.dot( b ), a[0] * b[0] + a[1] * b[1] + a[2] * b[2] );
        EXPECT_EQ( a.length(), std::sqrt( a.dot( a ) ) );
        EXPECT_EQ( a.computeAbsSum(), sizes[0] + sizes[1] + sizes[2] );
        EXPECT_EQ( a.computeMaxAbs(), *std::max_element( sizes, sizes + 3 ) );
        EXPECT_TRUE( -a == a * T( -1 ) && factor * a == a * factor );
        EXPECT_TRUE( ( Vector( a ) += b ) == a + b && ( Vector( a ) -= b ) == a - b );
        EXPECT_TRUE( ( Vector( a ) *= factor ) == a * factor && ( Vector( a ) /= factor ) == a / factor );
        // points follow their vectors
        EXPECT_TRUE( p + b == Point( a + b ) && p - b == Point( a - b ) && p - q == a - b );
        EXPECT_TRUE( ( Point( p ) += b ) == p + b && ( Point( p ) -= b ) == p - b );
        EXPECT_EQ( Point::computeMin( p, q ), Point( Vector::computeMin( a, b ) ) );
        EXPECT_EQ( Point::computeMax( p, q ), Point( Vector::computeMax( a, b ) ) );
    }
    const GeVector3<double> d( 0.1, 0.2, -0.3 );
    EXPECT_EQ( Vector( d ), Vector( T( 0.1 ), T( 0.2 ), T( -0.3 ) ) );
    EXPECT_EQ( Point( GePoint3<double>( d ) ), Point( Vector( d ) ) );
    static_assert( !std::is_convertible_v<Point, Vector> && !std::is_convertible_v<Vector, Point> );
    static_assert(
        !std::is_convertible_v<Vector, GeUnitVector3<T>> && std::is_convertible_v<GeUnitVector3<T>, Vector> );
}

TYPED_TEST( Vector3, NormalizationHoldsUnitLengthOverTheWorkingRange )
{
    using T = TypeParam;
    Random random( 3 );
    for ( int i = 0; i < 20000; ++i )
    {
        const T scale = static_cast<T>( std::pow( 10.0, random.uniform( -18.0, 18.0 ) ) );
        GeVector3<T> v = random.vector<T>( 1 ) * scale;
        const T before = v.length();
        EXPECT_EQ( v.normalize(), before );
        // what normalisation makes passes the unit-length check
        EXPECT_NO_THROW( GeUnitVector3<T>( v.getX(), v.getY(), v.getZ(), GE_TRUSTED ) );
    }
    GeVector3<T> zero;
    EXPECT_EQ( zero.normalize(), T( 0 ) );
    EXPECT_EQ( zero, GeVector3<T>() );
    // the squared length overflows: stored as zero, and no report
    const T huge = std::numeric_limits<T>::max() / 2;
    EXPECT_EQ( ( GeUnitVector3<T>( huge, huge, 0 ).length() ), T( 0 ) );
    EXPECT_EQ( GeUnitVector3<T>().length(), T( 0 ) );
}

TYPED_TEST( Vector3, AnglesAndReflections )
{
    using T = TypeParam;
    Random random( 4 );
    for ( int i = 0; i < 2000; ++i )
    {
        const GeVector3<T> a = random.vector<T>( 5 ), b = random.vector<T>( 5 );
        const GeUnitVector3<T> u( a ), v( b );
        // through the half-angle tangent: another route than the arc cosine
        const double expected = 2 * std::atan2( double( ( u - v ).length() ), double( ( u + v ).length() ) );
        const double bound = 40 * double( ZqTest::epsilon<T> ) / std::max( 1e-2, std::sin( expected ) );
        EXPECT_NEAR( double( a.computeAngle( b ) ), expected, bound );
        EXPECT_NEAR( double( u.computeAngle( v ) ), expected, bound );
        // a dot product of rounded unit vectors beyond 1 must not make a NaN
        EXPECT_GE( u.computeAngle( u ), T( 0 ) );
        EXPECT_LE( u.computeAngle( -u ), T( 3.1415927410125732 ) );
        T cosine = 0;
        const GeVector3<T> mirrored = u.computeReflection( v, cosine );
        EXPECT_EQ( cosine, a.computeUnit().dot( v ) );
        EXPECT_TRUE( ( mirrored + u ).isEqual( v * ( 2 * cosine ), 8 * ZqTest::epsilon<T> ) );
    }
    const GeVector3<T> x( 3, 0, 0 );
    EXPECT_EQ( x.computeAngle( GeVector3<T>() ), T( 0 ) );
    EXPECT_EQ( GeVector3<T>().computeAngle( x ), T( 0 ) );
}

template <class V>
V parse( const std::string& text, bool& failed, V start )
{
    std::istringstream is( text );
    is >> start;
    failed = is.fail();
    return start;
}

TYPED_TEST( Vector3, TextReadsBack )
{
    using T = TypeParam;
    bool failed = true;
    EXPECT_EQ( parse( " ( 1 ,2,\n  3\t)", failed, GePoint3<T>() ), ( GePoint3<T>( 1, 2, 3 ) ) );
    EXPECT_FALSE( failed );
    const GeUnitVector3<T> read = parse( "(3, 0, 4)", failed, GeUnitVector3<T>( 0, 1, 0 ) );
    EXPECT_TRUE( read.isEqual( GeUnitVector3<T>( T( 0.6 ), 0, T( 0.8 ) ), 2 * ZqTest::epsilon<T> ) );
    // a zero vector is read without complaint and keeps the direction
    EXPECT_EQ( parse( "(0, 0, 0)", failed, read ), read );
    EXPECT_FALSE( failed );
}

TYPED_TEST( Vector3, MalformedTextChangesNothing )
{
    using T = TypeParam;
    const GeVector3<T> before( 7, 8, 9 );
    for ( const char* text : { "", "(1, 2)", "1 2 3", "(1 2 3)", "[1, 2, 3]", "(1; 2, 3)", "(1, 2; 3)", "(1, 2, 3",
              "(1, 2, 3]", "(a, 2, 3)", "(1, 2, b)" } )
    {
        bool vectorFailed = false, pointFailed = false, unitFailed = false;
        EXPECT_EQ( parse( text, vectorFailed, before ), before ) << text;
        EXPECT_EQ( parse( text, pointFailed, GePoint3<T>( before ) ), GePoint3<T>( before ) ) << text;
        EXPECT_EQ( parse( text, unitFailed, GeUnitVector3<T>( 0, 1, 0 ) ), ( GeUnitVector3<T>( 0, 1, 0 ) ) ) << text;
        EXPECT_TRUE( vectorFailed && pointFailed && unitFailed ) << text;
    }
    // characters that were consumed are gone, and a wrong mark does not stop the reading of the rest
    std::istringstream is( "[1, 2, 3] x" );
    GeVector3<T> v = before;
    v.read( is );
    is.clear();
    EXPECT_EQ( ( is >> std::ws ).peek(), 'x' );

    std::istringstream spoilt( "(1, 2, 3)" );
    spoilt.setstate( std::ios_base::failbit );
    std::istream noBuffer( nullptr );
    v.read( spoilt );
    v.read( noBuffer );
    EXPECT_EQ( v, before );
    EXPECT_TRUE( noBuffer.bad() && noBuffer.fail() );
}

} // namespace
