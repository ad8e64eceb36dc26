// Where a frustum draws its line: a point may be a little outside of a plane and still counts as inside.

#include "pictures.h"

#include "drawing.h"
#include "legend.h"
#include "scene.h"
#include "text.h"

#include <zq/primitives/geCameraBuilder.h>
#include <zq/primitives/geFrustum.h>

#include <algorithm>
#include <cmath>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

using Frustum = GeFrustum<double>;

// A map of the plane y = 0: x to the right, the depth -z upwards.
struct Map
{
    Area area;
    double x; // of the lower left corner
    double depth;
    double scale; // pixels per unit

    GePoint3<double> pointAt( double column, double row ) const
    {
        return { x + ( column - area.x ) / scale, 0, -( depth + ( area.y + area.height - row ) / scale ) };
    }
    Spot spotOf( const GePoint3<double>& point ) const
    {
        return { static_cast<float>( area.x + ( point.getX() - x ) * scale ),
            static_cast<float>( area.y + area.height + ( point.getZ() + depth ) * scale ) };
    }
};

bool isWithin( const Frustum& frustum, const GePoint3<double>& point )
{
    for ( int i = 0; i < Frustum::NB_PLANES; ++i )
    {
        if ( frustum.getPlane( i ).computeValue( point ) < 0 )
        {
            return false;
        }
    }
    return true;
}

// The frustum is asked about every pixel, four times.
void drawAnswers( Canvas& canvas, const Map& map, const Frustum& frustum )
{
    const Palette& palette = getPalette();
    const Color outside = mix( palette.white, palette.outside, 0.5F );
    for ( int y = map.area.y; y < map.area.y + map.area.height; ++y )
    {
        for ( int x = map.area.x; x < map.area.x + map.area.width; ++x )
        {
            Color sum;
            for ( const double dx : { 0.25, 0.75 } )
            {
                for ( const double dy : { 0.25, 0.75 } )
                {
                    const GePoint3<double> point = map.pointAt( x + dx, y + dy );
                    const bool isInside = frustum.classify( point ) == Frustum::FRUSTUM_INSIDE;
                    const bool isStripe = ( x + y ) % 14 < 7;
                    const Color& color = !isInside   ? outside
                        : isWithin( frustum, point ) ? palette.volume
                        : isStripe                   ? palette.overlap
                                                     : palette.white;
                    sum = sum + color * 0.25F;
                }
            }
            canvas.setPixel( x, y, sum );
        }
    }
}

void drawFrame( Canvas& canvas, const Area& area, double width )
{
    const auto left = static_cast<float>( area.x );
    const auto top = static_cast<float>( area.y );
    const auto right = static_cast<float>( area.x + area.width );
    const auto bottom = static_cast<float>( area.y + area.height );
    drawPolyline( canvas, { { left, top }, { right, top }, { right, bottom }, { left, bottom }, { left, top } },
        static_cast<float>( width ), getPalette().ink );
}

} // namespace

Canvas drawSlackPicture()
{
    constexpr double SLACK = 0.0001;
    constexpr double FIELD_OF_VIEW = 0.9;
    const Palette& palette = getPalette();
    const Frustum frustum( GeCameraBuilder<double>::makePerspective( FIELD_OF_VIEW, 1, 4, 1 ) );
    // where the near plane and the right one meet
    const double slope = std::tan( FIELD_OF_VIEW / 2 );
    const GePoint3<double> corner( slope, 0, -1 );

    Canvas picture = makeBackground( 1100, 760 );
    const Map whole = { { 28, 150, 500, 420 }, -2.5, -0.1, 100 };
    const double zoom = 420 / ( 8 * SLACK );
    const Map close = { { 572, 150, 500, 420 }, corner.getX() - 280 / zoom, 1 - 150 / zoom, zoom };
    drawAnswers( picture, whole, frustum );
    drawAnswers( picture, close, frustum );

    // the planes themselves, as they cut y = 0
    const auto planeLine = [&]( const Map& map, const GePoint3<double>& a, const GePoint3<double>& b )
    {
        const Spot begin = map.spotOf( a );
        const Spot end = map.spotOf( b );
        Canvas part = picture.cutOut( map.area );
        const auto dx = static_cast<float>( map.area.x );
        const auto dy = static_cast<float>( map.area.y );
        drawStroke( part, { begin.x - dx, begin.y - dy }, { end.x - dx, end.y - dy }, 2, palette.edge );
        picture.paste( part, map.area.x, map.area.y );
    };
    const auto pointAt = [&]( double side, double depth ) -> GePoint3<double> {
        return { side * slope * depth, 0, -depth };
    };
    for ( const double side : { -1.0, 1.0 } )
    {
        planeLine( whole, pointAt( side, 1 ), pointAt( side, 4 ) );
    }
    planeLine( whole, pointAt( -1, 1 ), pointAt( 1, 1 ) );
    planeLine( whole, pointAt( -1, 4 ), pointAt( 1, 4 ) );
    planeLine( close, pointAt( 1, 1 - 10 * SLACK ), pointAt( 1, 1 + 10 * SLACK ) );
    planeLine( close, { corner.getX() - 10 * SLACK, 0, -1 }, { corner.getX() + 10 * SLACK, 0, -1 } );
    drawFrame( picture, whole.area, 1.2 );
    drawFrame( picture, close.area, 1.2 );

    // where the right map lies in the left one
    const Spot mark = whole.spotOf( corner );
    drawFrame( picture, { static_cast<int>( mark.x ) - 9, static_cast<int>( mark.y ) - 9, 18, 18 }, 1.6 );
    drawDashes( picture, { { mark.x + 9, mark.y - 9 }, { 572, 150 } }, 1.2F, palette.ink, 6, 5 );
    drawDashes( picture, { { mark.x + 9, mark.y + 9 }, { 572, 570 } }, 1.2F, palette.ink, 6, 5 );
    const Spot eye = whole.spotOf( {} );
    picture.fillDisc( eye.x, eye.y, 6, palette.edge );
    drawText( picture, eye.x + 14, eye.y + 2, 12, "eye", palette.edge );
    drawCentred( picture, eye.x, whole.spotOf( pointAt( 0, 1 ) ).y + 26, 12, "near plane", palette.edge );
    drawCentred( picture, eye.x, whole.spotOf( pointAt( 0, 4 ) ).y + 26, 12, "far plane", palette.edge );

    // a scale and the width of the band
    const float top = 150 + 420 + 24;
    const auto unit = static_cast<float>( SLACK * close.scale );
    drawStroke( picture, { 572, top }, { 572 + unit, top }, 2, palette.ink );
    drawStroke( picture, { 572, top - 6 }, { 572, top + 6 }, 2, palette.ink );
    drawStroke( picture, { 572 + unit, top - 6 }, { 572 + unit, top + 6 }, 2, palette.ink );
    drawText( picture, 572 + unit + 12, top + 6, 12, "0.0001 units", palette.ink );
    drawStroke( picture, { 28, top }, { 128, top }, 2, palette.ink );
    drawStroke( picture, { 28, top - 6 }, { 28, top + 6 }, 2, palette.ink );
    drawStroke( picture, { 128, top - 6 }, { 128, top + 6 }, 2, palette.ink );
    drawText( picture, 140, top + 6, 12, "1 unit", palette.ink );

    drawCaption( picture, "The slack of a frustum",
        "classify was asked about every pixel: a point is inside up to 0.0001 beyond each plane, a length in the "
        "scene's units" );
    drawLines( picture, 28, 132, { "A frustum from above: near 1, far 4" }, palette.ink, 14 );
    drawLines( picture, 572, 132, { "The corner where near and right plane meet" }, palette.ink, 14 );
    drawLegend( picture, 28, 760 - 28, {},
        { { palette.volume, "FRUSTUM_INSIDE, within all planes", {} },
            { palette.overlap, "FRUSTUM_INSIDE, though beyond a plane: the slack", {}, Mark::STRIPES, palette.white },
            { mix( palette.white, palette.outside, 0.5F ), "FRUSTUM_OUTSIDE", {} } } );
    return picture;
}

} // namespace Figures
