// The inverse, the determinant and the meaning of singular, which all matrices share. arithmeticBitsTest.cpp compares the
// bits with those of the plain decomposition.

#include "support/matrixReference.h"
#include "support/prelude.h"

using ZqTest::forEachPlace;
using ZqTest::toRows;

namespace
{

ZQ_TWIN_SUITE( MatrixInverse );

/// Calls f with a matrix of each class.
template <class T, class F>
void forEachClass( F&& f )
{
    f( GeLinearMatrix3<T>() );
    f( GeAffineMatrix3<T>() );
    f( GeProjectiveMatrix3<T>() );
}

/// A singular matrix reports, and where it may not report it leaves the results alone.
template <class T, class Matrix>
bool isSingular( const Matrix& m )
{
    Matrix inverse;
    T determinant = T( 42 );
    m.computeInverseAndDeterminant( inverse, determinant );
    const bool isLeftAlone = toRows<T, 3>( inverse ) == toRows<T, 3>( Matrix() ) && determinant == T( 42 );
    const bool isSmall = ZqTest::rowCount<Matrix> == 3;
    if ( isLeftAlone )
        EXPECT_REPORT( m.computeInverse(), isSmall ? "src/base/matrix3x3Imp" : "src/base/matrix4x4Imp", "nonSingular" );
    EXPECT_TRUE( isSmall || !isLeftAlone || m.computeDeterminant() == 0 );
    return isLeftAlone;
}

ZQ_TWIN_TEST( MatrixInverse, TimesTheMatrixIsTheIdentity )
{
    Random random( 11 );
    const auto check = [&]( auto m )
    {
        constexpr int n = ZqTest::columnCount<decltype( m )>;
        m = ZqTest::randomIntegers<decltype( m )>( random, 3 );
        const auto rows = toRows<T, n>( m );
        const T expected = determinantOf( rows ), bound = 1000 * epsilon<T>;
        // linear and affine matrices have a formula for the determinant alone, exact here
        EXPECT_NEAR( m.computeDeterminant(), expected, ZqTest::rowCount<decltype( m )> == 4 ? bound : 0 );
        if ( expected == 0 )
            return;
        const auto inverse = m.computeInverse();
        const auto product = multiply( rows, toRows<T, n>( inverse ) );
        forEachPlace<n>( [&]( int r, int c ) { EXPECT_NEAR( product( r, c ), T( r == c ), bound ); } );
        // the destination may be the source
        T determinant = 0;
        m.computeInverseAndDeterminant( m, determinant );
        EXPECT_EQ( m, inverse );
        EXPECT_NEAR( determinant, expected, bound );
    };
    for ( int i = 0; i < 3000; ++i )
        forEachClass<T>( check );
}

ZQ_TWIN_TEST( MatrixInverse, WhatCountsAsSingular )
{
    const T limit = sizeof( T ) == sizeof( float ) ? T( 1e-6F ) : T( 1e-7 ), nan = ZqTest::nan<T>;
    const T step = sizeof( T ) == sizeof( float ) ? T( 0x1p-20F ) : T( 0x1p-24 ); // the limit rounded down
    forEachClass<T>(
        [&]( const auto& identity )
        {
            const auto isSingularWith = [&]( std::initializer_list<std::tuple<int, int, T>> elements )
            {
                auto m = identity;
                for ( const auto& [row, column, value] : elements )
                    m( row, column ) = value;
                return isSingular<T>( m );
            };
            // the largest magnitude of a row is strictly below the limit
            constexpr int n = ZqTest::rowCount<std::decay_t<decltype( identity )>>, last = n - 1;
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
            EXPECT_FALSE( isSingularWith( { { 0, 0, 0 }, { 0, 1, limit * 2 }, { 0, 2, 8 }, { 1, 1, limit / 2 },
                { 1, 2, 1 }, { 2, 0, 1 }, { 2, 2, 0 } } ) );
            // a row of nothing but NaN counts as zero; a NaN is no pivot, even where nothing but zeros is left
            EXPECT_TRUE( isSingularWith( { { 1, 0, nan }, { 1, 1, nan }, { 1, 2, nan }, { 1, last, nan } } ) );
            EXPECT_TRUE( isSingularWith( { { 0, 0, 0 }, { 0, 1, 1 }, { last, 0, nan } } ) );
            // whether singular or not, no answer may look sound
            Random random( 14 );
            for ( int i = 0; i < 1000; ++i )
            {
                auto m = ZqTest::randomIntegers<std::decay_t<decltype( identity )>>( random, 2 ), inverse = identity;
                m( random.index( n ), random.index( n ) ) = i % 2 ? nan : ZqTest::infinity<T>;
                T sum = 0;
                m.computeInverseAndDeterminant( inverse, sum );
                forEachPlace<n>( [&]( int r, int c ) { sum += inverse( r, c ); } );
                EXPECT_TRUE( !std::isfinite( sum ) || isSingular<T>( m ) ) << m;
            }
        } );
}

ZQ_TWIN_TEST( MatrixInverse, SingularAffineStillWritesTheTranslation )
{
    const GeLinearMatrix3<T> singular( 1, 2, 3, 2, 4, 6, 0, 0, 1 );
    GeAffineMatrix3<T> self( singular, GeVector3<T>( 1, 1, 2 ) ), other;
    T determinant = T( 42 );
    // into another: that one's block is left alone and applied
    self.computeInverseAndDeterminant( other, determinant );
    EXPECT_EQ( other, ( GeAffineMatrix3<T>( GeLinearMatrix3<T>(), GeVector3<T>( -1, -1, -2 ) ) ) );
    // into itself: its own block, applied to the translation that it had
    self.computeInverseAndDeterminant( self, determinant );
    EXPECT_EQ( self, ( GeAffineMatrix3<T>( singular, GeVector3<T>( -9, -18, -2 ) ) ) );
}

} // namespace
