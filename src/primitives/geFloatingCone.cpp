#include "geFloatingCone.h"

#include "../base/assertions.h"
#include "../base/text/textWriter.imp"
#include "../base/trace.h"
#include "internal/traceLevels.h"

#include <ostream>
#include <sstream>

namespace Zq
{

namespace
{

constexpr char GE_FLOATINGCONE_FILE[] = "src/primitives/geFloatingCone";

} // namespace

void GeFloatingCone::expand( const GeFloatingCone& other )
{
    if ( isSphere() )
        return;
    if ( other.isSphere() )
    {
        _semiAngle = Detail::CONE_SPHERE_SEMI_ANGLE;
        return;
    }

    const GeVector3<float> from = _axis;
    const GeVector3<float> to = other._axis;
    float cosine = from.getZ() * to.getZ() + from.getY() * to.getY() + from.getX() * to.getX();
    // nearly opposite axes leave no trustworthy direction to turn in
    if ( static_cast<double>( cosine ) < -0.9 )
    {
        _semiAngle = Detail::CONE_SPHERE_SEMI_ANGLE;
        return;
    }
    // rounding may take the cosine out of the range of acos; the lower end cannot be reached any more
    if ( cosine > 1.0F )
    {
        ZQ_TRACE( *Detail::geometryTraceLevel, GE_FLOATINGCONE_FILE, "dotAxis=" << cosine );
        cosine = 1.0F;
    }
    else if ( cosine < -1.0F )
    {
        ZQ_TRACE( *Detail::geometryTraceLevel, GE_FLOATINGCONE_FILE, "dotAxis=" << cosine );
        cosine = -1.0F;
    }

    // in the plane of the two axes the union reaches from the far side of this cone to the far side of the other
    const float theta = FloatUtil::acos( cosine );
    const float semiAngle = ( theta + other._semiAngle + _semiAngle ) * 0.5F;
    const float rotation = semiAngle - _semiAngle;

    // the part of the other axis that is perpendicular to this one; zero for parallel axes
    GeVector3<float> sideways = from.cross( to ).cross( from );
    sideways.normalize();
    const GeVector3<float> turned = from * FloatUtil::cos( rotation ) + sideways * FloatUtil::sin( rotation );

    const float len = turned.length();
    ZQ_ASSERT( GE_FLOATINGCONE_FILE, len > 0 );
    _axis = GeUnitVector3<float>( turned );
    _semiAngle = semiAngle;
}

std::ostream& GeFloatingCone::dump( std::ostream& os ) const
{
    return Detail::dumpText( os, *this );
}

} // namespace Zq
