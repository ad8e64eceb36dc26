#include "cullMeshPictures.h"

#include "drawing.h"
#include "meshPainter.h"
#include "numberText.h"
#include "text.h"

#include <algorithm>
#include <cmath>

namespace CullMesh
{

using namespace Examples;
using namespace Figures;
using namespace Zq;

namespace
{

using Corners = std::array<GePoint3<double>, 8>;

GeVector3<double> getAxis( const GeLinearMatrix3<double>& axes, int row )
{
    return { axes( row, 0 ), axes( row, 1 ), axes( row, 2 ) };
}

// Of the view: bit 0 right, bit 1 top, bit 2 far. One without a far plane is shown as far as the mesh reaches.
Corners computeCorners( const Shot& shot )
{
    Camera camera = shot.camera;
    if ( std::isinf( camera.farDistance ) )
    {
        fitClipPlanes( camera, shot.mesh.points );
        camera.nearDistance = shot.camera.nearDistance;
        camera.farDistance = std::max( camera.farDistance, 2 * camera.nearDistance );
    }
    const GeLinearMatrix3<double> axes = makeView<double>( camera ).getLinear();
    const double slope = std::tan( static_cast<double>( camera.fieldOfView ) / 2 );
    Corners corners;
    for ( unsigned i = 0; i < corners.size(); ++i )
    {
        const auto depth = static_cast<double>( ( i & 4U ) != 0 ? camera.farDistance : camera.nearDistance );
        const double y = ( i & 2U ) != 0 ? slope * depth : -slope * depth;
        const double x = static_cast<double>( camera.aspect ) * ( ( i & 1U ) != 0 ? slope * depth : -slope * depth );
        corners[i] = GePoint3<double>( camera.eye ) + getAxis( axes, 0 ) * x + getAxis( axes, 1 ) * y -
            getAxis( axes, 2 ) * depth;
    }
    return corners;
}

// A camera that sees mesh, eye and view from the side and a little from above.
Camera makeSceneCamera( const Shot& shot, const Corners& corners, const Area& area )
{
    constexpr double SLOPE = 0.24; // of the picture's height against the distance
    constexpr double MARGIN = 1.06;
    constexpr double MAX_DISTANCE = 8; // from the origin
    const GeLinearMatrix3<double> view = makeView<double>( shot.camera ).getLinear();
    const GeVector3<double> direction = getAxis( view, 0 ) + getAxis( view, 2 ) * 0.25 + GeVector3<double>( 0, 0, 0.5 );
    const double aspect = static_cast<double>( area.width ) / area.height;

    // what is far away is shown by the direction that it lies in
    std::vector<GePoint3<double>> points;
    const auto add = [&points]( const GePoint3<double>& point )
    {
        const GeVector3<double> offset( point );
        points.emplace_back( offset * std::min( 1.0, MAX_DISTANCE / offset.length() ) );
    };
    std::for_each( corners.begin(), corners.end(), add );
    add( GePoint3<double>( shot.camera.eye ) );
    for ( const GePoint3<float>& point : shot.mesh.points )
    {
        points.emplace_back( point );
    }

    // the middle of what is seen along the direction, then the distance at which all of it fits
    Camera camera{};
    camera.eye = GePoint3<float>( GePoint3<double>( direction ) );
    const GeLinearMatrix3<double> axes = makeView<double>( camera ).getLinear();
    GeVector3<double> low( 1e9, 1e9, 1e9 );
    GeVector3<double> high = -low;
    for ( const GePoint3<double>& point : points )
    {
        const GeVector3<double> inCamera = axes * GeVector3<double>( point );
        low = GeVector3<double>::computeMin( low, inCamera );
        high = GeVector3<double>::computeMax( high, inCamera );
    }
    const GeVector3<double> middle = ( low + high ) * 0.5;
    double distance = 0;
    for ( const GePoint3<double>& point : points )
    {
        const GeVector3<double> offset = axes * GeVector3<double>( point ) - middle;
        const double spread = std::max( std::abs( offset.getX() ) / aspect, std::abs( offset.getY() ) );
        distance = std::max( distance, offset.getZ() + MARGIN * spread / SLOPE );
    }
    const GePoint3<double> target( axes.computeTranspose() * middle );
    const double reach = ( high - low ).length();
    camera.target = GePoint3<float>( target );
    camera.eye = GePoint3<float>( target + getAxis( axes, 2 ) * distance );
    camera.fieldOfView = static_cast<float>( 2 * std::atan( SLOPE ) );
    camera.aspect = static_cast<float>( aspect );
    camera.nearDistance = static_cast<float>( std::max( distance - reach, 0.05 * distance ) );
    camera.farDistance = static_cast<float>( distance + reach );
    return camera;
}

const Color& findColor( const Cluster& cluster, Verdict verdict )
{
    const Palette& palette = getPalette();
    switch ( verdict )
    {
    case Verdict::OUTSIDE:
        return palette.outside;
    case Verdict::BEHIND:
        return palette.overlap;
    default:
        return cluster.isConeUsable ? palette.inside : palette.unsure;
    }
}

// Neighbouring clusters differ a little in brightness, so that each can be seen.
float computeTint( std::size_t cluster )
{
    return 0.87F + 0.035F * static_cast<float>( cluster * 5 % 8 );
}

void drawVolume( Scene& scene, const Camera& camera, const Corners& corners )
{
    constexpr double HIDDEN = 0.3;
    const bool hasFarPlane = !std::isinf( camera.farDistance );
    const auto line = [&]( const GePoint3<double>& begin, const GePoint3<double>& end, double width )
    { scene.drawLine( GePoint3<float>( begin ), GePoint3<float>( end ), width, getPalette().edge, HIDDEN ); };
    for ( unsigned i = 0; i < corners.size(); ++i )
    {
        for ( const unsigned bit : { 1U, 2U, 4U } )
        {
            if ( ( i & bit ) == 0 && ( hasFarPlane || i < 4 ) )
            {
                line( corners[i], corners[i | bit], 2.4 );
            }
        }
    }
    for ( std::size_t i = 0; i < 4; ++i )
    {
        line( GePoint3<double>( camera.eye ), corners[i], 1.2 );
    }
}

// `share` of the text is to the left of the spot.
void writeAbove( Canvas& picture, const Area& area, const Spot& spot, const std::string& text, float share )
{
    constexpr float SIZE = 13;
    const float width = measureText( text, SIZE );
    const auto lowest = static_cast<float>( area.x + 8 );
    const auto highest = static_cast<float>( area.x + area.width - 8 ) - width;
    const float left = std::clamp( spot.x - share * width, lowest, std::max( lowest, highest ) );
    drawText( picture, left, spot.y - SIZE, SIZE, text, getPalette().edge );
}

// Marks the eye and names the clip planes at their highest corners.
void annotate( Canvas& picture, const Area& area, const Scene& scene, const Camera& camera, const Corners& corners )
{
    const Palette& palette = getPalette();
    const Spot eye = scene.computeSpot( camera.eye );
    picture.fillDisc( eye.x, eye.y, 11, palette.white );
    picture.fillDisc( eye.x, eye.y, 9, palette.edge );
    picture.fillDisc( eye.x, eye.y, 4, palette.white );
    writeAbove( picture, area, { eye.x, eye.y - 8 }, "eye", 0.5F );

    const bool hasFarPlane = !std::isinf( camera.farDistance );
    for ( const std::size_t first : { 0U, 4U } )
    {
        Spot highest = scene.computeSpot( GePoint3<float>( corners[first] ) );
        for ( std::size_t i = first; i < first + 4; ++i )
        {
            const Spot spot = scene.computeSpot( GePoint3<float>( corners[i] ) );
            highest = spot.y < highest.y ? spot : highest;
        }
        writeAbove( picture, area, highest,
            first == 0        ? "near plane"
                : hasFarPlane ? "far plane"
                              : "and on without end",
            first == 0 ? 0.9F : 0.5F );
    }
}

LegendRow makeRow( const Color& color, const std::string& label, const Count& count, const Tally& tally )
{
    const double share = static_cast<double>( count.triangles ) / static_cast<double>( tally.computeTotal().triangles );
    return { color, label,
        { makeGroupedText( count.clusters ), makeGroupedText( count.triangles ),
            makeDecimalText( 100 * share, 1 ) + " %" } };
}

} // namespace

void addScene( Canvas& picture, const Area& area, const Shot& shot )
{
    const Corners corners = computeCorners( shot );
    Scene scene( picture, area, makeSceneCamera( shot, corners, area ) );
    const MeshPainter painter( shot.mesh );
    for ( std::size_t i = 0; i < shot.clusters.size(); ++i )
    {
        const Color& color = findColor( shot.clusters[i], shot.verdicts[i] );
        painter.paint( scene, shot.clusters[i], color * computeTint( i ), 0.25F, true );
    }
    drawVolume( scene, shot.camera, corners );
    scene.finish( picture );
    annotate( picture, area, scene, shot.camera, corners );
}

std::vector<LegendRow> makeLegend( const Shot& shot )
{
    const Palette& palette = getPalette();
    const Tally& tally = shot.tally;
    Count withCone = tally.visible;
    withCone.clusters -= tally.visibleWithoutCone.clusters;
    withCone.triangles -= tally.visibleWithoutCone.triangles;
    std::vector<LegendRow> rows = { makeRow( palette.outside, "culled: outside the view", tally.outside, tally ),
        makeRow( palette.overlap, "culled: faces away from the eye", tally.behind, tally ),
        makeRow( palette.inside, "drawn", withCone, tally ) };
    if ( tally.visibleWithoutCone.clusters > 0 )
    {
        rows.push_back( makeRow( palette.unsure, "drawn: its cone is not usable", tally.visibleWithoutCone, tally ) );
    }
    return rows;
}

Canvas drawScene( const Shot& shot )
{
    constexpr int TOP = 100;
    constexpr int BOTTOM = 200; // for the legend
    Canvas picture = makeBackground( PICTURE_WIDTH, PICTURE_HEIGHT );
    addScene( picture, { 0, TOP, PICTURE_WIDTH, PICTURE_HEIGHT - TOP - BOTTOM }, shot );
    drawCaption( picture, "What the camera need not draw",
        "the same moment from outside; every patch is a cluster of triangles, its colour the verdict on it" );
    drawLegend( picture, 28, PICTURE_HEIGHT - 28, { "clusters", "triangles", "share" }, makeLegend( shot ) );
    return picture;
}

} // namespace CullMesh
