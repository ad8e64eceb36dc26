#include "support/random.h"
#include "support/report.h"
#include "support/scalars.h"

#include <zq/primitives/geVector3.h>

#include <cmath>
#include <iomanip>
#include <sstream>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( Vector3 );

TYPED_TEST( Vector3, ProductsAgreeWithALongDoubleReference )
{
    using T = TypeParam;
    Random random( 1 );
    for ( int i = 0; i < 2000; ++i )
    {
        const GeVector3<T> a = random.vector<T>( 10 );
        const GeVector3<T> b = random.vector<T>( 10 );
        using R = long double;
        const R ax = a.getX(), ay = a.getY(), az = a.getZ(), bx = b.getX(), by = b.getY(), bz = b.getZ();
        const R bound = 300 * R( ZqTest::epsilon<T> ); // 3 products of up to 100, each rounded
        EXPECT_LE( std::fabs( R( a.dot( b ) ) - ( ax * bx + ay * by + az * bz ) ), bound );
        const GeVector3<T> c = a.cross( b );
        EXPECT_LE( std::fabs( R( c.getX() ) - ( ay * bz - az * by ) ), bound );
        EXPECT_LE( std::fabs( R( c.getY() ) - ( az * bx - ax * bz ) ), bound );
        EXPECT_LE( std::fabs( R( c.getZ() ) - ( ax * by - ay * bx ) ), bound );
        EXPECT_LE( std::fabs( R( a.length() ) - std::sqrt( ax * ax + ay * ay + az * az ) ), bound );
    }
}

TYPED_TEST( Vector3, DivisionIsOneReciprocal )
{
    using T = TypeParam;
    Random random( 2 );
    bool sawDifference = false;
    for ( int i = 0; i < 200; ++i )
    {
        const GeVector3<T> v = random.vector<T>( 1 );
        const T divisor = random.uniform<T>( 1, 50 );
        const T reciprocal = T( 1 ) / divisor;
        GeVector3<T> w = v;
        w /= divisor;
        EXPECT_EQ( v / divisor, v * reciprocal );
        EXPECT_EQ( w, v * reciprocal );
        sawDifference = sawDifference || ( v / divisor ).getX() != v.getX() / divisor;
    }
    EXPECT_TRUE( sawDifference );
}

TYPED_TEST( Vector3, SizesAndExtremesTakeMagnitudesOfNegativeComponents )
{
    using T = TypeParam;
    const GeVector3<T> v( -4, 2, -1 );
    const GeVector3<T> w( 1, -8, -1 );
    EXPECT_EQ( v.computeAbsSum(), T( 7 ) );
    EXPECT_EQ( v.computeMaxAbs(), T( 4 ) );
    EXPECT_EQ( w.computeMaxAbs(), T( 8 ) );
    EXPECT_EQ( ( GeVector3<T>( 1, 2, -9 ).computeMaxAbs() ), T( 9 ) );
    EXPECT_EQ( ( GeVector3<T>::computeMin( v, w ) ), ( GeVector3<T>( -4, -8, -1 ) ) );
    EXPECT_EQ( ( GeVector3<T>::computeMax( v, w ) ), ( GeVector3<T>( 1, 2, -1 ) ) );
    EXPECT_EQ( ( GePoint3<T>::computeMin( GePoint3<T>( v ), GePoint3<T>( w ) ) ), ( GePoint3<T>( -4, -8, -1 ) ) );
    EXPECT_EQ( ( GePoint3<T>::computeMax( GePoint3<T>( v ), GePoint3<T>( w ) ) ), ( GePoint3<T>( 1, 2, -1 ) ) );
}

TYPED_TEST( Vector3, PointAndVectorArithmeticKeepTheirTypes )
{
    using T = TypeParam;
    const GePoint3<T> p( 1, 2, 3 );
    const GeVector3<T> v( 10, 20, 30 );
    GePoint3<T> moved = p;
    moved += v;
    EXPECT_EQ( moved, p + v );
    const GeVector3<T> difference = moved - p;
    EXPECT_EQ( difference, v );
    moved -= v;
    EXPECT_EQ( moved, p );
    EXPECT_EQ( ( p - v ), ( GePoint3<T>( -9, -18, -27 ) ) );
    static_assert( !std::is_convertible_v<GePoint3<T>, GeVector3<T>> );
    static_assert( !std::is_convertible_v<GeVector3<T>, GePoint3<T>> );
    static_assert( !std::is_convertible_v<GeVector3<T>, GeUnitVector3<T>> );
    static_assert( std::is_convertible_v<GeUnitVector3<T>, GeVector3<T>> );
}

TYPED_TEST( Vector3, ToleranceIsStrictAndNaNEqualsNothing )
{
    using T = TypeParam;
    const GeVector3<T> a( 1, 2, 3 );
    EXPECT_TRUE( a.isEqual( GeVector3<T>( 1, 2, T( 3.25 ) ), T( 0.5 ) ) );
    EXPECT_FALSE( a.isEqual( GeVector3<T>( 1, 2, T( 3.5 ) ), T( 0.5 ) ) );
    EXPECT_FALSE( a.isEqual( GeVector3<T>( 1, T( 1.5 ), 3 ), T( 0.5 ) ) );
    EXPECT_FALSE( a.isEqual( GeVector3<T>( T( 0.5 ), 2, 3 ), T( 0.5 ) ) );
    EXPECT_FALSE( a.isEqual( a, 0 ) );
    const GeVector3<T> bad( 1, ZqTest::nan<T>, 3 );
    EXPECT_TRUE( bad != bad );
    EXPECT_FALSE( bad == bad );
    EXPECT_FALSE( bad.isEqual( bad, 1 ) );
    EXPECT_EQ( ( GeVector3<T>( T( -0.0 ), 0, 0 ) ), GeVector3<T>() );
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
        EXPECT_TRUE( FloatUtil::isEqual( v.length(), T( 1 ) ) );
        // trusted again: what normalisation makes passes the unit-length check
        EXPECT_NO_THROW( GeUnitVector3<T>( v.getX(), v.getY(), v.getZ(), GE_TRUSTED ) );
    }
}

TYPED_TEST( Vector3, DegenerateNormalization )
{
    using T = TypeParam;
    GeVector3<T> zero;
    EXPECT_EQ( zero.normalize(), T( 0 ) );
    EXPECT_EQ( zero, GeVector3<T>() );
    // the squared length overflows: stored as zero, and no report
    const T huge = std::numeric_limits<T>::max() / 2;
    EXPECT_EQ( ( GeUnitVector3<T>( huge, huge, 0 ).length() ), T( 0 ) );
    EXPECT_EQ( GeUnitVector3<T>().length(), T( 0 ) );
}

TYPED_TEST( Vector3, AnglesAgainstAReference )
{
    using T = TypeParam;
    Random random( 4 );
    for ( int i = 0; i < 2000; ++i )
    {
        const GeVector3<T> a = random.vector<T>( 5 );
        const GeVector3<T> b = random.vector<T>( 5 );
        using R = long double;
        // through the half-angle tangent: another route than the arc cosine
        const GeVector3<T> u = a / a.length(), v = b / b.length();
        const R expected = 2 * std::atan2( R( ( u - v ).length() ), R( ( u + v ).length() ) );
        const R bound = 40 * std::sqrt( R( ZqTest::epsilon<T> ) ) * std::sqrt( R( ZqTest::epsilon<T> ) ) /
            std::max( R( 1e-2 ), std::sin( expected ) );
        EXPECT_NEAR( double( a.computeAngle( b ) ), double( expected ), double( bound ) );
        EXPECT_NEAR( double( a.computeUnit().computeAngle( b.computeUnit() ) ), double( expected ), double( bound ) );
    }
    const GeVector3<T> x( 3, 0, 0 );
    EXPECT_EQ( x.computeAngle( GeVector3<T>() ), T( 0 ) );
    EXPECT_EQ( GeVector3<T>().computeAngle( x ), T( 0 ) );
    EXPECT_EQ( x.computeAngle( x ), T( 0 ) );
    // a dot product of rounded unit vectors beyond 1 must not make a NaN
    for ( int i = 0; i < 500; ++i )
    {
        const GeUnitVector3<T> u = random.direction<T>();
        EXPECT_GE( u.computeAngle( u ), T( 0 ) );
        EXPECT_LE( u.computeAngle( -u ), T( 3.1415927410125732 ) );
    }
}

TYPED_TEST( Vector3, ReflectionMirrorsAboutTheNormal )
{
    using T = TypeParam;
    Random random( 5 );
    for ( int i = 0; i < 500; ++i )
    {
        const GeUnitVector3<T> v = random.direction<T>();
        const GeUnitVector3<T> n = random.direction<T>();
        T cosine = 0;
        const GeVector3<T> mirrored = v.computeReflection( n, cosine );
        EXPECT_EQ( cosine, v.dot( n ) );
        EXPECT_NEAR( mirrored.dot( n ), cosine, 8 * ZqTest::epsilon<T> );
        EXPECT_TRUE( ( mirrored + v ).isEqual( n * ( 2 * cosine ), 8 * ZqTest::epsilon<T> ) );
    }
}

template <class V>
V parse( const std::string& text, bool& failed, V start )
{
    std::istringstream is( text );
    is >> start;
    failed = is.fail();
    return start;
}

TYPED_TEST( Vector3, TextFormIsExactAndReadsBack )
{
    using T = TypeParam;
    std::ostringstream os;
    os << GeVector3<T>( 1, T( 2.5 ), -3 ) << GePoint3<T>( 0, 1, 2 ) << GeUnitVector3<T>( 0, 0, 2 );
    EXPECT_EQ( os.str(), "(1, 2.5, -3)(0, 1, 2)(0, 0, 1)" );

    std::ostringstream formatted;
    formatted << std::fixed << std::setprecision( 2 ) << GePoint3<T>( 1, 2, 3 );
    EXPECT_EQ( formatted.str(), "(1.00, 2.00, 3.00)" );

    Random random( 6 );
    for ( int i = 0; i < 500; ++i )
    {
        const GeVector3<T> v = random.vector<T>( 1000 );
        std::stringstream exact;
        exact << std::setprecision( std::numeric_limits<T>::max_digits10 ) << v;
        GeVector3<T> back;
        exact >> back;
        EXPECT_EQ( v, back );
    }
}

TYPED_TEST( Vector3, MalformedTextChangesNothing )
{
    using T = TypeParam;
    const GeVector3<T> before( 7, 8, 9 );
    for ( const char* text : { "", "(1, 2)", "1 2 3", "(1 2 3)", "[1, 2, 3]", "(1; 2, 3)", "(1, 2; 3)", "(1, 2, 3",
              "(1, 2, 3]", "(a, 2, 3)", "(1, 2, b)" } )
    {
        bool failed = false;
        EXPECT_EQ( parse( text, failed, before ), before ) << text;
        EXPECT_TRUE( failed ) << text;
        EXPECT_EQ( parse( text, failed, GePoint3<T>( before ) ), GePoint3<T>( before ) ) << text;
        EXPECT_TRUE( failed ) << text;
        EXPECT_EQ( parse( text, failed, GeUnitVector3<T>( 0, 1, 0 ) ), ( GeUnitVector3<T>( 0, 1, 0 ) ) ) << text;
        EXPECT_TRUE( failed ) << text;
    }
    bool failed = true;
    EXPECT_EQ( parse( " ( 1 ,2,\n  3\t)", failed, before ), ( GeVector3<T>( 1, 2, 3 ) ) );
    EXPECT_FALSE( failed );

    // characters that were consumed are gone, and a wrong mark does not stop the reading of the rest
    std::istringstream is( "[1, 2, 3] x" );
    GeVector3<T> v = before;
    v.read( is );
    is.clear();
    char next = 0;
    is >> next;
    EXPECT_EQ( next, 'x' );

    std::istringstream spoilt( "(1, 2, 3)" );
    spoilt.setstate( std::ios_base::failbit );
    v.read( spoilt );
    EXPECT_EQ( v, before );

    std::istream noBuffer( nullptr );
    v.read( noBuffer );
    EXPECT_TRUE( noBuffer.bad() && noBuffer.fail() );
}

TYPED_TEST( Vector3, ReadingAUnitVectorNormalizes )
{
    using T = TypeParam;
    bool failed = true;
    const GeUnitVector3<T> read = parse( "(3, 0, 4)", failed, GeUnitVector3<T>( 0, 1, 0 ) );
    EXPECT_FALSE( failed );
    EXPECT_TRUE( read.isEqual( GeUnitVector3<T>( T( 0.6 ), 0, T( 0.8 ) ), 2 * ZqTest::epsilon<T> ) );
    // a zero vector is read without complaint and keeps the direction
    EXPECT_EQ( parse( "(0, 0, 0)", failed, read ), read );
    EXPECT_FALSE( failed );
}

TYPED_TEST( Vector3, ConversionBetweenScalarsRoundsEachComponent )
{
    const GeVector3<double> d( 0.1, 1e-50, -3 );
    const GeVector3<float> f( d );
    EXPECT_EQ( f, GeVector3<float>( 0.1F, 0.0F, -3.0F ) );
    EXPECT_EQ( GePoint3<double>( GePoint3<float>( f ) ).getX(), double( 0.1F ) );
}

} // namespace
