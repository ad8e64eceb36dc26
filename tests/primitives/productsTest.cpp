// Matrices, scales, translations and rotations with each other: a product leaves out what is known to be zero or one, and
// equals that of the full matrices. Of small integers, so that every product is exact.

#include "support/matrixReference.h"
#include "support/prelude.h"

#include <zq/primitives/geXAxisRotation3.h>
#include <zq/primitives/geYAxisRotation3.h>
#include <zq/primitives/geZAxisRotation3.h>

using ZqTest::randomIntegers;

namespace
{

ZQ_TWIN_SUITE( Products );

ZQ_TWIN_TEST( Products, AreThoseOfTheFullMatrices )
{
    using Linear = GeLinearMatrix3<T>;
    using Affine = GeAffineMatrix3<T>;
    using Projective = GeProjectiveMatrix3<T>;
    using Rotation = GeRotation3<T>;
    const auto expand = []( const auto& m )
    {
        if constexpr ( std::is_constructible_v<Projective, decltype( m )> )
            return ZqTest::toRows<int, 4>( Projective( m ) );
        else
            return ZqTest::toRows<int, 4>( Projective( m * Linear() ) );
    };
    const auto expectProduct = [&]( const auto& product, const auto& left, const auto& right )
    { EXPECT_EQ( expand( product ), multiply( expand( left ), expand( right ) ) ); };
    const auto expectProducts = [&]( const auto& factor, const auto&... operands )
    { ( expectProduct( factor * operands, factor, operands ), ... ); };
    const auto expectBothWays = [&]( const auto& factor, const auto&... operands )
    {
        expectProducts( factor, operands... );
        ( expectProduct( factor.mulOnRight( operands ), operands, factor ), ... );
    };
    Random random( 40 );
    for ( int i = 0; i < 200; ++i )
    {
        const auto l = randomIntegers<Linear>( random, 20 ), k = randomIntegers<Linear>( random, 20 );
        const auto a = randomIntegers<Affine>( random, 20 ), b = randomIntegers<Affine>( random, 20 );
        const auto p = randomIntegers<Projective>( random, 20 ), q = randomIntegers<Projective>( random, 20 );
        const GeVector3<T> v = b.getColumn( 1 );
        const GePoint3<T> point( v );
        const GeScale3<T> s( v );
        const GeTranslation3<T> t( b.getTranslation() );
        const Rotation r( k ), other( l ); // of any matrix
        expectProducts( l, k, r );
        expectProducts( a, b, r );
        expectProducts( p, a, q );
        expectProducts( r, l, a, other );
        expectBothWays( a, l );
        expectBothWays( s, l, a, p );
        expectBothWays( t, l, a, p );
        EXPECT_TRUE( ( Linear( l ) *= k ) == l * k && ( Rotation( r ) *= other ) == r * other );
        EXPECT_TRUE( ( Affine( a ) *= l ) == a * l && ( Affine( a ) *= b ) == a * b );
        EXPECT_TRUE( ( Projective( p ) *= a ) == p * a && ( Projective( p ) *= q ) == p * q );
        const auto expectRotation = [&]( const auto& rotation, const auto& byAngle, const GeVector3<T>& axis )
        {
            EXPECT_TRUE( byAngle.getMatrix().isEqual( Rotation::makeRotation( axis, T( i ) ), 4 * epsilon<T> ) );
            expectBothWays( rotation, s, t, l, r, a );
            static_assert( std::is_same_v<decltype( rotation * r ), Rotation> );
            const Linear m = rotation.getMatrix();
            EXPECT_TRUE( m == rotation * Linear() && rotation * v == m * v && rotation * point == m * point );
            EXPECT_EQ( rotation.computeInverse().getMatrix(), m.computeTranspose() );
        };
        expectRotation( GeXAxisRotation3<T>( 3, T( i ) ), GeXAxisRotation3<T>( T( i ) ), { 1, 0, 0 } );
        expectRotation( GeYAxisRotation3<T>( 3, T( i ) ), GeYAxisRotation3<T>( T( i ) ), { 0, 1, 0 } );
        expectRotation( GeZAxisRotation3<T>( 3, T( i ) ), GeZAxisRotation3<T>( T( i ) ), { 0, 0, 1 } );
        EXPECT_TRUE( r * v == k * v && r * point == k * point && Linear( r.computeInverse() ) == k.computeTranspose() );

        // a vector is a column on the right and a row on the left; a point has a fourth coordinate of 1
        const GeHomogeneousCoord3<T> h( v[0], v[1], v[2], 5 ), direction( v[0], v[1], v[2], 0 );
        GeHomogeneousCoord3<T> sum;
        for ( int c = 0; c < 4; ++c )
            sum += GeHomogeneousCoord3<T>( p( 0, c ), p( 1, c ), p( 2, c ), p( 3, c ) ) * ( c < 3 ? v[c] : T( 5 ) );
        EXPECT_TRUE( p * h == sum && p.mulOnRight( h ) == p.computeTranspose() * h && p * v == p * direction );
        EXPECT_TRUE( a * v == ( a * b ).getColumn( 1 ) && a.mulOnRight( v ) == a.getLinear().mulOnRight( v ) );
        EXPECT_EQ( a * GePoint3<T>( b.getTranslation() ), GePoint3<T>( ( a * b ).getTranslation() ) );
        EXPECT_TRUE( l * v == Affine( l ) * v && l.mulOnRight( v ) == l.computeTranspose() * v );
        EXPECT_EQ( l * point, GePoint3<T>( l * v ) );
    }
    // no infinity meets a known zero, which would make NaN
    const GeTranslation3<T> t( ZqTest::infinity<T>, ZqTest::infinity<T>, ZqTest::infinity<T> );
    const Affine far( Linear(), t.getVector() );
    EXPECT_TRUE( t * Affine() == far && t * Linear() == far && far * Affine() == far && far * Linear() == far );
    EXPECT_TRUE( t.mulOnRight( Affine() ).getLinear() == Linear() );
    static_assert( std::is_convertible_v<Rotation, Linear> && !std::is_convertible_v<Linear, Rotation> );
}

} // namespace
