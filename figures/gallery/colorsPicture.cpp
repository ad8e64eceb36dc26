// Hue, saturation and value as a hexcone, the six sectors of the hue, and ramps through the gamma correction.

#include "pictures.h"

#include "drawing.h"
#include "numberText.h"
#include "scene.h"
#include "text.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/coRgbColor.h>

#include <algorithm>
#include <cmath>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

using Rgb = CoRgbColorT<float>;
using Hsv = CoHsvColorT<float>;

// A component of 1 is the brightest the screen shows: what is drawn are the numbers, as they would be stored.
Color makeScreenColor( const Rgb& rgb )
{
    const auto byte = []( float component )
    { return static_cast<std::uint32_t>( std::lround( 255 * std::clamp( component, 0.0F, 1.0F ) ) ); };
    return makeColor( byte( rgb.getRed() ) << 16U | byte( rgb.getGreen() ) << 8U | byte( rgb.getBlue() ) );
}

// The hexcone has its tip, black, at the origin and its base, value 1, at HEIGHT; its corners are the six pure hues,
// red in the direction of x.
constexpr float HEIGHT = 1.35F;

// The colour at a place: the value is the height, the hue the angle, the saturation the way from the axis to the rim.
Rgb findColorAt( const GePoint3<float>& p )
{
    constexpr float DEGREES = 57.29578F;
    const float value = p.getZ() / HEIGHT;
    const float across = std::hypot( p.getX(), p.getY() );
    const float hue = DEGREES * std::atan2( p.getY(), p.getX() );
    // how far the rim of the hexagon is in this direction
    const float inSector = hue - 60 * std::floor( hue / 60 ) - 30;
    const float rim = value * std::cos( 30 / DEGREES ) / std::cos( inSector / DEGREES );
    const float saturation = rim > 0 ? std::min( across / rim, 1.0F ) : 0.0F;
    return Hsv( hue, saturation, std::min( value, 1.0F ) ).convertToRgb();
}

GePoint3<float> cornerAt( int i, float value )
{
    constexpr float SECTOR = 1.04719755F;
    const float angle = SECTOR * static_cast<float>( i );
    return { value * std::cos( angle ), value * std::sin( angle ), value * HEIGHT };
}

// Four of six sectors, and the two cut faces where the others were: the inside can be seen.
Solid makeHexcone()
{
    constexpr int FIRST = 0;
    constexpr int NB_SECTORS = 5;
    const GePoint3<float> tip( 0, 0, 0 );
    const GePoint3<float> white( 0, 0, HEIGHT );
    Solid solid;
    for ( int i = FIRST; i < FIRST + NB_SECTORS; ++i )
    {
        solid.faces.push_back( { tip, cornerAt( i + 1, 1 ), cornerAt( i, 1 ) } );
        solid.faces.push_back( { white, cornerAt( i, 1 ), cornerAt( i + 1, 1 ) } );
    }
    solid.faces.push_back( { tip, cornerAt( FIRST, 1 ), white } );
    solid.faces.push_back( { tip, white, cornerAt( FIRST + NB_SECTORS, 1 ) } );
    return solid;
}

void drawHexcone( Scene& scene )
{
    const Palette& palette = getPalette();
    scene.drawFlat( makeHexcone(), []( const GePoint3<float>& p ) { return makeScreenColor( findColorAt( p ) ); } );
    const GePoint3<float> white( 0, 0, HEIGHT );
    for ( int i = 0; i < 6; ++i )
    {
        scene.drawLine( cornerAt( i, 1 ), cornerAt( i + 1, 1 ), 1.4, palette.ink, 0.25 );
        scene.drawLine( GePoint3<float>(), cornerAt( i, 1 ), 1.2, palette.ink, 0.12 );
    }
    scene.drawLine( white, cornerAt( 0, 1 ), 1.2, palette.ink, 0.25 );
    scene.drawLine( white, cornerAt( 5, 1 ), 1.2, palette.ink, 0.25 );
    scene.drawArrow( GePoint3<float>(), GePoint3<float>( 0, 0, HEIGHT * 1.42F ), 0.008F, palette.ink );
}

// A strip of all hues, and over it the three components that convertToRgb() gives.
void drawSectors( Canvas& canvas, float left, float top, float width, float height )
{
    const Palette& palette = getPalette();
    const float strip = top + height + 12;
    for ( int i = 0; i <= 6; ++i )
    {
        const std::string label = std::to_string( 60 * i );
        const float x = left + width * static_cast<float>( i ) / 6;
        drawStroke( canvas, { x, top - 6 }, { x, strip + 34 }, 1, palette.rule );
        drawCentred( canvas, x, strip + 52, 11, label, palette.paleInk );
    }
    std::vector<Spot> curves[3];
    for ( int x = 0; x <= static_cast<int>( width ); ++x )
    {
        const Rgb rgb = Hsv( 360 * static_cast<float>( x ) / width, 1, 1 ).convertToRgb();
        for ( int y = 0; y < 30; ++y )
        {
            canvas.setPixel( static_cast<int>( left ) + x, static_cast<int>( strip ) + y, makeScreenColor( rgb ) );
        }
        const float components[3] = { rgb.getRed(), rgb.getGreen(), rgb.getBlue() };
        for ( int i = 0; i < 3; ++i )
        {
            // a little apart where they coincide
            curves[i].push_back( { left + static_cast<float>( x ),
                top + height * ( 1 - components[i] ) + 4 * static_cast<float>( i - 1 ) } );
        }
    }
    // each with its own line style and, where it rises or falls alone, its name
    struct Style
    {
        std::uint32_t color;
        float dash;
        float gap;
        float x;
        const char* name;
    };
    const Style styles[3] = { { 0xC2342F, 1000, 1, 0.275F, "red" }, { 0x2E7D3A, 10, 6, 0.118F, "green" },
        { 0x3155C4, 3, 5, 0.435F, "blue" } };
    for ( int i = 0; i < 3; ++i )
    {
        const Style& style = styles[i];
        drawDashes( canvas, curves[i], 2.6F, makeColor( style.color ), style.dash, style.gap );
        drawText(
            canvas, left + width * style.x, top + height * 0.55F, 12, style.name, makeColor( style.color ), 1.2F );
    }
    drawText( canvas, left, top - 22, 13, "red, green and blue over the hue, in degrees", palette.ink );
}

void drawRamps( Canvas& canvas, float left, float top, float width )
{
    constexpr float ROW = 44;
    const Palette& palette = getPalette();
    drawText( canvas, left, top - 14, 13, "gammaCorrect: every component to the power", palette.ink );
    float y = top;
    for ( const float gamma : { 1 / 2.2F, 1.0F, 2.2F } )
    {
        for ( int x = 0; x < static_cast<int>( width ); ++x )
        {
            const float t = ( static_cast<float>( x ) + 0.5F ) / width;
            const Color grey = makeScreenColor( Rgb( t ).gammaCorrect( gamma ) );
            const Color orange = makeScreenColor( Rgb( t, 0.6F * t, 0.1F * t ).gammaCorrect( gamma ) );
            for ( int row = 0; row < 30; ++row )
            {
                canvas.setPixel( static_cast<int>( left ) + x, static_cast<int>( y ) + row, row < 15 ? grey : orange );
            }
        }
        drawText( canvas, left + width + 12, y + 20, 12,
            gamma == 1      ? std::string( "1" )
                : gamma < 1 ? std::string( "1 / 2.2" )
                            : std::string( "2.2" ),
            palette.ink );
        y += ROW;
    }
}

} // namespace

Canvas drawColorsPicture()
{
    const Palette& palette = getPalette();
    Canvas picture = makeBackground( 1024, 700 );
    Scene scene( picture, { 16, 100, 530, 560 }, { { 2.3F, -4.6F, 3.3F }, { 0, 0, 0.80F }, 0.5F, 1, 1, 20 } );
    drawHexcone( scene );
    scene.finish( picture );
    const char* const names[6] = { "red 0", "yellow 60", "green 120", "cyan 180", "blue 240", "magenta 300" };
    for ( int i = 0; i < 5; ++i )
    {
        const Spot spot = scene.computeSpot( cornerAt( i, 1 ) );
        const Spot middle = scene.computeSpot( { 0, 0, HEIGHT } );
        const float width = measureText( names[i], 12 );
        const bool isBeside = std::abs( spot.x - middle.x ) > 100;
        const float x = isBeside ? ( spot.x > middle.x ? spot.x + 10 : spot.x - width - 10 ) : spot.x - width - 24;
        drawText( picture, x, spot.y - ( i == 2 ? 8.0F : 0.0F ), 12, names[i], palette.ink );
    }
    // what lies within the outline is named from outside
    drawCallout( picture, scene.computeSpot( cornerAt( 5, 1 ) ), 60, 520, { names[5] } );
    drawCallout( picture, scene.computeSpot( { 0.5F, 0, HEIGHT } ), 420, 480, { "saturation" } );
    const Spot black = scene.computeSpot( GePoint3<float>() );
    drawText( picture, black.x - 40, black.y + 26, 12, "value 0: black", palette.ink );
    const Spot axis = scene.computeSpot( { 0, 0, HEIGHT * 1.42F } );
    drawText( picture, axis.x + 14, axis.y + 8, 12, "value", palette.ink );

    drawSectors( picture, 560, 160, 420, 150 );
    drawRamps( picture, 560, 480, 350 );
    drawLines( picture, 560, 636,
        { "Upper halves: greys from 0 to 1. Lower halves: an orange.",
            "1 / 2.2 brightens: it turns light into what a screen stores.", "2.2 goes the other way." },
        palette.paleInk, 11 );

    drawText( picture, 28, 50, 22, "Hue, saturation, value", palette.ink, 1.2F );
    drawText( picture, 28, 82, 13,
        "the hexcone, one sector taken out: grey in the axis, pure colours on the rim; by convertToRgb",
        palette.paleInk );
    return picture;
}

} // namespace Figures
