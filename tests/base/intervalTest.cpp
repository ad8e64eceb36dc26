#include "support/prelude.h"

#include <zq/base/interval.h>

namespace
{

ZQ_TWIN_SUITE( IntervalTwins );

/// The half steps that a range of small integers holds, a bit for each; an open one does not hold its bounds.
template <class T>
unsigned getSteps( const Interval<T>& a, bool isOpen )
{
    unsigned steps = 0;
    for ( T x = -1; x <= 6; x += T( 0.5 ) )
    {
        const bool isWithin = isOpen ? x > a.min && x < a.max : x >= a.min && x <= a.max;
        EXPECT_EQ( isOpen ? a.containsExclude( x ) : a.contains( x ), isWithin );
        steps = 2 * steps + isWithin;
    }
    return steps;
}

ZQ_TWIN_TEST( IntervalTwins, OperationsAgreeWithPointSets )
{
    using I = Interval<T>;
    // with an inverted range in a quarter of the pairs, and points
    for ( int code = 0; code < 5 * 5 * 5 * 5; ++code )
    {
        const I a( T( code % 5 ), T( code / 5 % 5 ) ), b( T( code / 25 % 5 ), T( code / 125 ) );
        const unsigned inA[2] = { getSteps( a, false ), getSteps( a, true ) };
        const unsigned inB[2] = { getSteps( b, false ), getSteps( b, true ) };
        const auto expected = [&]( int open )
        {
            if ( ( inA[open] & ~inB[open] ) == 0 || ( inA[open] & inB[open] ) == 0 )
                return inA[open] & inB[open] ? I::INSIDE : I::OUTSIDE; // equal intervals are inside
            return inB[open] & ~inA[open] ? I::OVERLAP : I::CONTAIN;
        };
        EXPECT_TRUE( a.isEmpty() == ( inA[0] == 0 ) && a.isNotEmpty() == !a.isEmpty() );
        EXPECT_TRUE( a.hasVolume() == ( inA[1] != 0 ) && a.getLength() == a.max - a.min );
        EXPECT_EQ( getSteps( I( a ).intersect( b ), false ), inA[0] & inB[0] );
        if ( a.isEmpty() || b.isEmpty() )
            continue;
        EXPECT_EQ( a.classify( b ), expected( 0 ) ) << code;
        EXPECT_TRUE( a.classifyExclude( b ) == expected( 1 ) || !a.hasVolume() || !b.hasVolume() ) << code;
        EXPECT_EQ( a.contains( b ), ( inB[0] & ~inA[0] ) == 0 );
        EXPECT_EQ( a.containsExclude( b ), a.containsExclude( b.min ) && a.containsExclude( b.max ) );
        const I hull( std::min( a.min, b.min ), std::max( a.max, b.max ) );
        EXPECT_TRUE( I( a ).extend( b ) == hull && a.extended( b.min ).extend( b.max ) == hull );
    }
}

// What the comparisons answer where there are no point sets to compare.
ZQ_TWIN_TEST( IntervalTwins, PointsAsOpenRangesEmptyAndNaN )
{
    using I = Interval<T>;
    const T nan = ZqTest::nan<T>;
    const I unit( 0, 1 ), point( 1, 1 );
    EXPECT_TRUE( point.classifyExclude( { 0, 2 } ) == I::INSIDE && I( 0, 2 ).classifyExclude( point ) == I::CONTAIN );
    for ( const I& other : { point, I( 1, 2 ), I( 2, 3 ) } )
        EXPECT_TRUE( point.classifyExclude( other ) == I::OUTSIDE && other.classifyExclude( point ) == I::OUTSIDE );
    for ( const I& none : { I::makeEmpty(), I( nan, nan ), I( 0, nan ), I( nan, 1 ) } )
    {
        EXPECT_TRUE( none.classify( unit ) == I::OUTSIDE && none.classifyExclude( unit ) == I::OUTSIDE );
        EXPECT_TRUE( unit.classify( none ) == I::OUTSIDE && !none.contains( T( 0.5 ) ) && !none.hasVolume() );
    }
    // a NaN neither grows nor shrinks, and does not make empty
    EXPECT_EQ( I( unit ).extend( nan ).extend( I( nan, nan ) ).intersect( I( nan, nan ) ), unit );
    EXPECT_TRUE( I::makeEmpty().extended( 1 ) == point && I::makeEmpty().extend( unit ) == unit );
    EXPECT_TRUE( I( nan, 1 ).isNotEmpty() && !I( 1, nan ).isEmpty() );
}

} // namespace
