// Lines and a box: which part of each line lies inside?

#include "pictures.h"

#include "drawing.h"
#include "legend.h"
#include "numberText.h"
#include "scene.h"

#include <random>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

using Box = GeAlignedBox3<float>;

struct Line
{
    GePoint3<float> origin;
    GeVector3<float> direction; // t = 0 and t = 1 are the drawn ends
};

std::vector<Line> makeLines()
{
    std::mt19937 engine( 11 );
    const auto uniform = [&]( float low, float high )
    { return low + ( high - low ) * static_cast<float>( engine() >> 8U ) * 0x1p-24F; };
    std::vector<Line> lines;
    for ( int i = 0; i < 26; ++i )
    {
        const GePoint3<float> begin{ -3.2F, uniform( -2.2F, 2.2F ), uniform( 0, 3.2F ) };
        const GePoint3<float> end{ 3.2F, uniform( -2.2F, 2.2F ), uniform( 0, 3.2F ) };
        lines.push_back( { begin, end - begin } );
    }
    return lines;
}

} // namespace

Canvas drawClippingPicture()
{
    const Palette& palette = getPalette();
    const Box box( GePoint3<float>( -1.6F, -1.1F, 0.5F ), GePoint3<float>( 1.6F, 1.1F, 2.6F ) );
    const Solid solid = makeBox( box );
    constexpr int HEIGHT = 870;
    Canvas picture = makeBackground( 1024, HEIGHT );
    Scene scene( picture, { 0, 100, 1024, 590 }, { { -4.2F, -10.5F, 5.2F }, { 0.1F, 0, 1.4F }, 0.42F, 1, 4, 40 } );

    scene.drawFlat( { { solid.faces[4] } }, []( const GePoint3<float>& ) { return makeColor( 0xD8DDE3 ); } );
    std::size_t nbHits = 0;
    std::size_t nbMisses = 0;
    for ( const Line& line : makeLines() )
    {
        const auto pointAt = [&]( float t ) { return line.origin + line.direction * t; };
        const Interval<float> inside = box.intersectLine( line.origin, line.direction );
        if ( inside.isEmpty() )
        {
            ++nbMisses;
            scene.drawDashes( pointAt( 0 ), pointAt( 1 ), 0.07F, 1.3, palette.paleInk, 0.7 );
            continue;
        }
        ++nbHits;
        scene.drawLine( pointAt( 0 ), pointAt( inside.min ), 1.3, palette.inside, 0.6 );
        scene.drawLine( pointAt( inside.max ), pointAt( 1 ), 1.3, palette.inside, 0.6 );
        scene.drawLine( pointAt( inside.min ), pointAt( inside.max ), 4, palette.overlap, 0.8 );
        scene.drawBall( pointAt( inside.min ), 0.06F, palette.inside );
        const GeVector3<float> half( 0.055F, 0.055F, 0.055F );
        scene.drawSolid( makeBox( { pointAt( inside.max ) - half, pointAt( inside.max ) + half } ), palette.away );
    }
    scene.drawGlass( solid, palette.volume, 0.12F );
    scene.drawEdges( solid, 2, palette.ink, 0.5 );

    // one line that is read off
    const Line example{ GePoint3<float>( -3.2F, -2.4F, 2.9F ), GeVector3<float>( 6.4F, 3.2F, -2 ) };
    const Interval<float> range = box.intersectLine( example.origin, example.direction );
    const auto pointOn = [&]( float t ) { return example.origin + example.direction * t; };
    scene.drawLine( pointOn( 0 ), pointOn( range.min ), 3, palette.ink, 0.6 );
    scene.drawLine( pointOn( range.min ), pointOn( range.max ), 7, palette.overlap, 0.9 );
    scene.drawLine( pointOn( range.max ), pointOn( 1 ), 3, palette.ink, 0.6 );
    scene.finish( picture );
    const auto mark = [&]( float t, float x, float y, const std::string& text )
    { drawCallout( picture, scene.computeSpot( pointOn( t ) ), x, y, { text } ); };
    mark( 0, 60, 150, "t = 0: the origin" );
    mark( range.min, 250, 118, "enters at t = " + makeDecimalText( static_cast<double>( range.min ), 3 ) );
    mark( range.max, 700, 150, "leaves at t = " + makeDecimalText( static_cast<double>( range.max ), 3 ) );
    mark( 1, 780, 650, "t = 1: origin + direction" );

    drawCaption( picture, "Lines and a box",
        "intersectLine gives the range of t inside, over the whole line; an empty range is a miss" );
    drawLegend( picture, 28, HEIGHT - 28, { "lines" },
        { { palette.overlap, "the part inside, from where it enters (ball) to where it leaves (cube)",
              { makeGroupedText( nbHits ) }, Mark::THICK_LINE },
            { palette.inside, "the parts of these lines outside", { "" }, Mark::LINE },
            { palette.paleInk, "misses: the range is empty", { makeGroupedText( nbMisses ) }, Mark::DASHES } } );
    return picture;
}

} // namespace Figures
