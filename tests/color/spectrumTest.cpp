#include "support/prelude.h"

#include <zq/color/coSpectrum.h>

namespace
{

ZQ_TWIN_SUITE( SpectrumTest );

ZQ_TWIN_TEST( SpectrumTest, NormsExtremesAndMeasures )
{
    using Spectrum = CoSpectrumT<T>;
    for ( const Spectrum& s : { Spectrum( 2, -3, 6 ), Spectrum( 6, 2, -3 ), Spectrum( -3, 6, 2 ) } )
    {
        EXPECT_EQ( s.computeNorm1(), 11 );
        EXPECT_EQ( s.computeNorm2(), 7 );
        EXPECT_EQ( s.getSmallestSample(), -3 );
        EXPECT_EQ( s.computeNormMax(), 6 );
        EXPECT_EQ( ( -s ).computeNormMax(), 6 );
    }
    const Spectrum a( 2, -3, 6 ), b( 1, -4, 9 );
    EXPECT_EQ( a.computeAbs(), Spectrum( 2, 3, 6 ) );
    EXPECT_EQ( Spectrum::computeMin( a, b ), Spectrum( 1, -4, 6 ) );
    EXPECT_EQ( Spectrum::computeMax( a, b ), Spectrum( 2, -3, 9 ) );
    EXPECT_EQ( Spectrum::computeMin( a, 1 ), Spectrum( 1, -3, 1 ) );
    EXPECT_EQ( Spectrum::computeMax( a, 1 ), Spectrum( 2, 1, 6 ) );
    // of equal zeros the first one
    const Spectrum plus( 0, 0, 0 ), minus = -plus;
    for ( int k = 0; k < 3; ++k )
    {
        EXPECT_FALSE( std::signbit( Spectrum::computeMin( plus, minus ).getSample( k ) ) );
        EXPECT_TRUE( std::signbit( Spectrum::computeMax( minus, plus ).getSample( k ) ) );
    }
    const double bound = 8 * double( epsilon<T> );
    EXPECT_NEAR( double( a.computeLuminance() ), 2 * 0.265074126 - 3 * 0.670114631 + 6 * 0.064811243, bound );
    EXPECT_NEAR( double( a.computeWeightedMagnitude() ), 2 * 0.263 + 3 * 0.655 + 6 * 0.082, bound );

    const Spectrum scaled = b.computeScaledTo( 7 );
    EXPECT_NEAR( double( scaled.computeLuminance() ), 7, bound );
    EXPECT_CLOSE( scaled, b * scaled.getSample( 0 ), 100 * epsilon<T> );
    EXPECT_EQ( Spectrum().computeScaledTo( 5 ), Spectrum() );
    EXPECT_TRUE( std::isnan( Spectrum( ZqTest::nan<T>, 1, 1 ).computeScaledTo( 1 ).getSample( 1 ) ) );
}

} // namespace
