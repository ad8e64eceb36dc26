// What a matrix does to space, in parts, and to normals.

#include "support/matrixReference.h"
#include "support/prelude.h"

#include <zq/primitives/geDecomposition3.h>

namespace
{

using Real = long double;
using Rows = ZqTest::Rows<Real, 3>;

ZQ_TWIN_SUITE( Decomposition3 );

template <class T>
GeScale3<T> randomScale( Random& random, T low, T high )
{
    return { random.uniform( low, high ), random.uniform( low, high ), random.uniform( low, high ) };
}

/// Matrices of every kind and size: general ones, with scales that differ much, flat ones, lines, nothing; reflections.
template <class T>
GeLinearMatrix3<T> makeLinear( Random& random, int kind )
{
    const auto turn = [&] { return GeRotation3<T>::makeRotation( random.vector<T>( 1 ), random.uniform<T>( -4, 4 ) ); };
    const T ratio = std::pow( T( 10 ), random.uniform<T>( -6, 0 ) ), sign = T( random.index( 2 ) * 2 - 1 );
    const GeScale3<T> scales[] = { randomScale<T>( random, -1, 1 ), { 1, ratio, ratio * sign }, { 1, 1, ratio * sign },
        { 1, T( 0.5 ), 0 }, { sign, 0, 0 }, { 0, 0, 0 }, { sign, sign, sign } };
    const T limit = std::numeric_limits<T>::max_exponent10 - 2;
    const T size = std::pow( T( 10 ), random.index( 2 ) ? 0 : std::floor( random.uniform( -limit + 8, limit ) ) );
    return GeScale3<T>( size, size, size ) * ( turn() * scales[kind] * turn() );
}

Real sizeOf( const Rows& m )
{
    Real size = 0;
    ZqTest::forEachPlace<3>( [&]( int r, int c ) { size = std::max( size, std::fabs( m( r, c ) ) ); } );
    return size;
}

Real minorOf( const Rows& m, int a, int b )
{
    return m( a, a ) * m( b, b ) - m( a, b ) * m( b, a );
}

Real determinantOf( const Rows& m )
{
    return m( 0, 0 ) * minorOf( m, 1, 2 ) - m( 0, 1 ) * ( m( 1, 0 ) * m( 2, 2 ) - m( 1, 2 ) * m( 2, 0 ) ) +
        m( 0, 2 ) * ( m( 1, 0 ) * m( 2, 1 ) - m( 1, 1 ) * m( 2, 0 ) );
}

template <class T>
void expectDistance( const Rows& a, const Rows& b, Real bound )
{
    ZqTest::forEachPlace<3>( [&]( int r, int c ) { EXPECT_LE( std::fabs( a( r, c ) - b( r, c ) ), bound ); } );
}

// Rotation, symmetric stretch of one sign, product: there is no other polar decomposition of a matrix that has an inverse.
ZQ_TWIN_TEST( Decomposition3, PartsAreThosePolarOnes )
{
    const Real eps = epsilon<T>, bound = ( sizeof( T ) == 4 ? 2 : 10 ) * eps; // what double leaves behind, and itself
    Random random( 61 );
    for ( const auto i : random.runs( 7000 ) )
    {
        const GeAffineMatrix3<T> m( makeLinear<T>( random, i % 7 ), random.vector<T>( 5 ) );
        const auto parts = m.computeDecomposition();
        const Rows l = ZqTest::toRows<Real, 3>( m ), r = ZqTest::toRows<Real, 3>( parts.getRotation() );
        EXPECT_EQ( parts.getTranslation().getVector(), m.getTranslation() );
        const Rows transpose = ZqTest::toRows<Real, 3>( parts.getRotation().computeInverse() );
        expectDistance<T>( multiply( r, transpose ), ZqTest::toRows<Real, 3>( GeLinearMatrix3<T>() ), bound );
        EXPECT_GT( determinantOf( r ), 0 );

        // of size 1 and of positive sign
        const Real size = std::max( sizeOf( l ), Real( std::numeric_limits<T>::min() ) );
        Rows h = ZqTest::toRows<Real, 3>( parts.getStretch() );
        expectDistance<T>( multiply( r, h ), l, bound * size );
        ZqTest::forEachPlace<3>( [&]( int row, int c ) { h( row, c ) *= ( parts.isReflection() ? -1 : 1 ) / size; } );
        for ( int a = 0; a < 3; ++a )
        {
            EXPECT_GE( h( a, a ), -8 * eps );
            EXPECT_GE( minorOf( h, a, ( a + 1 ) % 3 ), -8 * eps );
            EXPECT_EQ( h( a, ( a + 1 ) % 3 ), h( ( a + 1 ) % 3, a ) );
        }
        EXPECT_GE( determinantOf( h ), -8 * eps );
        const Real determinant = determinantOf( l ) / size / size / size;
        EXPECT_TRUE( parts.isReflection() == ( determinant < 0 ) || std::fabs( determinant ) < 16 * eps );
    }
}

ZQ_TWIN_TEST( Decomposition3, TranslationRotationAndScaleComeBack )
{
    Random random( 62 );
    for ( const auto i : random.runs( 1000 ) )
    {
        const GeTranslation3<T> t( random.vector<T>( 5 ) );
        const auto r = GeRotation3<T>::makeRotation( random.vector<T>( 1 ), random.uniform<T>( -4, 4 ) );
        const GeScale3<T> s = randomScale<T>( random, T( 0.25 ), 4 );
        const auto parts = ( t * r * s ).computeDecomposition();
        EXPECT_EQ( parts.getTranslation(), t );
        EXPECT_CLOSE( parts.getRotation(), r, 32 * epsilon<T> );
        EXPECT_CLOSE( parts.getScale(), s, 32 * epsilon<T> );
        EXPECT_CLOSE( parts.getShear(), GeVector3<T>(), 32 * epsilon<T> );
        EXPECT_FALSE( parts.isReflection() );
    }
    const auto decompose = []( T x, T y, T z )
    { return GeAffineMatrix3<T>( GeScale3<T>( x, y, z ).getMatrix() ).computeDecomposition(); };
    EXPECT_EQ( decompose( 0, 0, 0 ).getRotation(), GeRotation3<T>() );
    EXPECT_EQ( decompose( 1, 1, -1 ).getScale(), GeScale3<T>( -1, -1, -1 ) );
    EXPECT_EQ( decompose( 1, 1, -1 ).getRotation().getMatrix(), GeScale3<T>( -1, -1, 1 ).getMatrix() );
    EXPECT_EQ( decompose( 1, -1, -1 ).getRotation().getMatrix(), GeScale3<T>( 1, -1, -1 ).getMatrix() );
    // a shear, told apart by its place
    const auto shear = GeAffineMatrix3<T>( GeLinearMatrix3<T>( 4, 1, 0, 1, 4, 0, 0, 0, 4 ) ).computeDecomposition();
    EXPECT_CLOSE( shear.getShear(), GeVector3<T>( 0, 0, 1 ), 4 * epsilon<T> );
}

// N is the inverse transpose but for a positive factor: the transpose of N times L is that factor times the identity.
ZQ_TWIN_TEST( Decomposition3, NormalsAreTurnedByTheInverseTranspose )
{
    const Real eps = epsilon<T>;
    Random random( 63 );
    for ( const auto i : random.runs( 3000 ) )
    {
        const GeLinearMatrix3<T> m = makeLinear<T>( random, i % 7 );
        const GeLinearMatrix3<T> normals = GeAffineMatrix3<T>( m, random.vector<T>( 1 ) ).computeNormalMatrix();
        const Rows l = ZqTest::toRows<Real, 3>( m );
        const Rows product = multiply( ZqTest::toRows<Real, 3>( normals.computeTranspose() ), l );
        const Real size = std::max( sizeOf( l ), Real( std::numeric_limits<T>::min() ) );
        const Real factor = std::fabs( determinantOf( l ) ) / size / size / size;
        EXPECT_GE( product( 0, 0 ) / size, factor > 16 * eps ? factor / 4 : -16 * eps );
        const auto identity = ZqTest::toRows<Real, 3>( GeLinearMatrix3<T>() );
        ZqTest::forEachPlace<3>( [&]( int r, int c )
            { EXPECT_LE( std::fabs( product( r, c ) - product( 0, 0 ) * identity( r, c ) ), 16 * eps * size ); } );
        const auto r = GeRotation3<T>::makeRotation( random.vector<T>( 1 ), random.uniform<T>( -4, 4 ) );
        EXPECT_CLOSE( r.getMatrix().computeNormalMatrix(), r.getMatrix(), 16 * epsilon<T> );
    }
    const auto of = []( T x, T y, T z ) { return GeScale3<T>( x, y, z ).getMatrix().computeNormalMatrix(); };
    EXPECT_EQ( of( 1, 1, 1 ), GeLinearMatrix3<T>() );
    EXPECT_EQ( of( 1, 1, 0 ), GeScale3<T>( 0, 0, 1 ).getMatrix() );
    EXPECT_EQ( of( 1, 0, 0 ), GeScale3<T>( 0, 0, 0 ).getMatrix() );
    EXPECT_GT( of( 1, T( 1e-30 ), T( -1e-30 ) )( 1, 1 ), 0 ); // outside stays outside in a thin mirror
    EXPECT_TRUE( std::isnan( of( 1, ZqTest::nan<T>, 1 )( 0, 0 ) ) );
    EXPECT_EQ( of( 1, ZqTest::infinity<T>, 1 )( 0, 0 ), ZqTest::infinity<T> );
}

} // namespace
