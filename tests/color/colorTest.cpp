#include "support/prelude.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/coRgbColor.h>

namespace
{

ZQ_TWIN_SUITE( Color );

template <class T>
std::array<T, 3> componentsOf( const CoRgbColorT<T>& rgb )
{
    return { rgb.getRed(), rgb.getGreen(), rgb.getBlue() };
}

/// The hexcone as three shifted trapezoids, in long double, without sectors.
template <class T>
void expectNearReference( const CoHsvColorT<T>& hsv, const CoRgbColorT<T>& rgb, T bound )
{
    using R = long double;
    for ( int i = 0; i < 3; ++i )
    {
        R k = std::fmod( R( 5 - 2 * i ) + R( hsv.getHue() ) / 60, R( 6 ) );
        k = k < 0 ? k + 6 : k;
        const R trapezoid = std::max( R( 0 ), std::min( { k, 4 - k, R( 1 ) } ) );
        const R expected = R( hsv.getValue() ) * ( 1 - R( hsv.getSaturation() ) * trapezoid );
        ASSERT_NEAR( double( componentsOf( rgb )[std::size_t( i )] ), double( expected ), double( bound ) ) << hsv << i;
    }
}

ZQ_TWIN_TEST( Color, NamedColoursBothWays )
{
    using Rgb = CoRgbColorT<T>;
    using Hsv = CoHsvColorT<T>;
    using Pair = std::pair<Rgb, Hsv>;
    for ( const auto& [named, converted] : std::vector<Pair>{
              { { 1, 0, 0 }, { 0, 1, 1 } },
              { { 1, 1, 0 }, { 60, 1, 1 } }, // red wins the tie with green
              { { 0, 1, 0 }, { 120, 1, 1 } },
              { { 0, 1, 1 }, { 180, 1, 1 } }, // green wins the tie with blue
              { { 0, 0, 1 }, { 240, 1, 1 } },
              { { 1, 0, 1 }, { 300, 1, 1 } }, // red wins the tie with blue
              { { 2, 1, 1 }, { 0, T( 0.5 ), 2 } },
              { { -3, -3, -3 }, { 0, 0, -3 } },
              { { 1, -1, 0 }, { 330, 2, 1 } },
          } )
    {
        EXPECT_EQ( Hsv::convertFromRgb( named ), converted ) << named;
        EXPECT_EQ( converted.convertToRgb(), named ) << converted;
    }
    EXPECT_EQ( Hsv( -120, 1, 1 ).convertToRgb(), Rgb( 0, 0, 1 ) );
    EXPECT_EQ( Hsv( 720, 1, 1 ).convertToRgb(), Rgb( 1, 0, 0 ) );
    // without saturation the hue is not looked at
    EXPECT_EQ( Hsv( 200, -1, T( 0.3 ) ).convertToRgb(), Rgb( T( 0.3 ) ) );
    EXPECT_EQ( Hsv( ZqTest::nan<T>, 0, 2 ).convertToRgb(), Rgb( 2 ) );
    // a value of 0 under a negative component
    EXPECT_EQ( Hsv::convertFromRgb( { 0, -1, -1 } ), Hsv( 0, ZqTest::infinity<T>, 0 ) );
    // the hue can round to 360, and converts back
    const auto hsv = Hsv::convertFromRgb( { 1, 0, epsilon<T> / 2 } );
    EXPECT_TRUE( hsv == Hsv( 360, 1, 1 ) && hsv.convertToRgb() == Rgb( 1, 0, 0 ) );
}

ZQ_TWIN_TEST( Color, ConversionsAgreeWithALongDoubleReference )
{
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
        expectNearReference( hsv, rgb, 30 * epsilon<T> );

        const CoHsvColorT<T> other(
            random.uniform<T>( -1000, 1000 ), random.uniform<T>( T( 0.01 ), 1 ), random.uniform<T>( 0, 1 ) );
        expectNearReference( other, other.convertToRgb(), 1000 * epsilon<T> / 60 );
    }
}

ZQ_TWIN_TEST( Color, TheLastTenthOfADegreeStaysInTheLastSector )
{
    // every float of the range; for double the last ones below 360
    T hue = 360;
    for ( int i = 0; i < 4000 && hue >= T( 359.9 ); ++i )
    {
        hue = std::nextafter( hue, T( 0 ) );
        const CoHsvColorT<T> hsv( hue, 1, 1 );
        expectNearReference( hsv, hsv.convertToRgb(), 8 * epsilon<T> );
    }
    EXPECT_EQ( hue < T( 359.9 ), sizeof( T ) == sizeof( float ) );
}

ZQ_TWIN_TEST( Color, HuesAreTurnedBitForBitAsInSingleSteps )
{
    Random random( 2 );
    std::vector<T> hues{ 360, -360, T( -0.0 ), 1048576, -1048576, std::numeric_limits<T>::denorm_min(),
        -std::numeric_limits<T>::denorm_min(), T( -1e-9 ), T( -1e-20 ) };
    for ( int i = 0; i < 3000; ++i )
    {
        const T turns = T( 60 * ( random.index( 34000 ) - 17000 ) );
        hues.insert( hues.end(),
            { turns, std::nextafter( turns, T( 1e9 ) ), std::nextafter( turns, T( -1e9 ) ),
                random.uniform<T>( T( -1048576 ), T( 1048576 ) ), random.uniform<T>( -720, 720 ) } );
    }
    for ( const T hue : hues )
    {
        // takes forever, or has no end, for a large one
        T turned = hue;
        while ( turned < 0 )
            turned += 360;
        while ( turned >= 360 )
            turned -= 360;
        const auto rgb = componentsOf( CoHsvColorT<T>( hue, T( 0.7 ), T( 0.9 ) ).convertToRgb() );
        const auto expected = componentsOf( CoHsvColorT<T>( turned, T( 0.7 ), T( 0.9 ) ).convertToRgb() );
        ASSERT_EQ( std::memcmp( &rgb, &expected, sizeof rgb ), 0 ) << hue;
    }
    const T largest = std::numeric_limits<T>::max();
    for ( const T hue : { T( 1 << 21 ), T( 1e8 ), T( -1e8 ), T( 1e15 ), T( -1e15 ), T( 1e30 ), largest, -largest } )
    {
        const T turned = std::fmod( hue, T( 360 ) ); // exact, but fmod( hue / 60 ) of the reference is not
        expectNearReference( CoHsvColorT<T>( turned < 0 ? turned + 360 : turned, 1, 1 ),
            CoHsvColorT<T>( hue, 1, 1 ).convertToRgb(), 8 * epsilon<T> );
    }
}

ZQ_TWIN_TEST( Color, NaNGoesOnFromEveryComponent )
{
    const T nan = ZqTest::nan<T>;
    for ( std::size_t component = 0; component < 6; ++component )
    {
        std::array<T, 3> c{ T( component / 3 ), 1, 1 };
        c[component % 3] = nan;
        const CoRgbColorT<T> rgb( c[0], c[1], c[2] );
        EXPECT_TRUE( std::isnan( CoHsvColorT<T>::convertFromRgb( rgb ).getHue() ) ) << component;
        const auto clamped = componentsOf( rgb.computeClamped( T( 0.5 ) ) );
        for ( std::size_t i = 0; i < 3; ++i )
            EXPECT_EQ( std::isnan( clamped[i] ), i == component % 3 );
    }
    for ( const T hue : { ZqTest::infinity<T>, -ZqTest::infinity<T>, nan } )
        for ( const T component : componentsOf( CoHsvColorT<T>( hue, T( 0.5 ), 1 ).convertToRgb() ) )
            EXPECT_TRUE( std::isnan( component ) ) << hue;
    // a saturation that is NaN: the value stays
    const auto rgb = componentsOf( CoHsvColorT<T>( 60, nan, 1 ).convertToRgb() );
    EXPECT_TRUE( std::isnan( rgb[0] ) && rgb[1] == 1 && std::isnan( rgb[2] ) );
}

ZQ_TWIN_TEST( Color, MeasuresClampAndGamma )
{
    using Rgb = CoRgbColorT<T>;
    // for float the constants are the nearest floats
    const double luminances[] = { 0.265074126, 0.670114631, 0.064811243 }, weights[] = { 0.263, 0.655, 0.082 };
    for ( int i = 0; i < 3; ++i )
    {
        const Rgb unit( T( i == 0 ), T( i == 1 ), T( i == 2 ) ),
            negative( -unit.getRed(), -unit.getGreen(), -unit.getBlue() );
        EXPECT_EQ( unit.computeLuminance(), T( luminances[i] ) );
        EXPECT_EQ( negative.computeLuminance(), -T( luminances[i] ) );
        EXPECT_EQ( negative.computeWeightedMagnitude(), T( weights[i] ) );
    }
    EXPECT_NEAR( double( Rgb( 1 ).computeLuminance() ), 1, 2 * double( epsilon<T> ) );
    EXPECT_NEAR( double( Rgb( -1 ).computeWeightedMagnitude() ), 1, 2 * double( epsilon<T> ) );
    for ( const Rgb& rgb : { Rgb( 1, 2, 3 ), Rgb( 3, 1, 2 ), Rgb( 2, 3, 1 ), Rgb( 3, 2, 1 ) } )
    {
        const Rgb clamped = rgb.computeClamped( 2 );
        EXPECT_TRUE( rgb.getLargestComponent() == 3 && rgb.getSmallestComponent() == 1 );
        EXPECT_TRUE( clamped.getLargestComponent() == 2 && clamped.getSmallestComponent() == 1 );
    }
    EXPECT_EQ( Rgb( T( 0.5 ), 1, 3 ).gammaCorrect( 3 ), Rgb( T( 0.125 ), 1, 27 ) );
    const auto root = componentsOf( Rgb( 4, -4, 0 ).gammaCorrect( T( 0.5 ) ) );
    EXPECT_TRUE( root[0] == 2 && std::isnan( root[1] ) && root[2] == 0 );
}

} // namespace
