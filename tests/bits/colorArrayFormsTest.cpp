// RGB to HSV and back, one color and arrays at each level of instructions, against the plain rule, as bits.

#include "levels.h"
#include "plainRules.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/kernels/coHsvColorKernels.h>

using namespace ZqTest;

namespace
{

ZQ_TWIN_SUITE( ColorArrayForms );

ZQ_TWIN_TEST( ColorArrayForms, Conversions )
{
    using Rgb = CoRgbColorT<T>;
    using Hsv = CoHsvColorT<T>;
    const auto toHsv = []( const Rgb& rgb ) { return Hsv::convertFromRgb( rgb ); };
    const auto toRgb = []( const Hsv& hsv ) { return hsv.convertToRgb(); };
    const auto makeHsv = []( Random& random, bool isInRange )
    {
        auto hsv = makeRecord<T, Hsv>( random );
        T hue = random.index( 2 ) == 0 ? random.uniform( T( 0 ), T( 360 ) ) : T( 30 ) * T( random.index( 25 ) );
        if ( random.index( 6 ) == 0 )
            hue = std::nextafter( hue, T( 0 ) );
        else if ( random.index( 9 ) == 0 ) // where turns are exact, rounded, and without an end
            hue = std::ldexp( random.uniform( T( -1 ), T( 1 ) ), std::numeric_limits<T>::digits + random.index( 14 ) );
        if ( isInRange || random.index( 9 ) != 0 )
            hsv.setHue( isInRange && !( hue >= 0 && hue < 360 ) ? T( 90 ) : hue );
        return hsv;
    };
    const auto makeAnyHsv = [&]( Random& random ) { return std::make_tuple( makeHsv( random, false ) ); };
    expectSameBits<T>( 40000, makeRecords<T, Rgb>, toHsv, onNumbers<T>( ZqPlain::convertToHsv<T> ) );
    expectSameBits<T>( 40000, makeAnyHsv, toRgb, onNumbers<T>( ZqPlain::convertToRgb<T> ) );

    const auto check = [&]( const auto& kernels, Random& random, int run )
    {
        // whole blocks of hues that need not be turned, and others
        const auto make = [&]( Random& ) { return makeHsv( random, run % 2 == 0 ); };
        expectSameArray<T>(
            random, 10000, makeRecord<T, Rgb>, [&]( auto... items ) { kernels.convertFromRgb( items... ); }, toHsv );
        expectSameArray<T>(
            random, 10000, make, [&]( auto... items ) { kernels.convertToRgb( items... ); }, toRgb );
    };
    forEachLevel<Detail::CoHsvColorKernels<T>>( 2, check );
}

} // namespace
