// Compiled optimised and never run: the object must not call the library for what every loop does.

#include FIRST_HEADER
#include <zq/primitives/geVector2.h>
#include <zq/primitives/geZAxisRotation3.h>

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

GeVector2<float> probePlane( const GePoint2<float>& p, const GePoint2<float>& q, const GeUnitVector2<float>& u )
{
    const GeVector2<float> v = p - q;
    return v.computePerpendicular() * v.dot( u ) / v.lengthSquared() + u * u.getX();
}

GeAffineMatrix3<float> probeTransforms( const GeAffineMatrix3<float>& a, const GeZAxisRotation3<float>& r,
    const GeScale3<float>& s, const GeTranslation3<float>& t )
{
    return t.mulOnRight( s * ( r * a ) );
}
