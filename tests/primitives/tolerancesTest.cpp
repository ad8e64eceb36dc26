#include "support/random.h"
#include "support/scalars.h"

#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/gePoint2.h>
#include <zq/primitives/gePoint3.h>
#include <zq/primitives/geTolerances.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

using namespace Zq;
using ZqTest::Random;

namespace
{

using R = long double;

const float NAN_F = ZqTest::nan<float>;
const float INF_F = ZqTest::infinity<float>;

float above( float x )
{
    return std::nextafter( x, INF_F );
}

float below( float x )
{
    return std::nextafter( x, -INF_F );
}

int sign( R difference )
{
    return difference > 0 ? 1 : difference < 0 ? -1 : 0;
}

std::array<float, 10> getFields( const GeTolerances& tolerances )
{
    std::array<float, 10> fields;
    std::memcpy( fields.data(), &tolerances, sizeof( fields ) );
    return fields;
}

std::uint32_t getBits( float x )
{
    std::uint32_t bits;
    std::memcpy( &bits, &x, sizeof( bits ) );
    return bits;
}

GeTolerances makeTolerances( float length, float angle, float fraction )
{
    GeTolerances tolerances;
    tolerances.setLengthTolerance( length );
    tolerances.setAngleTolerance( angle );
    tolerances.setFractionTolerance( fraction );
    return tolerances;
}

TEST( Tolerances, DefaultsHaveTheseBits )
{
    const std::array<float, 10> fields = getFields( GeTolerances() );
    const std::uint32_t expected[10] = { 0x3A03126F, 0x348637BE, 0x298CBCCE, 0x38D1B717, 0x3F800000, 0x3F800000,
        getBits( static_cast<float>( std::sin( R( 0.0001F ) ) ) ), 0x33D6BF95, 0x3456BF95, 0x3F800000 };
    for ( std::size_t i = 0; i < 10; ++i )
        EXPECT_EQ( getBits( fields[i] ), expected[i] ) << "field " << i;
}

TEST( Tolerances, DerivedFieldsAreRoundedOnceAndBelongToTheirSetter )
{
    Random random( 30 );
    bool squareOfTheRoundedDiffers = false, cosineOfTheRoundedDiffers = false;
    for ( int i = 0; i < 2000; ++i )
    {
        const float t = random.uniform( 1e-6F, 10.0F ), a = random.uniform( 0.0F, 3.0F );
        const float f = random.uniform( 0.0F, 1.0F );
        const std::array<float, 10> all = getFields( makeTolerances( t, a, f ) );
        const R cosine = std::cos( R( a ) );
        const std::array<float, 10> expected{ t, float( R( t ) * t ), float( R( t ) * t * t * t ), a, float( cosine ),
            float( cosine * cosine ), float( std::sin( R( a ) ) ), f, float( 2 * R( f ) ), float( R( f ) * f + 1 ) };
        EXPECT_EQ( all, expected );
        squareOfTheRoundedDiffers = squareOfTheRoundedDiffers || all[2] != float( R( all[1] ) * all[1] );
        cosineOfTheRoundedDiffers = cosineOfTheRoundedDiffers || all[5] != float( R( all[4] ) * all[4] );

        EXPECT_EQ(
            makeTolerances( t, a, f ).compareLengthSquared( 0, all[1] ), 0 ); // even where t squared is rounded down
        GeTolerances copy;
        copy = makeTolerances( t, a, f );
        EXPECT_EQ( getFields( copy ), all );
        copy.setAngleTolerance( 0.0001F );
        std::array<float, 10> changed = all;
        const std::array<float, 10> defaults = getFields( GeTolerances() );
        std::copy( &defaults[3], &defaults[3] + 4, &changed[3] );
        EXPECT_EQ( getFields( copy ), changed );
        EXPECT_EQ( copy.getLengthTolerance(), t );
        EXPECT_EQ( copy.getAngleTolerance(), 0.0001F );
        EXPECT_EQ( copy.getFractionTolerance(), f );
    }
    EXPECT_TRUE( squareOfTheRoundedDiffers );
    EXPECT_TRUE( cosineOfTheRoundedDiffers );
}

// every threshold below is a number that float holds, so both of its neighbours are known

TEST( Tolerances, AbsoluteDifferencesCountAsTheSameUpToTheTolerance )
{
    const GeTolerances t = makeTolerances( 0.25F, 0.125F, 0 );
    EXPECT_EQ( t.compareLength( 1, 1.25F ), 0 );
    EXPECT_EQ( t.compareLength( 1, above( 1.25F ) ), -1 );
    EXPECT_EQ( t.compareLength( 1.25F, 1 ), 0 );
    EXPECT_EQ( t.compareLength( above( 1.25F ), 1 ), 1 );
    EXPECT_EQ( t.compareAngle( -1, -1.125F ), 0 );
    EXPECT_EQ( t.compareAngle( -1, below( -1.125F ) ), 1 );
    EXPECT_EQ( t.compareAngle( below( -1.125F ), -1 ), -1 );
    EXPECT_EQ( t.compareLengthToZero( 0.25F ), 0 );
    EXPECT_EQ( t.compareLengthToZero( above( 0.25F ) ), 1 );
    EXPECT_EQ( t.compareLengthToZero( -0.25F ), 0 );
    EXPECT_EQ( t.compareLengthToZero( -above( 0.25F ) ), -1 );
    // differences are formed in double: in float this one would round to the tolerance
    EXPECT_EQ( t.compareLength( -0.25F, 1e-10F ), -1 );
    EXPECT_EQ( t.compareLength( 1e-10F, -0.25F ), 1 );

    const GeTolerances defaults;
    EXPECT_EQ( defaults.compareLength( 1, 1.001F ), -1 );
    EXPECT_EQ( defaults.compareLength( 1, 1.0004F ), 0 );

    const GeTolerances two = makeTolerances( 2, 0, 0 );
    EXPECT_TRUE( two.lengthSquaredIsZero( 4 ) );
    EXPECT_FALSE( two.lengthSquaredIsZero( 4.0001F ) );
    EXPECT_FALSE( two.lengthSquaredIsZero( above( 4 ) ) );
}

TEST( Tolerances, SquaredLengthsAreComparedLikeTheLengths )
{
    Random random( 31 );
    const GeTolerances t = makeTolerances( 0.25F, 0, 0 );
    EXPECT_EQ( t.compareLengthSquared( 4, 5.0625F ), 0 ); // 2 and 2.25
    EXPECT_EQ( t.compareLengthSquared( 4, above( 5.0625F ) ), -1 );
    EXPECT_EQ( t.compareLengthSquared( above( 5.0625F ), 4 ), 1 );
    EXPECT_EQ( t.compareLengthSquared( 5.0625F, below( 4 ) ), 1 );
    EXPECT_EQ( t.compareLengthSquared( 0, 0.0625F ), 0 );
    EXPECT_EQ( t.compareLengthSquared( 0, above( 0.0625F ) ), -1 );
    EXPECT_EQ( t.compareLengthSquared( 0, 0 ), 0 );
    // inside the tolerance the squared form alone would miss the sign of its second factor
    EXPECT_EQ( t.compareLengthSquared( 0.0001F, 0 ), 0 );
    EXPECT_EQ( t.compareLengthSquared( 0.03F, 0.0325F ), 0 );
    int seen[3] = {};
    for ( int i = 0; i < 20000; ++i )
    {
        const float a = random.uniform( 0.0F, 3.0F ), b = a + random.uniform( -0.5F, 0.5F );
        const float a2 = a * a, b2 = b * b;
        const R difference = std::sqrt( R( a2 ) ) - std::sqrt( R( b2 ) );
        if ( std::fabs( std::fabs( difference ) - R( 0.25 ) ) < 1e-9L )
            continue;
        const int expected = std::fabs( difference ) <= R( 0.25 ) ? 0 : sign( difference );
        EXPECT_EQ( t.compareLengthSquared( a2, b2 ), expected ) << a << ' ' << b;
        ++seen[expected + 1];
    }
    EXPECT_TRUE( seen[0] > 100 && seen[1] > 100 && seen[2] > 100 );
}

TEST( Tolerances, CosinesAreComparedLikeTheAnglesAwayFromZeroAndPi )
{
    Random random( 32 );
    const R pi = std::acos( R( -1 ) );
    int seen[3] = {};
    for ( int i = 0; i < 20000; ++i )
    {
        const float tolerance = random.uniform( 0.01F, 0.6F );
        const GeTolerances t = makeTolerances( 0, tolerance, 0 );
        const R a = random.uniform( 0.0, 3.14159265 );
        const R b = std::min( pi, std::max( R( 0 ), a + random.uniform( -1.0, 1.0 ) ) );
        const float c1 = static_cast<float>( std::cos( a ) ), c2 = static_cast<float>( std::cos( b ) );
        // what the squared form compares with 0, as a product of its factors; too near to 0 the stored cosines decide
        const R half = ( a + b + tolerance ) / 2;
        if ( std::fabs( std::sin( half ) * std::sin( half - a ) * std::sin( half - b ) *
                 std::sin( half - tolerance ) ) < 1e-7L )
            continue;
        const R difference = a - b, mean = std::min( a + b, 2 * pi - a - b ) / 2;
        const bool same = std::fabs( difference ) < tolerance && mean > tolerance / 2;
        const int expected = same ? 0 : c1 <= c2 ? 1 : -1;
        EXPECT_EQ( t.compareCosine( c1, c2 ), expected ) << double( a ) << ' ' << double( b ) << ' ' << tolerance;
        ++seen[expected + 1];
    }
    EXPECT_TRUE( seen[0] > 100 && seen[1] > 100 && seen[2] > 100 );

    EXPECT_EQ( makeTolerances( 0, 0.5F, 0 ).compareCosine( 1, 1 ), 1 );
    EXPECT_EQ( makeTolerances( 0, 0.5F, 0 ).compareCosine( -1, -1 ), 1 );
}

TEST( Tolerances, TheDefaultAngleComparesCosinesExactly )
{
    const GeTolerances t;
    EXPECT_EQ( t.compareCosine( 1, static_cast<float>( std::cos( 0.001 ) ) ), -1 );
    for ( const float c : { -1.0F, -0.3F, 0.0F, 0.7F, 1.0F } )
    {
        EXPECT_EQ( t.compareCosine( c, c ), 0 );
        EXPECT_EQ( t.compareCosine( c, above( c + 1e-6F ) ), 1 );
        EXPECT_EQ( t.compareCosine( above( c + 1e-6F ), c ), -1 );
    }
    EXPECT_TRUE( t.cosineIsOne( 1 ) );
    EXPECT_FALSE( t.cosineIsOne( below( 1 ) ) );
    EXPECT_TRUE( t.cosineIsMinusOne( -1 ) );
    EXPECT_FALSE( t.cosineIsMinusOne( above( -1 ) ) );

    // the right angle: the sine is not rounded away
    const float sine = getFields( t )[6];
    EXPECT_NEAR( sine, 0.0001F, 1e-10F );
    EXPECT_EQ( t.compareCosineToZero( sine ), 0 );
    EXPECT_EQ( t.compareCosineToZero( above( sine ) ), 1 );
    EXPECT_EQ( t.compareCosineToZero( -sine ), 0 );
    EXPECT_EQ( t.compareCosineToZero( below( -sine ) ), -1 );

    const GeTolerances half = makeTolerances( 0, 0.5F, 0 );
    EXPECT_TRUE( half.cosineIsOne( std::cos( 0.499F ) ) && half.cosineIsMinusOne( -std::cos( 0.499F ) ) );
    EXPECT_FALSE( half.cosineIsOne( std::cos( 0.501F ) ) || half.cosineIsMinusOne( -std::cos( 0.501F ) ) );
}

TEST( Tolerances, FractionsAreRelativeToTheLargerMagnitude )
{
    const GeTolerances t = makeTolerances( 0, 0, 0.25F );
    EXPECT_EQ( t.compareFraction( 3, 4 ), 0 );
    EXPECT_EQ( t.compareFraction( below( 3 ), 4 ), -1 );
    EXPECT_EQ( t.compareFraction( 4, below( 3 ) ), 1 );
    EXPECT_EQ( t.compareFraction( -4, -3 ), 0 );
    EXPECT_EQ( t.compareFraction( -4, above( -3 ) ), -1 );
    EXPECT_EQ( t.compareFraction( 1, -4 ), 1 );
    EXPECT_EQ( t.compareFraction( 0, 0 ), 0 );
    EXPECT_EQ( t.compareFraction( 0, 1e-38F ), -1 );
    EXPECT_EQ( t.compareFraction( INF_F, 1 ), 0 );
    // (1 - 1/4)^2 = 9/16
    EXPECT_EQ( t.compareFractionSquared( 9, 16 ), 0 );
    EXPECT_EQ( t.compareFractionSquared( below( 9 ), 16 ), -1 );
    EXPECT_EQ( t.compareFractionSquared( 16, 9 ), 0 );
    EXPECT_EQ( t.compareFractionSquared( 16, below( 9 ) ), 1 );
    EXPECT_EQ( t.compareFractionSquared( 0, 0 ), 0 );

    const GeTolerances defaults;
    EXPECT_EQ( defaults.compareFraction( 1, 1 + 2e-7F ), -1 );
    EXPECT_EQ( defaults.compareFraction( 1 + 2e-7F, 1 ), 1 );
    EXPECT_EQ( defaults.compareFraction( 1, 1 ), 0 );
}

TEST( Tolerances, PointsAndVectorsAreTheSameUpToTheToleranceApart )
{
    const GeTolerances t = makeTolerances( 3, 0, 0 );
    const float x = 1, y = 2, z = 2; // of length 3
    const GeVector3<float> v( 5, -6, 7 ), w = v + GeVector3<float>( x, y, z ), far( above( 6 ), -4, 9 );
    EXPECT_TRUE( t.sameVector( v, w ) && t.samePoint( GePoint3<float>( v ), GePoint3<float>( w ) ) );
    EXPECT_FALSE( t.sameVector( v, far ) || t.samePoint( GePoint3<float>( v ), GePoint3<float>( far ) ) );

    const GeTolerances five = makeTolerances( 5, 0, 0 );
    const GeVector2<float> a( 1, 1 ), b( -2, 5 ), c( below( -2 ), 5 );
    EXPECT_TRUE( five.sameVector( a, b ) && five.samePoint( GePoint2<float>( a ), GePoint2<float>( b ) ) );
    EXPECT_FALSE( five.sameVector( a, c ) || five.samePoint( GePoint2<float>( a ), GePoint2<float>( c ) ) );

    // each is divided by its own weight
    using H = GeHomogeneousCoord3<float>;
    EXPECT_TRUE( t.sameVector( H( 2, 4, 6, 2 ), H( -8, -16, -20, -4 ) ) ); // (1, 2, 3) and (2, 4, 5)
    EXPECT_FALSE( t.sameVector( H( 2, 4, 6, 2 ), H( -8, -16, -20.01F, -4 ) ) );
    EXPECT_FALSE( t.sameVector( H( 1, 2, 3, 0 ), H( 1, 2, 3, 0 ) ) );
    EXPECT_FALSE( t.sameVector( H( 0, 0, 0, 0 ), H( 0, 0, 0, 1 ) ) );
}

TEST( Tolerances, NaNAndNegativeTolerances )
{
    const GeTolerances t = makeTolerances( 0.5F, 0.5F, 0.5F );
    for ( int side = 0; side < 2; ++side )
    {
        const float a = side ? NAN_F : 1.0F, b = side ? 1.0F : NAN_F;
        EXPECT_EQ( t.compareLength( a, b ), 0 );
        EXPECT_EQ( t.compareAngle( a, b ), 0 );
        EXPECT_EQ( t.compareFraction( a, b ), 0 );
        EXPECT_EQ( t.compareFractionSquared( a, b ), 0 );
        EXPECT_EQ( t.compareLengthSquared( a, b ), -1 );
        EXPECT_EQ( t.compareCosine( a, b ), -1 );
        EXPECT_FALSE( t.sameVector( GeVector2<float>( 0, a ), GeVector2<float>( 0, b ) ) );
        EXPECT_FALSE( t.samePoint( GePoint3<float>( 0, a, 0 ), GePoint3<float>( 0, b, 0 ) ) );
    }
    EXPECT_EQ( t.compareLengthSquared( INF_F, INF_F ), -1 );
    EXPECT_EQ( t.compareLengthToZero( NAN_F ), 0 );
    EXPECT_EQ( t.compareCosineToZero( NAN_F ), 0 );
    EXPECT_FALSE( t.lengthSquaredIsZero( NAN_F ) || t.cosineIsOne( NAN_F ) || t.cosineIsMinusOne( NAN_F ) );

    // stored as they are; the answer is that of the comparison that stands first
    const GeTolerances negative = makeTolerances( -1, -1, -1 );
    EXPECT_EQ( negative.getLengthTolerance(), -1.0F );
    EXPECT_EQ( negative.compareLength( 2, 2 ), -1 );
    EXPECT_EQ( negative.compareLengthToZero( 0 ), 1 );
    EXPECT_EQ( negative.compareFraction( 2, 2 ), -1 );
    EXPECT_TRUE( negative.lengthSquaredIsZero( 1 ) );
}

} // namespace
