// Compiled optimised and never run: the object must not call the library for what every loop does.

#include FIRST_HEADER
#include <zq/primitives/geAffineMatrix3.h>

using namespace Zq;

float probePoint( const GePoint3<float>& p, const GePoint3<float>& q, const GeUnitVector3<float>& u )
{
    GePoint3<float> sum = p;
    sum += ( p - q ).cross( u ) * 2;
    return sum.getX() + ( sum - q ).dot( u ) + u.getY() + sum[2];
}

GeLinearMatrix3<float> probeProduct( const GeLinearMatrix3<float>& a, const GeLinearMatrix3<float>& b )
{
    return a * b;
}

GePoint3<double> probeTransform( const GeAffineMatrix3<double>& a, const GePoint3<double>& p )
{
    return a * p;
}
