#include "support/prelude.h"

#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/gePoint2.h>
#include <zq/primitives/gePoint3.h>
#include <zq/primitives/geTolerances.h>

namespace
{

using R = long double;
using Fields = std::array<float, 10>;

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

Fields getFields( const GeTolerances& tolerances )
{
    return ZqTest::numbersOf<float>( tolerances );
}

GeTolerances makeTolerances( float length, float angle, float fraction )
{
    GeTolerances tolerances;
    tolerances.setLengthTolerance( length );
    tolerances.setAngleTolerance( angle );
    tolerances.setFractionTolerance( fraction );
    return tolerances;
}

TEST( Tolerances, DerivedFieldsAreRoundedOnceAndBelongToTheirSetter )
{
    const Fields defaults = getFields( GeTolerances() );
    std::array<std::uint32_t, 10> bits{
        0x3A03126F, 0x348637BE, 0x298CBCCE, 0x38D1B717, 0x3F800000, 0x3F800000, 0, 0x33D6BF95, 0x3456BF95, 0x3F800000 };
    bits[6] = ZqTest::numbersOf<std::uint32_t>( static_cast<float>( std::sin( R( 0.0001F ) ) ) )[0];
    EXPECT_EQ( ZqTest::numbersOf<std::uint32_t>( defaults ), bits );
    Random random( 30 );
    bool squareOfTheRoundedDiffers = false, cosineOfTheRoundedDiffers = false;
    for ( int i = 0; i < 2000; ++i )
    {
        const float t = random.uniform( 1e-6F, 10.0F ), a = random.uniform( 0.0F, 3.0F );
        const float f = random.uniform( 0.0F, 1.0F );
        GeTolerances tolerances = makeTolerances( t, a, f );
        const R cosine = std::cos( R( a ) );
        Fields expected{ t, float( R( t ) * t ), float( R( t ) * t * t * t ), a, float( cosine ),
            float( cosine * cosine ), float( std::sin( R( a ) ) ), f, float( 2 * R( f ) ), float( R( f ) * f + 1 ) };
        EXPECT_EQ( getFields( tolerances ), expected );
        squareOfTheRoundedDiffers = squareOfTheRoundedDiffers || expected[2] != float( R( expected[1] ) * expected[1] );
        cosineOfTheRoundedDiffers = cosineOfTheRoundedDiffers || expected[5] != float( R( expected[4] ) * expected[4] );
        EXPECT_EQ( tolerances.compareLengthSquared( 0, expected[1] ), 0 ); // even where t squared is rounded down
        tolerances.setAngleTolerance( 0.0001F );
        std::copy( &defaults[3], &defaults[7], &expected[3] );
        EXPECT_EQ( getFields( tolerances ), expected );
        EXPECT_TRUE( tolerances.getLengthTolerance() == t && tolerances.getFractionTolerance() == f );
        EXPECT_EQ( tolerances.getAngleTolerance(), 0.0001F );
    }
    EXPECT_TRUE( squareOfTheRoundedDiffers && cosineOfTheRoundedDiffers );
}

/// b is the last number that counts as the same as a. Every limit below is a number that float holds.
void expectLimit( const GeTolerances& t, int ( GeTolerances::*compare )( float, float ) const, float a, float b )
{
    const float beyond = std::nextafter( b, b > a ? INF_F : -INF_F );
    const int order = a < b ? -1 : 1;
    EXPECT_TRUE( ( t.*compare )( a, b ) == 0 && ( t.*compare )( b, a ) == 0 ) << a << ' ' << b;
    EXPECT_EQ( ( t.*compare )( a, beyond ), order ) << a << ' ' << b;
    EXPECT_EQ( ( t.*compare )( beyond, a ), -order ) << a << ' ' << b;
}

TEST( Tolerances, NumbersAreTheSameUpToTheTolerance )
{
    const GeTolerances t = makeTolerances( 0.25F, 0.125F, 0.25F ), defaults;
    expectLimit( t, &GeTolerances::compareLength, 1, 1.25F );
    expectLimit( t, &GeTolerances::compareAngle, -1, -1.125F );
    // differences are formed in double: in float this one would round to the tolerance
    EXPECT_EQ( t.compareLength( -0.25F, 1e-10F ), -1 );
    EXPECT_EQ( t.compareLength( 1e-10F, -0.25F ), 1 );
    EXPECT_EQ( defaults.compareLength( 1, 1.0004F ), 0 );

    expectLimit( t, &GeTolerances::compareLengthSquared, 4, 5.0625F ); // 2 and 2.25
    expectLimit( t, &GeTolerances::compareLengthSquared, 5.0625F, 4 );
    expectLimit( t, &GeTolerances::compareLengthSquared, 0, 0.0625F );
    // inside the tolerance the squared form alone would miss the sign of its second factor
    EXPECT_EQ( t.compareLengthSquared( 0.0001F, 0 ), 0 );
    EXPECT_EQ( t.compareLengthSquared( 0.03F, 0.0325F ), 0 );

    // relative to the larger magnitude; ( 1 - 1/4 )^2 = 9/16
    expectLimit( t, &GeTolerances::compareFraction, 4, 3 );
    expectLimit( t, &GeTolerances::compareFraction, -4, -3 );
    expectLimit( t, &GeTolerances::compareFraction, 0, 0 );
    expectLimit( t, &GeTolerances::compareFractionSquared, 16, 9 );
    expectLimit( t, &GeTolerances::compareFractionSquared, 0, 0 );
    EXPECT_TRUE( t.compareFraction( 1, -4 ) == 1 && t.compareFraction( INF_F, 1 ) == 0 );
    EXPECT_EQ( defaults.compareFraction( 1, 1 + 2e-7F ), -1 );

    const float sine = getFields( defaults )[6]; // at the right angle the sine is not rounded away
    for ( const int sign : { -1, 1 } )
    {
        const auto s = static_cast<float>( sign );
        EXPECT_EQ( t.compareLengthToZero( s * 0.25F ), 0 );
        EXPECT_EQ( t.compareLengthToZero( s * above( 0.25F ) ), sign );
        EXPECT_EQ( defaults.compareCosineToZero( s * sine ), 0 );
        EXPECT_EQ( defaults.compareCosineToZero( s * above( sine ) ), sign );
    }
    EXPECT_TRUE( makeTolerances( 2, 0, 0 ).lengthSquaredIsZero( 4 ) );
    EXPECT_FALSE( makeTolerances( 2, 0, 0 ).lengthSquaredIsZero( above( 4 ) ) );
}

TEST( Tolerances, SquaredLengthsAndCosinesAreComparedLikeLengthsAndAngles )
{
    Random random( 31 );
    const R pi = std::acos( R( -1 ) );
    int seenLengths[3] = {}, seenAngles[3] = {};
    for ( int i = 0; i < 20000; ++i )
    {
        const float tolerance = random.uniform( 0.01F, 0.6F );
        const GeTolerances t = makeTolerances( tolerance, tolerance, 0 );
        const float length = random.uniform( 0.0F, 3.0F ), other = length + random.uniform( -1.0F, 1.0F );
        const float square = length * length, otherSquare = other * other;
        const R lengths = std::sqrt( R( square ) ) - std::sqrt( R( otherSquare ) );
        if ( std::fabs( std::fabs( lengths ) - tolerance ) > 1e-7L )
        {
            const int expected = std::fabs( lengths ) <= tolerance ? 0 : lengths < 0 ? -1 : 1;
            EXPECT_EQ( t.compareLengthSquared( square, otherSquare ), expected ) << length << ' ' << other;
            ++seenLengths[expected + 1];
        }
        const R a = random.uniform( 0.0, 3.14159265 );
        const R b = std::min( pi, std::max( R( 0 ), a + random.uniform( -1.0, 1.0 ) ) );
        const float c1 = static_cast<float>( std::cos( a ) ), c2 = static_cast<float>( std::cos( b ) );
        // what the squared form compares with 0, as a product of its factors; too near to 0 the stored cosines decide
        const R half = ( a + b + tolerance ) / 2;
        const R factors = std::sin( half ) * std::sin( half - a ) * std::sin( half - b ) * std::sin( half - tolerance );
        if ( std::fabs( factors ) > 1e-7L )
        {
            const bool isSame = std::fabs( a - b ) < tolerance && std::min( a + b, 2 * pi - a - b ) > tolerance;
            const int expected = isSame ? 0 : c1 <= c2 ? 1 : -1;
            EXPECT_EQ( t.compareCosine( c1, c2 ), expected ) << double( a ) << ' ' << double( b ) << ' ' << tolerance;
            ++seenAngles[expected + 1];
        }
    }
    for ( int i = 0; i < 3; ++i )
        EXPECT_TRUE( seenLengths[i] > 100 && seenAngles[i] > 100 );
}

TEST( Tolerances, CosinesAtTheEndsAndWithTheDefaultAngle )
{
    const GeTolerances t, half = makeTolerances( 0, 0.5F, 0 );
    EXPECT_TRUE( half.compareCosine( 1, 1 ) == 1 && half.compareCosine( -1, -1 ) == 1 );
    EXPECT_TRUE( half.cosineIsOne( std::cos( 0.499F ) ) && half.cosineIsMinusOne( -std::cos( 0.499F ) ) );
    EXPECT_FALSE( half.cosineIsOne( std::cos( 0.501F ) ) || half.cosineIsMinusOne( -std::cos( 0.501F ) ) );
    // the default angle compares exactly
    EXPECT_TRUE( t.cosineIsOne( 1 ) && t.cosineIsMinusOne( -1 ) );
    EXPECT_FALSE( t.cosineIsOne( below( 1 ) ) || t.cosineIsMinusOne( above( -1 ) ) );
    EXPECT_EQ( t.compareCosine( 1, static_cast<float>( std::cos( 0.001 ) ) ), -1 );
    for ( const float c : { -1.0F, -0.3F, 0.0F, 0.7F, 1.0F } )
    {
        EXPECT_EQ( t.compareCosine( c, c ), 0 );
        EXPECT_EQ( t.compareCosine( c, above( c + 1e-6F ) ), 1 );
        EXPECT_EQ( t.compareCosine( above( c + 1e-6F ), c ), -1 );
    }
}

TEST( Tolerances, PointsAndVectorsAreTheSameUpToTheToleranceApart )
{
    const GeTolerances t = makeTolerances( 3, 0, 0 ), five = makeTolerances( 5, 0, 0 );
    const GeVector3<float> v( 5, -6, 7 ), w( 6, -4, 9 ), far( above( 6 ), -4, 9 );
    EXPECT_TRUE( t.sameVector( v, w ) && t.samePoint( GePoint3<float>( v ), GePoint3<float>( w ) ) );
    EXPECT_FALSE( t.sameVector( v, far ) || t.samePoint( GePoint3<float>( v ), GePoint3<float>( far ) ) );
    const GeVector2<float> a( 1, 1 ), b( -2, 5 ), c( below( -2 ), 5 );
    EXPECT_TRUE( five.sameVector( a, b ) && five.samePoint( GePoint2<float>( a ), GePoint2<float>( b ) ) );
    EXPECT_FALSE( five.sameVector( a, c ) || five.samePoint( GePoint2<float>( a ), GePoint2<float>( c ) ) );
    // each is divided by its own weight
    using H = GeHomogeneousCoord3<float>;
    EXPECT_TRUE( t.sameVector( H( 2, 4, 6, 2 ), H( -8, -16, -20, -4 ) ) ); // (1, 2, 3) and (2, 4, 5)
    EXPECT_FALSE( t.sameVector( H( 2, 4, 6, 2 ), H( -8, -16, -20.01F, -4 ) ) );
    EXPECT_FALSE( t.sameVector( H( 1, 2, 3, 0 ), H( 1, 2, 3, 0 ) ) || t.sameVector( H(), H( 0, 0, 0, 1 ) ) );
}

TEST( Tolerances, NaNAndNegativeTolerances )
{
    const GeTolerances t = makeTolerances( 0.5F, 0.5F, 0.5F );
    for ( const auto& [a, b] : { std::pair( 1.0F, NAN_F ), std::pair( NAN_F, 1.0F ) } )
    {
        EXPECT_TRUE( t.compareLength( a, b ) == 0 && t.compareAngle( a, b ) == 0 );
        EXPECT_TRUE( t.compareFraction( a, b ) == 0 && t.compareFractionSquared( a, b ) == 0 );
        EXPECT_TRUE( t.compareLengthSquared( a, b ) == -1 && t.compareCosine( a, b ) == -1 );
        EXPECT_FALSE( t.sameVector( GeVector2<float>( 0, a ), GeVector2<float>( 0, b ) ) );
        EXPECT_FALSE( t.samePoint( GePoint3<float>( 0, a, 0 ), GePoint3<float>( 0, b, 0 ) ) );
    }
    EXPECT_EQ( t.compareLengthSquared( INF_F, INF_F ), -1 );
    EXPECT_TRUE( t.compareLengthToZero( NAN_F ) == 0 && t.compareCosineToZero( NAN_F ) == 0 );
    EXPECT_FALSE( t.lengthSquaredIsZero( NAN_F ) || t.cosineIsOne( NAN_F ) || t.cosineIsMinusOne( NAN_F ) );
    // stored as they are; the answer is that of the comparison that stands first
    const GeTolerances negative = makeTolerances( -1, -1, -1 );
    EXPECT_TRUE( negative.getLengthTolerance() == -1 && negative.lengthSquaredIsZero( 1 ) );
    EXPECT_TRUE( negative.compareLength( 2, 2 ) == -1 && negative.compareFraction( 2, 2 ) == -1 );
    EXPECT_EQ( negative.compareLengthToZero( 0 ), 1 );
}

} // namespace
