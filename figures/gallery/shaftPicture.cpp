// What may stand between a lamp and a table? Everything that the shaft between the two does not leave outside.

#include "pictures.h"

#include "drawing.h"
#include "legend.h"
#include "scene.h"

#include <cmath>
#include <stdexcept>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

using Box = GeAlignedBox3<float>;
using Containment = Interval<float>::Containment;

Box makeBoxAt( float x, float y, float z, float sizeX, float sizeY, float sizeZ )
{
    const GePoint3<float> corner( x, y, z );
    return { corner, corner + GeVector3<float>( sizeX, sizeY, sizeZ ) };
}

Box move( const Box& box, const GeVector3<float>& offset )
{
    return { box.getCorner( 0 ) + offset, box.getCorner( 7 ) + offset };
}

// Moves a box along y until the queries disagree about it: then it touches a plane of the shaft. The touching places
// are few floats wide, or none wide; other starting places are tried until there is one.
Box slideUntilTouching( const GeShaft& shaft, const Box& start, float distance, Containment closed, Containment open )
{
    for ( int attempt = 0; attempt < 1000; ++attempt )
    {
        const Box box = move( start, GeVector3<float>( 0.0001F * static_cast<float>( attempt ), 0, 0 ) );
        const Containment first = shaft.overlaps( box );
        float before = 0;
        float after = distance;
        for ( int i = 0; i < 60; ++i )
        {
            const float middle = ( before + after ) / 2;
            const Box moved = move( box, GeVector3<float>( 0, middle, 0 ) );
            if ( shaft.overlaps( moved ) == closed && shaft.overlapsExclude( moved ) == open )
            {
                return moved;
            }
            ( shaft.overlaps( moved ) == first ? before : after ) = middle;
        }
    }
    throw std::logic_error( "no box was found to touch the shaft" );
}

const Color& findColor( Containment containment )
{
    const Palette& palette = getPalette();
    switch ( containment )
    {
    case Interval<float>::INSIDE:
        return palette.inside;
    case Interval<float>::OVERLAP:
        return palette.overlap;
    default:
        return palette.outside;
    }
}

// The colour of the answer; stripes where the two queries answer differently.
void drawJudged( Scene& scene, const GeShaft& shaft, const Box& box )
{
    constexpr float STRIPE = 0.15F;
    const Color& closed = findColor( shaft.overlaps( box ) );
    const Color& open = findColor( shaft.overlapsExclude( box ) );
    scene.drawSolid( makeBox( box ),
        [&]( const GePoint3<float>& p )
        {
            const float along = ( p.getX() + p.getY() + p.getZ() ) / STRIPE;
            return along - 2 * std::floor( along / 2 ) < 1 ? closed : open;
        } );
    scene.drawEdges( makeBox( box ), 1.2, getPalette().ink, 0 );
}

void drawRoom( Scene& scene, const Box& lamp, const Box& table )
{
    const Palette& palette = getPalette();
    // a floor of tiles
    for ( int i = -12; i < 24; ++i )
    {
        for ( int j = -8; j < 24; ++j )
        {
            const Box tile =
                makeBoxAt( static_cast<float>( i ) * 0.8F, static_cast<float>( j ) * 0.8F, 0, 0.79F, 0.79F, 0 );
            scene.drawSolid( { { makeBox( tile ).faces.back() } }, makeColor( ( i + j ) % 2 ? 0xE9E5DC : 0xE2DED4 ) );
        }
    }
    const GePoint3<float> leg = table.getCorner( 0 );
    const GeVector3<float> size = table.getSize();
    for ( const float u : { 0.06F, 0.94F } )
    {
        for ( const float v : { 0.08F, 0.92F } )
        {
            scene.drawSolid( makeBox( makeBoxAt( leg.getX() + u * size.getX() - 0.05F,
                                 leg.getY() + v * size.getY() - 0.05F, 0, 0.1F, 0.1F, leg.getZ() ) ),
                makeColor( 0x6C4F3D ) );
        }
    }
    scene.drawSolid( makeBox( table ), makeColor( 0x8A6650 ) );
    scene.drawEdges( makeBox( table ), 1.2, palette.ink, 0.2 );
    scene.drawFlat( makeBox( lamp ), []( const GePoint3<float>& ) { return makeColor( 0xFFE9A8 ); } );
    scene.drawEdges( makeBox( lamp ), 1.6, palette.ink, 0.3 );
}

} // namespace

Canvas drawShaftPicture( ObjFile& file )
{
    const Palette& palette = getPalette();
    const Box lamp = makeBoxAt( -0.5F, -0.75F, 4, 1.5F, 1.5F, 0.08F );
    const Box table = makeBoxAt( 2.5F, -1.5F, 0.9F, 3, 3, 0.08F );
    const GeShaft shaft( lamp, table );
    const Solid shaftSolid = makeShaftSolid( shaft );

    const std::vector<Box> boxes = {
        makeBoxAt( 2.0F, -0.3F, 2.3F, 0.6F, 0.6F, 0.6F ), // wholly inside
        makeBoxAt( 2.6F, -2.1F, 1.7F, 0.9F, 1.1F, 0.5F ), // across a side
        makeBoxAt( 3.0F, 0.2F, 2.3F, 1.0F, 0.7F, 0.7F ),  // across the slope above
        makeBoxAt( 0.9F, -0.2F, 0.0F, 0.8F, 0.8F, 1.6F ), // outside, below
        makeBoxAt( 5.0F, -0.6F, 3.2F, 0.8F, 0.8F, 0.8F ), // outside, above
        makeBoxAt( 6.4F, -0.8F, 0.0F, 0.8F, 0.8F, 1.2F ), // outside the extent box
    };
    const Box touchingInside = slideUntilTouching( shaft, makeBoxAt( 1.3F, -0.4F, 2.75F, 0.5F, 0.5F, 0.4F ), -2,
        Interval<float>::OVERLAP, Interval<float>::INSIDE );
    const Box touchingOutside = slideUntilTouching( shaft, makeBoxAt( 3.9F, -3.6F, 1.3F, 0.7F, 0.7F, 0.7F ), 2.5F,
        Interval<float>::OUTSIDE, Interval<float>::OVERLAP );

    constexpr int HEIGHT = 900;
    Canvas picture = makeBackground( 1024, HEIGHT );
    Scene scene( picture, { 0, 100, 1024, 640 }, { { -0.8F, -11.5F, 5.6F }, { 2.75F, 0, 1.85F }, 0.45F, 1, 4, 30 } );
    drawRoom( scene, lamp, table );
    for ( const Box& box : boxes )
    {
        drawJudged( scene, shaft, box );
    }
    drawJudged( scene, shaft, touchingInside );
    drawJudged( scene, shaft, touchingOutside );
    scene.drawEdges( makeBox( shaft.getExtentBox() ), 0.9, palette.paleInk, 0.35 );
    scene.drawGlass( shaftSolid, palette.volume, 0.22F );
    scene.drawEdges( shaftSolid, 2.2, palette.edge, 0.45 );

    scene.finish( picture );
    const auto spotOf = [&]( const Box& box, int corner ) { return scene.computeSpot( box.getCorner( corner ) ); };
    drawCaption(
        picture, "A shaft between two boxes", "whatever can stand between the lamp and the table reaches into it" );
    drawCallout( picture, spotOf( touchingInside, 5 ), 460, 186,
        { "touches a plane from inside:", "overlaps OVERLAP,", "overlapsExclude INSIDE" } );
    drawCallout( picture, spotOf( touchingOutside, 1 ), 640, 704,
        { "touches a plane from outside:", "overlaps OUTSIDE, overlapsExclude OVERLAP" } );
    drawCallout( picture, spotOf( lamp, 5 ), 400, 128, { "the lamp: reference box 1" } );
    drawCallout( picture, spotOf( table, 0 ), 480, 672, { "the table: reference box 2" } );
    const Spot extent = spotOf( shaft.getExtentBox(), 5 );
    drawCallout( picture, extent, 830, 128, { "the extent box" } );
    drawLegend( picture, 28, HEIGHT - 28, {},
        { { palette.inside, "INSIDE: wholly in the shaft", {} },
            { palette.overlap, "OVERLAP: partly, or too close to tell", {} },
            { palette.outside, "OUTSIDE: cannot cast a shadow on the table", {} } } );

    file.addSolid( "shaft", shaftSolid );
    file.addSolid( "lamp", makeBox( shaft.getRefBox1() ) );
    file.addSolid( "table", makeBox( shaft.getRefBox2() ) );
    return picture;
}

} // namespace Figures
