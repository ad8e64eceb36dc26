#include "text.h"

#include "glyphs.h"

#include <algorithm>
#include <cmath>
#include <locale>
#include <sstream>
#include <vector>

namespace Figures
{

namespace
{

struct Position
{
    float x;
    float y;
};

using Stroke = std::vector<Position>;

struct Glyph
{
    float width = 0;
    std::vector<Stroke> strokes;
};

constexpr char FIRST = ' ';
constexpr char LAST = '~';
constexpr float SPACING = 1.75F; // between glyphs, in glyph units
constexpr float NIB = 0.9F;      // the width of a stroke, in glyph units

void appendArc( std::istream& description, Stroke& stroke )
{
    constexpr float DEGREE = 3.14159265F / 180;
    constexpr int NB_STEPS = 24;
    float x = 0;
    float y = 0;
    float radiusX = 0;
    float radiusY = 0;
    float begin = 0;
    float end = 0;
    description >> x >> y >> radiusX >> radiusY >> begin >> end;
    for ( int i = 0; i <= NB_STEPS; ++i )
    {
        const float angle = DEGREE * ( begin + ( end - begin ) * static_cast<float>( i ) / NB_STEPS );
        stroke.push_back( { x + radiusX * std::cos( angle ), y + radiusY * std::sin( angle ) } );
    }
}

Glyph makeGlyph( const GlyphShape& shape )
{
    Glyph glyph;
    glyph.width = shape.width;
    std::istringstream description( shape.strokes );
    description.imbue( std::locale::classic() );
    Stroke stroke;
    while ( description >> std::ws && description.peek() != std::istringstream::traits_type::eof() )
    {
        const int next = description.peek();
        if ( next == ';' || next == '@' )
        {
            description.get();
        }
        if ( next == ';' )
        {
            glyph.strokes.push_back( stroke );
            stroke.clear();
        }
        else if ( next == '@' )
        {
            appendArc( description, stroke );
        }
        else
        {
            Position position{};
            description >> position.x >> position.y;
            stroke.push_back( position );
        }
    }
    if ( !stroke.empty() )
    {
        glyph.strokes.push_back( stroke );
    }
    return glyph;
}

const Glyph& findGlyph( char character )
{
    static const std::vector<Glyph> glyphs = []
    {
        std::vector<Glyph> made( LAST - FIRST + 1, makeGlyph( UNKNOWN_GLYPH ) );
        for ( const GlyphShape& shape : GLYPHS )
        {
            made[static_cast<std::size_t>( shape.character - FIRST )] = makeGlyph( shape );
        }
        return made;
    }();
    static const Glyph unknown = makeGlyph( UNKNOWN_GLYPH );
    return character >= FIRST && character <= LAST ? glyphs[static_cast<std::size_t>( character - FIRST )] : unknown;
}

float computeDistance( const Position& p, const Position& a, const Position& b )
{
    const float dx = b.x - a.x;
    const float dy = b.y - a.y;
    const float lengthSquared = dx * dx + dy * dy;
    const float along = ( p.x - a.x ) * dx + ( p.y - a.y ) * dy;
    const float t = lengthSquared > 0 ? std::clamp( along / lengthSquared, 0.0F, 1.0F ) : 0.0F;
    return std::hypot( p.x - a.x - t * dx, p.y - a.y - t * dy );
}

// The distance of every pixel to the nearest stroke gives its coverage, so that crossing strokes are covered once.
void drawGlyph( Canvas& canvas, const Glyph& glyph, float x, float y, float scale, float nib, const Color& color )
{
    const int left = static_cast<int>( std::floor( x - 3 * scale ) );
    const int right = static_cast<int>( std::ceil( x + ( glyph.width + 2 ) * scale ) );
    const int top = static_cast<int>( std::floor( y - 9 * scale ) );
    const int bottom = static_cast<int>( std::ceil( y + 4 * scale ) );
    for ( int row = top; row <= bottom; ++row )
    {
        for ( int column = left; column <= right; ++column )
        {
            const Position position{
                ( static_cast<float>( column ) + 0.5F - x ) / scale, ( y - static_cast<float>( row ) - 0.5F ) / scale };
            float distance = 1e9F;
            for ( const Stroke& stroke : glyph.strokes )
            {
                for ( std::size_t i = 1; i < stroke.size(); ++i )
                {
                    distance = std::min( distance, computeDistance( position, stroke[i - 1], stroke[i] ) );
                }
            }
            canvas.blend( column, row, color, std::clamp( nib / 2 + 0.5F - distance * scale, 0.0F, 1.0F ) );
        }
    }
}

} // namespace

float measureText( const std::string& text, float size )
{
    float width = 0;
    for ( const char character : text )
    {
        width += findGlyph( character ).width + SPACING;
    }
    return text.empty() ? 0 : ( width - SPACING ) * size / CAPITAL_HEIGHT;
}

void drawText( Canvas& canvas, float x, float y, float size, const std::string& text, const Color& color, float weight )
{
    const float scale = size / CAPITAL_HEIGHT;
    const float nib = std::max( NIB * scale * weight, 1.0F );
    for ( const char character : text )
    {
        const Glyph& glyph = findGlyph( character );
        drawGlyph( canvas, glyph, x, y, scale, nib, color );
        x += ( glyph.width + SPACING ) * scale;
    }
}

} // namespace Figures
