#ifndef ZQ_PRIMITIVES_PROJECTIONROWS_H
#define ZQ_PRIMITIVES_PROJECTIONROWS_H

#include "../geDepthRange.h"
#include "doubleMatrices.h"

namespace Zq
{

namespace Detail
{

struct DepthRow
{
    double slope;
    double offset;
};

/// Of an orthographic projection; the extent is the difference of the distances.
inline DepthRow makeOrthographicDepth( double nearDistance, double extent, double farDistance, GeDepthRange range )
{
    switch ( range )
    {
    case GeDepthRange::ZERO_TO_ONE:
        return { -1.0 / extent, -nearDistance / extent };
    case GeDepthRange::ONE_TO_ZERO:
        return { 1.0 / extent, farDistance / extent };
    default:
        return { -2.0 / extent, -( 0.5 * nearDistance + 0.5 * farDistance ) / ( 0.5 * extent ) };
    }
}

/// Whether the matrix of T, which these are rounded to, is finite and has an inverse as far as single elements tell.
template <class T>
bool isRepresentable( const double ( &rows )[4][4] )
{
    const GeProjectiveMatrix3<T> m( rows, false );
    const bool isPerspective = m( 3, 3 ) == T( 0 );
    return isFiniteMatrix( m ) && m( 0, 0 ) != T( 0 ) && m( 1, 1 ) != T( 0 ) && m( 2, isPerspective ? 3 : 2 ) != T( 0 );
}

} // namespace Detail

} // namespace Zq

#endif
