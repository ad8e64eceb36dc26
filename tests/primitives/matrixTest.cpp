// Linear, affine and projective matrices by themselves; products have a file of their own. arithmeticBitsTest.cpp
// compares the bits of the inverse with those of the plain decomposition.

#include "support/matrixReference.h"
#include "support/prelude.h"

using ZqTest::forEachPlace;
using ZqTest::randomIntegers;
using ZqTest::toRows;

namespace
{

ZQ_TWIN_SUITE( Matrix );

/// Integers: minors are exact. A matrix times its cofactors is the determinant times the identity; a minor of an odd
/// place lacks the sign of the cofactor where `oddSign` is -1. Returns the determinant.
template <class T, class Matrix>
T expectMinors( const Matrix& m, T oddSign )
{
    constexpr int n = ZqTest::columnCount<Matrix>;
    ZqTest::Rows<T, n> cofactors{};
    forEachPlace<n>(
        [&]( int r, int c )
        {
            EXPECT_EQ( m.computeTranspose()( c, r ), m( r, c ) );
            cofactors( c, r ) = m.computeAdjoint()( r, c ) * ( ( r + c ) % 2 ? oddSign : 1 );
        } );
    const auto product = multiply( toRows<T, n>( m ), cofactors );
    forEachPlace<n>( [&]( int r, int c ) { EXPECT_EQ( product( r, c ), r == c ? product( 0, 0 ) : 0 ); } );
    return product( 0, 0 );
}

template <class T, class Matrix>
void expectInverse( Matrix m, T determinant )
{
    constexpr int n = ZqTest::columnCount<Matrix>;
    const T bound = 1000 * epsilon<T>;
    // linear and affine matrices have a formula for the determinant alone, exact here
    EXPECT_NEAR( m.computeDeterminant(), determinant, ZqTest::rowCount<Matrix> == 4 ? bound : 0 );
    if ( determinant == 0 )
        return;
    const auto inverse = m.computeInverse();
    const auto product = multiply( toRows<T, n>( m ), toRows<T, n>( inverse ) );
    forEachPlace<n>( [&]( int r, int c ) { EXPECT_NEAR( product( r, c ), T( r == c ), bound ); } );
    // the destination may be the source
    T found = 0;
    m.computeInverseAndDeterminant( m, found );
    EXPECT_EQ( m, inverse );
    EXPECT_NEAR( found, determinant, bound );
}

ZQ_TWIN_TEST( Matrix, MinorsDeterminantAndInverseBelongTogether )
{
    using Projective = GeProjectiveMatrix3<T>;
    Random random( 11 );
    for ( const auto i : random.runs( 3000 ) )
    {
        const auto l = randomIntegers<GeLinearMatrix3<T>>( random, 3 );
        const auto a = randomIntegers<GeAffineMatrix3<T>>( random, 3 );
        const auto p = randomIntegers<Projective>( random, 3 ), full = Projective( a );
        expectInverse( l, expectMinors( l, T( 1 ) ) );
        expectInverse( p, expectMinors( p, T( -1 ) ) );
        expectInverse( a, expectMinors( full, T( -1 ) ) );
        EXPECT_EQ( Projective::computeTranspose( a ), full.computeTranspose() );
        EXPECT_EQ( Projective::computeAdjoint( a ), full.computeAdjoint() );
    }
    // where rounding decides, the stated grouping shows: of the terms s^3, 1 and -s^3 the middle one is lost
    const T s = sizeof( T ) == sizeof( float ) ? T( 1024 ) : T( 1 << 18 );
    EXPECT_EQ( GeLinearMatrix3<T>( s, s, 0, 0, 1 / s, s, s, s, 1 ).computeDeterminant(), T( 0 ) );
}

ZQ_TWIN_TEST( Matrix, WhatCountsAsSingular )
{
    const T limit = sizeof( T ) == sizeof( float ) ? T( 1e-6F ) : T( 1e-7 ), nan = ZqTest::nan<T>;
    const T step = sizeof( T ) == sizeof( float ) ? T( 0x1p-20F ) : T( 0x1p-24 ); // the limit rounded down
    const auto check = [&]( const auto& identity )
    {
        constexpr int n = ZqTest::rowCount<std::decay_t<decltype( identity )>>, last = n - 1;
        const auto isSingularWith = [&]( std::initializer_list<std::tuple<int, int, T>> elements )
        {
            auto m = identity, inverse = identity;
            for ( const auto& [row, column, value] : elements )
                m( row, column ) = value;
            T determinant = 42;
            m.computeInverseAndDeterminant( inverse, determinant );
            const bool isLeftAlone = inverse == identity && determinant == 42;
            EXPECT_TRUE( n == 3 || !isLeftAlone || m.computeDeterminant() == 0 );
            return isLeftAlone;
        };
        // the largest magnitude of a row is strictly below the limit
        for ( int row = 0; row < n; ++row )
        {
            EXPECT_FALSE( isSingularWith( { { row, row, -limit } } ) );
            EXPECT_TRUE( isSingularWith( { { row, row, std::nextafter( -limit, T( 0 ) ) } } ) );
        }
        // although the pivot would be 1.7 times the limit
        EXPECT_TRUE( isSingularWith( { { 0, 1, 8 }, { 1, 0, T( -0.1 ) * limit }, { 1, 1, T( 0.9 ) * limit } } ) );
        // a pivot, with all rows of magnitude 1: the second row minus the first leaves only the step
        for ( const int steps : { 0, 1, 2 } )
            EXPECT_EQ( isSingularWith( { { 0, 1, 1 }, { 1, 0, 1 }, { 1, 1, 1 + T( steps ) * step } } ), steps < 2 );
        // of equal weights the later row is the pivot, here of half and of twice the limit
        EXPECT_TRUE( isSingularWith( { { 0, 0, limit * 2 }, { 0, 2, 4 }, { 1, 0, limit / 2 } } ) );
        EXPECT_FALSE( isSingularWith( { { 0, 0, limit / 2 }, { 0, 1, 1 }, { 1, 0, limit * 2 }, { 1, 2, 4 } } ) );
        // a row that makes room for a pivot gets the weight of the other: by its own it would lose against row 1
        EXPECT_FALSE( isSingularWith( { { 0, 0, 0 }, { 0, 1, limit * 2 }, { 0, 2, 8 }, { 1, 1, limit / 2 }, { 1, 2, 1 },
            { 2, 0, 1 }, { 2, 2, 0 } } ) );
        // a row of nothing but NaN counts as zero; a NaN is no pivot, even where nothing but zeros is left
        EXPECT_TRUE( isSingularWith( { { 1, 0, nan }, { 1, 1, nan }, { 1, 2, nan }, { 1, last, nan } } ) );
        EXPECT_TRUE( isSingularWith( { { 0, 0, 0 }, { 0, 1, 1 }, { last, 0, nan } } ) );
    };
    check( GeLinearMatrix3<T>() );
    check( GeAffineMatrix3<T>() );
    check( GeProjectiveMatrix3<T>() );
}

ZQ_TWIN_TEST( Matrix, SingularAffineStillWritesTheTranslation )
{
    const GeLinearMatrix3<T> singular( 1, 2, 3, 2, 4, 6, 0, 0, 1 );
    GeAffineMatrix3<T> self( singular, GeVector3<T>( 1, 1, 2 ) ), other;
    T determinant = 42;
    // into another: that one's block is left alone and applied
    self.computeInverseAndDeterminant( other, determinant );
    EXPECT_EQ( other, ( GeAffineMatrix3<T>( GeLinearMatrix3<T>(), GeVector3<T>( -1, -1, -2 ) ) ) );
    // into itself: its own block, applied to the translation that it had
    self.computeInverseAndDeterminant( self, determinant );
    EXPECT_EQ( self, ( GeAffineMatrix3<T>( singular, GeVector3<T>( -9, -18, -2 ) ) ) );
    // the sum is negated as it is
    EXPECT_TRUE( std::signbit( GeAffineMatrix3<T>().computeInverse()( 0, 3 ) ) );
}

// What the caller writes to may be an element of the matrix that is asked.
ZQ_TWIN_TEST( Matrix, TheDeterminantMayGoIntoTheMatrix )
{
    const GeAffineMatrix3<T> m( GeLinearMatrix3<T>( 2, 0, 0, 0, 4, 0, 0, 0, 8 ), GeVector3<T>( 6, 12, 24 ) );
    for ( int r = 0; r < 3; ++r )
        for ( int c = 0; c < 4; ++c )
        {
            GeAffineMatrix3<T> written = m, inverse;
            written.computeInverseAndDeterminant( inverse, written( r, c ) );
            EXPECT_EQ( inverse, m.computeInverse() ) << r << c;
            EXPECT_EQ( written( r, c ), T( 64 ) );
        }
}

ZQ_TWIN_TEST( Matrix, IdentityAndZero )
{
    const GeLinearMatrix3<T> identity, zero( 0, 0, 0, 0, 0, 0, 0, 0, 0 );
    GeLinearMatrix3<T> l( 2, 2, 2, 2, 2, 2, 2, 2, 2 );
    GeAffineMatrix3<T> a( l, GeVector3<T>( 2, 2, 2 ) );
    GeProjectiveMatrix3<T> p( a );
    a.setIdentity();
    p.setIdentity();
    EXPECT_EQ( a, GeAffineMatrix3<T>( identity ) );
    EXPECT_EQ( p, GeProjectiveMatrix3<T>( identity ) );
    const T limit = sizeof( T ) == sizeof( float ) ? T( 1e-6 ) : T( 1e-7 );
    forEachPlace<3>(
        [&]( int r, int c )
        {
            l.setIdentity();
            l( r, c ) += limit / 2;
            EXPECT_TRUE( l.isIdentity() );
            l( r, c ) += limit;
            EXPECT_FALSE( l.isIdentity() );
        } );
    l.setZero();
    a.setZero();
    EXPECT_EQ( l, zero );
    EXPECT_EQ( a, GeAffineMatrix3<T>( zero ) );
}

} // namespace
