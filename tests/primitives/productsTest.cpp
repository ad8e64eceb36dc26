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
        EXPECT_EQ( expand( factor * m ), multiply( expand( factor ), expand( m ) ) );
        if constexpr ( alsoOnRight )
            EXPECT_EQ( expand( factor.mulOnRight( m ) ), multiply( expand( m ), expand( factor ) ) );
        else
        {
            Factor product = factor;
            EXPECT_EQ( &( product *= m ), &product );
            EXPECT_EQ( product, factor * m );
        }
    };
    ( expectBoth( operands ), ... );
}

template <class Factor, class... Matrices>
void expectAssignments( const Factor& factor, Matrices... matrices )
{
    const auto expectAssignment = [&]( auto& m )
    {
        const auto expected = factor.mulOnRight( m );
        EXPECT_EQ( &factor.mulOnRightAssign( m ), &m );
        EXPECT_EQ( m, expected );
    };
    ( expectAssignment( matrices ), ... );
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
        const GeScale3<T> s( v );
        const GeTranslation3<T> t( b.getTranslation() );
        const Rotation r( k ); // of any matrix
        expectProducts<false>( l, k );
        expectProducts<false>( a, l, b );
        expectProducts<false>( p, a, q );
        expectProducts<false>( r, Rotation( l ) );
        expectProducts( s, l, a, p );
        expectProducts( t, l, a, p );
        expectAssignments( s, l, a, p );
        expectAssignments( t, a, p );
        const auto expectRotation = [&]( const auto& rotation )
        {
            expectProducts( rotation, s, t, l, r, a );
            EXPECT_EQ( rotation * v, rotation.getMatrix() * v );
            EXPECT_EQ( rotation * GePoint3<T>( v ), GePoint3<T>( rotation * v ) );
            EXPECT_EQ( rotation.computeInverse().getMatrix(), rotation.getMatrix().computeTranspose() );
            static_assert( std::is_same_v<decltype( rotation * r ), Rotation> );
        };
        expectRotation( GeAxisRotation3<0, T>( 3, T( i ) ) );
        expectRotation( GeAxisRotation3<1, T>( 3, T( i ) ) );
        expectRotation( GeAxisRotation3<2, T>( 3, T( i ) ) );
        EXPECT_EQ( expand( a.mulOnRight( l ) ), multiply( expand( l ), expand( a ) ) );
        Affine square = a;
        EXPECT_EQ( square *= square, a * a );
        // a product of rotations is a rotation, any other is a matrix
        EXPECT_TRUE( Linear( r * l ) == k * l && Linear( l * r ) == l * k );
        EXPECT_TRUE( Affine( r * a ) == Affine( k ) * a && Affine( a * r ) == a * k );
        EXPECT_TRUE( r * v == k * v && r * GePoint3<T>( v ) == GePoint3<T>( k * v ) );
        EXPECT_EQ( r.computeInverse().getMatrix(), k.computeTranspose() );

        // a vector is a column on the right and a row on the left; a point has a fourth coordinate of 1
        const GeHomogeneousCoord3<T> h( v.getX(), v.getY(), v.getZ(), 5 ), direction( v.getX(), v.getY(), v.getZ(), 0 );
        GeHomogeneousCoord3<T> sum;
        for ( int c = 0; c < 4; ++c )
            sum += GeHomogeneousCoord3<T>( p( 0, c ), p( 1, c ), p( 2, c ), p( 3, c ) ) * ( c < 3 ? v[c] : T( 5 ) );
        EXPECT_TRUE( p * h == sum && p.mulOnRight( h ) == p.computeTranspose() * h && p * v == p * direction );
        EXPECT_TRUE( a * v == ( a * b ).getColumn( 1 ) && a.mulOnRight( v ) == a.getLinear().mulOnRight( v ) );
        EXPECT_EQ( a * GePoint3<T>( b.getTranslation() ), GePoint3<T>( ( a * b ).getTranslation() ) );
        EXPECT_TRUE( l * v == Affine( l ) * v && l.mulOnRight( v ) == l.computeTranspose() * v );
        EXPECT_EQ( l * GePoint3<T>( v ), GePoint3<T>( l * v ) );
    }
    static_assert( std::is_convertible_v<Rotation, Linear> && !std::is_convertible_v<Linear, Rotation> );
}

ZQ_TWIN_TEST( Products, AxisRotationsAreThoseOfTheirAngle )
{
    for ( T angle = T( -7 ); angle < 7; angle += T( 0.37 ) )
    {
        const auto isRotation = [&]( const auto& rotation, const GeVector3<T>& axis )
        { return rotation.getMatrix().isEqual( GeRotation3<T>::makeRotation( axis, angle ), 4 * epsilon<T> ); };
        const GeXAxisRotation3<T> x( angle );
        EXPECT_TRUE( isRotation( x, { 1, 0, 0 } ) );
        EXPECT_TRUE( isRotation( GeYAxisRotation3<T>( angle ), { 0, 1, 0 } ) );
        EXPECT_TRUE( isRotation( GeZAxisRotation3<T>( angle ), { 0, 0, 1 } ) );
        EXPECT_EQ( GeXAxisRotation3<T>( x.computeInverse() ).getSine(), -x.getSine() );
    }
}

// No infinity meets a known zero, which would make NaN, and no known zero is added to a negative one.
ZQ_TWIN_TEST( Products, WhatDoesNotChangeIsCopiedAndWhatIsFixedIsWritten )
{
    const T infinity = ZqTest::infinity<T>, zero = T( -0.0 );
    const GeVector3<T> infinite( infinity, infinity, infinity );
    const GeScale3<T> s( infinite ), twice( 2, 2, 2 );
    const GeTranslation3<T> t( infinite ), step( 1, 1, 1 );
    const GeLinearMatrix3<T> l( 1, 2, 3, 4, 5, 6, 7, 8, 9 ), zeros( zero, 0, 0, 0, zero, 0, 0, 0, zero );
    const GeAffineMatrix3<T> a( l, GeVector3<T>( zero, 1, 2 ) );
    for ( const GeAffineMatrix3<T>& m : { s * a, s.mulOnRight( a ), t * a, t.mulOnRight( a ), t * l } )
        EXPECT_TRUE( m( 3, 0 ) == 0 && m( 3, 1 ) == 0 && m( 3, 2 ) == 0 && m( 3, 3 ) == 1 );
    EXPECT_TRUE( ( t * a ).getLinear() == l && t.mulOnRight( a ).getLinear() == l );
    GeProjectiveMatrix3<T> p( a );
    p( 3, 0 ) = p( 3, 1 ) = p( 3, 2 ) = p( 3, 3 ) = zero;
    for ( int c = 0; c < 4; ++c )
        EXPECT_TRUE( std::signbit( ( twice * p )( 3, c ) ) && std::signbit( ( step * p )( 3, c ) ) );
    EXPECT_TRUE( std::signbit( s.mulOnRight( a )( 0, 3 ) ) && std::signbit( s.mulOnRight( p )( 0, 3 ) ) );
    EXPECT_EQ( s.mulOnRight( p )( 2, 3 ), T( 2 ) );
    EXPECT_TRUE( std::signbit( ( t * zeros )( 1, 1 ) ) && std::signbit( t.mulOnRight( zeros )( 2, 2 ) ) );
    // an infinite translation stays in its place: the bottom row takes no part
    const GeLinearMatrix3<T> quarterTurn( 0, -1, 0, 1, 0, 0, 0, 0, 1 );
    const GeAffineMatrix3<T> far( GeLinearMatrix3<T>(), infinite );
    EXPECT_EQ( far * quarterTurn, ( GeAffineMatrix3<T>( quarterTurn, infinite ) ) );
    EXPECT_EQ( far * GeAffineMatrix3<T>( quarterTurn ), far * quarterTurn );
    // the axis stays
    const GeAxisRotation3<1, T> turn( T( 0.6 ), T( 0.8 ) );
    EXPECT_EQ( ( turn * GeVector3<T>( 0, infinity, 0 ) ), ( GeVector3<T>( 0, infinity, 0 ) ) );
    const auto turned = turn * GeLinearMatrix3<T>( 0, 0, 1, infinity, zero, 2, 0, 0, 3 );
    EXPECT_TRUE( turned( 1, 0 ) == infinity && std::signbit( turned( 1, 1 ) ) && turned( 0, 0 ) == 0 );
}

} // namespace
