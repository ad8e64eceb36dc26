#include "support/random.h"
#include "support/scalars.h"

#include <zq/primitives/geAlignedBoxBuilder.h>

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <vector>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( AlignedBox );

template <class T>
using Containment = typename Interval<T>::Containment;

template <class T>
GeAlignedBox3<T> randomBox( Random& random, T size )
{
    const GePoint3<T> p = random.point<T>( size );
    return { p, random.point<T>( size ) };
}

/// Collects the corners it is shown, up to a number of them.
template <class T>
struct Collector : UnaryFunctor<GePoint3<T>, bool>
{
    explicit Collector( std::size_t count ) : wanted( count ) {}
    bool operator()( const GePoint3<T>& point ) override
    {
        points.push_back( point );
        return points.size() < wanted;
    }

    std::size_t wanted;
    std::vector<GePoint3<T>> points;
};

template <class T>
std::vector<GePoint3<T>> cornersOf( const GeAlignedBox3<T>& box )
{
    std::vector<GePoint3<T>> corners;
    for ( int i = 0; i < 8; ++i )
        corners.push_back( box.getCorner( i ) );
    return corners;
}

TYPED_TEST( AlignedBox, HoldsWhatItWasMadeFromAndNothingElse )
{
    using T = TypeParam;
    using Box = GeAlignedBox3<T>;
    Random random( 1 );
    for ( int i = 0; i < 500; ++i )
    {
        const GePoint3<T> p = random.point<T>( 9 ), q = random.point<T>( 9 ), r = random.point<T>( 9 );
        const Box box( p, q );
        EXPECT_EQ( box, Box( q, p ) );
        EXPECT_EQ( Box( p ).extend( q ), box );
        EXPECT_EQ( Box().extend( p ).extend( q ), box );
        EXPECT_EQ( Box().extend( box ), box );
        EXPECT_EQ( Box( box ).extend( Box() ), box );
        Box grown = box;
        grown.extend( r );
        EXPECT_EQ( grown, Box( box ).extend( Box( r ) ) );
        EXPECT_TRUE( grown.contains( box ) && grown.contains( r ) && grown.contains( p ) && grown.contains( q ) );
        EXPECT_EQ( grown == box, box.contains( r ) );
        // as small as can be: each bound is the coordinate of a point
        for ( int axis = 0; axis < 3; ++axis )
        {
            EXPECT_EQ( grown.getInterval( axis ).min, std::min( { p[axis], q[axis], r[axis] } ) );
            EXPECT_EQ( grown.getInterval( axis ).max, std::max( { p[axis], q[axis], r[axis] } ) );
        }
    }
}

TYPED_TEST( AlignedBox, EmptyMeansEveryAxisInverted )
{
    using T = TypeParam;
    using I = Interval<T>;
    const T largest = std::numeric_limits<T>::max();
    const GeAlignedBox3<T> empty;
    EXPECT_TRUE( empty.isEmpty() );
    EXPECT_EQ( empty.getInterval( 1 ), I( largest, -largest ) );
    EXPECT_FALSE( empty.contains( GePoint3<T>() ) );
    for ( int inverted = 0; inverted < 8; ++inverted )
    {
        GeAlignedBox3<T> box( I( 0, 1 ), I( 0, 1 ), I( 0, 1 ) );
        for ( int axis = 0; axis < 3; ++axis )
            if ( inverted >> axis & 1 )
                box.setInterval( axis, I( 1, 0 ) );
        EXPECT_EQ( box.isEmpty(), inverted == 7 ) << inverted;
        EXPECT_EQ( box.contains( GePoint3<T>( T( 0.5 ), T( 0.5 ), T( 0.5 ) ) ), inverted == 0 ) << inverted;
    }
}

TYPED_TEST( AlignedBox, Measures )
{
    using T = TypeParam;
    const GeAlignedBox3<T> box( GePoint3<T>( 1, 2, 3 ), GePoint3<T>( 3, 5, 11 ) );
    EXPECT_EQ( box.getCenter(), GePoint3<T>( 2, T( 3.5 ), 7 ) );
    EXPECT_EQ( box.getSize(), GeVector3<T>( 2, 3, 8 ) );
    EXPECT_EQ( box.getVolume(), T( 48 ) );
    // (z y) x: in another order this product overflows or vanishes
    const T big = std::sqrt( std::numeric_limits<T>::max() ) * 2;
    const GeAlignedBox3<T> plate( GePoint3<T>(), GePoint3<T>( big, big, 1 / big ) );
    EXPECT_TRUE( std::isfinite( plate.getVolume() ) );
    EXPECT_EQ(
        ( GeAlignedBox3<T>( GePoint3<T>(), GePoint3<T>( 1 / big, big, big ) ).getVolume() ), ZqTest::infinity<T> );
}

TYPED_TEST( AlignedBox, CornersAreVisitedInGrayCodeOrder )
{
    using T = TypeParam;
    const GeAlignedBox3<T> box( GePoint3<T>( 1, 2, 3 ), GePoint3<T>( 4, 5, 6 ) );
    const int order[8] = { 0, 1, 3, 7, 5, 4, 6, 2 };
    for ( std::size_t wanted = 1; wanted <= 9; ++wanted )
    {
        Collector<T> collector( wanted );
        box.enumerateCorners( collector );
        ASSERT_EQ( collector.points.size(), std::min<std::size_t>( wanted, 8 ) );
        for ( std::size_t i = 0; i < collector.points.size(); ++i )
            EXPECT_EQ( collector.points[i], box.getCorner( order[i] ) ) << i;
    }
    EXPECT_EQ( box.getCorner( 1 ), GePoint3<T>( 4, 2, 3 ) );
    EXPECT_EQ( box.getCorner( 2 ), GePoint3<T>( 1, 5, 3 ) );
    EXPECT_EQ( box.getCorner( 4 ), GePoint3<T>( 1, 2, 6 ) );
}

TYPED_TEST( AlignedBox, NearAndFarCornersAreTheExtremesAlongANormal )
{
    using T = TypeParam;
    const GeAlignedBox3<T> box( GePoint3<T>( -1, 2, -3 ), GePoint3<T>( 4, 5, 6 ) );
    for ( int code = 0; code < 27; ++code )
    {
        const GeVector3<T> n( T( code % 3 - 1 ), T( code / 3 % 3 - 1 ), T( code / 9 - 1 ) );
        const GePoint3<T> nearCorner = box.getNearCorner( n ), farCorner = box.getFarCorner( n );
        for ( const GePoint3<T>& corner : cornersOf( box ) )
        {
            EXPECT_LE( n.dot( GeVector3<T>( nearCorner ) ), n.dot( GeVector3<T>( corner ) ) ) << n;
            EXPECT_GE( n.dot( GeVector3<T>( farCorner ) ), n.dot( GeVector3<T>( corner ) ) ) << n;
        }
        for ( int axis = 0; axis < 3; ++axis )
        {
            if ( n[axis] != 0 )
                continue;
            EXPECT_EQ( nearCorner[axis], box.getInterval( axis ).min ) << n;
            EXPECT_EQ( farCorner[axis], box.getInterval( axis ).min ) << n;
        }
    }
}

// The thirteen ways in which two proper intervals can lie, seen from [2, 5].
template <class T>
std::vector<Interval<T>> thirteenRelations()
{
    return { { 6, 7 }, { 5, 7 }, { 4, 6 }, { 2, 6 }, { 1, 6 }, { 1, 5 }, { 2, 5 }, { 0, 1 }, { 0, 2 }, { 1, 3 },
        { 2, 4 }, { 3, 4 }, { 3, 5 } };
}

/// Looks at every point of a half-step grid instead of comparing bounds.
template <class T>
Containment<T> classifyByPoints( const GeAlignedBox3<T>& a, const GeAlignedBox3<T>& b, bool open )
{
    bool common = false, onlyA = false, onlyB = false;
    for ( int i = 0; i < 17 * 17 * 17; ++i )
    {
        const GePoint3<T> p( T( i % 17 ) / 2 - T( 0.5 ), T( i / 17 % 17 ) / 2 - T( 0.5 ), T( i / 289 ) / 2 - T( 0.5 ) );
        const bool inA = open ? a.containsExclude( p ) : a.contains( p );
        const bool inB = open ? b.containsExclude( p ) : b.contains( p );
        common = common || ( inA && inB );
        onlyA = onlyA || ( inA && !inB );
        onlyB = onlyB || ( inB && !inA );
    }
    if ( !common )
        return Interval<T>::OUTSIDE;
    if ( !onlyA )
        return Interval<T>::INSIDE;
    // an axis on which both are equal counts as inside, so that the axes disagree
    bool hasEqualAxis = false;
    for ( int axis = 0; axis < 3; ++axis )
        hasEqualAxis = hasEqualAxis || a.getInterval( axis ) == b.getInterval( axis );
    return onlyB || hasEqualAxis ? Interval<T>::OVERLAP : Interval<T>::CONTAIN;
}

TYPED_TEST( AlignedBox, ClassificationAgreesWithPointSetsForAllRelationsOfTheAxes )
{
    using T = TypeParam;
    const Interval<T> unit( 2, 5 );
    const GeAlignedBox3<T> a( unit, unit, unit );
    const auto relations = thirteenRelations<T>();
    int seen[4] = {};
    for ( const Interval<T>& x : relations )
        for ( const Interval<T>& y : relations )
            for ( const Interval<T>& z : relations )
            {
                const GeAlignedBox3<T> b( x, y, z );
                const Containment<T> closed = a.classify( b );
                ++seen[closed];
                ASSERT_EQ( closed, classifyByPoints( a, b, false ) ) << b;
                ASSERT_EQ( a.classifyExclude( b ), classifyByPoints( a, b, true ) ) << b;
                ASSERT_EQ( closed == Interval<T>::OUTSIDE, b.classify( a ) == Interval<T>::OUTSIDE ) << b;
            }
    EXPECT_TRUE( seen[0] && seen[1] && seen[2] && seen[3] );
}

TYPED_TEST( AlignedBox, ClassificationOfTouchingFlatEmptyAndNaNBoxes )
{
    using T = TypeParam;
    using I = Interval<T>;
    using Box = GeAlignedBox3<T>;
    const Box unit( I( 0, 1 ), I( 0, 1 ), I( 0, 1 ) );
    const T nan = ZqTest::nan<T>;
    struct Case
    {
        const char* what;
        Box a, b;
        Containment<T> closed, open;
    };
    for ( const Case& c :
        std::vector<Case>{
            { "shares a face", unit, Box( I( 1, 2 ), I( 0, 1 ), I( 0, 1 ) ), I::OVERLAP, I::OUTSIDE },
            { "shares a corner", unit, Box( I( 1, 2 ), I( 1, 2 ), I( 1, 2 ) ), I::OVERLAP, I::OUTSIDE },
            { "equal", unit, unit, I::INSIDE, I::INSIDE },
            { "point inside", Box( GePoint3<T>( T( 0.5 ), T( 0.5 ), T( 0.5 ) ) ), unit, I::INSIDE, I::INSIDE },
            { "point on a face", Box( GePoint3<T>( 1, T( 0.5 ), T( 0.5 ) ) ), unit, I::INSIDE, I::OUTSIDE },
            { "holds a point on a face", unit, Box( GePoint3<T>( 1, T( 0.5 ), T( 0.5 ) ) ), I::CONTAIN, I::OUTSIDE },
            { "flat, crossing", Box( I( -1, 2 ), I( -1, 2 ), I( T( 0.5 ), T( 0.5 ) ) ), unit, I::OVERLAP, I::OVERLAP },
            { "empty", Box(), unit, I::OUTSIDE, I::OUTSIDE },
            { "against empty", unit, Box(), I::OUTSIDE, I::OUTSIDE },
            { "NaN", Box( I( 0, 1 ), I( nan, nan ), I( 0, 1 ) ), unit, I::OUTSIDE, I::OUTSIDE },
            { "against NaN", unit, Box( I( 0, 1 ), I( 0, 1 ), I( 0, nan ) ), I::OUTSIDE, I::OUTSIDE },
        } )
    {
        EXPECT_EQ( c.a.classify( c.b ), c.closed ) << c.what;
        EXPECT_EQ( c.a.classifyExclude( c.b ), c.open ) << c.what;
    }
}

TYPED_TEST( AlignedBox, ContainmentOnTheBoundaryPerAxis )
{
    using T = TypeParam;
    using I = Interval<T>;
    const GeAlignedBox3<T> box( I( 0, 2 ), I( 0, 2 ), I( 0, 2 ) );
    for ( int axis = 0; axis < 3; ++axis )
        for ( const T x : { T( -1 ), T( 0 ), T( 1 ), T( 2 ), T( 3 ), ZqTest::nan<T> } )
        {
            GePoint3<T> p( 1, 1, 1 );
            p[axis] = x;
            EXPECT_EQ( box.contains( p ), x >= 0 && x <= 2 );
            EXPECT_EQ( box.containsExclude( p ), x > 0 && x < 2 );
            GeAlignedBox3<T> lower( I( T( 0.5 ), 1 ), I( T( 0.5 ), 1 ), I( T( 0.5 ), 1 ) ), upper = lower;
            lower.setInterval( axis, I( x, T( 1.5 ) ) );
            upper.setInterval( axis, I( T( 0.5 ), x ) );
            EXPECT_EQ( box.contains( lower ), x >= 0 );
            EXPECT_EQ( box.containsExclude( lower ), x > 0 );
            EXPECT_EQ( box.contains( upper ), x <= 2 );
            EXPECT_EQ( box.containsExclude( upper ), x < 2 );
        }
}

TYPED_TEST( AlignedBox, DistanceVectorsReachTheNearestAndTheFarthestPoint )
{
    using T = TypeParam;
    // small integers, so that every distance is exact
    Random random( 2 );
    for ( int i = 0; i < 4000; ++i )
    {
        const auto integers = [&]( int count ) {
            return GePoint3<T>{ T( random.index( count ) ), T( random.index( count ) ), T( random.index( count ) ) };
        };
        const GePoint3<T> lower = integers( 7 ), p = integers( 20 ) - GeVector3<T>( 4, 4, 4 );
        const GeAlignedBox3<T> box( lower, lower + GeVector3<T>( integers( 7 ) ) );
        GeVector3<T> minDist, maxDist;
        box.computeMinMaxDistanceVectors( p, minDist, maxDist );
        EXPECT_TRUE( box.contains( p + minDist ) && box.contains( p + maxDist ) );
        T nearest = 1000, farthest = 0;
        for ( T x = box.getInterval( 0 ).min; x <= box.getInterval( 0 ).max; ++x )
            for ( T y = box.getInterval( 1 ).min; y <= box.getInterval( 1 ).max; ++y )
                for ( T z = box.getInterval( 2 ).min; z <= box.getInterval( 2 ).max; ++z )
                {
                    const T distance = ( GePoint3<T>( x, y, z ) - p ).lengthSquared();
                    nearest = std::min( nearest, distance );
                    farthest = std::max( farthest, distance );
                }
        EXPECT_EQ( minDist.lengthSquared(), nearest );
        EXPECT_EQ( maxDist.lengthSquared(), farthest );
    }
    // equally far: the upper bound; on a bound: that bound is the near one
    const GeAlignedBox3<T> box( GePoint3<T>( -1, -2, -3 ), GePoint3<T>( 1, 2, 3 ) );
    GeVector3<T> minDist, maxDist;
    box.computeMinMaxDistanceVectors( GePoint3<T>(), minDist, maxDist );
    EXPECT_EQ( minDist, GeVector3<T>() );
    EXPECT_EQ( maxDist, GeVector3<T>( 1, 2, 3 ) );
    box.computeMinMaxDistanceVectors( GePoint3<T>( 1, -2, 0 ), minDist, maxDist );
    EXPECT_EQ( minDist, GeVector3<T>() );
    EXPECT_EQ( maxDist, GeVector3<T>( -2, 4, 3 ) );
    box.computeMinMaxDistanceVectors( GePoint3<T>( ZqTest::nan<T>, 9, 0 ), minDist, maxDist );
    EXPECT_EQ( minDist, GeVector3<T>( 0, -7, 0 ) );
    EXPECT_TRUE( std::isnan( maxDist.getX() ) );
    EXPECT_EQ( maxDist.getY(), T( -11 ) );
}

/// The part of a line inside a box, grown by a margin, in long double: between which of the six crossings lies a
/// point that is inside? Empty when none is.
template <class T>
Interval<double> clipByCrossings(
    const GeAlignedBox3<T>& box, const GePoint3<T>& origin, const GeVector3<T>& direction, long double margin )
{
    using R = long double;
    std::vector<R> crossings;
    for ( int axis = 0; axis < 3; ++axis )
    {
        crossings.push_back( ( R( box.getInterval( axis ).min ) - margin - R( origin[axis] ) ) / R( direction[axis] ) );
        crossings.push_back( ( R( box.getInterval( axis ).max ) + margin - R( origin[axis] ) ) / R( direction[axis] ) );
    }
    std::sort( crossings.begin(), crossings.end() );
    for ( std::size_t i = 0; i + 1 < crossings.size(); ++i )
    {
        const R middle = ( crossings[i] + crossings[i + 1] ) / 2;
        bool isInside = true;
        for ( int axis = 0; axis < 3; ++axis )
        {
            const R x = R( origin[axis] ) + middle * R( direction[axis] );
            isInside = isInside && x > R( box.getInterval( axis ).min ) - margin &&
                x < R( box.getInterval( axis ).max ) + margin;
        }
        if ( isInside )
            return { static_cast<double>( crossings[i] ), static_cast<double>( crossings[i + 1] ) };
    }
    return Interval<double>::makeEmpty();
}

TYPED_TEST( AlignedBox, LinesAreClippedAsByBruteForce )
{
    using T = TypeParam;
    Random random( 3 );
    int hits = 0, misses = 0;
    for ( int i = 0; i < 20000; ++i )
    {
        const GeAlignedBox3<T> box = randomBox<T>( random, 4 );
        const GePoint3<T> origin = random.point<T>( 10 );
        const GeVector3<T> direction =
            ( box.getCenter() - origin ) * random.uniform<T>( T( -0.2 ), 1 ) + random.vector<T>( 2 );
        const Interval<T> range = box.intersectLine( origin, direction );
        const Interval<double> expected = clipByCrossings( box, origin, direction, 0 );
        if ( !clipByCrossings( box, origin, direction, -1e-4L ).isEmpty() && !expected.isEmpty() )
        {
            ++hits;
            const double bound = 4 * double( ZqTest::epsilon<T> );
            EXPECT_NEAR( double( range.min ), expected.min, bound * std::fabs( expected.min ) );
            EXPECT_NEAR( double( range.max ), expected.max, bound * std::fabs( expected.max ) );
        }
        else if ( clipByCrossings( box, origin, direction, 1e-4L ).isEmpty() )
        {
            ++misses;
            EXPECT_TRUE( range.isEmpty() );
        }
    }
    EXPECT_GT( hits, 3000 );
    EXPECT_GT( misses, 3000 );
}

TYPED_TEST( AlignedBox, LinesAlongTheAxesAndMisses )
{
    using T = TypeParam;
    using I = Interval<T>;
    const GeAlignedBox3<T> box( GePoint3<T>( 0, 0, 0 ), GePoint3<T>( 1, 1, 1 ) );
    const T half = T( 0.5 ), largest = std::numeric_limits<T>::max(), nan = ZqTest::nan<T>;
    struct Case
    {
        const char* what;
        GePoint3<T> origin;
        GeVector3<T> direction;
        I expected;
    };
    for ( const Case& c : std::vector<Case>{
              { "through, backwards too", { half, half, 3 }, { 0, 0, 2 }, { T( -1.5 ), -1 } },
              { "against the axis", { half, half, 3 }, { 0, 0, -2 }, { 1, T( 1.5 ) } },
              { "on a face", { 1, half, 3 }, { 0, 0, -1 }, { 2, 3 } },
              { "on the opposite edge", { 0, 0, 3 }, { 0, T( -0.0 ), -1 }, { 2, 3 } },
              { "beyond a face", { T( 1.25 ), half, 3 }, { 0, 0, -1 }, I::makeEmpty() },
              { "below a face", { half, T( -0.25 ), 3 }, { 0, 0, -1 }, I::makeEmpty() },
              { "no direction, inside", { half, half, half }, { 0, 0, 0 }, { -largest, largest } },
              { "no direction, outside", { half, half, 2 }, { 0, 0, 0 }, I::makeEmpty() },
              { "touches a corner", { 2, 0, half }, { -1, 1, 0 }, { 1, 1 } },
              // y misses already; z still narrows the range from below
              { "misses, all axes count", { -1, 5, -48 }, { 1, -1, 8 }, { 6, 2 } },
              { "NaN origin sets no limit", { half, nan, 3 }, { 0, 0, -1 }, { 2, 3 } },
              { "NaN direction sets no limit", { half, half, 3 }, { 0, nan, -1 }, { 2, 3 } },
          } )
        EXPECT_EQ( box.intersectLine( c.origin, c.direction ), c.expected ) << c.what;
}

TYPED_TEST( AlignedBox, ComparisonLooksAtEveryBound )
{
    using T = TypeParam;
    const GeAlignedBox3<T> box( GePoint3<T>( 0, 0, 0 ), GePoint3<T>( 4, 4, 4 ) );
    for ( int bound = 0; bound < 6; ++bound )
        for ( const T change : { T( 0.25 ), T( 0.5 ), ZqTest::nan<T> } )
        {
            Interval<T> interval = box.getInterval( bound / 2 );
            ( bound % 2 ? interval.max : interval.min ) += change;
            GeAlignedBox3<T> other = box;
            other.setInterval( bound / 2, interval );
            EXPECT_TRUE( box != other && !( box == other ) && !box.isEqualExact( other ) );
            EXPECT_EQ( box.isEqual( other, T( 0.5 ) ), change < T( 0.5 ) );
        }
    EXPECT_TRUE( box == box && !box.isEqual( box, 0 ) );
}

TYPED_TEST( AlignedBox, TextFormFollowsTheStream )
{
    using T = TypeParam;
    const GeAlignedBox3<T> box( GePoint3<T>( 0, T( -1.5 ), 2 ), GePoint3<T>( 1, 1, 3 ) );
    std::ostringstream os;
    os << box << std::fixed << std::setprecision( 1 ) << box;
    EXPECT_EQ(
        os.str(), "( X=[ 0, 1 ], Y=[ -1.5, 1 ], Z=[ 2, 3 ] )( X=[ 0.0, 1.0 ], Y=[ -1.5, 1.0 ], Z=[ 2.0, 3.0 ] )" );
}

TEST( AlignedBoxBuilder, GrowsFromAnySourceOfPoints )
{
    Random random( 4 );
    GeAlignedBoxBuilder builder;
    EXPECT_EQ( builder.getBox(), GeAlignedBox3<float>() );
    const auto a = randomBox<float>( random, 5 ), b = randomBox<float>( random, 5 );
    a.enumerateCorners( builder );
    EXPECT_EQ( builder.getBox(), a );

    const GeAlignedBoxBuilder copy = builder;
    UnaryFunctor<GePoint3<float>, bool>& functor = builder;
    for ( const GePoint3<float>& corner : cornersOf( b ) )
        EXPECT_TRUE( functor( corner ) );
    EXPECT_EQ( builder.getBox(), GeAlignedBox3<float>( a ).extend( b ) );
    EXPECT_EQ( copy.getBox(), a );

    EXPECT_TRUE( builder( GePoint3<float>( ZqTest::nan<float>, ZqTest::nan<float>, 0 ) ) );
    EXPECT_TRUE( builder.getBox().contains( b ) );
    builder.reset();
    EXPECT_TRUE( builder.getBox().isEmpty() );
}

} // namespace
