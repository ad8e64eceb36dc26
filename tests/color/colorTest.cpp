#include "support/prelude.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/coRgbColor.h>

namespace
{

ZQ_TWIN_SUITE( Color );

using ZqTest::numbersOf;

// Conversions are compared bit for bit with the plain rule in colorArrayFormsTest.cpp.

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
