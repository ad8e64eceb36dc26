// RGB to HSV and back.

#include "../tests/bits/plainRules.h"
#include "inputs.h"
#include "rows.h"

#include <zq/color/coHsvColor.h>

#ifdef ZQ_BENCHMARK_PEERS
#    define GLM_ENABLE_EXPERIMENTAL
#    include <Imath/ImathColorAlgo.h>
#    include <glm/glm.hpp>
#    include <glm/gtx/color_space.hpp>
#endif

namespace ZqBench
{

namespace
{

using Hsv = Zq::CoHsvColorT<float>;
using Rgb = Zq::CoRgbColorT<float>;

constexpr std::size_t COUNT = 100000;

std::vector<Rgb> makeRgbs( std::size_t count )
{
    Random random( 30 );
    std::vector<Rgb> colors;
    for ( std::size_t i = 0; i < count; ++i )
    {
        const float red = random.uniform( 0.0F, 1.0F );
        const float green = random.uniform( 0.0F, 1.0F );
        colors.emplace_back( red, green, random.uniform( 0.0F, 1.0F ) );
    }
    return colors;
}

std::vector<Hsv> makeHsvs( std::size_t count )
{
    Random random( 31 );
    std::vector<Hsv> colors;
    for ( std::size_t i = 0; i < count; ++i )
    {
        const float hue = random.uniform( 0.0F, 360.0F );
        const float saturation = random.uniform( 0.0F, 1.0F );
        colors.emplace_back( hue, saturation, random.uniform( 0.0F, 1.0F ) );
    }
    return colors;
}

constexpr auto getRgbs = getShared<Rgb, makeRgbs>;
constexpr auto getHsvs = getShared<Hsv, makeHsvs>;

using Plain = ZqPlain::Three<float>;

template <class MakeItems, class Operation>
void addOneByOne( const std::string& operation, const std::string& contender, MakeItems makeItems, Operation convert,
    Compare compare = Compare::SUM )
{
    addSingles( { operation, contender, BRANCHY_COUNT, compare }, makeItems, convert );
    addLoop( { operation + "Array", contender, COUNT, compare }, makeItems, convert );
}

void addOwnRows()
{
    addSingles( { "rgbToHsv", "ours", BRANCHY_COUNT }, getRgbs,
        []( const Rgb& color ) { return Hsv::convertFromRgb( color ); } );
    addSingles(
        { "hsvToRgb", "ours", BRANCHY_COUNT }, getHsvs, []( const Hsv& color ) { return color.convertToRgb(); } );
    addArray<Hsv>( { "rgbToHsvArray", "ours", COUNT }, getRgbs,
        []( const Rgb* colors, std::size_t count, Hsv* results ) { Hsv::convertFromRgb( colors, count, results ); } );
    addArray<Rgb>( { "hsvToRgbArray", "ours", COUNT }, getHsvs,
        []( const Hsv* colors, std::size_t count, Rgb* results ) { Hsv::convertToRgb( colors, count, results ); } );
    addOneByOne( "rgbToHsv", "plain", makeConverted( getRgbs, numbersOf<float, Rgb> ), ZqPlain::convertToHsv<float> );
    addOneByOne( "hsvToRgb", "plain", makeConverted( getHsvs, numbersOf<float, Hsv> ), ZqPlain::convertToRgb<float> );
    addFloor( "rgbToHsvArray", COUNT, getRgbs );
    addFloor( "hsvToRgbArray", COUNT, getHsvs );
}

#ifdef ZQ_BENCHMARK_PEERS

template <class Color>
Color convertPlain( const Plain& color )
{
    return Color( color[0], color[1], color[2] );
}

void addPeerRows()
{
    const auto plainRgbs = makeConverted( getRgbs, numbersOf<float, Rgb> );
    const auto plainHsvs = makeConverted( getHsvs, numbersOf<float, Hsv> );
    addOneByOne( "rgbToHsv", "glm", makeConverted( plainRgbs, convertPlain<glm::vec3> ),
        []( const glm::vec3& color ) { return glm::hsvColor( color ); } );
    addOneByOne( "hsvToRgb", "glm", makeConverted( plainHsvs, convertPlain<glm::vec3> ),
        []( const glm::vec3& color ) { return glm::rgbColor( color ); } );
    // this hue is a fraction of the turn
    addOneByOne(
        "rgbToHsv", "imath", makeConverted( plainRgbs, convertPlain<Imath::V3f> ),
        []( const Imath::V3f& color ) { return Imath::rgb2hsv( color ); }, Compare::NOTHING );
    addOneByOne( "hsvToRgb", "imath",
        makeConverted( plainHsvs, []( const Plain& c ) { return Imath::V3f( c[0] / 360, c[1], c[2] ); } ),
        []( const Imath::V3f& color ) { return Imath::hsv2rgb( color ); } );
}

#endif

} // namespace

void addColorRows()
{
    addOwnRows();
#ifdef ZQ_BENCHMARK_PEERS
    addPeerRows();
#endif
}

} // namespace ZqBench
