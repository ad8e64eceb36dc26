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
    forEachLevel<Detail::CoKernels<T>>( Detail::findCoKernels<T>,
        []( const Detail::CoKernels<T>& kernels, Random& random )
        {
            runForm<T, Rgb, Hsv>(
                random, nbElements(),
                [&]( const Rgb* colors, std::size_t count, Hsv* results )
                { kernels.convertFromRgb( colors, count, results ); },
                []( const Rgb& rgb, const Hsv& hsv ) { return isSame<T>( hsv, Hsv::convertFromRgb( rgb ) ); } );
            runForm<T, Hsv, Rgb>(
                random, nbElements(),
                [&]( Hsv* colors, std::size_t count, Rgb* results )
                {
                    // all sectors and their limits; in every third run hues that have to be turned
                    const int last = random.index( 3 ) == 0 ? 24 : 11;
                    for ( std::size_t i = 0; i < count; ++i )
                    {
                        T hue = colors[i].getHue();
                        if ( random.index( 8 ) != 0 )
                            hue = random.index( 2 ) == 0 ? random.uniform( T( 0 ), T( 360 ) )
                                                         : T( 30 ) * static_cast<T>( random.index( last + 1 ) );
                        if ( random.index( 6 ) == 0 )
                            hue = std::nextafter( hue, T( 0 ) );
                        colors[i].setHue( count % 3 != 0 && !( hue >= 0 && hue < T( 360 ) ) ? T( 90 ) : hue );
                    }
                    kernels.convertToRgb( colors, count, results );
                },
                []( const Hsv& hsv, const Rgb& rgb ) { return isSame<T>( rgb, hsv.convertToRgb() ); } );
        } );
}

} // namespace
