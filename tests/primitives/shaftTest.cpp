#include "support/collectingTraceManager.h"
#include "support/prelude.h"

#include <zq/primitives/geShaft.h>

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

/// Between boxes that share some coordinates, so that every kind of plane set comes up.
GeShaft randomShaft( Random& random )
{
    const Box a = randomBox( random, 4 );
    Box b = randomBox( random, 4 );
    for ( int axis = 0; axis < 3; ++axis )
        if ( random.index( 4 ) == 0 )
            b.setInterval( axis, a.getInterval( axis ) );
    return { a, b };
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

/// Whether a point lies in the convex hull of two boxes seen along an axis, grown by a slack: in one of the boxes on the
/// way from the first to the second, whose bounds move evenly.
bool isInProjectedHull( const Box& a, const Box& b, int axis, const Point& p, double slack )
{
    double first = 0, last = 1; // of the ways
    for ( const int i : { ( axis + 1 ) % 3, ( axis + 2 ) % 3 } )
    {
        const I x = a.getInterval( i ), y = b.getInterval( i );
        for ( const auto& [start, end] : { std::pair( p[i] - x.min, p[i] - y.min ), { x.max - p[i], y.max - p[i] } } )
        {
            const double way = ( start + slack ) / ( start - end );
            ( end > start ? first : last ) = end > start ? std::max( first, way ) : std::min( last, way );
        }
    }
    return first <= last;
}

TEST( Shaft, HoldsExactlyTheHullOfTheBoxesAsSeenAlongEachAxis )
{
    Random random( 1 );
    for ( const auto i : random.runs( 600 ) )
    {
        const GeShaft shaft = randomShaft( random );
        const auto isInHull = [&]( int axis, const Point& p, double slack )
        { return isInProjectedHull( shaft.getRefBox1(), shaft.getRefBox2(), axis, p, slack ); };
        for ( int k = 0; k < 40; ++k )
        {
            const Point p = randomPointIn( random, shaft.getExtentBox(), 0.05F );
            const bool isInside = isInHull( 0, p, -1e-3 ) && isInHull( 1, p, -1e-3 ) && isInHull( 2, p, -1e-3 );
            if ( !isInside && isInHull( 0, p, 1e-3 ) && isInHull( 1, p, 1e-3 ) && isInHull( 2, p, 1e-3 ) )
                continue; // faces that are closer count as one
            ASSERT_EQ( shaft.contains( p ), isInside ) << p << shaft;
            ASSERT_EQ( shaft.containsExclude( p ), isInside ) << p << shaft;
        }
    }
}

// How it is built ------------------------------------------------------------------------------------------------

TEST( Shaft, BoxesAreWidenedAlongTheirFirstFlatAxisOrAllAround )
{
    const Box far( { 50, 60 }, { 50, 60 }, { 50, 60 } );
    const I flat( 0, 9e-7F ); // within the tolerance
    const float w = 4 * 0.001F;
    for ( const auto& [box, expected] : {
              std::pair( Box( { 0, 2 }, { 0, -4 }, { 0, 3 } ), Box( { -w, 2 + w }, { -w, -4 + w }, { -w, 3 + w } ) ),
              { { { 0, 4 }, flat, { 0, 3 } }, { { 0, 4 }, { -w, flat.max + w }, { 0, 3 } } },
              { { flat, { 0, 4 }, flat }, { { -w, flat.max + w }, { 0, 4 }, flat } },
          } )
    {
        EXPECT_EQ( GeShaft( box, far ).getRefBox1(), expected ) << box;
        EXPECT_EQ( GeShaft( far, box ).getRefBox2(), expected ) << box;
    }
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
            EXPECT_EQ( shaft.getExtentBox().getInterval( 0 ), extent ) << shaft;
            EXPECT_EQ( planesOf( shaft ).size(), nbPlanes ) << shaft;
        }
    }
}

// x and y of both boxes are as given; the planes are -2x + 2y - 2 and 2x - 2y - 2 over a square of 3
GeShaft makeDiagonal()
{
    return { Box( { 0, 1 }, { 0, 1 }, { 0, 0 } ), Box( { 2, 3 }, { 2, 3 }, { 0, 0 } ) };
}

// What it answers ------------------------------------------------------------------------------------------------

TEST( Shaft, ConventionsCrossOnTheBoundary )
{
    const GeShaft shaft = makeDiagonal();
    using Row = std::tuple<Point, bool, bool>;
    for ( const auto& [p, closed, open] : {
              Row{ { 1.5F, 2.5F, 0 }, false, true }, // on a plane
              Row{ { 0, 0.5F, 0 }, true, false },    // on a face of the extent box
              Row{ { 0, 1, 0 }, true, false },       // on the plane, but a corner of box 1
              Row{ { 2, 3, 0 }, true, false },       // or of box 2
              Row{ { ZqTest::nan<float>, 1, 0 }, false, false },
          } )
    {
        EXPECT_EQ( shaft.contains( p ), closed ) << p;
        EXPECT_EQ( shaft.containsExclude( p ), open ) << p;
    }
}

// A box is told by points of it: none, some or all of them lie in the shaft. The array forms, which are written another
// way, agree bit for bit, on boundaries too, and keep the answers from being OVERLAP where they need not be.
TEST( Shaft, BoxAnswersAgreeWithPointsOfTheBox )
{
    Random random( 3 );
    for ( const auto i : random.runs( 10000 ) )
    {
        const GeShaft shaft = randomShaft( random );
        // one in a hundred holds everything, or nearly so
        const Box all( Point( -9, -9, -9 ), Point( 9, 9, random.uniform( 2.0F, 9.0F ) ) );
        const Box box = i % 100 == 0 ? all : randomBox( random, 5 );
        const I::Containment answer = shaft.overlaps( box );
        EXPECT_EQ( shaft.overlapsExclude( box ), answer );
        EXPECT_EQ( answer == I::CONTAIN, box.contains( shaft.getExtentBox() ) );
        for ( int k = 0; k < 5; ++k )
        {
            const Point p = randomPointIn( random, box, 0 );
            ASSERT_TRUE( shaft.contains( p ) ? answer != I::OUTSIDE : answer != I::INSIDE ) << p << '\n' << shaft;
        }
    }
}

// State, comparison, text ----------------------------------------------------------------------------------------

TEST( Shaft, UninitialisedIsEmptyAndContainedByTheBoxesOfAllNumbersAlone )
{
    const float largest = std::numeric_limits<float>::max(), infinity = std::numeric_limits<float>::infinity();
    const I all( -largest, largest ), beyond( -infinity, infinity ),
        almost( -largest, std::nextafter( largest, 0.0F ) );
    const GeShaft shaft;
    for ( const Box& box : { shaft.getRefBox1(), shaft.getRefBox2(), shaft.getExtentBox() } )
        EXPECT_TRUE( box.isEmpty() );
    using Row = std::tuple<Box, I::Containment, I::Containment>;
    for ( const auto& [box, closed, open] : {
              Row{ { all, all, all }, I::CONTAIN, I::OUTSIDE },
              Row{ { beyond, beyond, beyond }, I::CONTAIN, I::CONTAIN },
              Row{ { all, beyond, almost }, I::OUTSIDE, I::OUTSIDE },
              Row{ Box(), I::OUTSIDE, I::OUTSIDE },
          } )
    {
        EXPECT_EQ( shaft.overlaps( box ), closed ) << box;
        EXPECT_EQ( shaft.overlapsExclude( box ), open ) << box;
    }
}

TEST( Shaft, IsBuiltFromItsOwnBoxesAsFromCopiesOfThem )
{
    const GeShaft before( Box( { 0, 1 }, { 0, 2 }, { 0, 3 } ), Box( { 5, 7 }, { 4, 5 }, { -3, -1 } ) );
    const Box other( { 8, 9 }, { -3, -1 }, { 5, 6 } );
    const auto boxesOf = [&]( const GeShaft& shaft ) {
        return std::array<const Box*, 4>{ &shaft.getRefBox1(), &shaft.getRefBox2(), &shaft.getExtentBox(), &other };
    };
    for ( std::size_t first = 0; first < 4; ++first )
        for ( std::size_t second = 0; second < 4; ++second )
        {
            GeShaft shaft = before;
            shaft.initialize( *boxesOf( shaft )[first], *boxesOf( shaft )[second] );
            EXPECT_EQ( shaft, GeShaft( *boxesOf( before )[first], *boxesOf( before )[second] ) ) << first << second;
        }
}

TEST( Shaft, ComparisonLooksAtBoxesAndPlanes )
{
    const GeShaft shaft = makeDiagonal();
    for ( std::size_t i = 0; i < 3 * 6 + 2 * 4; ++i )
    {
        const GeShaft other = ZqTest::withChange( shaft, i, 0.25F );
        EXPECT_NE( shaft, other ) << i;
        EXPECT_TRUE( isEqual( shaft, other, 0.26F ) ) << i;
        EXPECT_FALSE( isEqual( shaft, other, 0.24F ) ) << i;
    }
    const Box box = shaft.getRefBox1();
    EXPECT_FALSE( GeShaft( box, box ).isEqual( shaft, 100 ) ); // all is close but the number of planes
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
