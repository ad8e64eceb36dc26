#include "cullMeshPictures.h"

#include "drawing.h"
#include "numberText.h"

namespace CullMesh
{

using namespace Examples;
using namespace Figures;

namespace
{

// Pixels of an area whose stored bytes differ.
std::size_t countDifferences( const Canvas& a, const Canvas& b, const Area& area )
{
    const std::vector<std::uint8_t> bytesA = a.cutOut( area ).makeRgb8();
    const std::vector<std::uint8_t> bytesB = b.cutOut( area ).makeRgb8();
    std::size_t count = 0;
    for ( std::size_t i = 0; i < bytesA.size(); i += 3 )
    {
        const bool isSame = bytesA[i] == bytesB[i] && bytesA[i + 1] == bytesB[i + 1] && bytesA[i + 2] == bytesB[i + 2];
        count += isSame ? 0U : 1U;
    }
    return count;
}

} // namespace

Canvas drawSides( const Shot& shot )
{
    constexpr int MARGIN = 28;
    constexpr int WIDTH = 1600;
    constexpr int PANEL_WIDTH = 764;
    constexpr int PANEL_HEIGHT = 573;
    constexpr int TOP = 160;
    const Area left = { MARGIN, TOP, PANEL_WIDTH, PANEL_HEIGHT };
    const Area right = { WIDTH - MARGIN - PANEL_WIDTH, TOP, PANEL_WIDTH, PANEL_HEIGHT };
    const Palette& palette = getPalette();

    Canvas picture = makeBackground( WIDTH, 930 );
    drawPlate( picture, left );
    drawPlate( picture, right );
    Canvas whole = picture;
    addView( whole, left, shot, true );
    addView( picture, left, shot, false );
    const std::size_t nbDifferent = countDifferences( picture, whole, left );
    addScene( picture, right, shot );

    const std::string nbAll = makeGroupedText( shot.tally.computeTotal().triangles );
    drawCaption( picture, "What a camera need not draw",
        "the teapot in " + makeGroupedText( shot.clusters.size() ) +
            " clusters of triangles: which lie outside the view, which show only their backs?" );
    const auto name = [&]( const Area& area, const std::string& text )
    { drawLines( picture, static_cast<float>( area.x ), TOP - 18, { text }, palette.ink, 14 ); };
    name( left, "The camera's view, drawn from what is left" );
    name( right, "The same moment from outside, by verdict" );
    drawLines( picture, MARGIN, TOP + PANEL_HEIGHT + 44,
        { "Drawn from " + makeGroupedText( shot.tally.visible.triangles ) + " of " + nbAll + " triangles; " +
                makeDecimalText( 100 * shot.tally.computeShareCulled(), 1 ) + " % were culled.",
            "Pixels that differ from the picture of all " + nbAll + ": " + makeGroupedText( nbDifferent ) + " of " +
                makeGroupedText( std::size_t{ PANEL_WIDTH } * PANEL_HEIGHT ) + "." },
        palette.ink, 13 );
    drawLegend( picture, static_cast<float>( right.x ), 930 - MARGIN, { "clusters", "triangles", "share" },
        makeLegend( shot ) );
    return picture;
}

} // namespace CullMesh
