// Colours and spectra.

#include "results.h"

namespace ZqBits
{

namespace
{

template <class Color, class T>
void compare( Results& out, const Color& a, const Color& b, T tolerance )
{
    out( a == b, a != b, a.isEqual( b, tolerance ), a.isEqual( a, tolerance ) );
}

template <class T>
void rgb( Inputs& in, Results& out )
{
    const auto a = in.make<CoRgbColorT<T>>(), b = in.make<CoRgbColorT<T>>();
    const T s = in.number<T>();
    compare( out, a, b, s );
    out( CoRgbColorT<T>( s ), a.getLargestComponent(), a.getSmallestComponent(), a.computeClamped( s ),
        a.computeWeightedMagnitude(), a.computeLuminance() );
}

template <class T>
void gammaLibm( Inputs& in, Results& out )
{
    const auto color = in.make<CoRgbColorT<T>>();
    const T gamma = in.number<T>(), ordinary = T( 2.2F ) + in.uniform( T( 2 ) );
    out( color.gammaCorrect( gamma ), color.gammaCorrect( ordinary ) );
}

/// Hues of all turns, and those next to the sectors' ends.
template <class T>
CoHsvColorT<T> makeHsv( Inputs& in )
{
    const auto any = in.make<CoHsvColorT<T>>();
    const int sixths = in.index( 25 ) - 12;
    const T hue = static_cast<T>( sixths ) * T( 60 );
    if ( in.oneIn( 4 ) )
        return { hue + hue * in.uniform( std::numeric_limits<T>::epsilon() ), any.getSaturation(), any.getValue() };
    return in.oneIn( 2 ) ? any : CoHsvColorT<T>( in.uniform( T( 720 ) ), any.getSaturation(), any.getValue() );
}

template <class T>
void hsv( Inputs& in, Results& out )
{
    const CoHsvColorT<T> a = makeHsv<T>( in ), b = makeHsv<T>( in );
    compare( out, a, b, in.number<T>() );
    out( a.convertToRgb(), CoHsvColorT<T>::convertFromRgb( in.make<CoRgbColorT<T>>() ),
        CoHsvColorT<T>::convertFromRgb( a.convertToRgb() ) );
}

template <class T>
void hsvArrays( Inputs& in, Results& out )
{
    const auto count = static_cast<std::size_t>( in.index( in.oneIn( 16 ) ? 100 : 20 ) );
    std::vector<CoHsvColorT<T>> hsvs;
    while ( hsvs.size() < count )
        hsvs.push_back( makeHsv<T>( in ) );
    auto rgbs = in.makeArray<CoRgbColorT<T>>( count );
    for ( std::size_t i = 0; i < count; ++i )
        out( hsvs[i].convertToRgb(), CoHsvColorT<T>::convertFromRgb( rgbs[i] ) );
    std::vector<CoHsvColorT<T>> results( count );
    CoHsvColorT<T>::convertFromRgb( rgbs.data(), count, results.data() );
    CoHsvColorT<T>::convertToRgb( hsvs.data(), count, rgbs.data() );
    out( results, rgbs );
}

template <class T>
void spectrum( Inputs& in, Results& out )
{
    using Spectrum = CoSpectrumT<T>;
    const auto a = in.make<Spectrum>(), b = in.make<Spectrum>();
    const T s = in.number<T>();
    compare( out, a, b, s );
    out( Spectrum( s ), a + b, a - b, a * b, a / b, a + s, a - s, a * s, a / s, s + a, s * a, s / a, -a );
    out( a.computeNorm1(), a.computeNorm2(), a.computeNormMax(), a.computeAbs(), Spectrum::computeMin( a, b ),
        Spectrum::computeMin( a, s ), Spectrum::computeMax( a, b ), Spectrum::computeMax( a, s ), a.getSmallestSample(),
        a.computeWeightedMagnitude(), a.computeLuminance(), a.getSample( 1 ) );
    out.call( [&] { return a.computeScaledTo( s ); } );
    out.change( a, [&]( auto& c ) { return ( ( ( c += b ) *= a ) -= b ) /= a; } );
    out.change( a, [&]( auto& c ) { return ( ( ( c *= s ) += s ) /= s ) -= s; } );
    out.change( a, [&]( auto& c ) { c.setSample( 2, s ); } );
}

} // namespace

std::vector<Group> getColorGroups()
{
    return {
        { "rgb.float", rgb<float> },
        { "rgb.double", rgb<double> },
        { "gamma.float.libm", gammaLibm<float> },
        { "gamma.double.libm", gammaLibm<double> },
        { "hsv.float", hsv<float> },
        { "hsv.double", hsv<double> },
        { "hsvArrays.float", hsvArrays<float> },
        { "hsvArrays.double", hsvArrays<double> },
        { "spectrum.float", spectrum<float> },
        { "spectrum.double", spectrum<double> },
    };
}

} // namespace ZqBits
