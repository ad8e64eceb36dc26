#ifndef ZQ_PRIMITIVES_VIEWFRAME_H
#define ZQ_PRIMITIVES_VIEWFRAME_H

#include "doubleMatrices.h"

namespace Zq
{

namespace Detail
{

template <class T>
bool isDirection( const GeVector3<T>& v )
{
    return isFinite3( v ) && ( v[0] != T( 0 ) || v[1] != T( 0 ) || v[2] != T( 0 ) );
}

/// Of length 1, for any direction: scaled by a power of two first, so that no square leaves the range of double.
inline GeVector3<double> computeDirection( const GeVector3<double>& v )
{
    const int exponent = -std::ilogb( v.computeMaxAbs() );
    GeVector3<double> scaled(
        std::ldexp( v[0], exponent ), std::ldexp( v[1], exponent ), std::ldexp( v[2], exponent ) );
    const double length = scaled.length();
    scaled.set( scaled[0] / length, scaled[1] / length, scaled[2] / length );
    return scaled;
}

/// The axes of a camera in the world: to the right, up and back.
struct ViewFrame
{
    /// `sine`: up to which angle `upwards` counts as parallel.
    ViewFrame( const GeVector3<double>& towards, const GeVector3<double>& upwards, double sine )
        : back( -computeDirection( towards ) )
    {
        right = computeDirection( upwards ).cross( back );
        if ( right.length() <= sine )
            right = chooseUp().cross( back );
        // of a cross product of nearly parallel vectors, a good part is rounding, which knows no right angle
        right = computeDirection( right );
        right = computeDirection( right - back * back.dot( right ) );
        up = computeDirection( back.cross( right ) );
    }

    GeVector3<double> right;
    GeVector3<double> up;
    GeVector3<double> back;

private:
    /// The coordinate axis farthest from the view; z before y before x where several are.
    GeVector3<double> chooseUp() const
    {
        const double x = std::fabs( back[0] ), y = std::fabs( back[1] ), z = std::fabs( back[2] );
        if ( z <= x && z <= y )
            return { 0.0, 0.0, 1.0 };
        return y <= x ? GeVector3<double>( 0.0, 1.0, 0.0 ) : GeVector3<double>( 1.0, 0.0, 0.0 );
    }
};

} // namespace Detail

} // namespace Zq

#endif
