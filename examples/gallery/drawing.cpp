#include "drawing.h"

#include "text.h"

#include <algorithm>
#include <cmath>

namespace Gallery
{

using namespace Examples;

namespace
{

constexpr float LINE_HEIGHT = 1.75F; // of the height of capitals

} // namespace

const Palette& getPalette()
{
    static const Palette palette;
    return palette;
}

Canvas makeBackground( int width, int height )
{
    Canvas canvas( width, height );
    canvas.fillVerticalGradient( makeColor( 0xF7F5F0 ), makeColor( 0xDDE3E8 ) );
    return canvas;
}

void drawStroke( Canvas& canvas, Spot begin, Spot end, float width, const Color& color )
{
    const float dx = end.x - begin.x;
    const float dy = end.y - begin.y;
    const float lengthSquared = dx * dx + dy * dy;
    const float reach = width / 2 + 1;
    const int left = static_cast<int>( std::floor( std::min( begin.x, end.x ) - reach ) );
    const int right = static_cast<int>( std::ceil( std::max( begin.x, end.x ) + reach ) );
    const int top = static_cast<int>( std::floor( std::min( begin.y, end.y ) - reach ) );
    const int bottom = static_cast<int>( std::ceil( std::max( begin.y, end.y ) + reach ) );
    for ( int y = top; y <= bottom; ++y )
    {
        for ( int x = left; x <= right; ++x )
        {
            // the distance of the pixel's centre decides how much of it is covered
            const float px = static_cast<float>( x ) + 0.5F - begin.x;
            const float py = static_cast<float>( y ) + 0.5F - begin.y;
            const float t = lengthSquared > 0 ? std::clamp( ( px * dx + py * dy ) / lengthSquared, 0.0F, 1.0F ) : 0.0F;
            const float distance = std::hypot( px - t * dx, py - t * dy );
            canvas.blend( x, y, color, std::clamp( width / 2 + 0.5F - distance, 0.0F, 1.0F ) );
        }
    }
}

void drawLines(
    Canvas& canvas, float x, float y, const std::vector<std::string>& lines, const Color& color, float size )
{
    for ( const std::string& line : lines )
    {
        drawText( canvas, x, y, size, line, color );
        y += LINE_HEIGHT * size;
    }
}

void drawCallout( Canvas& canvas, Spot target, float x, float y, const std::vector<std::string>& lines )
{
    constexpr float SIZE = 12;
    constexpr float GAP = 10;
    float width = 0;
    for ( const std::string& line : lines )
    {
        width = std::max( width, measureText( line, SIZE ) );
    }
    const float height = SIZE + LINE_HEIGHT * SIZE * static_cast<float>( lines.size() - 1 );
    canvas.fillRoundedRectangle(
        x - GAP, y - SIZE - GAP, width + 2 * GAP, height + 2 * GAP, 6, makeColor( 0xFFFFFF ), 0.8F );
    // from the nearest point of the plate
    const Spot end = { std::clamp( target.x, x - GAP, x + width + GAP ),
        std::clamp( target.y, y - SIZE - GAP, y - SIZE + height + GAP ) };
    drawStroke( canvas, target, end, 1.4F, getPalette().ink );
    canvas.fillDisc( target.x, target.y, 3, getPalette().ink );
    drawLines( canvas, x, y, lines, getPalette().ink, SIZE );
}

} // namespace Gallery
