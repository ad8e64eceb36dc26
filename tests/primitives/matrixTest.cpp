// Linear, affine and projective matrices by themselves; inverses and products have files of their own.

#include "support/matrixReference.h"
#include "support/prelude.h"

using ZqTest::forEachPlace;
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
    EXPECT_EQ( GeProjectiveMatrix3<T>( l ), GeProjectiveMatrix3<T>( GeAffineMatrix3<T>( l ) ) );
    EXPECT_EQ( a.getLinear(), l );
    // for reading, and for writing
    EXPECT_TRUE( std::as_const( l )( 1, 2 ) == 7 && a( 1, 3 ) == 8 && std::as_const( p )( 1, 3 ) == 8 );
    EXPECT_TRUE( l( 1, 2 ) == 7 && p( 1, 3 ) == 8 );
    static_assert( !std::is_convertible_v<GeLinearMatrix3<T>, GeAffineMatrix3<T>> );
    static_assert( !std::is_convertible_v<GeLinearMatrix3<T>, GeProjectiveMatrix3<T>> );
    static_assert( !std::is_convertible_v<GeAffineMatrix3<T>, GeProjectiveMatrix3<T>> );
}

ZQ_TWIN_TEST( Matrix, TransposesMinorsAndDeterminantsOfIntegersAreExact )
{
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
ZQ_TWIN_TEST( Matrix, DeterminantAndMinorsKeepTheirOwnGrouping )
{
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

ZQ_TWIN_TEST( Matrix, IdentityAndZero )
{
    const GeLinearMatrix3<T> identity, twos( 2, 2, 2, 2, 2, 2, 2, 2, 2 );
    GeLinearMatrix3<T> l = twos;
    GeAffineMatrix3<T> a( l, GeVector3<T>( 2, 2, 2 ) );
    GeProjectiveMatrix3<T> p( a );
    l.setIdentity();
    a.setIdentity();
    p.setIdentity();
    EXPECT_TRUE( l == identity && a == GeAffineMatrix3<T>( identity ) && p == GeProjectiveMatrix3<T>( identity ) );
    const T limit = sizeof( T ) == sizeof( float ) ? T( 1e-6 ) : T( 1e-7 );
    for ( const T step : { limit / 2, limit * 2, ZqTest::nan<T> } )
        forEachPlace<3>(
            [&]( int r, int c )
            {
                GeLinearMatrix3<T> m;
                m( r, c ) += step;
                EXPECT_EQ( m.isIdentity(), step < limit );
            } );
    l.setZero();
    a.setZero();
    EXPECT_EQ( l, ( GeLinearMatrix3<T>( 0, 0, 0, 0, 0, 0, 0, 0, 0 ) ) );
    EXPECT_TRUE( GeProjectiveMatrix3<T>( a ) == GeProjectiveMatrix3<T>( l ) && a( 3, 3 ) == 1 );
}

ZQ_TWIN_TEST( Matrix, HomogeneousArithmeticTreatsFourComponentsAlike )
{
    using Coord = GeHomogeneousCoord3<T>;
    const Coord a( 1, 2, 3, 4 ), b( 10, -20, 30, -40 );
    Coord c;
    EXPECT_EQ( c, Coord( 0, 0, 0, 0 ) );
    EXPECT_TRUE( a + b == Coord( 11, -18, 33, -36 ) && a - b == Coord( -9, 22, -27, 44 ) );
    EXPECT_TRUE( a * T( 3 ) == Coord( 3, 6, 9, 12 ) && -a == Coord( -1, -2, -3, -4 ) );
    EXPECT_TRUE( ( c += a ) == a && ( c -= b ) == a - b );
    EXPECT_TRUE( ( c *= T( 4 ) ) == ( a - b ) * T( 4 ) && ( c /= T( 4 ) ) == a - b );
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
