// Matrices, scales, translations and rotations with each other: a product leaves out what is known to be zero or one, and
// equals that of the full matrices: of small integers, where every product is exact, and of any numbers, where both round
// alike. Which pair makes which class is a table in docs/conventions.md.

#include "support/matrixReference.h"
#include "support/prelude.h"

#include <zq/primitives/geXAxisRotation3.h>
#include <zq/primitives/geYAxisRotation3.h>
#include <zq/primitives/geZAxisRotation3.h>

#include <fstream>

using ZqTest::randomIntegers;

namespace
{

ZQ_TWIN_SUITE( Products );

struct Integers
{
    template <class Matrix>
    static Matrix make( Random& random )
    {
        return randomIntegers<Matrix>( random, 20 );
    }
};

/// Numbers of many sizes, zeros of both signs among them.
struct Numbers
{
    template <class Matrix>
    static Matrix make( Random& random )
    {
        using T = typename ZqTest::ScalarOf<Matrix>::Type;
        auto m = randomIntegers<Matrix>( random, 2 ); // 1 in 5 is 0
        ZqTest::forEachPlace<ZqTest::rowCount<Matrix>, ZqTest::columnCount<Matrix>>(
            [&]( int r, int c ) { m( r, c ) *= std::ldexp( random.uniform<T>( -1, 1 ), random.index( 20 ) - 10 ); } );
        return m;
    }
};

/// The factors of one run.
template <class T>
struct Factors
{
    template <class Kind = Integers>
    explicit Factors( Random& random, Kind = {} )
        : l( Kind::template make<GeLinearMatrix3<T>>( random ) ),
          k( Kind::template make<GeLinearMatrix3<T>>( random ) ),
          a( Kind::template make<GeAffineMatrix3<T>>( random ) ),
          b( Kind::template make<GeAffineMatrix3<T>>( random ) ),
          p( Kind::template make<GeProjectiveMatrix3<T>>( random ) ),
          q( Kind::template make<GeProjectiveMatrix3<T>>( random ) )
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
        return ZqTest::toRows<T, 4>( Projective( m ) );
    else
        return ZqTest::toRows<T, 4>( Projective( m * GeLinearMatrix3<T>() ) );
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

/// Calls f( left, right ) for every pair of transforms, and of a transform and what it can act on.
template <class T, class F>
void forEachPair( const Factors<T>& f, const F& call )
{
    const GeXAxisRotation3<T> x( f.k( 0, 0 ), f.k( 0, 1 ) );
    const GeYAxisRotation3<T> y( f.k( 1, 0 ), f.k( 1, 1 ) );
    const GeZAxisRotation3<T> z( f.k( 2, 0 ), f.k( 2, 1 ) );
    const GeHomogeneousCoord3<T> h( f.q( 0, 0 ), f.q( 1, 0 ), f.q( 2, 0 ), f.q( 3, 0 ) );
    const GeUnitVector3<T> u( f.k( 0, 2 ) * f.k( 0, 2 ) + 1, f.k( 1, 2 ), f.k( 2, 2 ) );
    const auto callAll = [&]( const auto& left, const auto&... right ) { ( call( left, right ), ... ); };
    const auto callLeft = [&]( const auto&... left )
    { ( callAll( left, f.t, f.s, x, y, z, f.r, f.l, f.a, f.p, f.point, f.v, u, h ), ... ); };
    callLeft( f.t, f.s, x, y, z, f.other, f.k, f.b, f.q );
}

template <class T>
using Column = std::array<T, 4>;
template <class T>
Column<T> expandColumn( const GePoint3<T>& p )
{
    return { p[0], p[1], p[2], 1 };
}
template <class T>
Column<T> expandColumn( const GeVector3<T>& v )
{
    return { v[0], v[1], v[2], 0 };
}
template <class T>
Column<T> expandColumn( const GeUnitVector3<T>& v )
{
    return { v[0], v[1], v[2], 0 };
}
template <class T>
Column<T> expandColumn( const GeHomogeneousCoord3<T>& h )
{
    return { h.getX(), h.getY(), h.getZ(), h.getW() };
}
template <class Value, class = void>
inline constexpr bool isColumn = false;
template <class Value>
inline constexpr bool isColumn<Value, std::void_t<decltype( expandColumn( std::declval<Value>() ) )>> = true;

ZQ_TWIN_TEST( Products, OfAllPairsRoundAsTheFullMatricesDo )
{
    Random random( 43 );
    for ( const auto i : random.runs( 300 ) )
    {
        const Factors<T> f( random, Numbers() );
        const auto compare = []( const auto& left, const auto& right )
        {
            const auto rows = expand<T>( left );
            if constexpr ( isColumn<std::decay_t<decltype( right )>> )
            {
                const Column<T> operand = expandColumn( right );
                Column<T> expected{};
                ZqTest::forEachPlace<4>(
                    [&]( int r, int c ) { expected[std::size_t( r )] += rows( r, c ) * operand[std::size_t( c )]; } );
                EXPECT_EQ( expandColumn( left * right ), expected );
            }
            else
                EXPECT_EQ( expand<T>( left * right ), multiply( rows, expand<T>( right ) ) );
        };
        forEachPair( f, compare );
        EXPECT_EQ(
            ZqTest::numbersOf<T>( GeAffineMatrix3<T>( f.t, f.r, f.s ) ), ZqTest::numbersOf<T>( f.t * f.r * f.s ) );
        EXPECT_EQ( expand<T>( f.s.getMatrix() ), expand<T>( f.s ) );
        EXPECT_EQ( expand<T>( f.t.getMatrix() ), expand<T>( f.t ) );
        EXPECT_EQ( expand<T>( GeScale3<T>( f.s ) *= f.s ), multiply( expand<T>( f.s ), expand<T>( f.s ) ) );
        EXPECT_EQ( GeTranslation3<T>( f.t ) *= f.t, f.t * f.t );
        EXPECT_EQ( GeProjectiveMatrix3<T>( f.p ) *= f.l, f.p * f.l );
    }
}

/// The letter of a class in the table of the document.
template <class T, class Value>
std::string letterOf()
{
    const std::pair<bool, const char*> letters[] = { { std::is_same_v<Value, GeTranslation3<T>>, "T" },
        { std::is_same_v<Value, GeScale3<T>>, "S" }, { std::is_base_of_v<GeAxisRotation3<0, T>, Value>, "X" },
        { std::is_base_of_v<GeAxisRotation3<1, T>, Value>, "Y" },
        { std::is_base_of_v<GeAxisRotation3<2, T>, Value>, "Z" }, { std::is_same_v<Value, GeRotation3<T>>, "R" },
        { std::is_same_v<Value, GeLinearMatrix3<T>>, "L" }, { std::is_same_v<Value, GeAffineMatrix3<T>>, "A" },
        { std::is_same_v<Value, GeProjectiveMatrix3<T>>, "P" }, { std::is_same_v<Value, GePoint3<T>>, "p" },
        { std::is_same_v<Value, GeVector3<T>>, "v" }, { std::is_same_v<Value, GeUnitVector3<T>>, "u" },
        { std::is_same_v<Value, GeHomogeneousCoord3<T>>, "h" } };
    const auto* const found =
        std::find_if( std::begin( letters ), std::end( letters ), []( const auto& letter ) { return letter.first; } );
    return found == std::end( letters ) ? "?" : found->second;
}

ZQ_TWIN_TEST( Products, HaveTheClassesThatTheirTableStates )
{
    std::string table, left;
    Random random( 44 );
    const auto tell = [&]( const auto& a, const auto& b )
    {
        const std::string row = letterOf<T, std::decay_t<decltype( a )>>();
        table += ( row == left ? "" : ( table.empty() ? "| **" : "\n| **" ) + row + "** |" );
        left = row;
        table += " " + letterOf<T, std::decay_t<decltype( a * b )>>() + " |";
    };
    forEachPair( Factors<T>( random ), tell );
    std::stringstream page;
    page << std::ifstream( ZQ_DOCS_DIR "/conventions.md" ).rdbuf();
    EXPECT_NE( page.str().find( "\n" + table + "\n" ), std::string::npos ) << table;
}

// A direction that is turned stays one, however often, and even by what is a rotation only nearly.
ZQ_TWIN_TEST( Products, TurnedDirectionsStayDirections )
{
    const GeRotation3<T> r = GeRotation3<T>::makeRotation( { 1, 2, 3 }, T( 0.1 ) );
    const GeXAxisRotation3<T> x( T( 0.75 ), T( 0.75 ) );
    GeUnitVector3<T> u( 3, 0, 4 );
    Random random( 45 );
    for ( const auto i : random.runs( 1000 ) )
    {
        EXPECT_CLOSE( r * u, r.turn( u ), 4 * epsilon<T> );
        EXPECT_CLOSE( ( x * u ).computeUnit(), x.turn( u ), 4 * epsilon<T> );
        u = x.turn( r.turn( u ) );
        EXPECT_NEAR( u.length(), 1, 2 * epsilon<T> );
    }
    EXPECT_REPORT( r.turn( {} ), "src/primitives/geVector3.inline", "len > 0" );
    EXPECT_REPORT( x.turn( {} ), "src/primitives/geVector3.inline", "len > 0" );
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
    GeProjectiveMatrix3<T> bottom, right;
    bottom( 3, 1 ) = right( 1, 3 ) = ZqTest::infinity<T>;
    EXPECT_EQ( linear * bottom, bottom );
    EXPECT_EQ( right * linear, right );
    const GeScale3<T> s( t.getVector() );
    EXPECT_EQ( s * s, s );
    EXPECT_EQ( ( s * GeTranslation3<T>( 1, 1, 1 ) ).getTranslation(), t.getVector() );
}

} // namespace
