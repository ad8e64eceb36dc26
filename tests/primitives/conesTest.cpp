// The three cones, from the directions and points of a cluster to the two regions of viewpoints. Single precision only,
// and measured in double.

#include "support/collectingTraceManager.h"
#include "support/prelude.h"

#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFloatingConeBuilder.h>

#include <functional>

namespace
{

using Unit = GeUnitVector3<float>;
using Vector = GeVector3<float>;
using Point = GePoint3<float>;
using Wide = GeVector3<double>;

const Unit X( 1, 0, 0 );
const Unit Z( 0, 0, 1 );
constexpr float SPHERE = 3.1415927410125732F;
constexpr float QUARTER_PI = 0.785398163F;

// Of a vector, point or unit vector.
template <class V>
Wide widen( const V& v )
{
    return { v.getX(), v.getY(), v.getZ() };
}

GeFloatingCone build( const std::vector<Unit>& directions )
{
    GeFloatingConeBuilder builder;
    std::for_each( directions.begin(), directions.end(), std::ref( builder ) );
    return builder.createCone();
}

GeAnchoredConeBuilder collect( const std::vector<Point>& points )
{
    GeAnchoredConeBuilder builder( 0 );
    UnaryFunctor<Point, bool>& functor = builder;
    EXPECT_TRUE( std::all_of( points.begin(), points.end(), std::ref( functor ) ) );
    return builder;
}

// Expects that two objects are equal within tolerances beyond these two, and not at them; 0: there is no difference.
template <class Cone>
void expectDifference( const Cone& a, const Cone& b, float first, float second )
{
    EXPECT_EQ( a == b, first == 0 && second == 0 );
    EXPECT_NE( a == b, a != b );
    EXPECT_TRUE( a.isEqual( b, first * 1.5F + 0.001F, second * 1.5F + 0.001F ) );
    EXPECT_FALSE( a.isEqual( b, first, 10 ) || a.isEqual( b, 10, second ) );
}

TEST( Cones, ComparisonsAndTexts )
{
    const GeFloatingCone cone( Z, 0.5F ), turned( X, 0.5F ), wider( Z, 0.75F );
    expectDifference( cone, cone, 0, 0 );
    expectDifference( cone, wider, 0, 0.25F );
    expectDifference( cone, { Unit( 0.6F, 0, 0.8F ), 0.5F }, 0.5F, 0 );
    // the axis is not looked at; the tangents of these two differ by 0.385, and the cosines by 0.202
    const Point p( 1, 2, 3 ), moved( 1, 2.25F, 3 );
    const GeAnchoredCone anchored( cone, p, 4, 5 );
    expectDifference( anchored, { turned, p, 4, 5 }, 0, 0 );
    expectDifference( anchored, { cone, moved, 4, 5 }, 0.25F, 0 );
    expectDifference( anchored, { cone, p, 4.25F, 5 }, 0.25F, 0 );
    expectDifference( anchored, { cone, p, 4, 5.25F }, 0.25F, 0 );
    expectDifference( anchored, { wider, p, 4, 5 }, 0, 0.3F );
    const GeCullingCones cones( cone, p, 4 );
    expectDifference( cones, { turned, p, 4 }, 0, 0 );
    expectDifference( cones, { cone, moved, 4 }, 0.25F, 0 );
    expectDifference( cones, { cone, p, 4.25F }, 0.25F, 0 );
    expectDifference( cones, { wider, p, 4 }, 0, 0.2F );
    EXPECT_EQ( GeCullingCones(), GeCullingCones( { Z, 4 }, Point(), 0 ) );
    EXPECT_EQ( GeCullingCones().getFloatingCone(), build( {} ) );

    std::ostringstream os;
    os << GeFloatingCone( X, SPHERE ) << GeCullingCones( { Z, 3 }, Point( 1, 2.5F, 3 ), 4 );
    EXPECT_EQ( os.str(),
        "floatingCone( axis=(1, 0, 0), alpha=3.14159 )cullingCones( backfacingApex=(1, 2.5, 3), frontfacingOffset=4, "
        "cosBeta=-1, floatingCone( axis=(0, 0, 1), alpha=3 ) )" );
}

// Normals -------------------------------------------------------------------------------------------------------------

TEST( FloatingCone, AngleLimitsAndContainment )
{
    const float nan = ZqTest::nan<float>, sine = FloatUtil::sin( 0.5F ), cosine = FloatUtil::cos( 0.5F );
    EXPECT_FALSE( GeFloatingCone( Z, 3.1415925F ).isSphere() || GeFloatingCone( Z, nan ).isSphere() );
    EXPECT_TRUE( GeFloatingCone( Z, SPHERE ).isSphere() );
    EXPECT_TRUE( GeFloatingCone( Z, 0.5F ).contains( Unit( sine, 0, cosine, GE_TRUSTED ) ) );
    EXPECT_FALSE( GeFloatingCone( Z, 0.5F ).contains( Unit( sine, 0, std::nextafter( cosine, 0.0F ), GE_TRUSTED ) ) );
    for ( const float bad : { nan, ZqTest::infinity<float> } ) // its cosine is NaN
        EXPECT_FALSE( GeFloatingCone( Z, bad ).contains( Z ) );
}

TEST( FloatingCone, ExpandMakesTheSmallestConeAboutTwo )
{
    Random random( 2 );
    for ( int i = 0; i < 2000; ++i )
    {
        const GeFloatingCone a( random.direction<float>(), random.uniform( 0.0F, 1.5F ) );
        const GeFloatingCone b( random.direction<float>(), random.uniform( 0.0F, 1.5F ) );
        const double between = widen( a.getAxis() ).computeAngle( widen( b.getAxis() ) );
        if ( between < 0.2 || between > 2.6 || std::fabs( a.getSemiAngle() - b.getSemiAngle() ) > between )
            continue;
        GeFloatingCone grown = a;
        grown.expand( b );
        EXPECT_NEAR( 2.0 * grown.getSemiAngle(), between + a.getSemiAngle() + b.getSemiAngle(), 4e-6 );
        // both are touched from inside, and on opposite sides: their axes are no farther apart than these two angles
        for ( const GeFloatingCone& part : { a, b } )
            EXPECT_NEAR( widen( grown.getAxis() ).computeAngle( widen( part.getAxis() ) ),
                grown.getSemiAngle() - part.getSemiAngle(), 4e-6 );
    }
}

TEST( FloatingCone, ExpandAtItsLimits )
{
    const float tilted = std::sqrt( 1 - 0.81F ), exact = 1e-30F;
    const Unit justBefore( tilted, 0, -0.9F, GE_TRUSTED );
    const Unit justBeyond( tilted, 0, std::nextafter( -0.9F, -1.0F ), GE_TRUSTED );
    using Row = std::tuple<GeFloatingCone, GeFloatingCone, GeFloatingCone, float>;
    for ( const auto& [start, other, expected, tolerance] : {
              Row{ { Z, SPHERE }, { X, 0.5F }, { Z, SPHERE }, exact },
              Row{ { Z, 4.0F }, { X, SPHERE }, { Z, 4.0F }, exact },
              Row{ { Z, 0.5F }, { X, SPHERE }, { Z, SPHERE }, exact },
              Row{ { Z, 0.1F }, { justBeyond, 0.1F }, { Z, SPHERE }, exact },
              Row{ { Z, 0.1F }, { justBefore, 0.1F }, { Unit( 0.974679F, 0, 0.223607F ), 1.4452834F }, 1e-5F },
              Row{ { Z, 1.0F }, { Z, 0.1F }, { Z, 0.55F }, 1e-6F }, // containment is not looked at
              Row{ { Z, 3.0F }, { X, 3.0F }, { Unit( 1, 0, 1 ), 3 + QUARTER_PI }, 1e-6F }, // there is no limit
          } )
    {
        GeFloatingCone cone = start;
        cone.expand( other );
        EXPECT_TRUE( cone.isEqual( expected, tolerance, tolerance ) ) << cone << expected;
    }
    for ( const float bad : { ZqTest::nan<float>, -ZqTest::infinity<float> } )
    {
        GeFloatingCone cone( Z, 0.5F );
        EXPECT_REPORT( cone.expand( GeFloatingCone( X, bad ) ), "src/primitives/geFloatingCone", "len > 0" );
        EXPECT_EQ( cone, GeFloatingCone( Z, 0.5F ) ); // a report comes before anything is stored
    }
}

TEST( FloatingCone, ExpandByItselfShowsTheRoundingOfTheAxis )
{
    ZqTest::CollectingTraceManager traces( "Geometry" );
    Random random( 4 );
    int sawOrder = 0;
    for ( int i = 0; i < 3000; ++i )
    {
        const Unit axis = random.direction<float>();
        const float x = axis.getX(), y = axis.getY(), z = axis.getZ();
        const float square = z * z + y * y + x * x;
        sawOrder += ( square > 1 ) != ( x * x + y * y + z * z > 1 );
        traces.level->setEnabled( i % 2 );
        GeFloatingCone cone( axis, 0.5F );
        cone.expand( cone );
        EXPECT_NEAR( cone.getSemiAngle(), square < 1 ? 0.5003 : 0.5, square < 1 ? 0.0002 : 0 );
        // a cosine above one is traced
        ASSERT_EQ( traces.takeText( "src/primitives/geFloatingCone" ), i % 2 && square > 1 ? "dotAxis=1\n" : "" );
    }
    EXPECT_GT( sawOrder, 0 ) << "no input tells the order of the sum";
}

TEST( FloatingConeBuilder, TheConeHoldsEveryDirectionAndNoMoreThanThat )
{
    Random random( 5 );
    for ( int i = 0; i < 3000; ++i )
    {
        const Unit middle = random.direction<float>();
        const float spread = random.uniform( 0.01F, 1.6F );
        std::vector<Unit> directions;
        GeAlignedBox3<double> box;
        for ( int count = 1 + random.index( 20 ); count > 0; --count )
        {
            directions.emplace_back( middle + random.direction<float>() * ( spread * random.uniform( 0.0F, 1.0F ) ) );
            box.extend( GePoint3<double>( widen( directions.back() ) ) );
        }
        const GeFloatingCone cone = build( directions );
        const bool holdsOrigin = box.contains( GePoint3<double>() );
        ASSERT_EQ( cone == GeFloatingCone( Z, SPHERE ), holdsOrigin );
        if ( holdsOrigin )
            continue;
        const Wide axis = widen( cone.getAxis() );
        EXPECT_LE( axis.computeAngle( Wide( box.getCenter() ) ), 5e-7 );
        double smallest = 1;
        for ( const Unit& direction : directions )
            smallest = std::min( smallest, axis.dot( widen( direction ) ) );
        EXPECT_NEAR( smallest, std::cos( double( cone.getSemiAngle() ) ), 5e-7 );
    }
}

TEST( FloatingConeBuilder, NamedSets )
{
    const auto trusted = []( float x, float y, float z ) { return Unit( x, y, z, GE_TRUSTED ); };
    EXPECT_EQ( build( { X } ), GeFloatingCone( X, 0 ) );
    // nothing, opposites, a box that touches the origin, no direction, a centre whose squares underflow
    const std::vector<Unit> spheres[] = {
        {}, { X, -X }, { X, Unit( 0, 1, 0 ) }, { Unit() }, { trusted( 1e-30F, 1, 0 ), trusted( 1e-30F, -1, 0 ) } };
    for ( const std::vector<Unit>& directions : spheres )
        EXPECT_EQ( build( directions ), GeFloatingCone( Z, SPHERE ) ) << directions.size();
    // a direction against the axis, although the box misses the origin: all directions, and the axis is kept
    const float half = 0.7071071F; // a little long: the product must not be rounded above -1
    const std::vector<Unit> against{
        trusted( -half, -half, 1e-20F ), trusted( 1, 0, 1e-20F ), trusted( 0, 1, 1e-20F ) };
    EXPECT_TRUE( build( against ).isEqual( { Unit( 1, 1, 0 ), SPHERE }, 1e-6F, 1e-30F ) );

    // createCone() and reset() forget the directions
    GeFloatingConeBuilder builder( 0 );
    builder( Z );
    builder.reset();
    builder( X );
    EXPECT_EQ( builder.createCone(), GeFloatingCone( X, 0 ) );
    EXPECT_TRUE( builder.createCone().isSphere() );
}

// Points --------------------------------------------------------------------------------------------------------------

// In double and by another route: a point's excess is how far it is from where the ray from the axis to it leaves the cone.
GeAnchoredCone fit( const std::vector<Point>& points, const GeFloatingCone& cone )
{
    const Wide a = widen( cone.getAxis() );
    int smallest = 0;
    for ( int i : { 1, 2 } )
        smallest = std::fabs( a[i] ) <= std::fabs( a[smallest] ) ? i : smallest;
    Wide frameAxis, low, high;
    frameAxis[smallest] = 1;
    const Wide v = a.cross( frameAxis ).computeUnit(), u = v.cross( a ).computeUnit();
    const auto isLower = [&a]( const Point& p, const Point& q ) { return widen( p ).dot( a ) < widen( q ).dot( a ); };
    const Wide bottom = widen( *std::min_element( points.begin(), points.end(), isLower ) );
    std::vector<Wide> excesses;
    double top = 0, radius = 0;
    for ( const Point& point : points )
    {
        const double height = ( widen( point ) - bottom ).dot( a );
        const Wide sideways = widen( point ) - bottom - a * height;
        const double excess = sideways.length() - height * std::tan( cone.getSemiAngle() );
        top = std::max( top, height );
        if ( excess <= 0 )
            continue;
        const Wide direction = sideways.computeUnit();
        excesses.push_back( Wide( direction.dot( u ), direction.dot( v ), 0 ) * excess );
        low = Wide::computeMin( low, excesses.back() );
        high = Wide::computeMax( high, excesses.back() );
    }
    const Wide middle = ( low + high ) * 0.5;
    for ( const Wide& excess : excesses )
        radius = std::max( radius, ( excess - middle ).length() );
    const Vector center( bottom + u * middle.getX() + v * middle.getY() );
    return { cone, Point( center ), static_cast<float>( radius ), static_cast<float>( top ) };
}

TEST( AnchoredConeBuilder, FitsAsAReferenceDoes )
{
    Random random( 1 );
    for ( int i = 0; i < 3000; ++i )
    {
        // half of the axes have components of equal size: the ties of the frame
        const auto pick = [&random] { return static_cast<float>( random.index( 5 ) - 2 ); };
        const Vector tied( pick(), pick(), pick() );
        const Unit axis = i % 2 || tied == Vector() ? random.direction<float>() : Unit( tied );
        std::vector<Point> points;
        for ( int count = 1 + random.index( 12 ); count > 0; --count )
            points.push_back( random.point<float>( 1 ) );
        const GeFloatingCone cone( axis, random.uniform( 0.0F, 1.2F ) );
        const GeAnchoredCone built = collect( points ).createCone( cone );
        EXPECT_EQ( built.getFloatingCone(), cone );
        EXPECT_TRUE( built.isEqual( fit( points, cone ), 1e-5F, 1e-30F ) );
    }
}

TEST( AnchoredConeBuilder, NamedSets )
{
    const GeFloatingCone cone( Z, 0.5F );
    const auto fitted = [&cone]( const std::vector<Point>& points ) { return collect( points ).createCone( cone ); };
    const Point a( 0, 0, 0 ), b( 1, 0.5F, 0 ), c( 0.5F, 1, 0 ), top( 0, 0, 5 ), bad( ZqTest::nan<float>, 0, 0 );
    EXPECT_EQ( fitted( { b } ), GeAnchoredCone( cone, b, 0, 0 ) );
    EXPECT_EQ( fitted( { bad, a, top, bad } ), GeAnchoredCone( cone, a, 0, 5 ) ) << "NaN is neither low nor outside";
    // Of equal projections the first is the bottom point, and only excesses count for the radius. Seen from a the
    // bottom point itself is farther from the middle than both excesses; seen from b one excess is far.
    const Point middle( 0.5F, 0.5F, 0 );
    EXPECT_TRUE( fitted( { a, b, c } ).isEqual( { cone, middle, 0.5F, 0 }, 1e-6F, 1e-6F ) );
    EXPECT_TRUE( fitted( { b, a, c } ).isEqual( { cone, middle, 0.7071068F, 0 }, 1e-6F, 1e-6F ) );
    const char* const file = "src/primitives/geAnchoredConeBuilder";
    const std::vector<Point> high{ bad, Point( 0, 0, INFINITY ), Point( 0, 0, std::numeric_limits<float>::max() ) };
    EXPECT_REPORT( fitted( high ), file, "bottomIndex != -1" ); // no projection is below the largest float

    // Without reset() the next cone is another: of what the first call left, its two excesses, in the frame u = y,
    // v = -x, then the untouched tail. A report leaves the points as they were.
    const std::vector<Point> points{ Point( 4, 0, 0 ), Point( 6, 0, 0 ), Point( 4, 2, 1 ) };
    GeAnchoredConeBuilder builder = collect( points );
    EXPECT_REPORT( builder.createCone( { Unit(), 0.5F } ), file, "len > 0" );
    EXPECT_EQ( builder.createCone( cone ), fitted( points ) );
    EXPECT_EQ( builder.createCone( cone ),
        fitted( { Point( 0, -2, 0 ), Point( 2 - FloatUtil::tan( 0.5F ), 0, 0 ), points[2] } ) );
    builder.reset();
    builder( b );
    EXPECT_EQ( builder.createCone( cone ), fitted( { b } ) );
}

// Viewpoints ----------------------------------------------------------------------------------------------------------

using Face = std::array<Point, 3>; // counter-clockwise, seen from the front

// How far the eye is in front of the face's plane.
double computeFacing( const Face& face, const Point& eye )
{
    const Wide origin = widen( face[0] );
    const Wide normal = ( widen( face[1] ) - origin ).cross( widen( face[2] ) - origin ).computeUnit();
    return normal.dot( widen( eye ) - origin );
}

// A turned fan about a point, with random heights; loose: its triangles are scattered.
std::vector<Face> makeFan( Random& random, bool isLoose )
{
    const Unit up = random.direction<float>(), right( up.cross( random.direction<float>() ) );
    const Vector forward = up.cross( right );
    const float steepness = random.uniform( 0.05F, 1.5F );
    std::vector<Face> cluster( 16 );
    Vector rim;
    for ( int i = 0; i <= 16; ++i )
    {
        const float angle = static_cast<float>( i ) * QUARTER_PI / 2, height = random.uniform( -0.5F, 0.5F );
        const Vector next = right * std::cos( angle ) + forward * std::sin( angle ) + up * ( height * steepness );
        const Point middle = random.point<float>( isLoose ? 1.0F : 0.0F );
        cluster[static_cast<std::size_t>( i ) % 16] = { middle, middle + rim, middle + next };
        rim = next;
    }
    return cluster;
}

TEST( CullingCones, AnswersAreRightUpTo45DegreesAndWhereGranted )
{
    Random random( 1 );
    const double bound = 1e-5; // the clusters are a few units wide
    int nbAnswers[2] = {};     // up to 45 degrees, and wider
    int nbWrong = 0;
    for ( int i = 0; i < 3000; ++i )
    {
        const bool isLoose = i % 3 == 0;
        const std::vector<Face> cluster = makeFan( random, isLoose );
        std::vector<Unit> normals;
        std::vector<Point> points;
        for ( const Face& face : cluster )
        {
            normals.emplace_back( ( face[1] - face[0] ).cross( face[2] - face[0] ) );
            points.insert( points.end(), face.begin(), face.end() );
        }
        const GeFloatingCone cone = build( normals );
        const GeAnchoredCone anchored = collect( points ).createCone( cone );
        const GeCullingCones cones( anchored );
        // A face is granted right answers where a corner of it lies in this cone; see the class comment. The tip is
        // lowered by a trifle, because the corners that decide the bottom disc lie on the surface.
        const GeCullingCones mirrored( cone, cones.getBackfacingApex() - cone.getAxis() * 2e-6F, 0 );
        const bool isWide = cone.getSemiAngle() > QUARTER_PI;
        for ( int k = 0; k < 40 && cones.getCosBeta() > 0; ++k )
        {
            // near a tip and far from it
            const Point tip = k % 2 ? anchored.getBackfacingApex() : anchored.getFrontfacingApex();
            const Point eye = tip + random.vector<float>( std::pow( 10.0F, random.uniform( -3.0F, 1.0F ) ) );
            const bool isBehind = cones.isBehind( eye ), isInFront = cones.isInFront( eye );
            nbAnswers[isWide] += isBehind || isInFront;
            for ( const Face& face : cluster )
            {
                const bool isGranted = std::any_of(
                    face.begin(), face.end(), [&]( const Point& corner ) { return mirrored.isInFront( corner ); } );
                const bool isWrong = isBehind && computeFacing( face, eye ) > bound;
                nbWrong += isWrong;
                EXPECT_FALSE( isWrong && isGranted );
                EXPECT_TRUE( isWide || isLoose || ( isGranted && !isWrong ) );
                EXPECT_FALSE( !isWide && !isLoose && isInFront && computeFacing( face, eye ) < -bound );
            }
        }
    }
    EXPECT_TRUE( nbAnswers[0] > 5000 && nbAnswers[1] > 1000 ) << nbAnswers[0] << ' ' << nbAnswers[1];
    EXPECT_GT( nbWrong, 0 ) << "cones wider than 45 degrees go wrong";
}

TEST( CullingCones, RegionsOpenFromApexesThatSeeTheRimsAtTheirAngles )
{
    Random random( 3 );
    for ( int i = 0; i < 3000; ++i )
    {
        const Unit axis = random.direction<float>(), sideways( axis.cross( random.direction<float>() ) );
        const float alpha = random.uniform( 0.2F, 1.2F ), beta = 2 * QUARTER_PI - alpha;
        const GeAnchoredCone cone(
            { axis, alpha }, random.point<float>( 1 ), random.uniform( 0.5F, 2.0F ), random.uniform( 0.5F, 2.0F ) );
        const Point bottomRim = cone.getBottomCenter() + sideways * cone.getBottomRadius();
        const Point topRim = cone.getBottomCenter() + axis * cone.getHeight() + sideways * cone.getTopRadius();
        const Point back = cone.getBackfacingApex(), front = cone.getFrontfacingApex();
        const auto angle = [&axis]( const Point& apex, const Point& p )
        { return widen( axis ).computeAngle( widen( p ) - widen( apex ) ); };
        EXPECT_NEAR( angle( cone.getApex(), bottomRim ), alpha, 1e-5 );
        EXPECT_NEAR( angle( cone.getApex(), topRim ), alpha, 1e-5 );
        EXPECT_NEAR( angle( back, bottomRim ), beta, 1e-5 );
        EXPECT_NEAR( angle( front, topRim ), 4 * QUARTER_PI - beta, 1e-5 );

        const GeCullingCones cones( cone );
        EXPECT_EQ( cones.getFloatingCone(), cone.getFloatingCone() );
        EXPECT_NEAR( cones.getCullingSemiAngle(), beta, 3e-5 );
        for ( const float off : { -0.001F, 0.001F } )
        {
            const Vector along = axis * std::cos( beta + off ) + sideways * std::sin( beta + off );
            EXPECT_EQ( cones.isBehind( back - along ), off < 0 );
            EXPECT_EQ( cones.isInFront( front + along ), off < 0 );
        }
    }
    // nothing is guarded
    EXPECT_EQ( GeAnchoredCone( { Z, 0 }, Point(), 1, 1 ).getApexDistance(), ZqTest::infinity<float> );
    EXPECT_TRUE( std::isnan( GeAnchoredCone( { Z, 0 }, Point(), 0, 1 ).getApexDistance() ) );
}

TEST( CullingCones, NamedViewpoints )
{
    const float nan = ZqTest::nan<float>;
    const float widest = 1.57079625F; // twice this is the largest float below pi
    const float beyond = std::nextafter( widest, 2.0F );
    const float noCosine = -ZqTest::infinity<float>; // passes the angle test, and its sine is NaN
    using Row = std::tuple<float, float, Point, bool, bool>;
    for ( const auto& [semiAngle, cosBeta, p, isBehind, isInFront] : {
              Row{ 0.5F, 0.479425539F, Point( 0, 0, 1 ), true, false }, // the tips count
              Row{ 0.5F, 0.479425539F, Point( 0, 0, 11 ), false, true },
              Row{ 0.5F, 0.479425539F, Point( nan, 0, 0 ), false, false },
              Row{ 0.5F, 0.479425539F, Point( 0, 0, -1e30F ), false, false }, // the direction overflows to zero
              Row{ 0.5F, 0.479425539F, Point( 0, 0, 1e30F ), false, false },
              Row{ 0, 0, Point( 5, 3, 1 ), true, false }, // and the surfaces count
              Row{ 0, 0, Point( 5, 3, 1.001F ), false, false },
              Row{ 0, 0, Point( 5, 3, 10.999F ), false, false },
              Row{ 0, 0, Point( 5, 3, 11 ), false, true },
              Row{ widest, 1, Point( 0, 0, -1 ), true, false },
              Row{ widest, 1, Point( 0.01F, 0, -1 ), false, false },
              Row{ beyond, -1, Point( 0, 0, -1 ), false, true },
              Row{ beyond, -1, Point( nan, 0, 0 ), false, true },
              Row{ nan, -1, Point( 0, 0, -1 ), false, true },
              Row{ noCosine, nan, Point( 0, 0, -1 ), false, false },
              Row{ noCosine, nan, Point( 0, 0, 11 ), false, true }, // the tip is asked for first
              Row{ -0.5F, -0.479425539F, Point( 0, 0, -1 ), false, true },
          } )
    {
        const GeCullingCones cones( { Z, semiAngle }, Point( 0, 0, 1 ), 10 );
        EXPECT_EQ( cones.isBehind( p ), isBehind ) << cones << p;
        EXPECT_EQ( cones.isInFront( p ), isInFront ) << cones << p;
        EXPECT_TRUE( cones.getCosBeta() == cosBeta || std::isnan( cosBeta ) ) << cones;
        EXPECT_EQ( std::isnan( cones.getCullingSemiAngle() ), std::isnan( cosBeta ) ) << cones;
        EXPECT_TRUE( cones.getCullingSemiAngle() == 0 || !( cosBeta < 0 ) ) << cones;
    }
}

} // namespace
