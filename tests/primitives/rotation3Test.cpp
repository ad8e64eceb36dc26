#include "support/random.h"
#include "support/report.h"
#include "support/scalars.h"

#include <zq/primitives/geXAxisRotation3.h>
#include <zq/primitives/geYAxisRotation3.h>
#include <zq/primitives/geZAxisRotation3.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <type_traits>
#include <vector>

using namespace Zq;
using ZqTest::Random;

namespace
{

using R = long double;

const double PI = 3.14159265358979323846;

/// The largest deviation from orthonormality with determinant 1, in long double.
template <class T>
R computeDefect( const GeLinearMatrix3<T>& m )
{
    R defect = 0;
    for ( int i = 0; i < 3; ++i )
    {
        for ( int j = 0; j < 3; ++j )
        {
            R rows = 0;
            for ( int k = 0; k < 3; ++k )
                rows += R( m( i, k ) ) * m( j, k );
            const R deviation = std::fabs( rows - ( i == j ? 1 : 0 ) );
            defect = deviation <= defect ? defect : deviation; // NaN comes through
        }
    }
    R determinant = 0;
    for ( int i = 0; i < 3; ++i )
        determinant += R( m( 0, i ) ) *
            ( R( m( 1, ( i + 1 ) % 3 ) ) * m( 2, ( i + 2 ) % 3 ) - R( m( 1, ( i + 2 ) % 3 ) ) * m( 2, ( i + 1 ) % 3 ) );
    return std::max( defect, std::fabs( determinant - 1 ) );
}

template <class T>
GeVector3<T> getRow( const GeLinearMatrix3<T>& m, int row )
{
    return { m( row, 0 ), m( row, 1 ), m( row, 2 ) };
}

ZQ_TWIN_SUITE( Rotation3 );

// General rotations ----------------------------------------------------------------------------------------------

TYPED_TEST( Rotation3, RotationAboutAnAxisAgainstALongDoubleReference )
{
    using T = TypeParam;
    Random random( 50 );
    for ( int i = 0; i < 1000; ++i )
    {
        const GeVector3<T> axis = random.vector<T>( 5 );
        const T angle = random.uniform<T>( -7, 7 );
        const GeVector3<T> v = random.vector<T>( 1 );
        // v = parallel + perpendicular; the perpendicular part turns in its plane
        const R ax = axis.getX(), ay = axis.getY(), az = axis.getZ(), size = std::sqrt( ax * ax + ay * ay + az * az );
        const R u[3] = { ax / size, ay / size, az / size }, p[3] = { v.getX(), v.getY(), v.getZ() };
        const R along = u[0] * p[0] + u[1] * p[1] + u[2] * p[2];
        const GeRotation3<T> rotation = GeRotation3<T>::makeRotation( axis, angle );
        const GeVector3<T> turned = rotation * v;
        for ( int k = 0; k < 3; ++k )
        {
            const int m = ( k + 1 ) % 3, n = ( k + 2 ) % 3;
            const R expected = u[k] * along + ( p[k] - u[k] * along ) * std::cos( R( angle ) ) +
                ( u[m] * p[n] - u[n] * p[m] ) * std::sin( R( angle ) );
            EXPECT_NEAR( double( turned[k] ), double( expected ), 12 * double( ZqTest::epsilon<T> ) );
        }
        EXPECT_LE( computeDefect<T>( rotation ), 12 * R( ZqTest::epsilon<T> ) );
        EXPECT_EQ( rotation * GePoint3<T>( v ), GePoint3<T>( turned ) );
        const GeRotation3<T> back = GeRotation3<T>::makeRotation( axis, -angle );
        EXPECT_TRUE( back.isEqual( rotation.computeInverse(), 2 * ZqTest::epsilon<T> ) );
        EXPECT_TRUE( ( rotation * back ).isEqual( GeRotation3<T>(), 12 * ZqTest::epsilon<T> ) );
    }
    // tiny angles do not drown in 1 - cos
    const GeRotation3<T> tiny = GeRotation3<T>::makeRotation( GeVector3<T>( 1, 1, 0 ), T( 1e-4 ) );
    EXPECT_NEAR( double( tiny( 0, 1 ) ), 2.5e-9, 2.5e-9 * 8 * double( ZqTest::epsilon<T> ) + 1e-17 );
    EXPECT_EQ( ( GeRotation3<T>::makeRotation( GeVector3<T>(), 2 ) ), GeRotation3<T>() );
}

TYPED_TEST( Rotation3, ProductsOfRotationsAreRotationsAndOthersAreMatrices )
{
    using T = TypeParam;
    using Rotation = GeRotation3<T>;
    using Linear = GeLinearMatrix3<T>;
    using Affine = GeAffineMatrix3<T>;
    static_assert( std::is_convertible_v<Rotation, Linear> && !std::is_convertible_v<Linear, Rotation> );
    static_assert( std::is_same_v<decltype( Rotation() * Rotation() ), Rotation> );
    static_assert( std::is_same_v<decltype( Rotation() * Linear() ), Linear> );
    static_assert( std::is_same_v<decltype( Linear() * Rotation() ), Linear> );
    static_assert( std::is_same_v<decltype( Rotation() * Affine() ), Affine> );
    static_assert( std::is_same_v<decltype( Affine() * Rotation() ), Affine> );

    // quarter turns about x and z, written down by hand
    const Rotation x( Linear( 1, 0, 0, 0, 0, -1, 0, 1, 0 ) ), z( Linear( 0, -1, 0, 1, 0, 0, 0, 0, 1 ) );
    const Affine a( Linear( 1, 2, 3, 4, 5, 6, 7, 8, 10 ), GeVector3<T>( 1, 2, 3 ) );
    const GePoint3<T> p( 3, 5, 7 );
    EXPECT_EQ( x * p, ( GePoint3<T>( 3, -7, 5 ) ) );
    EXPECT_EQ( ( z * x ) * p, z * ( x * p ) );
    EXPECT_EQ( ( x * z ) * p, x * ( z * p ) );
    EXPECT_EQ( ( x * a ) * p, x * ( a * p ) );
    EXPECT_EQ( ( a * x ) * p, a * ( x * p ) );
    EXPECT_EQ( ( x * a.getLinear() ) * p, x * ( a.getLinear() * p ) );
    EXPECT_EQ( ( a.getLinear() * x ) * p, a.getLinear() * ( x * p ) );
    EXPECT_EQ( ( GeScale3<T>( 1, 2, 3 ) * x ) * p, ( GePoint3<T>( 3, -14, 15 ) ) );
    Rotation all = z;
    all *= x;
    EXPECT_EQ( all, z * x );
    EXPECT_NE( all, x * z );
    EXPECT_EQ( x * x.computeInverse(), Rotation() );
    std::ostringstream os;
    os << z;
    EXPECT_EQ( os.str(), "| 0 -1 0 |\n| 1 0 0 |\n| 0 0 1 |\n" );
}

// Frames ---------------------------------------------------------------------------------------------------------

/// Directions of all kinds: random ones, coordinate axes, ties between components, none at all.
template <class T>
std::vector<GeUnitVector3<T>> makeDirections( Random& random, int count )
{
    std::vector<GeUnitVector3<T>> directions( 1 ); // zero
    for ( int i = 0; i < 27; ++i )
    {
        if ( i != 13 )
            directions.push_back( GeUnitVector3<T>( T( i % 3 - 1 ), T( i / 3 % 3 - 1 ), T( i / 9 - 1 ) ) );
    }
    for ( int i = 0; i < count; ++i )
        directions.push_back( random.direction<T>() );
    // nearly along an axis
    directions.push_back( GeUnitVector3<T>( T( 1e-6 ), 1, T( -1e-6 ) ) );
    directions.push_back( GeUnitVector3<T>( T( 1e-12 ), T( 1e-12 ), -1 ) );
    return directions;
}

/// What every frame promises; returns basis vector `axis`.
template <class T, class Aim>
GeLinearMatrix3<T> checkFrame( const GeUnitVector3<T>& direction, int aimAxis, Aim&& aim )
{
    const GeRotation3<T> rows = aim( true );
    const GeRotation3<T> columns = aim( false );
    EXPECT_EQ( columns, rows.computeInverse() );
    // a pair of axes may be off by up to the default tolerance
    EXPECT_LE( computeDefect<T>( rows ), sizeof( T ) == 4 ? 2e-6L : 2e-7L ) << direction << ' ' << rows;
    const bool isZero = direction.length() == T( 0 );
    EXPECT_EQ( getRow<T>( rows, aimAxis ), isZero ? GeVector3<T>( 0, 0, -1 ) : GeVector3<T>( direction ) );
    return rows;
}

TYPED_TEST( Rotation3, AimAtADirectionForEveryAxis )
{
    using T = TypeParam;
    Random random( 51 );
    for ( const GeUnitVector3<T>& direction : makeDirections<T>( random, 500 ) )
    {
        for ( int axis = 0; axis < 3; ++axis )
        {
            const GeLinearMatrix3<T> rows = checkFrame<T>(
                direction, axis, [&]( bool asRows ) { return GeRotation3<T>::aim( direction, axis, asRows ); } );
            EXPECT_LE( computeDefect( rows ), 8 * R( ZqTest::epsilon<T> ) );
            // the last basis vector has no part along the axis of the smallest component
            const GeVector3<T> w = getRow( rows, axis ), last = getRow( rows, ( axis + 2 ) % 3 );
            const T x = std::fabs( w[0] ), y = std::fabs( w[1] ), z = std::fabs( w[2] );
            const int fallback = y <= x ? ( y <= z ? 1 : 2 ) : ( x <= z ? 0 : 2 );
            EXPECT_EQ( last[fallback], T( 0 ) );
            EXPECT_LT( getRow( rows, ( axis + 1 ) % 3 )[fallback], T( -0.5 ) ); // the fallback axes are negative
        }
    }
    // by hand: columns (w, c, b) in cyclic order from column 2
    EXPECT_EQ( ( GeRotation3<T>::aim( GeUnitVector3<T>( 0, 0, 1 ), 2, false ).getMatrix() ),
        ( GeLinearMatrix3<T>( 0, 1, 0, -1, 0, 0, 0, 0, 1 ) ) );
}

TYPED_TEST( Rotation3, AimWithUpForEveryPairOfAxes )
{
    using T = TypeParam;
    Random random( 52 );
    const std::vector<GeUnitVector3<T>> directions = makeDirections<T>( random, 120 );
    for ( const GeUnitVector3<T>& direction : directions )
    {
        std::vector<GeVector3<T>> ups{ GeVector3<T>(), GeVector3<T>( 0, 1, 0 ), GeVector3<T>( 0, 0, -3 ) };
        for ( int i = 0; i < 4; ++i )
            ups.push_back( random.vector<T>( T( 10 ) ) );
        // parallel, and nearer and nearer to parallel
        for ( const T factor : { T( 1 ), T( -1 ), T( 2 ), T( 3 ), T( -0.7 ), T( 1e6 ) } )
            ups.push_back( direction * factor );
        for ( int i = 0; i < 10; ++i )
            ups.push_back( direction * T( 5 ) +
                random.vector<T>( static_cast<T>( std::pow( 10, random.uniform( -17.0, -1.0 ) ) ) ) );
        for ( const GeVector3<T>& up : ups )
        {
            for ( int pair = 0; pair < 9; ++pair )
            {
                const int axis = pair % 3, plane = pair / 3;
                if ( axis == plane )
                    continue;
                const GeLinearMatrix3<T> rows = checkFrame<T>( direction, axis,
                    [&]( bool asRows ) { return GeRotation3<T>::aim( direction, up, axis, plane, asRows ); } );
                // in the plane of direction and up, on the side of up: as far as up tells a plane from rounding
                const GeVector3<double> w( getRow( rows, axis ) ), q( getRow( rows, plane ) ), exactUp( up );
                const GeVector3<double> p = exactUp - w * ( w.dot( exactUp ) / w.lengthSquared() );
                if ( p.length() <= 64 * double( ZqTest::epsilon<T> ) * exactUp.length() )
                    continue;
                const double out = double( getRow( rows, 3 - axis - plane ).dot( up ) );
                EXPECT_LE( std::fabs( out ), 8 * double( ZqTest::epsilon<T> ) * exactUp.length() ) << direction << up;
                EXPECT_GT( q.dot( p ), 0.9 * p.length() ) << direction << up;
            }
        }
    }
}

TYPED_TEST( Rotation3, AParallelUpTakesTheFallbackAxis )
{
    using T = TypeParam;
    // by hand: w = z, e = (0, -1, 0), q = w x e = (1, 0, 0), t = q x w = (0, -1, 0), which (0, 2) turns to (0, 1, 0)
    const GeUnitVector3<T> z( 0, 0, 1 );
    for ( const GeVector3<T>& up : { GeVector3<T>( 0, 0, 2 ), GeVector3<T>( 0, 0, -1 ), GeVector3<T>() } )
        EXPECT_EQ( ( GeRotation3<T>::aim( z, up, 2, 0, false ) ), GeRotation3<T>() ) << up;
    // too short for its square to be told from zero
    const T tiny = std::numeric_limits<T>::min();
    EXPECT_EQ( ( GeRotation3<T>::aim( z, GeVector3<T>( 0, tiny, 0 ), 2, 0, false ) ), GeRotation3<T>() );
}

TYPED_TEST( Rotation3, AimAtAPolygon )
{
    using T = TypeParam;
    using Points = std::vector<GePoint3<T>>;
    const auto aim = []( const Points& points, int aimAxis, int planeAxis, bool asRows )
    { return GeRotation3<T>::aim( static_cast<int>( points.size() ), points.data(), aimAxis, planeAxis, asRows ); };

    const GeLinearMatrix3<T> triangle = aim( { { 0, 0, 0 }, { 1, 0, 0 }, { 0, 1, 0 } }, 2, 0, true );
    const T half = std::sqrt( T( 0.5 ) );
    EXPECT_EQ( getRow( triangle, 2 ), ( GeVector3<T>( 0, 0, 1 ) ) );
    EXPECT_TRUE( getRow( triangle, 0 ).isEqual( GeVector3<T>( -half, half, 0 ), 2 * ZqTest::epsilon<T> ) );
    // the other winding, and a tie between edges of length 2: the first one wins, wherever the list begins
    EXPECT_EQ(
        getRow<T>( aim( { { 0, 1, 0 }, { 1, 0, 0 }, { 0, 0, 0 } }, 2, 0, true ), 2 ), ( GeVector3<T>( 0, 0, -1 ) ) );
    Points rectangle{ { 0, 0, 3 }, { 2, 0, 3 }, { 2, 1, 3 }, { 0, 1, 3 } };
    for ( const T x : { T( 1 ), T( -1 ), T( -1 ), T( 1 ) } )
    {
        EXPECT_EQ( getRow<T>( aim( rectangle, 2, 0, true ), 0 ), ( GeVector3<T>( x, 0, 0 ) ) );
        std::rotate( rectangle.begin(), rectangle.begin() + 1, rectangle.end() );
    }
    // a concave polygon whose first corner turns the wrong way, with its longest edge last
    const Points arrow{ { 1, 1, 0 }, { 0, 2, 0 }, { 0, -3, 0 }, { 6, 0, 0 } };
    EXPECT_EQ( getRow<T>( aim( arrow, 0, 1, true ), 0 ), ( GeVector3<T>( 0, 0, 1 ) ) );

    Random random( 53 );
    for ( int i = 0; i < 300; ++i )
    {
        // a polygon in a known frame, with one long edge from the second corner to the third
        const GeUnitVector3<T> normal = random.direction<T>();
        const GeLinearMatrix3<T> frame = GeRotation3<T>::aim( normal, 2, false );
        const T z = random.uniform<T>( -1, 1 );
        Points points;
        for ( const GeVector3<T>& corner : { GeVector3<T>( -1, -1, z ), GeVector3<T>( 0, T( -1.5 ), z ),
                  GeVector3<T>( 2, T( 1.25 ), z ), GeVector3<T>( 0, 2, z ), GeVector3<T>( T( -1.5 ), 1, z ) } )
            points.push_back( GePoint3<T>( frame * corner ) );
        const int aimAxis = i % 3, planeAxis = ( i + 1 + i / 3 % 2 ) % 3;
        const GeRotation3<T> rows = aim( points, aimAxis, planeAxis, true );
        EXPECT_EQ( aim( points, aimAxis, planeAxis, false ), rows.computeInverse() );
        EXPECT_LE( computeDefect<T>( rows ), 16 * R( ZqTest::epsilon<T> ) );
        EXPECT_TRUE( getRow<T>( rows, aimAxis ).isEqual( normal, 16 * ZqTest::epsilon<T> ) );
        const GeVector3<T> edge = ( points[2] - points[1] ).computeUnit();
        EXPECT_TRUE( getRow<T>( rows, planeAxis ).isEqual( edge, 16 * ZqTest::epsilon<T> ) );
    }
}

TYPED_TEST( Rotation3, FramesReportInTheOrderOfTheirChecks )
{
    using T = TypeParam;
    using F = GeRotation3<T>;
    const char* file = "src/primitives/geRotation3.imp";
    const GeUnitVector3<T> x( 1, 0, 0 );
    const GeVector3<T> up( 0, 1, 0 );
    const T nan = ZqTest::nan<T>, huge = std::numeric_limits<T>::max() / 4;
    const GePoint3<T> flat[3] = { { 1, 1, 1 }, { 2, 2, 2 }, { 3, 3, 3 } };
    const GePoint3<T> triangle[3] = { { 0, 0, 0 }, { 1, 0, 0 }, { 0, 1, 0 } };
    EXPECT_REPORT( F::aim( x, -1, true ), file, "aimAxis >= 0 && aimAxis <= 2" );
    EXPECT_REPORT( F::aim( x, up, 3, 3, true ), file, "aimAxis >= 0 && aimAxis <= 2" );
    EXPECT_REPORT( F::aim( x, up, 0, -1, true ), file, "planeAxis >= 0 && planeAxis <= 2" );
    EXPECT_REPORT( F::aim( x, up, 1, 1, true ), file, "aimAxis != planeAxis" );
    EXPECT_REPORT( F::aim( x, GeVector3<T>( 0, nan, 0 ), 1, 1, true ), file, "aimAxis != planeAxis" );
    EXPECT_REPORT( F::aim( x, GeVector3<T>( 0, nan, 0 ), 0, 1, true ), file, "len > 0" );
    // an infinite length leaves a zero vector, which is not of unit length
    EXPECT_REPORT( F::aim( x, GeVector3<T>( 0, huge, 0 ), 0, 1, true ), "src/primitives/geVector3.inline",
        "FloatUtil::isEqual( length(), static_cast<T>(1.0) )" );
    EXPECT_REPORT( F::aim( 2, nullptr, 5, 5, true ), file, "nbPoints >= 3" );
    EXPECT_REPORT( F::aim( 3, nullptr, 5, 5, true ), file, "points != 0" );
    EXPECT_REPORT( F::aim( 3, flat, 5, 5, true ), file, "len > 0" );
    EXPECT_REPORT( F::aim( 3, triangle, 5, 5, true ), file, "aimAxis >= 0 && aimAxis <= 2" );
    EXPECT_REPORT( F::aim( 3, triangle, 2, 2, true ), file, "aimAxis != planeAxis" );
}

// Axis rotations -------------------------------------------------------------------------------------------------

template <class T, int axis>
void checkAxisRotation( Random& random )
{
    using Linear = GeLinearMatrix3<T>;
    using Affine = GeAffineMatrix3<T>;
    const T angle = random.uniform<T>( -7, 7 );
    const GeAxisRotation3<axis, T> rotation( angle );
    // the matrix, from what it does: the axis stays, the next coordinate axis turns towards the one after it
    GeVector3<T> basis[3];
    for ( int i = 0; i < 3; ++i )
        basis[i][i] = T( 1 );
    const GeVector3<T>& u = basis[( axis + 1 ) % 3];
    const GeVector3<T>& v = basis[( axis + 2 ) % 3];
    const T c = static_cast<T>( std::cos( R( angle ) ) ), s = static_cast<T>( std::sin( R( angle ) ) );
    const Linear m = rotation.getMatrix();
    EXPECT_EQ( m * basis[axis], basis[axis] );
    EXPECT_TRUE( ( m * u ).isEqual( u * c + v * s, 2 * ZqTest::epsilon<T> ) );
    EXPECT_TRUE( ( m * v ).isEqual( v * c - u * s, 2 * ZqTest::epsilon<T> ) );
    EXPECT_TRUE( m.isEqual( GeRotation3<T>::makeRotation( basis[axis], angle ), 4 * ZqTest::epsilon<T> ) );

    // folded products equal the full ones, which only add zeros
    const GeVector3<T> a = random.vector<T>( 3 ), b = random.vector<T>( 3 );
    const Linear l( a, b, random.vector<T>( 3 ) );
    const Affine f( l, random.vector<T>( 3 ) );
    const GeScale3<T> scale( a );
    const Linear diagonal( a.getX(), 0, 0, 0, a.getY(), 0, 0, 0, a.getZ() );
    const GeTranslation3<T> move( b );
    const GeRotation3<T> general = GeRotation3<T>::makeRotation( a, angle );
    EXPECT_EQ( rotation * l, m * l );
    EXPECT_EQ( rotation.mulOnRight( l ), l * m );
    EXPECT_EQ( rotation * f, Affine( m ) * f );
    EXPECT_EQ( rotation.mulOnRight( f ), f * Affine( m ) );
    EXPECT_EQ( rotation * scale, m * diagonal );
    EXPECT_EQ( rotation.mulOnRight( scale ), diagonal * m );
    EXPECT_EQ( rotation * move, Affine( m ) * Affine( Linear(), b ) );
    EXPECT_EQ( rotation.mulOnRight( move ), Affine( Linear(), b ) * Affine( m ) );
    EXPECT_EQ( ( rotation * general ).getMatrix(), m * general.getMatrix() );
    EXPECT_EQ( rotation.mulOnRight( general ).getMatrix(), general.getMatrix() * m );
    static_assert( std::is_same_v<decltype( rotation * general ), GeRotation3<T>> );
    EXPECT_EQ( rotation * a, m * a );
    EXPECT_EQ( rotation * GePoint3<T>( a ), GePoint3<T>( m * a ) );
    EXPECT_EQ( rotation.computeInverse().getMatrix(), m.computeTranspose() );

    // what the axis leaves alone is copied, and no infinity meets a known zero
    const T infinity = ZqTest::infinity<T>;
    GeVector3<T> far;
    far[axis] = infinity;
    EXPECT_EQ( rotation * far, far );
    Linear wild = l;
    wild( axis, 0 ) = infinity;
    wild( axis, 1 ) = T( -0.0 );
    EXPECT_EQ( ( rotation * wild )( axis, 0 ), infinity );
    EXPECT_TRUE( std::signbit( ( rotation * wild )( axis, 1 ) ) );
    for ( int i = 1; i < 3; ++i )
        EXPECT_EQ( ( rotation * wild )( ( axis + i ) % 3, 2 ), ( m * l )( ( axis + i ) % 3, 2 ) );
}

TYPED_TEST( Rotation3, AxisRotationsEqualTheirFullProducts )
{
    Random random( 54 );
    for ( int i = 0; i < 200; ++i )
    {
        checkAxisRotation<TypeParam, 0>( random );
        checkAxisRotation<TypeParam, 1>( random );
        checkAxisRotation<TypeParam, 2>( random );
    }
}

TYPED_TEST( Rotation3, NamedAxisRotations )
{
    using T = TypeParam;
    const T quarter = static_cast<T>( PI / 2 );
    const GeXAxisRotation3<T> x( quarter );
    const GeYAxisRotation3<T> y( quarter );
    const GeZAxisRotation3<T> z( quarter );
    const GeVector3<T> ex( 1, 0, 0 ), ey( 0, 1, 0 ), ez( 0, 0, 1 );
    EXPECT_TRUE( ( x * ey ).isEqual( ez, ZqTest::epsilon<T> ) );
    EXPECT_TRUE( ( y * ez ).isEqual( ex, ZqTest::epsilon<T> ) );
    EXPECT_TRUE( ( z * ex ).isEqual( ey, ZqTest::epsilon<T> ) );
    EXPECT_EQ( GeXAxisRotation3<T>( x.computeInverse() ).getSine(), -x.getSine() );
    EXPECT_TRUE( x.isEqual( GeXAxisRotation3<T>( 0, 1 ), ZqTest::epsilon<T> ) );
    EXPECT_FALSE( x.isEqual( x.computeInverse(), 1 ) );
    EXPECT_TRUE( x == GeXAxisRotation3<T>( quarter ) && x != x.computeInverse() );

    std::ostringstream os;
    os << GeXAxisRotation3<T>( T( 0.25 ), 2 ) << GeYAxisRotation3<T>( T( 0.25 ), 2 )
       << GeZAxisRotation3<T>( T( 0.25 ), 2 );
    EXPECT_EQ( os.str(),
        "| 1 0 0 |\n| 0 0.25 -2 |\n| 0 2 0.25 |\n"
        "| 0.25 0 2 |\n| 0 1 0 |\n| -2 0 0.25 |\n"
        "| 0.25 -2 0 |\n| 2 0.25 0 |\n| 0 0 1 |\n" );
}

} // namespace
