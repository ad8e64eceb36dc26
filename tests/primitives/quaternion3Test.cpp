#include "support/matrixReference.h"
#include "support/prelude.h"

#include <zq/primitives/gePlane3.h>
#include <zq/primitives/geQuaternion3.h>

#include <fstream>
#include <map>
#include <regex>
#include <valarray>

namespace
{

// References in a wider type: rotation matrices as products of elementary rotations, quaternions as points of the
// sphere in four dimensions.

using Real = long double;
using Rows = ZqTest::Rows<Real, 3>;
using Four = std::valarray<Real>;

const Real PI = 3.14159265358979323846264338327950288L;
const char FILE_NAME[] = "src/primitives/geQuaternion3.imp";

// The product of elementary rotations that a text like "Z(a3) Y(a2) X(a1)" stands for.
Rows evaluate( const std::string& product, const std::vector<Real>& angles )
{
    Rows m = ZqTest::toRows<Real, 3>( GeLinearMatrix3<double>() );
    std::istringstream factors( product );
    for ( std::string factor; factors >> factor; )
    {
        const int k = factor[0] - 'X', next = ( k + 1 ) % 3, last = ( k + 2 ) % 3;
        const Real angle = angles[static_cast<std::size_t>( factor[3] - '1' )];
        Rows elementary;
        elementary( k, k ) = 1;
        elementary( next, next ) = elementary( last, last ) = std::cos( angle );
        elementary( last, next ) = std::sin( angle );
        elementary( next, last ) = -std::sin( angle );
        m = multiply( m, elementary );
    }
    return m;
}

template <class T>
Real computeDistance( const GeLinearMatrix3<T>& m, const Rows& reference )
{
    Real distance = 0;
    ZqTest::forEachPlace<3>(
        [&]( int r, int c ) { distance = std::max( distance, std::fabs( Real( m( r, c ) ) - reference( r, c ) ) ); } );
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
    return ( a * b ).sum();
}

template <class T>
Real computeDistance( const GeQuaternion3<T>& q, const Four& reference )
{
    const Four difference = convert( q ) - reference;
    return std::sqrt( dot( difference, difference ) );
}

template <class T>
GeQuaternion3<T> makeRandomUnit( Random& random )
{
    const GeUnitVector3<T> axis = random.direction<T>();
    return GeQuaternion3<T>::makeRotation( axis, random.uniform<T>( -6, 6 ) );
}

// slerp on the sphere in four dimensions: the point at the arc `phi` from p towards q, and how much the rounding of
// inputs and steps may be magnified there.
Four slerp( const Four& p, const Four& q, Real t, Real spin, Real& condition )
{
    const Four side = q - p * ( dot( p, q ) / dot( p, p ) );
    const Real sine = std::sqrt( dot( side, side ) );
    const Real phi = ( spin * PI + std::atan2( sine, dot( p, q ) ) ) * t;
    // the weights are divided by the sine, and the arc cosine of the rounded dot product is off by epsilon / sine;
    // without spins these errors cancel
    condition = spin == 0 ? 2 : 1 + ( std::fabs( phi ) + std::fabs( t ) + std::fabs( std::sin( phi ) ) / sine ) / sine;
    return p * std::cos( phi ) + side * ( std::sin( phi ) / sine );
}

ZQ_TWIN_SUITE( Quaternion3 );

ZQ_TWIN_TEST( Quaternion3, FormsOfOneRotationAgree )
{
    using Q = GeQuaternion3<T>;
    const T bound = 12 * epsilon<T>;
    Random random( 31 );
    for ( int n = 0; n < 2000; ++n )
    {
        // the axis in spherical coordinates: turn it to Z, turn about Z, turn back
        const Real latitude = random.uniform( 0.0, 3.14 ), longitude = random.uniform( -3.14, 3.14 );
        const T angle = random.uniform<T>( -6, 6 );
        const std::vector<Real> angles{ longitude, latitude, angle, -latitude, -longitude };
        const Rows toAxis = evaluate( "Z(a1) Y(a2)", angles );
        const Rows reference = evaluate( "Z(a1) Y(a2) Z(a3) Y(a4) Z(a5)", angles );
        const GeVector3<T> axis( T( toAxis( 0, 2 ) ), T( toAxis( 1, 2 ) ), T( toAxis( 2, 2 ) ) );
        const Q q = Q::makeRotation( axis * random.uniform<T>( T( 0.1 ), 10 ), angle );
        const Q scaled = q * T( 3 ), other = makeRandomUnit<T>( random ), back( q.getRotation() );
        const GeLinearMatrix3<T> m = getMatrix( q );
        for ( const GeLinearMatrix3<T>& form :
            { m, getMatrix( scaled ), getMatrix( back ), GeRotation3<T>::makeRotation( axis, angle ).getMatrix() } )
            EXPECT_LE( computeDistance( form, reference ), bound );

        const GeVector3<T> v = random.vector<T>( 1 ), turned = q * v;
        EXPECT_TRUE( turned.isEqual( m * v, bound ) && ( scaled * v ).isEqual( turned, bound ) );
        EXPECT_EQ( ( q * GePoint3<T>( v ) ), GePoint3<T>( turned ) );
        EXPECT_TRUE( ( ( q * other ) * v ).isEqual( q * ( other * v ), 2 * bound ) );
        EXPECT_TRUE( ( q.computeInverse() * turned ).isEqual( v, 2 * bound ) );
        EXPECT_TRUE( ( q.computeConjugate() * turned ).isEqual( v, 2 * bound ) );
        EXPECT_TRUE( ( scaled * scaled.computeInverse() ).isEqual( Q(), bound ) );
        GeVector3<T> backAxis;
        T backAngle = 0;
        scaled.getAxisAngle( backAxis, backAngle );
        EXPECT_TRUE( backAngle >= 0 && backAngle <= T( 6.2831855F ) );
        EXPECT_LE( computeDistance( Q::makeRotation( backAxis, backAngle ), convert( q ) ), bound );

        GeAffineMatrix3<T> affine( m, v );
        GeProjectiveMatrix3<T> projective( affine );
        q.getMatrix( affine );
        q.getMatrix( projective );
        EXPECT_TRUE( affine == GeAffineMatrix3<T>( m ) && projective == GeProjectiveMatrix3<T>( m ) );
    }
}

ZQ_TWIN_TEST( Quaternion3, DegenerateQuaternionsAndMatrices )
{
    using Q = GeQuaternion3<T>;
    using Vector = GeVector3<T>;
    using Linear = GeLinearMatrix3<T>;
    Q zero( 0, 0, 0, 0 ), q;
    zero.normalize();
    EXPECT_EQ( zero.computeInverse(), Q( 0, 0, 0, 0 ) );
    EXPECT_EQ( zero * Vector( 1, 2, 3 ), Vector( 1, 2, 3 ) );
    EXPECT_TRUE( getMatrix( zero ) == Linear() && getMatrix( Q( 0, 0, 0, 2 ) ) == Linear() );
    EXPECT_EQ( Q( 0, 3, 0, 4 ).getMagnitude(), T( 25 ) );
    Vector axis;
    T angle = 9;
    zero.getAxisAngle( axis, angle );
    EXPECT_TRUE( axis == Vector( 1, 0, 0 ) && angle == 0 );
    EXPECT_EQ( Q::makeRotation( Vector(), 0 ), Q() );

    q.setMatrix( Linear(), 4 );
    EXPECT_NEAR( q.getW(), std::sqrt( 7.0 ) / 4, epsilon<T> );
    // a trace of 0 still starts from w
    q.setMatrix( Linear( 1, 0, 0, 0, -1, 0, 0, 0, 0 ) );
    EXPECT_EQ( q, Q( 0, 0, 0, T( 0.5 ) ) );
    // half turns have no w: each axis, and axes between them, where two diagonal elements are equal
    for ( int code = 1; code < 8; ++code )
    {
        const Vector u = Vector( T( code & 1 ), T( code / 2 & 1 ), T( code / 4 ) ).computeUnit();
        const Q halfTurn( u.getX(), u.getY(), u.getZ(), 0 );
        q.setMatrix( getMatrix( halfTurn ) );
        EXPECT_TRUE( q.isEqual( halfTurn, 4 * epsilon<T> ) ) << q;
    }
    q.setMatrix( Linear( ZqTest::nan<T>, 0, 0, 0, 1, 0, 0, 0, 1 ) );
    EXPECT_FALSE( q == q );
}

ZQ_TWIN_TEST( Quaternion3, ReportsComeInOrderAndBeforeAnythingIsStored )
{
    using Q = GeQuaternion3<T>;
    const GeLinearMatrix3<T> identity, none( 0, 0, 0, 0, 0, 0, 0, 0, 0 ), negative( -1, 0, 0, 0, -1, 0, 0, 0, -1 );
    const Q before( 1, 2, 3, 4 );
    Q q = before;
    EXPECT_REPORT( q.setMatrix( none, 0 ), FILE_NAME, "s != 0" );
    EXPECT_REPORT( q.setMatrix( negative, -1 ), FILE_NAME, "s != 0" );
    EXPECT_REPORT( q.setMatrix( identity, 0 ), FILE_NAME, "m44 != 0" );
    T a1 = 1, a2 = 2, a3 = 3;
    GeLinearMatrix3<T> m;
    for ( const int value : { 3, 15, 16 + 3, 64 + 32 + 16 + 14, -1 } ) // no inner axis
    {
        const auto c = static_cast<typename Q::EulerConvention>( value );
        EXPECT_REPORT( Q::eulerToMatrix( m, c, 1, 1, 1 ), FILE_NAME, "0 <= i && i <= 2" );
        EXPECT_REPORT( Q::matrixToEuler( m, c, a1, a2, a3 ), FILE_NAME, "0 <= i && i <= 2" );
        EXPECT_REPORT( q.setEuler( c, 1, 1, 1 ), FILE_NAME, "0 <= i && i <= 2" );
        EXPECT_REPORT( q.getEuler( c, a1, a2, a3 ), FILE_NAME, "0 <= i && i <= 2" );
    }
    EXPECT_TRUE( q == before && m == identity && a1 == 1 && a2 == 2 && a3 == 3 );
    EXPECT_REPORT( Q::exp( Q( 1, 0, 0, ZqTest::nan<T> ) ), FILE_NAME, "a > 0" );
    EXPECT_REPORT( Q::computeIntermediates( q, q, q, q, q ), FILE_NAME, "h2uinv.getMagnitude() == 0" );
    EXPECT_REPORT( Q::computeIntermediates( q, Q( 0, 0, 0, 0 ), q, q, q ), FILE_NAME, "a > 0" );
}

// The row of a convention in docs/eulerConventions.md, which is what a user goes by.
struct Row
{
    std::string name;
    int value;
    std::string product; // "Z(a3) Y(a2) X(a1)"
    Real low, high;      // of a2
    int zeroAtPole;      // the number of the angle
};

std::vector<Row> readRows()
{
    const std::regex pattern( R"(\| `(EULER_\w+)` \| ([0-9]+) \| (.*) \| \[(.*), (.*)\] \| a([13]) \|)" );
    std::map<std::string, Real> numbers{
        { "-pi", -PI }, { "-pi/2", -PI / 2 }, { "0", 0 }, { "pi/2", PI / 2 }, { "pi", PI } };
    std::ifstream page( ZQ_DOCS_DIR "/eulerConventions.md" );
    std::vector<Row> rows;
    std::smatch cells;
    for ( std::string text; std::getline( page, text ); )
        if ( std::regex_match( text, cells, pattern ) )
            rows.push_back( { cells[1], std::stoi( cells[2] ), cells[3], numbers.at( cells[4] ), numbers.at( cells[5] ),
                std::stoi( cells[6] ) } );
    return rows;
}

ZQ_TWIN_TEST( Quaternion3, EulerConventionsAreTheProductsThatTheirRowsState )
{
    using Q = GeQuaternion3<T>;
#define ZQ_NAMED( axes )                                                                                               \
    { "EULER_" #axes "_STATIC", Q::EULER_##axes##_STATIC },                                                            \
    {                                                                                                                  \
        "EULER_" #axes "_ROTATING", Q::EULER_##axes##_ROTATING                                                         \
    }
    const std::map<std::string, int> named{ ZQ_NAMED( XYZ ), ZQ_NAMED( YZX ), ZQ_NAMED( ZXY ), ZQ_NAMED( XZY ),
        ZQ_NAMED( YXZ ), ZQ_NAMED( ZYX ), ZQ_NAMED( XYX ), ZQ_NAMED( YZY ), ZQ_NAMED( ZXZ ), ZQ_NAMED( XZX ),
        ZQ_NAMED( YXY ), ZQ_NAMED( ZYZ ) };
#undef ZQ_NAMED
    const Real eps = epsilon<T>;
    const std::vector<Row> rows = readRows();
    EXPECT_EQ( rows.size(), 24U );
    for ( const Row& row : rows )
    {
        SCOPED_TRACE( row.name );
        EXPECT_EQ( named.at( row.name ), row.value );
        const auto c = static_cast<typename Q::EulerConvention>( row.value );
        int i, j, k, parity, repetition, frame;
        Q::decodeEulerConvention( c, i, j, k, parity, repetition, frame );
        EXPECT_EQ( Q::makeEulerConvention( i, parity, repetition, frame ), c );
        EXPECT_EQ( repetition, row.name[6] == row.name[8] );
        // the ends are poles; between a pole and the threshold the outer axes are taken for parallel
        const T low = T( row.low ), high = T( row.high );
        std::vector<T> middles{ high - T( 1e-5 ), high - T( 8e-4 ), high - T( 0.00159 ) };
        for ( int n = 0; n <= 32; ++n )
            middles.push_back( static_cast<T>( row.low + ( row.high - row.low ) * n / 32 ) );
        for ( const T a2 : middles )
            for ( T a1 = T( -7 ); a1 < 7; a1 += T( 1.3 ) )
                for ( T a3 = T( -3.1 ); a3 < T( 3.14 ); a3 += T( 0.6 ) )
                {
                    const Rows reference = evaluate( row.product, { a1, a2, a3 } );
                    GeLinearMatrix3<T> m;
                    Q q;
                    T back[3] = { 9, 9, 9 };
                    Q::eulerToMatrix( m, c, a1, a2, a3 );
                    Q::matrixToEuler( m, c, back[0], back[1], back[2] );
                    q.setEuler( c, a1, a2, a3 );
                    // rounded once: half a unit in the last place of 1
                    EXPECT_LE( computeDistance( m, reference ), Real( 0.26 ) * eps );
                    EXPECT_LE( computeDistance( getMatrix( q ), reference ), 5 * eps );
                    const auto computeError = [&] {
                        return computeDistance( m, evaluate( row.product, { back[0], back[1], back[2] } ) );
                    };
                    EXPECT_TRUE( std::fabs( back[0] ) <= T( PI ) && std::fabs( back[2] ) <= T( PI ) );
                    EXPECT_TRUE( back[1] >= low && back[1] <= high );
                    const Real fromPole = std::fabs( repetition ? std::sin( Real( a2 ) ) : std::cos( Real( a2 ) ) );
                    if ( fromPole < Real( 0.0016 ) )
                    {
                        EXPECT_EQ( back[row.zeroAtPole - 1], T( 0 ) );
                        EXPECT_LE( computeError(), 2 * fromPole + 3 * eps );
                        continue;
                    }
                    const double bound = double( 3 * eps / fromPole );
                    EXPECT_LE( computeError(), 3 * eps );
                    EXPECT_NEAR( double( std::remainder( Real( back[0] ) - a1, 2 * PI ) ), 0, bound );
                    EXPECT_NEAR( double( back[1] ), double( a2 ), double( 9 * eps ) );
                    EXPECT_NEAR( double( back[2] ), double( a3 ), bound );
                    q.getEuler( c, back[0], back[1], back[2] );
                    EXPECT_LE( computeError(), 2 * bound );
                }
    }
    // the threshold belongs to the pole
    const T pole = static_cast<T>( 0.0016F );
    for ( const T sine : { pole, std::nextafter( pole, T( 1 ) ) } )
    {
        const T expected = sine == pole ? T( PI / 2 ) : T( 0 );
        T a1, a2, a3;
        Q::matrixToEuler( { sine, 0, 0, 0, 0, -1, -1, 0, 0 }, Q::EULER_XYZ_STATIC, a1, a2, a3 );
        EXPECT_EQ( a1, expected );
        Q::matrixToEuler( { 1, 0, sine, 0, 0, -1, 0, 1, 0 }, Q::EULER_XYX_STATIC, a1, a2, a3 );
        EXPECT_EQ( a1, expected );
    }
}

ZQ_TWIN_TEST( Quaternion3, AimingIsTheShortestTurn )
{
    using Q = GeQuaternion3<T>;
    using Vector = GeVector3<T>;
    Random random( 32 );
    Q q;
    for ( int n = 0; n < 2000; ++n )
    {
        const Vector from = random.vector<T>( 5 ), to = random.vector<T>( 5 );
        q.aim( from, to );
        EXPECT_TRUE( ( q * from.computeUnit() ).isEqual( to.computeUnit(), 10 * epsilon<T> ) );
        EXPECT_TRUE( FloatUtil::isEqual( q.getMagnitude(), T( 1 ) ) );
        EXPECT_NEAR( T( 2 ) * std::acos( std::min( T( 1 ), q.getW() ) ), from.computeAngle( to ), T( 5e-3 ) );
        q.aim( from, from * T( 2 ) );
        EXPECT_EQ( q, Q() );
        // a half turn about a perpendicular, with the cosine that the single-precision half turn has
        q.aim( from, from * T( -2 ) );
        EXPECT_TRUE( ( q * from ).isEqual( -from, T( 5e-6 ) ) );
        EXPECT_TRUE( q.getW() == std::cos( T( 3.1415927F ) / T( 2 ) ) && q.getW() < T( -4e-8 ) );

        // into a plane: no turn is shorter than the angle to it; one by -a is one by 2 pi - a about the same axis
        const Vector normal = to * random.uniform<T>( T( 0.5 ), 4 );
        const T sine = from.computeUnit().dot( to.computeUnit() );
        const T error = 12 * epsilon<T> / std::sqrt( std::max( T( 1e-6 ), 1 - sine * sine ) );
        q.aim( from, GePlane3<T>( normal, random.uniform<T>( -9, 9 ) ) );
        EXPECT_LE( std::fabs( ( q * from.computeUnit() ).dot( to.computeUnit() ) ), error );
        Vector turnAxis;
        T angle = 0;
        q.getAxisAngle( turnAxis, angle );
        EXPECT_NEAR( std::min( angle, T( 2 * PI ) - angle ), std::fabs( std::asin( sine ) ), error );
    }
    // which perpendicular
    const Vector sources[] = { { 1, 2, 3 }, { 2, 3, 1 }, { 2, 1, 3 }, { 1, 1, 1 } };
    const Vector axes[] = { { 0, -3, 2 }, { -3, 2, 0 }, { 3, 0, -2 }, { -1, 1, 0 } };
    for ( int n = 0; n < 4; ++n )
    {
        q.aim( sources[n], -sources[n] );
        const Vector u = axes[n].computeUnit();
        EXPECT_TRUE( q.isEqual( Q( u.getX(), u.getY(), u.getZ(), 0 ), T( 1e-6 ) ) ) << q;
    }
    const GePlane3<T> floor( 0, 0, 3, 7 );
    for ( const T z : { T( 2 ), T( -2 ) } )
    {
        q.aim( Vector( 0, 0, z ), floor );
        EXPECT_TRUE( ( q * Vector( 0, 0, 1 ) ).isEqual( Vector( 0, -1, 0 ), T( 1e-6 ) ) ) << q;
    }
    const Q before = q;
    q.aim( Vector(), floor );
    q.aim( Vector( 1, 0, 0 ), GePlane3<T>( 0, 0, 0, 1 ) );
    EXPECT_EQ( q, before );
}

ZQ_TWIN_TEST( Quaternion3, SlerpFollowsTheGreatArc )
{
    using Q = GeQuaternion3<T>;
    Random random( 34 );
    const Real eps = epsilon<T>, close = Real( 0.999999F );
    Real condition = 0;
    for ( const Real aimed :
        { 0.0L, 1e-7L, 0.3L, 0.99L, close - 1e-6L, close - 2e-7L, close + 2e-7L, 1 - 1e-7L, 1.0L } )
        for ( int n = 0; n < 4000; ++n )
        {
            const Q q1 = makeRandomUnit<T>( random );
            const T arc = static_cast<T>( std::acos( n % 2 ? aimed : -aimed ) );
            const Q q2 = q1 * Q::makeRotation( random.direction<T>(), 2 * arc );
            const Four start = convert( q1 ), nearer = convert( q1.dot( q2 ) < 0 ? -q2 : q2 );
            const T t = random.uniform<T>( -1, 2 );
            const int spin = random.index( 4 );
            const Q q = Q::slerp( q1, q2, t, static_cast<T>( spin ) );
            const Four reference = slerp( start, nearer, t, spin, condition );
            if ( std::fabs( q1.dot( q2 ) ) > T( 0.999999F ) ) // blended, and no spins
                EXPECT_LE( computeDistance( q, start * ( 1 - Real( t ) ) + nearer * Real( t ) ), 4 * eps );
            else
                EXPECT_LE( computeDistance( q, reference ), 4 * eps * condition ) << aimed << ' ' << t << ' ' << spin;
        }
}

ZQ_TWIN_TEST( Quaternion3, InterpolationAtItsEndsAndItsThreshold )
{
    using Q = GeQuaternion3<T>;
    Random random( 35 );
    const T bound = 60 * epsilon<T>;
    for ( int n = 0; n < 500; ++n )
    {
        const Q p = makeRandomUnit<T>( random ), q = makeRandomUnit<T>( random );
        const bool isShort = Q::isShortestGreatCircle( p, q );
        const Q nearer = isShort ? q : -q;
        EXPECT_EQ( isShort, p.dot( q ) >= 0 );
        EXPECT_TRUE( Q::slerp( p, q, 1, 0 ).isEqual( nearer, bound ) );
        EXPECT_TRUE( Q::slerp( p, -p, T( 0.37 ), 0 ).isEqual( p, bound ) );
        EXPECT_TRUE( Q::lerp( p, q, 0 ) == p && Q::lerp( p, q, 1 ) == q );
        // half way and twice as far, by other roads
        Q middle = Q::bisect( p, nearer );
        EXPECT_NEAR( middle.getMagnitude() * ( p + nearer ).getMagnitude(), 1, bound );
        middle.normalize();
        EXPECT_TRUE( Q::slerp( p, q, T( 0.5 ), 0 ).isEqual( middle, bound ) );
        EXPECT_TRUE( Q::slerp( p, q, 2, 0 ).isEqual( Q::doub( p, nearer ), 4 * bound ) );

        // squad between neighbours, so that no slerp changes a sign
        Q end = p + q * T( 0.3 ), a = p + makeRandomUnit<T>( random ) * T( 0.3 ), b = end - q * T( 0.6 );
        for ( Q* unit : { &end, &a, &b } )
            unit->normalize();
        const T t = n < 2 ? T( n ) : random.uniform<T>( 0, 1 );
        Real unused = 0;
        const Four outer = slerp( convert( p ), convert( end ), t, 0, unused );
        const Four inner = slerp( convert( a ), convert( b ), t, 0, unused );
        const Four reference = slerp( outer, inner, 2 * Real( t ) * ( 1 - Real( t ) ), 0, unused );
        EXPECT_LE( computeDistance( Q::squad( p, a, b, end, t ), reference ), Real( bound ) );
    }
    EXPECT_TRUE( Q::isShortestGreatCircle( Q(), Q( 1, 0, 0, 0 ) ) ); // a right angle
    EXPECT_EQ( Q::bisect( Q(), Q() ), Q( 0, 0, 0, T( 0.5 ) ) );
    EXPECT_EQ( Q::bisect( Q(), -Q() ), Q( 0, 0, 0, 0 ) );
    // a dot product of exactly the threshold is still spherical: a spin turns it
    const T threshold = static_cast<T>( 0.999999F );
    for ( const T w : { threshold, std::nextafter( threshold, T( 2 ) ) } )
    {
        const Q q( std::sqrt( 1 - w * w ), 0, 0, w ), linear = Q::lerp( Q(), q, T( 0.5 ) );
        for ( const Q& end : { q, -q } )
            EXPECT_EQ( ( Q::slerp( Q(), end, T( 0.5 ), 1 ) == linear ), w != threshold );
    }
    // the spherical way: the linear one would give 0
    EXPECT_TRUE( std::isnan( Q::slerp( Q(), Q( 0, 0, 0, ZqTest::nan<T> ), 0, 0 ).getX() ) );
}

ZQ_TWIN_TEST( Quaternion3, ExponentialAndLogarithm )
{
    using Q = GeQuaternion3<T>;
    const Real eps = epsilon<T>;
    Random random( 36 );
    for ( int n = 0; n < 2000; ++n )
    {
        const Q axis = Q::makeRotation( random.direction<T>(), T( PI ) );
        const Four u = convert( axis ) * Four{ 1, 1, 1, 0 };
        const Real a = random.uniform( 0.01, 3.1 ), sine = std::sin( a );
        const T scale = random.uniform<T>( T( 0.2 ), 5 );
        const Q q = ( axis * T( sine ) + Q() * T( std::cos( a ) ) ) * scale;
        EXPECT_LE( computeDistance( Q::log( q ), u * a ), 8 * eps * a / ( sine * sine ) );
        // exp goes by the length of the unit quaternion's vector part, which is sin(a)
        EXPECT_LE( computeDistance( Q::exp( q ), u * std::sin( sine ) + Four{ 0, 0, 0, std::cos( sine ) } ), 8 * eps );
    }
    // so the pair does not undo itself, unless the angle is 1
    const T sine = T( std::sin( 1.0 ) ), cosine = T( std::cos( 1.0 ) );
    EXPECT_TRUE( Q::exp( Q( 4, 0, 0, 0 ) ).isEqual( Q( sine, 0, 0, cosine ), T( 2e-7 ) ) );
    EXPECT_TRUE( Q::exp( Q::log( Q( 0, 0, T( 0.6 ), T( 0.8 ) ) ) ).isEqual( Q( 0, 0, sine, cosine ), T( 1e-6 ) ) );
    // the sine must be above the single-precision 1e-6, and a small |w| is below 1 - 1e-6
    const T small = static_cast<T>( 1e-6F );
    for ( const T x : { T( 0.9 ) * small, T( 2 ) * small } ) // as it is, and scaled
        EXPECT_NEAR( Q::exp( Q( x, 0, 0, 1 ) ).getX(),
            double( x < small ? x : std::sin( x ) ) / std::sqrt( 1 + double( x ) * x ), x * epsilon<T> );
    for ( const T w : { T( 0.9999989 ), T( 0.9999991 ), T( -0.9999989 ), T( -0.9999991 ) } )
    {
        const T x = std::sqrt( 1 - w * w );
        const bool isScaled = std::fabs( w ) < T( 0.999999 );
        EXPECT_NEAR( Q::log( Q( x, 0, 0, w ) ).getX(), isScaled ? std::acos( w ) : x, x / 2 );
    }
    EXPECT_EQ( Q::log( Q() ), Q( 0, 0, 0, 0 ) );
    EXPECT_EQ( Q::log( Q( 0, 0, 0, ZqTest::nan<T> ) ).getW(), T( 0 ) );
}

} // namespace
