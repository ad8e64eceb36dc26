#include "drawing.h"

#include "text.h"

#include <algorithm>
#include <cmath>

namespace Figures
{

namespace
{

constexpr float LINE_HEIGHT = 1.75F; // of the height of capitals
constexpr float MARGIN = 28;

} // namespace

Canvas makeBackground( int width, int height )
{
    return { width, height, getPalette().paper };
}

void drawCaption( Canvas& canvas, const std::string& title, const std::string& subtitle )
{
    drawText( canvas, MARGIN, MARGIN + 22, 22, title, getPalette().ink, 1.2F );
    drawText( canvas, MARGIN, MARGIN + 54, 13, subtitle, getPalette().paleInk );
}

void drawHeading( Canvas& canvas, float x, float y, const std::string& title, const std::string& subtitle )
{
    drawText( canvas, x, y, 15, title, getPalette().ink, 1.15F );
    drawText( canvas, x, y + 24, 12, subtitle, getPalette().paleInk );
}

void drawPlate( Canvas& canvas, const Area& area )
{
    canvas.fillRoundedRectangle( static_cast<float>( area.x ), static_cast<float>( area.y ),
        static_cast<float>( area.width ), static_cast<float>( area.height ), 12, getPalette().white, 0.7F );
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

void drawCentred( Canvas& canvas, float x, float y, float size, const std::string& text, const Color& color )
{
    drawText( canvas, x - measureText( text, size ) / 2, y, size, text, color );
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
        x - GAP, y - SIZE - GAP, width + 2 * GAP, height + 2 * GAP, 6, getPalette().white, 0.85F );
    // from the nearest point of the plate
    const Spot end = { std::clamp( target.x, x - GAP, x + width + GAP ),
        std::clamp( target.y, y - SIZE - GAP, y - SIZE + height + GAP ) };
    drawStroke( canvas, target, end, 1.4F, getPalette().ink );
    canvas.fillDisc( target.x, target.y, 3, getPalette().ink );
    drawLines( canvas, x, y, lines, getPalette().ink, SIZE );
}

void drawArrow( Canvas& canvas, Spot begin, Spot end, float width, const Color& color )
{
    const float length = std::hypot( end.x - begin.x, end.y - begin.y );
    const Spot along = { ( end.x - begin.x ) / length, ( end.y - begin.y ) / length };
    const float head = 4 + 2.5F * width;
    const auto barb = [&]( float side ) -> Spot
    {
        return { end.x - head * along.x - side * head * 0.5F * along.y,
            end.y - head * along.y + side * head * 0.5F * along.x };
    };
    drawStroke( canvas, begin, end, width, color );
    drawPolyline( canvas, { barb( 1 ), end, barb( -1 ) }, width, color );
}

} // namespace Figures
