#include "geFloatingConeBuilder.h"

#include "geAlignedBox.h"

namespace Zq
{

GeFloatingConeBuilder::GeFloatingConeBuilder( unsigned int capacity )
{
    _directions.reserve( capacity );
}

GeFloatingConeBuilder::~GeFloatingConeBuilder() = default;

void GeFloatingConeBuilder::reset()
{
    _directions.clear();
}

GeFloatingCone GeFloatingConeBuilder::createCone()
{
    GeUnitVector3<float> axis( 0.0F, 0.0F, 1.0F, GE_TRUSTED );
    float semiAngle = Detail::CONE_SPHERE_SEMI_ANGLE;

    GeAlignedBox3<float> box;
    for ( const GeUnitVector3<float>& direction : _directions )
        box.extend( GePoint3<float>( direction ) );

    // the centre has no length for the empty box, and where its squares underflow
    const GeVector3<float> center( box.getCenter() );
    if ( !box.contains( GePoint3<float>() ) && center.length() != 0.0F )
    {
        axis = GeUnitVector3<float>( center );
        float minDot = 1.0F;
        for ( const GeUnitVector3<float>& direction : _directions )
        {
            const float dot = direction.dot( axis );
            if ( dot < minDot )
                minDot = dot;
        }
        // rounding may take a cosine out of the range of acos
        if ( minDot <= -1.0F )
            semiAngle = Detail::CONE_SPHERE_SEMI_ANGLE;
        else if ( minDot < 1.0F )
            semiAngle = FloatUtil::acos( minDot );
        else
            semiAngle = 0.0F;
    }

    _directions.clear();
    return { axis, semiAngle };
}

} // namespace Zq
