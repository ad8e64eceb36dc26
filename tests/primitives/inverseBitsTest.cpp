// The inverses against the plain decomposition, as bits.

#include "support/bits.h"

#include <zq/base/luDecomposition.h>
#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geProjectiveMatrix3.h>

namespace
{

ZQ_TWIN_SUITE( InverseBits );

/// Matrices of six kinds: small integers (ties and exact cancellation), ordinary ones, every kind of number, elements of
/// any magnitude, rows and pivots about the size that counts as zero, and products that overflow.
template <class T>
T makeElement( Random& random, int kind )
{
    const T ordinary = random.uniform<T>( T( -2 ), T( 2 ) );
    switch ( kind )
    {
    case 0:
        return T( random.index( 5 ) - 2 );
    case 1:
        return ordinary;
    case 2:
        return ZqTest::anyNumber<T>( random );
    case 3:
        return std::ldexp( ordinary, random.index( 60 ) - 40 );
    case 4:
        return T( random.index( 3 ) - 1 ) * ( sizeof( T ) == 4 ? T( 1e-6 ) : T( 1e-7 ) ) *
            ( T( 1 ) + ordinary * ZqTest::epsilon<T> );
    default:
        return std::ldexp( ordinary, random.index( 3 ) * std::numeric_limits<T>::max_exponent / 2 );
    }
}

template <class T, int size, class Matrix>
void expectSameInverse( Random& random )
{
    Matrix m;
    const int kind = random.index( 6 );
    for ( int r = 0; r < size; ++r )
    {
        for ( int c = 0; c < size; ++c )
            m( r, c ) = makeElement<T>( random, kind );
    }
    Matrix plain;
    T plainDeterminant = T( 7 );
    Detail::LuDecomposition<T, static_cast<std::size_t>( size )> lu;
    if ( lu.decompose( m ) )
    {
        lu.writeInverse( plain );
        plainDeterminant = lu.computeDeterminant();
    }
    Matrix inverse;
    T determinant = T( 7 );
    m.computeInverseAndDeterminant( inverse, determinant );
    ASSERT_TRUE( ZqTest::isSame<T>( determinant, plainDeterminant ) ) << m;
    for ( int r = 0; r < size; ++r )
    {
        for ( int c = 0; c < size; ++c )
            ASSERT_TRUE( ZqTest::isSame<T>( inverse( r, c ), plain( r, c ) ) ) << m << inverse << plain;
    }
}

ZQ_TWIN_TEST( InverseBits, areThoseOfThePlainDecomposition )
{
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < 50000 && !::testing::Test::HasFatalFailure(); ++n )
    {
        expectSameInverse<T, 3, GeLinearMatrix3<T>>( random );
        expectSameInverse<T, 3, GeAffineMatrix3<T>>( random );
        expectSameInverse<T, 4, GeProjectiveMatrix3<T>>( random );
    }
}

} // namespace
