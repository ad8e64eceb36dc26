#include "support/prelude.h"

#include <zq/color/coSpectrum.h>

namespace
{

ZQ_TWIN_SUITE( SpectrumTest );

template <class T>
CoSpectrumT<T> randomSpectrum( Random& random )
{
    const GeVector3<T> v = random.vector<T>( 2 );
    return { v[0], v[1], v[2] };
}

ZQ_TWIN_TEST( SpectrumTest, ArithmeticWorksSampleBySample )
{
    using Spectrum = CoSpectrumT<T>;
    Random random( 1 );
    bool sawReciprocal = false;
    for ( int i = 0; i < 300; ++i )
    {
        const Spectrum a = randomSpectrum<T>( random ), b = randomSpectrum<T>( random );
        const T s = random.uniform<T>( 1, 9 );
        for ( int k = 0; k < 3; ++k )
        {
            const T x = a.getSample( k ), y = b.getSample( k );
            EXPECT_TRUE( ( a + b ).getSample( k ) == x + y && ( a - b ).getSample( k ) == x - y );
            EXPECT_TRUE( ( a * b ).getSample( k ) == x * y && ( a / b ).getSample( k ) == x / y );
            EXPECT_TRUE( ( a + s ).getSample( k ) == x + s && ( a - s ).getSample( k ) == x - s );
            EXPECT_TRUE( ( a * s ).getSample( k ) == x * s && ( a / s ).getSample( k ) == x * ( 1 / s ) );
            EXPECT_TRUE( ( s / a ).getSample( k ) == s / x && ( -a ).getSample( k ) == -x );
            sawReciprocal = sawReciprocal || x * ( 1 / s ) != x / s;
        }
        Spectrum c = a;
        EXPECT_TRUE( ( c += b ) == a + b && ( c -= b ) == a + b - b && ( c *= b ) == ( a + b - b ) * b );
        EXPECT_TRUE( ( c = a, c /= b ) == a / b && ( c = a, c += s ) == a + s && ( c = a, c -= s ) == a - s );
        EXPECT_TRUE( ( c = a, c *= s ) == a * s && ( c = a, c /= s ) == a / s && s + a == a + s && s * a == a * s );
    }
    EXPECT_TRUE( sawReciprocal );
    const Spectrum byZero = Spectrum( 1, -1, 0 ) / T( 0 );
    EXPECT_TRUE( byZero.getSample( 0 ) == ZqTest::infinity<T> && byZero.getSample( 1 ) == -ZqTest::infinity<T> );
    EXPECT_TRUE( std::isnan( byZero.getSample( 2 ) ) && std::signbit( ( -Spectrum() ).getSample( 1 ) ) );
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
}

ZQ_TWIN_TEST( SpectrumTest, ScalingReachesTheLuminanceUnlessThereIsNone )
{
    using Spectrum = CoSpectrumT<T>;
    Random random( 2 );
    for ( int i = 0; i < 300; ++i )
    {
        const Spectrum s = randomSpectrum<T>( random ).computeAbs() + T( 0.01 ), scaled = s.computeScaledTo( -3 );
        EXPECT_NEAR( double( scaled.computeLuminance() ), -3, 20 * double( epsilon<T> ) );
        const T factor = scaled.getSample( 0 ) / s.getSample( 0 );
        EXPECT_TRUE( scaled.isEqual( s * factor, 2000 * epsilon<T> ) );
    }
    EXPECT_EQ( Spectrum().computeScaledTo( 5 ), Spectrum() );
    EXPECT_TRUE( std::isnan( Spectrum( ZqTest::nan<T>, 1, 1 ).computeScaledTo( 1 ).getSample( 1 ) ) );
}

} // namespace
