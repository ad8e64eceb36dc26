#include "support/random.h"
#include "support/scalars.h"

#include <zq/color/coSpectrum.h>

#include <cmath>
#include <sstream>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( SpectrumTest );

template <class T>
CoSpectrumT<T> randomSpectrum( Random& random )
{
    const T first = random.uniform<T>( -2, 2 ), second = random.uniform<T>( -2, 2 );
    return { first, second, random.uniform<T>( -2, 2 ) };
}

TYPED_TEST( SpectrumTest, ArithmeticWorksSampleBySample )
{
    using T = TypeParam;
    using Spectrum = CoSpectrumT<T>;
    Random random( 1 );
    bool sawReciprocal = false;
    for ( int i = 0; i < 300; ++i )
    {
        const Spectrum a = randomSpectrum<T>( random ), b = randomSpectrum<T>( random );
        const T s = random.uniform<T>( 1, 9 );
        Spectrum sum = a, difference = a, product = a, quotient = a, plus = a, minus = a, times = a, over = a;
        sum += b, difference -= b, product *= b, quotient /= b, plus += s, minus -= s, times *= s, over /= s;
        for ( int k = 0; k < 3; ++k )
        {
            const T x = a.getSample( k ), y = b.getSample( k );
            EXPECT_EQ( sum.getSample( k ), x + y );
            EXPECT_EQ( difference.getSample( k ), x - y );
            EXPECT_EQ( product.getSample( k ), x * y );
            EXPECT_EQ( quotient.getSample( k ), x / y );
            EXPECT_EQ( plus.getSample( k ), x + s );
            EXPECT_EQ( minus.getSample( k ), x - s );
            EXPECT_EQ( times.getSample( k ), x * s );
            EXPECT_EQ( over.getSample( k ), x * ( 1 / s ) );
            EXPECT_EQ( ( s / a ).getSample( k ), s / x );
            sawReciprocal = sawReciprocal || over.getSample( k ) != x / s;
        }
        EXPECT_TRUE( a + b == sum && a - b == difference && a * b == product && a / b == quotient );
        EXPECT_TRUE( a + s == plus && a - s == minus && a * s == times && a / s == over );
        EXPECT_TRUE( s + a == plus && s * a == times && -a == Spectrum( 0 ) - a );
    }
    EXPECT_TRUE( sawReciprocal );
    EXPECT_EQ( 2 * Spectrum( 1, 2, 3 ), Spectrum( 2, 4, 6 ) );
    const Spectrum byZero = Spectrum( 1, -1, 0 ) / T( 0 );
    EXPECT_TRUE( byZero.getSample( 0 ) == ZqTest::infinity<T> && byZero.getSample( 1 ) == -ZqTest::infinity<T> );
    EXPECT_TRUE( std::isnan( byZero.getSample( 2 ) ) );
    EXPECT_TRUE( std::signbit( ( -Spectrum() ).getSample( 1 ) ) );
}

TYPED_TEST( SpectrumTest, NormsExtremesAndMeasures )
{
    using T = TypeParam;
    using Spectrum = CoSpectrumT<T>;
    const T samples[3] = { 2, -3, 6 };
    for ( int turn = 0; turn < 3; ++turn )
    {
        const Spectrum s( samples[turn], samples[( turn + 1 ) % 3], samples[( turn + 2 ) % 3] );
        EXPECT_EQ( s.computeNorm1(), T( 11 ) );
        EXPECT_EQ( s.computeNorm2(), T( 7 ) );
        EXPECT_EQ( s.computeNormMax(), T( 6 ) );
        EXPECT_EQ( ( -s ).computeNormMax(), T( 6 ) );
        EXPECT_EQ( s.getSmallestSample(), T( -3 ) );
    }
    const Spectrum a( 2, -3, 6 ), b( 1, -4, 9 );
    EXPECT_EQ( a.computeAbs(), Spectrum( 2, 3, 6 ) );
    EXPECT_EQ( Spectrum::computeMin( a, b ), Spectrum( 1, -4, 6 ) );
    EXPECT_EQ( Spectrum::computeMax( a, b ), Spectrum( 2, -3, 9 ) );
    EXPECT_EQ( Spectrum::computeMin( a, 1 ), Spectrum( 1, -3, 1 ) );
    EXPECT_EQ( Spectrum::computeMax( a, 1 ), Spectrum( 2, 1, 6 ) );

    const double bound = 8 * double( ZqTest::epsilon<T> );
    EXPECT_NEAR( double( a.computeLuminance() ), 2 * 0.265074126 - 3 * 0.670114631 + 6 * 0.064811243, bound );
    EXPECT_NEAR( double( a.computeWeightedMagnitude() ), 2 * 0.263 + 3 * 0.655 + 6 * 0.082, bound );
}

TYPED_TEST( SpectrumTest, ScalingReachesTheLuminanceUnlessThereIsNone )
{
    using T = TypeParam;
    using Spectrum = CoSpectrumT<T>;
    EXPECT_EQ( Spectrum().computeScaledTo( 5 ), Spectrum() );
    EXPECT_TRUE( Spectrum( 1 ).computeScaledTo( 2 ).isEqual( Spectrum( 2 ), 8 * ZqTest::epsilon<T> ) );
    Random random( 2 );
    for ( int i = 0; i < 300; ++i )
    {
        const Spectrum s = randomSpectrum<T>( random ).computeAbs() + T( 0.01 );
        const Spectrum scaled = s.computeScaledTo( -3 );
        EXPECT_NEAR( double( scaled.computeLuminance() ), -3, 20 * double( ZqTest::epsilon<T> ) );
        EXPECT_NEAR( double( scaled.getSample( 0 ) / s.getSample( 0 ) ),
            double( scaled.getSample( 2 ) / s.getSample( 2 ) ), 2000 * double( ZqTest::epsilon<T> ) );
    }
    EXPECT_TRUE( std::isnan( Spectrum( ZqTest::nan<T>, 1, 1 ).computeScaledTo( 1 ).getSample( 1 ) ) );
}

TYPED_TEST( SpectrumTest, ComparisonAndText )
{
    using T = TypeParam;
    using Spectrum = CoSpectrumT<T>;
    const Spectrum s( 1, T( 2.5 ), -3 );
    for ( int k = 0; k < 3; ++k )
        for ( const T change : { T( 0.25 ), T( 0.5 ), ZqTest::nan<T> } )
        {
            Spectrum other = s;
            other.setSample( k, s.getSample( k ) + change );
            EXPECT_TRUE( s != other && !( s == other ) );
            EXPECT_EQ( s.isEqual( other, T( 0.5 ) ), change < T( 0.5 ) );
            EXPECT_EQ( other != other, std::isnan( change ) );
            EXPECT_EQ( other == other, !std::isnan( change ) );
        }
    std::ostringstream os;
    os << s;
    EXPECT_EQ( os.str(), "1 2.5 -3" );
    std::istringstream is( " 7 8\n9 1 2" );
    Spectrum read;
    is >> read;
    EXPECT_EQ( read, Spectrum( 7, 8, 9 ) );
    is >> read;
    EXPECT_TRUE( is.fail() );
    EXPECT_EQ( read, Spectrum( 7, 8, 9 ) );
}

} // namespace
