#include "support/random.h"
#include "support/report.h"
#include "support/scalars.h"

#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/gePlane3.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geQuaternion3.h>

#include <array>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <map>
#include <regex>
#include <sstream>

using namespace Zq;
using ZqTest::Random;

namespace
{

// References in a wider type: rotation matrices as products of elementary rotations, quaternions as points of the
// sphere in four dimensions.

using Real = long double;
struct Rows
{
    Real rows[3][3];
    Real* operator[]( int row ) { return rows[row]; }
    const Real* operator[]( int row ) const { return rows[row]; }
};
using Four = std::array<Real, 4>;

const Real PI = 3.14159265358979323846264338327950288L;
const char FILE_NAME[] = "src/primitives/geQuaternion3.imp";

Rows makeElementary( char axis, Real angle )
{
    const int k = axis - 'X', next = ( k + 1 ) % 3, last = ( k + 2 ) % 3;
    Rows m{};
    m[k][k] = 1;
    m[next][next] = m[last][last] = std::cos( angle );
    m[last][next] = std::sin( angle );
    m[next][last] = -m[last][next];
    return m;
}

Rows multiply( const Rows& a, const Rows& b )
{
    Rows m{};
    for ( int r = 0; r < 3; ++r )
        for ( int c = 0; c < 3; ++c )
            m[r][c] = a[r][0] * b[0][c] + a[r][1] * b[1][c] + a[r][2] * b[2][c];
    return m;
}

// The product of elementary rotations that a text like "Z(a3) Y(a2) X(a1)" stands for.
Rows evaluate( const std::string& product, const std::vector<Real>& angles )
{
    Rows m = makeElementary( 'X', 0 );
    std::istringstream factors( product );
    for ( std::string factor; factors >> factor; )
        m = multiply( m, makeElementary( factor[0], angles[static_cast<std::size_t>( factor[3] - '1' )] ) );
    return m;
}

template <class M>
Real computeDistance( const M& m, const Rows& reference )
{
    Real distance = 0;
    for ( int r = 0; r < 3; ++r )
        for ( int c = 0; c < 3; ++c )
            distance = std::max( distance, std::fabs( Real( m( r, c ) ) - reference[r][c] ) );
    return distance;
}

template <class T>
GeLinearMatrix3<T> getMatrix( const GeQuaternion3<T>& q )
{
    GeLinearMatrix3<T> m;
    q.getMatrix( m );
    return m;
}

template <class T>
Four convert( const GeQuaternion3<T>& q )
{
    return { q.getX(), q.getY(), q.getZ(), q.getW() };
}

Real dot( const Four& a, const Four& b )
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3];
}

Four blend( const Four& a, Real s, const Four& b, Real t )
{
    return { a[0] * s + b[0] * t, a[1] * s + b[1] * t, a[2] * s + b[2] * t, a[3] * s + b[3] * t };
}

template <class T>
Real computeDistance( const GeQuaternion3<T>& q, const Four& reference )
{
    const Four d = blend( convert( q ), 1, reference, -1 );
    return std::sqrt( dot( d, d ) );
}

template <class T>
GeQuaternion3<T> makeRandomUnit( Random& random )
{
    const GeUnitVector3<T> axis = random.direction<T>();
    const T half = random.uniform<T>( -3, 3 );
    const GeVector3<T> v = axis * std::sin( half );
    return { v.getX(), v.getY(), v.getZ(), std::cos( half ) };
}

// slerp on the sphere in four dimensions: the point at the arc `phi` from p towards q, and how much the rounding of
// inputs and steps may be magnified there.
struct SlerpReference
{
    SlerpReference( const Four& p, const Four& q, Real t, Real spin )
    {
        const Four side = blend( q, 1, p, -dot( p, q ) / dot( p, p ) );
        const Real sine = std::sqrt( dot( side, side ) );
        const Real phi = ( spin * PI + std::atan2( sine, dot( p, q ) ) ) * t;
        point = blend( p, std::cos( phi ), side, std::sin( phi ) / sine );
        // the weights are divided by the sine, and the arc cosine of the rounded dot product is off by epsilon / sine;
        // without spins these errors cancel
        condition =
            spin == 0 ? 2 : 1 + ( std::fabs( phi ) + std::fabs( t ) + std::fabs( std::sin( phi ) ) / sine ) / sine;
    }
    Four point;
    Real condition;
};

ZQ_TWIN_SUITE( Quaternion3 );

TYPED_TEST( Quaternion3, FormsOfOneRotationAgree )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    const Real bound = 12 * Real( ZqTest::epsilon<T> );
    Random random( 31 );
    for ( int n = 0; n < 2000; ++n )
    {
        // the axis in spherical coordinates: turn it to Z, turn about Z, turn back
        const Real latitude = random.uniform( 0.0, 3.14 ), longitude = random.uniform( -3.14, 3.14 );
        const T angle = random.uniform<T>( -6, 6 );
        const Rows reference =
            evaluate( "Z(a1) Y(a2) Z(a3) Y(a4) Z(a5)", { longitude, latitude, angle, -latitude, -longitude } );
        const GeVector3<T> axis( T( std::sin( latitude ) * std::cos( longitude ) ),
            T( std::sin( latitude ) * std::sin( longitude ) ), T( std::cos( latitude ) ) );
        const Q q = Q::makeRotation( axis * random.uniform<T>( T( 0.1 ), 10 ), angle );
        const GeLinearMatrix3<T> m = getMatrix( q );
        EXPECT_LE( computeDistance( m, reference ), bound );

        EXPECT_EQ( q.getRotation().getMatrix(), m );
        EXPECT_LE( computeDistance( GeRotation3<T>::makeRotation( axis, angle ), reference ), bound );

        const GeVector3<T> v = random.vector<T>( 1 );
        EXPECT_TRUE( ( q * v ).isEqual( m * v, 12 * ZqTest::epsilon<T> ) );
        EXPECT_EQ( ( q * GePoint3<T>( v ) ), GePoint3<T>( q * v ) );
        const Q other = makeRandomUnit<T>( random );
        EXPECT_TRUE( ( ( q * other ) * v ).isEqual( q * ( other * v ), 24 * ZqTest::epsilon<T> ) );
        EXPECT_TRUE( ( q.computeInverse() * ( q * v ) ).isEqual( v, 24 * ZqTest::epsilon<T> ) );
        EXPECT_TRUE( ( q.computeConjugate() * ( q * v ) ).isEqual( v, 24 * ZqTest::epsilon<T> ) );

        // a length that is divided out
        const Q scaled = q * T( 3 );
        EXPECT_LE( computeDistance( getMatrix( scaled ), reference ), bound );
        EXPECT_TRUE( ( scaled * v ).isEqual( q * v, 12 * ZqTest::epsilon<T> ) );
        EXPECT_TRUE( ( scaled * scaled.computeInverse() ).isEqual( Q(), 8 * ZqTest::epsilon<T> ) );

        Q back;
        back.setMatrix( m );
        EXPECT_EQ( back, Q( q.getRotation() ) );
        EXPECT_LE( std::min( computeDistance( back, convert( q ) ), computeDistance( back, convert( -q ) ) ), bound );
        GeVector3<T> backAxis;
        T backAngle = 0;
        scaled.getAxisAngle( backAxis, backAngle );
        EXPECT_TRUE( backAngle >= 0 && backAngle <= T( 6.2831855F ) );
        EXPECT_LE( computeDistance( Q::makeRotation( backAxis, backAngle ), convert( q ) ), bound );

        GeAffineMatrix3<T> affine( GeLinearMatrix3<T>( 9, 9, 9, 9, 9, 9, 9, 9, 9 ) );
        GeProjectiveMatrix3<T> projective( GeLinearMatrix3<T>( 9, 9, 9, 9, 9, 9, 9, 9, 9 ) );
        q.getMatrix( affine );
        q.getMatrix( projective );
        for ( int i = 0; i < 16; ++i )
        {
            const T expected = i / 4 < 3 && i % 4 < 3 ? m( i / 4, i % 4 ) : T( i / 4 == i % 4 );
            EXPECT_EQ( affine( i / 4, i % 4 ), expected );
            EXPECT_EQ( projective( i / 4, i % 4 ), expected );
        }
    }
}

TYPED_TEST( Quaternion3, DegenerateQuaternionsAndMatrices )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    const GeVector3<T> v( 1, 2, 3 );
    Q zero( 0, 0, 0, 0 );
    zero.normalize();
    EXPECT_EQ( zero.computeInverse(), Q( 0, 0, 0, 0 ) );
    EXPECT_EQ( zero * v, v );
    EXPECT_EQ( getMatrix( zero ), GeLinearMatrix3<T>() );
    EXPECT_EQ( getMatrix( Q( 0, 0, 0, 2 ) ), GeLinearMatrix3<T>() );
    EXPECT_EQ( Q( 0, 3, 0, 4 ).getMagnitude(), T( 25 ) );
    const Q standard( 1, 2, 3, 4 );
    for ( const Q& other : { Q( 2, 2, 3, 4 ), Q( 1, 3, 3, 4 ), Q( 1, 2, 4, 4 ), Q( 1, 2, 3, 5 ) } )
        EXPECT_TRUE( standard != other && !standard.isEqual( other, 1 ) && standard.isEqual( other, T( 1.01 ) ) );
    GeVector3<T> axis;
    T angle = 9;
    zero.getAxisAngle( axis, angle );
    EXPECT_TRUE( axis == ( GeVector3<T>( 1, 0, 0 ) ) && angle == 0 );
    EXPECT_EQ( Q::makeRotation( GeVector3<T>(), 0 ), Q() );

    Q q;
    q.setMatrix( GeLinearMatrix3<T>(), 4 );
    EXPECT_NEAR( q.getW(), std::sqrt( 7.0 ) / 4, ZqTest::epsilon<T> );
    // a trace of 0 still starts from w
    q.setMatrix( GeLinearMatrix3<T>( 1, 0, 0, 0, -1, 0, 0, 0, 0 ) );
    EXPECT_EQ( q, Q( 0, 0, 0, T( 0.5 ) ) );
    // half turns have no w: each axis, and axes between them, where two diagonal elements are equal
    for ( const GeVector3<T>& about : { GeVector3<T>( 1, 0, 0 ), GeVector3<T>( 0, 1, 0 ), GeVector3<T>( 0, 0, 1 ),
              GeVector3<T>( 1, 1, 0 ), GeVector3<T>( 0, 1, 1 ), GeVector3<T>( 1, 0, 1 ), GeVector3<T>( 1, 1, 1 ) } )
    {
        const GeVector3<T> u = about.computeUnit();
        q.setMatrix( getMatrix( Q( u.getX(), u.getY(), u.getZ(), 0 ) ) );
        EXPECT_TRUE( q.isEqual( Q( u.getX(), u.getY(), u.getZ(), 0 ), 4 * ZqTest::epsilon<T> ) ) << q;
    }

    // the first report is about the root, and nothing is stored before the last check
    const Q before( 1, 2, 3, 4 );
    q = before;
    const GeLinearMatrix3<T> traceless( 0, 0, 0, 0, 0, 0, 0, 0, 0 );
    const GeLinearMatrix3<T> negative( -1, 0, 0, 0, -1, 0, 0, 0, -1 );
    EXPECT_REPORT( q.setMatrix( traceless, 0 ), FILE_NAME, "s != 0" );
    EXPECT_REPORT( q.setMatrix( negative, -1 ), FILE_NAME, "s != 0" );
    EXPECT_REPORT( q.setMatrix( GeLinearMatrix3<T>(), 0 ), FILE_NAME, "m44 != 0" );
    EXPECT_EQ( q, before );
    q.setMatrix( GeLinearMatrix3<T>( ZqTest::nan<T>, 0, 0, 0, 1, 0, 0, 0, 1 ) );
    EXPECT_FALSE( q == q );
}

struct Convention
{
    const char* name;
    int value;
};

// clang-format off
#define ZQ_NAMED( name ) Convention{ #name, GeQuaternion3<float>::name }
// clang-format on
const Convention CONVENTIONS[] = { ZQ_NAMED( EULER_XYZ_STATIC ), ZQ_NAMED( EULER_YZX_STATIC ),
    ZQ_NAMED( EULER_ZXY_STATIC ), ZQ_NAMED( EULER_XZY_STATIC ), ZQ_NAMED( EULER_YXZ_STATIC ),
    ZQ_NAMED( EULER_ZYX_STATIC ), ZQ_NAMED( EULER_XYX_STATIC ), ZQ_NAMED( EULER_YZY_STATIC ),
    ZQ_NAMED( EULER_ZXZ_STATIC ), ZQ_NAMED( EULER_XZX_STATIC ), ZQ_NAMED( EULER_YXY_STATIC ),
    ZQ_NAMED( EULER_ZYZ_STATIC ), ZQ_NAMED( EULER_XYZ_ROTATING ), ZQ_NAMED( EULER_YZX_ROTATING ),
    ZQ_NAMED( EULER_ZXY_ROTATING ), ZQ_NAMED( EULER_XZY_ROTATING ), ZQ_NAMED( EULER_YXZ_ROTATING ),
    ZQ_NAMED( EULER_ZYX_ROTATING ), ZQ_NAMED( EULER_XYX_ROTATING ), ZQ_NAMED( EULER_YZY_ROTATING ),
    ZQ_NAMED( EULER_ZXZ_ROTATING ), ZQ_NAMED( EULER_XZX_ROTATING ), ZQ_NAMED( EULER_YXY_ROTATING ),
    ZQ_NAMED( EULER_ZYZ_ROTATING ) };
#undef ZQ_NAMED

// The row of a convention in docs/eulerConventions.md, which is what a user goes by.
struct Row
{
    int value;
    std::string product; // "Z(a3) Y(a2) X(a1)"
    Real low, high;      // of a2
    int zeroAtPole;      // the number of the angle
};

Row readRow( const std::string& name )
{
    const std::regex pattern( R"(\| `)" + name + R"(` \| ([0-9]+) \| (.*) \| \[(.*), (.*)\] \| a([13]) \|)" );
    std::map<std::string, Real> numbers{
        { "-pi", -PI }, { "-pi/2", -PI / 2 }, { "0", 0 }, { "pi/2", PI / 2 }, { "pi", PI } };
    std::ifstream page( ZQ_DOCS_DIR "/eulerConventions.md" );
    std::smatch cells;
    for ( std::string text; std::getline( page, text ); )
        if ( std::regex_match( text, cells, pattern ) )
            return { std::stoi( cells[1] ), cells[2], numbers.at( cells[3] ), numbers.at( cells[4] ),
                std::stoi( cells[5] ) };
    ADD_FAILURE() << "no row for " << name;
    return {};
}

TYPED_TEST( Quaternion3, EveryEulerConventionIsTheProductThatItsRowStates )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    for ( const Convention& convention : CONVENTIONS )
    {
        SCOPED_TRACE( convention.name );
        const auto c = static_cast<typename Q::EulerConvention>( convention.value );
        const Row row = readRow( convention.name );
        EXPECT_EQ( c, row.value );
        int i, j, k, parity, repetition, frame;
        Q::decodeEulerConvention( c, i, j, k, parity, repetition, frame );
        EXPECT_EQ( Q::makeEulerConvention( i, parity, repetition, frame ), c );
        const T step = T( 0.7 );
        for ( T a1 = T( -7 ); a1 < 7; a1 += step )
            for ( T a2 = T( -3.2 ); a2 < T( 3.2 ); a2 += step )
                for ( T a3 = T( -3 ); a3 < 3; a3 += step )
                {
                    const Rows reference = evaluate( row.product, { a1, a2, a3 } );
                    GeLinearMatrix3<T> m;
                    Q::eulerToMatrix( m, c, a1, a2, a3 );
                    // rounded once: half a unit in the last place of 1
                    EXPECT_LE( computeDistance( m, reference ), Real( 0.26 ) * Real( ZqTest::epsilon<T> ) );
                    Q q;
                    q.setEuler( c, a1, a2, a3 );
                    EXPECT_LE( computeDistance( getMatrix( q ), reference ), 5 * Real( ZqTest::epsilon<T> ) );
                }
    }
}

TYPED_TEST( Quaternion3, EulerAnglesReturnWithinTheirRanges )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    for ( const Convention& convention : CONVENTIONS )
    {
        SCOPED_TRACE( convention.name );
        const auto c = static_cast<typename Q::EulerConvention>( convention.value );
        const Row row = readRow( convention.name );
        const bool repeats = convention.name[6] == convention.name[8];
        for ( Real fraction = 0; fraction <= 1; fraction += Real( 1 ) / 64 )
            for ( T a1 = T( -3.1 ); a1 < T( 3.14 ); a1 += T( 0.6 ) )
                for ( T a3 = T( -3.1 ); a3 < T( 3.14 ); a3 += T( 0.6 ) )
                {
                    const T a2 = static_cast<T>( row.low + ( row.high - row.low ) * fraction );
                    GeLinearMatrix3<T> m;
                    Q::eulerToMatrix( m, c, a1, a2, a3 );
                    T back[3] = { 9, 9, 9 };
                    Q::matrixToEuler( m, c, back[0], back[1], back[2] );
                    const auto computeError = [&] {
                        return computeDistance( m, evaluate( row.product, { back[0], back[1], back[2] } ) );
                    };
                    EXPECT_TRUE( std::fabs( back[0] ) <= T( PI ) && std::fabs( back[2] ) <= T( PI ) );
                    EXPECT_TRUE( back[1] >= T( row.low ) && back[1] <= T( row.high ) );
                    // the same rotation, at the poles (the first and the last fraction) too
                    EXPECT_LE( computeError(), 3 * Real( ZqTest::epsilon<T> ) );
                    const Real fromPole = std::fabs( repeats ? std::sin( Real( a2 ) ) : std::cos( Real( a2 ) ) );
                    if ( fromPole > Real( 0.0016 ) )
                    {
                        const Real bound = 3 * Real( ZqTest::epsilon<T> ) / fromPole;
                        EXPECT_NEAR( double( back[0] ), double( a1 ), double( bound ) );
                        EXPECT_NEAR( double( back[1] ), double( a2 ), double( 3 * bound * fromPole ) );
                        EXPECT_NEAR( double( back[2] ), double( a3 ), double( bound ) );
                        Q q;
                        q.setEuler( c, a1, a2, a3 );
                        q.getEuler( c, back[0], back[1], back[2] );
                        EXPECT_LE( computeError(), 2 * bound );
                    }
                    else
                    {
                        EXPECT_EQ( back[row.zeroAtPole - 1], T( 0 ) );
                    }
                }
        // between a pole and the threshold the outer axes are taken for parallel
        Real worst = 0;
        for ( T off : { T( 1e-5 ), T( 8e-4 ), T( 0.00159 ) } )
            for ( T a3 = T( -3.1 ); a3 < T( 3.14 ); a3 += T( 0.3 ) )
            {
                GeLinearMatrix3<T> m;
                Q::eulerToMatrix( m, c, 1, static_cast<T>( row.high ) - off, a3 );
                T back[3];
                Q::matrixToEuler( m, c, back[0], back[1], back[2] );
                EXPECT_EQ( back[row.zeroAtPole - 1], T( 0 ) );
                worst = std::max( worst, computeDistance( m, evaluate( row.product, { back[0], back[1], back[2] } ) ) );
            }
        EXPECT_LE( worst, Real( 0.0032 ) );
    }
    // the threshold belongs to the pole
    const T pole = static_cast<T>( 0.0016F );
    for ( const T sine : { pole, std::nextafter( pole, T( 1 ) ) } )
    {
        T a1, a2, a3;
        Q::matrixToEuler( { sine, 0, 0, 0, 0, -1, -1, 0, 0 }, Q::EULER_XYZ_STATIC, a1, a2, a3 );
        EXPECT_EQ( a1, sine == pole ? T( std::atan2( 1.0, 0.0 ) ) : T( 0 ) );
        Q::matrixToEuler( { 1, 0, sine, 0, 0, -1, 0, 1, 0 }, Q::EULER_XYX_STATIC, a1, a2, a3 );
        EXPECT_EQ( a1, sine == pole ? T( std::atan2( 1.0, 0.0 ) ) : T( 0 ) );
    }
}

TYPED_TEST( Quaternion3, AConventionWithoutAnInnerAxisIsReportedEverywhere )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    const char text[] = "0 <= i && i <= 2";
    T a1 = 1, a2 = 2, a3 = 3;
    for ( const int value : { 3, 15, 16 + 3, 64 + 32 + 16 + 14, -1 } )
    {
        const auto c = static_cast<typename Q::EulerConvention>( value );
        GeLinearMatrix3<T> m;
        Q q;
        EXPECT_REPORT( Q::eulerToMatrix( m, c, 1, 1, 1 ), FILE_NAME, text );
        EXPECT_REPORT( Q::matrixToEuler( m, c, a1, a2, a3 ), FILE_NAME, text );
        EXPECT_REPORT( q.setEuler( c, 1, 1, 1 ), FILE_NAME, text );
        EXPECT_REPORT( q.getEuler( c, a1, a2, a3 ), FILE_NAME, text );
        EXPECT_EQ( q, Q() );
        EXPECT_EQ( m, GeLinearMatrix3<T>() );
    }
    EXPECT_TRUE( a1 == 1 && a2 == 2 && a3 == 3 );
}

TYPED_TEST( Quaternion3, AimingIntoAPlaneIsTheShortestTurn )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    Random random( 32 );
    for ( int n = 0; n < 2000; ++n )
    {
        const GeVector3<T> v = random.vector<T>( 5 );
        const GeVector3<T> normal = random.direction<T>() * random.uniform<T>( T( 0.5 ), 4 );
        const T sine = v.dot( normal ) / ( v.length() * normal.length() );
        const T error = 8 * ZqTest::epsilon<T> / std::sqrt( std::max( T( 1e-6 ), 1 - sine * sine ) );
        Q q;
        q.aim( v, GePlane3<T>( normal, random.uniform<T>( -9, 9 ) ) );
        EXPECT_LE( std::fabs( ( q * v ).dot( normal ) / ( v.length() * normal.length() ) ), error );
        GeVector3<T> axis;
        T angle = 0;
        q.getAxisAngle( axis, angle );
        // no turn is shorter than the angle to the plane; a turn by -a is one by 2 pi - a about the same axis
        const T turn = std::min( angle, T( 2 * PI ) - angle );
        EXPECT_NEAR( turn, std::fabs( std::asin( sine ) ), error );
    }
    const GePlane3<T> floor( 0, 0, 3, 7 );
    for ( const T z : { T( 2 ), T( -2 ) } )
    {
        Q q;
        q.aim( GeVector3<T>( 0, 0, z ), floor );
        EXPECT_TRUE( ( q * GeVector3<T>( 0, 0, 1 ) ).isEqual( GeVector3<T>( 0, -1, 0 ), T( 1e-6 ) ) ) << q;
    }
    const Q before( 1, 2, 3, 4 );
    Q q = before;
    q.aim( GeVector3<T>(), floor );
    q.aim( GeVector3<T>( 1, 0, 0 ), GePlane3<T>( 0, 0, 0, 1 ) );
    EXPECT_EQ( q, before );
}

TYPED_TEST( Quaternion3, AimingFromOneVectorToAnotherIsTheShortestTurn )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    Random random( 33 );
    for ( int n = 0; n < 2000; ++n )
    {
        const GeVector3<T> from = random.vector<T>( 5 );
        const GeVector3<T> to = random.vector<T>( 5 );
        Q q;
        q.aim( from, to );
        EXPECT_TRUE( ( q * ( from / from.length() ) ).isEqual( to / to.length(), 10 * ZqTest::epsilon<T> ) );
        EXPECT_TRUE( FloatUtil::isEqual( q.getMagnitude(), T( 1 ) ) );
        EXPECT_NEAR( T( 2 ) * std::acos( std::min( T( 1 ), q.getW() ) ), from.computeAngle( to ), T( 5e-3 ) );

        q.aim( from, from * T( 2 ) );
        EXPECT_EQ( q, Q() );
        // a half turn about a perpendicular, with the cosine that the single-precision half turn has
        q.aim( from, from * T( -2 ) );
        EXPECT_TRUE( ( q * from ).isEqual( -from, T( 5e-6 ) ) );
        EXPECT_EQ( q.getW(), std::cos( T( 3.1415927F ) / T( 2 ) ) );
        EXPECT_LT( q.getW(), T( -4e-8 ) );
    }
    // which perpendicular
    const GeVector3<T> sources[] = { { 1, 2, 3 }, { 2, 3, 1 }, { 2, 1, 3 }, { 1, 1, 1 } };
    const GeVector3<T> axes[] = { { 0, -3, 2 }, { -3, 2, 0 }, { 3, 0, -2 }, { -1, 1, 0 } };
    for ( int n = 0; n < 4; ++n )
    {
        Q q;
        q.aim( sources[n], -sources[n] );
        const GeVector3<T> u = axes[n].computeUnit();
        EXPECT_TRUE( q.isEqual( Q( u.getX(), u.getY(), u.getZ(), 0 ), T( 1e-6 ) ) ) << q;
    }
}

TYPED_TEST( Quaternion3, SlerpFollowsTheGreatArc )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    Random random( 34 );
    const Real eps = ZqTest::epsilon<T>;
    const Real close = Real( 0.999999F );
    for ( const Real aimed :
        { 0.0L, 1e-7L, 0.3L, 0.99L, close - 1e-6L, close - 2e-7L, close + 2e-7L, 1 - 1e-7L, 1.0L } )
        for ( int n = 0; n < 40 * 25 * 4; ++n )
        {
            const Q q1 = makeRandomUnit<T>( random );
            const T arc = static_cast<T>( std::acos( n % 2 ? aimed : -aimed ) );
            const Q q2 = q1 * Q::makeRotation( random.direction<T>(), 2 * arc );
            const Four nearer = convert( q1.dot( q2 ) < 0 ? -q2 : q2 );
            const T t = random.uniform<T>( -1, 2 );
            const int spin = random.index( 4 );
            const Q q = Q::slerp( q1, q2, t, static_cast<T>( spin ) );
            if ( std::fabs( q1.dot( q2 ) ) > T( 0.999999F ) ) // no spins, and off the sphere by |t - t^2| / 2 of arc^2
            {
                EXPECT_LE( computeDistance( q, blend( convert( q1 ), 1 - Real( t ), nearer, t ) ), 4 * eps );
                if ( aimed < 1 )
                {
                    EXPECT_LE(
                        computeDistance( q, SlerpReference( convert( q1 ), nearer, t, 0 ).point ), 2.1e-6L + 4 * eps );
                }
            }
            else
            {
                const SlerpReference reference( convert( q1 ), nearer, t, spin );
                EXPECT_LE( computeDistance( q, reference.point ), 4 * eps * reference.condition )
                    << aimed << ' ' << t << ' ' << spin;
            }
        }
}

TYPED_TEST( Quaternion3, SlerpAtItsEndsAndItsThreshold )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    Random random( 35 );
    for ( int n = 0; n < 500; ++n )
    {
        const Q p = makeRandomUnit<T>( random );
        const Q q = makeRandomUnit<T>( random );
        const T bound = 40 * ZqTest::epsilon<T>;
        const bool isShort = Q::isShortestGreatCircle( p, q );
        EXPECT_EQ( isShort, p.dot( q ) >= 0 );
        EXPECT_TRUE( Q::slerp( p, q, 0, 0 ).isEqual( p, bound ) );
        EXPECT_TRUE( Q::slerp( p, q, 1, 0 ).isEqual( isShort ? q : -q, bound ) );
        EXPECT_TRUE( Q::slerp( p, -p, T( 0.37 ), 0 ).isEqual( p, bound ) );
        EXPECT_EQ( Q::lerp( p, q, 0 ), p );
        EXPECT_EQ( Q::lerp( p, q, 1 ), q );
        // half way and twice as far, by other roads
        const Q nearer = isShort ? q : -q;
        Q middle = Q::bisect( p, nearer );
        EXPECT_NEAR( middle.getMagnitude() * ( p + nearer ).getMagnitude(), 1, bound );
        middle.normalize();
        EXPECT_TRUE( Q::slerp( p, q, T( 0.5 ), 0 ).isEqual( middle, bound ) );
        EXPECT_TRUE( Q::slerp( p, q, 2, 0 ).isEqual( Q::doub( p, nearer ), 4 * bound ) );
    }
    EXPECT_TRUE( Q::isShortestGreatCircle( Q(), Q( 1, 0, 0, 0 ) ) ); // a right angle
    EXPECT_EQ( Q::bisect( Q(), Q() ), Q( 0, 0, 0, T( 0.5 ) ) );
    EXPECT_EQ( Q::bisect( Q(), -Q() ), Q( 0, 0, 0, 0 ) );

    // a dot product of exactly the threshold is still spherical: a spin turns it
    const T threshold = static_cast<T>( 0.999999F );
    for ( const T w : { threshold, std::nextafter( threshold, T( 2 ) ) } )
    {
        const Q q( std::sqrt( 1 - w * w ), 0, 0, w );
        EXPECT_EQ( ( Q::slerp( Q(), q, T( 0.5 ), 1 ) == Q::lerp( Q(), q, T( 0.5 ) ) ), w != threshold );
        EXPECT_EQ( ( Q::slerp( Q(), -q, T( 0.5 ), 1 ) == Q::lerp( Q(), q, T( 0.5 ) ) ), w != threshold );
    }
    const T nan = Q::slerp( Q(), Q( 0, 0, 0, ZqTest::nan<T> ), 0, 0 ).getX();
    EXPECT_TRUE( nan != nan ); // the spherical way: the linear one would give 0
}

TYPED_TEST( Quaternion3, ExponentialAndLogarithm )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    Random random( 36 );
    for ( int n = 0; n < 2000; ++n )
    {
        const GeVector3<T> u = random.direction<T>();
        const T scale = random.uniform<T>( T( 0.2 ), 5 );
        const Real a = random.uniform( 0.01, 3.1 );
        const T s = T( std::sin( a ) ) * scale;
        const Q q( u.getX() * s, u.getY() * s, u.getZ() * s, T( std::cos( a ) ) * scale );
        const Four log = { u.getX() * a, u.getY() * a, u.getZ() * a, 0 };
        const Real condition = Real( ZqTest::epsilon<T> ) * a / ( std::sin( a ) * std::sin( a ) );
        EXPECT_LE( computeDistance( Q::log( q ), log ), 8 * condition );
        // exp goes by the length of the unit quaternion's vector part, which is sin(a)
        const Real sine = std::sin( a );
        const Four exp = {
            u.getX() * std::sin( sine ), u.getY() * std::sin( sine ), u.getZ() * std::sin( sine ), std::cos( sine ) };
        EXPECT_LE( computeDistance( Q::exp( q ), exp ), 8 * Real( ZqTest::epsilon<T> ) );
    }
    EXPECT_TRUE(
        Q::exp( Q( 4, 0, 0, 0 ) ).isEqual( Q( T( std::sin( 1.0 ) ), 0, 0, T( std::cos( 1.0 ) ) ), T( 2e-7 ) ) );
    // so the pair does not undo itself, unless the angle is 1
    EXPECT_TRUE( Q::exp( Q::log( Q( 0, 0, T( 0.6 ), T( 0.8 ) ) ) )
                     .isEqual( Q( 0, 0, T( std::sin( 1.0 ) ), T( std::cos( 1.0 ) ) ), T( 1e-6 ) ) );
    // the sine must be above the single-precision 1e-6, and a small |w| is below 1 - 1e-6
    const T small = static_cast<T>( 1e-6F );
    for ( const T x : { T( 0.9 ) * small, T( 2 ) * small } ) // as it is, and scaled
        EXPECT_NEAR( Q::exp( Q( x, 0, 0, 1 ) ).getX(),
            double( x < small ? x : std::sin( x ) ) / std::sqrt( 1 + double( x ) * x ), x * ZqTest::epsilon<T> );
    EXPECT_EQ( Q::log( Q() ), Q( 0, 0, 0, 0 ) );
    for ( const T w : { T( 0.9999989 ), T( 0.9999991 ), T( -0.9999989 ), T( -0.9999991 ) } )
    {
        const T x = std::sqrt( 1 - w * w );
        const bool isScaled = std::fabs( w ) < T( 0.999999 );
        EXPECT_NEAR( Q::log( Q( x, 0, 0, w ) ).getX(), isScaled ? std::acos( w ) : x, x / 2 );
    }
    const T nan = Q::log( Q( 0, 0, 0, ZqTest::nan<T> ) ).getW();
    EXPECT_EQ( nan, T( 0 ) );
    EXPECT_REPORT( Q::exp( Q( 1, 0, 0, ZqTest::nan<T> ) ), FILE_NAME, "a > 0" );
}

TYPED_TEST( Quaternion3, SquadIsThreeSlerpsAndControlQuaternionsAreTheCallersTask )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    Random random( 37 );
    const T bound = 60 * ZqTest::epsilon<T>;
    for ( int n = 0; n < 500; ++n )
    {
        // neighbours, so that no slerp changes a sign
        const Q p = makeRandomUnit<T>( random );
        Q q = p + makeRandomUnit<T>( random ) * T( 0.3 );
        Q a = p + makeRandomUnit<T>( random ) * T( 0.3 );
        Q b = q + makeRandomUnit<T>( random ) * T( 0.3 );
        for ( Q* unit : { &q, &a, &b } )
            unit->normalize();
        EXPECT_TRUE( Q::squad( p, a, b, q, 0 ).isEqual( p, bound ) );
        EXPECT_TRUE( Q::squad( p, a, b, q, 1 ).isEqual( q, bound ) );
        const T t = random.uniform<T>( 0, 1 );
        EXPECT_TRUE( Q::squad( p, a, b, q, t ).isEqual( Q::squad( q, b, a, p, 1 - t ), bound ) );
        EXPECT_TRUE( Q::squad( p, p, q, q, t ).isEqual( Q::slerp( p, q, t, 0 ), bound ) );
        const Four outer = SlerpReference( convert( p ), convert( q ), t, 0 ).point;
        const Four inner = SlerpReference( convert( a ), convert( b ), t, 0 ).point;
        const Four reference = SlerpReference( outer, inner, 2 * Real( t ) * ( 1 - Real( t ) ), 0 ).point;
        EXPECT_LE( computeDistance( Q::squad( p, a, b, q, t ), reference ), Real( bound ) );

        const char text[] = "h2uinv.getMagnitude() == 0";
        EXPECT_REPORT( Q::computeIntermediates( p, q, a, a, b ), FILE_NAME, text );
        EXPECT_REPORT( Q::computeIntermediates( p, Q( 0, 0, 0, 0 ), q, a, b ), FILE_NAME, "a > 0" );
    }
}

TYPED_TEST( Quaternion3, TextForm )
{
    using T = TypeParam;
    using Q = GeQuaternion3<T>;
    std::ostringstream os;
    os << Q( 1, T( 2.5 ), -3, 0 );
    EXPECT_EQ( os.str(), "[(1, 2.5, -3), 0]" );
    std::stringstream exact;
    const Q third( T( 1 ) / 3, T( -0.1 ), T( 1e-20 ), T( 7 ) / 9 );
    Q q;
    exact << std::setprecision( std::numeric_limits<T>::max_digits10 ) << third;
    exact >> q;
    EXPECT_EQ( q, third );
    const Q before( 1, 2, 3, 4 );
    for ( const char* text : { "", "[(5, 6, 7) 8]", "[(5, 6, 7), 8", "[(5, 6, 7), 8)", "(5, 6, 7), 8]", "[5, 6, 7, 8]",
              "[(5 6, 7), 8]", "[(5, 6; 7), 8]", "[(5, 6, 7], 8]", "[(a, 6, 7), 8]", "[(5, 6, 7), b]" } )
    {
        std::istringstream is( text );
        q = before;
        q.read( is );
        EXPECT_EQ( q, before ) << text;
        EXPECT_TRUE( is.fail() ) << text;
    }
    std::istringstream spaced( " [ ( 5,\n6 , 7 ) ,8 ] " );
    spaced >> q;
    EXPECT_EQ( q, Q( 5, 6, 7, 8 ) );
}

} // namespace
