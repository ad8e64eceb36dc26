// What all value classes share: comparison and text form.

#include "support/numbers.h"
#include "support/scalars.h"

#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geProjectiveMatrix3.h>

#include <iomanip>
#include <sstream>

using namespace Zq;

namespace
{

ZQ_TWIN_SUITE( ValueClasses );

/// Moves each number of a value by itself. Every comparison must see it, strictly within the tolerance, and a NaN
/// equals nothing. The numbers are small integers, so that the moves are exact; some may be fixed and never looked at.
template <class T, class Value>
void expectComparisonSeesEveryNumber( const Value& start, std::size_t fixedEvery = 1000 )
{
    const auto numbers = ZqTest::numbersOf<T>( start );
    for ( std::size_t i = 0; i < numbers.size(); ++i )
        for ( const T amount : { T( 0 ), T( 0.25 ), T( -0.25 ), T( 0.5 ), ZqTest::nan<T> } )
        {
            auto changed = numbers;
            changed[i] += ( i + 1 ) % fixedEvery == 0 ? T( 0 ) : amount;
            const bool isSame = changed == numbers;
            Value moved = start;
            std::memcpy( static_cast<void*>( &moved ), changed.data(), sizeof moved );
            EXPECT_TRUE( ( moved == start ) == isSame && ( moved != start ) == !isSame ) << i << ' ' << amount;
            EXPECT_EQ( moved.isEqualExact( start ), isSame ) << i << ' ' << amount;
            EXPECT_EQ( moved.isEqual( start, T( 0.5 ) ), isSame || amount < T( 0.5 ) ) << i << ' ' << amount;
            EXPECT_EQ( start.isEqual( moved, T( 0.5 ) ), isSame || amount < T( 0.5 ) ) << i << ' ' << amount;
        }
    EXPECT_FALSE( start.isEqual( start, 0 ) );
}

TYPED_TEST( ValueClasses, ComparisonLooksAtEveryNumber )
{
    using T = TypeParam;
    expectComparisonSeesEveryNumber<T>( Interval<T>( 0, 1 ) );
    expectComparisonSeesEveryNumber<T>( GeVector3<T>( 1, 2, 3 ) );
    expectComparisonSeesEveryNumber<T>( GePoint3<T>( 1, 2, 3 ) );
    expectComparisonSeesEveryNumber<T>( GeUnitVector3<T>( 0, 1, 0 ) );
    expectComparisonSeesEveryNumber<T>( GeHomogeneousCoord3<T>( 1, 2, 3, 4 ) );
    expectComparisonSeesEveryNumber<T>( GeLinearMatrix3<T>() );
    expectComparisonSeesEveryNumber<T>( GeAffineMatrix3<T>(), 4 ); // the bottom row
    expectComparisonSeesEveryNumber<T>( GeProjectiveMatrix3<T>() );
    expectComparisonSeesEveryNumber<T>( GeAlignedBox3<T>( GePoint3<T>( 0, 1, 2 ), GePoint3<T>( 3, 4, 5 ) ) );
    expectComparisonSeesEveryNumber<T>( GePlane3<T>( 1, 2, 3, 4 ) );
    expectComparisonSeesEveryNumber<T>( GeNormalizedPlane3<T>( 0, 1, 0, 4 ) );
    const GeFrustum<T> frustum{ GeProjectiveMatrix3<T>() };
    expectComparisonSeesEveryNumber<T>( frustum );
    EXPECT_TRUE( isEqual( frustum, frustum, T( 1 ) ) && !isEqual( frustum, frustum, T( 0 ) ) );
    EXPECT_EQ( GeVector3<T>( 0, 1, 0 ), GeVector3<T>( T( -0.0 ), 1, 0 ) );
}

/// Marks every flush by a '~'.
class FlushMarkingBuffer : public std::stringbuf
{
    int sync() override { return sputc( '~' ) == '~' ? 0 : -1; }
};

template <class Value>
std::string textOf( const Value& value )
{
    FlushMarkingBuffer buffer;
    std::ostream os( &buffer );
    os << std::fixed << std::setprecision( 1 ) << value << "";
    return buffer.str();
}

TYPED_TEST( ValueClasses, TextFollowsTheStream )
{
    using T = TypeParam;
    const double rows[4][4] = { { 1, 2, 3, 4 }, { 5, 6, 7, 8 }, { 9, 10, 11, 0.5 }, { 0, 0, -1, 0 } };
    EXPECT_EQ( textOf( GeVector3<T>( 1, T( 2.5 ), -3 ) ), "(1.0, 2.5, -3.0)" );
    EXPECT_EQ( textOf( GePoint3<T>( 0, 1, 2 ) ), "(0.0, 1.0, 2.0)" );
    EXPECT_EQ( textOf( GeUnitVector3<T>( 0, 2, 0 ) ), "(0.0, 1.0, 0.0)" );
    EXPECT_EQ( textOf( GeHomogeneousCoord3<T>( 1, 2, 3, T( 0.5 ) ) ), "(1.0, 2.0, 3.0, 0.5)" );
    // a flushed line for each row
    EXPECT_EQ( textOf( GeLinearMatrix3<T>( 1, T( 2.5 ), -3, 0, 1, 0, 0, 0, 1 ) ),
        "| 1.0 2.5 -3.0 |\n~| 0.0 1.0 0.0 |\n~| 0.0 0.0 1.0 |\n~" );
    const std::string upperRows = "| 1.0 2.0 3.0 4.0 |\n~| 5.0 6.0 7.0 8.0 |\n~| 9.0 10.0 11.0 0.5 |\n~";
    EXPECT_EQ( textOf( GeAffineMatrix3<T>( rows, false ) ), upperRows + "| 0.0 0.0 0.0 1.0 |\n~" );
    EXPECT_EQ( textOf( GeProjectiveMatrix3<T>( rows, false ) ), upperRows + "| 0.0 0.0 -1.0 0.0 |\n~" );
    EXPECT_EQ( textOf( GeAlignedBox3<T>( GePoint3<T>( 0, T( -1.5 ), 2 ), GePoint3<T>( 1, 1, 3 ) ) ),
        "( X=[ 0.0, 1.0 ], Y=[ -1.5, 1.0 ], Z=[ 2.0, 3.0 ] )" );
    EXPECT_EQ( textOf( GePlane3<T>( 2, 0, T( -0.5 ), 3 ) ), "[2.0, 0.0, -0.5, 3.0]" );
    EXPECT_EQ( textOf( GeNormalizedPlane3<T>( 2, 0, 0, -2 ) ), "[1.0, 0.0, 0.0, -1.0]" );
    EXPECT_EQ( textOf( GeFrustum<T>( GeProjectiveMatrix3<T>() ) ),
        "\nplane( 0 ) = [1.0, 0.0, 0.0, 1.0]\nplane( 1 ) = [-1.0, 0.0, 0.0, 1.0]\nplane( 2 ) = [0.0, 1.0, 0.0, 1.0]"
        "\nplane( 3 ) = [0.0, -1.0, 0.0, 1.0]\nplane( 4 ) = [0.0, 0.0, 1.0, 1.0]\nplane( 5 ) = [0.0, 0.0, -1.0, 1.0]" );
}

} // namespace
