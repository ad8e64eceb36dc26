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

/// The factors of one run.
template <class T>
struct Factors
{
    explicit Factors( Random& random )
        : l( randomIntegers<GeLinearMatrix3<T>>( random, 20 ) ), k( randomIntegers<GeLinearMatrix3<T>>( random, 20 ) ),
          a( randomIntegers<GeAffineMatrix3<T>>( random, 20 ) ), b( randomIntegers<GeAffineMatrix3<T>>( random, 20 ) ),
          p( randomIntegers<GeProjectiveMatrix3<T>>( random, 20 ) ),
          q( randomIntegers<GeProjectiveMatrix3<T>>( random, 20 ) )
    {
    }

    GeLinearMatrix3<T> l, k;
    GeAffineMatrix3<T> a, b;
    GeProjectiveMatrix3<T> p, q;
    GeVector3<T> v = b.getColumn( 1 );
    GePoint3<T> point{ v };
    GeScale3<T> s{ v };
    GeTranslation3<T> t{ b.getTranslation() };
    GeRotation3<T> r{ k }, other{ l }; // of any matrix
};

/// The full matrix of a factor. The bottom row of an affine one, which nobody looks at, stays what it is.
template <class T, class Factor>
auto expand( const Factor& m )
{
    using Projective = GeProjectiveMatrix3<T>;
    if constexpr ( std::is_same_v<Factor, GeAffineMatrix3<T>> )
    {
        const auto stored = ZqTest::numbersOf<T>( m );
        EXPECT_EQ(
            ( std::array<T, 4>{ stored[3], stored[7], stored[11], stored[15] } ), ( std::array<T, 4>{ 0, 0, 0, 1 } ) );
    }
    if constexpr ( std::is_constructible_v<Projective, const Factor&> )
        return ZqTest::toRows<int, 4>( Projective( m ) );
    else
        return ZqTest::toRows<int, 4>( Projective( m * GeLinearMatrix3<T>() ) );
}

template <class T, class Factor, class... Operands>
void expectProducts( const Factor& factor, const Operands&... operands )
{
    const auto expectProduct = [&]( const auto& operand )
    { EXPECT_EQ( expand<T>( factor * operand ), multiply( expand<T>( factor ), expand<T>( operand ) ) ); };
    ( expectProduct( operands ), ... );
}

template <class T, class Factor, class... Operands>
void expectBothWays( const Factor& factor, const Operands&... operands )
{
    const auto expectOnRight = [&]( const auto& operand )
    { EXPECT_EQ( expand<T>( factor.mulOnRight( operand ) ), multiply( expand<T>( operand ), expand<T>( factor ) ) ); };
    expectProducts<T>( factor, operands... );
    ( expectOnRight( operands ), ... );
}

ZQ_TWIN_TEST( Products, AreThoseOfTheFullMatrices )
{
    Random random( 40 );
    for ( const auto i : random.runs( 200 ) )
    {
        const Factors<T> f( random );
        expectProducts<T>( f.l, f.k, f.r );
        expectProducts<T>( f.a, f.b, f.r );
        expectProducts<T>( f.p, f.a, f.q );
        expectProducts<T>( f.r, f.l, f.a, f.other );
        expectBothWays<T>( f.a, f.l );
        expectBothWays<T>( f.s, f.l, f.a, f.p );
        expectBothWays<T>( f.t, f.l, f.a, f.p );
        EXPECT_EQ( GeLinearMatrix3<T>( f.l ) *= f.k, f.l * f.k );
        EXPECT_EQ( GeRotation3<T>( f.r ) *= f.other, f.r * f.other );
        EXPECT_EQ( GeAffineMatrix3<T>( f.a ) *= f.l, f.a * f.l );
        EXPECT_EQ( GeAffineMatrix3<T>( f.a ) *= f.b, f.a * f.b );
        EXPECT_EQ( GeProjectiveMatrix3<T>( f.p ) *= f.a, f.p * f.a );
        EXPECT_EQ( GeProjectiveMatrix3<T>( f.p ) *= f.q, f.p * f.q );
    }
}

/// `rotation` has the cosine 3 and the sine `angle`, so that it is exact; `byAngle` turns by the angle.
template <class T, class Rotation>
void expectAxisRotation( const Factors<T>& f, const Rotation& rotation, const GeVector3<T>& axis, T angle )
{
    EXPECT_CLOSE( Rotation( angle ).getMatrix(), GeRotation3<T>::makeRotation( axis, angle ), 4 * epsilon<T> );
    expectBothWays<T>( rotation, f.s, f.t, f.l, f.r, f.a );
    static_assert( std::is_same_v<decltype( rotation * f.r ), GeRotation3<T>> );
    const GeLinearMatrix3<T> m = rotation.getMatrix();
    EXPECT_EQ( m, rotation * GeLinearMatrix3<T>() );
    EXPECT_EQ( rotation * f.v, m * f.v );
    EXPECT_EQ( rotation * f.point, m * f.point );
    EXPECT_EQ( rotation.computeInverse().getMatrix(), m.computeTranspose() );
}

ZQ_TWIN_TEST( Products, AxisRotationsAreTheirMatrices )
{
    Random random( 41 );
    for ( const auto i : random.runs( 200 ) )
    {
        const Factors<T> f( random );
        const T angle = T( i );
        expectAxisRotation( f, GeXAxisRotation3<T>( 3, angle ), { 1, 0, 0 }, angle );
        expectAxisRotation( f, GeYAxisRotation3<T>( 3, angle ), { 0, 1, 0 }, angle );
        expectAxisRotation( f, GeZAxisRotation3<T>( 3, angle ), { 0, 0, 1 }, angle );
        EXPECT_EQ( f.r * f.v, f.k * f.v );
        EXPECT_EQ( f.r * f.point, f.k * f.point );
        EXPECT_EQ( GeLinearMatrix3<T>( f.r.computeInverse() ), f.k.computeTranspose() );
    }
}

// A vector is a column on the right and a row on the left; a point has a fourth coordinate of 1.
ZQ_TWIN_TEST( Products, OfMatricesAndVectors )
{
    using Coord = GeHomogeneousCoord3<T>;
    Random random( 42 );
    for ( const auto i : random.runs( 200 ) )
    {
        const Factors<T> f( random );
        const GeVector3<T>& v = f.v;
        const Coord h( v[0], v[1], v[2], 5 ), direction( v[0], v[1], v[2], 0 );
        Coord sum;
        for ( int c = 0; c < 4; ++c )
            sum += Coord( f.p( 0, c ), f.p( 1, c ), f.p( 2, c ), f.p( 3, c ) ) * ( c < 3 ? v[c] : T( 5 ) );
        EXPECT_EQ( f.p * h, sum );
        EXPECT_EQ( f.p.mulOnRight( h ), f.p.computeTranspose() * h );
        EXPECT_EQ( f.p * v, f.p * direction );
        EXPECT_EQ( f.a * v, ( f.a * f.b ).getColumn( 1 ) );
        EXPECT_EQ( f.a.mulOnRight( v ), f.a.getLinear().mulOnRight( v ) );
        EXPECT_EQ( f.a * GePoint3<T>( f.b.getTranslation() ), GePoint3<T>( ( f.a * f.b ).getTranslation() ) );
        EXPECT_EQ( f.l * v, GeAffineMatrix3<T>( f.l ) * v );
        EXPECT_EQ( f.l.mulOnRight( v ), f.l.computeTranspose() * v );
        EXPECT_EQ( f.l * f.point, GePoint3<T>( f.l * v ) );
    }
}

ZQ_TWIN_TEST( Products, NoInfinityMeetsAKnownZero )
{
    const GeTranslation3<T> t( ZqTest::infinity<T>, ZqTest::infinity<T>, ZqTest::infinity<T> );
    const GeLinearMatrix3<T> linear;
    const GeAffineMatrix3<T> affine, far( linear, t.getVector() );
    EXPECT_EQ( t * affine, far );
    EXPECT_EQ( t * linear, far );
    EXPECT_EQ( far * affine, far );
    EXPECT_EQ( far * linear, far );
    EXPECT_EQ( t.mulOnRight( affine ).getLinear(), linear );
}

} // namespace
