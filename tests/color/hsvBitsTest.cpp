// RGB to HSV and back against the plain rule, as bits.

#include <zq/color/coHsvColor.h>
#include <zq/color/coRgbColor.h>

#include "support/bits.h"

using namespace Zq;
using ZqTest::isSame;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( HsvBits );

template <class T>
CoHsvColorT<T> convertPlain( const CoRgbColorT<T>& rgb )
{
    const T r = rgb.getRed(), g = rgb.getGreen(), b = rgb.getBlue();
    const T larger = r < g ? g : r, largest = larger < b ? b : larger;
    const T smaller = g < r ? g : r, smallest = b < smaller ? b : smaller;
    if ( r == largest && g == largest && b == largest )
        return CoHsvColorT<T>( T( 0 ), T( 0 ), largest );
    const T delta = largest - smallest;
    const T rc = ( largest - r ) / delta, gc = ( largest - g ) / delta, bc = ( largest - b ) / delta;
    T sixths = delta;
    if ( r == largest )
        sixths = bc - gc;
    else if ( g == largest )
        sixths = T( 2 ) + rc - bc;
    else if ( b == largest )
        sixths = T( 4 ) + gc - rc;
    if ( sixths < 0 )
        sixths += T( 6 );
    return CoHsvColorT<T>( sixths * T( 60 ), delta / largest, largest );
}

/// For hues in [0, 360) and saturations above 0.
template <class T>
CoRgbColorT<T> convertPlain( const CoHsvColorT<T>& hsv )
{
    const T s = hsv.getSaturation(), v = hsv.getValue();
    const T h = static_cast<T>( static_cast<double>( hsv.getHue() ) * 0.016666666666666666 );
    const int sector = static_cast<int>( h );
    const T f = h - static_cast<T>( sector );
    const T p = ( T( 1 ) - s ) * v, q = ( T( 1 ) - s * f ) * v, t = ( T( 1 ) - s * ( T( 1 ) - f ) ) * v;
    switch ( sector )
    {
    case 0:
        return CoRgbColorT<T>( v, t, p );
    case 1:
        return CoRgbColorT<T>( q, v, p );
    case 2:
        return CoRgbColorT<T>( p, v, t );
    case 3:
        return CoRgbColorT<T>( p, q, v );
    case 4:
        return CoRgbColorT<T>( t, p, v );
    default:
        return CoRgbColorT<T>( v, p, q );
    }
}

TYPED_TEST( HsvBits, areThoseOfThePlainRule )
{
    using T = TypeParam;
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < 40000; ++n )
    {
        const auto component = [&]
        { return random.index( 4 ) == 0 ? ZqTest::anyNumber<T>( random ) : random.uniform<T>( T( 0 ), T( 1 ) ); };
        const CoRgbColorT<T> rgb( component(), component(), component() );
        ASSERT_TRUE( isSame<T>( CoHsvColorT<T>::convertFromRgb( rgb ), convertPlain( rgb ) ) ) << rgb;

        T hue = random.index( 4 ) == 0 ? T( 60 * random.index( 6 ) ) : random.uniform<T>( T( 0 ), T( 359.9999 ) );
        if ( random.index( 8 ) == 0 )
            hue = std::nextafter( hue == T( 0 ) ? T( 360 ) : hue, T( 0 ) );
        const CoHsvColorT<T> hsv( hue, random.uniform<T>( T( 0.001 ), T( 1 ) ), component() );
        ASSERT_TRUE( isSame<T>( hsv.convertToRgb(), convertPlain( hsv ) ) ) << hsv;
    }
}

} // namespace
