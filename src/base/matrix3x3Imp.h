#ifndef ZQ_BASE_MATRIX3X3IMP_H
#define ZQ_BASE_MATRIX3X3IMP_H

#include "assertions.h"
#include "vectorLuDecomposition.h"

namespace Zq
{

/// What the matrices with a 3x3 block share, whatever their storage order: the block is read and written through
/// m( row, column ). Internal to the matrix classes.
namespace Detail
{

inline constexpr char MATRIX3X3_FILE[] = "src/base/matrix3x3Imp";

/// With the rows (a b c), (d e f), (g h i): (f b - e c) g + (e a - d b) i + (d c - a f) h, in exactly this grouping.
template <class T, class Matrix>
inline T computeDeterminant3x3( const Matrix& m )
{
    return ( m( 1, 2 ) * m( 0, 1 ) - m( 1, 1 ) * m( 0, 2 ) ) * m( 2, 0 ) +
        ( m( 1, 1 ) * m( 0, 0 ) - m( 1, 0 ) * m( 0, 1 ) ) * m( 2, 2 ) +
        ( m( 1, 0 ) * m( 0, 2 ) - m( 0, 0 ) * m( 1, 2 ) ) * m( 2, 1 );
}

/// Writes the inverse of the block; reports "nonSingular" (src/base/matrix3x3Imp, line 126).
template <class T, class Matrix>
inline void invert3x3( const Matrix& m, Matrix& inverse )
{
    FastLuDecomposition<T, 3> lu;
    const bool nonSingular = lu.decompose( m );
    ZQ_ASSERT_AT( MATRIX3X3_FILE, 126, nonSingular );
    lu.writeInverse( inverse );
}

} // namespace Detail

} // namespace Zq

#endif
