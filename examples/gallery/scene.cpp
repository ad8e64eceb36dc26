#include "scene.h"

#include <algorithm>
#include <cmath>

namespace Gallery
{

using namespace Examples;
using namespace Zq;

namespace
{

Camera withAspect( Camera camera, const Viewport& viewport )
{
    camera.aspect = static_cast<float>( viewport.width / viewport.height );
    return camera;
}

Studio makeStudio( const Camera& camera )
{
    const GeLinearMatrix3<float> axes = makeView<float>( camera ).getLinear();
    const auto row = [&axes]( int i ) { return GeVector3<float>( axes( i, 0 ), axes( i, 1 ), axes( i, 2 ) ); };
    return { camera.eye, row( 0 ), row( 1 ), row( 2 ) };
}

GeVector3<float> computeNormal( const Polygon& polygon )
{
    // the sum over the triangles about the first corner: right for polygons with repeated corners, too
    GeVector3<float> normal;
    for ( std::size_t i = 2; i < polygon.size(); ++i )
    {
        normal += ( polygon[i - 1] - polygon[0] ).cross( polygon[i] - polygon[0] );
    }
    return normal;
}

} // namespace

Scene::Scene( const Canvas& background, const Viewport& viewport, Camera camera )
    : _camera( withAspect( camera, viewport ) ), _clipMatrix( makeClipMatrix<double>( _camera ) ),
      _studio( makeStudio( _camera ) ), _raster( background, viewport )
{
}

void Scene::drawSolid( const Solid& solid, const Color& color, float gloss )
{
    drawSolid(
        solid, [&]( const GePoint3<float>& ) { return color; }, gloss );
}

void Scene::drawSolid( const Solid& solid, const Paint& paint, float gloss )
{
    for ( const Polygon& polygon : solid.faces )
    {
        drawPolygon(
            polygon,
            [&]( const GePoint3<float>& position, const GeVector3<float>& normal )
            { return _studio.shade( position, normal, paint( position ), gloss ); },
            1 );
    }
}

void Scene::drawFlat( const Solid& solid, const Paint& paint )
{
    for ( const Polygon& polygon : solid.faces )
    {
        drawPolygon(
            polygon, [&]( const GePoint3<float>& position, const GeVector3<float>& ) { return paint( position ); }, 1 );
    }
}

void Scene::drawGlass( const Solid& solid, const Color& color, float opacity )
{
    for ( const bool isFront : { false, true } )
    {
        for ( const Polygon& polygon : solid.faces )
        {
            const GeVector3<float> toEye = _camera.eye - polygon[0];
            if ( ( toEye.dot( computeNormal( polygon ) ) > 0 ) == isFront )
            {
                drawPolygon(
                    polygon,
                    // half of its colour is its own light: glass is not dark on its far side
                    [&]( const GePoint3<float>& position, const GeVector3<float>& normal )
                    { return mix( color, _studio.shade( position, normal, color, isFront ? 0.6F : 0.0F ), 0.5F ); },
                    opacity );
            }
        }
    }
}

void Scene::drawEdges( const Solid& solid, double width, const Color& color, double hiddenOpacity )
{
    // every edge belongs to two faces, once in each direction
    const auto isFirst = []( const GePoint3<float>& a, const GePoint3<float>& b )
    {
        for ( int axis = 0; axis < 3; ++axis )
        {
            if ( std::abs( a[axis] - b[axis] ) > 1e-3F )
            {
                return a[axis] < b[axis];
            }
        }
        return false;
    };
    for ( const Polygon& polygon : solid.faces )
    {
        for ( std::size_t i = 0; i < polygon.size(); ++i )
        {
            const GePoint3<float>& next = polygon[( i + 1 ) % polygon.size()];
            if ( isFirst( polygon[i], next ) )
            {
                drawLine( polygon[i], next, width, color, hiddenOpacity );
            }
        }
    }
}

void Scene::drawLine(
    const GePoint3<float>& begin, const GePoint3<float>& end, double width, const Color& color, double hiddenOpacity )
{
    _raster.drawLine( transform( begin ), transform( end ), width, color, hiddenOpacity );
}

void Scene::drawArrow( const GePoint3<float>& begin, const GePoint3<float>& end, float thickness, const Color& color )
{
    GeVector3<float> axis = end - begin;
    const float length = axis.normalize();
    const float head = std::min( 6 * thickness, length / 2 );
    drawSolid( makeTruncatedCone( begin, axis, thickness, thickness, length - head ), color );
    drawSolid( makeTruncatedCone( end - axis * head, axis, 2.6F * thickness, 0, head ), color );
}

void Scene::drawBall( const GePoint3<float>& center, float radius, const Color& color )
{
    constexpr int NB_BANDS = 16;
    constexpr float STEP = 3.14159265F / NB_BANDS;
    const GeVector3<float> axis( 0, 0, 1 );
    for ( int i = 0; i < NB_BANDS; ++i )
    {
        const float low = STEP * static_cast<float>( i );
        const float high = low + STEP;
        Solid band = makeTruncatedCone( center - axis * ( radius * std::cos( low ) ), axis, radius * std::sin( low ),
            i + 1 < NB_BANDS ? radius * std::sin( high ) : 0, radius * ( std::cos( low ) - std::cos( high ) ) );
        drawSolid( band, color, 0.3F );
    }
}

Spot Scene::computeSpot( const GePoint3<float>& point ) const
{
    const std::array<float, 2> pixel = _raster.computePixel( transform( point ) );
    return { pixel[0], pixel[1] };
}

GeHomogeneousCoord3<double> Scene::transform( const GePoint3<float>& point ) const
{
    const GePoint3<double> p( point );
    return _clipMatrix * GeHomogeneousCoord3<double>( p.getX(), p.getY(), p.getZ(), 1 );
}

void Scene::drawPolygon( const Polygon& polygon, const Raster::Shader& shader, float opacity )
{
    const GeVector3<float> normal = computeNormal( polygon );
    const auto vertex = [&]( const GePoint3<float>& point ) -> RasterVertex {
        return { transform( point ), point, normal };
    };
    for ( std::size_t i = 2; i < polygon.size(); ++i )
    {
        _raster.drawTriangle(
            { vertex( polygon[0] ), vertex( polygon[i - 1] ), vertex( polygon[i] ) }, shader, opacity );
    }
}

} // namespace Gallery
