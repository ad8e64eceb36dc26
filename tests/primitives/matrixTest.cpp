// Linear, affine and projective matrices by themselves; inverses and products have files of their own.

#include "support/matrixReference.h"
#include "support/prelude.h"

using ZqTest::forEachPlace;
using ZqTest::randomIntegers;
using ZqTest::toRows;

namespace
{

ZQ_TWIN_SUITE( Matrix );

ZQ_TWIN_TEST( Matrix, LinearIsStoredByRowsTheOthersByColumnsWhateverTheyWereMadeFrom )
{
    using ZqTest::numbersOf;
    const std::array<T, 9> linear = { 1, 2, 3, 5, 6, 7, 9, 10, 11 };
    const std::array<T, 16> affine = { 1, 5, 9, 0, 2, 6, 10, 0, 3, 7, 11, 0, 4, 8, 12, 1 };
    const std::array<T, 16> projective = { 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16 };
    const double rows[4][4] = { { 1, 2, 3, 4 }, { 5, 6, 7, 8 }, { 9, 10, 11, 12 }, { 13, 14, 15, 16 } };
    const float columns[4][4] = { { 1, 5, 9, 13 }, { 2, 6, 10, 14 }, { 3, 7, 11, 15 }, { 4, 8, 12, 16 } };
    GeLinearMatrix3<T> l( GeVector3<T>( 1, 2, 3 ), GeVector3<T>( 5, 6, 7 ), GeVector3<T>( 9, 10, 11 ) );
    const GeAffineMatrix3<T> a( l, GeVector3<T>( 4, 8, 12 ) );
    GeProjectiveMatrix3<T> p( rows, false );
    EXPECT_EQ( numbersOf<T>( l ), linear );
    EXPECT_EQ( numbersOf<T>( GeLinearMatrix3<T>( 1, 2, 3, 5, 6, 7, 9, 10, 11 ) ), linear );
    for ( const auto& made : { a, GeAffineMatrix3<T>( rows, false ), GeAffineMatrix3<T>( columns, true ) } )
        EXPECT_EQ( numbersOf<T>( made ), affine );
    EXPECT_EQ( numbersOf<T>( GeProjectiveMatrix3<T>( a ) ), affine );
    for ( const auto& made : { p, GeProjectiveMatrix3<T>( columns, true ) } )
        EXPECT_EQ( numbersOf<T>( made ), projective );
    EXPECT_TRUE(
        a.getLinear() == l && GeProjectiveMatrix3<T>( l ) == GeProjectiveMatrix3<T>( GeAffineMatrix3<T>( l ) ) );
    // for reading, and for writing
    EXPECT_TRUE( std::as_const( l )( 1, 2 ) == 7 && a( 1, 3 ) == 8 && std::as_const( p )( 1, 3 ) == 8 );
    EXPECT_TRUE( l( 1, 2 ) == 7 && p( 1, 3 ) == 8 );
    static_assert( !std::is_convertible_v<GeLinearMatrix3<T>, GeAffineMatrix3<T>> );
    static_assert( !std::is_convertible_v<GeAffineMatrix3<T>, GeProjectiveMatrix3<T>> );
}

ZQ_TWIN_TEST( Matrix, TransposesAndMinorsOfIntegersAreExact )
{
    Random random( 42 );
    for ( int i = 0; i < 300; ++i )
    {
        const auto l = randomIntegers<GeLinearMatrix3<T>>( random, 9 );
        const auto a = randomIntegers<GeAffineMatrix3<T>>( random, 9 );
        const auto p = randomIntegers<GeProjectiveMatrix3<T>>( random, 9 ), full = GeProjectiveMatrix3<T>( a );
        forEachPlace<3>(
            [&]( int r, int c )
            {
                EXPECT_EQ( l.computeTranspose()( c, r ), l( r, c ) );
                EXPECT_EQ(
                    l.computeAdjoint()( r, c ), minorOf( toRows<T, 3>( l ), r, c ) * ( ( r + c ) % 2 ? -1 : 1 ) );
            } );
        // the projective matrix has plain minors: no checkerboard of signs
        forEachPlace<4>(
            [&]( int r, int c )
            {
                EXPECT_EQ( p.computeTranspose()( c, r ), p( r, c ) );
                EXPECT_EQ( p.computeAdjoint()( r, c ), minorOf( toRows<T, 4>( p ), r, c ) );
            } );
        EXPECT_EQ( GeProjectiveMatrix3<T>::computeTranspose( a ), full.computeTranspose() );
        EXPECT_EQ( GeProjectiveMatrix3<T>::computeAdjoint( a ), full.computeAdjoint() );
    }
}

// Where rounding decides, the stated grouping shows: the terms are s^3, 1 and -s^3.
ZQ_TWIN_TEST( Matrix, DeterminantLosesTheMiddleTermAndMinorsAddItLast )
{
    const T s = sizeof( T ) == sizeof( float ) ? T( 1024 ) : T( 1 << 18 );
    const GeLinearMatrix3<T> block( s, s, 0, 0, 1 / s, s, s, s, 1 );
    EXPECT_EQ( block.computeDeterminant(), T( 0 ) );
    GeProjectiveMatrix3<T> m;
    forEachPlace<3>( [&]( int r, int c ) { m( ( 3 + r ) % 4, ( 2 + c ) % 4 ) = block( r, c ); } );
    EXPECT_EQ( m.computeAdjoint()( 2, 1 ), T( 1 ) );
}

ZQ_TWIN_TEST( Matrix, IdentityAndZero )
{
    const GeLinearMatrix3<T> identity;
    GeLinearMatrix3<T> l( 2, 2, 2, 2, 2, 2, 2, 2, 2 );
    GeAffineMatrix3<T> a( l, GeVector3<T>( 2, 2, 2 ) );
    GeProjectiveMatrix3<T> p( a );
    a.setIdentity();
    p.setIdentity();
    EXPECT_TRUE( a == GeAffineMatrix3<T>( identity ) && p == GeProjectiveMatrix3<T>( identity ) );
    const T limit = sizeof( T ) == sizeof( float ) ? T( 1e-6 ) : T( 1e-7 );
    forEachPlace<3>(
        [&]( int r, int c )
        {
            l.setIdentity();
            l( r, c ) += limit / 2;
            EXPECT_TRUE( l.isIdentity() );
            l( r, c ) += limit;
            EXPECT_FALSE( l.isIdentity() );
        } );
    l.setZero();
    a.setZero();
    EXPECT_EQ( l, ( GeLinearMatrix3<T>( 0, 0, 0, 0, 0, 0, 0, 0, 0 ) ) );
    EXPECT_EQ( GeProjectiveMatrix3<T>( a ), GeProjectiveMatrix3<T>( l ) );
}

ZQ_TWIN_TEST( Matrix, HomogeneousArithmeticTreatsFourComponentsAlike )
{
    using Coord = GeHomogeneousCoord3<T>;
    const Coord a( 1, 2, 3, 4 ), b( 10, -20, 30, -40 );
    Coord c;
    EXPECT_TRUE( a + b == Coord( 11, -18, 33, -36 ) && a - b == Coord( -9, 22, -27, 44 ) && c == a - a );
    EXPECT_TRUE( a * T( 3 ) == Coord( 3, 6, 9, 12 ) && -a == Coord( -1, -2, -3, -4 ) );
    EXPECT_TRUE( ( c += a ) == a && ( c -= b ) == a - b && ( c *= T( 4 ) ) == ( a - b ) * T( 4 ) );
    // one reciprocal: 49 * ( 1 / 49 ) falls short of 1
    EXPECT_EQ( ( c = a * T( 49 ) ) /= T( 49 ), a * T( 49 ) * ( T( 1 ) / T( 49 ) ) );
    EXPECT_EQ( a * T( 49 ) / T( 49 ), c );
}

} // namespace
