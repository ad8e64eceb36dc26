#include "support/scalars.h"

#include <zq/base/interval.h>

#include <vector>

using namespace Zq;

namespace
{

ZQ_TWIN_SUITE( IntervalTwins );

template <class T>
using Containment = typename Interval<T>::Containment;

/// What two proper intervals of small integers are to each other, found by looking at every half step instead of
/// comparing bounds. With open ranges only the inner half steps count.
template <class T>
Containment<T> classifyBySteps( const Interval<T>& a, const Interval<T>& b, bool open )
{
    bool common = false;
    bool onlyA = false;
    bool onlyB = false;
    for ( T x = -1; x <= 6; x += T( 0.5 ) )
    {
        const bool inA = open ? a.containsExclude( x ) : a.contains( x );
        const bool inB = open ? b.containsExclude( x ) : b.contains( x );
        common = common || ( inA && inB );
        onlyA = onlyA || ( inA && !inB );
        onlyB = onlyB || ( inB && !inA );
    }
    if ( !common )
        return Interval<T>::OUTSIDE;
    if ( !onlyA )
        return Interval<T>::INSIDE; // equal intervals too
    return onlyB ? Interval<T>::OVERLAP : Interval<T>::CONTAIN;
}

TYPED_TEST( IntervalTwins, ClassificationAgreesWithPointSets )
{
    using T = TypeParam;
    for ( int code = 0; code < 6 * 6 * 6 * 6; ++code )
    {
        const Interval<T> a( T( code % 6 ), T( code / 6 % 6 ) );
        const Interval<T> b( T( code / 36 % 6 ), T( code / 216 ) );
        if ( !a.hasVolume() || !b.hasVolume() )
            continue;
        EXPECT_EQ( a.classify( b ), classifyBySteps( a, b, false ) ) << a.min << a.max << b.min << b.max;
        EXPECT_EQ( a.classifyExclude( b ), classifyBySteps( a, b, true ) ) << a.min << a.max << b.min << b.max;
    }
}

TYPED_TEST( IntervalTwins, SinglePointsFollowTheComparisonBits )
{
    using T = TypeParam;
    using I = Interval<T>;
    const I point( 1, 1 );
    struct Case
    {
        I a, b;
        Containment<T> closed, open;
    };
    const T nan = ZqTest::nan<T>;
    for ( const Case& c : std::vector<Case>{
              { point, I( 0, 2 ), I::INSIDE, I::INSIDE },
              { I( 0, 2 ), point, I::CONTAIN, I::CONTAIN },
              { point, point, I::INSIDE, I::OUTSIDE },
              { point, I( 1, 2 ), I::INSIDE, I::OUTSIDE },
              { I( 1, 2 ), point, I::CONTAIN, I::OUTSIDE },
              { point, I( 2, 3 ), I::OUTSIDE, I::OUTSIDE },
              { I::makeEmpty(), I( 0, 1 ), I::OUTSIDE, I::OUTSIDE },
              { I( 0, 1 ), I::makeEmpty(), I::OUTSIDE, I::OUTSIDE },
              { I( nan, nan ), I( 0, 1 ), I::OUTSIDE, I::OUTSIDE },
              { I( 0, nan ), I( 0, 1 ), I::OUTSIDE, I::OUTSIDE },
              { I( nan, 1 ), I( 0, 1 ), I::OUTSIDE, I::OUTSIDE },
          } )
    {
        EXPECT_EQ( c.a.classify( c.b ), c.closed ) << c.a.min << ' ' << c.a.max << ' ' << c.b.min << ' ' << c.b.max;
        EXPECT_EQ( c.a.classifyExclude( c.b ), c.open )
            << c.a.min << ' ' << c.a.max << ' ' << c.b.min << ' ' << c.b.max;
    }
}

TYPED_TEST( IntervalTwins, BoundariesCountOnlyWithoutExclude )
{
    using T = TypeParam;
    const Interval<T> a( 0, 2 );
    EXPECT_TRUE( a.contains( T( 0 ) ) && a.contains( T( 2 ) ) && !a.contains( T( 2.5 ) ) && !a.contains( T( -1 ) ) );
    EXPECT_TRUE( !a.containsExclude( T( 0 ) ) && !a.containsExclude( T( 2 ) ) && a.containsExclude( T( 1 ) ) );
    EXPECT_TRUE( a.contains( a ) && !a.containsExclude( a ) );
    EXPECT_TRUE( a.containsExclude( Interval<T>( T( 0.5 ), T( 1.5 ) ) ) );
    EXPECT_FALSE( a.containsExclude( Interval<T>( 0, 1 ) ) || a.containsExclude( Interval<T>( 1, 2 ) ) );
    EXPECT_FALSE( a.contains( Interval<T>( -1, 1 ) ) || a.contains( Interval<T>( 1, 3 ) ) );
}

TYPED_TEST( IntervalTwins, GrowingAndShrinking )
{
    using T = TypeParam;
    const Interval<T> empty = Interval<T>::makeEmpty();
    EXPECT_EQ( empty.extended( 3 ), Interval<T>( 3, 3 ) );
    EXPECT_EQ( Interval<T>( 0, 1 ).extend( empty ), Interval<T>( 0, 1 ) );
    EXPECT_EQ( Interval<T>( 0, 1 ).extend( T( -2 ) ).extend( T( 5 ) ), Interval<T>( -2, 5 ) );
    EXPECT_EQ( Interval<T>( 0, 1 ).extend( Interval<T>( T( 0.5 ), 4 ) ), Interval<T>( 0, 4 ) );
    EXPECT_EQ( Interval<T>( 0, 3 ).intersect( Interval<T>( 1, 5 ) ), Interval<T>( 1, 3 ) );
    EXPECT_TRUE( Interval<T>( 0, 1 ).intersect( Interval<T>( 2, 3 ) ).isEmpty() );
    // a NaN neither grows nor shrinks
    const T nan = ZqTest::nan<T>;
    EXPECT_EQ( Interval<T>( 0, 1 ).extend( nan ), Interval<T>( 0, 1 ) );
    EXPECT_EQ( Interval<T>( 0, 1 ).intersect( Interval<T>( nan, nan ) ), Interval<T>( 0, 1 ) );
}

TYPED_TEST( IntervalTwins, EmptinessVolumeAndNaN )
{
    using T = TypeParam;
    const T nan = ZqTest::nan<T>;
    struct Case
    {
        Interval<T> interval;
        bool isEmpty, hasVolume;
    };
    for ( const Case& c : { Case{ { 0, 1 }, false, true }, Case{ { 1, 1 }, false, false },
              Case{ { 2, 1 }, true, false }, Case{ { nan, 1 }, false, false }, Case{ { 1, nan }, false, false } } )
    {
        EXPECT_EQ( c.interval.isEmpty(), c.isEmpty );
        EXPECT_EQ( c.interval.isNotEmpty(), !c.isEmpty );
        EXPECT_EQ( c.interval.hasVolume(), c.hasVolume );
    }
    EXPECT_EQ( Interval<T>( 2, 5 ).getLength(), T( 3 ) );
    EXPECT_TRUE( Interval<T>( 0, 1 ).isEqual( Interval<T>( T( 0.25 ), T( 1.25 ) ), T( 0.5 ) ) );
    EXPECT_FALSE( Interval<T>( 0, 1 ).isEqual( Interval<T>( T( 0.5 ), 1 ), T( 0.5 ) ) );
    EXPECT_FALSE( Interval<T>( 0, 1 ).isEqual( Interval<T>( 0, T( 1.5 ) ), T( 0.5 ) ) );
    EXPECT_FALSE( Interval<T>( 0, 1 ) != Interval<T>( T( -0.0 ), 1 ) );
    EXPECT_TRUE( Interval<T>( 0, 1 ) != Interval<T>( 0, 2 ) && Interval<T>( 0, 1 ) != Interval<T>( 1, 1 ) );
}

} // namespace
