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
        const unsigned inA = getSteps( a, false ), inB = getSteps( b, false );
        const unsigned openA = getSteps( a, true ), openB = getSteps( b, true );
        const auto compare = []( unsigned x, unsigned y ) // equal intervals are inside
        {
            if ( ( x & ~y ) == 0 || ( x & y ) == 0 )
                return x & y ? I::INSIDE : I::OUTSIDE;
            return y & ~x ? I::OVERLAP : I::CONTAIN;
        };
        EXPECT_EQ( a.isEmpty(), inA == 0 );
        EXPECT_EQ( a.isNotEmpty(), !a.isEmpty() );
        EXPECT_EQ( a.hasVolume(), openA != 0 );
        EXPECT_EQ( a.getLength(), a.max - a.min );
        EXPECT_EQ( getSteps( I( a ).intersect( b ), false ), inA & inB );
        if ( a.isEmpty() || b.isEmpty() )
            continue;
        EXPECT_EQ( a.classify( b ), compare( inA, inB ) ) << code;
        EXPECT_TRUE( a.classifyExclude( b ) == compare( openA, openB ) || !a.hasVolume() || !b.hasVolume() ) << code;
        EXPECT_EQ( a.contains( b ), ( inB & ~inA ) == 0 );
        EXPECT_EQ( a.containsExclude( b ), a.containsExclude( b.min ) && a.containsExclude( b.max ) );
        const I hull( std::min( a.min, b.min ), std::max( a.max, b.max ) );
        EXPECT_EQ( I( a ).extend( b ), hull );
        EXPECT_EQ( a.extended( b.min ).extend( b.max ), hull );
    }
}

// What the comparisons answer where there are no point sets to compare.
ZQ_TWIN_TEST( IntervalTwins, PointsAsOpenRangesEmptyAndNaN )
{
    using I = Interval<T>;
    const T nan = ZqTest::nan<T>;
    const I unit( 0, 1 ), point( 1, 1 );
    EXPECT_EQ( point.classifyExclude( { 0, 2 } ), I::INSIDE );
    EXPECT_EQ( I( 0, 2 ).classifyExclude( point ), I::CONTAIN );
    EXPECT_EQ( point.classifyExclude( point ), I::OUTSIDE );
    EXPECT_EQ( point.classifyExclude( { 1, 2 } ), I::OUTSIDE );
    for ( const I& none : { I::makeEmpty(), I( 0, nan ), I( nan, 1 ) } )
    {
        EXPECT_EQ( none.classify( unit ), I::OUTSIDE );
        EXPECT_EQ( none.classifyExclude( unit ), I::OUTSIDE );
        EXPECT_EQ( unit.classify( none ), I::OUTSIDE );
        EXPECT_FALSE( none.contains( T( 0.5 ) ) );
        EXPECT_FALSE( none.hasVolume() );
    }
    // a NaN neither grows nor shrinks, and does not make empty
    EXPECT_EQ( I( unit ).extend( nan ).extend( I( nan, nan ) ).intersect( I( nan, nan ) ), unit );
    EXPECT_EQ( I::makeEmpty().extended( 1 ), point );
    EXPECT_EQ( I::makeEmpty().extend( unit ), unit );
    EXPECT_TRUE( I( nan, 1 ).isNotEmpty() );
    EXPECT_FALSE( I( 1, nan ).isEmpty() );
}

} // namespace
