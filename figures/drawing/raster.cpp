#include "raster.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Figures
{

namespace
{

using Clip = Zq::GeHomogeneousCoord3<double>;

// Positive in front of the near plane.
double computeNearValue( const Clip& clip )
{
    return clip.getZ() + clip.getW();
}

RasterVertex mixVertex( const RasterVertex& a, const RasterVertex& b, double t )
{
    const auto factor = static_cast<float>( t );
    return { a.clip + ( b.clip - a.clip ) * t, a.position + ( b.position - a.position ) * factor,
        a.normal + ( b.normal - a.normal ) * factor };
}

// Whether a sample exactly on the edge from a to b belongs to the triangle: on the left and top edges only.
bool isOwnEdge( double dx, double dy )
{
    return dy < 0 || ( dy == 0 && dx > 0 );
}

} // namespace

Raster::Raster( const Canvas& background, const Viewport& viewport )
    : _width( background.getWidth() * SUPERSAMPLING ), _height( background.getHeight() * SUPERSAMPLING ),
      _viewport( viewport )
{
    const auto nbSamples = static_cast<std::size_t>( _width ) * static_cast<std::size_t>( _height );
    _colors.reserve( nbSamples );
    _depths.assign( nbSamples, std::numeric_limits<float>::infinity() );
    for ( int y = 0; y < _height; ++y )
    {
        for ( int x = 0; x < _width; ++x )
        {
            _colors.push_back( background.getPixel( x / SUPERSAMPLING, y / SUPERSAMPLING ) );
        }
    }
}

Raster::ScreenPoint Raster::project( const Clip& clip ) const
{
    const Clip image = clip / clip.getW();
    return { SUPERSAMPLING * ( _viewport.x + ( 1 + image.getX() ) * 0.5 * _viewport.width ),
        SUPERSAMPLING * ( _viewport.y + ( 1 - image.getY() ) * 0.5 * _viewport.height ), image.getZ(), clip.getW() };
}

template <class Visitor>
void Raster::visitSamples( std::array<ScreenPoint, 3> corners, Visitor visit ) const
{
    const auto computeArea = []( const ScreenPoint& a, const ScreenPoint& b, double x, double y )
    { return ( b.x - a.x ) * ( y - a.y ) - ( b.y - a.y ) * ( x - a.x ); };

    const double area = computeArea( corners[0], corners[1], corners[2].x, corners[2].y );
    if ( !std::isfinite( area ) || area == 0 )
    {
        return;
    }
    const double sign = area > 0 ? 1 : -1;
    const auto [left, right] = std::minmax( { corners[0].x, corners[1].x, corners[2].x } );
    const auto [top, bottom] = std::minmax( { corners[0].y, corners[1].y, corners[2].y } );
    const int firstX = static_cast<int>( std::clamp( std::floor( left ), 0.0, static_cast<double>( _width ) ) );
    const int lastX = static_cast<int>( std::clamp( std::ceil( right ), 0.0, static_cast<double>( _width ) ) );
    const int firstY = static_cast<int>( std::clamp( std::floor( top ), 0.0, static_cast<double>( _height ) ) );
    const int lastY = static_cast<int>( std::clamp( std::ceil( bottom ), 0.0, static_cast<double>( _height ) ) );

    for ( int y = firstY; y < lastY; ++y )
    {
        for ( int x = firstX; x < lastX; ++x )
        {
            std::array<double, 3> weights{};
            bool isInside = true;
            for ( std::size_t i = 0; i < 3 && isInside; ++i )
            {
                const ScreenPoint& a = corners[( i + 1 ) % 3];
                const ScreenPoint& b = corners[( i + 2 ) % 3];
                const double value = sign * computeArea( a, b, x + 0.5, y + 0.5 );
                isInside = value > 0 || ( value == 0 && isOwnEdge( sign * ( b.x - a.x ), sign * ( b.y - a.y ) ) );
                weights[i] = value / ( sign * area );
            }
            if ( isInside )
            {
                visit(
                    static_cast<std::size_t>( y ) * static_cast<std::size_t>( _width ) + static_cast<std::size_t>( x ),
                    weights );
            }
        }
    }
}

void Raster::drawTriangle( const std::array<RasterVertex, 3>& triangle, const Shader& shader, float opacity )
{
    // Cut by the near plane, a triangle becomes a polygon of up to four corners.
    std::array<RasterVertex, 4> polygon;
    std::size_t nbCorners = 0;
    for ( std::size_t i = 0; i < 3; ++i )
    {
        const RasterVertex& a = triangle[i];
        const RasterVertex& b = triangle[( i + 1 ) % 3];
        const double valueA = computeNearValue( a.clip );
        const double valueB = computeNearValue( b.clip );
        if ( valueA > 0 )
        {
            polygon[nbCorners++] = a;
        }
        if ( ( valueA > 0 ) != ( valueB > 0 ) )
        {
            polygon[nbCorners++] = mixVertex( a, b, valueA / ( valueA - valueB ) );
        }
    }
    for ( std::size_t i = 2; i < nbCorners; ++i )
    {
        shadeTriangle( { polygon[0], polygon[i - 1], polygon[i] }, shader, opacity );
    }
}

void Raster::shadeTriangle( const std::array<RasterVertex, 3>& triangle, const Shader& shader, float opacity )
{
    const std::array<ScreenPoint, 3> corners = {
        project( triangle[0].clip ), project( triangle[1].clip ), project( triangle[2].clip ) };
    visitSamples( corners,
        [&]( std::size_t sample, const std::array<double, 3>& weights )
        {
            // depth is linear on the screen, everything else once divided by w
            const auto depth =
                static_cast<float>( weights[0] * corners[0].z + weights[1] * corners[1].z + weights[2] * corners[2].z );
            if ( !( depth <= 1 && depth < _depths[sample] ) )
            {
                return;
            }
            const std::array<double, 3> shares = {
                weights[0] / corners[0].w, weights[1] / corners[1].w, weights[2] / corners[2].w };
            const double sum = shares[0] + shares[1] + shares[2];
            const auto share1 = static_cast<float>( shares[1] / sum );
            const auto share2 = static_cast<float>( shares[2] / sum );
            const Zq::GePoint3<float> position = triangle[0].position +
                ( triangle[1].position - triangle[0].position ) * share1 +
                ( triangle[2].position - triangle[0].position ) * share2;
            const Zq::GeVector3<float> normal = triangle[0].normal * ( 1 - share1 - share2 ) +
                triangle[1].normal * share1 + triangle[2].normal * share2;
            const Color color = shader( position, normal );
            if ( opacity < 1 )
            {
                _colors[sample] = mix( _colors[sample], color, opacity );
                return;
            }
            _depths[sample] = depth;
            _colors[sample] = color;
        } );
}

void Raster::drawLine(
    const Clip& beginClip, const Clip& endClip, double width, const Color& color, double hiddenOpacity )
{
    const double beginValue = computeNearValue( beginClip );
    const double endValue = computeNearValue( endClip );
    if ( !( beginValue > 0 || endValue > 0 ) )
    {
        return;
    }
    const Clip cut = beginClip + ( endClip - beginClip ) * ( beginValue / ( beginValue - endValue ) );
    const ScreenPoint begin = project( beginValue > 0 ? beginClip : cut );
    const ScreenPoint end = project( endValue > 0 ? endClip : cut );

    const double length = std::hypot( end.x - begin.x, end.y - begin.y );
    if ( !( length > 0 ) )
    {
        return;
    }
    const double acrossX = -( end.y - begin.y ) / length * width * SUPERSAMPLING / 2;
    const double acrossY = ( end.x - begin.x ) / length * width * SUPERSAMPLING / 2;
    const auto shift = [&]( const ScreenPoint& point, double side ) -> ScreenPoint {
        return { point.x + side * acrossX, point.y + side * acrossY, point.z, point.w };
    };
    const std::array<ScreenPoint, 4> quad = {
        shift( begin, 1 ), shift( begin, -1 ), shift( end, -1 ), shift( end, 1 ) };

    for ( const std::array<ScreenPoint, 3>& corners : { std::array<ScreenPoint, 3>{ quad[0], quad[1], quad[2] },
              std::array<ScreenPoint, 3>{ quad[0], quad[2], quad[3] } } )
    {
        visitSamples( corners,
            [&]( std::size_t sample, const std::array<double, 3>& weights )
            {
                const double depth = weights[0] * corners[0].z + weights[1] * corners[1].z + weights[2] * corners[2].z;
                const bool isHidden = depth > static_cast<double>( _depths[sample] );
                const double opacity = isHidden ? hiddenOpacity : 1.0;
                _colors[sample] = mix( _colors[sample], color, static_cast<float>( opacity ) );
            } );
    }
}

Spot Raster::computeSpot( const Clip& clip ) const
{
    const ScreenPoint point = project( clip );
    return { static_cast<float>( point.x / SUPERSAMPLING ), static_cast<float>( point.y / SUPERSAMPLING ) };
}

Canvas Raster::resolve() const
{
    Canvas canvas( _width / SUPERSAMPLING, _height / SUPERSAMPLING );
    for ( int y = 0; y < canvas.getHeight(); ++y )
    {
        for ( int x = 0; x < canvas.getWidth(); ++x )
        {
            Color sum;
            for ( int i = 0; i < SUPERSAMPLING * SUPERSAMPLING; ++i )
            {
                const int row = y * SUPERSAMPLING + i / SUPERSAMPLING;
                const int column = x * SUPERSAMPLING + i % SUPERSAMPLING;
                sum = sum +
                    _colors[static_cast<std::size_t>( row ) * static_cast<std::size_t>( _width ) +
                        static_cast<std::size_t>( column )];
            }
            canvas.setPixel( x, y, sum * ( 1.0F / ( SUPERSAMPLING * SUPERSAMPLING ) ) );
        }
    }
    return canvas;
}

} // namespace Figures
