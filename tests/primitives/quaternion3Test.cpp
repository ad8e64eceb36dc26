#include "support/matrixReference.h"
#include "support/prelude.h"

#include <zq/primitives/gePlane3.h>
#include <zq/primitives/geQuaternion3.h>

#include <fstream>
#include <map>
#include <regex>

namespace
{

using Real = long double;
using Rows = ZqTest::Rows<Real, 3>;

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
        Rows elementary{};
        elementary( k, k ) = 1;
        elementary( next, next ) = elementary( last, last ) = std::cos( angle );
        elementary( last, next ) = std::sin( angle );
        elementary( next, last ) = -std::sin( angle );
        m = multiply( m, elementary );
    }
    return m;
}

template <class Matrix>
Real computeDistance( const Matrix& m, const Rows& reference )
{
    Real distance = 0;
    ZqTest::forEachPlace<3>(
        [&]( int r, int c ) { distance = std::max( distance, std::fabs( Real( m( r, c ) ) - reference( r, c ) ) ); } );
    return distance;
}

template <class T>
GeQuaternion3<T> join( const GeVector3<T>& v, Real length, Real w )
{
    return { T( length ) * v[0], T( length ) * v[1], T( length ) * v[2], T( w ) };
}

ZQ_TWIN_SUITE( Quaternion3 );

ZQ_TWIN_TEST( Quaternion3, FormsOfOneRotationAgree )
{
    using Q = GeQuaternion3<T>;
    using Rotation = GeRotation3<T>;
    const T bound = 12 * epsilon<T>;
    Random random( 31 );
    for ( const auto n : random.runs( 2000 ) )
    {
        // the axis in spherical coordinates: turn it to Z, turn about Z, turn back
        const Real latitude = random.uniform( 0.0, 3.14 ), longitude = random.uniform( -3.14, 3.14 );
        const T angle = random.uniform<T>( -6, 6 );
        const std::vector<Real> angles{ longitude, latitude, angle, -latitude, -longitude };
        const Rows toAxis = evaluate( "Z(a1) Y(a2)", angles );
        const Rows reference = evaluate( "Z(a1) Y(a2) Z(a3) Y(a4) Z(a5)", angles );
        const GeVector3<T> axis( T( toAxis( 0, 2 ) ), T( toAxis( 1, 2 ) ), T( toAxis( 2, 2 ) ) );
        const GeVector3<T> v = random.vector<T>( 1 );
        GeVector3<T> turned;
        ZqTest::forEachPlace<3>( [&]( int r, int c ) { turned[r] += T( reference( r, c ) * v[c] ); } );

        const Q q = Q::makeRotation( axis * random.uniform<T>( T( 0.1 ), 10 ), angle ), scaled = q * T( 3 );
        const Q other = Q::makeRotation( random.direction<T>(), 2 );
        const Rotation rotation = q.getRotation();
        for ( const GeVector3<T>& form : { q * v, scaled * v, rotation * v, scaled.getRotation() * v, Q( rotation ) * v,
                  Rotation::makeRotation( axis, angle ) * v, ( q * other ) * ( other.computeConjugate() * v ),
                  scaled.computeInverse().computeConjugate() * v, scaled.getMatrix() * v, Q( rotation.getMatrix() ) * v,
                  scaled.turn( v.computeUnit() ) * v.length() } )
            EXPECT_CLOSE( form, turned, bound );
        EXPECT_EQ( ( q * GePoint3<T>( v ) ), GePoint3<T>( q * v ) );
        EXPECT_CLOSE( scaled * scaled.computeInverse(), Q(), bound );
        GeVector3<T> backAxis;
        T backAngle = 0;
        scaled.getAxisAngle( backAxis, backAngle );
        EXPECT_GE( backAngle, 0 );
        EXPECT_CLOSE( Q::makeRotation( backAxis, backAngle ), q, bound );

        GeAffineMatrix3<T> affine( rotation, v );
        GeProjectiveMatrix3<T> projective( affine );
        q.getMatrix( affine );
        q.getMatrix( projective );
        EXPECT_EQ( affine, GeAffineMatrix3<T>( rotation ) );
        EXPECT_EQ( projective, GeProjectiveMatrix3<T>( rotation ) );
    }
}

ZQ_TWIN_TEST( Quaternion3, DegenerateQuaternionsMatricesAndConventions )
{
    using Q = GeQuaternion3<T>;
    using V = GeVector3<T>;
    using Linear = GeLinearMatrix3<T>;
    Q zero( 0, 0, 0, 0 ), q;
    zero.normalize();
    EXPECT_EQ( zero.computeInverse(), Q( 0, 0, 0, 0 ) );
    EXPECT_EQ( Q( 0, 3, 0, 4 ).getMagnitude(), 25 );
    EXPECT_EQ( zero * V( 1, 2, 3 ), V( 1, 2, 3 ) );
    EXPECT_EQ( zero.getRotation(), GeRotation3<T>() );
    V axis;
    T angle = 9;
    zero.getAxisAngle( axis, angle );
    EXPECT_EQ( axis, V( 1, 0, 0 ) );
    EXPECT_EQ( angle, 0 );
    EXPECT_EQ( Q::makeRotation( V(), 0 ), Q() );
    EXPECT_EQ( ( GeRotation3<T>::makeRotation( V(), 2 ) ), GeRotation3<T>() );
    // 1 - cos of an angle whose cosine is rounded to 1
    EXPECT_NEAR( ( GeRotation3<T>::makeRotation( V( 1, 1, 0 ), T( 1e-4 ) )( 0, 1 ) ), 2.5e-9, 2e-15 );

    q.setMatrix( Linear(), 4 );
    EXPECT_NEAR( q.getW(), std::sqrt( 7.0 ) / 4, epsilon<T> );
    // a trace of 0 still starts from w
    q.setMatrix( Linear( 1, 0, 0, 0, -1, 0, 0, 0, 0 ) );
    EXPECT_EQ( q, Q( 0, 0, 0, T( 0.5 ) ) );

    // reports come before anything is stored
    const Q before = q = Q( 1, 2, 3, 4 );
    EXPECT_REPORT( q.setMatrix( Linear( -1, 0, 0, 0, -1, 0, 0, 0, -1 ), -1 ), FILE_NAME, "s != 0" );
    EXPECT_REPORT( q.setMatrix( Linear(), 0 ), FILE_NAME, "m44 != 0" );
    EXPECT_EQ( q, before );
}

/// A row of docs/eulerConventions.md, which is what a user goes by.
template <class T>
struct EulerRow
{
    std::string name;
    typename GeQuaternion3<T>::EulerConvention convention;
    std::string product; // like "Z(a3) Y(a2) X(a1)"
    T low, high;         // of the middle angle
    int zeroAtPole;      // the index of the angle that is zero at a pole
};

template <class T>
std::vector<EulerRow<T>> readEulerRows()
{
    const std::regex pattern( R"(\| `(EULER_\w+)` \| ([0-9]+) \| (.*) \| \[(.*), (.*)\] \| a([13]) \|)" );
    const std::map<std::string, Real> numbers{
        { "-pi", -PI }, { "-pi/2", -PI / 2 }, { "0", 0 }, { "pi/2", PI / 2 }, { "pi", PI } };
    std::ifstream page( ZQ_DOCS_DIR "/eulerConventions.md" );
    std::vector<EulerRow<T>> rows;
    std::smatch cells;
    for ( std::string text; std::getline( page, text ); )
        if ( std::regex_match( text, cells, pattern ) )
            rows.push_back( { cells[1], typename GeQuaternion3<T>::EulerConvention( std::stoi( cells[2] ) ), cells[3],
                T( numbers.at( cells[4] ) ), T( numbers.at( cells[5] ) ), std::stoi( cells[6] ) - 1 } );
    return rows;
}

ZQ_TWIN_TEST( Quaternion3, EulerConventionsHaveTheNumbersOfTheirRows )
{
    using Q = GeQuaternion3<T>;
    const std::vector<int> inOrder{ Q::EULER_XYZ_STATIC, Q::EULER_YZX_STATIC, Q::EULER_ZXY_STATIC, Q::EULER_XZY_STATIC,
        Q::EULER_YXZ_STATIC, Q::EULER_ZYX_STATIC, Q::EULER_XYX_STATIC, Q::EULER_YZY_STATIC, Q::EULER_ZXZ_STATIC,
        Q::EULER_XZX_STATIC, Q::EULER_YXY_STATIC, Q::EULER_ZYZ_STATIC, Q::EULER_ZYX_ROTATING, Q::EULER_XZY_ROTATING,
        Q::EULER_YXZ_ROTATING, Q::EULER_YZX_ROTATING, Q::EULER_ZXY_ROTATING, Q::EULER_XYZ_ROTATING,
        Q::EULER_XYX_ROTATING, Q::EULER_YZY_ROTATING, Q::EULER_ZXZ_ROTATING, Q::EULER_XZX_ROTATING,
        Q::EULER_YXY_ROTATING, Q::EULER_ZYZ_ROTATING };
    std::vector<int> found;
    for ( const EulerRow<T>& row : readEulerRows<T>() )
    {
        int i, j, k, parity, repetition, frame;
        Q::decodeEulerConvention( row.convention, i, j, k, parity, repetition, frame );
        EXPECT_EQ( Q::makeEulerConvention( i, parity, repetition, frame ), row.convention ) << row.name;
        EXPECT_EQ( repetition, row.name[6] == row.name[8] ) << row.name;
        found.push_back( row.convention );
    }
    EXPECT_EQ( found, inOrder );
}

/// Angles to matrix and quaternion and back, against the product.
template <class T>
void expectEulerAngles( const EulerRow<T>& row, T a1, T a2, T a3 )
{
    const Real eps = epsilon<T>;
    const Rows reference = evaluate( row.product, { a1, a2, a3 } );
    GeLinearMatrix3<T> m;
    GeQuaternion3<T> q;
    T back[3] = { 9, 9, 9 };
    GeQuaternion3<T>::eulerToMatrix( m, row.convention, a1, a2, a3 );
    q.setEuler( row.convention, a1, a2, a3 );
    EXPECT_EQ( GeQuaternion3<T>::makeEuler( row.convention, a1, a2, a3 ), q );
    q.getEuler( row.convention, back[0], back[1], back[2] ); // matrixToEuler() is compared in arithmeticBitsTest.cpp
    // rounded once: half a unit in the last place of 1
    EXPECT_LE( computeDistance( m, reference ), Real( 0.26 ) * eps );
    EXPECT_LE( computeDistance( q.getRotation(), reference ), 5 * eps );
    EXPECT_LE( std::fabs( back[0] ), T( PI ) );
    EXPECT_LE( std::fabs( back[2] ), T( PI ) );
    EXPECT_GE( back[1], row.low );
    EXPECT_LE( back[1], row.high );
    const bool isRepeated = row.name[6] == row.name[8];
    const Real fromPole = std::fabs( isRepeated ? std::sin( Real( a2 ) ) : std::cos( Real( a2 ) ) );
    const bool isPole = fromPole < Real( 0.0016 );
    const Rows rebuilt = evaluate( row.product, { back[0], back[1], back[2] } );
    EXPECT_LE( computeDistance( m, rebuilt ), isPole ? 2 * fromPole + 5e-4L : 6 * eps / fromPole );
    if ( isPole )
    {
        EXPECT_EQ( back[row.zeroAtPole], 0 );
    }
}

ZQ_TWIN_TEST( Quaternion3, EulerAnglesAreTheProductsThatTheirRowsState )
{
    Random random( 33 );
    for ( const EulerRow<T>& row : readEulerRows<T>() )
    {
        SCOPED_TRACE( row.name );
        // the ends are poles; between a pole and the threshold the outer axes are taken for parallel
        const T middles[] = { row.low, row.high - T( 1e-5 ), row.high - T( 8e-4 ), row.high - T( 0.00159 ), row.high };
        for ( const auto n : random.runs( 1000 ) )
        {
            const T a1 = random.uniform<T>( -7, 7 ), a3 = random.uniform<T>( T( -3.1 ), T( 3.1 ) );
            expectEulerAngles( row, a1, n < 250 ? middles[n % 5] : random.uniform( row.low, row.high ), a3 );
        }
    }
}

ZQ_TWIN_TEST( Quaternion3, AimingIsTheShortestTurn )
{
    using Q = GeQuaternion3<T>;
    using V = GeVector3<T>;
    Random random( 32 );
    Q q;
    for ( const auto n : random.runs( 2000 ) )
    {
        const V from = random.vector<T>( 5 ), to = random.vector<T>( 5 ), target = to.computeUnit();
        q.aim( from, to );
        EXPECT_CLOSE( q * from.computeUnit(), target, 10 * epsilon<T> );
        EXPECT_NEAR( T( 2 ) * std::acos( std::min( T( 1 ), q.getW() ) ), from.computeAngle( to ), T( 5e-3 ) );
        q.aim( from, from + target * ( from.length() * T( 1e-4 ) ) );
        EXPECT_EQ( q, Q() ); // counts as parallel
        // a half turn about a perpendicular, with the cosine that the single-precision half turn has
        q.aim( from, from * T( -2 ) );
        EXPECT_CLOSE( q * from, -from, T( 5e-6 ) );
        EXPECT_EQ( q.getW(), std::cos( T( 3.1415927F ) / T( 2 ) ) );
        EXPECT_LT( q.getW(), T( -4e-8 ) );

        // into a plane: along what remains without the part along the normal
        const T sine = target.dot( from.computeUnit() );
        const V foot = ( from.computeUnit() - target * sine ).computeUnit();
        q.aim( from, GePlane3<T>( to, random.uniform<T>( -9, 9 ) ) );
        const T error = 12 * epsilon<T> / std::sqrt( std::max( T( 1e-6 ), 1 - sine * sine ) );
        EXPECT_CLOSE( q * from.computeUnit(), foot, error );
    }
    // any perpendicular will do, for each axis another
    for ( const V& v : { V( 2, 0, 0 ), V( 0, 2, 0 ), V( 0, 0, 2 ) } )
    {
        q.aim( v, -v );
        EXPECT_CLOSE( q * v, -v, T( 5e-6 ) );
    }
    const GePlane3<T> floor( 0, 0, 3, 7 );
    for ( const V& v : { V( 0, 0, 2 ), V( 0, 0, -2 ), V() } ) // the last changes nothing
    {
        q.aim( v, floor );
        q.aim( V( 1, 0, 0 ), GePlane3<T>( 0, 0, 0, 1 ) );
        EXPECT_CLOSE( q * V( 0, 0, 1 ), V( 0, -1, 0 ), T( 1e-6 ) );
    }
}

ZQ_TWIN_TEST( Quaternion3, InterpolationFollowsTheGreatArc )
{
    using Q = GeQuaternion3<T>;
    Random random( 34 );
    const T eps = epsilon<T>, bound = 60 * eps;
    for ( const auto n : random.runs( 2000 ) )
    {
        const Q p = Q::makeRotation( random.direction<T>(), 2 );
        const GeVector3<T> axis = random.direction<T>();
        const auto onArc = [&]( Real arc ) { return p * join( axis, std::sin( arc ), std::cos( arc ) ); };
        const Real arc = random.uniform( 0.5, 1.1 ), t = random.uniform( -1.0, 2.0 ), spin = random.index( 4 );
        const Q q = onArc( arc );
        EXPECT_TRUE( Q::isShortestGreatCircle( p, q ) );
        EXPECT_FALSE( Q::isShortestGreatCircle( p, -q ) );
        // right angles, and where slerp goes over to lerp, which has no spins; below, a spin magnifies the error of the arc
        for ( const Real turn :
            { arc, PI / 2 - Real( random.uniform( 1e-4, 0.1 ) ), Real( random.uniform( 1e-3, 2e-3 ) ), arc * 1e-3L } )
        {
            const Q end = onArc( turn );
            const bool isLinear = p.dot( end ) > T( 0.9999989867210388 );
            const Q expected = onArc( t * ( turn + ( isLinear ? 0 : spin * PI ) ) );
            const Real error = isLinear ? 3 * turn * turn : spin * eps * 8 / ( turn * turn );
            EXPECT_CLOSE( Q::slerp( p, end, T( t ), T( spin ) ), expected, bound + T( error ) );
            EXPECT_CLOSE( Q::slerp( p, -end, T( t ), T( spin ) ), expected, bound + T( error ) );
            EXPECT_EQ( Q::slerp( p, end, T( t ) ), Q::slerp( p, end, T( t ), T( 0 ) ) );
        }
        EXPECT_CLOSE( Q::doub( p, q ), onArc( 2 * arc ), bound );
        EXPECT_CLOSE( Q::bisect( p, q ), onArc( arc / 2 ) * T( 0.5L / std::cos( arc / 2 ) ), bound );
        EXPECT_EQ( Q::lerp( p, q, 0 ), p );
        EXPECT_EQ( Q::lerp( p, q, 1 ), q );
        // squad with all four on one arc
        const Real u = ( t + 1 ) / 3, lead = 0.2L + u / 5;
        EXPECT_CLOSE( Q::squad( p, onArc( 0.2L ), onArc( arc + 0.4L ), q, T( u ) ),
            onArc( u * arc + 2 * u * ( 1 - u ) * lead ), bound );
    }
    EXPECT_TRUE( Q::isShortestGreatCircle( Q(), Q( 1, 0, 0, 0 ) ) ); // a right angle
    EXPECT_EQ( Q::bisect( Q(), -Q() ), Q( 0, 0, 0, 0 ) );
}

ZQ_TWIN_TEST( Quaternion3, ExponentialAndLogarithm )
{
    using Q = GeQuaternion3<T>;
    Random random( 36 );
    for ( const auto n : random.runs( 2000 ) )
    {
        const GeVector3<T> u = random.direction<T>();
        const Real a = random.uniform( 0.01, 3.1 ), sine = std::sin( a );
        const Q q = join( u, sine, std::cos( a ) ) * random.uniform<T>( T( 0.2 ), 5 );
        const T eps = 8 * epsilon<T>;
        EXPECT_CLOSE( Q::log( q ), join( u, a, 0 ), eps * T( a / ( sine * sine ) ) );
        // exp goes by the length of the unit quaternion's vector part, which is sin(a)
        EXPECT_CLOSE( Q::exp( q ), join( u, std::sin( sine ), std::cos( sine ) ), eps );
    }
    // from |w| = 1 - 1e-6 on the vector part stays as it is, here far from pi
    EXPECT_GT( Q::log( Q( T( 1.48324e-3 ), 0, 0, T( -0.9999989 ) ) ).getX(), T( 3 ) );
    EXPECT_LT( Q::log( Q( T( 1.34164e-3 ), 0, 0, T( -0.9999991 ) ) ).getX(), T( 2e-3 ) );
}

} // namespace
