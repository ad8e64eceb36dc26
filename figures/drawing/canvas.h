#ifndef ZQ_FIGURES_DRAWING_CANVAS_H
#define ZQ_FIGURES_DRAWING_CANVAS_H

#include <cstdint>
#include <vector>

namespace Figures
{

/// Linear light, 0 to 1 a channel: what may be added, mixed and averaged.
struct Color
{
    float red = 0;
    float green = 0;
    float blue = 0;

    Color operator+( const Color& other ) const;
    Color operator*( float factor ) const;
    Color operator*( const Color& other ) const;
};

/// The colour that a screen shows for 0xRRGGBB (sRGB).
Color makeColor( std::uint32_t rgb );
/// From a (at 0) to b (at 1).
Color mix( const Color& a, const Color& b, float t );

/// A place on a picture, in pixels: x to the right, y down.
struct Spot
{
    float x;
    float y;
};

/// A rectangle of a picture, in pixels.
struct Area
{
    int x;
    int y;
    int width;
    int height;
};

/// A picture in linear light with antialiased drawing. Coordinates are in pixels, the origin is the top left corner of
/// the picture, the centre of the first pixel is (0.5, 0.5). What lies outside the picture is not drawn.
class Canvas
{
public:
    Canvas( int width, int height, const Color& background = {} );

    int getWidth() const { return _width; }
    int getHeight() const { return _height; }
    const Color& getPixel( int x, int y ) const { return _pixels[index( x, y )]; }
    void setPixel( int x, int y, const Color& color ) { _pixels[index( x, y )] = color; }
    /// Covers the pixel with an opacity of 0 to 1.
    void blend( int x, int y, const Color& color, float opacity );

    void fillVerticalGradient( const Color& top, const Color& bottom );
    void fillRoundedRectangle(
        float x, float y, float width, float height, float cornerRadius, const Color& color, float opacity );
    void fillDisc( float x, float y, float radius, const Color& color );

    /// What an area shows, as a picture of its own, and the way back.
    Canvas cutOut( const Area& area ) const;
    void paste( const Canvas& other, int x, int y );

    /// Rows from top to bottom, three bytes (sRGB) a pixel.
    std::vector<std::uint8_t> makeRgb8() const;

private:
    std::size_t index( int x, int y ) const
    {
        return static_cast<std::size_t>( y ) * static_cast<std::size_t>( _width ) + static_cast<std::size_t>( x );
    }

    int _width;
    int _height;
    std::vector<Color> _pixels;
};

} // namespace Figures

#endif
