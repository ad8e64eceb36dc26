#include "geTolerances.h"

#include "geHomogeneousCoord3.h"
#include "gePoint2.h"
#include "gePoint3.h"

namespace Zq
{

namespace
{

GePoint3<double> project( const GeHomogeneousCoord3<float>& h )
{
    const double scale = 1.0 / double( h.getW() );
    return { double( h.getX() ) * scale, double( h.getY() ) * scale, double( h.getZ() ) * scale };
}

} // namespace

GeTolerances::GeTolerances()
{
    setLengthTolerance( 0.0005F );
    setAngleTolerance( 0.0001F );
    setFractionTolerance( 1e-7F );
}

void GeTolerances::setLengthTolerance( float tolerance )
{
    const double squared = double( tolerance ) * double( tolerance );
    _length = tolerance;
    _lengthSquared = static_cast<float>( squared );
    _lengthToTheFourth = static_cast<float>( squared * squared );
}

void GeTolerances::setAngleTolerance( float tolerance )
{
    const double cosine = FloatUtil::cos( double( tolerance ) );
    _angle = tolerance;
    _cosine = static_cast<float>( cosine );
    _cosineSquared = static_cast<float>( cosine * cosine );
    _sine = static_cast<float>( FloatUtil::sin( double( tolerance ) ) );
}

void GeTolerances::setFractionTolerance( float tolerance )
{
    const double fraction = double( tolerance );
    _fraction = tolerance;
    _twiceFraction = static_cast<float>( 2.0 * fraction );
    _fractionSquaredPlusOne = static_cast<float>( fraction * fraction + 1.0 );
}

bool GeTolerances::sameVector( const GeVector2<float>& a, const GeVector2<float>& b ) const
{
    return ( GeVector2<double>( a ) - GeVector2<double>( b ) ).lengthSquared() <= double( _lengthSquared );
}

bool GeTolerances::sameVector( const GeVector3<float>& a, const GeVector3<float>& b ) const
{
    return ( GeVector3<double>( a ) - GeVector3<double>( b ) ).lengthSquared() <= double( _lengthSquared );
}

bool GeTolerances::samePoint( const GePoint2<float>& a, const GePoint2<float>& b ) const
{
    return ( GePoint2<double>( a ) - GePoint2<double>( b ) ).lengthSquared() <= double( _lengthSquared );
}

bool GeTolerances::samePoint( const GePoint3<float>& a, const GePoint3<float>& b ) const
{
    return ( GePoint3<double>( a ) - GePoint3<double>( b ) ).lengthSquared() <= double( _lengthSquared );
}

bool GeTolerances::sameVector( const GeHomogeneousCoord3<float>& a, const GeHomogeneousCoord3<float>& b ) const
{
    return ( project( a ) - project( b ) ).lengthSquared() <= double( _lengthSquared );
}

} // namespace Zq
