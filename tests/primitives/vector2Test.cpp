#include "support/random.h"
#include "support/report.h"
#include "support/scalars.h"

#include <zq/primitives/geVector2.h>
#include <zq/primitives/geVector2Utils.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>

using namespace Zq;
using ZqTest::Random;

namespace
{

template <class T>
GePoint2<T> makePoint( Random& random, T size )
{
    const T x = random.uniform<T>( -size, size );
    return { x, random.uniform<T>( -size, size ) };
}

template <class V, class = void>
struct HasLength : std::false_type
{
};
template <class V>
struct HasLength<V, std::void_t<decltype( std::declval<V>().length() )>> : std::true_type
{
};

TEST( Vector2OfInt, ArithmeticIsExactAndNothingTakesARoot )
{
    static_assert( HasLength<GeVector2<float>>::value && !HasLength<GeVector2<int>>::value );
    Random random( 20 );
    for ( int i = 0; i < 200; ++i )
    {
        const GeVector2<int> v( random.index( 201 ) - 100, random.index( 201 ) - 100 );
        const GeVector2<int> w( random.index( 201 ) - 100, random.index( 201 ) - 100 );
        const GeVector2<int> turned = v.computePerpendicular();
        EXPECT_EQ( v.dot( turned ), 0 );
        EXPECT_EQ( v.cross( turned ), v.lengthSquared() ); // counter-clockwise
        EXPECT_EQ( turned.computePerpendicular(), -v );
        EXPECT_EQ( turned.dot( w ), v.cross( w ) );
        EXPECT_EQ( v.dot( w ) * v.dot( w ) + v.cross( w ) * v.cross( w ), v.lengthSquared() * w.lengthSquared() );
        EXPECT_EQ( ( v + w ).lengthSquared() - ( v - w ).lengthSquared(), 4 * v.dot( w ) );
        EXPECT_EQ( GeVector2<int>::computeMin( v, w ) + GeVector2<int>::computeMax( v, w ), v + w );
        EXPECT_EQ( ( v * 3 - 2 * v ), v );
        EXPECT_EQ( v.computeAbsSum() - v.computeMaxAbs(), std::min( std::abs( v[0] ), std::abs( v[1] ) ) );
    }
    EXPECT_EQ( ( GeVector2<int>( GeVector2<double>( 2.9, -2.9 ) ) ), ( GeVector2<int>( 2, -2 ) ) );
}

ZQ_TWIN_SUITE( Vector2 );

TYPED_TEST( Vector2, TypesStayApartAndArithmeticKeepsThem )
{
    using T = TypeParam;
    static_assert(
        !std::is_convertible_v<GePoint2<T>, GeVector2<T>> && !std::is_convertible_v<GeVector2<T>, GePoint2<T>> );
    static_assert( std::is_convertible_v<GeUnitVector2<T>, GeVector2<T>> );
    static_assert( !std::is_convertible_v<GeVector2<T>, GeUnitVector2<T>> );
    const GePoint2<T> p( 1, 2 );
    const GeVector2<T> v( 10, -20 );
    GePoint2<T> moved = p;
    moved += v;
    EXPECT_EQ( moved, ( GePoint2<T>( 11, -18 ) ) );
    EXPECT_EQ( moved - p, v );
    moved -= v;
    EXPECT_EQ( moved, p );
    EXPECT_EQ( ( v / T( 4 ) ), ( GeVector2<T>( T( 2.5 ), -5 ) ) );
    EXPECT_EQ( v.computeMaxAbs(), T( 20 ) );
    EXPECT_EQ( v.computeAbsSum(), T( 30 ) );
    EXPECT_EQ( ( GePoint2<T>::computeMin( p, GePoint2<T>( v ) ) ), ( GePoint2<T>( 1, -20 ) ) );
    EXPECT_EQ( ( GePoint2<T>::computeMax( p, GePoint2<T>( v ) ) ), ( GePoint2<T>( 10, 2 ) ) );
}

TYPED_TEST( Vector2, ToleranceIsStrictAndNaNEqualsNothing )
{
    using T = TypeParam;
    const GeVector2<T> a( 1, 2 );
    EXPECT_TRUE( a.isEqual( GeVector2<T>( T( 1.25 ), T( 1.75 ) ), T( 0.5 ) ) );
    EXPECT_FALSE( a.isEqual( GeVector2<T>( T( 1.5 ), 2 ), T( 0.5 ) ) );
    EXPECT_FALSE( GePoint2<T>( a ).isEqual( GePoint2<T>( 1, T( 1.5 ) ), T( 0.5 ) ) );
    const GePoint2<T> bad( ZqTest::nan<T>, 2 );
    EXPECT_TRUE( bad != bad );
    EXPECT_FALSE( bad == bad );
    EXPECT_FALSE( bad.isEqual( bad, 1 ) );
}

TYPED_TEST( Vector2, DirectionsHaveUnitLengthOverTheWorkingRange )
{
    using T = TypeParam;
    Random random( 21 );
    for ( int i = 0; i < 5000; ++i )
    {
        const T scale = static_cast<T>( std::pow( 10.0, random.uniform( -18.0, 18.0 ) ) );
        const GeVector2<T> v = GeVector2<T>( makePoint<T>( random, 1 ) ) * scale;
        const GeUnitVector2<T> u( v );
        EXPECT_TRUE( FloatUtil::isEqual( u.length(), T( 1 ) ) );
        EXPECT_NO_THROW( GeUnitVector2<T>( u, GE_TRUSTED ) );
        const double lost = double( v.cross( u ) ) / double( v.length() );
        EXPECT_NEAR( lost, 0, 4 * double( ZqTest::epsilon<T> ) );
        EXPECT_GT( u.dot( v ), T( 0 ) );
        // a turned direction is another one
        EXPECT_EQ( u.cross( u.computePerpendicular() ), u.dot( u ) );
    }
    GeVector2<T> zero;
    EXPECT_EQ( zero.normalize(), T( 0 ) );
    EXPECT_EQ( zero, GeVector2<T>() );
    EXPECT_REPORT( GeUnitVector2<T>( ZqTest::nan<T>, 1 ), "src/primitives/geVector2.inline", "len > 0" );
    const T huge = std::numeric_limits<T>::max() / 2;
    EXPECT_EQ( ( GeUnitVector2<T>( huge, huge ).length() ), T( 0 ) );
}

TYPED_TEST( Vector2, AnglesAndReflections )
{
    using T = TypeParam;
    const double pi = 3.14159265358979323846;
    for ( int degrees = 0; degrees <= 360; degrees += 5 )
    {
        const double angle = degrees * pi / 180;
        const GeVector2<T> v( static_cast<T>( 3 * std::cos( angle ) ), static_cast<T>( 3 * std::sin( angle ) ) );
        const double expected = degrees <= 180 ? angle : 2 * pi - angle;
        // near 0 and pi the arc cosine takes the root of the rounding
        const double bound = 2 * std::sqrt( double( ZqTest::epsilon<T> ) );
        EXPECT_NEAR( double( v.computeAngle( GeVector2<T>( 5, 0 ) ) ), expected, bound );
        EXPECT_NEAR( double( v.computeUnit().computeAngle( GeUnitVector2<T>( 1, 0 ) ) ), expected, bound );

        T cosine = 0;
        const GeVector2<T> mirrored = v.computeUnit().computeReflection( GeUnitVector2<T>( 1, 0 ), cosine );
        EXPECT_TRUE( mirrored.isEqual( GeVector2<T>( v.getX() / 3, -v.getY() / 3 ), 4 * ZqTest::epsilon<T> ) );
        EXPECT_NEAR( double( cosine ), std::cos( angle ), 2 * double( ZqTest::epsilon<T> ) );
    }
    EXPECT_EQ( ( GeVector2<T>( 1, 1 ).computeAngle( GeVector2<T>() ) ), T( 0 ) );
    EXPECT_EQ( ( GeVector2<T>().computeAngle( GeVector2<T>( 1, 1 ) ) ), T( 0 ) );
}

// Text -----------------------------------------------------------------------------------------------------------

template <class V>
V parse( const char* text, bool& failed, V value )
{
    std::istringstream is( text );
    is >> value;
    failed = is.fail();
    return value;
}

struct TupleNames
{
    template <class V>
    static std::string GetName( int index )
    {
        const char* const scalars[] = { "int", "float", "double" };
        return std::string( index < 3 ? "vector_" : "point_" ) + scalars[index % 3];
    }
};

template <class V>
class Tuple2Text : public ::testing::Test
{
};
using Tuples2 = ::testing::Types<GeVector2<int>, GeVector2<float>, GeVector2<double>, GePoint2<int>, GePoint2<float>,
    GePoint2<double>>;
TYPED_TEST_SUITE( Tuple2Text, Tuples2, TupleNames );

TYPED_TEST( Tuple2Text, WritesAndReadsBack )
{
    std::stringstream stream;
    stream << TypeParam( 3, -4 );
    EXPECT_EQ( stream.str(), "(3, -4)" );
    bool failed = true;
    EXPECT_EQ( parse( "(3, -4)", failed, TypeParam() ), TypeParam( 3, -4 ) );
    EXPECT_FALSE( failed );
    EXPECT_EQ( parse( "\n( 3\t,-4 )", failed, TypeParam() ), TypeParam( 3, -4 ) );
    EXPECT_FALSE( failed );
}

TYPED_TEST( Tuple2Text, MalformedTextChangesNothing )
{
    for ( const char* text : { "", "(1", "(1, 2", "(1, 2, 3)", "1, 2", "[1, 2]", "(1 2)", "(1; 2)", "(1, 2]", "(x, 2)",
              "(1, x)", "(99999999999999999999x, 1)" } )
    {
        bool failed = false;
        EXPECT_EQ( parse( text, failed, TypeParam( 7, 8 ) ), TypeParam( 7, 8 ) ) << text;
        EXPECT_TRUE( failed ) << text;
    }
}

TEST( Vector2OfInt, ReadingStopsAtADecimalPointAndAtOverflow )
{
    for ( const char* text : { "(1.5, 2)", "(1, 2.5)", "(1e3, 2)", "(9999999999, 1)" } )
    {
        bool failed = false;
        EXPECT_EQ( parse( text, failed, GeVector2<int>( 7, 8 ) ), ( GeVector2<int>( 7, 8 ) ) ) << text;
        EXPECT_TRUE( failed ) << text;
    }
}

TYPED_TEST( Vector2, TextOfDirections )
{
    using T = TypeParam;
    std::ostringstream os;
    os << std::fixed << std::setprecision( 1 ) << GeUnitVector2<T>( 0, -7 ) << GeVector2<T>( 1, T( 2.5 ) );
    EXPECT_EQ( os.str(), "(0.0, -1.0)(1.0, 2.5)" );
    bool failed = true;
    const GeUnitVector2<T> read = parse( "(3, 4)", failed, GeUnitVector2<T>( 1, 0 ) );
    EXPECT_FALSE( failed );
    EXPECT_TRUE( read.isEqual( GeUnitVector2<T>( T( 0.6 ), T( 0.8 ) ), 2 * ZqTest::epsilon<T> ) );
    EXPECT_EQ( parse( "(0, 0)", failed, read ), read );
    EXPECT_FALSE( failed );
    EXPECT_EQ( parse( "(0, 1, 0)", failed, read ), read );
    EXPECT_TRUE( failed );
}

// Distances ------------------------------------------------------------------------------------------------------

template <class T>
T measure( GePoint2<T> p, GePoint2<T> a, GePoint2<T> b, bool infiniteLine )
{
    return GeVector2Utils<T>::distanceSquaredFromPointToLineSegment( p, a, b, infiniteLine );
}

TYPED_TEST( Vector2, DistanceToASegmentOfLengthTwo )
{
    using T = TypeParam;
    const GePoint2<T> a( 0, 0 ), b( 2, 0 );
    struct Row
    {
        T x, y, segment, line;
    };
    for ( const Row& row : { Row{ 1, 1, 1, 1 }, { 3, 1, 2, 1 }, { -1, 0, 1, 0 }, { -1, -1, 2, 1 }, { 0, 2, 4, 4 },
              { 2, -2, 4, 4 }, { T( 0.5 ), 0, 0, 0 }, { 5, 0, 9, 0 } } )
    {
        const GePoint2<T> p( row.x, row.y );
        EXPECT_EQ( measure( p, a, b, false ), row.segment ) << p;
        EXPECT_EQ( measure( p, b, a, false ), row.segment ) << p;
        EXPECT_EQ( measure( p, a, b, true ), row.line ) << p;
        EXPECT_EQ( measure( p, a, a, true ), row.x * row.x + row.y * row.y ) << p;
        EXPECT_EQ( measure( p, a, a, false ), row.x * row.x + row.y * row.y ) << p;
    }
}

TYPED_TEST( Vector2, DistanceIsThatOfTheNearestOfManySamples )
{
    using T = TypeParam;
    using R = long double;
    Random random( 22 );
    for ( int i = 0; i < 150; ++i )
    {
        const GePoint2<T> p = makePoint<T>( random, 4 ), a = makePoint<T>( random, 4 ), b = makePoint<T>( random, 4 );
        // 40 segment lengths to each side reach the foot on the line for all but very short segments
        const R dx = R( b.getX() ) - a.getX(), dy = R( b.getY() ) - a.getY();
        const R size = std::hypot( dx, dy );
        if ( size < R( 0.3 ) )
            continue;
        const int steps = 2000;
        R onSegment = 1e9L, onLine = 1e9L;
        for ( int k = -40 * steps; k <= 41 * steps; k += k >= 0 && k < steps ? 1 : 8 )
        {
            const R t = R( k ) / steps;
            const R x = a.getX() + t * dx - p.getX(), y = a.getY() + t * dy - p.getY();
            onLine = std::min( onLine, x * x + y * y );
            if ( t >= 0 && t <= 1 )
                onSegment = std::min( onSegment, x * x + y * y );
        }
        // samples lie at most half a step from the foot, along the line
        const R step = 4 * size / steps;
        const R rounding = 400 * R( ZqTest::epsilon<T> );
        const R segment = measure( p, a, b, false ), line = measure( p, a, b, true );
        EXPECT_LE( segment, onSegment + rounding );
        EXPECT_GE( segment, onSegment - step * step - rounding );
        EXPECT_LE( line, onLine + rounding );
        EXPECT_GE( line, onLine - step * step - rounding );
    }
}

TYPED_TEST( Vector2, DistanceOfDegenerateInput )
{
    using T = TypeParam;
    const T nan = ZqTest::nan<T>;
    const GePoint2<T> o, x( 1, 0 ), bad( nan, 0 );
    // a NaN length is not at most 0, and a foot that is NaN lies behind b
    EXPECT_EQ( measure( GePoint2<T>( 1, 2 ), bad, x, false ), T( 4 ) );
    EXPECT_TRUE( std::isnan( measure( GePoint2<T>( 1, 2 ), bad, x, true ) ) );
    EXPECT_TRUE( std::isnan( measure( GePoint2<T>( 3, 0 ), o, bad, false ) ) );
    EXPECT_TRUE( std::isnan( measure( bad, o, x, false ) ) );
    EXPECT_EQ( measure( bad, x, x, false ) == T( 0 ), false );
    // a segment whose squared length underflows counts as its first end
    const T tiny = std::sqrt( std::numeric_limits<T>::denorm_min() ) / 4;
    EXPECT_EQ( measure( GePoint2<T>( 0, 3 ), o, GePoint2<T>( tiny, tiny ), false ), T( 9 ) );
    EXPECT_EQ( measure( GePoint2<T>( 2, 0 ), o, GePoint2<T>( tiny, 0 ), true ), T( 4 ) );
}

TEST( Vector2Rounding, TheTwoFormsOfTheDistanceRoundInTheirOwnOrder )
{
    // 3.24: ( c / L ) * c for the line, c * ( ( 1 / L ) * c ) for the segment; c * c / L gives 0x1.9eb852p+1
    const GePoint2<float> p( 0, 3 ), a( 0, 0 ), b( 3, 4 );
    EXPECT_EQ( measure( p, a, b, true ), 0x1.9eb854p+1F );
    EXPECT_EQ( measure( p, a, b, false ), 0x1.9eb85p+1F );
}

} // namespace
