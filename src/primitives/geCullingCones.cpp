#include "geCullingCones.h"

#include "../base/text/textWriter.imp"
#include "kernels/geCullingConesKernels.h"

namespace Zq
{

namespace
{

// The cosine of pi/2 - alpha; -1 where alpha is wider than a right angle, as NaN counts to be.
float computeCosBeta( const GeFloatingCone& cone )
{
    const float alpha = cone.getSemiAngle();
    return 2.0 * static_cast<double>( alpha ) <= Detail::CONE_PI ? FloatUtil::sin( alpha ) : -1.0F;
}

float computeFrontfacingOffset( const GeAnchoredCone& anchored )
{
    const float t = anchored.getTangent();
    const float h = anchored.getHeight();
    const float r = anchored.getBottomRadius();
    return ( t * h + ( r + r ) ) * t + h;
}

} // namespace

GeCullingCones::GeCullingCones()
    : _cone( GeUnitVector3<float>( 0.0F, 0.0F, 1.0F, GE_TRUSTED ), Detail::CONE_SPHERE_SEMI_ANGLE ),
      _frontfacingOffset( 0.0F ), _cosBeta( -1.0F )
{
}

GeCullingCones::GeCullingCones( const GeAnchoredCone& anchored )
    : GeCullingCones( anchored.getFloatingCone(), anchored.getBackfacingApex(), computeFrontfacingOffset( anchored ) )
{
}

GeCullingCones::GeCullingCones(
    const GeFloatingCone& cone, const GePoint3<float>& backfacingApex, float frontfacingOffset )
    : _cone( cone ), _backfacingApex( backfacingApex ), _frontfacingOffset( frontfacingOffset ),
      _cosBeta( computeCosBeta( cone ) )
{
}

bool GeCullingCones::isEqualExact( const GeCullingCones& other ) const
{
    return _backfacingApex.isEqualExact( other._backfacingApex ) && _frontfacingOffset == other._frontfacingOffset &&
        _cosBeta == other._cosBeta;
}

bool GeCullingCones::isEqual( const GeCullingCones& other, float lengthTolerance, float cosineTolerance ) const
{
    return _backfacingApex.isEqual( other._backfacingApex, lengthTolerance ) &&
        FloatUtil::isEqual( _frontfacingOffset, other._frontfacingOffset, lengthTolerance ) &&
        FloatUtil::isEqual( _cosBeta, other._cosBeta, cosineTolerance );
}

void GeCullingCones::isInFront(
    const GeCullingCones* cones, std::size_t count, const GePoint3<float>& p, unsigned char* verdicts )
{
    Detail::getKernels<Detail::GeCullingConesKernels>().isInFront( cones, count, p, verdicts );
}

void GeCullingCones::isBehind(
    const GeCullingCones* cones, std::size_t count, const GePoint3<float>& p, unsigned char* verdicts )
{
    Detail::getKernels<Detail::GeCullingConesKernels>().isBehind( cones, count, p, verdicts );
}

std::ostream& GeCullingCones::dump( std::ostream& os ) const
{
    return Detail::dumpText( os, *this );
}

} // namespace Zq
