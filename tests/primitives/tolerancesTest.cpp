#include "support/prelude.h"

#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/gePoint2.h>
#include <zq/primitives/gePoint3.h>
#include <zq/primitives/geTolerances.h>

namespace
{

using R = long double;
const float NAN_F = ZqTest::nan<float>;
const float INF_F = ZqTest::infinity<float>;

float above( float x )
{
    return std::nextafter( x, INF_F );
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
    const auto fieldsOf = ZqTest::numbersOf<float, GeTolerances>;
    EXPECT_EQ( fieldsOf( GeTolerances() ), fieldsOf( makeTolerances( 0.0005F, 0.0001F, 1e-7F ) ) );
    Random random( 30 );
    for ( const auto i : random.runs( 2000 ) )
    {
        const float t = random.uniform( 1e-6F, 10.0F ), a = random.uniform( 0.0F, 3.0F );
        const float f = random.uniform( 0.0F, 1.0F );
        const GeTolerances tolerances = makeTolerances( t, a, f );
        const R cosine = std::cos( R( a ) );
        const std::array<float, 10> expected{ t, float( R( t ) * t ), float( R( t ) * t * t * t ), a, float( cosine ),
            float( cosine * cosine ), float( std::sin( R( a ) ) ), f, float( 2 * R( f ) ), float( R( f ) * f + 1 ) };
        EXPECT_EQ( fieldsOf( tolerances ), expected );
        EXPECT_EQ( tolerances.getLengthTolerance(), t );
        EXPECT_EQ( tolerances.getAngleTolerance(), a );
        EXPECT_EQ( tolerances.getFractionTolerance(), f );
    }
}

TEST( Tolerances, NumbersAreTheSameUpToTheTolerance )
{
    const GeTolerances t = makeTolerances( 0.25F, 0.125F, 0.25F ), defaults;
    // b is the last number that counts as the same as a. Every limit is a number that float holds.
    using Row = std::tuple<int ( GeTolerances::* )( float, float ) const, float, float>;
    for ( const auto& [compare, a, b] : {
              Row{ &GeTolerances::compareLength, 1, 1.25F }, Row{ &GeTolerances::compareAngle, -1, -1.125F },
              Row{ &GeTolerances::compareLengthSquared, 4, 5.0625F }, // 2 and 2.25
              Row{ &GeTolerances::compareLengthSquared, 0, 0.0625F },
              Row{ &GeTolerances::compareFraction, 4, 3 }, // of the larger magnitude
              Row{ &GeTolerances::compareFraction, -4, -3 },
              Row{ &GeTolerances::compareFractionSquared, 16, 9 }, // ( 1 - 1/4 )^2
          } )
    {
        const float beyond = std::nextafter( b, b > a ? INF_F : -INF_F );
        const int order = a < b ? -1 : 1;
        EXPECT_EQ( ( t.*compare )( a, b ), 0 ) << a << ' ' << b;
        EXPECT_EQ( ( t.*compare )( b, a ), 0 ) << a << ' ' << b;
        EXPECT_EQ( ( t.*compare )( a, beyond ), order ) << a << ' ' << b;
        EXPECT_EQ( ( t.*compare )( beyond, a ), -order ) << a << ' ' << b;
    }
    EXPECT_EQ( t.compareLength( -0.25F, 1e-10F ), -1 );   // in float this difference would round to the tolerance
    EXPECT_EQ( t.compareLengthSquared( 0.0001F, 0 ), 0 ); // the squared form alone would miss the sign of a factor
    EXPECT_EQ( t.compareFraction( 1, -4 ), 1 );
    EXPECT_EQ( t.compareFraction( INF_F, 1 ), 0 );

    const float sine = ZqTest::numbersOf<float>( defaults )[6]; // at the right angle the sine is not rounded away
    EXPECT_EQ( t.compareLengthToZero( 0.25F ), 0 );
    EXPECT_EQ( t.compareLengthToZero( above( 0.25F ) ), 1 );
    EXPECT_EQ( t.compareLengthToZero( -0.25F ), 0 );
    EXPECT_EQ( t.compareLengthToZero( -above( 0.25F ) ), -1 );
    EXPECT_EQ( defaults.compareCosineToZero( sine ), 0 );
    EXPECT_EQ( defaults.compareCosineToZero( above( sine ) ), 1 );
    EXPECT_EQ( defaults.compareCosineToZero( -sine ), 0 );
    EXPECT_EQ( defaults.compareCosineToZero( -above( sine ) ), -1 );
    EXPECT_TRUE( t.lengthSquaredIsZero( 0.0625F ) );
    EXPECT_FALSE( t.lengthSquaredIsZero( above( 0.0625F ) ) );
}

TEST( Tolerances, CosinesAreComparedLikeAngles )
{
    Random random( 31 );
    const R pi = std::acos( R( -1 ) );
    for ( const auto i : random.runs( 5000 ) )
    {
        const float tolerance = random.uniform( 0.01F, 0.6F );
        const GeTolerances t = makeTolerances( tolerance, tolerance, 0 );
        const R a = random.uniform( R( 0 ), pi ), b = random.uniform( R( 0 ), pi );
        const float c1 = static_cast<float>( std::cos( a ) ), c2 = static_cast<float>( std::cos( b ) );
        // equal cosines at the ends count as different; too near to a limit the stored cosines decide
        const R apart = std::fabs( a - b ) - tolerance, fromEnds = std::min( a + b, 2 * pi - a - b ) - tolerance;
        const int expected = apart < 0 && fromEnds > 0 ? 0 : c1 <= c2 ? 1 : -1;
        const bool isClear = std::min( std::fabs( apart ), std::fabs( fromEnds ) ) > 0.003L;
        EXPECT_TRUE( !isClear || t.compareCosine( c1, c2 ) == expected ) << c1 << ' ' << c2 << ' ' << tolerance;
    }
    const GeTolerances t, half = makeTolerances( 0, 0.5F, 0 );
    EXPECT_TRUE( half.cosineIsOne( std::cos( 0.499F ) ) );
    EXPECT_TRUE( half.cosineIsMinusOne( -std::cos( 0.499F ) ) );
    EXPECT_FALSE( half.cosineIsOne( std::cos( 0.501F ) ) );
    EXPECT_FALSE( half.cosineIsMinusOne( -std::cos( 0.501F ) ) );
    // the default angle compares exactly
    EXPECT_TRUE( t.cosineIsOne( 1 ) );
    EXPECT_FALSE( t.cosineIsOne( 1 - epsilon<float> / 2 ) );
    EXPECT_TRUE( t.cosineIsMinusOne( -1 ) );
    EXPECT_FALSE( t.cosineIsMinusOne( above( -1 ) ) );
    EXPECT_EQ( t.compareCosine( 0.7F, 0.7F ), 0 );
    EXPECT_EQ( t.compareCosine( 0.7F, 0.7F + 1e-6F ), 1 );
}

TEST( Tolerances, PointsAndVectorsAreTheSameUpToTheToleranceApart )
{
    const GeTolerances t = makeTolerances( 3, 0, 0 ), five = makeTolerances( 5, 0, 0 );
    const GeVector3<float> v( 5, -6, 7 ), w( 6, -4, 9 ), far( above( 6 ), -4, 9 );
    EXPECT_TRUE( t.sameVector( v, w ) );
    EXPECT_TRUE( t.samePoint( GePoint3<float>( v ), GePoint3<float>( w ) ) );
    EXPECT_FALSE( t.sameVector( v, far ) );
    EXPECT_FALSE( t.samePoint( GePoint3<float>( v ), GePoint3<float>( far ) ) );
    const GeVector2<float> a( 1, 1 ), b( -2, 5 ), c( -2, above( 5 ) );
    EXPECT_TRUE( five.sameVector( a, b ) );
    EXPECT_TRUE( five.samePoint( GePoint2<float>( a ), GePoint2<float>( b ) ) );
    EXPECT_FALSE( five.sameVector( a, c ) );
    EXPECT_FALSE( five.samePoint( GePoint2<float>( a ), GePoint2<float>( c ) ) );
    // each is divided by its own weight
    using H = GeHomogeneousCoord3<float>;
    EXPECT_TRUE( t.sameVector( H( 2, 4, 6, 2 ), H( -8, -16, -20, -4 ) ) ); // (1, 2, 3) and (2, 4, 5)
    EXPECT_FALSE( t.sameVector( H( 2, 4, 6, 2 ), H( -8, -16, -20.01F, -4 ) ) );
    EXPECT_FALSE( t.sameVector( H( 1, 2, 3, 0 ), H( 1, 2, 3, 0 ) ) );
    EXPECT_FALSE( t.sameVector( H(), H( 0, 0, 0, 1 ) ) );
}

TEST( Tolerances, NaN )
{
    const GeTolerances t = makeTolerances( 0.5F, 0.5F, 0.5F );
    for ( const auto& [a, b] : { std::pair( 1.0F, NAN_F ), std::pair( NAN_F, 1.0F ) } )
    {
        EXPECT_EQ( t.compareLength( a, b ), 0 );
        EXPECT_EQ( t.compareAngle( a, b ), 0 );
        EXPECT_EQ( t.compareFraction( a, b ), 0 );
        EXPECT_EQ( t.compareFractionSquared( a, b ), 0 );
        EXPECT_EQ( t.compareLengthSquared( a, b ), -1 );
        EXPECT_EQ( t.compareCosine( a, b ), -1 );
        EXPECT_FALSE( t.samePoint( GePoint3<float>( 0, a, 0 ), GePoint3<float>( 0, b, 0 ) ) );
    }
    EXPECT_FALSE( t.lengthSquaredIsZero( NAN_F ) );
    EXPECT_FALSE( t.cosineIsOne( NAN_F ) );
    EXPECT_FALSE( t.cosineIsMinusOne( NAN_F ) );
}

} // namespace
