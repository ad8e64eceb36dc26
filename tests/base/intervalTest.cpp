#include "support/prelude.h"

#include <zq/base/interval.h>

namespace
{

ZQ_TWIN_SUITE( IntervalTwins );

// Every pair of intervals with small integer bounds, empty ones and points included, against the half steps that they
// hold: with open ranges the bounds themselves do not count.
ZQ_TWIN_TEST( IntervalTwins, OperationsAgreeWithPointSets )
{
    using I = Interval<T>;
    for ( int code = 0; code < 5 * 5 * 5 * 5; ++code )
    {
        const I a( T( code % 5 ), T( code / 5 % 5 ) ), b( T( code / 25 % 5 ), T( code / 125 ) );
        const I both = I( a ).intersect( b );
        int common[2] = {}, onlyA[2] = {}, onlyB[2] = {};
        for ( T x = -1; x <= 6; x += T( 0.5 ) )
        {
            const bool inA[2] = { x >= a.min && x <= a.max, x > a.min && x < a.max };
            const bool inB[2] = { x >= b.min && x <= b.max, x > b.min && x < b.max };
            EXPECT_TRUE( a.contains( x ) == inA[0] && a.containsExclude( x ) == inA[1] );
            EXPECT_EQ( both.contains( x ), inA[0] && inB[0] );
            for ( int open = 0; open < 2; ++open )
            {
                common[open] += inA[open] && inB[open];
                onlyA[open] += inA[open] && !inB[open];
                onlyB[open] += inB[open] && !inA[open];
            }
        }
        const auto expected = [&]( int open )
        {
            if ( !common[open] )
                return I::OUTSIDE;
            if ( !onlyA[open] )
                return I::INSIDE; // equal intervals too
            return onlyB[open] ? I::OVERLAP : I::CONTAIN;
        };
        EXPECT_EQ( a.isEmpty(), common[0] + onlyA[0] == 0 );
        EXPECT_EQ( a.isNotEmpty(), !a.isEmpty() );
        EXPECT_EQ( a.hasVolume(), common[1] + onlyA[1] > 0 );
        EXPECT_EQ( a.getLength(), a.max - a.min );
        if ( a.isEmpty() || b.isEmpty() )
            continue;
        EXPECT_EQ( a.classify( b ), expected( 0 ) ) << code;
        EXPECT_TRUE( a.classifyExclude( b ) == expected( 1 ) || !a.hasVolume() || !b.hasVolume() ) << code;
        EXPECT_EQ( a.contains( b ), onlyB[0] == 0 );
        EXPECT_EQ( a.containsExclude( b ), a.containsExclude( b.min ) && a.containsExclude( b.max ) );
        const I hull = I( a ).extend( b );
        EXPECT_EQ( hull, a.extended( b.min ).extend( b.max ) );
        EXPECT_TRUE( hull.contains( a ) && hull.contains( b ) && ( a.contains( hull.min ) || b.contains( hull.min ) ) );
        EXPECT_TRUE( a.contains( hull.max ) || b.contains( hull.max ) );
    }
}

// What the comparisons answer where there are no point sets to compare.
ZQ_TWIN_TEST( IntervalTwins, PointsAsOpenRangesEmptyAndNaN )
{
    using I = Interval<T>;
    const T nan = ZqTest::nan<T>, largest = std::numeric_limits<T>::max();
    const I unit( 0, 1 ), point( 1, 1 ), empty = I::makeEmpty();
    EXPECT_EQ( point.classifyExclude( I( 0, 2 ) ), I::INSIDE );
    EXPECT_EQ( I( 0, 2 ).classifyExclude( point ), I::CONTAIN );
    for ( const I& other : { point, I( 1, 2 ), I( 2, 3 ) } )
        EXPECT_TRUE( point.classifyExclude( other ) == I::OUTSIDE && other.classifyExclude( point ) == I::OUTSIDE );
    EXPECT_TRUE(
        empty == I( largest, -largest ) && empty.extended( 3 ) == I( 3, 3 ) && I( unit ).extend( empty ) == unit );
    for ( const I& none : { empty, I( nan, nan ), I( 0, nan ), I( nan, 1 ) } )
    {
        EXPECT_TRUE( none.classify( unit ) == I::OUTSIDE && none.classifyExclude( unit ) == I::OUTSIDE );
        EXPECT_EQ( unit.classify( none ), I::OUTSIDE );
        EXPECT_TRUE( !none.contains( T( 0.5 ) ) && !none.hasVolume() );
    }
    // a NaN neither grows nor shrinks, and does not make empty
    EXPECT_EQ( I( unit ).extend( nan ).extend( I( nan, nan ) ).intersect( I( nan, nan ) ), unit );
    EXPECT_TRUE( I( nan, 1 ).isNotEmpty() && !I( 1, nan ).isEmpty() );
}

} // namespace
