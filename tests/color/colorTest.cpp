#include "support/prelude.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/coRgbColor.h>

namespace
{

ZQ_TWIN_SUITE( Color );

using ZqTest::numbersOf;

// Named colours, ties and NaN are among what colorArrayFormsTest.cpp compares bit for bit.

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
        ASSERT_NEAR( double( numbersOf<T>( rgb )[std::size_t( i )] ), double( expected ), double( bound ) ) << hsv << i;
    }
}

ZQ_TWIN_TEST( Color, ConversionsAgreeWithALongDoubleReference )
{
    Random random( 1 );
    for ( const auto i : random.runs( 20000 ) )
    {
        const T red = random.uniform<T>( -1, 2 ), green = random.uniform<T>( -1, 2 );
        const CoRgbColorT<T> rgb( red, green, random.uniform<T>( T( 0.1 ), 2 ) );
        const auto hsv = CoHsvColorT<T>::convertFromRgb( rgb );
        ASSERT_GE( hsv.getHue(), 0 ) << rgb;
        ASSERT_LT( hsv.getHue(), 360 ) << rgb;
        ASSERT_EQ( hsv.getValue(), rgb.getLargestComponent() ) << rgb;
        expectNearReference( hsv, rgb, 30 * epsilon<T> );
        const CoHsvColorT<T> other( random.uniform<T>( -1000, 1000 ), random.uniform<T>( T( 0.01 ), 1 ), 1 );
        expectNearReference( other, other.convertToRgb(), 1000 * epsilon<T> / 60 );
    }
    // up to the last float before the sectors begin again
    for ( float last = 359.9F; last < 360; last = std::nextafter( last, 400.0F ) )
    {
        const CoHsvColorT<T> hsv( last, 1, 1 );
        const auto rgb = hsv.convertToRgb();
        expectNearReference( hsv, rgb, 10 * epsilon<T> );
        ASSERT_NEAR( CoHsvColorT<T>::convertFromRgb( rgb ).getHue(), last, 600 * epsilon<T> );
    }
    // the hue can round to 360, and converts back
    const auto hsv = CoHsvColorT<T>::convertFromRgb( { 1, 0, epsilon<T> / 2 } );
    EXPECT_EQ( hsv, CoHsvColorT<T>( 360, 1, 1 ) );
    EXPECT_EQ( hsv.convertToRgb(), CoRgbColorT<T>( 1, 0, 0 ) );
}

// It must not matter whether a caller makes the first turn. Up to the smaller of two powers it is exact: 360 is a multiple
// of the hue's last place. Up to the larger one it is rounded; beyond, the turns never end.
ZQ_TWIN_TEST( Color, HuesAreTurnedWithTheRoundingOfSingleSteps )
{
    constexpr int digits = std::numeric_limits<T>::digits;
    const auto convert = []( T hue ) { return CoHsvColorT<T>( hue, T( 0.7 ), T( 0.9 ) ).convertToRgb(); };
    const auto expectOneTurnToBeFree = [&]( T hue )
    {
        if ( hue >= 360 )
        {
            EXPECT_EQ( convert( hue ), convert( hue - 360 ) ) << hue;
        }
        EXPECT_EQ( convert( -hue ), convert( 360 - hue ) ) << hue;
    };
    const T last = std::ldexp( T( 1 ), digits + 9 ), largest = std::numeric_limits<T>::max();
    Random random( 3 );
    for ( T power = last; power >= 1; power /= 2 )
    {
        const T multiple = power * T( 1.40625 ); // at times a whole number of turns
        T hue = power;
        for ( int i = 0; i < 20; ++i, hue = std::nextafter( hue, T( 0 ) ) )
            expectOneTurnToBeFree( hue );
        for ( const T other : { multiple, std::nextafter( multiple, T( 0 ) ), std::nextafter( multiple, largest ) } )
            expectOneTurnToBeFree( std::min( other, last ) );
        for ( const auto run : random.runs( 300 ) )
            expectOneTurnToBeFree( power * random.uniform<T>( T( 0.5 ), 1 ) );
    }
    expectOneTurnToBeFree( std::numeric_limits<T>::denorm_min() );
    const T beyond = std::nextafter( last, largest );
    EXPECT_EQ( beyond - 360, beyond );
    EXPECT_EQ( convert( beyond ), convert( std::fmod( beyond, T( 360 ) ) ) );
    EXPECT_EQ( convert( -beyond ), convert( 360 - std::fmod( beyond, T( 360 ) ) ) );
    EXPECT_EQ( convert( -largest ), convert( 360 - std::fmod( largest, T( 360 ) ) ) );
}

ZQ_TWIN_TEST( Color, MeasuresClampAndGamma )
{
    using Rgb = CoRgbColorT<T>;
    // for float the constants are the nearest floats
    const double luminances[] = { 0.265074126, 0.670114631, 0.064811243 }, weights[] = { 0.263, 0.655, 0.082 };
    for ( int i = 0; i < 3; ++i )
    {
        const Rgb negative( -T( i == 0 ), -T( i == 1 ), -T( i == 2 ) );
        EXPECT_EQ( negative.computeLuminance(), -T( luminances[i] ) );
        EXPECT_EQ( negative.computeWeightedMagnitude(), T( weights[i] ) );
    }
    for ( const Rgb& rgb : { Rgb( 1, 2, 3 ), Rgb( 3, 1, 2 ), Rgb( 2, 3, 1 ), Rgb( 3, 2, 1 ) } )
    {
        EXPECT_EQ( rgb.getLargestComponent(), 3 );
        EXPECT_EQ( rgb.getSmallestComponent(), 1 );
    }
    EXPECT_EQ( Rgb( 1, 3, 2 ).computeClamped( 2 ), Rgb( 1, 2, 2 ) );
    EXPECT_EQ( Rgb( 3, 1, 4 ).computeClamped( 2 ), Rgb( 2, 1, 2 ) );
    EXPECT_EQ( Rgb( T( 0.5 ), 1, 3 ).gammaCorrect( 3 ), Rgb( T( 0.125 ), 1, 27 ) );
    for ( const T component : numbersOf<T>( Rgb( ZqTest::nan<T> ).computeClamped( 2 ) ) )
        EXPECT_TRUE( std::isnan( component ) );
    EXPECT_TRUE( std::isnan( Rgb( -4, 0, 0 ).gammaCorrect( T( 0.5 ) ).getRed() ) );
}

} // namespace
