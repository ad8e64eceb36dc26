#include "canvas.h"

#include <algorithm>
#include <cmath>

namespace Figures
{

namespace
{

// The transfer curve of sRGB (IEC 61966-2-1).
float decode( float value )
{
    return value <= 0.04045F ? value / 12.92F : std::pow( ( value + 0.055F ) / 1.055F, 2.4F );
}

float encode( float value )
{
    return value <= 0.0031308F ? value * 12.92F : 1.055F * std::pow( value, 1.0F / 2.4F ) - 0.055F;
}

std::uint8_t makeByte( float value )
{
    return static_cast<std::uint8_t>( std::lround( 255 * encode( std::clamp( value, 0.0F, 1.0F ) ) ) );
}

} // namespace

Color Color::operator+( const Color& other ) const
{
    return { red + other.red, green + other.green, blue + other.blue };
}

Color Color::operator*( float factor ) const
{
    return { red * factor, green * factor, blue * factor };
}

Color Color::operator*( const Color& other ) const
{
    return { red * other.red, green * other.green, blue * other.blue };
}

Color makeColor( std::uint32_t rgb )
{
    const auto channel = [rgb]( int shift ) { return decode( static_cast<float>( ( rgb >> shift ) & 0xFFU ) / 255 ); };
    return { channel( 16 ), channel( 8 ), channel( 0 ) };
}

Color mix( const Color& a, const Color& b, float t )
{
    return a * ( 1 - t ) + b * t;
}

Canvas::Canvas( int width, int height, const Color& background )
    : _width( width ), _height( height ),
      _pixels( static_cast<std::size_t>( width ) * static_cast<std::size_t>( height ), background )
{
}

void Canvas::blend( int x, int y, const Color& color, float opacity )
{
    if ( x >= 0 && x < _width && y >= 0 && y < _height && opacity > 0 )
    {
        Color& pixel = _pixels[index( x, y )];
        pixel = mix( pixel, color, std::min( opacity, 1.0F ) );
    }
}

void Canvas::fillVerticalGradient( const Color& top, const Color& bottom )
{
    for ( int y = 0; y < _height; ++y )
    {
        const Color color = mix( top, bottom, ( static_cast<float>( y ) + 0.5F ) / static_cast<float>( _height ) );
        std::fill_n( _pixels.begin() + static_cast<std::ptrdiff_t>( index( 0, y ) ), _width, color );
    }
}

void Canvas::fillRoundedRectangle(
    float x, float y, float width, float height, float cornerRadius, const Color& color, float opacity )
{
    const float centerX = x + width / 2;
    const float centerY = y + height / 2;
    for ( int row = static_cast<int>( y ) - 1; row <= static_cast<int>( y + height ) + 1; ++row )
    {
        for ( int column = static_cast<int>( x ) - 1; column <= static_cast<int>( x + width ) + 1; ++column )
        {
            // the distance from the rounded outline, negative inside
            const float dx = std::abs( static_cast<float>( column ) + 0.5F - centerX ) - width / 2 + cornerRadius;
            const float dy = std::abs( static_cast<float>( row ) + 0.5F - centerY ) - height / 2 + cornerRadius;
            const float distance = std::hypot( std::max( dx, 0.0F ), std::max( dy, 0.0F ) ) +
                std::min( std::max( dx, dy ), 0.0F ) - cornerRadius;
            blend( column, row, color, opacity * std::clamp( 0.5F - distance, 0.0F, 1.0F ) );
        }
    }
}

void Canvas::fillDisc( float x, float y, float radius, const Color& color )
{
    fillRoundedRectangle( x - radius, y - radius, 2 * radius, 2 * radius, radius, color, 1 );
}

Canvas Canvas::cutOut( const Area& area ) const
{
    Canvas part( area.width, area.height );
    for ( int y = 0; y < area.height; ++y )
    {
        for ( int x = 0; x < area.width; ++x )
        {
            part.setPixel( x, y, getPixel( area.x + x, area.y + y ) );
        }
    }
    return part;
}

void Canvas::paste( const Canvas& other, int x, int y )
{
    for ( int row = 0; row < other.getHeight(); ++row )
    {
        for ( int column = 0; column < other.getWidth(); ++column )
        {
            setPixel( x + column, y + row, other.getPixel( column, row ) );
        }
    }
}

std::vector<std::uint8_t> Canvas::makeRgb8() const
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve( 3 * _pixels.size() );
    for ( const Color& pixel : _pixels )
    {
        bytes.insert( bytes.end(), { makeByte( pixel.red ), makeByte( pixel.green ), makeByte( pixel.blue ) } );
    }
    return bytes;
}

} // namespace Figures
