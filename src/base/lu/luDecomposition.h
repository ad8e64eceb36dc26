#ifndef ZQ_BASE_LU_LUDECOMPOSITION_H
#define ZQ_BASE_LU_LUDECOMPOSITION_H

#include "../floatUtil.h"

#include <cstddef>

namespace Zq
{

namespace Detail
{

/// The LU decomposition of a small square matrix, its determinant and its inverse. Internal to the matrix classes.
///
/// Crout's method with implicit scaling: each row is weighed by its largest magnitude when a pivot is chosen, and of
/// equal weights the later row wins. All arithmetic is in T and in the order written; everything lives on the stack.
/// A Matrix is any type with element access m( row, column ), so that both storage orders share one algorithm.
///
/// A row whose largest magnitude counts as zero (FloatUtil::isEqual with 0: float 1e-6, double 1e-7), or a pivot that
/// does, makes the matrix singular. The thresholds are absolute: a well-conditioned matrix of tiny elements is singular,
/// a badly conditioned one that passes is inverted. NaN loses every comparison: a row of nothing but NaN counts as zero,
/// and a NaN weight is passed over while another row has a number. So a matrix with NaN or infinity is either singular
/// or has them in its inverse.
///
/// Sources: P. D. Crout, "A short method for evaluating determinants and solving systems of linear equations with real
/// or complex coefficients", 1941; G. Forsythe and C. Moler, "Computer Solution of Linear Algebraic Systems", 1967.
template <class T, std::size_t rows>
class LuDecomposition
{
public:
    /// Decomposes the matrix; false when it is singular, and then nothing else may be called.
    template <class Matrix>
    bool decompose( const Matrix& m );

    /// The parity of the row interchanges times the diagonal of U, from left to right.
    T computeDeterminant() const;

    /// Writes the elements of the inverse; the matrix that was decomposed may be the destination.
    template <class Matrix>
    void writeInverse( Matrix& inverse ) const;

private:
    static constexpr int size = static_cast<int>( rows );

    T _a[rows][rows]; // U, and below the diagonal L, whose own diagonal is 1
    int _pivots[rows];
    T _parity;
};

template <class T, std::size_t rows>
template <class Matrix>
inline bool LuDecomposition<T, rows>::decompose( const Matrix& m )
{
    T scale[rows];
    for ( int i = 0; i < size; ++i )
    {
        T largest = T( 0 );
        for ( int j = 0; j < size; ++j )
        {
            _a[i][j] = m( i, j );
            const T magnitude = FloatUtil::abs( _a[i][j] );
            if ( magnitude > largest )
                largest = magnitude;
        }
        if ( FloatUtil::isEqual( largest, T( 0 ) ) )
            return false;
        scale[i] = T( 1 ) / largest;
    }

    _parity = T( 1 );
    for ( int j = 0; j < size; ++j )
    {
        for ( int i = 1; i < j; ++i )
        {
            for ( int k = 0; k < i; ++k )
                _a[i][j] -= _a[i][k] * _a[k][j];
        }

        int p = j; // also when NaN makes every comparison below false
        T heaviest = T( 0 );
        for ( int i = j; i < size; ++i )
        {
            for ( int k = 0; k < j; ++k )
                _a[i][j] -= _a[i][k] * _a[k][j];
            const T weight = scale[i] * FloatUtil::abs( _a[i][j] );
            if ( weight >= heaviest )
            {
                heaviest = weight;
                p = i;
            }
        }

        if ( p != j )
        {
            for ( int k = 0; k < size; ++k )
            {
                const T element = _a[p][k];
                _a[p][k] = _a[j][k];
                _a[j][k] = element;
            }
            _parity = -_parity;
            // One way only: row j is never weighed again, and the row that moved down to p is weighed with the scale
            // that p had. So a later pivot can differ from what a full exchange of the scales would choose.
            scale[j] = scale[p];
        }
        _pivots[j] = p;

        if ( FloatUtil::isEqual( _a[j][j], T( 0 ) ) )
            return false;
        const T reciprocal = T( 1 ) / _a[j][j];
        for ( int i = j + 1; i < size; ++i )
            _a[i][j] *= reciprocal;
    }
    return true;
}

template <class T, std::size_t rows>
inline T LuDecomposition<T, rows>::computeDeterminant() const
{
    T determinant = _parity;
    for ( int i = 0; i < size; ++i )
        determinant *= _a[i][i];
    return determinant;
}

template <class T, std::size_t rows>
template <class Matrix>
inline void LuDecomposition<T, rows>::writeInverse( Matrix& inverse ) const
{
    for ( int column = 0; column < size; ++column )
    {
        T b[rows] = {};
        b[column] = T( 1 );

        int first = size; // the first non-zero entry; everything before it would only subtract zeros
        for ( int i = 0; i < size; ++i )
        {
            T sum = b[_pivots[i]];
            b[_pivots[i]] = b[i];
            for ( int k = first; k < i; ++k )
                sum -= _a[i][k] * b[k];
            if ( first == size && sum != T( 0 ) )
                first = i;
            b[i] = sum;
        }

        for ( int i = size - 1; i >= 0; --i )
        {
            for ( int k = i + 1; k < size; ++k )
                b[i] -= _a[i][k] * b[k];
            b[i] /= _a[i][i];
        }

        for ( int row = 0; row < size; ++row )
            inverse( row, column ) = b[row];
    }
}

} // namespace Detail

} // namespace Zq

#endif
