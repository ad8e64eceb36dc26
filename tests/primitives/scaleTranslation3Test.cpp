#include "support/random.h"
#include "support/scalars.h"

#include <zq/primitives/geScale3.h>
#include <zq/primitives/geTranslation3.h>

#include <cmath>
#include <sstream>

using namespace Zq;
using ZqTest::Random;

namespace
{

// Small whole numbers: every product below is exact, so the full 4x4 product is the reference for each form.

template <class T>
T makeWhole( Random& random )
{
    return static_cast<T>( random.index( 41 ) - 20 );
}

template <class T>
GeVector3<T> makeVector( Random& random )
{
    const T x = makeWhole<T>( random ), y = makeWhole<T>( random );
    return { x, y, makeWhole<T>( random ) };
}

template <class T>
GeProjectiveMatrix3<T> makeProjective( Random& random )
{
    GeProjectiveMatrix3<T> m;
    for ( int i = 0; i < 16; ++i )
        m( i / 4, i % 4 ) = makeWhole<T>( random );
    return m;
}

template <class T>
GeLinearMatrix3<T> makeLinear( Random& random )
{
    const GeVector3<T> r0 = makeVector<T>( random ), r1 = makeVector<T>( random );
    return { r0, r1, makeVector<T>( random ) };
}

template <class T>
using P = GeProjectiveMatrix3<T>;

template <class T>
P<T> full( const GeScale3<T>& s )
{
    return P<T>( GeLinearMatrix3<T>( s.getX(), 0, 0, 0, s.getY(), 0, 0, 0, s.getZ() ) );
}

template <class T>
P<T> full( const GeTranslation3<T>& t )
{
    P<T> m;
    m( 0, 3 ) = t.getX();
    m( 1, 3 ) = t.getY();
    m( 2, 3 ) = t.getZ();
    return m;
}

ZQ_TWIN_SUITE( ScaleTranslation3 );

TYPED_TEST( ScaleTranslation3, EveryProductIsTheFullProduct )
{
    using T = TypeParam;
    Random random( 40 );
    for ( int i = 0; i < 200; ++i )
    {
        const GeScale3<T> s( makeVector<T>( random ) );
        const GeTranslation3<T> t( makeVector<T>( random ) );
        const GeLinearMatrix3<T> l = makeLinear<T>( random );
        const GeAffineMatrix3<T> a( makeLinear<T>( random ), makeVector<T>( random ) );
        const P<T> p = makeProjective<T>( random );

        EXPECT_EQ( P<T>( s * l ), full( s ) * P<T>( l ) );
        EXPECT_EQ( P<T>( s * a ), full( s ) * P<T>( a ) );
        EXPECT_EQ( s * p, full( s ) * p );
        EXPECT_EQ( P<T>( s.mulOnRight( l ) ), P<T>( l ) * full( s ) );
        EXPECT_EQ( P<T>( s.mulOnRight( a ) ), P<T>( a ) * full( s ) );
        EXPECT_EQ( s.mulOnRight( p ), p * full( s ) );

        EXPECT_EQ( P<T>( t * l ), full( t ) * P<T>( l ) );
        EXPECT_EQ( P<T>( t * a ), full( t ) * P<T>( a ) );
        EXPECT_EQ( t * p, full( t ) * p );
        EXPECT_EQ( P<T>( t.mulOnRight( l ) ), P<T>( l ) * full( t ) );
        EXPECT_EQ( P<T>( t.mulOnRight( a ) ), P<T>( a ) * full( t ) );
        EXPECT_EQ( t.mulOnRight( p ), p * full( t ) );

        // the assigning forms return what they changed
        GeLinearMatrix3<T> l2 = l;
        GeAffineMatrix3<T> a2 = a;
        P<T> p2 = p;
        EXPECT_EQ( &s.mulOnRightAssign( l2 ), &l2 );
        EXPECT_EQ( &s.mulOnRightAssign( a2 ), &a2 );
        EXPECT_EQ( &s.mulOnRightAssign( p2 ), &p2 );
        EXPECT_TRUE( l2 == s.mulOnRight( l ) && a2 == s.mulOnRight( a ) && p2 == s.mulOnRight( p ) );
        EXPECT_EQ( &t.mulOnRightAssign( a2 ), &a2 );
        EXPECT_EQ( &t.mulOnRightAssign( p2 ), &p2 );
        EXPECT_EQ( a2, t.mulOnRight( s.mulOnRight( a ) ) );
        EXPECT_EQ( p2, t.mulOnRight( s.mulOnRight( p ) ) );
    }
}

TYPED_TEST( ScaleTranslation3, WhatDoesNotChangeIsCopiedAndWhatIsFixedIsWritten )
{
    using T = TypeParam;
    const T infinity = ZqTest::infinity<T>;
    const GeScale3<T> s( infinity, infinity, infinity );
    const GeTranslation3<T> t( infinity, infinity, infinity );
    const GeAffineMatrix3<T> a( GeLinearMatrix3<T>( 1, 2, 3, 4, 5, 6, 7, 8, 9 ), GeVector3<T>( T( -0.0 ), 1, 2 ) );
    // an infinity times the zeros of a bottom row would be NaN
    for ( const GeAffineMatrix3<T>& m : { s * a, s.mulOnRight( a ), t * a, t.mulOnRight( a ), t * a.getLinear() } )
    {
        for ( int c = 0; c < 4; ++c )
            EXPECT_EQ( m( 3, c ), T( c == 3 ? 1 : 0 ) );
    }
    EXPECT_TRUE( std::signbit( s.mulOnRight( a )( 0, 3 ) ) );
    EXPECT_EQ( ( t * a ).getLinear(), a.getLinear() );
    EXPECT_EQ( t.mulOnRight( a ).getLinear(), a.getLinear() );

    P<T> p( a );
    for ( int c = 0; c < 4; ++c )
        p( 3, c ) = T( -0.0 );
    for ( int c = 0; c < 4; ++c )
    {
        EXPECT_TRUE( std::signbit( ( GeScale3<T>( 2, 2, 2 ) * p )( 3, c ) ) );
        EXPECT_TRUE( std::signbit( ( GeTranslation3<T>( 1, 1, 1 ) * p )( 3, c ) ) );
    }
    EXPECT_TRUE( std::signbit( s.mulOnRight( p )( 0, 3 ) ) );
    EXPECT_EQ( s.mulOnRight( p )( 2, 3 ), T( 2 ) );
    // a zero in a linear block keeps its sign through a translation
    const GeLinearMatrix3<T> zeros( T( -0.0 ), 0, 0, 0, T( -0.0 ), 0, 0, 0, T( -0.0 ) );
    EXPECT_TRUE( std::signbit( ( t * zeros )( 1, 1 ) ) && std::signbit( t.mulOnRight( zeros )( 2, 2 ) ) );
}

TYPED_TEST( ScaleTranslation3, PointsMoveInTheOrderOfTheProducts )
{
    using T = TypeParam;
    const GeScale3<T> s( 2, 3, 4 );
    const GeTranslation3<T> t( 1, 2, 3 );
    const GeLinearMatrix3<T> quarterTurn( 0, -1, 0, 1, 0, 0, 0, 0, 1 );
    const GeAffineMatrix3<T> a( quarterTurn, GeVector3<T>( 10, 0, 0 ) );
    const GePoint3<T> p( 5, 6, 7 );
    EXPECT_EQ( ( t * a ) * p, ( GePoint3<T>( 5, 7, 10 ) ) );           // turned to (-6, 5, 7), moved by 10, then by t
    EXPECT_EQ( t.mulOnRight( a ) * p, ( GePoint3<T>( 2, 6, 10 ) ) );   // moved to (6, 8, 10), then turned
    EXPECT_EQ( ( s * a ) * p, ( GePoint3<T>( 8, 15, 28 ) ) );          // (4, 5, 7) scaled
    EXPECT_EQ( s.mulOnRight( a ) * p, ( GePoint3<T>( -8, 10, 28 ) ) ); // (10, 18, 28) turned and moved
    EXPECT_EQ( ( t * a ).getTranslation(), ( GeVector3<T>( 11, 2, 3 ) ) );
    EXPECT_EQ( t.mulOnRight( a ).getTranslation(), ( GeVector3<T>( 8, 1, 3 ) ) );
    EXPECT_EQ( s * GeLinearMatrix3<T>(), s.mulOnRight( GeLinearMatrix3<T>() ) );
    EXPECT_NE( s * quarterTurn, s.mulOnRight( quarterTurn ) );
}

TYPED_TEST( ScaleTranslation3, ComparisonAndText )
{
    using T = TypeParam;
    std::ostringstream os;
    os << GeScale3<T>( 2, 1, T( 0.5 ) ) << GeTranslation3<T>( -1, 0, T( 2.5 ) );
    EXPECT_EQ( os.str(), "Scale3(2, 1, 0.5)Translation3(-1, 0, 2.5)" );

    const GeScale3<T> s( 1, 2, 3 );
    const GeTranslation3<T> t( 1, 2, 3 );
    for ( int i = 0; i < 3; ++i )
    {
        GeVector3<T> v( 1, 2, 3 );
        v[i] += T( 0.5 );
        EXPECT_TRUE( s != GeScale3<T>( v ) && !s.isEqual( GeScale3<T>( v ), T( 0.5 ) ) );
        EXPECT_TRUE( t != GeTranslation3<T>( v ) && !t.isEqual( GeTranslation3<T>( v ), T( 0.5 ) ) );
        EXPECT_TRUE( s.isEqual( GeScale3<T>( v ), T( 0.75 ) ) && t.isEqual( GeTranslation3<T>( v ), T( 0.75 ) ) );
    }
}

} // namespace
