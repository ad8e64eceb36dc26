#ifndef ZQ_BASE_MATRIX4X4IMP_H
#define ZQ_BASE_MATRIX4X4IMP_H

#include "assertions.h"
#include "vectorLuDecomposition.h"

namespace Zq
{

/// Minors, determinant and inverse of a 4x4 matrix that is read and written through m( row, column ). Internal to the
/// matrix classes.
namespace Detail
{

inline constexpr char MATRIX4X4_FILE[] = "src/base/matrix4x4Imp";

/// The minor of element (row, column), without a sign. The remaining rows and columns are taken in cyclic order, which
/// for size 4 is an even permutation of the ascending one; the grouping is exactly the one written.
template <class T, class Matrix>
inline T computeMinor4x4( const Matrix& m, int row, int column )
{
    const int r1 = ( row + 1 ) & 3;
    const int r2 = ( row + 2 ) & 3;
    const int r3 = ( row + 3 ) & 3;
    const int c1 = ( column + 1 ) & 3;
    const int c2 = ( column + 2 ) & 3;
    const int c3 = ( column + 3 ) & 3;
    return ( m( r2, c3 ) * m( r1, c2 ) - m( r1, c3 ) * m( r2, c2 ) ) * m( r3, c1 ) +
        ( m( r1, c3 ) * m( r2, c1 ) - m( r2, c3 ) * m( r1, c1 ) ) * m( r3, c2 ) +
        ( m( r1, c1 ) * m( r2, c2 ) - m( r1, c2 ) * m( r2, c1 ) ) * m( r3, c3 );
}

/// From the decomposition, never from minors; 0 for a singular matrix.
template <class T, class Matrix>
inline T computeDeterminant4x4( const Matrix& m )
{
    FastLuDecomposition<T, 4> lu;
    return lu.decompose( m ) ? lu.computeDeterminant() : T( 0 );
}

/// Writes the inverse; reports "nonSingular" (src/base/matrix4x4Imp, line 175).
template <class T, class Matrix>
inline void invert4x4( const Matrix& m, Matrix& inverse )
{
    FastLuDecomposition<T, 4> lu;
    const bool nonSingular = lu.decompose( m );
    ZQ_ASSERT_AT( MATRIX4X4_FILE, 175, nonSingular );
    lu.writeInverse( inverse );
}

} // namespace Detail

} // namespace Zq

#endif
