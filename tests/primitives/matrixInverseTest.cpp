// The inverse, the determinant and the meaning of singular, which all matrices share.

#include "support/matrixReference.h"
#include "support/prelude.h"

using ZqTest::forEachPlace;

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

/// The rows and columns that the inverse is computed of: of an affine matrix, the linear block.
template <class T, class Matrix>
auto blockOf( const Matrix& m )
{
    return ZqTest::toRows<T, ZqTest::rowCount<Matrix>>( m );
}

/// A singular matrix reports, and where it may not report it leaves the results alone.
template <class T, class Matrix>
bool isSingular( const Matrix& m )
{
    Matrix inverse;
    inverse( 0, 1 ) = T( 7 );
    const auto before = blockOf<T>( inverse );
    T determinant = T( 42 );
    m.computeInverseAndDeterminant( inverse, determinant );
    const bool isLeftAlone = blockOf<T>( inverse ) == before && determinant == T( 42 );
    const char* const file = ZqTest::rowCount<Matrix> == 3 ? "src/base/matrix3x3Imp" : "src/base/matrix4x4Imp";
    if ( isLeftAlone )
        EXPECT_REPORT( m.computeInverse(), file, "nonSingular" );
    return isLeftAlone;
}

// Small integers over rows of unlike scale are full of equal pivot weights.
ZQ_TWIN_TEST( MatrixInverse, PivotsAndOperationsAreThoseOfAPlainElimination )
{
    Random random( 11 );
    int inverted = 0;
    const auto check = [&]( auto m )
    {
        constexpr int n = ZqTest::rowCount<decltype( m )>;
        m = ZqTest::randomIntegers<decltype( m )>( random, 3 );
        const T factors[] = { 1, T( random.index( 3 ) + 1 ), 1, T( random.index( 3 ) + 1 ) };
        forEachPlace<n>( [&]( int r, int c ) { m( r, c ) *= factors[r]; } );
        const auto block = blockOf<T>( m );
        ZqTest::Rows<T, n> expected;
        T determinant = 0, found = 0;
        if ( !eliminate( block, expected, determinant ) || std::fabs( determinant ) < T( 0.5 ) )
            return;
        ++inverted;
        EXPECT_EQ( blockOf<T>( m.computeInverse() ), expected );
        // linear and affine matrices have a formula for the determinant alone, exact here
        EXPECT_EQ( m.computeDeterminant(), n == 4 ? determinant : determinantOf( block ) );
        const auto product = multiply( block, expected );
        forEachPlace<n>( [&]( int r, int c ) { EXPECT_NEAR( product( r, c ), T( r == c ), 5000 * epsilon<T> ); } );
        // the destination may be the source
        m.computeInverseAndDeterminant( m, found );
        EXPECT_EQ( blockOf<T>( m ), expected );
        EXPECT_EQ( found, determinant );
    };
    for ( int i = 0; i < 5000; ++i )
        forEachClass<T>( check );
    EXPECT_GT( inverted, 10000 );
}

ZQ_TWIN_TEST( MatrixInverse, SingularBeginsStrictlyBelowTheDefaultTolerance )
{
    const T limit = sizeof( T ) == sizeof( float ) ? T( 1e-6F ) : T( 1e-7 );
    const T step = sizeof( T ) == sizeof( float ) ? T( 0x1p-20F ) : T( 0x1p-24 ); // the limit rounded down
    forEachClass<T>(
        [&]( const auto& identity )
        {
            auto tiny = identity;
            for ( int row = 0; row < ZqTest::rowCount<decltype( tiny )>; ++row )
            {
                // the largest magnitude of a row
                auto m = identity;
                m( row, row ) = -limit;
                EXPECT_FALSE( isSingular<T>( m ) );
                m( row, row ) = std::nextafter( -limit, T( 0 ) );
                EXPECT_TRUE( isSingular<T>( m ) );
                tiny( row, row ) = limit / 2;
            }
            EXPECT_TRUE( isSingular<T>( tiny ) ); // invertible in mathematics, and not here
            // a pivot, with all rows of magnitude 1: the second row minus the first leaves only the step
            auto m = identity;
            m( 0, 1 ) = m( 1, 0 ) = T( 1 );
            for ( const int steps : { 0, 1, 2 } )
            {
                m( 1, 1 ) = T( 1 ) + T( steps ) * step;
                EXPECT_EQ( isSingular<T>( m ), steps < 2 );
            }
            m( 1, 1 ) = T( 1 );
            EXPECT_EQ( m.computeDeterminant(), T( 0 ) );
            // a row below the limit, although its pivot would be 1.7 times the limit
            m( 0, 1 ) = T( 8 );
            m( 1, 0 ) = T( -0.1 ) * limit;
            m( 1, 1 ) = T( 0.9 ) * limit;
            EXPECT_TRUE( isSingular<T>( m ) );
        } );
}

// A NaN is never chosen as a pivot while a number is left, so some of these are singular and some are not; no answer
// may look sound.
ZQ_TWIN_TEST( MatrixInverse, NaNAndInfinityNeverGiveAFiniteInverse )
{
    Random random( 14 );
    forEachClass<T>(
        [&]( const auto& identity )
        {
            constexpr int n = ZqTest::rowCount<std::decay_t<decltype( identity )>>;
            for ( int i = 0; i < 2000; ++i )
            {
                auto m = ZqTest::randomIntegers<std::decay_t<decltype( identity )>>( random, 2 ), inverse = identity;
                m( random.index( n ), random.index( n ) ) = i % 2 ? ZqTest::nan<T> : ZqTest::infinity<T>;
                T sum = 0;
                m.computeInverseAndDeterminant( inverse, sum );
                forEachPlace<n>( [&]( int r, int c ) { sum += std::fabs( inverse( r, c ) ); } );
                EXPECT_TRUE( !std::isfinite( sum ) || isSingular<T>( m ) ) << m;
            }
            // a row without a single number counts as zero, also where it would be left as the last pivot
            auto noNumber = identity, zeroPivot = identity;
            for ( int i = 0; i < n; ++i )
                noNumber( 1, i ) = ZqTest::nan<T>;
            for ( int i = 2; i < n; ++i )
                noNumber( i, i - 1 ) = T( 1 );
            EXPECT_TRUE( isSingular<T>( noNumber ) );
            // a NaN is passed over as pivot, even where nothing but zeros is left
            zeroPivot( 0, 0 ) = 0;
            zeroPivot( 0, 1 ) = 1;
            zeroPivot( n - 1, 0 ) = ZqTest::nan<T>;
            EXPECT_TRUE( isSingular<T>( zeroPivot ) );
        } );
}

ZQ_TWIN_TEST( MatrixInverse, AffineTakesPointsBack )
{
    Random random( 32 );
    for ( int i = 0; i < 500; ++i )
    {
        const auto a = ZqTest::randomIntegers<GeAffineMatrix3<T>>( random, 9 );
        if ( std::fabs( a.computeDeterminant() ) < 100 )
            continue;
        const GePoint3<T> p = random.point<T>( 5 );
        EXPECT_TRUE( ( a.computeInverse() * ( a * p ) ).isEqual( p, 2000 * epsilon<T> ) ) << a << p;
    }
    // each zero of a translation is negated too
    const GeAffineMatrix3<T> moved( GeLinearMatrix3<T>(), GeVector3<T>( 1, 0, -3 ) );
    const GeAffineMatrix3<T> inverse = moved.computeInverse();
    EXPECT_EQ( inverse, ( GeAffineMatrix3<T>( GeLinearMatrix3<T>(), GeVector3<T>( -1, 0, 3 ) ) ) );
    EXPECT_TRUE( std::signbit( inverse( 1, 3 ) ) && !std::signbit( inverse( 0, 1 ) ) );
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
    EXPECT_EQ( determinant, T( 42 ) );
}

} // namespace
