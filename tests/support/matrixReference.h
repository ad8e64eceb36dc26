#ifndef ZQ_TESTS_SUPPORT_MATRIXREFERENCE_H
#define ZQ_TESTS_SUPPORT_MATRIXREFERENCE_H

#include "random.h"

#include <zq/primitives/geProjectiveMatrix3.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ZqTest
{

/// A matrix by other means than the library's: plain rows.
template <class T, int n>
struct Rows
{
    T& operator()( int r, int c ) { return at[r][c]; }
    T operator()( int r, int c ) const { return at[r][c]; }
    /// The sign of zero counts.
    bool operator==( const Rows& other ) const
    {
        for ( int i = 0; i < n * n; ++i )
        {
            const T x = at[i / n][i % n], y = other.at[i / n][i % n];
            if ( !( x == y ) || std::signbit( x ) != std::signbit( y ) )
                return false;
        }
        return true;
    }

    T at[4][4] = {}; // room for the largest
};

/// Calls f( row, column ) for every place.
template <int rows, int columns = rows, class F>
void forEachPlace( F&& f )
{
    for ( int i = 0; i < rows * columns; ++i )
        f( i / columns, i % columns );
}

/// The part of a matrix that is free.
template <class Matrix>
inline constexpr int rowCount = 3;
template <class T>
inline constexpr int rowCount<Zq::GeProjectiveMatrix3<T>> = 4;
template <class Matrix>
inline constexpr int columnCount = 4;
template <class T>
inline constexpr int columnCount<Zq::GeLinearMatrix3<T>> = 3;

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
    Rows<T, n> product;
    for ( int k = 0; k < n; ++k )
        forEachPlace<n>( [&]( int r, int c ) { product( r, c ) += a( r, k ) * b( k, c ); } );
    return product;
}

/// The determinant of the matrix without one row and one column, by expansion. Exact for integers.
template <class T, int n>
T minorOf( const Rows<T, n>& m, int row, int column )
{
    Rows<T, n - 1> rest;
    forEachPlace<n - 1>( [&]( int r, int c ) { rest( r, c ) = m( r < row ? r : r + 1, c < column ? c : c + 1 ); } );
    return determinantOf( rest );
}

template <class T, int n>
T determinantOf( const Rows<T, n>& m )
{
    T sum = 0;
    if constexpr ( n == 1 )
        sum = m( 0, 0 );
    else
        for ( int c = 0; c < n; ++c )
            sum += ( c % 2 ? -1 : 1 ) * m( 0, c ) * minorOf( m, 0, c );
    return sum;
}

/// Inverse and determinant by Gaussian elimination beside an identity matrix: another order of work than the library's,
/// yet each element goes through the same operations, so that the bits must agree. False for a zero pivot.
template <class T, int n>
bool eliminate( Rows<T, n> a, Rows<T, n>& inverse, T& determinant )
{
    T scale[4];
    for ( int i = 0; i < n; ++i )
    {
        T largest = 0;
        for ( int k = 0; k < n; ++k )
            largest = std::max( largest, std::fabs( a( i, k ) ) );
        scale[i] = 1 / largest;
    }
    const auto subtractRow = [&]( int from, T factor, int row )
    {
        for ( int k = 0; k < n; ++k )
        {
            a( from, k ) -= factor * a( row, k );
            inverse( from, k ) -= factor * inverse( row, k );
        }
    };
    inverse = Rows<T, n>();
    for ( int i = 0; i < n; ++i )
        inverse( i, i ) = 1;
    determinant = 1;
    for ( int j = 0; j < n; ++j )
    {
        int p = j;
        for ( int i = j; i < n; ++i )
            p = scale[i] * std::fabs( a( i, j ) ) >= scale[p] * std::fabs( a( p, j ) ) ? i : p; // the later of equals
        if ( p != j )
        {
            // the scales stay in their places
            std::swap( a.at[j], a.at[p] );
            std::swap( inverse.at[j], inverse.at[p] );
            determinant = -determinant;
        }
        if ( std::fabs( a( j, j ) ) < T( 1e-9 ) )
            return false;
        for ( int i = j + 1; i < n; ++i )
            subtractRow( i, a( i, j ) * ( 1 / a( j, j ) ), j );
    }
    for ( int i = 0; i < n; ++i )
        determinant *= a( i, i );
    forEachPlace<n>(
        [&]( int step, int c )
        {
            const int i = n - 1 - step;
            for ( int k = i + 1; k < n; ++k )
                inverse( i, c ) -= a( i, k ) * inverse( k, c );
            inverse( i, c ) /= a( i, i );
        } );
    return true;
}

} // namespace ZqTest

#endif
