#include "support/matrixReference.h"
#include "support/scalars.h"

#include <zq/primitives/geProjectiveMatrix3.h>

#include <array>
#include <sstream>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( ProjectiveMatrix3 );

template <class T>
GeProjectiveMatrix3<T> randomMatrix( Random& random )
{
    return ZqTest::fromRows<GeProjectiveMatrix3<T>>( ZqTest::randomIntegers<T, 4>( random, 9 ) );
}

template <class T>
GeAffineMatrix3<T> randomAffine( Random& random )
{
    GeAffineMatrix3<T> m;
    const auto rows = ZqTest::randomIntegers<T, 4>( random, 9 );
    for ( int i = 0; i < 12; ++i )
        m( i % 3, i / 3 ) = rows[std::size_t( i ) % 3][std::size_t( i ) / 3];
    return m;
}

TYPED_TEST( ProjectiveMatrix3, IsStoredByColumnsWhateverItWasMadeFrom )
{
    using T = TypeParam;
    const std::array<T, 16> expected = { 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16 };
    const double rows[4][4] = { { 1, 2, 3, 4 }, { 5, 6, 7, 8 }, { 9, 10, 11, 12 }, { 13, 14, 15, 16 } };
    const float columns[4][4] = { { 1, 5, 9, 13 }, { 2, 6, 10, 14 }, { 3, 7, 11, 15 }, { 4, 8, 12, 16 } };
    for ( const GeProjectiveMatrix3<T>& m :
        { GeProjectiveMatrix3<T>( rows, false ), GeProjectiveMatrix3<T>( columns, true ) } )
    {
        EXPECT_EQ( ( ZqTest::storedValues<T, 16>( m ) ), expected );
        EXPECT_EQ( m( 1, 3 ), T( 8 ) );
    }
    const GeLinearMatrix3<T> linear( 1, 2, 3, 5, 6, 7, 9, 10, 11 );
    const std::array<T, 16> affine = { 1, 5, 9, 0, 2, 6, 10, 0, 3, 7, 11, 0, 4, 8, 12, 1 };
    const GeProjectiveMatrix3<T> m( GeAffineMatrix3<T>( linear, GeVector3<T>( 4, 8, 12 ) ) );
    EXPECT_EQ( ( ZqTest::storedValues<T, 16>( m ) ), affine );
    EXPECT_EQ( GeProjectiveMatrix3<T>( linear ), GeProjectiveMatrix3<T>( GeAffineMatrix3<T>( linear ) ) );
    static_assert( !std::is_convertible_v<GeAffineMatrix3<T>, GeProjectiveMatrix3<T>> );
    static_assert( !std::is_convertible_v<GeLinearMatrix3<T>, GeProjectiveMatrix3<T>> );
}

// Integers: every sum is exact, so the equations hold without tolerance.
TYPED_TEST( ProjectiveMatrix3, ProductsFollowTheConventions )
{
    using T = TypeParam;
    Random random( 41 );
    for ( int i = 0; i < 500; ++i )
    {
        const GeProjectiveMatrix3<T> a = randomMatrix<T>( random );
        const GeProjectiveMatrix3<T> b = randomMatrix<T>( random );
        const GeAffineMatrix3<T> affine = randomAffine<T>( random );
        const GePoint3<T> p( affine.getColumn( 1 ) );
        const GeHomogeneousCoord3<T> h( p.getX(), p.getY(), p.getZ(), T( random.index( 9 ) ) );

        EXPECT_EQ( ( a * b ) * h, a * ( b * h ) );
        EXPECT_EQ( ( a * b ).mulOnRight( h ), b.mulOnRight( a.mulOnRight( h ) ) );
        EXPECT_EQ( a.mulOnRight( h ), a.computeTranspose() * h );
        EXPECT_EQ( a * affine, a * GeProjectiveMatrix3<T>( affine ) );
        EXPECT_EQ( ( a * GeVector3<T>( p ) ), ( a * GeHomogeneousCoord3<T>( p.getX(), p.getY(), p.getZ(), 0 ) ) );

        const GePoint3<T> moved = affine * p;
        const GeHomogeneousCoord3<T> one( p.getX(), p.getY(), p.getZ(), 1 );
        EXPECT_EQ( GeProjectiveMatrix3<T>( affine ) * one,
            ( GeHomogeneousCoord3<T>( moved.getX(), moved.getY(), moved.getZ(), 1 ) ) );

        GeProjectiveMatrix3<T> inPlace = a;
        inPlace *= affine;
        EXPECT_EQ( inPlace, a * affine );
    }
}

TYPED_TEST( ProjectiveMatrix3, TransposeAndAdjointOfIntegersAreExact )
{
    using T = TypeParam;
    Random random( 42 );
    for ( int i = 0; i < 200; ++i )
    {
        const GeAffineMatrix3<T> affine = randomAffine<T>( random );
        for ( const GeProjectiveMatrix3<T>& m : { randomMatrix<T>( random ), GeProjectiveMatrix3<T>( affine ) } )
        {
            const auto rows = ZqTest::toRows<long long, 4>( m );
            const GeProjectiveMatrix3<T> transpose = m.computeTranspose();
            const GeProjectiveMatrix3<T> adjoint = m.computeAdjoint();
            for ( std::size_t r = 0; r < 4; ++r )
            {
                for ( std::size_t c = 0; c < 4; ++c )
                {
                    EXPECT_EQ( static_cast<long long>( transpose( int( c ), int( r ) ) ), rows[r][c] );
                    // plain minors: no checkerboard of signs
                    EXPECT_EQ( static_cast<long long>( adjoint( int( r ), int( c ) ) ),
                        ZqTest::determinant( ZqTest::without( rows, r, c ) ) );
                }
            }
        }
        const GeProjectiveMatrix3<T> full( affine );
        EXPECT_EQ( GeProjectiveMatrix3<T>::computeTranspose( affine ), full.computeTranspose() );
        EXPECT_EQ( GeProjectiveMatrix3<T>::computeAdjoint( affine ), full.computeAdjoint() );
    }

    GeProjectiveMatrix3<T> shear;
    shear( 0, 1 ) = T( 5 );
    EXPECT_EQ( shear.computeAdjoint()( 1, 0 ), T( 5 ) );
    EXPECT_EQ( shear.computeInverse()( 0, 1 ), T( -5 ) );
    shear = shear.computeAdjoint();
    EXPECT_EQ( shear( 1, 0 ), T( 5 ) );
}

// The three terms of a minor are not summed in the order of the 3x3 determinant.
TYPED_TEST( ProjectiveMatrix3, MinorsKeepTheirOwnGrouping )
{
    using T = TypeParam;
    const T s = sizeof( T ) == sizeof( float ) ? T( 1024 ) : T( 1 << 18 );
    const GeLinearMatrix3<T> block( s, s, 0, 0, 1 / s, s, s, s, 1 );
    EXPECT_EQ( block.computeDeterminant(), T( 0 ) );
    for ( int row = 0; row < 4; ++row )
    {
        GeProjectiveMatrix3<T> m;
        for ( int i = 0; i < 3; ++i )
        {
            for ( int j = 0; j < 3; ++j )
                m( ( row + 1 + i ) % 4, ( 2 + j ) % 4 ) = block( i, j );
        }
        EXPECT_EQ( m.computeAdjoint()( row, 1 ), T( 1 ) );
    }
}

TYPED_TEST( ProjectiveMatrix3, HomogeneousArithmeticTreatsFourComponentsAlike )
{
    using T = TypeParam;
    using Coord = GeHomogeneousCoord3<T>;
    const std::array<T, 4> expected = { 1, 2, 3, 4 };
    const Coord a( 1, 2, 3, 4 );
    const Coord b( 10, -20, 30, -40 );
    EXPECT_EQ( ( ZqTest::storedValues<T, 4>( a ) ), expected );
    Coord built;
    EXPECT_EQ( built, Coord( 0, 0, 0, 0 ) );
    built.setX( a.getX() );
    built.setY( a.getY() );
    built.setZ( a.getZ() );
    built.setW( a.getW() );
    EXPECT_EQ( built, a );
    EXPECT_EQ( a + b, Coord( 11, -18, 33, -36 ) );
    EXPECT_EQ( a - b, Coord( -9, 22, -27, 44 ) );
    EXPECT_EQ( -a, Coord( -1, -2, -3, -4 ) );
    EXPECT_EQ( a * T( 3 ), Coord( 3, 6, 9, 12 ) );
    EXPECT_EQ( built += b, a + b );
    EXPECT_EQ( built -= b, a );
    EXPECT_EQ( built *= T( 3 ), a * T( 3 ) );
    // one reciprocal: 49 * ( 1 / 49 ) falls short of 1
    EXPECT_EQ( Coord( 49, 98, 0, 49 ) / T( 49 ), Coord( 49, 98, 0, 49 ) * ( T( 1 ) / T( 49 ) ) );
    EXPECT_EQ( built /= T( 7 ), a * T( 3 ) * ( T( 1 ) / T( 7 ) ) );
    built.setZero();
    EXPECT_EQ( built, Coord() );
    for ( int i = 0; i < 4; ++i )
    {
        const Coord moved(
            i == 0 ? T( 1.25 ) : 1, i == 1 ? T( 2.25 ) : 2, i == 2 ? T( 3.25 ) : 3, i == 3 ? T( 4.25 ) : 4 );
        EXPECT_TRUE( moved != a );
        EXPECT_FALSE( moved == a );
        EXPECT_TRUE( moved.isEqual( a, T( 0.5 ) ) );
        EXPECT_FALSE( moved.isEqual( a, T( 0.25 ) ) );
    }
    EXPECT_FALSE( Coord( 0, 0, 0, ZqTest::nan<T> ) == Coord( 0, 0, 0, ZqTest::nan<T> ) );
}

TYPED_TEST( ProjectiveMatrix3, TextForms )
{
    using T = TypeParam;
    const double rows[4][4] = { { 1, 2, 3, 4 }, { 5, 6, 7, 8 }, { 9, 10, 11, 0.5 }, { 0, 0, -1, 0 } };
    std::ostringstream os;
    os << GeProjectiveMatrix3<T>( rows, false ) << GeHomogeneousCoord3<T>( 1, 2, 3, 1 );
    EXPECT_EQ( os.str(), "| 1 2 3 4 |\n| 5 6 7 8 |\n| 9 10 11 0.5 |\n| 0 0 -1 0 |\n(1, 2, 3, 1)" );
}

} // namespace
