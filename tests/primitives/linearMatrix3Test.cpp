#include "support/matrixReference.h"
#include "support/scalars.h"

#include <zq/primitives/geLinearMatrix3.h>

#include <array>
#include <sstream>
#include <utility>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( LinearMatrix3 );

template <class T>
GeLinearMatrix3<T> randomMatrix( Random& random )
{
    return ZqTest::fromRows<GeLinearMatrix3<T>>( ZqTest::randomIntegers<T, 3>( random, 9 ) );
}

TYPED_TEST( LinearMatrix3, IsStoredByRows )
{
    using T = TypeParam;
    const std::array<T, 9> expected = { 1, 2, 3, 4, 5, 6, 7, 8, 9 };
    GeLinearMatrix3<T> byElement;
    for ( int r = 0; r < 3; ++r )
    {
        for ( int c = 0; c < 3; ++c )
            byElement( r, c ) = T( 3 * r + c + 1 );
    }
    const GeLinearMatrix3<T> byRows( GeVector3<T>( 1, 2, 3 ), GeVector3<T>( 4, 5, 6 ), GeVector3<T>( 7, 8, 9 ) );
    for ( const GeLinearMatrix3<T>& m : { byElement, byRows, GeLinearMatrix3<T>( 1, 2, 3, 4, 5, 6, 7, 8, 9 ) } )
        EXPECT_EQ( ( ZqTest::storedValues<T, 9>( m ) ), expected );
    EXPECT_EQ( std::as_const( byElement )( 1, 2 ), T( 6 ) );
}

// Integers: every sum is exact, so the equations hold without tolerance.
TYPED_TEST( LinearMatrix3, ProductsFollowTheConventions )
{
    using T = TypeParam;
    Random random( 21 );
    for ( int i = 0; i < 500; ++i )
    {
        const GeLinearMatrix3<T> a = randomMatrix<T>( random );
        const GeLinearMatrix3<T> b = randomMatrix<T>( random );
        const GeVector3<T> v( T( random.index( 19 ) - 9 ), T( random.index( 19 ) - 9 ), T( random.index( 19 ) - 9 ) );
        EXPECT_EQ( ( a * b ) * v, a * ( b * v ) );
        EXPECT_EQ( ( a * GePoint3<T>( v ) ), GePoint3<T>( a * v ) );
        EXPECT_EQ( ( a * b ).mulOnRight( v ), b.mulOnRight( a.mulOnRight( v ) ) );
        EXPECT_EQ( a.mulOnRight( v ), a.computeTranspose() * v );
    }
    // a quarter turn about z takes x to y
    const GeLinearMatrix3<T> turn( 0, -1, 0, 1, 0, 0, 0, 0, 1 );
    EXPECT_EQ( ( turn * GeVector3<T>( 1, 0, 0 ) ), ( GeVector3<T>( 0, 1, 0 ) ) );
    EXPECT_EQ( ( turn.mulOnRight( GeVector3<T>( 1, 0, 0 ) ) ), ( GeVector3<T>( 0, -1, 0 ) ) );
}

TYPED_TEST( LinearMatrix3, DeterminantAndCofactorsAreExactForIntegers )
{
    using T = TypeParam;
    Random random( 22 );
    for ( int i = 0; i < 500; ++i )
    {
        const GeLinearMatrix3<T> m = randomMatrix<T>( random );
        const auto rows = ZqTest::toRows<long long, 3>( m );
        EXPECT_EQ( static_cast<long long>( m.computeDeterminant() ), ZqTest::determinant( rows ) );
        const GeLinearMatrix3<T> adjoint = m.computeAdjoint();
        for ( int r = 0; r < 3; ++r )
        {
            for ( int c = 0; c < 3; ++c )
            {
                const long long minor =
                    ZqTest::determinant( ZqTest::without( rows, std::size_t( r ), std::size_t( c ) ) );
                EXPECT_EQ( static_cast<long long>( adjoint( r, c ) ), ( r + c ) % 2 ? -minor : minor );
            }
        }
    }
    EXPECT_EQ( ( GeLinearMatrix3<T>( 1, 2, 3, 0, 1, 4, 5, 6, 0 ).computeAdjoint() ),
        ( GeLinearMatrix3<T>( -24, 20, -5, 18, -15, 4, 5, -4, 1 ) ) );
}

// Where rounding decides, the stated grouping shows.
TYPED_TEST( LinearMatrix3, DeterminantKeepsItsGrouping )
{
    using T = TypeParam;
    const T s = sizeof( T ) == sizeof( float ) ? T( 1024 ) : T( 1 << 18 );
    // the terms are s^3, 1 and -s^3 in this order: the 1 is lost
    EXPECT_EQ( ( GeLinearMatrix3<T>( s, s, 0, 0, 1 / s, s, s, s, 1 ).computeDeterminant() ), T( 0 ) );
    // the first product overflows before it meets its zero
    const T huge = std::numeric_limits<T>::max();
    EXPECT_TRUE( std::isnan( GeLinearMatrix3<T>( 0, huge, 0, 0, 0, huge, 0, 0, 0 ).computeDeterminant() ) );
}

TYPED_TEST( LinearMatrix3, IdentityIsMeasuredByTheDefaultTolerance )
{
    using T = TypeParam;
    const T step = sizeof( T ) == sizeof( float ) ? T( 1.5e-6 ) : T( 1.5e-7 );
    for ( int i = 0; i < 9; ++i )
    {
        GeLinearMatrix3<T> m;
        T& element = m( i / 3, i % 3 );
        EXPECT_TRUE( m.isIdentity() );
        element -= step / 2;
        EXPECT_TRUE( m.isIdentity() );
        element -= step / 2;
        EXPECT_FALSE( m.isIdentity() );
        element = ZqTest::nan<T>;
        EXPECT_FALSE( m.isIdentity() );
        m.setZero();
        EXPECT_EQ( m, ( GeLinearMatrix3<T>( 0, T( -0.0 ), 0, 0, 0, 0, 0, 0, 0 ) ) );
    }
}

// Counts what std::endl does beyond a line break.
class CountingBuffer : public std::stringbuf
{
public:
    int flushes = 0;

private:
    int sync() override { return ++flushes, 0; }
};

TYPED_TEST( LinearMatrix3, TextFormIsALinePerRowEachFlushed )
{
    using T = TypeParam;
    CountingBuffer buffer;
    std::ostream os( &buffer );
    os << GeLinearMatrix3<T>( 1, T( 2.5 ), -3, 0, 1, 0, 0, 0, 1 );
    EXPECT_EQ( buffer.str(), "| 1 2.5 -3 |\n| 0 1 0 |\n| 0 0 1 |\n" );
    EXPECT_EQ( buffer.flushes, 3 );
    std::ostringstream formatted;
    formatted.precision( 1 );
    formatted << std::fixed;
    EXPECT_EQ( &GeLinearMatrix3<T>().dump( formatted ), &formatted );
    EXPECT_EQ( formatted.str(), "| 1.0 0.0 0.0 |\n| 0.0 1.0 0.0 |\n| 0.0 0.0 1.0 |\n" );
}

} // namespace
