#include "geCullingCones.h"

#include "../base/text/textWriter.imp"
#include "kernels/geCullingConesKernels.h"

#include <algorithm>
#include <cmath>

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

/// What a term of an inner product is at least.
double computeLeast( double term )
{
    return ( std::min )( term * ( 1 - Detail::CONE_SLACK ), term * ( 1 + Detail::CONE_SLACK ) );
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

// The twins of these two over lanes: kernels/geCullingConesKernels.imp. Doubles neither overflow nor underflow here: for
// floats that are not 0 all products lie between 2^-894 and 2^520.

bool GeCullingCones::isBehind( const GeAlignedBox3<float>& eyes ) const
{
    if ( !( _cosBeta >= 0.0F ) || !Detail::isEyeRegion( eyes ) )
        return false;
    const double cosBeta = static_cast<double>( _cosBeta );
    const double limit = cosBeta * cosBeta;
    double leasts[3][2], squares[3][2];
    for ( int axis = 0; axis < 3; ++axis )
    {
        const double apex = static_cast<double>( _backfacingApex[axis] );
        const double a = static_cast<double>( _cone.getAxis()[axis] );
        if ( !std::isfinite( apex + a ) )
            return false;
        const Interval<float> interval = eyes.getInterval( axis );
        for ( int end = 0; end < 2; ++end )
        {
            const double w = apex - static_cast<double>( end == 0 ? interval.min : interval.max );
            leasts[axis][end] = computeLeast( w * a );
            squares[axis][end] = ( w * w ) * limit;
        }
    }
    for ( int corner = 0; corner < 8; ++corner )
    {
        const int x = corner & 1, y = corner >> 1 & 1, z = corner >> 2;
        const double dot = ( leasts[0][x] + leasts[1][y] ) + leasts[2][z];
        const double square = ( squares[0][x] + squares[1][y] ) + squares[2][z];
        if ( !( dot >= 0 && square <= dot * dot ) )
            return false;
    }
    return true;
}

bool GeCullingCones::isBehindDirection( const GeVector3<float>& direction ) const
{
    double dots[3], d[3], a[3];
    for ( int axis = 0; axis < 3; ++axis )
    {
        d[axis] = static_cast<double>( direction[axis] );
        a[axis] = static_cast<double>( _cone.getAxis()[axis] );
        dots[axis] = computeLeast( a[axis] * d[axis] );
    }
    const double dot = ( dots[0] + dots[1] ) + dots[2];
    const double lengths =
        ( ( a[0] * a[0] + a[1] * a[1] ) + a[2] * a[2] ) * ( ( d[0] * d[0] + d[1] * d[1] ) + d[2] * d[2] );
    const double cosBeta = static_cast<double>( _cosBeta );
    const double limit = ( cosBeta * cosBeta ) * Detail::CONE_SINE_FACTOR;
    return cosBeta >= 0 && lengths > 0 && std::isfinite( lengths ) && dot >= 0 && limit * lengths <= dot * dot;
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

void GeCullingCones::isBehind(
    const GeCullingCones* cones, std::size_t count, const GeAlignedBox3<float>& eyes, unsigned char* verdicts )
{
    Detail::getKernels<Detail::GeCullingConesKernels>().isBehindBox( cones, count, eyes, verdicts );
}

void GeCullingCones::isBehindDirection(
    const GeCullingCones* cones, std::size_t count, const GeVector3<float>& direction, unsigned char* verdicts )
{
    Detail::getKernels<Detail::GeCullingConesKernels>().isBehindDirection( cones, count, direction, verdicts );
}

std::ostream& GeCullingCones::dump( std::ostream& os ) const
{
    return Detail::dumpText( os, *this );
}

} // namespace Zq
