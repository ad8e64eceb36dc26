#include "support/prelude.h"

#include <zq/primitives/geAlignedBoxBuilder.h>

namespace
{

ZQ_TWIN_SUITE( AlignedBox );

/// Collects the corners of its box, up to a number of them, and spoils the box meanwhile.
template <class T>
struct Collector final : UnaryFunctor<GePoint3<T>, bool>
{
    bool operator()( const GePoint3<T>& point ) override
    {
        points.push_back( point );
        box.extend( GePoint3<T>() + GeVector3<T>( point ) * T( 2 ) );
        return points.size() < wanted;
    }

    GeAlignedBox3<T> box;
    std::size_t wanted = 0;
    std::vector<GePoint3<T>> points;
};

ZQ_TWIN_TEST( AlignedBox, HoldsItsPointsAndReachesFromTheNearestToTheFarthest )
{
    using Box = GeAlignedBox3<T>;
    Random random( 1 );
    GeVector3<T> nearest, farthest;
    for ( const auto i : random.runs( 1000 ) )
    {
        const GePoint3<T> p = random.point<T>( 9 ), q = random.point<T>( 9 ), r = random.point<T>( 9 );
        const GePoint3<T> from = random.point<T>( 12 );
        const Box box = Box( p, q ).extend( r );
        EXPECT_EQ( Box( r ).extend( Box( q, p ) ).extend( Box() ), box );
        box.computeMinMaxDistanceVectors( from, nearest, farthest );
        for ( int axis = 0; axis < 3; ++axis )
        {
            const auto [lower, upper] = std::minmax( { p[axis], q[axis], r[axis] } );
            const T toLower = lower - from[axis], toUpper = upper - from[axis];
            EXPECT_EQ( box.getInterval( axis ), Interval<T>( lower, upper ) );
            EXPECT_EQ( nearest[axis], std::clamp( T( 0 ), toLower, toUpper ) );
            EXPECT_EQ( farthest[axis], std::fabs( toLower ) > std::fabs( toUpper ) ? toLower : toUpper );
        }
    }
    // equally far: the upper bound; NaN counts as between
    const Box box( GePoint3<T>( -1, -2, -3 ), GePoint3<T>( 1, 2, 3 ) );
    box.computeMinMaxDistanceVectors( GePoint3<T>( ZqTest::nan<T>, 9, 0 ), nearest, farthest );
    EXPECT_EQ( nearest, GeVector3<T>( 0, -7, 0 ) );
    EXPECT_TRUE( std::isnan( farthest[0] ) );
    EXPECT_EQ( farthest[1], T( -11 ) );
    EXPECT_EQ( farthest[2], T( 3 ) );
}

ZQ_TWIN_TEST( AlignedBox, MeasuresAndCorners )
{
    using Point = GePoint3<T>;
    const GeAlignedBox3<T> box( Point( 1, 2, 3 ), Point( 3, 5, 11 ) );
    EXPECT_EQ( box.getCenter(), Point( 2, T( 3.5 ), 7 ) );
    EXPECT_EQ( box.getSize(), GeVector3<T>( 2, 3, 8 ) );
    EXPECT_EQ( box.getVolume(), T( 48 ) );
    // x is the lowest bit of a corner's number; in the enumeration, which goes by the box as it was, each differs from
    // the one before on one axis
    std::vector<Point> corners;
    for ( const int i : { 0, 1, 3, 7, 5, 4, 6, 2 } )
    {
        corners.emplace_back( T( i & 1 ? 3 : 1 ), T( i & 2 ? 5 : 2 ), T( i & 4 ? 11 : 3 ) );
        EXPECT_EQ( box.getCorner( i ), corners.back() );
        Collector<T> collector;
        collector.box = box;
        collector.wanted = corners.size();
        collector.box.enumerateCorners( collector );
        EXPECT_EQ( collector.points, corners );
    }
}

ZQ_TWIN_TEST( AlignedBox, NearAndFarCornersAreTheExtremesAlongANormal )
{
    const GeAlignedBox3<T> box( GePoint3<T>( -1, 2, -3 ), GePoint3<T>( 4, 5, 6 ) );
    for ( int code = 0; code < 27; ++code )
    {
        const GeVector3<T> n( T( code % 3 - 1 ), T( code / 3 % 3 - 1 ), T( code / 9 - 1 ) );
        const GePoint3<T> nearCorner = box.getNearCorner( n ), farCorner = box.getFarCorner( n );
        for ( int axis = 0; axis < 3; ++axis )
        {
            // a zero component takes the lower bound at both corners
            const Interval<T> bounds = box.getInterval( axis );
            EXPECT_EQ( nearCorner[axis], n[axis] < 0 ? bounds.max : bounds.min ) << n;
            EXPECT_EQ( farCorner[axis], n[axis] > 0 ? bounds.max : bounds.min ) << n;
        }
    }
}

// Every way in which three intervals can lie to those of a cube; what one interval is to another is tested by itself.
ZQ_TWIN_TEST( AlignedBox, AnswersCombineThoseOfTheAxes )
{
    using I = Interval<T>;
    const I intervals[] = { { 1, 2 }, { 0, 2 }, { 2, 2 }, { 4, 4 }, { 0, 4 }, { -1, 5 }, { 2, 5 }, { 4, 5 }, { 5, 6 },
        { ZqTest::nan<T>, 2 }, I::makeEmpty() };
    const I side( 0, 4 );
    const GeAlignedBox3<T> cube( side, side, side );
    const auto combine = []( const std::array<typename I::Containment, 3>& axes )
    {
        if ( std::count( axes.begin(), axes.end(), I::OUTSIDE ) > 0 )
            return I::OUTSIDE;
        return axes[0] == axes[1] && axes[1] == axes[2] ? axes[0] : I::OVERLAP;
    };
    for ( const I& x : intervals )
        for ( const I& y : intervals )
            for ( const I& z : intervals )
            {
                const GeAlignedBox3<T> box( x, y, z );
                const GePoint3<T> p( x.min, y.max, z.min );
                EXPECT_EQ(
                    cube.classify( box ), combine( { side.classify( x ), side.classify( y ), side.classify( z ) } ) );
                EXPECT_EQ( cube.classifyExclude( box ),
                    combine( { side.classifyExclude( x ), side.classifyExclude( y ), side.classifyExclude( z ) } ) );
                EXPECT_EQ( cube.contains( box ), side.contains( x ) && side.contains( y ) && side.contains( z ) );
                EXPECT_EQ( cube.containsExclude( box ),
                    side.containsExclude( x ) && side.containsExclude( y ) && side.containsExclude( z ) );
                EXPECT_EQ( cube.contains( p ), cube.contains( GeAlignedBox3<T>( p ) ) );
                EXPECT_EQ( cube.containsExclude( p ), cube.containsExclude( GeAlignedBox3<T>( p ) ) );
            }
}

TEST( AlignedBoxBuilder, GrowsFromAnySourceOfPoints )
{
    using Point = GePoint3<float>;
    const GeAlignedBox3<float> box( Point( 1, 2, 3 ), Point( 4, 5, 6 ) );
    GeAlignedBoxBuilder builder;
    box.enumerateCorners( builder );
    EXPECT_EQ( builder.getBox(), box );
    EXPECT_TRUE( builder( Point( 9, 0, ZqTest::nan<float> ) ) );
    EXPECT_EQ( builder.getBox(), GeAlignedBox3<float>( Point( 1, 0, 3 ), Point( 9, 5, 6 ) ) );
    builder.reset();
    EXPECT_EQ( builder.getBox(), GeAlignedBox3<float>() );
}

} // namespace
