// A town from outside, and what a camera in it can see: the verdict of its frustum on every house.

#include "pictures.h"

#include "drawing.h"
#include "legend.h"
#include "numberText.h"
#include "scene.h"
#include "text.h"

#include <random>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

using Box = GeAlignedBox3<float>;
using Frustum = GeFrustum<float>;

struct House
{
    Box box;
    Frustum::Classification verdict;
    bool isMissed; // intersects, says the frustum, though no part of the box is inside
};

std::vector<House> makeTown( const Frustum& frustum )
{
    std::mt19937 engine( 4 );
    const auto uniform = [&]( float low, float high )
    { return low + ( high - low ) * static_cast<float>( engine() >> 8U ) * 0x1p-24F; };
    std::vector<House> town;
    for ( int i = -2; i < 16; ++i )
    {
        for ( int j = -9; j < 10; ++j )
        {
            // in braces, where the order is that of the text
            const GePoint3<float> corner{ static_cast<float>( i ) * 1.1F + uniform( 0, 0.3F ),
                static_cast<float>( j ) * 1.1F + uniform( 0, 0.3F ), 0 };
            const GeVector3<float> size{ uniform( 0.4F, 0.75F ), uniform( 0.4F, 0.75F ), uniform( 0.25F, 1.5F ) };
            const Box box( corner, corner + size );
            Solid visible = makeBox( box );
            for ( int plane = 0; plane < Frustum::NB_PLANES; ++plane )
            {
                const GeNormalizedPlane3<float> inwards = frustum.getPlane( plane );
                visible = cut( visible, GePlane3<float>( -inwards.getNormal(), -inwards.getOffset() ) );
            }
            const Frustum::Classification verdict = frustum.classify( box );
            town.push_back( { box, verdict, verdict == Frustum::FRUSTUM_INTERSECT && visible.faces.empty() } );
        }
    }
    return town;
}

Color findColor( const House& house )
{
    const Palette& palette = getPalette();
    switch ( house.verdict )
    {
    case Frustum::FRUSTUM_INSIDE:
        return palette.inside;
    case Frustum::FRUSTUM_INTERSECT:
        return house.isMissed ? palette.away : palette.overlap;
    default:
        return palette.outside;
    }
}

Solid makeGround()
{
    const GePoint3<float> corner( -300, -300, 0 );
    Solid solid = makeBox( { corner, corner + GeVector3<float>( 600, 600, 0 ) } );
    solid.faces = { solid.faces.back() };
    return solid;
}

void drawTown( Scene& scene, const std::vector<House>& town )
{
    scene.drawSolid( makeGround(), makeColor( 0xE6E3DA ) );
    for ( const House& house : town )
    {
        scene.drawSolid( makeBox( house.box ), findColor( house ) );
    }
}

} // namespace

Canvas drawFrustumPicture( ObjFile& file )
{
    const Palette& palette = getPalette();
    const Camera camera{ { -1.6F, -0.4F, 1.9F }, { 6, 0.6F, 0.4F }, 0.62F, 4.0F / 3, 1.5F, 13 };
    const Frustum frustum( makeClipMatrix<float>( camera ) );
    const Solid volume = makeFrustumSolid( frustum );
    const std::vector<House> town = makeTown( frustum );

    constexpr int HEIGHT = 960;
    constexpr int BAND = 285; // below the town
    Canvas picture = makeBackground( 1024, HEIGHT );
    Scene scene( picture, { 0, 100, 1024, HEIGHT - 100 - BAND },
        { { -7.5F, -15, 14 }, { 6.3F, 0.6F, 0.3F }, 0.55F, 1, 5, 400 } );
    drawTown( scene, town );
    scene.drawGlass( volume, palette.volume, 0.16F );
    scene.drawEdges( volume, 2.2, palette.edge, 0.45 );
    scene.drawBall( camera.eye, 0.13F, palette.ink );
    for ( const Polygon& face : volume.faces )
    {
        for ( const GePoint3<float>& corner : face )
        {
            // to the corners of the near face
            if ( ( corner - camera.eye ).length() < 3 )
            {
                scene.drawLine( camera.eye, corner, 1.2, palette.edge, 0.4 );
            }
        }
    }
    scene.finish( picture );

    // what the camera sees, in the corner
    const Area inset = { 1024 - 28 - 300, HEIGHT - 28 - 225, 300, 225 };
    picture.fillRoundedRectangle(
        static_cast<float>( inset.x ) - 3, static_cast<float>( inset.y ) - 3, 306, 231, 4, palette.ink, 1 );
    Canvas sky( inset.width, inset.height );
    sky.fillVerticalGradient( makeColor( 0xBFD9EA ), makeColor( 0xEEF3F5 ) );
    picture.paste( sky, inset.x, inset.y );
    Scene view( picture, inset, camera );
    drawTown( view, town );
    view.finish( picture );
    drawText( picture, static_cast<float>( inset.x ), static_cast<float>( inset.y ) - 12, 12, "the camera's view",
        palette.ink );

    std::size_t counts[4] = {};
    std::size_t nbMissed = 0;
    for ( const House& house : town )
    {
        ++counts[house.verdict];
        nbMissed += house.isMissed ? 1 : 0;
    }
    drawCaption( picture, "A view frustum and a town", "one question per house; the grey ones need not be drawn" );
    drawLegend( picture, 28, HEIGHT - 28, { "houses" },
        { { palette.inside, "FRUSTUM_INSIDE: all of it is in the volume",
              { makeGroupedText( counts[Frustum::FRUSTUM_INSIDE] ) } },
            { palette.overlap, "FRUSTUM_INTERSECT: part of it is",
                { makeGroupedText( counts[Frustum::FRUSTUM_INTERSECT] - nbMissed ) } },
            { palette.away, "FRUSTUM_INTERSECT, though none of it is: cautious", { makeGroupedText( nbMissed ) } },
            { palette.outside, "FRUSTUM_OUTSIDE: need not be drawn",
                { makeGroupedText( counts[Frustum::FRUSTUM_OUTSIDE] ) } } } );

    file.addSolid( "frustum", volume );
    for ( const House& house : town )
    {
        if ( house.verdict != Frustum::FRUSTUM_OUTSIDE )
        {
            file.addSolid( house.verdict == Frustum::FRUSTUM_INSIDE ? "inside" : "intersect", makeBox( house.box ) );
        }
    }
    return picture;
}

} // namespace Figures
