#include "manyObjectsPictures.h"

#include "cityMap.h"
#include "legend.h"
#include "views.h"

namespace ManyObjects
{

using namespace Figures;
using namespace Zq;

Canvas drawViews( const std::vector<Box>& city, float side )
{
    const Palette& palette = getPalette();
    const Camera camera = makeCamera( side, 0.9 );
    const Views views = makeViews( camera );
    const auto ask = [&city]( const View& view )
    {
        Verdicts verdicts( city.size() );
        view.classify( city.data(), city.size(), verdicts.data() );
        return verdicts;
    };

    Canvas picture = makeBackground( 1600, 860 );
    drawCaption( picture, "What each view keeps of a city",
        "a moment of the flight, seen from above; each view was asked about every box" );
    const auto drawPanel = [&]( int index, const std::string& title, const std::string& subtitle,
                               const Verdicts& verdicts, const std::vector<Color>& colors,
                               const std::vector<std::string>& labels )
    {
        const Area area = makePanel( index, 3 );
        const CityMap map( area, {}, side );
        map.drawCity( picture, city, verdicts, colors );
        map.drawPath( picture, side );
        map.drawEye( picture, camera );
        const auto left = static_cast<float>( area.x );
        drawHeading( picture, left, static_cast<float>( area.y ) - 40, title, subtitle );
        const std::vector<std::string> counts = countVerdicts( verdicts, colors.size() );
        std::vector<LegendRow> rows;
        for ( std::size_t i = 0; i < labels.size(); ++i )
        {
            if ( !labels[i].empty() )
            {
                rows.push_back( { colors[i], labels[i], { counts[i] } } );
            }
        }
        drawLegend( picture, left,
            static_cast<float>( area.y + area.height + 16 + 44 + 28 * static_cast<int>( rows.size() ) ), { "boxes" },
            rows );
    };

    const std::vector<Color> colors = { {}, palette.outside, palette.inside, palette.overlap };
    const std::vector<std::string> labels = { "", "VIEW_OUTSIDE", "VIEW_INSIDE", "VIEW_INTERSECT" };
    drawPanel( 0, "One eye, 0.5 to 2,000 m", "depth from 0 to 1", ask( views.single ), colors, labels );
    drawPanel( 1, "The same eye without a far plane", "reversed depth, 1 to 0", ask( views.endless ), colors, labels );

    const Verdicts both = ask( views.both );
    const Verdicts left = ask( views.left );
    const Verdicts right = ask( views.right );
    Verdicts kinds( city.size() ); // 0 nobody, 1 both eyes, 2 one
    for ( std::size_t i = 0; i < city.size(); ++i )
    {
        const int nbEyes = ( left[i] != View::VIEW_OUTSIDE ? 1 : 0 ) + ( right[i] != View::VIEW_OUTSIDE ? 1 : 0 );
        kinds[i] = static_cast<unsigned char>( both[i] == View::VIEW_OUTSIDE ? 0 : nbEyes == 2 ? 1 : 2 );
    }
    drawPanel( 2, "Both eyes of a headset", "turned apart by 10 degrees; their union, no far plane", kinds,
        { palette.outside, palette.inside, palette.overlap },
        { "outside of the union", "kept for both eyes", "kept for one of them" } );
    return picture;
}

} // namespace ManyObjects
