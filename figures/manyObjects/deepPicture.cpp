#include "manyObjectsPictures.h"

#include "cityMap.h"
#include "legend.h"
#include "numberText.h"
#include "views.h"

#include <zq/primitives/geFrustum.h>

namespace ManyObjects
{

using namespace Examples;
using namespace Figures;
using namespace Zq;

namespace
{

// 0 not proved to be in view, 1 in view and kept, 2 in view and culled
Verdicts judge( const std::vector<Box>& city, const View& view, const std::vector<unsigned char>& answers )
{
    Verdicts verdicts( city.size() );
    for ( std::size_t i = 0; i < city.size(); ++i )
    {
        const GePoint3<float> low = city[i].getCorner( 0 );
        const GePoint3<float> middle = low + ( city[i].getCorner( 7 ) - low ) * 0.5F;
        if ( view.classify( middle ) == View::VIEW_INSIDE )
        {
            verdicts[i] = answers[i] == View::VIEW_OUTSIDE ? 2 : 1;
        }
    }
    return verdicts;
}

// The verdicts of both classes about one matrix.
struct Answers
{
    Verdicts ofFrustum;
    Verdicts ofVolume;
};

Answers ask( const std::vector<Box>& city, Camera camera, float ratio )
{
    camera.range = GeDepthRange::MINUS_ONE_TO_ONE; // the one that a frustum takes
    camera.nearDistance = 0.1F;
    camera.farDistance = camera.nearDistance * ratio;
    const GeProjectiveMatrix3<float> matrix = makeClipMatrix<float>( camera );
    const View view( matrix, camera.range );
    std::vector<unsigned char> answers( city.size() );
    GeFrustum<float>( matrix ).classify( city.data(), city.size(), answers.data() );
    Verdicts ofFrustum = judge( city, view, answers );
    view.classify( city.data(), city.size(), answers.data() );
    return { ofFrustum, judge( city, view, answers ) };
}

// What is lost over the whole flight, a line for each ratio.
std::vector<std::string> makeLines( const std::vector<Box>& city, float side )
{
    constexpr int NB_MOMENTS = 10;
    std::vector<std::string> lines = {
        "At " + std::to_string( NB_MOMENTS ) + " moments of the flight, of the boxes whose middle is in view:" };
    for ( const float ratio : { 1e4F, 1e5F, 1e6F } )
    {
        std::size_t nbSeen = 0;
        std::size_t nbLost[2] = {};
        for ( int i = 0; i < NB_MOMENTS; ++i )
        {
            const Answers answers = ask( city, makeCamera( side, i / static_cast<double>( NB_MOMENTS ) ), ratio );
            for ( std::size_t box = 0; box < city.size(); ++box )
            {
                nbSeen += answers.ofFrustum[box] != 0 ? 1U : 0U;
                nbLost[0] += answers.ofFrustum[box] == 2 ? 1U : 0U;
                nbLost[1] += answers.ofVolume[box] == 2 ? 1U : 0U;
            }
        }
        lines.push_back( "far " + makeDecimalText( static_cast<double>( ratio ) / 10000, 0 ) + " km: of " +
            makeGroupedText( nbSeen ) + " boxes, GeFrustum loses " + makeGroupedText( nbLost[0] ) + ", GeViewVolume " +
            makeGroupedText( nbLost[1] ) );
    }
    return lines;
}

} // namespace

Canvas drawDeep( const std::vector<Box>& city, float side )
{
    const Palette& palette = getPalette();
    const Camera camera = makeCamera( side, 0.9 );
    const Answers answers = ask( city, camera, 1e6F );
    const std::vector<Color> colors = { palette.outside, palette.inside, palette.away };
    Canvas picture = makeBackground( 1600, 1120 );
    drawCaption( picture, "A deep view in single precision",
        "near 0.1 m, far 100 km, and the eye kilometres from the origin: both ask with the same matrix" );
    const auto drawPanel =
        [&]( int index, const std::string& title, const std::string& subtitle, const Verdicts& verdicts )
    {
        const Area area = makePanel( index, 2 );
        const CityMap map( area, {}, side );
        std::vector<std::string> counts = countVerdicts( verdicts, colors.size() );
        map.drawCity( picture, city, verdicts, colors );
        map.drawPath( picture, side );
        map.drawEye( picture, camera );
        map.drawScale( picture );
        map.drawNote( picture, city, verdicts, 2, { counts[2] + " boxes are culled", "though they are in view" } );
        drawHeading( picture, static_cast<float>( area.x ), static_cast<float>( area.y ) - 40, title, subtitle );
        return counts;
    };
    const std::vector<std::string> frustum = drawPanel(
        0, "GeFrustum<float>", "three of its planes go through a corner that is projected back", answers.ofFrustum );
    const std::vector<std::string> volume =
        drawPanel( 1, "GeViewVolume<float>", "its planes are sums of rows of the matrix", answers.ofVolume );
    drawLegend( picture, 28, 1120 - 28, { "GeFrustum", "GeViewVolume" },
        { { colors[1], "the middle is proved to be in view, and the box is kept", { frustum[1], volume[1] } },
            { colors[2], "the middle is proved to be in view, and the box is culled", { frustum[2], volume[2] } },
            { colors[0], "others", { frustum[0], volume[0] } } } );
    drawLines( picture, static_cast<float>( makePanel( 1, 2 ).x ), 985, makeLines( city, side ), palette.ink, 13 );
    return picture;
}

} // namespace ManyObjects
