#include "manyObjectsPictures.h"

#include "cityMap.h"
#include "legend.h"
#include "numberText.h"
#include "views.h"

#include <algorithm>
#include <limits>

namespace ManyObjects
{

using namespace Examples;
using namespace Figures;
using namespace Zq;

namespace
{

// The planes that many engines take for both eyes: the left one of the left eye, the right one of the right eye, and the
// others of one of them.
struct OuterPlanes
{
    std::vector<GePlane3<float>> planes;

    explicit OuterPlanes( const Views& views )
    {
        constexpr int RIGHT = 1; // the side
        for ( int i = 0; i < views.left.getNbPlanes(); ++i )
        {
            planes.push_back( ( views.left.getSide( i ) == RIGHT ? views.right : views.left ).getPlane( i ) );
        }
    }

    bool isCulled( const Box& box ) const
    {
        return std::any_of( planes.begin(), planes.end(),
            [&box]( const GePlane3<float>& plane )
            {
                float highest = -std::numeric_limits<float>::infinity();
                for ( int corner = 0; corner < 8; ++corner )
                {
                    highest = std::max( highest, plane.computeValue( box.getCorner( corner ) ) );
                }
                return highest < 0;
            } );
    }
};

} // namespace

Canvas drawStereo( const std::vector<Box>& city, float side )
{
    const Palette& palette = getPalette();
    Camera head = makeCamera( side, 0.3 );
    const Views views = makeViews( head );
    const OuterPlanes outer( views );

    // one view from the middle of the head, with the outermost angles of both
    head.range = GeDepthRange::ONE_TO_ZERO;
    head.farDistance = std::numeric_limits<float>::infinity();
    Lens lens;
    lens.inwards = lens.outwards;
    lens.turn = 0;
    lens.offset = 0;
    const View centre( makeEyeMatrix( head, lens, 1 ), head.range );

    // 0 neither eye sees it, 1 kept, 2 lost, though an eye sees it
    Verdicts ofOuter( city.size() );
    Verdicts ofCentre( city.size() );
    std::size_t nbUnionLost = 0;
    for ( std::size_t i = 0; i < city.size(); ++i )
    {
        if ( views.left.classifyTight( city[i] ) != View::VIEW_OUTSIDE ||
            views.right.classifyTight( city[i] ) != View::VIEW_OUTSIDE )
        {
            ofOuter[i] = outer.isCulled( city[i] ) ? 2 : 1;
            ofCentre[i] = centre.classify( city[i] ) == View::VIEW_OUTSIDE ? 2 : 1;
            nbUnionLost += views.both.classify( city[i] ) == View::VIEW_OUTSIDE ? 1U : 0U;
        }
    }

    Canvas picture = makeBackground( 1600, 1120 );
    drawCaption( picture, "What usual ways to merge two eyes lose",
        "two eyes, 0.064 m apart and turned apart by 10 degrees; of the boxes that they see, GeViewVolume::makeUnion "
        "culls " +
            ( nbUnionLost == 0 ? "none" : makeGroupedText( nbUnionLost ) ) );
    const std::vector<Color> colors = { palette.outside, palette.inside, palette.away };
    const auto drawPanel = [&]( int index, const GePoint3<float>& middle, float extent, const std::string& title,
                               const std::string& subtitle, const Verdicts& verdicts )
    {
        const Area area = makePanel( index, 2 );
        const CityMap map( area, middle, extent );
        const std::vector<std::string> counts = countVerdicts( verdicts, colors.size() );
        map.drawCity( picture, city, verdicts, colors );
        map.drawPath( picture, side );
        map.drawEye( picture, head );
        map.drawScale( picture );
        map.drawNote( picture, city, verdicts, 2, { counts[2] + " boxes are culled", "though an eye sees them" } );
        const auto left = static_cast<float>( area.x );
        drawHeading( picture, left, static_cast<float>( area.y ) - 40, title, subtitle );
        drawLegend( picture, left, 1120 - 28, { "boxes in all" },
            { { colors[1], "an eye sees it, and it is kept", { counts[1] } },
                { colors[2], "an eye sees it, and it is culled", { counts[2] } },
                { colors[0], "neither eye sees it", { counts[0] } } } );
    };
    drawPanel( 0, head.eye + ( head.target - head.eye ) * 0.8F, 600, "The outer planes, close to the eye",
        "left plane of the left eye, right one of the right eye, the others of the left eye", ofOuter );
    drawPanel(
        1, {}, side, "One view from the middle, the whole city", "with the widest angles of the two eyes", ofCentre );
    return picture;
}

} // namespace ManyObjects
