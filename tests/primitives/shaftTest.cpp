#include "support/collectingTraceManager.h"
#include "support/prelude.h"

#include <zq/primitives/geShaft.h>
#include <zq/primitives/geVector2.h>

namespace
{

using I = Interval<float>;
using Box = GeAlignedBox3<float>;
using Point = GePoint3<float>;
using Vector = GeVector3<float>;

std::vector<GePlane3<float>> planesOf( const GeShaft& shaft )
{
    unsigned short nbPlanes = 0;
    const GePlane3<float>* planes = shaft.getPlaneSet( nbPlanes );
    return { planes, planes + nbPlanes };
}

Box randomBox( Random& random, float size )
{
    const Point center = random.point<float>( size );
    const Vector half{ random.uniform( 0.1F, 2.0F ), random.uniform( 0.1F, 2.0F ), random.uniform( 0.1F, 2.0F ) };
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

/// In the box and around it by a share of its size; one coordinate in three on the boundary.
Point randomPointIn( Random& random, const Box& box, float around )
{
    Point p = box.getCorner( random.index( 8 ) );
    for ( int axis = 0; axis < 3; ++axis )
        if ( random.index( 3 ) )
            p[axis] =
                box.getCenter()[axis] + box.getSize()[axis] * random.uniform( -0.4999F - around, 0.4999F + around );
    return p;
}

// Which regions there are -----------------------------------------------------------------------------------------

/// How far a point lies inside (positive) or outside the convex hull of two boxes that is seen along an axis, in the
/// other two coordinates; by the edges of the hull of the eight corners, without a thought for planes of a shaft.
double depthInProjectedHull( const Box& a, const Box& b, int axis, const Point& p )
{
    using Flat = GeVector2<double>;
    const auto flatten = [axis]( const Point& q ) { return Flat( q[( axis + 1 ) % 3], q[( axis + 2 ) % 3] ); };
    std::vector<Flat> corners;
    for ( int i = 0; i < 8; ++i )
        corners.insert( corners.end(), { flatten( a.getCorner( i ) ), flatten( b.getCorner( i ) ) } );
    double depth = 1000;
    for ( const Flat& from : corners )
        for ( const Flat& to : corners )
        {
            const auto height = [&]( const Flat& q ) { return ( to - from ).computeUnit().cross( q - from ); };
            // a line through two corners is an edge when no corner lies on its right
            if ( from != to &&
                std::all_of( corners.begin(), corners.end(), [&]( const Flat& q ) { return height( q ) > -1e-9; } ) )
                depth = std::min( depth, height( flatten( p ) ) );
        }
    return depth;
}

TEST( Shaft, HoldsExactlyTheHullOfTheBoxesAsSeenAlongEachAxis )
{
    Random random( 1 );
    int inside = 0, outside = 0;
    for ( int i = 0; i < 600; ++i )
    {
        Box a, b;
        randomPair( random, a, b );
        const GeShaft shaft( a, b );
        const Box &ref1 = shaft.getRefBox1(), &ref2 = shaft.getRefBox2();
        for ( int k = 0; k < 40; ++k )
        {
            const Point p = randomPointIn( random, shaft.getExtentBox(), 0.05F );
            double depth = 1000;
            for ( int axis = 0; axis < 3; ++axis )
                depth = std::min( depth, depthInProjectedHull( ref1, ref2, axis, p ) );
            if ( std::fabs( depth ) < 1e-3 ) // faces that are closer count as one
                continue;
            ++( depth > 0 ? inside : outside );
            ASSERT_EQ( shaft.contains( p ), depth > 0 ) << p << '\n' << shaft;
            ASSERT_EQ( shaft.containsExclude( p ), depth > 0 ) << p << '\n' << shaft;
        }
        // and every segment between the boxes, often from boundary to boundary
        for ( int k = 0; k < 50; ++k )
        {
            const Point p = randomPointIn( random, a, 0 ), q = randomPointIn( random, b, 0 );
            for ( const float t : { 0.0F, 0.25F, 0.5F, 0.9F, 1.0F } )
                ASSERT_TRUE( shaft.contains( p + ( q - p ) * t ) ) << p << q << t << '\n' << shaft;
        }
        for ( const GePlane3<float>& plane : planesOf( shaft ) )
        {
            const Vector n = plane.getNormal();
            EXPECT_EQ( ( n[0] == 0 ) + ( n[1] == 0 ) + ( n[2] == 0 ), 1 ) << plane;
            for ( const Box& box : { ref1, ref2 } )
                EXPECT_NEAR( plane.computeValue( box.getFarCorner( n ) ), 0, 1e-4F ) << plane << box;
        }
    }
    EXPECT_TRUE( inside > 1000 && outside > 1000 );
}

// How it is built ------------------------------------------------------------------------------------------------

TEST( Shaft, BoxesAreWidenedAlongTheirFirstFlatAxisOrAllAround )
{
    const Box far( { 50, 60 }, { 50, 60 }, { 50, 60 } );
    const float sizes[] = { 2, -4, 3 };    // one is turned around
    for ( int flat = 0; flat < 8; ++flat ) // a bit for each axis
    {
        Box box, expected;
        const auto isFlat = [flat]( int axis ) { return ( flat >> axis & 1 ) != 0; };
        for ( int axis = 0; axis < 3; ++axis )
            box.setInterval( axis, { 0, isFlat( axis ) ? 9e-7F : sizes[axis] } ); // within the tolerance
        const float growth = box.getSize().computeMaxAbs() * 0.001F;
        for ( int axis = 0; axis < 3; ++axis )
        {
            const bool isFirst = isFlat( axis ) && ( flat & ( ( 1 << axis ) - 1 ) ) == 0;
            const float share = isFirst || flat == 0 ? growth : 0;
            const I bounds = box.getInterval( axis );
            expected.setInterval( axis, { bounds.min - share, bounds.max + share } );
        }
        EXPECT_EQ( GeShaft( box, far ).getRefBox1(), expected ) << flat;
        EXPECT_EQ( GeShaft( far, box ).getRefBox2(), expected ) << flat;
    }
}

TEST( Shaft, NestedEqualAndAlignedBoxesNeedNoPlanes )
{
    const Box unit( { 0, 1 }, { 0, 1 }, { 0, 1 } ), around( { -1, 2 }, { -1, 2 }, { -1, 2 } );
    const GeShaft same( unit, unit ), nested( unit, around ), row( unit, Box( { 3, 4 }, { 0, 1 }, { 0, 1 } ) );
    for ( const GeShaft& shaft : { same, nested, row } )
        EXPECT_TRUE( planesOf( shaft ).empty() );
    EXPECT_EQ( same.getExtentBox(), same.getRefBox1() );
    EXPECT_EQ( nested.getExtentBox(), nested.getRefBox2() );
    EXPECT_EQ( row.getExtentBox(), Box( { -0.001F, 4 + 0.001F }, { -0.001F, 1.001F }, { -0.001F, 1.001F } ) );
    EXPECT_TRUE( row.contains( { 2, 0.5F, 0.5F } ) );
}

TEST( Shaft, FacesWithinAThousandthAreOne )
{
    // Flat in z, so that x and y stay as they are. Box 2 is higher up, and its x bounds are off by these amounts; a
    // difference of exactly the tolerance counts.
    using Row = std::tuple<float, float, std::size_t>;
    for ( const auto& [atMin, atMax, nbPlanes] :
        { Row{ -0.0009F, 0.0009F, 0 }, Row{ -0.0011F, 0.0011F, 2 }, Row{ 0.001F, 0, 1 }, Row{ 0, -0.0011F, 1 } } )
    {
        const Box low( { 0, 1 }, { 0, 1 }, { 0, 0 } ), high( { atMin, 1 + atMax }, { 3, 4 }, { 0, 0 } );
        const I extent( std::min( 0.0F, atMin ), std::max( 1.0F, 1 + atMax ) );
        for ( const GeShaft& shaft : { GeShaft( low, high ), GeShaft( high, low ) } )
        {
            EXPECT_EQ( shaft.getExtentBox().getInterval( 0 ), extent );
            EXPECT_EQ( planesOf( shaft ).size(), nbPlanes ) << shaft;
        }
    }
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
    // MIN_X with MAX_Y, MIN_Y with MAX_X
    using Planes = std::vector<GePlane3<float>>;
    EXPECT_EQ( planesOf( makeDiagonal() ), ( Planes{ { -2, 2, 0, -2 }, { 2, -2, 0, -2 } } ) );
    // the boxes of the other diagonal, and turned around
    const Box low( { 2, 3 }, { 0, 1 }, { 0, 0 } ), high( { 0, 1 }, { 2, 3 }, { 0, 0 } );
    EXPECT_EQ( planesOf( GeShaft( low, high ) ), ( Planes{ { -2, -2, 0, 4 }, { 2, 2, 0, -8 } } ) );
    EXPECT_EQ( planesOf( GeShaft( high, low ) ), ( Planes{ { -2, -2, 0, 4 }, { 2, 2, 0, -8 } } ) );
}

// What it answers ------------------------------------------------------------------------------------------------

TEST( Shaft, ConventionsCrossOnTheBoundary )
{
    const GeShaft shaft = makeDiagonal();
    using Row = std::tuple<Point, bool, bool>;
    for ( const auto& [p, closed, open] : {
              Row{ { 1.5F, 2.5F, 0 }, false, true }, // on a plane
              Row{ { 1.5F, 0.5F, 0 }, false, true }, // on the other
              Row{ { 0, 0.5F, 0 }, true, false },    // on a face of the extent box
              Row{ { 3, 2.5F, 0 }, true, false },
              Row{ { 0, 1, 0 }, true, false },            // on the plane, but a corner of box 1
              Row{ { 2, 3, 0 }, true, false },            // or of box 2
              Row{ { 0.125F, 0.96875F, 0 }, true, true }, // between the plane and its corner, in box 1
              Row{ { 1, 0.5F, 0 }, true, true },          // a face of box 1 inside the shaft
              Row{ { ZqTest::nan<float>, 1, 0 }, false, false },
          } )
    {
        EXPECT_EQ( shaft.contains( p ), closed ) << p;
        EXPECT_EQ( shaft.containsExclude( p ), open ) << p;
    }

    const auto overlaps = [&]( const char* what, const Box& box, I::Containment closed, I::Containment open )
    {
        EXPECT_EQ( shaft.overlaps( box ), closed ) << what;
        EXPECT_EQ( shaft.overlapsExclude( box ), open ) << what;
    };
    const I z( -0.0005F, 0.0005F );
    overlaps( "touches a plane from outside", { { 1, 1.5F }, { 2.5F, 2.75F }, z }, I::OUTSIDE, I::OVERLAP );
    overlaps( "a line in a plane", { { 1.5F, 1.5F }, { 2.5F, 2.5F }, z }, I::OUTSIDE, I::INSIDE );
    overlaps( "touches a plane from inside", { { 1.5F, 1.75F }, { 2.25F, 2.5F }, z }, I::OVERLAP, I::INSIDE );
    overlaps( "touches the other from inside", { { 1.5F, 1.75F }, { 0.75F, 1 }, z }, I::OVERLAP, I::INSIDE );
    overlaps( "touches box 1", { { 1, 1.25F }, { 0.5F, 0.75F }, z }, I::OVERLAP, I::INSIDE );
    overlaps( "touches the extent", { { 3, 4 }, { 2, 3 }, z }, I::OVERLAP, I::OUTSIDE );
    overlaps( "the extent itself", shaft.getExtentBox(), I::CONTAIN, I::CONTAIN );
    overlaps( "around, sharing faces", { { 0, 3 }, { 0, 4 }, { -1, 1 } }, I::CONTAIN, I::CONTAIN );
    overlaps( "NaN", { { 1, 2 }, { ZqTest::nan<float>, 2 }, z }, I::OUTSIDE, I::OUTSIDE );
}

TEST( Shaft, BoxAnswersAgreeWithTheCornersOfEachBox )
{
    Random random( 3 );
    int seen[4] = {};
    for ( int i = 0; i < 30000; ++i )
    {
        Box a, b;
        randomPair( random, a, b );
        const GeShaft shaft( a, b );
        Box box = randomBox( random, 5 );
        if ( i % 100 == 0 ) // one that holds everything, and nearly so
            box = Box( Point( -9, -9, -9 ), Point( 9, 9, random.uniform( 2.0F, 9.0F ) ) );
        const Box &extent = shaft.getExtentBox(), &ref1 = shaft.getRefBox1(), &ref2 = shaft.getRefBox2();
        auto halfSpaces = planesOf( shaft );
        for ( int axis = 0; axis < 3; ++axis )
        {
            Vector n;
            n[axis] = 1;
            halfSpaces.emplace_back( n, -extent.getInterval( axis ).max );
            halfSpaces.emplace_back( -n, extent.getInterval( axis ).min );
        }
        bool isBeyond = false, isWithin = true, isClose = false;
        for ( const GePlane3<float>& plane : halfSpaces )
        {
            const float lowest = plane.computeValue( box.getNearCorner( plane.getNormal() ) );
            const float highest = plane.computeValue( box.getFarCorner( plane.getNormal() ) );
            isClose = isClose || std::fabs( lowest ) < 1e-3F || std::fabs( highest ) < 1e-3F;
            isBeyond = isBeyond || lowest > 0;
            isWithin = isWithin && highest < 0;
        }
        if ( isClose )
            continue;
        const auto isCut = [&]( const Box& ref ) { return ref.classify( box ) != I::OUTSIDE && !ref.contains( box ); };
        auto expected = isWithin && !isCut( ref1 ) && !isCut( ref2 ) ? I::INSIDE : I::OVERLAP;
        if ( ref1.contains( box ) ) // whatever box 2 is to it
            expected = I::INSIDE;
        if ( isBeyond || box.contains( extent ) )
            expected = isBeyond ? I::OUTSIDE : I::CONTAIN;
        ++seen[expected];
        ASSERT_EQ( shaft.overlaps( box ), expected ) << box << '\n' << shaft;
        ASSERT_EQ( shaft.overlapsExclude( box ), expected ) << box << '\n' << shaft;
        // and by points of the box: what is outside holds none of the shaft, what is inside nothing else
        const Point p = randomPointIn( random, box, 0 );
        ASSERT_TRUE( shaft.contains( p ) ? expected != I::OUTSIDE : expected != I::INSIDE ) << p << '\n' << shaft;
    }
    EXPECT_GT( *std::min_element( seen, seen + 4 ), 10 );
}

// State, comparison, text ----------------------------------------------------------------------------------------

TEST( Shaft, UninitialisedIsEmptyAndInitialisingReplacesEverything )
{
    GeShaft shaft;
    const Box everything( { -9, 9 }, { -9, 9 }, { -9, 9 } );
    EXPECT_TRUE( shaft.getRefBox1().isEmpty() && shaft.getRefBox2().isEmpty() && shaft.getExtentBox().isEmpty() );
    EXPECT_FALSE( shaft.contains( Point() ) || shaft.containsExclude( Point() ) );
    EXPECT_TRUE( shaft.overlaps( everything ) == I::OUTSIDE && shaft.overlapsExclude( everything ) == I::OUTSIDE );
    EXPECT_EQ( planesOf( shaft ).size(), 0U );
    shaft.initialize( Box( { -5, 5 }, { -1, 1 }, { -1, 1 } ), Box( { -1, 1 }, { -5, 5 }, { -5, 5 } ) );
    EXPECT_EQ( planesOf( shaft ).size(), 8U );
    const GeShaft diagonal = makeDiagonal();
    EXPECT_NE( shaft, diagonal );
    shaft.initialize( Box( { 0, 1 }, { 0, 1 }, { 0, 0 } ), Box( { 2, 3 }, { 2, 3 }, { 0, 0 } ) );
    // the slots beyond the number of planes do not count
    EXPECT_TRUE( shaft == diagonal && shaft.isEqualExact( diagonal ) && shaft.isEqual( diagonal, 1e-6F ) );
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
        EXPECT_TRUE( shaft != other && !( shaft == other ) && !isEqual( shaft, other, 0.005F ) ) << bound;
        // a bound that moves by 0.01 moves the offset of a plane by up to six times as much
        EXPECT_TRUE( bound % 3 == 2 || isEqual( shaft, other, 0.1F ) ) << bound << '\n' << other;
    }
    // Far from the origin the boxes are within a tolerance, but the offsets of the planes are not; then everything is
    // but the number of planes.
    const Box box( { 100, 101 }, { 0, 1 }, { 0, 0 } );
    const auto makeDistant = [&box]( float y ) { return GeShaft( box, Box( { 102, 103 }, { y, y + 1 }, { 0, 0 } ) ); };
    EXPECT_FALSE( makeDistant( 2 ).isEqual( makeDistant( 2.5F ), 0.75F ) );
    EXPECT_FALSE( makeDistant( 2 ).isEqual( makeDistant( 0 ), 500 ) );
}

TEST( Shaft, TextFollowsTheStreamAndTheTraceTellsFacesThenPlanes )
{
    std::ostringstream os;
    os << std::setprecision( 2 ) << makeDiagonal() << GeShaft();
    EXPECT_EQ( os.str(), R"(Ref.box 1=( X=[ 0, 1 ], Y=[ 0, 1 ], Z=[ -0.001, 0.001 ] )
Ref.box 2=( X=[ 2, 3 ], Y=[ 2, 3 ], Z=[ -0.001, 0.001 ] )
Extent box=( X=[ 0, 3 ], Y=[ 0, 3 ], Z=[ -0.001, 0.001 ] )
Plane set=
 [-2, 2, 0, -2]
 [2, -2, 0, -2]
Uninitialized shaft
)" );
    ZqTest::CollectingTraceManager traces( "GeShaft" );
    makeDiagonal();
    traces.level->setEnabled( true );
    // the second plane has to be turned: the point is told before, the plane after
    const GeShaft shaft( Box( { 2, 3 }, { 0, 1 }, { 0, 0 } ), Box( { 0, 1 }, { 2, 3 }, { 0, 0 } ) );
    EXPECT_EQ( traces.takeText( "src/primitives/geShaft" ),
        "\n1 MIN_X =0\n1 MIN_Y =1\n1 MIN_Z =0\n1 MAX_X =1\n1 MAX_Y =0\n1 MAX_Z =0\n"
        "\n2 MIN_X =1\n2 MIN_Y =0\n2 MIN_Z =0\n2 MAX_X =0\n2 MAX_Y =1\n2 MAX_Z =0\n"
        "( X=[ 0, 3 ], Y=[ 0, 3 ], Z=[ -0.001, 0.001 ] )\n\n"
        "point=(2, 0, 0)\nAdding plane [-2, -2, -0, 4] to plane set.\n"
        "point=(3, 1, 0)\nAdding plane [2, 2, -0, -8] to plane set.\n" );
}

} // namespace
