// A town from outside, and what a camera in it can see: the verdict of its frustum on every house.

#include "pictures.h"

#include "drawing.h"
#include "legend.h"
#include "numberText.h"
#include "text.h"

#include <random>

namespace Gallery
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
            const GePoint3<float> corner( static_cast<float>( i ) * 1.1F + uniform( 0, 0.3F ),
                static_cast<float>( j ) * 1.1F + uniform( 0, 0.3F ), 0 );
            const GeVector3<float> size( uniform( 0.4F, 0.75F ), uniform( 0.4F, 0.75F ), uniform( 0.25F, 1.5F ) );
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
        return house.isMissed ? palette.red : palette.overlap;
    default:
        return makeColor( 0xC3CBD3 );
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

    Scene scene( makeBackground( 1024, 800 ), { -70, 95, 1024, 740 },
        { { -7.5F, -15, 14 }, { 6.3F, 0.3F, 0 }, 0.66F, 1, 5, 400 } );
    drawTown( scene, town );
    scene.drawGlass( volume, makeColor( 0x6FB7E8 ), 0.16F );
    scene.drawEdges( volume, 2.2, makeColor( 0x20547D ), 0.45 );
    scene.drawBall( camera.eye, 0.13F, palette.ink );
    for ( const Polygon& face : volume.faces )
    {
        for ( const GePoint3<float>& corner : face )
        {
            // to the corners of the near face
            if ( ( corner - camera.eye ).length() < 3 )
            {
                scene.drawLine( camera.eye, corner, 1.2, makeColor( 0x20547D ), 0.4 );
            }
        }
    }
    Canvas picture = scene.resolve();

    // what the camera sees, in the corner
    constexpr int WIDTH = 300;
    constexpr int HEIGHT = 225;
    const Viewport inset{ 1024 - WIDTH - 28, 28, WIDTH, HEIGHT };
    Canvas sky( WIDTH, HEIGHT );
    sky.fillVerticalGradient( makeColor( 0xBFD9EA ), makeColor( 0xEEF3F5 ) );
    Scene view( sky, { 0, 0, WIDTH, HEIGHT }, camera );
    drawTown( view, town );
    const Canvas seen = view.resolve();
    picture.fillRoundedRectangle( static_cast<float>( inset.x ) - 5, static_cast<float>( inset.y ) - 5, WIDTH + 10,
        HEIGHT + 10, 6, palette.ink, 1 );
    for ( int y = 0; y < seen.getHeight(); ++y )
    {
        for ( int x = 0; x < seen.getWidth(); ++x )
        {
            picture.setPixel( x + static_cast<int>( inset.x ), y + static_cast<int>( inset.y ), seen.getPixel( x, y ) );
        }
    }
    drawText( picture, static_cast<float>( inset.x ), static_cast<float>( inset.y ) + HEIGHT + 26, 12,
        "the camera's view", palette.ink );

    std::size_t counts[4] = {};
    std::size_t nbMissed = 0;
    for ( const House& house : town )
    {
        ++counts[house.verdict];
        nbMissed += house.isMissed ? 1 : 0;
    }
    drawCaption(
        picture, "A view frustum and a town", "one question per house; only the coloured ones need to be drawn" );
    drawLegend( picture, { "houses" },
        { { palette.inside, "FRUSTUM_INSIDE: all of it is in the volume",
              { makeGroupedText( counts[Frustum::FRUSTUM_INSIDE] ) } },
            { palette.overlap, "FRUSTUM_INTERSECT: part of it is",
                { makeGroupedText( counts[Frustum::FRUSTUM_INTERSECT] - nbMissed ) } },
            { palette.red, "FRUSTUM_INTERSECT, but none of it is: the answer is cautious",
                { makeGroupedText( nbMissed ) } },
            { makeColor( 0xC3CBD3 ), "FRUSTUM_OUTSIDE: need not be drawn",
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

} // namespace Gallery
