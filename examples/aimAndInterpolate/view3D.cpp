#include "view3D.h"

#include "light.h"

#include <zq/primitives/geCameraBuilder.h>

#include <cmath>

namespace AimAndInterpolate
{

using namespace Examples;
using namespace Zq;

namespace
{

Canvas cut( const Canvas& picture, const Area& area )
{
    Canvas part( area.width, area.height );
    for ( int y = 0; y < area.height; ++y )
    {
        for ( int x = 0; x < area.width; ++x )
        {
            part.setPixel( x, y, picture.getPixel( area.x + x, area.y + y ) );
        }
    }
    return part;
}

// From world space to clip space.
GeProjectiveMatrix3<double> makeToClip(
    const GePoint3<double>& eye, const Rotation& rotation, double fieldOfView, const Area& area )
{
    GeLinearMatrix3<double> toCamera;
    rotation.computeConjugate().getMatrix( toCamera );
    const GeAffineMatrix3<double> view( toCamera, -( toCamera * GeVector3<double>( eye ) ) );
    return GeCameraBuilder<double>::makePerspective(
               fieldOfView, 0.1, 100, static_cast<double>( area.width ) / area.height ) *
        view;
}

} // namespace

View3D::View3D(
    Canvas& picture, const Area& area, const GePoint3<double>& eye, const GePoint3<double>& target, double fieldOfView )
    : _picture( picture ), _area( area ), _eye( eye ), _rotation( aimCamera( eye, target ) ),
      _toClip( makeToClip( eye, _rotation, fieldOfView, area ) ),
      _raster( cut( picture, area ), { 0, 0, static_cast<double>( area.width ), static_cast<double>( area.height ) } )
{
}

GeHomogeneousCoord3<double> View3D::project( const GePoint3<double>& point ) const
{
    return _toClip * GeHomogeneousCoord3<double>( point.getX(), point.getY(), point.getZ(), 1 );
}

void View3D::drawBall( const GePoint3<double>& center, double radius, const Color& color, float gloss )
{
    constexpr int NB_RINGS = 48;
    constexpr double STEP = 3.14159265358979 / NB_RINGS;
    // the studio's sky is where z points to
    const auto toStudio = []( const GeVector3<double>& v )
    { return GeVector3<float>( GeVector3<double>( v.getX(), -v.getZ(), v.getY() ) ); };
    const auto makeAxis = [&]( double x, double y, double z )
    { return toStudio( _rotation * GeVector3<double>( x, y, z ) ); };
    const Studio studio( GePoint3<float>( toStudio( GeVector3<double>( _eye ) ) ), makeAxis( 1, 0, 0 ),
        makeAxis( 0, 1, 0 ), makeAxis( 0, 0, 1 ) );
    const auto makeVertex = [&]( int ring, int sector ) -> RasterVertex
    {
        const double across = std::sin( ring * STEP );
        const GeVector3<double> normal(
            across * std::cos( sector * STEP ), std::cos( ring * STEP ), across * std::sin( sector * STEP ) );
        const GePoint3<double> position = center + normal * radius;
        return {
            project( position ), GePoint3<float>( toStudio( GeVector3<double>( position ) ) ), toStudio( normal ) };
    };
    const Raster::Shader shader = [&]( const GePoint3<float>& position, const GeVector3<float>& normal )
    { return studio.shade( position, normal, color, gloss ); };
    for ( int ring = 0; ring < NB_RINGS; ++ring )
    {
        for ( int sector = 0; sector < 2 * NB_RINGS; ++sector )
        {
            const RasterVertex a = makeVertex( ring, sector );
            const RasterVertex b = makeVertex( ring + 1, sector + 1 );
            _raster.drawTriangle( { a, makeVertex( ring, sector + 1 ), b }, shader );
            _raster.drawTriangle( { a, b, makeVertex( ring + 1, sector ) }, shader );
        }
    }
}

void View3D::drawLine(
    const std::vector<GePoint3<double>>& points, double width, const Color& color, double hiddenOpacity )
{
    for ( std::size_t i = 1; i < points.size(); ++i )
    {
        _raster.drawLine( project( points[i - 1] ), project( points[i] ), width, color, hiddenOpacity );
    }
}

void View3D::finish()
{
    const Canvas drawn = _raster.resolve();
    for ( int y = 0; y < _area.height; ++y )
    {
        for ( int x = 0; x < _area.width; ++x )
        {
            _picture.setPixel( _area.x + x, _area.y + y, drawn.getPixel( x, y ) );
        }
    }
}

Pixel View3D::computePixel( const GePoint3<double>& point ) const
{
    const GeHomogeneousCoord3<double> clip = project( point );
    const GeHomogeneousCoord3<double> image = clip / clip.getW();
    return { static_cast<float>( _area.x + ( 1 + image.getX() ) * 0.5 * _area.width ),
        static_cast<float>( _area.y + ( 1 - image.getY() ) * 0.5 * _area.height ) };
}

bool View3D::isFacing( const GePoint3<double>& point, const GeVector3<double>& normal ) const
{
    return normal.dot( _eye - point ) > 0;
}

} // namespace AimAndInterpolate
