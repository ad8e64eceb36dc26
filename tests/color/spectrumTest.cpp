#include "support/prelude.h"

#include <zq/color/coSpectrum.h>

namespace
{

ZQ_TWIN_SUITE( SpectrumTest );

ZQ_TWIN_TEST( SpectrumTest, ArithmeticWorksSampleBySample )
{
    using Spectrum = CoSpectrumT<T>;
    const Spectrum a( 49, -3, T( 0.1 ) ), b( 5, T( 0.7 ), -9 );
    const T s = 49;
    for ( int k = 0; k < 3; ++k )
    {
        const T x = a.getSample( k ), y = b.getSample( k );
        EXPECT_TRUE( ( a + b ).getSample( k ) == x + y && ( a - b ).getSample( k ) == x - y );
        EXPECT_TRUE( ( a * b ).getSample( k ) == x * y && ( a / b ).getSample( k ) == x / y );
        EXPECT_TRUE( ( a + s ).getSample( k ) == x + s && ( a - s ).getSample( k ) == x - s );
        // one reciprocal: in double it tells for 49 / 49, in float for 0.1 / 49
        EXPECT_TRUE( ( a * s ).getSample( k ) == x * s && ( a / s ).getSample( k ) == x * ( 1 / s ) );
        EXPECT_TRUE( ( s / a ).getSample( k ) == s / x && ( -a ).getSample( k ) == -x );
    }
    Spectrum c = a;
    EXPECT_TRUE( ( c += b ) == a + b && ( c -= b ) == a + b - b && ( c *= b ) == ( a + b - b ) * b );
    EXPECT_TRUE( ( c = a, c /= b ) == a / b && ( c = a, c += s ) == a + s && ( c = a, c -= s ) == a - s );
    EXPECT_TRUE( ( c = a, c *= s ) == a * s && ( c = a, c /= s ) == a / s && s + a == a + s && s * a == a * s );
}

ZQ_TWIN_TEST( SpectrumTest, NormsExtremesAndMeasures )
{
    using Spectrum = CoSpectrumT<T>;
    for ( const Spectrum& s : { Spectrum( 2, -3, 6 ), Spectrum( 6, 2, -3 ), Spectrum( -3, 6, 2 ) } )
    {
        EXPECT_TRUE( s.computeNorm1() == 11 && s.computeNorm2() == 7 && s.getSmallestSample() == -3 );
        EXPECT_TRUE( s.computeNormMax() == 6 && ( -s ).computeNormMax() == 6 );
    }
    const Spectrum a( 2, -3, 6 ), b( 1, -4, 9 );
    EXPECT_EQ( a.computeAbs(), Spectrum( 2, 3, 6 ) );
    EXPECT_EQ( Spectrum::computeMin( a, b ), Spectrum( 1, -4, 6 ) );
    EXPECT_EQ( Spectrum::computeMax( a, b ), Spectrum( 2, -3, 9 ) );
    EXPECT_EQ( Spectrum::computeMin( a, 1 ), Spectrum( 1, -3, 1 ) );
    EXPECT_EQ( Spectrum::computeMax( a, 1 ), Spectrum( 2, 1, 6 ) );
    const double bound = 8 * double( epsilon<T> );
    EXPECT_NEAR( double( a.computeLuminance() ), 2 * 0.265074126 - 3 * 0.670114631 + 6 * 0.064811243, bound );
    EXPECT_NEAR( double( a.computeWeightedMagnitude() ), 2 * 0.263 + 3 * 0.655 + 6 * 0.082, bound );

    const Spectrum scaled = b.computeScaledTo( 7 );
    EXPECT_NEAR( double( scaled.computeLuminance() ), 7, bound );
    EXPECT_TRUE( scaled.isEqual( b * scaled.getSample( 0 ), 100 * epsilon<T> ) );
    EXPECT_EQ( Spectrum().computeScaledTo( 5 ), Spectrum() );
    EXPECT_TRUE( std::isnan( Spectrum( ZqTest::nan<T>, 1, 1 ).computeScaledTo( 1 ).getSample( 1 ) ) );
}

} // namespace
