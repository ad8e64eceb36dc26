// What rotations do: the positive sense, the order of products, and aimed frames.

#include "pictures.h"

#include "drawing.h"
#include "scene.h"
#include "text.h"

#include <zq/primitives/geRotation3.h>
#include <zq/primitives/geXAxisRotation3.h>
#include <zq/primitives/geZAxisRotation3.h>

#include <cmath>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

using Matrix = GeLinearMatrix3<float>;

constexpr float QUARTER = 1.57079633F;

GePoint3<float> turn( const Matrix& matrix, const GePoint3<float>& point )
{
    return GePoint3<float>() + matrix * GeVector3<float>( point );
}

void drawAxes( Scene& scene, const Matrix& matrix, float length, float thickness )
{
    for ( int i = 0; i < 3; ++i )
    {
        GeVector3<float> axis;
        axis[i] = length;
        scene.drawArrow( {}, turn( matrix, GePoint3<float>() + axis ), thickness, getPalette().axes[i] );
    }
}

void nameAxes( Canvas& picture, const Scene& scene, const Matrix& matrix, float length, const std::string& suffix )
{
    const char* const names[] = { "x", "y", "z" };
    for ( int i = 0; i < 3; ++i )
    {
        GeVector3<float> axis;
        axis[i] = length;
        const Spot spot = scene.computeSpot( turn( matrix, GePoint3<float>() + axis ) );
        drawText( picture, spot.x - 5, spot.y + 6, 13, names[i] + suffix, getPalette().axes[i], 1.3F );
    }
}

// A paper plane: nose along x, fin along z.
Solid makeGlider()
{
    const GePoint3<float> nose( 0.85F, 0, 0 );
    const GePoint3<float> left( -0.5F, 0.5F, 0 );
    const GePoint3<float> right( -0.5F, -0.5F, 0 );
    const GePoint3<float> tail( -0.35F, 0, 0 );
    const GePoint3<float> fin( -0.5F, 0, 0.4F );
    return { { { nose, left, tail }, { nose, tail, right }, { nose, fin, tail } } };
}

void drawGlider( Scene& scene, const Matrix& matrix, float height )
{
    Solid glider = makeGlider();
    for ( Polygon& face : glider.faces )
    {
        for ( GePoint3<float>& corner : face )
        {
            corner = turn( matrix, corner ) + GeVector3<float>( 0, 0, height );
        }
    }
    scene.drawSolid( glider, getPalette().clay, 0.2F );
    for ( const Polygon& face : glider.faces )
    {
        scene.drawRim( face, 1.3, getPalette().ink, 0.15 );
    }
}

// The way of a point through a turn about z, with a head at its end.
void drawSweep( Scene& scene, const GePoint3<float>& start, float angle )
{
    constexpr int NB_STEPS = 40;
    const auto pointAt = [&]( float share )
    { return turn( GeZAxisRotation3<float>( angle * share ).getMatrix(), start ); };
    std::vector<GePoint3<float>> points;
    for ( int i = 0; i <= NB_STEPS; ++i )
    {
        points.push_back( pointAt( 0.05F + 0.74F * static_cast<float>( i ) / NB_STEPS ) );
    }
    scene.drawLine( points, 3, getPalette().ink, 0.3 );
    const GePoint3<float> end = pointAt( 0.98F );
    scene.drawArrow( points.back(), end, 0.022F, getPalette().ink );
}

} // namespace

Canvas drawRotationsPicture()
{
    const Palette& palette = getPalette();
    constexpr int WIDTH = 1200;
    constexpr int PANEL = 368;
    constexpr int TOP = 176;
    Canvas picture = makeBackground( WIDTH, 640 );
    const Camera camera{ { 4.2F, -4.8F, 4.8F }, { 0, 0, 0.1F }, 0.46F, 1, 1, 30 };
    const Camera level{ { 4.6F, -5.4F, 3.4F }, { 0, 0, 0.05F }, 0.58F, 1, 1, 30 };
    const auto areaOf = [&]( int column ) -> Area { return { 28 + column * ( PANEL + 20 ), 106, PANEL, 506 }; };
    const auto sceneArea = [&]( int column ) -> Area { return { areaOf( column ).x + 4, TOP, PANEL - 8, 350 }; };
    for ( int column = 0; column < 3; ++column )
    {
        drawPlate( picture, areaOf( column ) );
    }
    const auto finish =
        [&]( int column, const std::string& title, const std::string& subtitle, const std::vector<std::string>& lines )
    {
        const auto x = static_cast<float>( areaOf( column ).x + 18 );
        drawHeading( picture, x, 140, title, subtitle );
        drawLines( picture, x, 546, lines, palette.ink, 12 );
    };
    Matrix identity;
    identity.setIdentity();

    const Matrix aboutX = GeXAxisRotation3<float>( QUARTER ).getMatrix();
    const Matrix aboutZ = GeZAxisRotation3<float>( QUARTER ).getMatrix();
    {
        Scene scene( picture, sceneArea( 0 ), camera );
        drawAxes( scene, identity, 1.5F, 0.022F );
        drawSweep( scene, { 1.25F, 0, 0 }, QUARTER );
        scene.drawArrow( {}, turn( aboutZ, { 1.0F, 0, 0 } ), 0.045F, palette.overlap );
        scene.finish( picture );
        nameAxes( picture, scene, identity, 1.68F, "" );
        finish( 0, "1  The positive sense", "a quarter turn about z",
            { "carries x (1, 0, 0) to y: the yellow arrow.", "Seen from the tip of its axis, a turn",
                "is counter-clockwise." } );
    }

    {
        Scene scene( picture, sceneArea( 1 ), level );
        const std::pair<Matrix, std::string> products[] = {
            { identity, "as it was" }, { aboutZ * aboutX, "Z * X" }, { aboutX * aboutZ, "X * Z" } };
        float height = 1.5F;
        for ( const auto& product : products )
        {
            drawGlider( scene, product.first, height );
            height -= 1.45F;
        }
        scene.finish( picture );
        height = 1.5F;
        for ( const auto& product : products )
        {
            const Spot spot = scene.computeSpot( { 0, 0, height } );
            drawText(
                picture, static_cast<float>( sceneArea( 1 ).x + 14 ), spot.y + 6, 13, product.second, palette.ink );
            height -= 1.45F;
        }
        finish( 1, "2  The order of products", "in A * B, B acts first",
            { "X and Z are quarter turns about x and z.", "Z * X: about x first, then about z.",
                "X * Z: about z first, then about x." } );
    }

    {
        const GeUnitVector3<float> direction( GeVector3<float>( 0.95F, 0.6F, 0.5F ) );
        const GeVector3<float> up( 0, 0, 1 );
        const GeRotation3<float> frame = GeRotation3<float>::aim( direction, up, 0, 2, false );
        const Matrix& matrix = frame.getMatrix();
        Scene scene( picture, sceneArea( 2 ), camera );
        drawGlider( scene, matrix, 0 );
        drawAxes( scene, matrix, 1.4F, 0.022F );
        scene.drawDashes( {}, GePoint3<float>() + up * 1.6F, 0.07F, 2, palette.paleInk, 0.6 );
        scene.finish( picture );
        nameAxes( picture, scene, matrix, 1.58F, "'" );
        const Spot spot = scene.computeSpot( GePoint3<float>() + up * 1.72F );
        drawText( picture, spot.x - 10, spot.y, 12, "up", palette.paleInk );
        finish( 2, "3  Aimed frames", "aim( direction, up, 0, 2, false )",
            { "Axis 0, x', is the direction; axis 2, z',", "lies in the plane of it and up, on the",
                "side of up; y' completes the frame." } );
    }
    drawCaption( picture, "Rotations", "right-handed; matrices act on columns" );
    return picture;
}

} // namespace Figures
