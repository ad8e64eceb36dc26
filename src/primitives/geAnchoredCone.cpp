#include "geAnchoredCone.h"

#include "../base/text/textWriter.imp"

namespace Zq
{

GeAnchoredCone::GeAnchoredCone(
    const GeFloatingCone& cone, const GePoint3<float>& bottomCenter, float bottomRadius, float height )
    : _cone( cone ), _bottomCenter( bottomCenter ), _bottomRadius( bottomRadius ), _height( height ),
      _tangent( FloatUtil::tan( cone.getSemiAngle() ) )
{
}

bool GeAnchoredCone::isEqualExact( const GeAnchoredCone& other ) const
{
    return _bottomCenter.isEqualExact( other._bottomCenter ) && _bottomRadius == other._bottomRadius &&
        _height == other._height && _tangent == other._tangent;
}

bool GeAnchoredCone::isEqual( const GeAnchoredCone& other, float lengthTolerance, float tangentTolerance ) const
{
    return _bottomCenter.isEqual( other._bottomCenter, lengthTolerance ) &&
        FloatUtil::isEqual( _bottomRadius, other._bottomRadius, lengthTolerance ) &&
        FloatUtil::isEqual( _height, other._height, lengthTolerance ) &&
        FloatUtil::isEqual( _tangent, other._tangent, tangentTolerance );
}

std::ostream& GeAnchoredCone::dump( std::ostream& os ) const
{
    return Detail::dumpText( os, *this );
}

} // namespace Zq
