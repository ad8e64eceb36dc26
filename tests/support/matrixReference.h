#ifndef ZQ_TESTS_SUPPORT_MATRIXREFERENCE_H
#define ZQ_TESTS_SUPPORT_MATRIXREFERENCE_H

#include "random.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>

namespace ZqTest
{

/// Matrices by other means than the library's: plain arrays of rows.
template <class T, std::size_t n>
using Rows = std::array<std::array<T, n>, n>;

template <class U, std::size_t n, class Matrix>
Rows<U, n> toRows( const Matrix& m )
{
    Rows<U, n> rows{};
    for ( std::size_t r = 0; r < n; ++r )
    {
        for ( std::size_t c = 0; c < n; ++c )
            rows[r][c] = static_cast<U>( m( static_cast<int>( r ), static_cast<int>( c ) ) );
    }
    return rows;
}

template <class Matrix, class U, std::size_t n>
Matrix fromRows( const Rows<U, n>& rows )
{
    Matrix m;
    for ( std::size_t r = 0; r < n; ++r )
    {
        for ( std::size_t c = 0; c < n; ++c )
            m( static_cast<int>( r ), static_cast<int>( c ) ) = rows[r][c];
    }
    return m;
}

/// Small integers, so that products and determinants are exact.
template <class T, std::size_t n>
Rows<T, n> randomIntegers( Random& random, int size )
{
    Rows<T, n> rows{};
    for ( auto& row : rows )
    {
        for ( T& element : row )
            element = static_cast<T>( random.index( 2 * size + 1 ) - size );
    }
    return rows;
}

/// The matrix without one row and one column.
template <class U, std::size_t n>
Rows<U, n - 1> without( const Rows<U, n>& m, std::size_t row, std::size_t column )
{
    Rows<U, n - 1> rest{};
    for ( std::size_t r = 0; r + 1 < n; ++r )
    {
        for ( std::size_t c = 0; c + 1 < n; ++c )
            rest[r][c] = m[r < row ? r : r + 1][c < column ? c : c + 1];
    }
    return rest;
}

/// Leibniz: the sum over all permutations. Exact for integers.
template <class U, std::size_t n>
U determinant( const Rows<U, n>& m )
{
    std::array<std::size_t, n> order{};
    for ( std::size_t i = 0; i < n; ++i )
        order[i] = i;
    U sum = 0;
    do
    {
        U product = 1;
        for ( std::size_t i = 0; i < n; ++i )
        {
            product *= m[i][order[i]];
            for ( std::size_t j = 0; j < i; ++j )
                product = order[j] > order[i] ? -product : product;
        }
        sum += product;
    } while ( std::next_permutation( order.begin(), order.end() ) );
    return sum;
}

template <class U, std::size_t n>
Rows<U, n> multiply( const Rows<U, n>& a, const Rows<U, n>& b )
{
    Rows<U, n> product{};
    for ( std::size_t r = 0; r < n; ++r )
    {
        for ( std::size_t c = 0; c < n; ++c )
        {
            for ( std::size_t k = 0; k < n; ++k )
                product[r][c] += a[r][k] * b[k][c];
        }
    }
    return product;
}

/// Which row becomes the pivot when several weigh the same, and whether the scale of a row moves with it.
struct PivotRule
{
    bool laterRowWins = true;
    bool scalesMove = false;
};

/// Gaussian elimination that updates the rest of the matrix after every pivot and never moves a row: another order of
/// work than the library's, yet each element goes through the same operations, so that the bits must agree.
/// Answers false for a zero pivot.
template <class T, std::size_t n>
bool eliminate( Rows<T, n> a, PivotRule rule, Rows<T, n>& inverse, T& determinant )
{
    std::array<std::size_t, n> order{}; // order[i]: which row stands at place i
    std::array<T, n> scale{};           // by place
    for ( std::size_t i = 0; i < n; ++i )
    {
        order[i] = i;
        T largest = 0;
        for ( const T element : a[i] )
            largest = std::max( largest, std::fabs( element ) );
        if ( largest == 0 )
            return false;
        scale[i] = 1 / largest;
    }
    determinant = 1;
    for ( std::size_t j = 0; j < n; ++j )
    {
        std::size_t p = j;
        for ( std::size_t i = j + 1; i < n; ++i )
        {
            const T best = scale[p] * std::fabs( a[order[p]][j] );
            const T weight = scale[i] * std::fabs( a[order[i]][j] );
            if ( weight > best || ( rule.laterRowWins && weight == best ) )
                p = i;
        }
        if ( p != j )
        {
            std::swap( order[j], order[p] );
            determinant = -determinant;
            if ( rule.scalesMove )
                std::swap( scale[j], scale[p] );
        }
        const auto& pivotRow = a[order[j]];
        if ( std::fabs( pivotRow[j] ) < T( 1e-9 ) )
            return false;
        for ( std::size_t i = j + 1; i < n; ++i )
        {
            auto& row = a[order[i]];
            row[j] *= 1 / pivotRow[j];
            for ( std::size_t k = j + 1; k < n; ++k )
                row[k] -= row[j] * pivotRow[k];
        }
    }
    for ( std::size_t j = 0; j < n; ++j )
        determinant *= a[order[j]][j];
    for ( std::size_t c = 0; c < n; ++c )
    {
        std::array<T, n> x{};
        for ( std::size_t i = 0; i < n; ++i )
        {
            x[i] = order[i] == c ? T( 1 ) : T( 0 );
            for ( std::size_t k = 0; k < i; ++k )
                x[i] -= a[order[i]][k] * x[k];
        }
        for ( std::size_t i = n; i-- > 0; )
        {
            for ( std::size_t k = i + 1; k < n; ++k )
                x[i] -= a[order[i]][k] * x[k];
            x[i] /= a[order[i]][i];
            inverse[i][c] = x[i];
        }
    }
    return true;
}

/// Equal including the sign of zero.
template <class T, std::size_t n>
bool sameBits( const Rows<T, n>& a, const Rows<T, n>& b )
{
    bool same = true;
    for ( std::size_t r = 0; r < n; ++r )
    {
        for ( std::size_t c = 0; c < n; ++c )
            same = same && a[r][c] == b[r][c] && std::signbit( a[r][c] ) == std::signbit( b[r][c] );
    }
    return same;
}

/// The values of an object in the order of its memory.
template <class T, std::size_t count, class Object>
std::array<T, count> storedValues( const Object& object )
{
    std::array<T, count> values{};
    static_assert( sizeof values == sizeof object );
    std::memcpy( values.data(), &object, sizeof object );
    return values;
}

} // namespace ZqTest

#endif
