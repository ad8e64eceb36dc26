#include "support/collectingTraceManager.h"
#include "support/random.h"
#include "support/scalars.h"

#include <zq/primitives/geShaft.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

using namespace Zq;
using ZqTest::Random;

namespace
{

using I = Interval<float>;
using Box = GeAlignedBox3<float>;
using Point = GePoint3<float>;
using Vector = GeVector3<float>;
using Real = long double;

std::vector<GePlane3<float>> planesOf( const GeShaft& shaft )
{
    unsigned short nbPlanes = 0;
    const GePlane3<float>* planes = shaft.getPlaneSet( nbPlanes );
    return { planes, planes + nbPlanes };
}

Box randomBox( Random& random, float size )
{
    const Point center = random.point<float>( size );
    const Vector half( random.uniform( 0.1F, 2.0F ), random.uniform( 0.1F, 2.0F ), random.uniform( 0.1F, 2.0F ) );
    return { center - half, center + half };
}

/// A pair of boxes that shares some coordinates, so that every kind of plane set comes up.
void randomPair( Random& random, Box& a, Box& b )
{
    a = randomBox( random, 4 );
    b = randomBox( random, 4 );
    for ( int axis = 0; axis < 3; ++axis )
        if ( random.index( 4 ) == 0 )
            b.setInterval( axis, a.getInterval( axis ) );
}

// Which regions there are -----------------------------------------------------------------------------------------

/// How far a point lies inside (positive) or outside the convex hull of two boxes that is seen along an axis, in the
/// other two coordinates; by the edges of the hull of the eight corners, without a thought for planes of a shaft.
Real depthInProjectedHull( const Box& a, const Box& b, int axis, const Point& p )
{
    const int u = ( axis + 1 ) % 3, v = ( axis + 2 ) % 3;
    std::vector<Point> corners;
    for ( int i = 0; i < 8; ++i )
        corners.insert( corners.end(), { a.getCorner( i ), b.getCorner( i ) } );
    Real depth = 1000;
    for ( const Point& from : corners )
        for ( const Point& to : corners )
        {
            const Real du = Real( to[u] ) - Real( from[u] ), dv = Real( to[v] ) - Real( from[v] );
            const Real length = std::sqrt( du * du + dv * dv );
            if ( length == 0 )
                continue;
            const auto height = [&]( const Point& q )
            { return ( du * ( Real( q[v] ) - Real( from[v] ) ) - dv * ( Real( q[u] ) - Real( from[u] ) ) ) / length; };
            // a line through two corners is an edge when no corner lies on its right
            if ( std::all_of( corners.begin(), corners.end(), [&]( const Point& q ) { return height( q ) > -1e-9L; } ) )
                depth = std::min( depth, height( p ) );
        }
    return depth;
}

TEST( Shaft, HoldsExactlyTheHullOfTheBoxesAsSeenAlongEachAxis )
{
    Random random( 1 );
    int inside = 0, outside = 0;
    for ( int i = 0; i < 300; ++i )
    {
        Box a, b;
        randomPair( random, a, b );
        const GeShaft shaft( a, b );
        for ( int k = 0; k < 40; ++k )
        {
            const Vector size = shaft.getExtentBox().getSize();
            const Point p = shaft.getExtentBox().getCenter() +
                Vector( size.getX() * random.uniform( -0.55F, 0.55F ), size.getY() * random.uniform( -0.55F, 0.55F ),
                    size.getZ() * random.uniform( -0.55F, 0.55F ) );
            Real depth = 1000;
            for ( int axis = 0; axis < 3; ++axis )
                depth = std::min( depth, depthInProjectedHull( shaft.getRefBox1(), shaft.getRefBox2(), axis, p ) );
            if ( std::fabs( depth ) < 1e-4L )
                continue;
            ++( depth > 0 ? inside : outside );
            ASSERT_EQ( shaft.contains( p ), depth > 0 ) << p << '\n' << shaft;
            ASSERT_EQ( shaft.containsExclude( p ), depth > 0 ) << p << '\n' << shaft;
        }
    }
    EXPECT_GT( inside, 2000 );
    EXPECT_GT( outside, 2000 );
}

TEST( Shaft, ContainsTheBoxesAndEverySegmentBetweenThem )
{
    Random random( 2 );
    for ( int i = 0; i < 300; ++i )
    {
        Box a, b;
        randomPair( random, a, b );
        const GeShaft shaft( a, b );
        const auto pointIn = [&]( const Box& box )
        {
            Point p = box.getCorner( random.index( 8 ) ); // often on the boundary
            for ( int axis = 0; axis < 3; ++axis )
                if ( random.index( 2 ) )
                    p[axis] = random.uniform( box.getInterval( axis ).min, box.getInterval( axis ).max );
            return p;
        };
        for ( int k = 0; k < 100; ++k )
        {
            const Point p = pointIn( a ), q = pointIn( b );
            for ( const float t : { 0.0F, 0.25F, 0.5F, 0.9F, 1.0F } )
                ASSERT_TRUE( shaft.contains( p + ( q - p ) * t ) ) << p << q << t << '\n' << shaft;
        }
    }
}

TEST( Shaft, PlanesTouchBothBoxesForEveryOwnershipOfTheSixFaces )
{
    // each lower and upper face of the extent box belongs to box 1, to box 2 or to both
    std::size_t most = 0;
    for ( int code = 0; code < 729; ++code )
    {
        Box boxes[2];
        int owned[2] = {}, sameAxis = 0, digits = code;
        for ( int axis = 0; axis < 3; ++axis )
        {
            I intervals[2] = { { -1, 1 }, { -1, 1 } };
            int ownedHere[2] = {};
            for ( const bool isUpper : { false, true } )
            {
                const int owner = digits % 3;
                digits /= 3;
                if ( owner == 2 )
                    continue;
                ( isUpper ? intervals[owner].max : intervals[owner].min ) *= 4;
                ++ownedHere[owner];
            }
            for ( int k = 0; k < 2; ++k )
            {
                boxes[k].setInterval( axis, intervals[k] );
                owned[k] += ownedHere[k];
            }
            sameAxis += ownedHere[0] * ownedHere[1];
        }
        // flat in no axis, so both are widened by a thousandth of their sizes: make these equal
        const GeShaft shaft( boxes[0], boxes[1] );
        const auto planes = planesOf( shaft );
        most = std::max( most, planes.size() );
        const bool isSameSize = boxes[0].getSize().computeMaxAbs() == boxes[1].getSize().computeMaxAbs();
        if ( isSameSize )
        {
            ASSERT_EQ( planes.size(), std::size_t( owned[0] * owned[1] - sameAxis ) ) << code;
        }
        for ( const GePlane3<float>& plane : planes )
        {
            const Vector n = plane.getNormal();
            EXPECT_EQ( ( n[0] == 0 ) + ( n[1] == 0 ) + ( n[2] == 0 ), 1 ) << plane;
            for ( const Box& box : { shaft.getRefBox1(), shaft.getRefBox2() } )
                EXPECT_NEAR( plane.computeValue( box.getFarCorner( n ) ), 0, 1e-4F ) << plane << box;
        }
    }
    EXPECT_EQ( most, std::size_t( GeShaft::NB_MAX_PLANES ) );
}

// How it is built ------------------------------------------------------------------------------------------------

TEST( Shaft, BoxesAreWidenedAlongTheirFirstFlatAxisOrAllAround )
{
    const float e = 4 * 0.001F;
    struct Case
    {
        const char* what;
        Box box;
        Vector growth;
    };
    for ( const Case& c : std::vector<Case>{
              { "no flat axis", { { 0, 2 }, { 0, -4 }, { 0, 3 } }, { e, e, e } },
              { "flat in x", { { 2, 2 }, { 0, 4 }, { 0, 3 } }, { e, 0, 0 } },
              { "flat in y", { { 0, 2 }, { 1, 1 }, { 0, 4 } }, { 0, e, 0 } },
              { "flat in z", { { 0, 2 }, { 0, 4 }, { 1, 1 } }, { 0, 0, e } },
              { "flat within the tolerance", { { 0, 2 }, { 0, 4 }, { 0, 9e-7F } }, { 0, 0, e } },
              { "flat in x and y", { { 1, 1 }, { 1, 1 }, { 0, 4 } }, { e, 0, 0 } },
              { "flat in y and z", { { 0, 4 }, { 1, 1 }, { 1, 1 } }, { 0, e, 0 } },
              { "a point", { { 1, 1 }, { 2, 2 }, { 3, 3 } }, { 0, 0, 0 } },
          } )
    {
        Box expected = c.box;
        for ( int axis = 0; axis < 3; ++axis )
        {
            const I bounds = c.box.getInterval( axis );
            expected.setInterval( axis, { bounds.min - c.growth[axis], bounds.max + c.growth[axis] } );
        }
        const Box far( { 50, 60 }, { 50, 60 }, { 50, 60 } );
        EXPECT_EQ( GeShaft( c.box, far ).getRefBox1(), expected ) << c.what;
        EXPECT_EQ( GeShaft( far, c.box ).getRefBox2(), expected ) << c.what;
    }
}

TEST( Shaft, NestedEqualAndAlignedBoxesNeedNoPlanes )
{
    const Box unit( { 0, 1 }, { 0, 1 }, { 0, 1 } );
    const GeShaft same( unit, unit );
    EXPECT_TRUE( planesOf( same ).empty() );
    EXPECT_EQ( same.getExtentBox(), same.getRefBox1() );
    const Box around( { -1, 2 }, { -1, 2 }, { -1, 2 } );
    EXPECT_TRUE( planesOf( GeShaft( unit, around ) ).empty() );
    EXPECT_EQ( GeShaft( unit, around ).getExtentBox(), GeShaft( around, unit ).getRefBox1() );
    const GeShaft row( unit, Box( { 3, 4 }, { 0, 1 }, { 0, 1 } ) );
    EXPECT_TRUE( planesOf( row ).empty() );
    EXPECT_EQ( row.getExtentBox(), Box( { -0.001F, 4 + 0.001F }, { -0.001F, 1.001F }, { -0.001F, 1.001F } ) );
    EXPECT_TRUE( row.contains( { 2, 0.5F, 0.5F } ) );
}

TEST( Shaft, FacesWithinAThousandthAreOne )
{
    // flat in z, so that x and y stay as they are
    const Box a( { 0, 1 }, { 0, 1 }, { 0, 0 } );
    const auto extentAndPlanes = [&]( float difference )
    {
        // box 2 is higher up and its x bounds are off by the difference
        const GeShaft shaft( a, Box( { -difference, 1 + difference }, { 3, 4 }, { 0, 0 } ) );
        EXPECT_EQ( shaft.getExtentBox().getInterval( 0 ), I( -difference, 1 + difference ) );
        const GeShaft turned( Box( { -difference, 1 + difference }, { 3, 4 }, { 0, 0 } ), a );
        EXPECT_EQ( turned.getExtentBox().getInterval( 0 ), I( -difference, 1 + difference ) );
        EXPECT_EQ( planesOf( shaft ).size(), planesOf( turned ).size() );
        return planesOf( shaft ).size();
    };
    EXPECT_EQ( extentAndPlanes( 0.0009F ), 0U );
    EXPECT_EQ( extentAndPlanes( 0.0011F ), 2U );
    // strictly: a difference of exactly the tolerance counts
    const GeShaft shaft( a, Box( { 0.001F, 1 }, { 3, 4 }, { 0, 0 } ) );
    EXPECT_EQ( planesOf( shaft ).size(), 1U );
    const GeShaft above( Box( { -1, 0 }, { 0, 1 }, { 0, 0 } ), Box( { -1, 0.001F }, { 3, 4 }, { 0, 0 } ) );
    EXPECT_EQ( planesOf( above ).size(), 1U );
}

// x and y of both boxes are as given; the planes are -2x + 2y - 2 and 2x - 2y - 2 over a square of 3
GeShaft makeDiagonal()
{
    return { Box( { 0, 1 }, { 0, 1 }, { 0, 0 } ), Box( { 2, 3 }, { 2, 3 }, { 0, 0 } ) };
}

TEST( Shaft, PlanesInOrderAndOriented )
{
    const GeShaft shaft = makeDiagonal();
    const auto planes = planesOf( shaft );
    ASSERT_EQ( planes.size(), 2U );
    EXPECT_EQ( planes[0], GePlane3<float>( -2, 2, 0, -2 ) ); // MIN_X with MAX_Y
    EXPECT_EQ( planes[1], GePlane3<float>( 2, -2, 0, -2 ) ); // MIN_Y with MAX_X
    // the boxes of the other diagonal, and turned around
    const Box low( { 2, 3 }, { 0, 1 }, { 0, 0 } ), high( { 0, 1 }, { 2, 3 }, { 0, 0 } );
    const GePlane3<float> lower( -2, -2, 0, 4 ), upper( 2, 2, 0, -8 );
    for ( const GeShaft& other : { GeShaft( low, high ), GeShaft( high, low ) } )
    {
        const auto found = planesOf( other );
        ASSERT_EQ( found.size(), 2U );
        EXPECT_TRUE( std::count( found.begin(), found.end(), lower ) == 1 ) << other;
        EXPECT_TRUE( std::count( found.begin(), found.end(), upper ) == 1 ) << other;
    }
}

// What it answers ------------------------------------------------------------------------------------------------

TEST( Shaft, ConventionsCrossOnTheBoundary )
{
    const GeShaft shaft = makeDiagonal();
    const auto contains = [&]( const Point& p, bool closed, bool open )
    {
        EXPECT_EQ( shaft.contains( p ), closed ) << p;
        EXPECT_EQ( shaft.containsExclude( p ), open ) << p;
    };
    contains( { 1.5F, 1.5F, 0 }, true, true );
    contains( { 1.5F, 2.5F, 0 }, false, true ); // on a plane
    contains( { 1.5F, 0.5F, 0 }, false, true ); // on the other
    contains( { 1.5F, 2.5625F, 0 }, false, false );
    contains( { 0, 0.5F, 0 }, true, false ); // on a face of the extent box
    contains( { 3, 2.5F, 0 }, true, false );
    contains( { 0, 1, 0 }, true, false );   // on the plane, but a corner of box 1
    contains( { 1, 0.5F, 0 }, true, true ); // a face of box 1 inside the shaft
    contains( { -0.5F, 0.5F, 0 }, false, false );
    contains( { ZqTest::nan<float>, 1, 0 }, false, false );

    const auto overlaps = [&]( const char* what, const Box& box, I::Containment closed, I::Containment open )
    {
        EXPECT_EQ( shaft.overlaps( box ), closed ) << what;
        EXPECT_EQ( shaft.overlapsExclude( box ), open ) << what;
    };
    const I z( -0.0005F, 0.0005F );
    overlaps( "beyond a plane", { { 1, 1.5F }, { 2.75F, 3 }, z }, I::OUTSIDE, I::OUTSIDE );
    overlaps( "touches a plane from outside", { { 1, 1.5F }, { 2.5F, 2.75F }, z }, I::OUTSIDE, I::OVERLAP );
    overlaps( "a line in a plane", { { 1.5F, 1.5F }, { 2.5F, 2.5F }, z }, I::OUTSIDE, I::INSIDE );
    overlaps( "touches a plane from inside", { { 1.5F, 1.75F }, { 2.25F, 2.5F }, z }, I::OVERLAP, I::INSIDE );
    overlaps( "touches the other from inside", { { 1.5F, 1.75F }, { 0.75F, 1 }, z }, I::OVERLAP, I::INSIDE );
    overlaps( "in between", { { 1.25F, 1.75F }, { 1.25F, 1.75F }, z }, I::INSIDE, I::INSIDE );
    overlaps( "across a plane", { { 1.25F, 1.75F }, { 2, 2.75F }, z }, I::OVERLAP, I::OVERLAP );
    overlaps( "inside box 1", { { 0.25F, 0.75F }, { 0.25F, 0.75F }, z }, I::INSIDE, I::INSIDE );
    overlaps( "inside box 2", { { 2.25F, 2.75F }, { 2.25F, 2.75F }, z }, I::INSIDE, I::INSIDE );
    overlaps( "across box 1", { { 0.5F, 1.25F }, { 0.5F, 0.75F }, z }, I::OVERLAP, I::OVERLAP );
    overlaps( "touches box 1", { { 1, 1.25F }, { 0.5F, 0.75F }, z }, I::OVERLAP, I::INSIDE );
    overlaps( "sticks out of the extent", { { 1.25F, 1.75F }, { 1.25F, 1.75F }, { 0, 1 } }, I::OVERLAP, I::OVERLAP );
    overlaps( "sticks out, beyond a plane", { { 0.5F, 1 }, { 2.25F, 9 }, z }, I::OUTSIDE, I::OUTSIDE );
    overlaps( "touches the extent", { { 3, 4 }, { 2, 3 }, z }, I::OVERLAP, I::OUTSIDE );
    overlaps( "apart", { { 4, 5 }, { 2, 3 }, z }, I::OUTSIDE, I::OUTSIDE );
    overlaps( "around the extent", { { -1, 4 }, { -1, 4 }, { -1, 1 } }, I::CONTAIN, I::CONTAIN );
    overlaps( "the extent itself", shaft.getExtentBox(), I::CONTAIN, I::CONTAIN );
    overlaps( "around, sharing faces", { { 0, 3 }, { 0, 4 }, { -1, 1 } }, I::CONTAIN, I::CONTAIN );
    overlaps( "NaN", { { 1, 2 }, { ZqTest::nan<float>, 2 }, z }, I::OUTSIDE, I::OUTSIDE );
}

TEST( Shaft, BoxAnswersAgreeWithTheCornersOfEachBox )
{
    Random random( 3 );
    int seen[4] = {}, late = 0;
    for ( int i = 0; i < 30000; ++i )
    {
        Box a, b;
        randomPair( random, a, b );
        const GeShaft shaft( a, b );
        Box box = randomBox( random, 5 );
        if ( i % 100 == 0 ) // one that holds everything, and nearly so
            box = Box( Point( -9, -9, -9 ), Point( 9, 9, random.uniform( 2.0F, 9.0F ) ) );
        // the corners against every half space, in long double: inside, outside or undecided by a margin
        const Box& extent = shaft.getExtentBox();
        bool isBeyond = false, isWithin = true, isClose = false;
        int crossed = 0;
        const auto halfSpace = [&]( const Vector& n, Real d )
        {
            Real lowest = 1000, highest = -1000;
            for ( int k = 0; k < 8; ++k )
            {
                const Point c = box.getCorner( k );
                const Real value =
                    Real( n[0] ) * Real( c[0] ) + Real( n[1] ) * Real( c[1] ) + Real( n[2] ) * Real( c[2] ) + d;
                lowest = std::min( lowest, value );
                highest = std::max( highest, value );
            }
            isClose = isClose || std::fabs( lowest ) < 1e-3L || std::fabs( highest ) < 1e-3L;
            late += lowest > 0 && crossed > 0 && !isBeyond;
            isBeyond = isBeyond || lowest > 0;
            isWithin = isWithin && highest < 0;
            crossed += lowest < 0 && highest > 0;
        };
        for ( int axis = 0; axis < 3; ++axis )
        {
            Vector n;
            n[axis] = 1;
            halfSpace( n, -Real( extent.getInterval( axis ).max ) );
            halfSpace( -n, Real( extent.getInterval( axis ).min ) );
        }
        crossed = 0;
        for ( const GePlane3<float>& plane : planesOf( shaft ) )
            halfSpace( plane.getNormal(), plane.getOffset() );
        if ( isClose )
            continue;
        const Box &ref1 = shaft.getRefBox1(), &ref2 = shaft.getRefBox2();
        const bool cuts1 = ref1.classify( box ) != I::OUTSIDE && !ref1.contains( box );
        const bool cuts2 = ref2.classify( box ) != I::OUTSIDE && !ref2.contains( box );
        const auto expected = isBeyond     ? I::OUTSIDE
            : box.contains( extent )       ? I::CONTAIN
            : ref1.contains( box )         ? I::INSIDE // whatever box 2 is to it
            : isWithin && !cuts1 && !cuts2 ? I::INSIDE
                                           : I::OVERLAP;
        ++seen[expected];
        ASSERT_EQ( shaft.overlaps( box ), expected ) << box << '\n' << shaft;
        ASSERT_EQ( shaft.overlapsExclude( box ), expected ) << box << '\n' << shaft;
        // and by points of the box: what is outside holds none of the shaft, what is inside nothing else
        for ( int k = 0; k < 4; ++k )
        {
            const Vector size = box.getSize();
            const Point p = box.getCorner( 0 ) +
                Vector( size[0] * random.uniform( 0.0F, 1.0F ), size[1] * random.uniform( 0.0F, 1.0F ),
                    size[2] * random.uniform( 0.0F, 1.0F ) );
            if ( expected == I::OUTSIDE || expected == I::INSIDE )
            {
                ASSERT_EQ( shaft.contains( p ), expected == I::INSIDE ) << p << '\n' << shaft;
            }
        }
    }
    for ( const int count : seen )
        EXPECT_GT( count, 20 );
    EXPECT_GT( late, 20 ); // put outside by a plane after another one was crossed
}

// State, comparison, text ----------------------------------------------------------------------------------------

TEST( Shaft, UninitialisedIsEmptyAndInitialisingReplacesEverything )
{
    GeShaft shaft;
    const Box everything( { -9, 9 }, { -9, 9 }, { -9, 9 } );
    EXPECT_TRUE( shaft.getRefBox1().isEmpty() && shaft.getRefBox2().isEmpty() && shaft.getExtentBox().isEmpty() );
    EXPECT_TRUE( planesOf( shaft ).empty() );
    EXPECT_FALSE( shaft.contains( Point() ) || shaft.containsExclude( Point() ) );
    EXPECT_EQ( shaft.overlaps( everything ), I::OUTSIDE );
    EXPECT_EQ( shaft.overlapsExclude( everything ), I::OUTSIDE );
    std::ostringstream os;
    os << shaft;
    EXPECT_EQ( os.str(), "Uninitialized shaft\n" );

    shaft.initialize( Box( { -5, 5 }, { -1, 1 }, { -1, 1 } ), Box( { -1, 1 }, { -5, 5 }, { -5, 5 } ) );
    EXPECT_EQ( planesOf( shaft ).size(), 8U );
    const GeShaft copy = shaft;
    const GeShaft diagonal = makeDiagonal();
    shaft.initialize( Box( { 0, 1 }, { 0, 1 }, { 0, 0 } ), Box( { 2, 3 }, { 2, 3 }, { 0, 0 } ) );
    EXPECT_TRUE( shaft == diagonal && copy != diagonal );
    EXPECT_EQ( planesOf( copy ).size(), 8U );
    // the slots beyond the number of planes do not count
    EXPECT_TRUE( shaft.isEqualExact( diagonal ) && shaft.isEqual( diagonal, 1e-6F ) );
}

TEST( Shaft, ComparisonLooksAtBoxesAndPlanes )
{
    const GeShaft shaft = makeDiagonal();
    for ( int bound = 0; bound < 12; ++bound )
    {
        Box boxes[2] = { { { 0, 1 }, { 0, 1 }, { 0, 0 } }, { { 2, 3 }, { 2, 3 }, { 0, 0 } } };
        Box& box = boxes[bound / 6];
        I interval = box.getInterval( bound % 3 );
        ( bound / 3 % 2 ? interval.max : interval.min ) += 0.01F;
        box.setInterval( bound % 3, interval );
        const GeShaft other( boxes[0], boxes[1] );
        EXPECT_TRUE( shaft != other && !( shaft == other ) ) << bound;
        EXPECT_FALSE( isEqual( shaft, other, 0.005F ) ) << bound;
        // a bound that moves by 0.01 moves the offset of a plane by up to six times as much
        if ( bound % 3 != 2 )
        {
            EXPECT_TRUE( isEqual( shaft, other, 0.1F ) ) << bound << '\n' << other;
        }
    }
    // far from the origin the boxes are within a tolerance, but the offsets of the planes are not
    const Box box( { 100, 101 }, { 0, 1 }, { 0, 0 } );
    const GeShaft distant( box, Box( { 102, 103 }, { 2, 3 }, { 0, 0 } ) );
    EXPECT_FALSE( distant.isEqual( GeShaft( box, Box( { 102, 103 }, { 2.5F, 3.5F }, { 0, 0 } ) ), 0.75F ) );
    // everything within the tolerance but the number of planes
    EXPECT_FALSE( distant.isEqual( GeShaft( box, Box( { 102, 103 }, { 0, 1 }, { 0, 0 } ) ), 500 ) );
}

TEST( Shaft, TextFormFollowsTheStream )
{
    const Box flat( { 0, 1 }, { 0, 1 }, { 0, 0 } );
    std::ostringstream os;
    os << std::setprecision( 2 ) << makeDiagonal() << GeShaft( flat, flat );
    EXPECT_EQ( os.str(),
        "Ref.box 1=( X=[ 0, 1 ], Y=[ 0, 1 ], Z=[ -0.001, 0.001 ] )\n"
        "Ref.box 2=( X=[ 2, 3 ], Y=[ 2, 3 ], Z=[ -0.001, 0.001 ] )\n"
        "Extent box=( X=[ 0, 3 ], Y=[ 0, 3 ], Z=[ -0.001, 0.001 ] )\n"
        "Plane set=\n"
        " [-2, 2, 0, -2]\n"
        " [2, -2, 0, -2]\n"
        "Ref.box 1=( X=[ 0, 1 ], Y=[ 0, 1 ], Z=[ -0.001, 0.001 ] )\n"
        "Ref.box 2=( X=[ 0, 1 ], Y=[ 0, 1 ], Z=[ -0.001, 0.001 ] )\n"
        "Extent box=( X=[ 0, 1 ], Y=[ 0, 1 ], Z=[ -0.001, 0.001 ] )\n"
        "Plane set=\n" );
}

TEST( Shaft, TraceTellsFacesThenPlanes )
{
    ZqTest::CollectingTraceManager traces;
    TraceLevel* level = Trace::findLevel( "GeShaft" );
    ASSERT_NE( level, nullptr );
    makeDiagonal();
    EXPECT_TRUE( traces.messages.empty() );
    level->setEnabled( true );
    // the second plane has to be turned: the point is told before, the plane after
    const GeShaft shaft( Box( { 2, 3 }, { 0, 1 }, { 0, 0 } ), Box( { 0, 1 }, { 2, 3 }, { 0, 0 } ) );
    level->setEnabled( false );
    std::vector<std::string> texts;
    for ( const std::string& message : traces.messages )
    {
        EXPECT_EQ( message.rfind( "src/primitives/geShaft:", 0 ), 0U ) << message;
        EXPECT_EQ( message.back(), '\n' );
        const std::size_t begin = message.find( ": " ) + 2;
        texts.push_back( message.substr( begin, message.size() - begin - 1 ) );
    }
    const std::vector<std::string> expected{ "", "1 MIN_X =0", "1 MIN_Y =1", "1 MIN_Z =0", "1 MAX_X =1", "1 MAX_Y =0",
        "1 MAX_Z =0", "", "2 MIN_X =1", "2 MIN_Y =0", "2 MIN_Z =0", "2 MAX_X =0", "2 MAX_Y =1", "2 MAX_Z =0",
        "( X=[ 0, 3 ], Y=[ 0, 3 ], Z=[ -0.001, 0.001 ] )", "", "point=(2, 0, 0)",
        "Adding plane [-2, -2, -0, 4] to plane set.", "point=(3, 1, 0)", "Adding plane [2, 2, -0, -8] to plane set." };
    EXPECT_EQ( texts, expected );
}

} // namespace
