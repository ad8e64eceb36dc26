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

using Full = ZqTest::Rows<int, 4>;

template <template <class> class Matrix, class T>
Full expand( const Matrix<T>& m )
{
    return ZqTest::toRows<int, 4>( GeProjectiveMatrix3<T>( m ) );
}

template <class T>
Full expand( const GeScale3<T>& s )
{
    return expand( GeLinearMatrix3<T>( s.getX(), 0, 0, 0, s.getY(), 0, 0, 0, s.getZ() ) );
}

template <class T>
Full expand( const GeTranslation3<T>& t )
{
    return expand( GeAffineMatrix3<T>( GeLinearMatrix3<T>(), t.getVector() ) );
}

template <int axis, class T>
Full expand( const GeAxisRotation3<axis, T>& r )
{
    return expand( r.getMatrix() );
}

/// By an operand on the right, and for most by the same one on the left, too.
template <bool alsoOnRight = true, class Factor, class... Operands>
void expectProducts( const Factor& factor, const Operands&... operands )
{
    const auto expectBoth = [&]( const auto& m )
    {
        const auto product = factor * m;
        EXPECT_EQ( expand( product ), multiply( expand( factor ), expand( m ) ) );
        if constexpr ( alsoOnRight )
        {
            EXPECT_EQ( expand( factor.mulOnRight( m ) ), multiply( expand( m ), expand( factor ) ) );
        }
        else if constexpr ( std::is_same_v<decltype( product ), const Factor> )
        {
            EXPECT_EQ( Factor( factor ) *= m, product );
        }
    };
    ( expectBoth( operands ), ... );
}

ZQ_TWIN_SUITE( Products );

ZQ_TWIN_TEST( Products, AreThoseOfTheFullMatrices )
{
    using Linear = GeLinearMatrix3<T>;
    using Affine = GeAffineMatrix3<T>;
    using Projective = GeProjectiveMatrix3<T>;
    using Rotation = GeRotation3<T>;
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
        expectProducts<false>( l, k, r );
        expectProducts<false>( a, l, b, r );
        expectProducts<false>( p, a, q );
        expectProducts<false>( r, l, a, other );
        expectProducts( s, l, a, p );
        expectProducts( t, l, a, p );
        EXPECT_EQ( expand( a.mulOnRight( l ) ), multiply( expand( l ), expand( a ) ) );
        const auto expectRotation = [&]( const auto& rotation )
        {
            expectProducts( rotation, s, t, l, r, a );
            static_assert( std::is_same_v<decltype( rotation * r ), Rotation> );
            const Linear m = rotation.getMatrix();
            EXPECT_TRUE( rotation * v == m * v && rotation * point == m * point );
            EXPECT_EQ( rotation.computeInverse().getMatrix(), m.computeTranspose() );
        };
        expectRotation( GeAxisRotation3<0, T>( 3, T( i ) ) );
        expectRotation( GeAxisRotation3<1, T>( 3, T( i ) ) );
        expectRotation( GeAxisRotation3<2, T>( 3, T( i ) ) );
        EXPECT_TRUE( r * v == k * v && r * point == k * point && Linear( r.computeInverse() ) == k.computeTranspose() );

        Affine product = a;
        EXPECT_EQ(
            &t.mulOnRightAssign( s.mulOnRightAssign( product ) ), &product ); // the others are part of mulOnRight
        EXPECT_EQ( product, t.mulOnRight( s.mulOnRight( a ) ) );

        // a vector is a column on the right and a row on the left; a point has a fourth coordinate of 1
        const GeHomogeneousCoord3<T> h( v.getX(), v.getY(), v.getZ(), 5 ), direction( v.getX(), v.getY(), v.getZ(), 0 );
        GeHomogeneousCoord3<T> sum;
        for ( int c = 0; c < 4; ++c )
            sum += GeHomogeneousCoord3<T>( p( 0, c ), p( 1, c ), p( 2, c ), p( 3, c ) ) * ( c < 3 ? v[c] : T( 5 ) );
        EXPECT_TRUE( p * h == sum && p.mulOnRight( h ) == p.computeTranspose() * h && p * v == p * direction );
        EXPECT_TRUE( a * v == ( a * b ).getColumn( 1 ) && a.mulOnRight( v ) == a.getLinear().mulOnRight( v ) );
        EXPECT_EQ( a * GePoint3<T>( b.getTranslation() ), GePoint3<T>( ( a * b ).getTranslation() ) );
        EXPECT_TRUE( l * v == Affine( l ) * v && l.mulOnRight( v ) == l.computeTranspose() * v );
        EXPECT_EQ( l * point, GePoint3<T>( l * v ) );
    }
    static_assert( std::is_convertible_v<Rotation, Linear> && !std::is_convertible_v<Linear, Rotation> );
}

ZQ_TWIN_TEST( Products, AxisRotationsAreThoseOfTheirAngle )
{
    for ( T angle = T( -7 ); angle < 7; angle += T( 0.37 ) )
    {
        const auto isRotation = [&]( const auto& rotation, const GeVector3<T>& axis )
        { return rotation.getMatrix().isEqual( GeRotation3<T>::makeRotation( axis, angle ), 4 * epsilon<T> ); };
        EXPECT_TRUE( isRotation( GeXAxisRotation3<T>( angle ), { 1, 0, 0 } ) );
        EXPECT_TRUE( isRotation( GeYAxisRotation3<T>( angle ), { 0, 1, 0 } ) );
        EXPECT_TRUE( isRotation( GeZAxisRotation3<T>( angle ), { 0, 0, 1 } ) );
    }
}

// No infinity meets a known zero, which would make NaN.
ZQ_TWIN_TEST( Products, WhatIsKnownTakesNoPart )
{
    const T infinity = ZqTest::infinity<T>;
    const GeVector3<T> infinite( infinity, infinity, infinity );
    const GeLinearMatrix3<T> turn( 0, -1, 0, 1, 0, 0, 0, 0, 1 );
    const GeAffineMatrix3<T> a( turn, GeVector3<T>( 0, 1, 2 ) ), far( turn, infinite );
    const GeTranslation3<T> t( infinite );
    EXPECT_TRUE( t * a == far && t * turn == far && t.mulOnRight( a ).getLinear() == turn );
    EXPECT_TRUE( far * turn == GeAffineMatrix3<T>( turn * turn, infinite ) && far * a == far * turn );
    const GeAffineMatrix3<T> scaled = GeScale3<T>( infinite ).mulOnRight( a );
    EXPECT_TRUE( scaled.getTranslation() == a.getTranslation() && scaled( 3, 0 ) == 0 && scaled( 3, 3 ) == 1 );
    EXPECT_EQ( ( GeYAxisRotation3<T>( T( 0.6 ), T( 0.8 ) ) * GeVector3<T>( 0, infinity, 0 ) )[1], infinity );
}

} // namespace
