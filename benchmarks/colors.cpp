// RGB to HSV and back.

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

struct Plain
{
    float v[3];
};

Plain makePlainRgb( const Rgb& color )
{
    return { { color.getRed(), color.getGreen(), color.getBlue() } };
}

Plain makePlainHsv( const Hsv& color )
{
    return { { color.getHue(), color.getSaturation(), color.getValue() } };
}

Plain toHsvPlain( const Plain& rgb )
{
    const float r = rgb.v[0];
    const float g = rgb.v[1];
    const float b = rgb.v[2];
    const float largest = ( std::max )( r, ( std::max )( g, b ) );
    const float smallest = ( std::min )( r, ( std::min )( g, b ) );
    const float delta = largest - smallest;
    if ( !( delta > 0 ) )
        return { { 0, 0, largest } };
    float sixths;
    if ( r == largest )
        sixths = ( g - b ) / delta;
    else if ( g == largest )
        sixths = 2 + ( b - r ) / delta;
    else
        sixths = 4 + ( r - g ) / delta;
    if ( sixths < 0 )
        sixths += 6;
    return { { sixths * 60, delta / largest, largest } };
}

Plain toRgbPlain( const Plain& hsv )
{
    const float s = hsv.v[1];
    const float v = hsv.v[2];
    if ( s <= 0 )
        return { { v, v, v } };
    float hue = std::fmod( hsv.v[0], 360.0F );
    if ( hue < 0 )
        hue += 360;
    const float sixths = hue / 60;
    const int sector = static_cast<int>( sixths );
    const float f = sixths - static_cast<float>( sector );
    const float p = v * ( 1 - s );
    const float q = v * ( 1 - s * f );
    const float t = v * ( 1 - s * ( 1 - f ) );
    switch ( sector )
    {
    case 0:
        return { { v, t, p } };
    case 1:
        return { { q, v, p } };
    case 2:
        return { { p, v, t } };
    case 3:
        return { { p, q, v } };
    case 4:
        return { { t, p, v } };
    default:
        return { { v, p, q } };
    }
}

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
    addOneByOne( "rgbToHsv", "plain", makeConverted( getRgbs, makePlainRgb ), toHsvPlain );
    addOneByOne( "hsvToRgb", "plain", makeConverted( getHsvs, makePlainHsv ), toRgbPlain );
    addFloor( "rgbToHsvArray", COUNT, getRgbs );
    addFloor( "hsvToRgbArray", COUNT, getHsvs );
}

#ifdef ZQ_BENCHMARK_PEERS

template <class Color>
Color convertPlain( const Plain& color )
{
    return Color( color.v[0], color.v[1], color.v[2] );
}

void addPeerRows()
{
    const auto plainRgbs = makeConverted( getRgbs, makePlainRgb );
    const auto plainHsvs = makeConverted( getHsvs, makePlainHsv );
    addOneByOne( "rgbToHsv", "glm", makeConverted( plainRgbs, convertPlain<glm::vec3> ),
        []( const glm::vec3& color ) { return glm::hsvColor( color ); } );
    addOneByOne( "hsvToRgb", "glm", makeConverted( plainHsvs, convertPlain<glm::vec3> ),
        []( const glm::vec3& color ) { return glm::rgbColor( color ); } );
    // this hue is a fraction of the turn
    addOneByOne(
        "rgbToHsv", "imath", makeConverted( plainRgbs, convertPlain<Imath::V3f> ),
        []( const Imath::V3f& color ) { return Imath::rgb2hsv( color ); }, Compare::NOTHING );
    addOneByOne( "hsvToRgb", "imath",
        makeConverted( plainHsvs, []( const Plain& c ) { return Imath::V3f( c.v[0] / 360, c.v[1], c.v[2] ); } ),
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
