// Linear, affine and projective matrices, alone and with each other. The inverse has a file of its own.

#include "support/matrixReference.h"
#include "support/numbers.h"
#include "support/scalars.h"

using namespace Zq;
using ZqTest::forEachPlace;
using ZqTest::Random;
using ZqTest::randomIntegers;
using ZqTest::Rows;

namespace
{

ZQ_TWIN_SUITE( Matrix );

template <class Matrix>
Rows<int, 4> integersOf( const Matrix& m )
{
    return ZqTest::toRows<int, 4>( m );
}

template <class T>
Rows<int, 4> integersOf( const GeLinearMatrix3<T>& m )
{
    return integersOf( GeAffineMatrix3<T>( m ) );
}

TYPED_TEST( Matrix, LinearIsStoredByRowsTheOthersByColumnsWhateverTheyWereMadeFrom )
{
    using T = TypeParam;
    using ZqTest::numbersOf;
    const std::array<T, 9> linear = { 1, 2, 3, 5, 6, 7, 9, 10, 11 };
    const std::array<T, 16> affine = { 1, 5, 9, 0, 2, 6, 10, 0, 3, 7, 11, 0, 4, 8, 12, 1 };
    const std::array<T, 16> projective = { 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16 };
    const double rows[4][4] = { { 1, 2, 3, 4 }, { 5, 6, 7, 8 }, { 9, 10, 11, 12 }, { 13, 14, 15, 16 } };
    const float columns[4][4] = { { 1, 5, 9, 13 }, { 2, 6, 10, 14 }, { 3, 7, 11, 15 }, { 4, 8, 12, 16 } };
    const GeLinearMatrix3<T> l( GeVector3<T>( 1, 2, 3 ), GeVector3<T>( 5, 6, 7 ), GeVector3<T>( 9, 10, 11 ) );
    const GeAffineMatrix3<T> a( l, GeVector3<T>( 4, 8, 12 ) );
    const GeProjectiveMatrix3<T> p( rows, false );
    EXPECT_EQ( numbersOf<T>( l ), linear );
    EXPECT_EQ( l, ( GeLinearMatrix3<T>( 1, 2, 3, 5, 6, 7, 9, 10, 11 ) ) );
    EXPECT_EQ( numbersOf<T>( a ), affine );
    EXPECT_EQ( numbersOf<T>( GeAffineMatrix3<T>( rows, false ) ), affine );
    EXPECT_EQ( numbersOf<T>( GeAffineMatrix3<T>( columns, true ) ), affine );
    EXPECT_EQ( numbersOf<T>( p ), projective );
    EXPECT_EQ( p, GeProjectiveMatrix3<T>( columns, true ) );
    EXPECT_EQ( numbersOf<T>( GeProjectiveMatrix3<T>( a ) ), affine );
    EXPECT_EQ( GeProjectiveMatrix3<T>( l ), GeProjectiveMatrix3<T>( GeAffineMatrix3<T>( l ) ) );
    EXPECT_EQ( a.getLinear(), l );
    // for reading, and for writing
    EXPECT_TRUE( l( 1, 2 ) == 7 && a( 1, 3 ) == 8 && p( 1, 3 ) == 8 );
    EXPECT_TRUE( GeLinearMatrix3<T>( l )( 1, 2 ) == 7 && GeProjectiveMatrix3<T>( p )( 1, 3 ) == 8 );
    static_assert( !std::is_convertible_v<GeLinearMatrix3<T>, GeAffineMatrix3<T>> );
    static_assert( !std::is_convertible_v<GeLinearMatrix3<T>, GeProjectiveMatrix3<T>> );
    static_assert( !std::is_convertible_v<GeAffineMatrix3<T>, GeProjectiveMatrix3<T>> );
}

TYPED_TEST( Matrix, ProductsAreThoseOfRowsAndColumns )
{
    using T = TypeParam;
    Random random( 31 );
    const auto expectProduct = []( auto a, const auto& b )
    {
        const Rows<int, 4> expected = multiply( integersOf( a ), integersOf( b ) );
        EXPECT_EQ( integersOf( a * b ), expected );
        EXPECT_EQ( &( a *= b ), &a );
        EXPECT_EQ( integersOf( a ), expected );
    };
    for ( int i = 0; i < 300; ++i )
    {
        const auto l = randomIntegers<GeLinearMatrix3<T>>( random, 9 ),
                   k = randomIntegers<GeLinearMatrix3<T>>( random, 9 );
        const auto a = randomIntegers<GeAffineMatrix3<T>>( random, 9 ),
                   b = randomIntegers<GeAffineMatrix3<T>>( random, 9 );
        const auto p = randomIntegers<GeProjectiveMatrix3<T>>( random, 9 );
        expectProduct( l, k );
        expectProduct( a, l );
        expectProduct( a, b );
        expectProduct( p, a );
        expectProduct( p, randomIntegers<GeProjectiveMatrix3<T>>( random, 9 ) );
        EXPECT_EQ( integersOf( a.mulOnRight( l ) ), multiply( integersOf( l ), integersOf( a ) ) );
        GeAffineMatrix3<T> square = a;
        EXPECT_EQ( square *= square, a * a );

        // a vector is a column on the right and a row on the left; a point has a fourth coordinate of 1
        const GeVector3<T> v = b.getColumn( 1 );
        const GeHomogeneousCoord3<T> h( v.getX(), v.getY(), v.getZ(), 5 ), direction( v.getX(), v.getY(), v.getZ(), 0 );
        GeHomogeneousCoord3<T> sum;
        for ( int c = 0; c < 4; ++c )
            sum += GeHomogeneousCoord3<T>( p( 0, c ), p( 1, c ), p( 2, c ), p( 3, c ) ) * ( c < 3 ? v[c] : T( 5 ) );
        EXPECT_EQ( p * h, sum );
        EXPECT_EQ( p.mulOnRight( h ), p.computeTranspose() * h );
        EXPECT_EQ( p * v, p * direction );
        EXPECT_EQ( a * v, ( a * b ).getColumn( 1 ) );
        EXPECT_EQ( a * GePoint3<T>( b.getTranslation() ), GePoint3<T>( ( a * b ).getTranslation() ) );
        EXPECT_EQ( a.mulOnRight( v ), a.getLinear().mulOnRight( v ) );
        EXPECT_EQ( l * v, GeAffineMatrix3<T>( l ) * v );
        EXPECT_EQ( l * GePoint3<T>( v ), GePoint3<T>( l * v ) );
        EXPECT_EQ( l.mulOnRight( v ), l.computeTranspose() * v );
    }
    // an infinite translation stays in its place: the bottom row takes no part
    const GeAffineMatrix3<T> far( GeLinearMatrix3<T>(), GeVector3<T>( ZqTest::infinity<T>, 0, 0 ) );
    const GeLinearMatrix3<T> turn( 0, -1, 0, 1, 0, 0, 0, 0, 1 );
    EXPECT_EQ( far * turn, ( GeAffineMatrix3<T>( turn, far.getTranslation() ) ) );
    EXPECT_EQ( far * GeAffineMatrix3<T>( turn ), far * turn );
}

TYPED_TEST( Matrix, TransposesMinorsAndDeterminantsOfIntegersAreExact )
{
    using T = TypeParam;
    Random random( 42 );
    for ( int i = 0; i < 300; ++i )
    {
        const auto a = randomIntegers<GeAffineMatrix3<T>>( random, 9 );
        const GeLinearMatrix3<T> l = a.getLinear(), lTranspose = l.computeTranspose(), lAdjoint = l.computeAdjoint();
        const auto rows = ZqTest::toRows<int, 3>( l );
        EXPECT_EQ( int( l.computeDeterminant() ), determinantOf( rows ) );
        EXPECT_EQ( a.computeDeterminant(), l.computeDeterminant() );
        forEachPlace<3>(
            [&]( int r, int c )
            {
                EXPECT_EQ( int( lTranspose( c, r ) ), rows( r, c ) );
                EXPECT_EQ( int( lAdjoint( r, c ) ), ( r + c ) % 2 ? -minorOf( rows, r, c ) : minorOf( rows, r, c ) );
            } );
        // the projective matrix has plain minors: no checkerboard of signs
        for ( const auto& p : { randomIntegers<GeProjectiveMatrix3<T>>( random, 9 ), GeProjectiveMatrix3<T>( a ) } )
        {
            const auto transpose = p.computeTranspose(), adjoint = p.computeAdjoint();
            forEachPlace<4>(
                [&]( int r, int c )
                {
                    EXPECT_EQ( transpose( c, r ), p( r, c ) );
                    EXPECT_EQ( int( adjoint( r, c ) ), minorOf( integersOf( p ), r, c ) );
                } );
        }
        const GeProjectiveMatrix3<T> full( a );
        EXPECT_EQ( GeProjectiveMatrix3<T>::computeTranspose( a ), full.computeTranspose() );
        EXPECT_EQ( GeProjectiveMatrix3<T>::computeAdjoint( a ), full.computeAdjoint() );
    }
}

// Where rounding decides, the stated grouping shows.
TYPED_TEST( Matrix, DeterminantAndMinorsKeepTheirOwnGrouping )
{
    using T = TypeParam;
    const T s = sizeof( T ) == sizeof( float ) ? T( 1024 ) : T( 1 << 18 );
    // the terms are s^3, 1 and -s^3 in this order: the 1 is lost; a minor adds it last
    const GeLinearMatrix3<T> block( s, s, 0, 0, 1 / s, s, s, s, 1 );
    EXPECT_EQ( block.computeDeterminant(), T( 0 ) );
    for ( int row = 0; row < 4; ++row )
    {
        GeProjectiveMatrix3<T> m;
        forEachPlace<3>( [&]( int r, int c ) { m( ( row + 1 + r ) % 4, ( 2 + c ) % 4 ) = block( r, c ); } );
        EXPECT_EQ( m.computeAdjoint()( row, 1 ), T( 1 ) );
    }
    // the first product overflows before it meets its zero
    const T huge = std::numeric_limits<T>::max();
    EXPECT_TRUE( std::isnan( GeLinearMatrix3<T>( 0, huge, 0, 0, 0, huge, 0, 0, 0 ).computeDeterminant() ) );
}

TYPED_TEST( Matrix, IdentityAndZero )
{
    using T = TypeParam;
    GeLinearMatrix3<T> l( 2, 2, 2, 2, 2, 2, 2, 2, 2 );
    GeAffineMatrix3<T> a( l, GeVector3<T>( 2, 2, 2 ) );
    GeProjectiveMatrix3<T> p( a );
    l.setIdentity();
    a.setIdentity();
    p.setIdentity();
    EXPECT_TRUE( l == GeLinearMatrix3<T>() && a == GeAffineMatrix3<T>() && p == GeProjectiveMatrix3<T>() );
    EXPECT_EQ( p, GeProjectiveMatrix3<T>( l ) );
    const T limit = sizeof( T ) == sizeof( float ) ? T( 1e-6 ) : T( 1e-7 );
    for ( int i = 0; i < 27; ++i )
    {
        const T steps[] = { limit / 2, limit * 2, ZqTest::nan<T> };
        GeLinearMatrix3<T> m;
        m( i / 9, i / 3 % 3 ) += steps[i % 3];
        EXPECT_EQ( m.isIdentity(), i % 3 == 0 );
    }
    l.setZero();
    a.setZero();
    EXPECT_EQ( l, ( GeLinearMatrix3<T>( 0, 0, 0, 0, 0, 0, 0, 0, 0 ) ) );
    EXPECT_TRUE( GeProjectiveMatrix3<T>( a ) == GeProjectiveMatrix3<T>( l ) && a( 3, 3 ) == 1 );
}

TYPED_TEST( Matrix, HomogeneousArithmeticTreatsFourComponentsAlike )
{
    using T = TypeParam;
    using Coord = GeHomogeneousCoord3<T>;
    const Coord a( 1, 2, 3, 4 ), b( 10, -20, 30, -40 );
    Coord c;
    EXPECT_EQ( c, Coord( 0, 0, 0, 0 ) );
    EXPECT_EQ( a + b, Coord( 11, -18, 33, -36 ) );
    EXPECT_EQ( a - b, Coord( -9, 22, -27, 44 ) );
    EXPECT_EQ( a * T( 3 ), Coord( 3, 6, 9, 12 ) );
    EXPECT_EQ( -a, Coord( -1, -2, -3, -4 ) );
    EXPECT_TRUE(
        ( c += a ) == a && ( c -= b ) == a - b && ( c *= T( 4 ) ) == ( a - b ) * T( 4 ) && ( c /= T( 4 ) ) == a - b );
    // one reciprocal: 49 * ( 1 / 49 ) falls short of 1
    EXPECT_EQ( Coord( 49, 98, 0, 49 ) / T( 49 ), Coord( 49, 98, 0, 49 ) * ( T( 1 ) / T( 49 ) ) );
    c.setX( 1 );
    c.setY( 2 );
    c.setZ( 3 );
    c.setW( 4 );
    EXPECT_EQ( c, a );
    c.setZero();
    EXPECT_EQ( c, Coord() );
}

} // namespace
