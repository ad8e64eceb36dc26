#ifndef ZQ_TESTS_SUPPORT_MATRIXREFERENCE_H
#define ZQ_TESTS_SUPPORT_MATRIXREFERENCE_H

#include "random.h"

#include <zq/primitives/geProjectiveMatrix3.h>

#include <array>
#include <cstddef>
#include <type_traits>

namespace ZqTest
{

/// A matrix by other means than the library's: plain rows.
template <class T, int n>
struct Rows : std::array<std::array<T, std::size_t{ n }>, std::size_t{ n }>
{
    T& operator()( int r, int c ) { return ( *this )[static_cast<std::size_t>( r )][static_cast<std::size_t>( c )]; }
    T operator()( int r, int c ) const
    {
        return ( *this )[static_cast<std::size_t>( r )][static_cast<std::size_t>( c )];
    }
};

/// Calls f( row, column ) for every place.
template <int rows, int columns = rows, class F>
void forEachPlace( F&& f )
{
    for ( int i = 0; i < rows * columns; ++i )
        f( i / columns, i % columns );
}

/// The part of a matrix that is free.
template <class Matrix, class T = std::decay_t<decltype( Matrix()( 0, 0 ) )>>
inline constexpr int rowCount = std::is_same_v<Matrix, Zq::GeProjectiveMatrix3<T>> ? 4 : 3;
template <class Matrix, class T = std::decay_t<decltype( Matrix()( 0, 0 ) )>>
inline constexpr int columnCount = std::is_same_v<Matrix, Zq::GeLinearMatrix3<T>> ? 3 : 4;

/// Small integers: every sum and product of them is exact, so that equations hold without tolerance.
template <class Matrix>
Matrix randomIntegers( Random& random, int largest )
{
    Matrix m;
    forEachPlace<rowCount<Matrix>, columnCount<Matrix>>(
        [&]( int r, int c ) { m( r, c ) = decltype( m( r, c ) + 0 )( random.index( 2 * largest + 1 ) - largest ); } );
    return m;
}

/// The upper left block of a matrix.
template <class T, int n, class Matrix>
Rows<T, n> toRows( const Matrix& m )
{
    Rows<T, n> rows;
    forEachPlace<n>( [&]( int r, int c ) { rows( r, c ) = static_cast<T>( m( r, c ) ); } );
    return rows;
}

template <class T, int n>
Rows<T, n> multiply( const Rows<T, n>& a, const Rows<T, n>& b )
{
    Rows<T, n> product{};
    for ( int k = 0; k < n; ++k )
        forEachPlace<n>( [&]( int r, int c ) { product( r, c ) += a( r, k ) * b( k, c ); } );
    return product;
}

} // namespace ZqTest

#endif
