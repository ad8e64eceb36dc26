#include "support/random.h"
#include "support/scalars.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/coRgbColor.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iomanip>
#include <limits>
#include <sstream>
#include <vector>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( Color );

template <class T>
std::vector<T> componentsOf( const CoRgbColorT<T>& rgb )
{
    return { rgb.getRed(), rgb.getGreen(), rgb.getBlue() };
}

template <class T>
bool isSameBits( const CoRgbColorT<T>& a, const CoRgbColorT<T>& b )
{
    const std::vector<T> x = componentsOf( a ), y = componentsOf( b );
    return std::memcmp( x.data(), y.data(), 3 * sizeof( T ) ) == 0;
}

/// The hexcone as three shifted trapezoids, in long double, without sectors. Component 0, 1, 2.
template <class T>
long double referenceComponent( const CoHsvColorT<T>& hsv, int component )
{
    using R = long double;
    R k = std::fmod( R( 5 - 2 * component ) + R( hsv.getHue() ) / 60, R( 6 ) );
    k = k < 0 ? k + 6 : k;
    const R trapezoid = std::max( R( 0 ), std::min( { k, 4 - k, R( 1 ) } ) );
    return R( hsv.getValue() ) * ( 1 - R( hsv.getSaturation() ) * trapezoid );
}

template <class T>
void expectNearReference( const CoHsvColorT<T>& hsv, const std::vector<T>& rgb, T bound )
{
    for ( int i = 0; i < 3; ++i )
        ASSERT_NEAR( double( rgb[std::size_t( i )] ), double( referenceComponent( hsv, i ) ), double( bound ) )
            << std::setprecision( 17 ) << hsv << " component " << i;
}

TYPED_TEST( Color, NamedColoursBothWays )
{
    using T = TypeParam;
    struct Case
    {
        CoRgbColorT<T> rgb;
        CoHsvColorT<T> hsv;
    };
    for ( const Case& c : std::vector<Case>{
              { { 1, 0, 0 }, { 0, 1, 1 } },
              { { 1, 1, 0 }, { 60, 1, 1 } }, // red wins the tie with green
              { { 0, 1, 0 }, { 120, 1, 1 } },
              { { 0, 1, 1 }, { 180, 1, 1 } }, // green wins the tie with blue
              { { 0, 0, 1 }, { 240, 1, 1 } },
              { { 1, 0, 1 }, { 300, 1, 1 } }, // red wins the tie with blue
              { { 1, T( 0.5 ), 0 }, { 30, 1, 1 } },
              { { 2, 1, 1 }, { 0, T( 0.5 ), 2 } },
              { { 0, 0, 0 }, { 0, 0, 0 } },
              { { -3, -3, -3 }, { 0, 0, -3 } },
              { { 1, -1, 0 }, { 330, 2, 1 } },
          } )
    {
        EXPECT_EQ( CoHsvColorT<T>::convertFromRgb( c.rgb ), c.hsv ) << c.rgb;
        EXPECT_EQ( c.hsv.convertToRgb(), c.rgb ) << c.hsv;
    }
    EXPECT_EQ( ( CoHsvColorT<T>( -120, 1, 1 ).convertToRgb() ), ( CoRgbColorT<T>( 0, 0, 1 ) ) );
    EXPECT_EQ( ( CoHsvColorT<T>( 720, 1, 1 ).convertToRgb() ), ( CoRgbColorT<T>( 1, 0, 0 ) ) );
    EXPECT_EQ( ( CoHsvColorT<T>( 200, 0, T( 0.3 ) ).convertToRgb() ), CoRgbColorT<T>( T( 0.3 ) ) );
    EXPECT_EQ( ( CoHsvColorT<T>( 200, -1, T( 0.3 ) ).convertToRgb() ), CoRgbColorT<T>( T( 0.3 ) ) );
    EXPECT_EQ( ( CoHsvColorT<T>( ZqTest::nan<T>, 0, 2 ).convertToRgb() ), CoRgbColorT<T>( 2 ) );
    // a value of 0 under a negative component
    const auto dark = CoHsvColorT<T>::convertFromRgb( { 0, -1, -1 } );
    EXPECT_EQ( dark, ( CoHsvColorT<T>( 0, ZqTest::infinity<T>, 0 ) ) );
}

TYPED_TEST( Color, ConversionsAgreeWithALongDoubleReference )
{
    using T = TypeParam;
    Random random( 1 );
    for ( int i = 0; i < 20000; ++i )
    {
        const T low = i % 2 ? T( 0 ) : T( -1 );
        const CoRgbColorT<T> rgb(
            random.uniform<T>( low, 2 ), random.uniform<T>( low, 2 ), random.uniform<T>( T( 0.1 ), 2 ) );
        const auto hsv = CoHsvColorT<T>::convertFromRgb( rgb );
        ASSERT_GE( hsv.getHue(), T( 0 ) );
        ASSERT_LT( hsv.getHue(), T( 360 ) );
        ASSERT_EQ( hsv.getValue(), rgb.getLargestComponent() );
        expectNearReference( hsv, componentsOf( rgb ), 30 * ZqTest::epsilon<T> );

        const CoHsvColorT<T> other(
            random.uniform<T>( -1000, 1000 ), random.uniform<T>( T( 0.01 ), 1 ), random.uniform<T>( 0, 1 ) );
        expectNearReference( other, componentsOf( other.convertToRgb() ), 1000 * ZqTest::epsilon<T> / 60 );
    }
}

TYPED_TEST( Color, TheLastTenthOfADegreeStaysInTheLastSector )
{
    using T = TypeParam;
    // every float of the range; for double the last ones below 360
    T hue = 360;
    for ( int i = 0; i < 4000 && hue >= T( 359.9 ); ++i )
    {
        hue = std::nextafter( hue, T( 0 ) );
        const CoHsvColorT<T> hsv( hue, 1, 1 );
        expectNearReference( hsv, componentsOf( hsv.convertToRgb() ), 8 * ZqTest::epsilon<T> );
    }
    EXPECT_EQ( hue < T( 359.9 ), sizeof( T ) == sizeof( float ) );
}

// The plain way to bring a hue into range; it takes forever, or has no end, for a large one.
template <class T>
T turnStepByStep( T hue )
{
    while ( hue < 0 )
        hue += 360;
    while ( hue >= 360 )
        hue -= 360;
    return hue;
}

TYPED_TEST( Color, HuesAreTurnedBitForBitAsInSingleSteps )
{
    using T = TypeParam;
    Random random( 2 );
    std::vector<T> hues{ 360, -360, T( -0.0 ), 1048576, -1048576, std::numeric_limits<T>::denorm_min(),
        -std::numeric_limits<T>::denorm_min(), T( -1e-9 ), T( -1e-20 ) };
    for ( int i = 0; i < 3000; ++i )
    {
        const T turns = T( 60 * ( random.index( 34000 ) - 17000 ) );
        hues.insert( hues.end(),
            { turns, std::nextafter( turns, T( 1e9 ) ), std::nextafter( turns, T( -1e9 ) ),
                random.uniform<T>( T( -1048576 ), T( 1048576 ) ), random.uniform<T>( -1, 1 ),
                random.uniform<T>( -720, 720 ) } );
    }
    for ( const T hue : hues )
    {
        const auto turned = CoHsvColorT<T>( turnStepByStep( hue ), T( 0.7 ), T( 0.9 ) ).convertToRgb();
        ASSERT_TRUE( isSameBits( CoHsvColorT<T>( hue, T( 0.7 ), T( 0.9 ) ).convertToRgb(), turned ) ) << hue;
    }
}

TYPED_TEST( Color, LargeHuesEndAndOthersGiveNaN )
{
    using T = TypeParam;
    const T largest = std::numeric_limits<T>::max();
    for ( const T hue : { T( 1 << 21 ), T( 1e8 ), T( -1e8 ), T( 1e15 ), T( -1e15 ), T( 1e30 ), largest, -largest } )
    {
        const CoHsvColorT<T> hsv( hue, 1, 1 );
        const T turned = std::fmod( hue, T( 360 ) ); // exact, but fmod( hue / 60 ) of the reference is not
        expectNearReference( CoHsvColorT<T>( turned < 0 ? turned + 360 : turned, 1, 1 ),
            componentsOf( hsv.convertToRgb() ), 8 * ZqTest::epsilon<T> );
    }
    for ( const T hue : { ZqTest::infinity<T>, -ZqTest::infinity<T>, ZqTest::nan<T> } )
        for ( const T component : componentsOf( CoHsvColorT<T>( hue, T( 0.5 ), 1 ).convertToRgb() ) )
            EXPECT_TRUE( std::isnan( component ) ) << hue;
}

TYPED_TEST( Color, HueCanRoundTo360AndConvertsBack )
{
    using T = TypeParam;
    const CoRgbColorT<T> rgb( 1, 0, ZqTest::epsilon<T> / 2 );
    const auto hsv = CoHsvColorT<T>::convertFromRgb( rgb );
    EXPECT_EQ( hsv, ( CoHsvColorT<T>( 360, 1, 1 ) ) );
    EXPECT_EQ( hsv.convertToRgb(), ( CoRgbColorT<T>( 1, 0, 0 ) ) );
}

TYPED_TEST( Color, NaNGoesOnFromEveryComponent )
{
    using T = TypeParam;
    const T nan = ZqTest::nan<T>;
    for ( const T other : { T( 0 ), T( 1 ) } )
        for ( int component = 0; component < 3; ++component )
        {
            T c[3] = { other, 1, 1 };
            c[component] = nan;
            const auto hsv = CoHsvColorT<T>::convertFromRgb( { c[0], c[1], c[2] } );
            EXPECT_TRUE( std::isnan( hsv.getHue() ) ) << component;
            const auto clamped = componentsOf( CoRgbColorT<T>( c[0], c[1], c[2] ).computeClamped( T( 0.5 ) ) );
            for ( int i = 0; i < 3; ++i )
                EXPECT_EQ( std::isnan( clamped[std::size_t( i )] ), i == component );
        }
    // no saturation, or one that is NaN: the value stays
    const auto rgb = CoHsvColorT<T>( 60, nan, 1 ).convertToRgb();
    EXPECT_TRUE( std::isnan( rgb.getRed() ) && rgb.getGreen() == 1 && std::isnan( rgb.getBlue() ) );
}

TYPED_TEST( Color, MeasuresClampAndGamma )
{
    using T = TypeParam;
    using Rgb = CoRgbColorT<T>;
    // for float the constants are the nearest floats
    const bool isFloat = sizeof( T ) == sizeof( float );
    EXPECT_EQ( Rgb( 1, 0, 0 ).computeLuminance(), isFloat ? T( 0.26507413F ) : T( 0.265074126 ) );
    EXPECT_EQ( Rgb( 0, 1, 0 ).computeLuminance(), isFloat ? T( 0.67011464F ) : T( 0.670114631 ) );
    EXPECT_EQ( Rgb( 0, 0, 1 ).computeLuminance(), isFloat ? T( 0.064811245F ) : T( 0.064811243 ) );
    EXPECT_EQ( Rgb( -1, 0, 0 ).computeLuminance(), -Rgb( 1, 0, 0 ).computeLuminance() );
    EXPECT_EQ( Rgb( -1, 0, 0 ).computeWeightedMagnitude(), isFloat ? T( 0.263F ) : T( 0.263 ) );
    EXPECT_EQ( Rgb( 0, -1, 0 ).computeWeightedMagnitude(), isFloat ? T( 0.655F ) : T( 0.655 ) );
    EXPECT_EQ( Rgb( 0, 0, -1 ).computeWeightedMagnitude(), isFloat ? T( 0.082F ) : T( 0.082 ) );
    EXPECT_NEAR( double( Rgb( 1 ).computeLuminance() ), 1, 2 * double( ZqTest::epsilon<T> ) );
    EXPECT_NEAR( double( Rgb( -1 ).computeWeightedMagnitude() ), 1, 2 * double( ZqTest::epsilon<T> ) );

    for ( const Rgb& rgb : { Rgb( 1, 2, 3 ), Rgb( 3, 1, 2 ), Rgb( 2, 3, 1 ), Rgb( 3, 2, 1 ) } )
    {
        EXPECT_EQ( rgb.getLargestComponent(), T( 3 ) );
        EXPECT_EQ( rgb.getSmallestComponent(), T( 1 ) );
        EXPECT_EQ( rgb.computeClamped( 2 ).getLargestComponent(), T( 2 ) );
        EXPECT_EQ( rgb.computeClamped( 2 ).getSmallestComponent(), T( 1 ) );
    }
    EXPECT_EQ( Rgb( T( 0.5 ), 1, 0 ).gammaCorrect( 2 ), Rgb( T( 0.25 ), 1, 0 ) );
    const auto root = componentsOf( Rgb( 4, -4, 0 ).gammaCorrect( T( 0.5 ) ) );
    EXPECT_TRUE( root[0] == 2 && std::isnan( root[1] ) && root[2] == 0 );
}

template <class Value>
void checkTextAndComparison( const Value& value, const Value& other, const std::string& text )
{
    std::ostringstream os;
    os << value;
    EXPECT_EQ( os.str(), text );
    Value read = other;
    std::istringstream( "\n " + text + "rest" ) >> read;
    EXPECT_EQ( read, value );
    for ( const char* bad : { "", "1 2", "1 2 x", "1, 2, 3", "(1 2 3)" } )
    {
        std::istringstream is( bad );
        Value kept = value;
        is >> kept;
        EXPECT_TRUE( is.fail() ) << bad;
        EXPECT_EQ( kept, value ) << bad;
    }
    EXPECT_TRUE( value == value && !( value != value ) && value != other && !( value == other ) );
}

TYPED_TEST( Color, TextAndComparison )
{
    using T = TypeParam;
    using Rgb = CoRgbColorT<T>;
    using Hsv = CoHsvColorT<T>;
    checkTextAndComparison( Rgb( T( 0.25 ), 1, T( -0.5 ) ), Rgb(), "0.25 1 -0.5" );
    checkTextAndComparison( Hsv( 120, T( 0.5 ), 1 ), Hsv(), "120 0.5 1" );
    for ( int component = 0; component < 3; ++component )
        for ( const T change : { T( 0.25 ), T( 0.5 ), ZqTest::nan<T> } )
        {
            T c[3] = { 1, 2, 3 };
            c[component] += change;
            const Rgb rgb( 1, 2, 3 ), otherRgb( c[0], c[1], c[2] );
            const Hsv hsv( 1, 2, 3 ), otherHsv( c[0], c[1], c[2] );
            EXPECT_TRUE( rgb != otherRgb && !( rgb == otherRgb ) && hsv != otherHsv && !( hsv == otherHsv ) );
            EXPECT_EQ( rgb.isEqual( otherRgb, T( 0.5 ) ), change < T( 0.5 ) );
            EXPECT_EQ( hsv.isEqual( otherHsv, T( 0.5 ) ), change < T( 0.5 ) );
        }
}

} // namespace
