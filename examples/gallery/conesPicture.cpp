// A patch of surface, the cones that bound its normals and its points, and from where it shows only its back.

#include "pictures.h"

#include "drawing.h"
#include "numberText.h"
#include "text.h"

#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFloatingConeBuilder.h>

#include <array>
#include <cmath>

namespace Gallery
{

using namespace Examples;
using namespace Zq;

namespace
{

constexpr float PANEL = 506;

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

const Color& getFrontColor()
{
    static const Color color = makeColor( 0xF0E2C4 );
    return color;
}

const Color& getBackColor()
{
    static const Color color = makeColor( 0x8B5E4B );
    return color;
}

void drawPatch( Scene& scene, const Patch& patch )
{
    for ( const Face& face : patch.faces )
    {
        const Solid triangle{ { Polygon( face.corners.begin(), face.corners.end() ) } };
        scene.drawSolid( triangle, showsFront( face, scene.getEye() ) ? getFrontColor() : getBackColor() );
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

// Panel 1: the normals as points of a unit sphere.
void drawNormals( Scene& scene, const Patch& patch )
{
    const Palette& palette = getPalette();
    const GePoint3<float> origin;
    const GeVector3<float> axis = patch.normals.getAxis();
    const float angle = patch.normals.getSemiAngle();
    for ( std::size_t i = 0; i < patch.faces.size(); i += 3 )
    {
        const GePoint3<float> tip( patch.faces[i].normal );
        scene.drawLine( origin, tip, 1, makeColor( 0xB08A3E ), 0.4 );
        scene.drawBall( tip, 0.014F, makeColor( 0xB08A3E ) );
    }
    scene.drawArrow( origin, origin + axis * 1.35F, 0.012F, palette.ink );
    const Solid cone = makeTruncatedCone( origin, axis, 0, std::sin( angle ), std::cos( angle ) );
    Solid side = cone;
    side.faces.pop_back();
    scene.drawGlass( side, palette.blue, 0.3F );
    // the sphere: a few circles
    constexpr int NB_STEPS = 72;
    for ( const float z : { -0.7F, -0.35F, 0.0F, 0.35F, 0.7F } )
    {
        const Solid disc = makeTruncatedCone( GePoint3<float>( 0, 0, z ), GeVector3<float>( 0, 0, 1 ),
            std::sqrt( 1 - z * z ), std::sqrt( 1 - z * z ), 0 );
        const Polygon& rim = disc.faces.back();
        for ( std::size_t i = 0; i < rim.size(); ++i )
        {
            scene.drawLine( rim[i], rim[( i + 1 ) % rim.size()], 0.8, makeColor( 0x9FB0BF ), 0.7 );
        }
    }
    for ( int meridian = 0; meridian < 6; ++meridian )
    {
        const float turn = 3.14159265F / 6 * static_cast<float>( meridian );
        const auto pointAt = [&]( int step )
        {
            const float t = 6.2831853F * static_cast<float>( step ) / NB_STEPS;
            return GePoint3<float>( std::cos( t ) * std::cos( turn ), std::cos( t ) * std::sin( turn ), std::sin( t ) );
        };
        for ( int step = 0; step < NB_STEPS; ++step )
        {
            scene.drawLine( pointAt( step ), pointAt( step + 1 ), 0.8, makeColor( 0x9FB0BF ), 0.7 );
        }
    }
    const Polygon& rim = cone.faces.back();
    for ( std::size_t i = 0; i < rim.size(); ++i )
    {
        scene.drawLine( rim[i], rim[( i + 1 ) % rim.size()], 2, palette.blue, 0.6 );
    }
}

Solid makeAnchoredSolid( const GeAnchoredCone& anchored )
{
    return makeTruncatedCone( anchored.getBottomCenter(), anchored.getFloatingCone().getAxis(),
        anchored.getBottomRadius(), anchored.getTopRadius(), anchored.getHeight() );
}

void drawRim( Scene& scene, const Polygon& rim, double width, const Color& color )
{
    for ( std::size_t i = 0; i < rim.size(); ++i )
    {
        scene.drawLine( rim[i], rim[( i + 1 ) % rim.size()], width, color, 0.5 );
    }
}

// Panel 2: the truncated cone around the points.
void drawAnchored( Scene& scene, const Patch& patch )
{
    const Palette& palette = getPalette();
    drawPatch( scene, patch );
    for ( std::size_t i = 0; i < patch.faces.size(); i += 7 )
    {
        const Face& face = patch.faces[i];
        scene.drawArrow( face.corners[0], face.corners[0] + face.normal * 0.28F, 0.008F, makeColor( 0xB08A3E ) );
    }
    const Solid solid = makeAnchoredSolid( patch.anchored );
    scene.drawGlass( solid, palette.inside, 0.16F );
    drawRim( scene, solid.faces.back(), 2, palette.inside );
    drawRim( scene, solid.faces[solid.faces.size() - 2], 2, palette.inside );
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
    scene.drawGlass( back, palette.red, 0.22F );
    scene.drawGlass( front, palette.blue, 0.22F );
    drawRim( scene, front.faces.back(), 2, palette.blue );
    drawRim( scene, back.faces.back(), 2, palette.red );
    const GePoint3<float> backTip = patch.cones.getBackfacingApex();
    const GePoint3<float> frontTip =
        backTip + patch.cones.getFloatingCone().getAxis() * patch.cones.getFrontfacingOffset();
    scene.drawBall( backTip, 0.05F, palette.red );
    scene.drawBall( frontTip, 0.05F, palette.blue );
}

// Strong colours where the cones know; pale ones where every face says the same, but the cones do not; a shrill one
// where the cones are wrong.
Color findSliceColor( const Patch& patch, const GePoint3<float>& eye )
{
    std::size_t nbFronts = 0;
    for ( const Face& face : patch.faces )
    {
        nbFronts += showsFront( face, eye ) ? 1U : 0U;
    }
    const Color wrong = makeColor( 0xFF00FF );
    if ( patch.cones.isBehind( eye ) )
    {
        return nbFronts == 0 ? makeColor( 0xDB7F6B ) : wrong;
    }
    if ( patch.cones.isInFront( eye ) )
    {
        return nbFronts == patch.faces.size() ? makeColor( 0x7FA9CE ) : wrong;
    }
    if ( nbFronts == 0 )
    {
        return makeColor( 0xF1D3C9 );
    }
    return nbFronts == patch.faces.size() ? makeColor( 0xD0DFEC ) : makeColor( 0xEFECE4 );
}

// Panel 4: eyes all over the slice y = 0.
void drawSlice( Canvas& canvas, const Patch& patch, float left, float top, float width, float height )
{
    const Palette& palette = getPalette();
    const float scale = 62; // pixels per unit
    const float middleX = left + width / 2;
    const float middleY = top + height / 2;
    for ( int y = static_cast<int>( top ); y < static_cast<int>( top + height ); ++y )
    {
        for ( int x = static_cast<int>( left ); x < static_cast<int>( left + width ); ++x )
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
    const auto spotOf = [&]( const GePoint3<float>& p ) -> Spot {
        return { middleX + scale * p.getX(), middleY - scale * p.getZ() };
    };
    for ( const Face& face : patch.faces )
    {
        for ( std::size_t i = 0; i < 3; ++i )
        {
            drawStroke(
                canvas, spotOf( face.corners[i] ), spotOf( face.corners[( i + 1 ) % 3] ), 1.2F, makeColor( 0x6B5A45 ) );
        }
    }
    const auto label = [&]( float y, const std::string& text, float size )
    { drawText( canvas, middleX - measureText( text, size ) / 2, y, size, text, palette.ink ); };
    label( top + 42, "isInFront: sees fronts only", 13 );
    label( top + height - 32, "isBehind: sees backs only", 13 );
    drawLines( canvas, left + 12, middleY - 8, { "sees", "both" }, palette.ink, 12 );
    drawLines( canvas, left + width - 56, middleY - 8, { "sees", "both" }, palette.ink, 12 );
}

} // namespace

Canvas drawConesPicture( ObjFile& file )
{
    const Palette& palette = getPalette();
    const Patch patch = makePatch();
    constexpr double DEGREES = 57.29577951308232;
    const auto degrees = [&]( float angle )
    { return makeDecimalText( static_cast<double>( angle ) * DEGREES, 1 ) + " degrees"; };

    Canvas picture = makeBackground( 1024, 1024 );
    const auto panel = [&]( int column, int row, const Camera& camera, const auto& draw )
    {
        const double x = column * 512;
        const double y = 94 + row * 465;
        Scene scene( picture, { x, y + 40, static_cast<double>( PANEL ), 420 }, camera );
        draw( scene, patch );
        picture = scene.resolve();
        return scene;
    };
    const Scene sphere = panel( 0, 0, makeCamera( 7.5F, 0.25F ), drawNormals );
    const Scene anchoring = panel( 1, 0, makeCamera( 7, 0.05F ), drawAnchored );
    const Scene culling = panel( 0, 1, makeCamera( 17, 0 ), drawCulling );
    drawSlice( picture, patch, 540, 640, 456, 356 );

    const auto title = [&]( float x, float y, const std::string& text, const std::string& detail )
    {
        drawText( picture, x, y, 15, text, palette.ink, 1.15F );
        drawText( picture, x, y + 24, 12, detail, palette.paleInk );
    };
    title(
        28, 132, "1  Its normals: a floating cone", "semi-angle alpha = " + degrees( patch.normals.getSemiAngle() ) );
    title( 540, 132, "2  Its points: an anchored cone", "the same axis and opening, cut off below and above" );
    title( 28, 594, "3  Where an eye may be: culling cones",
        "semi-angle 90 - alpha = " + degrees( patch.cones.getCullingSemiAngle() ) );
    title( 540, 594, "4  The same, cut through the middle", "pale: every face agrees, but the cones are cautious" );
    const GeVector3<float> axis = patch.normals.getAxis();
    const auto name = [&]( const Scene& scene, const GePoint3<float>& p, float dx, float dy, const std::string& text )
    {
        const Spot spot = scene.computeSpot( p );
        drawText( picture, spot.x + dx, spot.y + dy, 12, text, palette.ink );
    };
    name( sphere, GePoint3<float>() + axis * 1.35F, 12, 6, "the axis" );
    name( anchoring, patch.anchored.getBottomCenter(), -60, 92, "the bottom disc" );
    name( culling, patch.cones.getBackfacingApex(), 12, 2, "the backfacing apex" );
    name( culling, patch.cones.getBackfacingApex() + axis * patch.cones.getFrontfacingOffset(), 12, 14,
        "the frontfacing apex" );
    name( culling, patch.cones.getBackfacingApex() - axis * 1.5F, -62, 4, "sees backs only" );
    name( culling, patch.cones.getBackfacingApex() + axis * ( patch.cones.getFrontfacingOffset() + 1.5F ), -62, 4,
        "sees fronts only" );
    drawText( picture, 28, 50, 22, "A patch of surface and its cones", palette.ink, 1.2F );
    drawText( picture, 28, 82, 13,
        "an eye in the red cone sees only backs: the patch need not be drawn, and no face is asked", palette.paleInk );

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

} // namespace Gallery
