#ifndef ZQ_PRIMITIVES_PROJECTIONSHAPE_H
#define ZQ_PRIMITIVES_PROJECTIONSHAPE_H

#include "doubleMatrices.h"

namespace Zq
{

namespace Detail
{

/// A projection by the elements that are not 0, in double. x' = scale[0] x + skew[0] z + shift[0], likewise y'; w' is -z
/// for a perspective, else 1. Any depth row, oblique or not.
struct ProjectionShape
{
    template <class T>
    explicit ProjectionShape( const GeProjectiveMatrix3<T>& m )
    {
        const auto element = [&m]( int row, int column ) { return static_cast<double>( m( row, column ) ); };
        bool isPlain = isFiniteMatrix( m );
        for ( int axis = 0; axis < 2; ++axis )
        {
            scale[axis] = element( axis, axis );
            skew[axis] = element( axis, 2 );
            shift[axis] = element( axis, 3 );
            isPlain = isPlain && scale[axis] != 0.0 && element( axis, 1 - axis ) == 0.0 && element( 3, axis ) == 0.0;
        }
        for ( int column = 0; column < 4; ++column )
            depth[column] = element( 2, column );
        isPerspective = element( 3, 2 ) == -1.0;
        isValid =
            isPlain && ( isPerspective ? element( 3, 3 ) == 0.0 : element( 3, 2 ) == 0.0 && element( 3, 3 ) == 1.0 );
    }

    bool isOblique() const { return depth[0] != 0.0 || depth[1] != 0.0; }

    /// What projects to x (axis 0) or y (axis 1) is start + t slope at the distance t from the camera.
    double computeStart( int axis, double clip ) const
    {
        return ( isPerspective ? -shift[axis] : clip - shift[axis] ) / scale[axis];
    }
    double computeSlope( int axis, double clip ) const
    {
        return ( isPerspective ? clip + skew[axis] : skew[axis] ) / scale[axis];
    }

    double scale[2];
    double skew[2];
    double shift[2];
    double depth[4];
    bool isPerspective;
    bool isValid;
};

} // namespace Detail

} // namespace Zq

#endif
