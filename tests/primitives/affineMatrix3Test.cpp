#include "support/matrixReference.h"
#include "support/report.h"
#include "support/scalars.h"

#include <zq/primitives/geAffineMatrix3.h>

#include <array>
#include <sstream>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( AffineMatrix3 );

template <class T>
GeVector3<T> randomIntegerVector( Random& random )
{
    const T x = T( random.index( 19 ) - 9 );
    const T y = T( random.index( 19 ) - 9 );
    return { x, y, T( random.index( 19 ) - 9 ) };
}

template <class T>
GeAffineMatrix3<T> randomMatrix( Random& random )
{
    const auto linear = ZqTest::fromRows<GeLinearMatrix3<T>>( ZqTest::randomIntegers<T, 3>( random, 9 ) );
    return { linear, randomIntegerVector<T>( random ) };
}

template <class T>
bool hasAffineBottomRow( const GeAffineMatrix3<T>& m )
{
    return m( 3, 0 ) == 0 && m( 3, 1 ) == 0 && m( 3, 2 ) == 0 && m( 3, 3 ) == 1;
}

TYPED_TEST( AffineMatrix3, IsStoredByColumnsWhateverItWasMadeFrom )
{
    using T = TypeParam;
    const std::array<T, 16> expected = { 1, 5, 9, 0, 2, 6, 10, 0, 3, 7, 11, 0, 4, 8, 12, 1 };
    const float rows[4][4] = { { 1, 2, 3, 4 }, { 5, 6, 7, 8 }, { 9, 10, 11, 12 }, { -1, -2, -3, -4 } };
    const double columns[4][4] = { { 1, 5, 9, -1 }, { 2, 6, 10, -2 }, { 3, 7, 11, -3 }, { 4, 8, 12, -4 } };
    const GeLinearMatrix3<T> linear( 1, 2, 3, 5, 6, 7, 9, 10, 11 );
    for ( const GeAffineMatrix3<T>& m : { GeAffineMatrix3<T>( rows, false ), GeAffineMatrix3<T>( columns, true ),
              GeAffineMatrix3<T>( linear, GeVector3<T>( 4, 8, 12 ) ) } )
    {
        EXPECT_EQ( ( ZqTest::storedValues<T, 16>( m ) ), expected );
        EXPECT_EQ( m.getLinear(), linear );
        EXPECT_EQ( m.getTranslation(), ( GeVector3<T>( 4, 8, 12 ) ) );
        EXPECT_EQ( m.getColumn( 1 ), ( GeVector3<T>( 2, 6, 10 ) ) );
        EXPECT_EQ( m( 1, 3 ), T( 8 ) );
    }
    const double other[4][4] = { { 1, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, 1, 0 }, { 5, 6, 7, 8 } };
    EXPECT_EQ( ( GeAffineMatrix3<T>( other, false ) ), GeAffineMatrix3<T>() );
    const GeAffineMatrix3<T> moved( other, true );
    EXPECT_EQ( moved, ( GeAffineMatrix3<T>( GeLinearMatrix3<T>(), GeVector3<T>( 5, 6, 7 ) ) ) );
    EXPECT_TRUE( hasAffineBottomRow( moved ) );
    static_assert( !std::is_convertible_v<GeLinearMatrix3<T>, GeAffineMatrix3<T>> );
}

// Integers: every sum is exact, so the equations hold without tolerance.
TYPED_TEST( AffineMatrix3, ProductsFollowTheConventions )
{
    using T = TypeParam;
    Random random( 31 );
    for ( int i = 0; i < 500; ++i )
    {
        const GeAffineMatrix3<T> a = randomMatrix<T>( random );
        const GeAffineMatrix3<T> b = randomMatrix<T>( random );
        const GeLinearMatrix3<T> m = randomMatrix<T>( random ).getLinear();
        const GeVector3<T> v = randomIntegerVector<T>( random );
        const GePoint3<T> p( v );

        EXPECT_EQ( ( a * b ) * p, a * ( b * p ) );
        EXPECT_EQ( a * v, a.getLinear() * v );
        EXPECT_EQ( a * p - a * GePoint3<T>(), a * v );
        EXPECT_EQ( a * GePoint3<T>(), GePoint3<T>( a.getTranslation() ) );
        EXPECT_EQ( a * m, a * GeAffineMatrix3<T>( m ) );
        EXPECT_EQ( a.mulOnRight( m ), GeAffineMatrix3<T>( m ) * a );
        EXPECT_EQ( a.mulOnRight( v ), a.getLinear().mulOnRight( v ) );
        EXPECT_TRUE( hasAffineBottomRow( a * m ) && hasAffineBottomRow( a.mulOnRight( m ) ) );

        GeAffineMatrix3<T> inPlace = a;
        inPlace *= m;
        EXPECT_EQ( inPlace, a * m );
        EXPECT_EQ( static_cast<long long>( a.computeDeterminant() ),
            ZqTest::determinant( ZqTest::toRows<long long, 3>( a ) ) );
    }
    const GeAffineMatrix3<T> turn( GeLinearMatrix3<T>( 0, -1, 0, 1, 0, 0, 0, 0, 1 ) );
    EXPECT_EQ( ( turn * GeVector3<T>( 1, 0, 0 ) ), ( GeVector3<T>( 0, 1, 0 ) ) );
    EXPECT_EQ( ( turn.mulOnRight( GeVector3<T>( 1, 0, 0 ) ) ), ( GeVector3<T>( 0, -1, 0 ) ) );

    // an infinite translation stays in its place: the bottom row takes no part
    const GeAffineMatrix3<T> far( GeLinearMatrix3<T>(), GeVector3<T>( ZqTest::infinity<T>, 0, 0 ) );
    EXPECT_EQ( far * turn.getLinear(), ( GeAffineMatrix3<T>( turn.getLinear(), far.getTranslation() ) ) );
    EXPECT_EQ( far * turn, far * turn.getLinear() );
}

TYPED_TEST( AffineMatrix3, InverseTakesPointsBack )
{
    using T = TypeParam;
    Random random( 32 );
    int inverted = 0;
    for ( int i = 0; i < 300; ++i )
    {
        const GeAffineMatrix3<T> a = randomMatrix<T>( random );
        if ( FloatUtil::abs( a.computeDeterminant() ) < T( 100 ) )
            continue;
        ++inverted;
        const GePoint3<T> p( randomIntegerVector<T>( random ) );
        const GeAffineMatrix3<T> inverse = a.computeInverse();
        EXPECT_TRUE( ( inverse * ( a * p ) ).isEqual( p, 2000 * ZqTest::epsilon<T> ) ) << a << p;
        EXPECT_EQ( inverse.getLinear(), a.getLinear().computeInverse() );
        EXPECT_TRUE( hasAffineBottomRow( inverse ) );
    }
    EXPECT_GT( inverted, 100 );
}

TYPED_TEST( AffineMatrix3, InverseOfATranslationNegatesItZerosIncluded )
{
    using T = TypeParam;
    const GeAffineMatrix3<T> moved( GeLinearMatrix3<T>(), GeVector3<T>( 1, 0, -3 ) );
    const GeAffineMatrix3<T> inverse = moved.computeInverse();
    EXPECT_EQ( inverse, ( GeAffineMatrix3<T>( GeLinearMatrix3<T>(), GeVector3<T>( -1, 0, 3 ) ) ) );
    EXPECT_TRUE( std::signbit( inverse( 1, 3 ) ) );
    EXPECT_FALSE( std::signbit( inverse( 0, 1 ) ) );
}

TYPED_TEST( AffineMatrix3, SingularStillWritesTheTranslation )
{
    using T = TypeParam;
    const GeAffineMatrix3<T> flat( GeLinearMatrix3<T>( 0, 0, 0, 0, 0, 0, 0, 0, 0 ), GeVector3<T>( 1, 2, 3 ) );
    EXPECT_REPORT( flat.computeInverse(), "src/base/matrix3x3Imp", "nonSingular" );

    GeAffineMatrix3<T> output;
    T determinant = T( 42 );
    flat.computeInverseAndDeterminant( output, determinant );
    EXPECT_EQ( output, ( GeAffineMatrix3<T>( GeLinearMatrix3<T>(), GeVector3<T>( -1, -2, -3 ) ) ) );
    EXPECT_EQ( determinant, T( 42 ) );

    // into itself: its own block, applied to the translation that it had
    const GeLinearMatrix3<T> singular( 1, 2, 3, 2, 4, 6, 0, 0, 1 );
    GeAffineMatrix3<T> self( singular, GeVector3<T>( 1, 1, 2 ) );
    self.computeInverseAndDeterminant( self, determinant );
    EXPECT_EQ( self, ( GeAffineMatrix3<T>( singular, GeVector3<T>( -9, -18, -2 ) ) ) );
}

TYPED_TEST( AffineMatrix3, ClearingKeepsTheBottomRow )
{
    using T = TypeParam;
    Random random( 33 );
    GeAffineMatrix3<T> zero = randomMatrix<T>( random );
    zero.setZero();
    EXPECT_EQ( zero, ( GeAffineMatrix3<T>( GeLinearMatrix3<T>( 0, 0, 0, 0, 0, 0, 0, 0, 0 ) ) ) );
    EXPECT_TRUE( hasAffineBottomRow( zero ) );
}

TYPED_TEST( AffineMatrix3, TextFormIsFourLines )
{
    using T = TypeParam;
    std::ostringstream os;
    os << GeAffineMatrix3<T>( GeLinearMatrix3<T>( 1, 2, 3, 5, 6, 7, 9, 10, 11 ), GeVector3<T>( 4, 8, T( 0.5 ) ) );
    EXPECT_EQ( os.str(), "| 1 2 3 4 |\n| 5 6 7 8 |\n| 9 10 11 0.5 |\n| 0 0 0 1 |\n" );
}

} // namespace
