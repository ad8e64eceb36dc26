// Where a frustum draws its line: a point may be a little outside of a plane and still counts as inside.

#include "pictures.h"

#include "drawing.h"
#include "legend.h"
#include "planeMap.h"
#include "text.h"

#include <zq/primitives/geCameraBuilder.h>
#include <zq/primitives/geFrustum.h>

#include <algorithm>
#include <cmath>

namespace Figures
{

using namespace Zq;

namespace
{

using Frustum = GeFrustum<double>;

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
void drawAnswers( Canvas& canvas, const PlaneMap& map, const Frustum& frustum )
{
    const Palette& palette = getPalette();
    const Color outside = mix( palette.white, palette.outside, 0.5F );
    map.fill( canvas,
        [&]( const GePoint3<double>& point, int x, int y ) -> const Color&
        {
            const bool isInside = frustum.classify( point ) == Frustum::FRUSTUM_INSIDE;
            const bool isStripe = ( x + y ) % 14 < 7;
            return !isInside                 ? outside
                : isWithin( frustum, point ) ? palette.volume
                : isStripe                   ? palette.overlap
                                             : palette.white;
        } );
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
    const PlaneMap whole = { { 28, 150, 500, 420 }, -2.5, -0.1, 100 };
    const double zoom = 420 / ( 8 * SLACK );
    const PlaneMap close = { { 572, 150, 500, 420 }, corner.getX() - 280 / zoom, 1 - 150 / zoom, zoom };
    drawAnswers( picture, whole, frustum );
    drawAnswers( picture, close, frustum );

    // the planes themselves, as they cut y = 0
    const auto planeLine = [&]( const PlaneMap& map, const GePoint3<double>& a, const GePoint3<double>& b )
    { map.drawLine( picture, a, b, 2, palette.edge ); };
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
    whole.drawFrame( picture );
    close.drawFrame( picture );

    // where the right map lies in the left one
    const Spot mark = whole.spotOf( corner );
    drawFrame( picture, { static_cast<int>( mark.x ) - 9, static_cast<int>( mark.y ) - 9, 18, 18 }, 1.6F );
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
