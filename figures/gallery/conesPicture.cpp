// A patch of surface, the cones that bound its normals and its points, and from where it shows only its back.

#include "pictures.h"

#include "drawing.h"
#include "legend.h"
#include "numberText.h"
#include "scene.h"
#include "text.h"

#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFloatingConeBuilder.h>

#include <array>
#include <cmath>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

struct Face
{
    std::array<GePoint3<float>, 3> corners;
    GeUnitVector3<float> normal;
};

struct Patch
{
    std::vector<Face> faces;
    GeFloatingCone normals;
    GeAnchoredCone anchored;
    GeCullingCones cones;
};

// A shallow dome with a twist; the normals point up.
GePoint3<float> computePatchPoint( int i, int j, int count )
{
    const float x = 2 * static_cast<float>( i ) / static_cast<float>( count ) - 1;
    const float y = 2 * static_cast<float>( j ) / static_cast<float>( count ) - 1;
    return { x, y, 0.2F - 0.24F * x * x - 0.13F * y * y + 0.06F * x * y + 0.05F * x };
}

Patch makePatch()
{
    constexpr int COUNT = 10;
    std::vector<Face> faces;
    GeFloatingConeBuilder normals;
    GeAnchoredConeBuilder points;
    for ( int i = 0; i < COUNT; ++i )
    {
        for ( int j = 0; j < COUNT; ++j )
        {
            const auto corner = [&]( int u, int v ) { return computePatchPoint( i + u, j + v, COUNT ); };
            for ( const std::array<GePoint3<float>, 3>& corners :
                { std::array<GePoint3<float>, 3>{ corner( 0, 0 ), corner( 1, 0 ), corner( 1, 1 ) },
                    std::array<GePoint3<float>, 3>{ corner( 0, 0 ), corner( 1, 1 ), corner( 0, 1 ) } } )
            {
                const GeUnitVector3<float> normal( ( corners[1] - corners[0] ).cross( corners[2] - corners[0] ) );
                normals( normal );
                for ( const GePoint3<float>& point : corners )
                {
                    points( point );
                }
                faces.push_back( { corners, normal } );
            }
        }
    }
    const GeFloatingCone cone = normals.createCone();
    const GeAnchoredCone anchored = points.createCone( cone );
    return { faces, cone, anchored, GeCullingCones( anchored ) };
}

bool showsFront( const Face& face, const GePoint3<float>& eye )
{
    return face.normal.dot( eye - face.corners[0] ) > 0;
}

void drawPatch( Scene& scene, const Patch& patch )
{
    for ( const Face& face : patch.faces )
    {
        const Solid triangle{ { Polygon( face.corners.begin(), face.corners.end() ) } };
        scene.drawSolid( triangle, showsFront( face, scene.getEye() ) ? getPalette().clay : makeColor( 0x8B5E4B ) );
    }
    constexpr int COUNT = 10;
    for ( int i = 0; i <= COUNT; ++i )
    {
        for ( int j = 0; j < COUNT; ++j )
        {
            const double width = i % COUNT == 0 ? 1.6 : 0.7;
            const GePoint3<float> along[2] = { computePatchPoint( i, j, COUNT ), computePatchPoint( i, j + 1, COUNT ) };
            const GePoint3<float> across[2] = {
                computePatchPoint( j, i, COUNT ), computePatchPoint( j + 1, i, COUNT ) };
            scene.drawLine( along[0], along[1], width, makeColor( 0x6B5A45 ), 0.1 );
            scene.drawLine( across[0], across[1], width, makeColor( 0x6B5A45 ), 0.1 );
        }
    }
}

Camera makeCamera( float distance, float height )
{
    const float slope = 0.28F;
    return { { 0.55F * distance, -0.8F * distance, height + slope * distance }, { 0, 0, height }, 0.42F, 1, 1, 60 };
}

// Panel 1: the normals as points of a unit sphere, from close by and above.
void drawNormals( Scene& scene, const Patch& patch )
{
    const Palette& palette = getPalette();
    const GePoint3<float> origin;
    const GeVector3<float> axis = patch.normals.getAxis();
    const float angle = patch.normals.getSemiAngle();
    const Solid cone = makeTruncatedCone( origin, axis, 0, std::sin( angle ), std::cos( angle ) );
    // the parallels of the upper half, about the vertical
    for ( const float z : { 0.0F, 0.3F, 0.6F, 0.8F, 0.95F } )
    {
        const float across = std::sqrt( 1 - z * z );
        scene.drawRim(
            makeTruncatedCone( { 0, 0, z }, { 0, 0, 1 }, across, across, 0 ).faces.back(), 0.9, palette.rule, 0.9 );
    }
    for ( int meridian = 0; meridian < 12; ++meridian )
    {
        const float turn = 3.14159265F / 6 * static_cast<float>( meridian );
        std::vector<GePoint3<float>> points;
        for ( int step = 0; step <= 18; ++step )
        {
            const float t = 1.5707963F * static_cast<float>( step ) / 18;
            points.emplace_back( std::cos( t ) * std::cos( turn ), std::cos( t ) * std::sin( turn ), std::sin( t ) );
        }
        scene.drawLine( points, 0.9, palette.rule, 0.9 );
    }
    for ( const Face& face : patch.faces )
    {
        scene.drawBall( GePoint3<float>( face.normal ), 0.012F, palette.gold );
    }
    for ( std::size_t i = 0; i < patch.faces.size(); i += 41 )
    {
        scene.drawArrow( origin, origin + patch.faces[i].normal * 0.985F, 0.006F, palette.gold );
    }
    Solid side = cone;
    side.faces.pop_back();
    scene.drawGlass( side, palette.volume, 0.3F );
    scene.drawRim( cone.faces.back(), 2.4, palette.edge, 0.6 );
    scene.drawArrow( origin, origin + axis * 1.3F, 0.014F, palette.ink );
    scene.drawBall( origin, 0.03F, palette.ink );
}

Solid makeAnchoredSolid( const GeAnchoredCone& anchored )
{
    return makeTruncatedCone( anchored.getBottomCenter(), anchored.getFloatingCone().getAxis(),
        anchored.getBottomRadius(), anchored.getTopRadius(), anchored.getHeight() );
}

// Panel 2: the truncated cone around the points.
void drawAnchored( Scene& scene, const Patch& patch )
{
    const Palette& palette = getPalette();
    drawPatch( scene, patch );
    for ( std::size_t i = 0; i < patch.faces.size(); i += 7 )
    {
        const Face& face = patch.faces[i];
        scene.drawArrow( face.corners[0], face.corners[0] + face.normal * 0.28F, 0.008F, palette.gold );
    }
    const Solid solid = makeAnchoredSolid( patch.anchored );
    scene.drawGlass( solid, palette.volume, 0.22F );
    scene.drawRim( solid.faces.back(), 2, palette.edge, 0.5 );
    scene.drawRim( solid.faces[solid.faces.size() - 2], 2, palette.edge, 0.5 );
}

// The cones of the viewpoints, of a given length.
Solid makeFrontCone( const GeCullingCones& cones, float length )
{
    const GeVector3<float> axis = cones.getFloatingCone().getAxis();
    const GePoint3<float> tip = cones.getBackfacingApex() + axis * cones.getFrontfacingOffset();
    return makeTruncatedCone( tip, axis, 0, length * std::tan( cones.getCullingSemiAngle() ), length );
}

Solid makeBackCone( const GeCullingCones& cones, float length )
{
    const GeVector3<float> axis = -cones.getFloatingCone().getAxis();
    return makeTruncatedCone(
        cones.getBackfacingApex(), axis, 0, length * std::tan( cones.getCullingSemiAngle() ), length );
}

// Panel 3: the regions of viewpoints.
void drawCulling( Scene& scene, const Patch& patch )
{
    const Palette& palette = getPalette();
    drawPatch( scene, patch );
    const Solid front = makeFrontCone( patch.cones, 1.5F );
    const Solid back = makeBackCone( patch.cones, 1.5F );
    scene.drawGlass( back, palette.overlap, 0.22F );
    scene.drawGlass( front, palette.inside, 0.22F );
    scene.drawRim( front.faces.back(), 2, palette.inside, 0.5 );
    scene.drawRim( back.faces.back(), 2, palette.overlap, 0.5 );
    const GePoint3<float> backTip = patch.cones.getBackfacingApex();
    const GePoint3<float> frontTip =
        backTip + patch.cones.getFloatingCone().getAxis() * patch.cones.getFrontfacingOffset();
    scene.drawBall( backTip, 0.05F, palette.overlap );
    scene.drawBall( frontTip, 0.05F, palette.inside );
}

// The answers of the cones, and what the faces themselves say where the cones do not know.
struct SliceColors
{
    Color behind = getPalette().overlap;
    Color behindUnknown = mix( getPalette().white, getPalette().overlap, 0.4F );
    Color front = mix( getPalette().white, getPalette().inside, 0.75F );
    Color frontUnknown = mix( getPalette().white, getPalette().inside, 0.3F );
    Color both = getPalette().white;
    Color wrong = makeColor( 0xFF00FF ); // the cones contradict a face
};

Color findSliceColor( const Patch& patch, const GePoint3<float>& eye )
{
    static const SliceColors colors;
    std::size_t nbFronts = 0;
    for ( const Face& face : patch.faces )
    {
        nbFronts += showsFront( face, eye ) ? 1U : 0U;
    }
    if ( patch.cones.isBehind( eye ) )
    {
        return nbFronts == 0 ? colors.behind : colors.wrong;
    }
    if ( patch.cones.isInFront( eye ) )
    {
        return nbFronts == patch.faces.size() ? colors.front : colors.wrong;
    }
    return nbFronts == 0 ? colors.behindUnknown : nbFronts == patch.faces.size() ? colors.frontUnknown : colors.both;
}

// Panel 4: eyes all over the slice y = 0.
void drawSlice( Canvas& canvas, const Patch& patch, const Area& area )
{
    const Palette& palette = getPalette();
    const float scale = 58; // pixels per unit
    const float middleX = static_cast<float>( area.x ) + static_cast<float>( area.width ) / 2;
    const float middleY = static_cast<float>( area.y ) + static_cast<float>( area.height ) / 2;
    for ( int y = area.y; y < area.y + area.height; ++y )
    {
        for ( int x = area.x; x < area.x + area.width; ++x )
        {
            Color sum;
            for ( const float dx : { 0.25F, 0.75F } )
            {
                for ( const float dy : { 0.25F, 0.75F } )
                {
                    const GePoint3<float> eye( ( static_cast<float>( x ) + dx - middleX ) / scale, 0,
                        ( middleY - static_cast<float>( y ) - dy ) / scale );
                    sum = sum + findSliceColor( patch, eye ) * 0.25F;
                }
            }
            canvas.setPixel( x, y, sum );
        }
    }
    // the patch itself, cut: its points with y = 0
    constexpr int COUNT = 40;
    std::vector<Spot> cut;
    for ( int i = 0; i <= COUNT; ++i )
    {
        const GePoint3<float> point = computePatchPoint( i, COUNT / 2, COUNT );
        cut.push_back( { middleX + scale * point.getX(), middleY - scale * point.getZ() } );
    }
    drawPolyline( canvas, cut, 4, makeColor( 0x8B5E4B ) );
    drawText( canvas, cut.back().x + 8, cut.back().y + 12, 12, "the patch", palette.ink );
    const auto top = static_cast<float>( area.y );
    drawCentred( canvas, middleX, top + 34, 13, "isInFront", palette.ink );
    drawCentred( canvas, middleX, top + static_cast<float>( area.height ) - 22, 13, "isBehind", palette.ink );
}

} // namespace

Canvas drawConesPicture( ObjFile& file )
{
    const Palette& palette = getPalette();
    const Patch patch = makePatch();
    constexpr double DEGREES = 57.29577951308232;
    const auto degrees = [&]( float angle )
    { return makeDecimalText( static_cast<double>( angle ) * DEGREES, 1 ) + " degrees"; };

    Canvas picture = makeBackground( 1100, 1230 );
    const auto panel = [&]( int column, int row, const Camera& camera, const auto& draw )
    {
        const Area plate = { 28 + column * 530, 104 + row * 500, 514, 484 };
        drawPlate( picture, plate );
        Scene scene( picture, { plate.x + 4, plate.y + 70, plate.width - 8, plate.height - 78 }, camera );
        draw( scene, patch );
        scene.finish( picture );
        return scene;
    };
    const Camera above{ { 2.2F, -3.9F, 2.2F }, { 0, 0, 0.45F }, 0.44F, 1, 0.5F, 60 };
    const Scene sphere = panel( 0, 0, above, drawNormals );
    const Scene anchoring = panel( 1, 0, makeCamera( 6.6F, 0.05F ), drawAnchored );
    const Scene culling = panel( 0, 1, makeCamera( 18, 0 ), drawCulling );
    drawPlate( picture, { 558, 604, 514, 484 } );
    drawSlice( picture, patch, { 576, 680, 478, 390 } );

    drawHeading( picture, 46, 138, "1  Its normals: a floating cone",
        "one dot a normal; semi-angle alpha = " + degrees( patch.normals.getSemiAngle() ) );
    drawHeading(
        picture, 576, 138, "2  Its points: an anchored cone", "the same axis and opening, cut off below and above" );
    drawHeading( picture, 46, 638, "3  Where an eye may be: culling cones",
        "semi-angle 90 - alpha = " + degrees( patch.cones.getCullingSemiAngle() ) );
    drawHeading( picture, 576, 638, "4  The same, cut through the middle", "both queries asked from every pixel" );
    const GeVector3<float> axis = patch.normals.getAxis();
    const GePoint3<float> backTip = patch.cones.getBackfacingApex();
    const GePoint3<float> frontTip = backTip + axis * patch.cones.getFrontfacingOffset();
    const auto name = [&]( const Scene& scene, const GePoint3<float>& p, float dx, float dy, const std::string& text )
    {
        const Spot spot = scene.computeSpot( p );
        drawText( picture, spot.x + dx, spot.y + dy, 12, text, palette.ink );
    };
    name( sphere, GePoint3<float>() + axis * 1.3F, 12, 6, "the axis" );
    const Solid anchored = makeAnchoredSolid( patch.anchored );
    Spot lowest = { 0, 0 };
    for ( const GePoint3<float>& point : anchored.faces[anchored.faces.size() - 2] )
    {
        const Spot spot = anchoring.computeSpot( point );
        lowest = spot.y > lowest.y ? spot : lowest;
    }
    drawCallout( picture, lowest, 780, 560, { "the bottom disc" } );
    name( culling, backTip, 14, 2, "the backfacing apex" );
    name( culling, frontTip, 14, 12, "the frontfacing apex" );
    const SliceColors colors;
    drawLegend( picture, 28, 1230 - 28, {},
        { { colors.front, "isInFront: an eye here sees only fronts", {} },
            { colors.behind, "isBehind: an eye here sees only backs; the patch need not be drawn", {} } } );
    drawLegend( picture, 660, 1230 - 28, {},
        { { colors.frontUnknown, "only fronts, but the cones are cautious", {} },
            { colors.behindUnknown, "only backs, but the cones are cautious", {} } } );
    drawCaption(
        picture, "A patch of surface and its cones", "the cones answer for all faces at once: no face is asked" );

    file.addSolid( "anchoredCone", makeAnchoredSolid( patch.anchored ) );
    file.addSolid( "frontCone", makeFrontCone( patch.cones, 1.5F ) );
    file.addSolid( "backCone", makeBackCone( patch.cones, 1.5F ) );
    Solid surface;
    for ( const Face& face : patch.faces )
    {
        surface.faces.emplace_back( face.corners.begin(), face.corners.end() );
    }
    file.addSolid( "patch", surface );
    return picture;
}

} // namespace Figures
