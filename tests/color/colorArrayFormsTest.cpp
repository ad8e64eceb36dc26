#include "support/arrayForms.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/kernels.h>

using namespace ZqTest;

namespace
{

ZQ_TWIN_SUITE( ColorArrayForms );

ZQ_TWIN_TEST( ColorArrayForms, Conversions )
{
    using Rgb = CoRgbColorT<T>;
    using Hsv = CoHsvColorT<T>;
    const auto check = []( const Detail::CoKernels<T>& kernels, Random& random )
    {
        compareForm<T, Rgb, Hsv>(
            random, 20000, [&]( auto... items ) { kernels.convertFromRgb( items... ); },
            []( const Rgb& rgb ) { return Hsv::convertFromRgb( rgb ); } );
        for ( const bool isInRange : { true, false } ) // whole blocks of hues that need not be turned, and others
        {
            const auto makeHsv = [&]( Random& )
            {
                Hsv hsv = makeRecord<Hsv, T>( random );
                T hue = random.index( 2 ) == 0 ? random.uniform( T( 0 ), T( 360 ) ) : T( 30 ) * T( random.index( 25 ) );
                if ( random.index( 6 ) == 0 )
                    hue = std::nextafter( hue, T( 0 ) );
                if ( isInRange || random.index( 9 ) != 0 )
                    hsv.setHue( isInRange && hue >= T( 360 ) ? T( 90 ) : hue );
                return hsv;
            };
            compareForm<T, Rgb>(
                random, 10000, makeHsv, [&]( auto... items ) { kernels.convertToRgb( items... ); },
                []( const Hsv& hsv ) { return hsv.convertToRgb(); } );
        }
    };
    forEachLevel<Detail::CoKernels<T>>( Detail::findCoKernels<T>, check );
}

} // namespace
