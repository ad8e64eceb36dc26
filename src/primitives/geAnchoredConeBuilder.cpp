#include "geAnchoredConeBuilder.h"

#include "geAlignedBox.h"

#include <cstddef>
#include <limits>

namespace Zq
{

namespace
{

/// The coordinate axis from which the frame is built: one that is far from parallel to a direction.
GeVector3<float> chooseCoordinateAxis( const GeVector3<float>& direction )
{
    const float x = FloatUtil::abs( direction.getX() );
    const float y = FloatUtil::abs( direction.getY() );
    const float z = FloatUtil::abs( direction.getZ() );
    if ( x < y )
        return x < z ? GeVector3<float>( 1.0F, 0.0F, 0.0F ) : GeVector3<float>( 0.0F, 0.0F, 1.0F );
    return y < z ? GeVector3<float>( 0.0F, 1.0F, 0.0F ) : GeVector3<float>( 0.0F, 0.0F, 1.0F );
}

} // namespace

GeAnchoredConeBuilder::GeAnchoredConeBuilder( unsigned int capacity )
{
    _points.reserve( capacity );
}

GeAnchoredConeBuilder::~GeAnchoredConeBuilder() = default;

bool GeAnchoredConeBuilder::operator()( const GePoint3<float>& point )
{
    _points.push_back( point );
    return true;
}

void GeAnchoredConeBuilder::reset()
{
    _points.clear();
}

GeAnchoredCone GeAnchoredConeBuilder::createCone( const GeFloatingCone& cone )
{
    const GeVector3<float> axis = cone.getAxis();

    float minProjection = ( std::numeric_limits<float>::max )();
    std::size_t bottomIndex = Detail::NO_POINT;
    for ( std::size_t i = 0; i < _points.size(); ++i )
    {
        const float projection = GeVector3<float>( _points[i] ).dot( axis );
        if ( projection < minProjection )
        {
            bottomIndex = i;
            minProjection = projection;
        }
    }
    // a copy: the place of the bottom point may be taken by an excess below
    const GePoint3<float> bottom = Detail::getBottomPoint( _points, bottomIndex );

    GeVector3<float> v = axis.cross( chooseCoordinateAxis( axis ) );
    float len = v.normalize();
    ZQ_ASSERT( Detail::GE_ANCHOREDCONEBUILDER_FILE, len > 0 );
    GeVector3<float> u = v.cross( axis );
    len = u.normalize();
    ZQ_ASSERT( Detail::GE_ANCHOREDCONEBUILDER_FILE, len > 0 );

    // How far each point sticks out of the cone whose apex is the bottom point, sideways in the frame (u, v). The
    // excesses take the place of points that were read already: the write index never passes the read index.
    const float tangent = FloatUtil::tan( cone.getSemiAngle() );
    float maxHeight = 0.0F;
    std::size_t nbOutsidePoints = 0;
    GeAlignedBox3<float> excesses{ GePoint3<float>() };
    for ( std::size_t i = 0; i < _points.size(); ++i )
    {
        if ( i == bottomIndex )
            continue;
        const GeVector3<float> offset = _points[i] - bottom;
        const float x = offset.dot( u );
        const float y = offset.dot( v );
        const float z = offset.dot( axis );
        if ( z > maxHeight )
            maxHeight = z;
        const float rho2 = x * x + y * y;
        if ( rho2 > 0.0F )
        {
            const float rho = FloatUtil::sqrt( rho2 );
            const float share = ( rho - z * tangent ) / rho;
            if ( share > 0.0F )
            {
                const GePoint3<float> excess( share * x, share * y, 0.0F );
                _points[nbOutsidePoints] = excess;
                excesses.extend( excess );
                ++nbOutsidePoints;
            }
        }
    }

    // the bottom disc is centred in the box of the excesses and reaches to the farthest of them
    const GePoint3<float> center = excesses.getCenter();
    Detail::checkNbOutsidePoints( nbOutsidePoints, _points.size() );
    float maxDistance2 = 0.0F;
    for ( std::size_t i = 0; i < nbOutsidePoints; ++i )
    {
        const float distance2 = ( _points[i] - center ).lengthSquared();
        if ( distance2 > maxDistance2 )
            maxDistance2 = distance2;
    }
    const GePoint3<float> bottomCenter = bottom + u * center.getX() + v * center.getY();
    return { cone, bottomCenter, FloatUtil::sqrt( maxDistance2 ), maxHeight };
}

} // namespace Zq
