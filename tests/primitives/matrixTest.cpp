// What all matrices share: products, comparison, the inverse, the determinant and the meaning of singular.

#include "support/matrixReference.h"
#include "support/report.h"
#include "support/scalars.h"

#include <zq/primitives/geProjectiveMatrix3.h>

#include <limits>

using namespace Zq;
using ZqTest::Random;
using ZqTest::Rows;

namespace
{

// What one text needs to cover all three. The decomposed block of an affine matrix is the linear one.
template <class Scalar, std::size_t size, std::size_t width, class Matrix>
struct MatrixTraits
{
    using T = Scalar;
    using Square = Rows<T, size>;
    static constexpr std::size_t n = size;
    static constexpr std::size_t columns = width;

    // free elements by index, column by column
    static T& element( Matrix& m, std::size_t i ) { return m( int( i % n ), int( i / n ) ); }
    static Matrix random( Random& random, int largest )
    {
        Matrix m;
        for ( std::size_t i = 0; i < n * columns; ++i )
            element( m, i ) = T( random.index( 2 * largest + 1 ) - largest );
        return m;
    }

    static Matrix make( const Square& rows ) { return ZqTest::fromRows<Matrix>( rows ); }
    static Square rowsOf( const Matrix& m ) { return ZqTest::toRows<T, n>( m ); }
    static Square identity() { return rowsOf( Matrix() ); }
    static bool isSingular( const Matrix& m )
    {
        const ZqTest::Report report = ZqTest::catchReport( [&] { static_cast<void>( m.computeInverse() ); } );
        return report.text == "nonSingular" &&
            report.file == ( n == 3 ? "src/base/matrix3x3Imp" : "src/base/matrix4x4Imp" );
    }
};

template <class Matrix>
struct Traits;
template <class T>
struct Traits<GeLinearMatrix3<T>> : MatrixTraits<T, 3, 3, GeLinearMatrix3<T>>
{
};
template <class T>
struct Traits<GeAffineMatrix3<T>> : MatrixTraits<T, 3, 4, GeAffineMatrix3<T>>
{
};
template <class T>
struct Traits<GeProjectiveMatrix3<T>> : MatrixTraits<T, 4, 4, GeProjectiveMatrix3<T>>
{
};

template <class Matrix>
class Matrix3 : public ::testing::Test
{
};

using Matrices = ::testing::Types<GeLinearMatrix3<float>, GeLinearMatrix3<double>, GeAffineMatrix3<float>,
    GeAffineMatrix3<double>, GeProjectiveMatrix3<float>, GeProjectiveMatrix3<double>>;

struct MatrixNames
{
    template <class Matrix>
    static std::string GetName( int index )
    {
        static const char* const classes[] = { "linear_", "affine_", "projective_" };
        return classes[index / 2] + ZqTest::ScalarNames::GetName<typename Traits<Matrix>::T>( index );
    }
};

TYPED_TEST_SUITE( Matrix3, Matrices, MatrixNames );

// Integers: every sum is exact.
TYPED_TEST( Matrix3, ProductsAreThoseOfThreePlainLoops )
{
    using Kind = Traits<TypeParam>;
    Random random( 10 );
    for ( int i = 0; i < 300; ++i )
    {
        const TypeParam a = Kind::random( random, 9 );
        const TypeParam b = Kind::random( random, 9 );
        const auto product = ZqTest::multiply(
            ZqTest::toRows<long long, Kind::columns>( a ), ZqTest::toRows<long long, Kind::columns>( b ) );
        EXPECT_EQ( ( ZqTest::toRows<long long, Kind::columns>( a * b ) ), product );
        TypeParam inPlace = a;
        inPlace *= inPlace;
        EXPECT_EQ( inPlace, a * a );
        inPlace *= b;
        EXPECT_EQ( inPlace, a * a * b );
    }
}

TYPED_TEST( Matrix3, ComparisonLooksAtEveryElement )
{
    using Kind = Traits<TypeParam>;
    using T = typename Kind::T;
    const TypeParam identity;
    for ( std::size_t i = 0; i < Kind::n * Kind::columns; ++i )
    {
        TypeParam m;
        Kind::element( m, i ) += T( 0.25 );
        EXPECT_FALSE( m == identity );
        EXPECT_TRUE( m != identity );
        EXPECT_TRUE( m.isEqual( identity, T( 0.5 ) ) );
        EXPECT_FALSE( m.isEqual( identity, T( 0.25 ) ) );
        Kind::element( m, i ) = ZqTest::nan<T>;
        EXPECT_FALSE( m == m );
        EXPECT_FALSE( m.isEqual( m, 1 ) );
        m.setIdentity();
        EXPECT_EQ( m, identity );
    }
}

// Small integers over rows of unlike scale are full of equal pivot weights.
TYPED_TEST( Matrix3, PivotsAndOperationsAreThoseOfAPlainElimination )
{
    using Kind = Traits<TypeParam>;
    using T = typename Kind::T;
    Random random( 11 );
    int laterRowMattered = 0;
    int scalesMattered = 0;
    for ( int i = 0; i < 5000; ++i )
    {
        auto rows = ZqTest::randomIntegers<T, Kind::n>( random, 3 );
        for ( auto& row : rows )
        {
            const T factor = T( random.index( 3 ) + 1 );
            for ( T& element : row )
                element *= factor;
        }
        typename Kind::Square expected{}, other{};
        T determinant = 0, otherDeterminant = 0;
        if ( !ZqTest::eliminate( rows, {}, expected, determinant ) || std::fabs( determinant ) < T( 0.5 ) )
            continue;

        const TypeParam m = Kind::make( rows );
        TypeParam inverse;
        T found = 0;
        m.computeInverseAndDeterminant( inverse, found );
        EXPECT_EQ( found, determinant );
        EXPECT_TRUE( ZqTest::sameBits( Kind::rowsOf( inverse ), expected ) );
        EXPECT_TRUE( ZqTest::sameBits( Kind::rowsOf( m.computeInverse() ), expected ) );

        ZqTest::eliminate( rows, { false, false }, other, otherDeterminant );
        laterRowMattered += !ZqTest::sameBits( other, expected );
        ZqTest::eliminate( rows, { true, true }, other, otherDeterminant );
        scalesMattered += !ZqTest::sameBits( other, expected );
    }
    // the cases must be able to tell the rules apart
    EXPECT_GT( laterRowMattered, 100 );
    EXPECT_GT( scalesMattered, 20 );
}

TYPED_TEST( Matrix3, UndoesTheMatrixWithinItsCondition )
{
    using Kind = Traits<TypeParam>;
    using T = typename Kind::T;
    Random random( 12 );
    for ( int i = 0; i < 1000; ++i )
    {
        Rows<long double, Kind::n> rows{};
        typename Kind::Square rounded{};
        for ( std::size_t r = 0; r < Kind::n; ++r )
        {
            for ( std::size_t c = 0; c < Kind::n; ++c )
            {
                // dominated by a diagonal of 4, in rotated rows: the condition number stays below 10
                rounded[( r + 1 ) % Kind::n][c] = random.uniform<T>( -1, 1 ) + ( r == c ? T( 4 ) : T( 0 ) );
                rows[( r + 1 ) % Kind::n][c] = static_cast<long double>( rounded[( r + 1 ) % Kind::n][c] );
            }
        }
        const TypeParam m = Kind::make( rounded );
        TypeParam inverse;
        T determinant = 0;
        m.computeInverseAndDeterminant( inverse, determinant );
        const auto product = ZqTest::multiply( rows, ZqTest::toRows<long double, Kind::n>( inverse ) );
        for ( std::size_t r = 0; r < Kind::n; ++r )
        {
            for ( std::size_t c = 0; c < Kind::n; ++c )
                EXPECT_NEAR( double( product[r][c] ), r == c ? 1.0 : 0.0, 30 * double( ZqTest::epsilon<T> ) );
        }
        const double exact = double( ZqTest::determinant( rows ) );
        EXPECT_NEAR( double( determinant ), exact, 30 * std::fabs( exact ) * double( ZqTest::epsilon<T> ) );
        EXPECT_NEAR( double( m.computeDeterminant() ), exact, 30 * std::fabs( exact ) * double( ZqTest::epsilon<T> ) );
    }
}

TYPED_TEST( Matrix3, PermutationsAreExactAndCarryTheirParity )
{
    using Kind = Traits<TypeParam>;
    using T = typename Kind::T;
    std::array<std::size_t, Kind::n> order{};
    for ( std::size_t i = 0; i < Kind::n; ++i )
        order[i] = i;
    do
    {
        typename Kind::Square rows{}, transposed{};
        for ( std::size_t i = 0; i < Kind::n; ++i )
            rows[i][order[i]] = transposed[order[i]][i] = T( 1 );
        const TypeParam m = Kind::make( rows );
        TypeParam inverse;
        T determinant = 0;
        m.computeInverseAndDeterminant( inverse, determinant );
        EXPECT_EQ( Kind::rowsOf( inverse ), transposed );
        EXPECT_EQ( determinant, ZqTest::determinant( rows ) );
        EXPECT_EQ( m.computeDeterminant(), determinant );
    } while ( std::next_permutation( order.begin(), order.end() ) );
}

TYPED_TEST( Matrix3, SingularBeginsStrictlyBelowTheDefaultTolerance )
{
    using Kind = Traits<TypeParam>;
    using T = typename Kind::T;
    const bool isFloat = sizeof( T ) == sizeof( float );
    const T limit = isFloat ? T( 1e-6F ) : T( 1e-7 );

    // the largest magnitude of a row, in each row, by either sign
    for ( std::size_t row = 0; row < Kind::n; ++row )
    {
        for ( const T sign : { T( 1 ), T( -1 ) } )
        {
            auto rows = Kind::identity();
            rows[row][row] = sign * limit;
            EXPECT_FALSE( Kind::isSingular( Kind::make( rows ) ) );
            rows[row][row] = sign * std::nextafter( limit, T( 0 ) );
            EXPECT_TRUE( Kind::isSingular( Kind::make( rows ) ) );
        }
    }
    // a pivot, with all rows of magnitude 1: the second row minus the first leaves only the step
    const int power = isFloat ? -20 : -24;
    auto rows = Kind::identity();
    rows[0] = rows[1];
    rows[0][0] = rows[1][0] = T( 1 );
    rows[1][1] += std::ldexp( T( 1 ), power + 1 );
    EXPECT_FALSE( Kind::isSingular( Kind::make( rows ) ) );
    rows[1][1] = T( 1 ) + std::ldexp( T( 1 ), power );
    EXPECT_TRUE( Kind::isSingular( Kind::make( rows ) ) );

    // a row below the limit, although its pivot would be 1.7 times the limit
    rows = Kind::identity();
    rows[0][1] = T( 8 );
    rows[1][0] = T( -0.1 ) * limit;
    rows[1][1] = T( 0.9 ) * limit;
    EXPECT_TRUE( Kind::isSingular( Kind::make( rows ) ) );

    // invertible in mathematics, and not here
    for ( auto& row : rows = Kind::identity() )
    {
        for ( T& element : row )
            element *= limit / 2;
    }
    EXPECT_TRUE( Kind::isSingular( Kind::make( rows ) ) );
}

TYPED_TEST( Matrix3, SingularLeavesMatrixAndDeterminantAlone )
{
    using Kind = Traits<TypeParam>;
    using T = typename Kind::T;
    auto zeroRow = Kind::identity();
    zeroRow[1][1] = 0;
    auto rankDeficient = Kind::identity();
    rankDeficient[0] = { T( 1 ), T( 2 ), T( 3 ) };
    rankDeficient[1] = { T( 2 ), T( 4 ), T( 6 ) };
    for ( const auto& rows : { zeroRow, rankDeficient } )
    {
        const TypeParam m = Kind::make( rows );
        EXPECT_TRUE( Kind::isSingular( m ) );
        TypeParam inverse;
        inverse( 0, 1 ) = T( 7 );
        const auto before = Kind::rowsOf( inverse );
        T determinant = T( 42 );
        m.computeInverseAndDeterminant( inverse, determinant );
        EXPECT_EQ( Kind::rowsOf( inverse ), before );
        EXPECT_EQ( determinant, T( 42 ) );
        EXPECT_EQ( m.computeDeterminant(), T( 0 ) );
    }
}

TYPED_TEST( Matrix3, TheDestinationMayBeTheSource )
{
    using Kind = Traits<TypeParam>;
    using T = typename Kind::T;
    Random random( 13 );
    for ( int i = 0; i < 200; ++i )
    {
        TypeParam m = Kind::random( random, 5 );
        TypeParam apart = m; // singular ones stay, and must stay alike
        T determinantApart = 0, determinant = 0;
        m.computeInverseAndDeterminant( apart, determinantApart );
        m.computeInverseAndDeterminant( m, determinant );
        EXPECT_EQ( m, apart );
        EXPECT_EQ( determinant, determinantApart );
    }
}

// A NaN is never chosen as a pivot while a number is left, so some of these are singular and some are not; no answer
// may look sound.
TYPED_TEST( Matrix3, NaNAndInfinityNeverGiveAFiniteInverse )
{
    using Kind = Traits<TypeParam>;
    using T = typename Kind::T;
    Random random( 14 );
    int untouched = 0;
    int spoilt = 0;
    for ( int i = 0; i < 2000; ++i )
    {
        auto rows = ZqTest::randomIntegers<T, Kind::n>( random, 2 );
        rows[std::size_t( random.index( Kind::n ) )][std::size_t( random.index( Kind::n ) )] =
            i % 2 ? ZqTest::nan<T> : ZqTest::infinity<T>;
        const TypeParam m = Kind::make( rows );
        TypeParam inverse;
        T determinant = 42;
        m.computeInverseAndDeterminant( inverse, determinant );
        if ( determinant == 42 )
        {
            EXPECT_EQ( Kind::rowsOf( inverse ), Kind::identity() );
            EXPECT_TRUE( Kind::isSingular( m ) );
            ++untouched;
            continue;
        }
        bool finite = std::isfinite( determinant );
        for ( const auto& row : Kind::rowsOf( inverse ) )
        {
            for ( const T element : row )
                finite = finite && std::isfinite( element );
        }
        EXPECT_FALSE( finite ) << m;
        ++spoilt;
    }
    EXPECT_GT( untouched, 100 );
    EXPECT_GT( spoilt, 100 );

    // a row without a single number counts as zero, also where it would be left as the last pivot
    auto rows = Kind::identity();
    for ( std::size_t i = 2; i < Kind::n; ++i )
        rows[i][i - 1] = T( 1 );
    rows[1].fill( ZqTest::nan<T> );
    EXPECT_TRUE( Kind::isSingular( Kind::make( rows ) ) );

    // a NaN is passed over as pivot, even where nothing but zeros is left
    rows = Kind::identity();
    rows[0] = rows[1];
    rows[Kind::n - 1][0] = ZqTest::nan<T>;
    EXPECT_TRUE( Kind::isSingular( Kind::make( rows ) ) );
}

} // namespace
