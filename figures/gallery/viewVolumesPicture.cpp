// Volumes that are made of others, and boxes that a plane alone cannot tell: asked point by point, and box by box.

#include "pictures.h"

#include "drawing.h"
#include "legend.h"
#include "planeMap.h"
#include "text.h"

#include <zq/primitives/geProjectionBuilder.h>
#include <zq/primitives/geTranslation3.h>
#include <zq/primitives/geViewVolume.h>
#include <zq/primitives/geYAxisRotation3.h>

#include <cmath>

namespace Figures
{

using namespace Zq;

namespace
{

using View = GeViewVolume<double>;
using Point = GePoint3<double>;

constexpr double TANGENT = 0.7;
constexpr double NEAR_DISTANCE = 0.8;

// An eye at (x, 0, 0) that is turned to the left by an angle.
View makeEye( double x, double angle, double farDistance )
{
    return { GeProjectionBuilder<double>::makePerspectiveFromTangents(
                 -TANGENT, TANGENT, -TANGENT, TANGENT, NEAR_DISTANCE, farDistance, GeDepthRange::ONE_TO_ZERO ) *
            ( GeYAxisRotation3<double>( -angle ) * GeTranslation3<double>( -x, 0, 0 ) ),
        GeDepthRange::ONE_TO_ZERO };
}

bool isIn( const View& view, const Point& point )
{
    return view.classify( point ) != View::VIEW_OUTSIDE;
}

// Where the plane y = 0 cuts the volume: near left, near right, far right, far left.
std::vector<Point> computeOutline( const View& view )
{
    GeHomogeneousCoord3<double> corners[View::NB_CORNERS];
    view.computeCorners( corners );
    std::vector<Point> outline;
    for ( const int bottom : { 0, 1, 5, 4 } )
    {
        // halfway to the corner above it
        const GeHomogeneousCoord3<double> middle = ( corners[bottom] + corners[bottom + 2] ) * 0.5;
        outline.emplace_back( middle.getX(), middle.getY(), middle.getZ() );
    }
    return outline;
}

void drawOutline( Canvas& picture, const PlaneMap& map, const View& view, bool isDashed )
{
    const std::vector<Point> outline = computeOutline( view );
    for ( std::size_t i = 0; i < outline.size(); ++i )
    {
        map.drawLine( picture, outline[i], outline[( i + 1 ) % outline.size()], isDashed ? 1.4F : 2, getPalette().edge,
            isDashed );
    }
}

void drawEye( Canvas& picture, const PlaneMap& map, const Point& eye, const std::string& name )
{
    const Spot spot = map.spotOf( eye );
    picture.fillDisc( spot.x, spot.y, 6, getPalette().edge );
    drawCentred( picture, spot.x, spot.y + 26, 12, name, getPalette().edge );
}

struct Panel
{
    PlaneMap map;
    std::string title;
    std::string subtitle;
};

constexpr int TOP = 170;
constexpr int WIDTH = 500;
constexpr int DEPTH = 390;
constexpr int HEIGHT = 745;
constexpr double SCALE = 80;

Panel makePanel( int index, const std::string& title, const std::string& subtitle )
{
    return { { { 28 + 522 * index, TOP, WIDTH, DEPTH }, -0.5 * WIDTH / SCALE, -0.85, SCALE }, title, subtitle };
}

void finish( Canvas& picture, const Panel& panel, const std::vector<LegendRow>& rows )
{
    const auto left = static_cast<float>( panel.map.area.x );
    panel.map.drawFrame( picture );
    drawHeading( picture, left, TOP - 40, panel.title, panel.subtitle );
    drawLegend( picture, left, TOP + DEPTH + 60 + 28 * static_cast<float>( rows.size() - 1 ), {}, rows );
}

Color getOutside()
{
    return mix( getPalette().white, getPalette().outside, 0.5F );
}

Color getStripe( int column, int row )
{
    return ( column + row ) % 14 < 7 ? getPalette().overlap : getPalette().white;
}

void drawUnion( Canvas& picture )
{
    constexpr double X = 0.45;
    constexpr double ANGLE = 0.26; // 15 degrees
    const Palette& palette = getPalette();
    const Panel panel = makePanel( 0, "makeUnion", "one volume for two eyes, turned apart by 30 degrees" );
    const View eyes[] = { makeEye( -X, ANGLE, 2.7 ), makeEye( X, -ANGLE, 2.7 ) };
    const View both = View::makeUnion( eyes, 2 );
    panel.map.fill( picture,
        [&]( const Point& point, int, int )
        {
            const int nbEyes = ( isIn( eyes[0], point ) ? 1 : 0 ) + ( isIn( eyes[1], point ) ? 1 : 0 );
            return nbEyes == 2 ? palette.inside : isIn( both, point ) ? palette.volume : getOutside();
        } );
    drawOutline( picture, panel.map, eyes[0], false );
    drawOutline( picture, panel.map, eyes[1], false );
    drawEye( picture, panel.map, { -X, 0, 0 }, "left" );
    drawEye( picture, panel.map, { X, 0, 0 }, "right" );
    finish( picture, panel,
        { { palette.inside, "both eyes see it" }, { palette.volume, "one of them sees it" },
            { getOutside(), "outside of the union" } } );
}

void drawSwept( Canvas& picture )
{
    const Palette& palette = getPalette();
    const Panel panel = makePanel( 1, "computeSwept", "one answer for every eye in a box: for the next frames" );
    const View view = makeEye( 0, 0, 2.7 );
    const GeAlignedBox3<double> offsets( Point( -0.5, 0, -0.6 ), Point( 0.5, 0, 0.2 ) );
    const View swept = view.computeSwept( offsets );
    panel.map.fill( picture,
        [&]( const Point& point, int column, int row )
        {
            // what eyes at the offsets see is seen when the point takes the opposite way
            const GeAlignedBox3<double> moved( point - GeVector3<double>( offsets.getCorner( 7 ) ),
                point - GeVector3<double>( offsets.getCorner( 0 ) ) );
            return isIn( view, point )                              ? palette.inside
                : view.classifyTight( moved ) != View::VIEW_OUTSIDE ? palette.volume
                : isIn( swept, point )                              ? getStripe( column, row )
                                                                    : getOutside();
        } );
    drawOutline( picture, panel.map, view, false );
    std::vector<Point> corners;
    for ( const int corner : { 0, 1, 5, 4 } )
    {
        corners.push_back( offsets.getCorner( corner ) );
    }
    for ( std::size_t i = 0; i < corners.size(); ++i )
    {
        panel.map.drawLine( picture, corners[i], corners[( i + 1 ) % corners.size()], 2, palette.ink );
    }
    drawEye( picture, panel.map, {}, "" );
    const Spot edge = panel.map.spotOf( { 0.5, 0, 0 } );
    drawText( picture, edge.x + 10, edge.y + 6, 12, "where the eye may go", palette.ink );
    finish( picture, panel,
        { { palette.inside, "the eye sees it from here" }, { palette.volume, "it sees it from elsewhere in the box" },
            { palette.overlap, "in the swept volume alone: kept for nothing", {}, Mark::STRIPES, palette.white },
            { getOutside(), "outside" } } );
}

void drawTight( Canvas& picture )
{
    const Palette& palette = getPalette();
    const Panel panel = makePanel( 2, "classifyTight", "boxes that cross planes, and yet miss the volume" );
    const View view = makeEye( 0, 0, 2.7 );
    panel.map.fill(
        picture, [&]( const Point& point, int, int ) { return isIn( view, point ) ? palette.volume : getOutside(); } );
    // planes go on beyond the volume
    const double reach = 5;
    for ( const double side : { -1.0, 1.0 } )
    {
        panel.map.drawLine( picture, {}, { side * TANGENT * reach, 0, -reach }, 1.4F, palette.edge, true );
    }
    for ( const double depth : { NEAR_DISTANCE, 2.7 } )
    {
        panel.map.drawLine( picture, { -reach, 0, -depth }, { reach, 0, -depth }, 1.4F, palette.edge, true );
    }
    drawOutline( picture, panel.map, view, false );

    struct Square
    {
        double x; // of its middle
        double depth;
        double half;
        const char* name;
    };
    const Square squares[] = { { 0.1, 2.0, 0.3, "a" }, { 1.4, 1.7, 0.3, "b" }, { 2.35, 2.85, 0.42, "c" },
        { -2.2, 2.7, 0.28, "d" }, { -1.75, 0.9, 0.35, "e" }, { -0.3, 3.3, 0.3, "f" } };
    Color stripes[2] = { palette.away, palette.white };
    for ( const Square& square : squares )
    {
        const Point low( square.x - square.half, -0.05, -square.depth - square.half );
        const Point high( square.x + square.half, 0.05, -square.depth + square.half );
        const GeAlignedBox3<double> box( low, high );
        const View::Classification verdict = view.classify( box );
        const bool isMissed = view.classifyTight( box ) == View::VIEW_OUTSIDE;
        const Spot from = panel.map.spotOf( low );
        const Spot to = panel.map.spotOf( high );
        const Area area = { static_cast<int>( from.x ), static_cast<int>( from.y ), static_cast<int>( to.x - from.x ),
            static_cast<int>( to.y - from.y ) };
        for ( int row = area.y; row < area.y + area.height; ++row )
        {
            for ( int column = area.x; column < area.x + area.width; ++column )
            {
                picture.setPixel( column, row,
                    verdict == View::VIEW_INSIDE        ? palette.inside
                        : verdict == View::VIEW_OUTSIDE ? palette.outside
                        : isMissed                      ? stripes[( column + row ) % 14 < 7 ? 0 : 1]
                                                        : palette.overlap );
            }
        }
        drawFrame( picture, area, 1.6F );
        const Spot middle = panel.map.spotOf( { square.x, 0, -square.depth } );
        picture.fillDisc( middle.x, middle.y, 11, palette.white );
        drawCentred( picture, middle.x, middle.y + 4, 11, square.name, palette.ink );
    }
    drawEye( picture, panel.map, {}, "eye" );
    finish( picture, panel,
        { { palette.inside, "inside, say both" }, { palette.overlap, "intersects, say both" },
            { palette.away, "intersects, says classify; outside, says classifyTight", {}, Mark::STRIPES,
                palette.white },
            { palette.outside, "outside, say both" } } );
}

} // namespace

Canvas drawViewVolumesPicture()
{
    Canvas picture = makeBackground( 1600, HEIGHT );
    drawCaption( picture, "Volumes made of others, and boxes at their corners",
        "seen from above: the volumes were asked about every pixel and every box" );
    drawUnion( picture );
    drawSwept( picture );
    drawTight( picture );
    return picture;
}

} // namespace Figures
