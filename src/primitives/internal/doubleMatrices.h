#ifndef ZQ_PRIMITIVES_DOUBLEMATRICES_H
#define ZQ_PRIMITIVES_DOUBLEMATRICES_H

#include "../geProjectiveMatrix3.h"

#include <cmath>

namespace Zq
{

namespace Detail
{

/// Element by element: the matrices have no constructor that converts.
template <template <class> class Matrix, class T>
Matrix<double> toDouble( const Matrix<T>& m )
{
    T rows[4][4];
    for ( int row = 0; row < 4; ++row )
        for ( int column = 0; column < 4; ++column )
            rows[row][column] = m( row, column );
    return Matrix<double>( rows, false );
}

template <template <class> class Matrix, class T>
bool isFiniteMatrix( const Matrix<T>& m )
{
    bool isFinite = true;
    for ( int row = 0; row < 4; ++row )
        for ( int column = 0; column < 4; ++column )
            isFinite = isFinite && std::isfinite( m( row, column ) );
    return isFinite;
}

template <class Value>
bool isFinite3( const Value& v )
{
    return std::isfinite( v[0] ) && std::isfinite( v[1] ) && std::isfinite( v[2] );
}

} // namespace Detail

} // namespace Zq

#endif
