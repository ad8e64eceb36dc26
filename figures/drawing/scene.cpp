#include "scene.h"

#include <algorithm>
#include <cmath>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

// As the raster needs it.
Camera adapt( Camera camera, const Area& area )
{
    camera.aspect = static_cast<float>( area.width ) / static_cast<float>( area.height );
    camera.range = GeDepthRange::MINUS_ONE_TO_ONE;
    return camera;
}

Studio makeStudio( const Camera& camera )
{
    const GeLinearMatrix3<float> axes = makeView<float>( camera ).getLinear();
    const auto row = [&axes]( int i ) { return GeVector3<float>( axes( i, 0 ), axes( i, 1 ), axes( i, 2 ) ); };
    return { camera.eye, row( 0 ), row( 1 ), row( 2 ), camera.up };
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

Scene::Scene( const Canvas& picture, const Area& area, Camera camera )
    : _area( area ), _camera( adapt( camera, area ) ), _clipMatrix( makeClipMatrix<double>( _camera ) ),
      _studio( makeStudio( _camera ) ),
      _raster( picture.cutOut( area ), { 0, 0, static_cast<double>( area.width ), static_cast<double>( area.height ) } )
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

void Scene::drawDashes( const GePoint3<float>& begin, const GePoint3<float>& end, float length, double width,
    const Color& color, double hiddenOpacity )
{
    const GeVector3<float> way = end - begin;
    const float step = length / way.length();
    const int nbDashes = static_cast<int>( std::ceil( 0.5F / step ) );
    for ( int i = 0; i < nbDashes; ++i )
    {
        const float t = 2 * step * static_cast<float>( i );
        drawLine( begin + way * t, begin + way * std::min( t + step, 1.0F ), width, color, hiddenOpacity );
    }
}

void Scene::drawLine(
    const std::vector<GePoint3<float>>& points, double width, const Color& color, double hiddenOpacity )
{
    for ( std::size_t i = 1; i < points.size(); ++i )
    {
        drawLine( points[i - 1], points[i], width, color, hiddenOpacity );
    }
}

void Scene::drawRim( const Polygon& polygon, double width, const Color& color, double hiddenOpacity )
{
    for ( std::size_t i = 0; i < polygon.size(); ++i )
    {
        drawLine( polygon[i], polygon[( i + 1 ) % polygon.size()], width, color, hiddenOpacity );
    }
}

void Scene::drawBall( const GePoint3<float>& center, float radius, const Color& color, float gloss )
{
    drawBall(
        center, radius, [&]( const GePoint3<float>& ) { return color; }, gloss );
}

void Scene::drawBall( const GePoint3<float>& center, float radius, const Paint& paint, float gloss )
{
    constexpr int NB_RINGS = 36;
    constexpr float STEP = 3.14159265F / NB_RINGS;
    const auto vertex = [&]( int ring, int sector ) -> RasterVertex
    {
        const float across = std::sin( STEP * static_cast<float>( ring ) );
        const float turn = STEP * static_cast<float>( sector );
        const GeVector3<float> normal(
            across * std::cos( turn ), across * std::sin( turn ), std::cos( STEP * static_cast<float>( ring ) ) );
        const GePoint3<float> position = center + normal * radius;
        return { transform( position ), position, normal };
    };
    const Raster::Shader shader = [&]( const GePoint3<float>& position, const GeVector3<float>& normal )
    { return _studio.shade( position, normal, paint( position ), gloss ); };
    for ( int ring = 0; ring < NB_RINGS; ++ring )
    {
        for ( int sector = 0; sector < 2 * NB_RINGS; ++sector )
        {
            const RasterVertex a = vertex( ring, sector );
            const RasterVertex b = vertex( ring + 1, sector + 1 );
            _raster.drawTriangle( { a, vertex( ring, sector + 1 ), b }, shader );
            _raster.drawTriangle( { a, b, vertex( ring + 1, sector ) }, shader );
        }
    }
}

void Scene::drawTriangle( const std::array<Corner, 3>& corners, const Color& color, float gloss )
{
    const auto vertex = [&]( const Corner& corner ) -> RasterVertex {
        return { transform( corner.position ), corner.position, corner.normal };
    };
    _raster.drawTriangle( { vertex( corners[0] ), vertex( corners[1] ), vertex( corners[2] ) },
        [&]( const GePoint3<float>& position, const GeVector3<float>& normal )
        { return _studio.shade( position, normal, color, gloss ); } );
}

Spot Scene::computeSpot( const GePoint3<float>& point ) const
{
    const Spot spot = _raster.computeSpot( transform( point ) );
    return { static_cast<float>( _area.x ) + spot.x, static_cast<float>( _area.y ) + spot.y };
}

bool Scene::isFacing( const GePoint3<float>& point, const GeVector3<float>& normal ) const
{
    return normal.dot( _camera.eye - point ) > 0;
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

} // namespace Figures
