#include "solid.h"

#include <algorithm>
#include <cmath>

namespace Figures
{

using namespace Zq;

Solid makeBox( const GeAlignedBox3<float>& box )
{
    // corner indices: bit 0 is x, bit 1 y, bit 2 z
    constexpr int FACES[6][4] = {
        { 0, 4, 6, 2 }, { 1, 3, 7, 5 }, { 0, 1, 5, 4 }, { 2, 6, 7, 3 }, { 0, 2, 3, 1 }, { 4, 5, 7, 6 } };
    Solid solid;
    for ( const auto& face : FACES )
    {
        Polygon polygon;
        for ( const int corner : face )
        {
            polygon.push_back( box.getCorner( corner ) );
        }
        solid.faces.push_back( polygon );
    }
    return solid;
}

Solid cut( const Solid& solid, const GePlane3<float>& plane )
{
    // A plane often goes through corners that are there already; what is this close to it counts as on it.
    const float tolerance = 1e-4F * plane.getNormal().length();
    const auto computeValue = [&]( const GePoint3<float>& point )
    {
        const float value = plane.computeValue( point );
        return std::abs( value ) < tolerance ? 0.0F : value;
    };
    const auto reaches = [&]( float side )
    {
        return std::any_of( solid.faces.begin(), solid.faces.end(),
            [&]( const Polygon& face )
            {
                return std::any_of( face.begin(), face.end(),
                    [&]( const GePoint3<float>& point ) { return side * computeValue( point ) > 0; } );
            } );
    };
    if ( !reaches( 1 ) )
    {
        return solid;
    }
    if ( !reaches( -1 ) )
    {
        return {};
    }

    Solid result;
    Polygon lid;
    for ( const Polygon& face : solid.faces )
    {
        Polygon kept;
        for ( std::size_t i = 0; i < face.size(); ++i )
        {
            const GePoint3<float>& a = face[i];
            const GePoint3<float>& b = face[( i + 1 ) % face.size()];
            const float valueA = computeValue( a );
            const float valueB = computeValue( b );
            if ( valueA <= 0 )
            {
                kept.push_back( a );
            }
            if ( valueA == 0 )
            {
                lid.push_back( a );
            }
            if ( ( valueA < 0 && valueB > 0 ) || ( valueA > 0 && valueB < 0 ) )
            {
                const GePoint3<float> crossing = a + ( b - a ) * ( valueA / ( valueA - valueB ) );
                kept.push_back( crossing );
                lid.push_back( crossing );
            }
        }
        if ( kept.size() > 2 )
        {
            result.faces.push_back( kept );
        }
    }
    // The lid is convex: its corners in order of their angle about its middle. Each was found on two faces.
    GeVector3<float> normal = plane.getNormal();
    normal.normalize();
    GeVector3<float> u;
    GeVector3<float> v;
    makeFrame( normal, u, v );
    GeVector3<float> middle;
    for ( const GePoint3<float>& point : lid )
    {
        middle += GeVector3<float>( point ) / static_cast<float>( lid.size() );
    }
    const auto computeAngle = [&]( const GePoint3<float>& point )
    {
        const GeVector3<float> arm = GeVector3<float>( point ) - middle;
        return std::atan2( arm.dot( v ), arm.dot( u ) );
    };
    std::sort( lid.begin(), lid.end(),
        [&]( const GePoint3<float>& a, const GePoint3<float>& b ) { return computeAngle( a ) < computeAngle( b ); } );
    Polygon polygon;
    for ( const GePoint3<float>& point : lid )
    {
        if ( polygon.empty() ||
            ( !point.isEqual( polygon.back(), 1e-3F ) && !point.isEqual( polygon.front(), 1e-3F ) ) )
        {
            polygon.push_back( point );
        }
    }
    result.faces.push_back( polygon );
    return result;
}

Solid makeShaftSolid( const GeShaft& shaft )
{
    Solid solid = makeBox( shaft.getExtentBox() );
    unsigned short nbPlanes = 0;
    const GePlane3<float>* planes = shaft.getPlaneSet( nbPlanes );
    for ( int i = 0; i < nbPlanes; ++i )
    {
        solid = cut( solid, planes[i] );
    }
    return solid;
}

Solid makeFrustumSolid( const GeFrustum<float>& frustum )
{
    constexpr float SIZE = 100;
    Solid solid = makeBox( { GePoint3<float>( -SIZE, -SIZE, -SIZE ), GePoint3<float>( SIZE, SIZE, SIZE ) } );
    for ( int i = 0; i < GeFrustum<float>::NB_PLANES; ++i )
    {
        // the frustum's normals point into the volume
        const GeNormalizedPlane3<float> plane = frustum.getPlane( i );
        solid = cut( solid, GePlane3<float>( -plane.getNormal(), -plane.getOffset() ) );
    }
    return solid;
}

Solid makeTruncatedCone(
    const GePoint3<float>& bottom, const GeVector3<float>& axis, float bottomRadius, float topRadius, float height )
{
    constexpr int NB_SEGMENTS = 96;
    constexpr float TURN = 6.2831853F;
    GeVector3<float> u;
    GeVector3<float> v;
    makeFrame( axis, u, v );
    const auto pointOn = [&]( int i, float radius, float z )
    {
        const float angle = TURN * static_cast<float>( i % NB_SEGMENTS ) / NB_SEGMENTS;
        return bottom + ( u * std::cos( angle ) + v * std::sin( angle ) ) * radius + axis * z;
    };
    Solid solid;
    Polygon bottomFace;
    Polygon topFace;
    for ( int i = 0; i < NB_SEGMENTS; ++i )
    {
        Polygon side;
        side.push_back( pointOn( i, bottomRadius, 0 ) );
        if ( bottomRadius > 0 )
        {
            side.push_back( pointOn( i + 1, bottomRadius, 0 ) );
        }
        side.push_back( pointOn( i + 1, topRadius, height ) );
        if ( topRadius > 0 )
        {
            side.push_back( pointOn( i, topRadius, height ) );
        }
        solid.faces.push_back( side );
        bottomFace.push_back( pointOn( NB_SEGMENTS - i, bottomRadius, 0 ) );
        topFace.push_back( pointOn( i, topRadius, height ) );
    }
    if ( bottomRadius > 0 )
    {
        solid.faces.push_back( bottomFace );
    }
    if ( topRadius > 0 )
    {
        solid.faces.push_back( topFace );
    }
    return solid;
}

void makeFrame( const GeVector3<float>& axis, GeVector3<float>& u, GeVector3<float>& v )
{
    // start from the coordinate axis that is farthest from the given one
    const bool isSteep = std::abs( axis.getZ() ) > 0.7F;
    u = ( isSteep ? GeVector3<float>( 0, 1, 0 ) : GeVector3<float>( 0, 0, 1 ) ).cross( axis );
    u.normalize();
    v = axis.cross( u );
}

} // namespace Figures
