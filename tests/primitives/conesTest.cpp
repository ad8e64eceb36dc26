// The three cones, from the directions and points of a cluster to the two regions of viewpoints. Single precision only,
// and measured in double.

#include "support/prelude.h"

#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFloatingConeBuilder.h>

#include <functional>
#include <gmpxx.h>

namespace
{

using Unit = GeUnitVector3<float>;
using Vector = GeVector3<float>;
using Point = GePoint3<float>;
using Wide = GeVector3<double>;
using Box = GeAlignedBox3<float>;

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

// Resetting forgets the direction before, and creating the others.
GeFloatingCone build( const std::vector<Unit>& directions )
{
    GeFloatingConeBuilder builder( 0 );
    builder( Z );
    builder.reset();
    std::for_each( directions.begin(), directions.end(), std::ref( builder ) );
    const GeFloatingCone cone = builder.createCone();
    EXPECT_TRUE( builder.createCone().isSphere() );
    return cone;
}

// Resetting forgets the point before.
GeAnchoredCone fit( const std::vector<Point>& points, const GeFloatingCone& cone )
{
    GeAnchoredConeBuilder builder( 0 );
    builder( Point( -9, -9, -9 ) );
    builder.reset();
    EXPECT_TRUE( std::all_of( points.begin(), points.end(), std::ref( builder ) ) );
    return builder.createCone( cone );
}

// Moves each number by itself. The first ones are not looked at; the last one has a tolerance of its own.
template <class Cone>
void expectComparisonLooksAtAllBut( std::size_t nbIgnored, const Cone& cone )
{
    constexpr std::size_t count = sizeof cone / sizeof( float );
    for ( std::size_t i = 0; i < count; ++i )
    {
        const Cone moved = ZqTest::withChange( cone, i, 0.25F );
        const bool isLast = i + 1 == count;
        EXPECT_EQ( moved == cone, i < nbIgnored ) << i;
        EXPECT_CLOSE( moved, cone, isLast ? 0.001F : 0.26F, isLast ? 0.26F : 0.001F ) << i;
        EXPECT_EQ( moved.isEqual( cone, 0.25F, 0.25F ), i < nbIgnored ) << i;
    }
}

TEST( Cones, ComparisonsAndTexts )
{
    const GeFloatingCone cone( Z, 4 );
    expectComparisonLooksAtAllBut( 0, cone );
    expectComparisonLooksAtAllBut( 4, GeAnchoredCone( cone, Point( 1, 2, 3 ), 4, 5 ) );
    expectComparisonLooksAtAllBut( 4, GeCullingCones( cone, Point( 1, 2, 3 ), 4 ) );
    std::ostringstream os;
    os << GeCullingCones().getFloatingCone() << GeCullingCones( { Z, 3 }, Point( 1, 2.5F, 3 ), 4 )
       << GeAnchoredCone( cone, Point( 1, 2, 3 ), 4.5F, 5 );
    EXPECT_EQ( os.str(),
        "floatingCone( axis=(0, 0, 1), alpha=3.14159 )cullingCones( backfacingApex=(1, 2.5, 3), frontfacingOffset=4, "
        "cosBeta=-1, floatingCone( axis=(0, 0, 1), alpha=3 ) )anchoredCone( bottomCenter=(1, 2, 3), bottomRadius=4.5, "
        "height=5, floatingCone( axis=(0, 0, 1), alpha=4 ) )" );
}

// Normals -------------------------------------------------------------------------------------------------------------

TEST( FloatingCone, ExpandMakesTheSmallestConeAboutTwo )
{
    Random random( 2 );
    for ( const auto i : random.runs( 2000 ) )
    {
        const GeFloatingCone a{ random.direction<float>(), random.uniform( 0.0F, 1.5F ) };
        const GeFloatingCone b{ random.direction<float>(), random.uniform( 0.0F, 1.5F ) };
        const double between = widen( a.getAxis() ).computeAngle( widen( b.getAxis() ) );
        if ( between < 0.2 || between > 2.69 || std::fabs( a.getSemiAngle() - b.getSemiAngle() ) > between )
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

TEST( FloatingCone, Limits )
{
    const GeFloatingCone narrow( Z, 0.5F );
    const float sine = FloatUtil::sin( 0.5F ), cosine = FloatUtil::cos( 0.5F );
    EXPECT_TRUE( GeFloatingCone( Z, SPHERE ).isSphere() );
    EXPECT_FALSE( GeFloatingCone( Z, 3.1415925F ).isSphere() );
    EXPECT_TRUE( narrow.contains( Unit( sine, 0, cosine, GE_TRUSTED ) ) );
    EXPECT_FALSE( narrow.contains( Unit( sine, 0, std::nextafter( cosine, 0.0F ), GE_TRUSTED ) ) );

    const float tilted = std::sqrt( 1 - 0.81F ), exact = 1e-30F;
    const Unit tooLong( 1.0000005F, 0, 0, GE_TRUSTED ), beyond( tilted, 0, std::nextafter( -0.9F, -1.0F ), GE_TRUSTED );
    using Row = std::tuple<GeFloatingCone, GeFloatingCone, GeFloatingCone, float>;
    for ( const auto& [start, other, expected, tolerance] : {
              Row{ { Z, 4.0F }, { X, SPHERE }, { Z, 4.0F }, exact },
              Row{ { Z, 0.5F }, { X, SPHERE }, { Z, SPHERE }, exact },
              Row{ { Z, 0.1F }, { beyond, 0.1F }, { Z, SPHERE }, exact },
              Row{ { Z, 1.0F }, { Z, 0.1F }, { Z, 0.55F }, 1e-6F }, // containment is not looked at
              Row{ { Z, 3.0F }, { X, 3.0F }, { Unit( 1, 0, 1 ), 3 + QUARTER_PI }, 1e-6F }, // there is no limit
              Row{ { tooLong, 0.5F }, { tooLong, 0.5F }, { X, 0.5F }, exact },             // a cosine above one
          } )
    {
        GeFloatingCone cone = start;
        cone.expand( other );
        EXPECT_CLOSE( cone, expected, tolerance, tolerance );
    }
    GeFloatingCone axisless( Unit(), 0.5F );
    EXPECT_REPORT( axisless.expand( narrow ), "src/primitives/geFloatingCone", "len > 0" );
    EXPECT_EQ( axisless, GeFloatingCone( Unit(), 0.5F ) );
}

TEST( FloatingConeBuilder, TheConeHoldsEveryDirectionAndNoMoreThanThat )
{
    Random random( 5 );
    for ( const auto i : random.runs( 3000 ) )
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
        if ( box.contains( GePoint3<double>() ) )
        {
            EXPECT_EQ( cone, GeFloatingCone( Z, SPHERE ) );
            continue;
        }
        const Wide axis = widen( cone.getAxis() );
        EXPECT_LE( axis.computeAngle( Wide( box.getCenter() ) ), 5e-7 );
        double smallest = 1;
        for ( const Unit& direction : directions )
            smallest = std::min( smallest, axis.dot( widen( direction ) ) );
        EXPECT_NEAR( smallest, std::cos( double( cone.getSemiAngle() ) ), 5e-7 );
    }

    const auto trusted = []( float x, float y, float z ) { return Unit( x, y, z, GE_TRUSTED ); };
    const float half = 0.7071071F; // a little long: the product must not be rounded above -1
    // nothing, a box that touches the origin, a centre whose squares underflow, a direction against the axis
    const std::vector<Unit> spheres[] = { {}, { X, Unit( 0, 1, 0 ) },
        { trusted( 1e-30F, 1, 0 ), trusted( 1e-30F, -1, 0 ) },
        { trusted( -half, -half, 1e-20F ), trusted( 1, 0, 1e-20F ), trusted( 0, 1, 1e-20F ) } };
    for ( const std::vector<Unit>& directions : spheres )
        EXPECT_TRUE( build( directions ).isSphere() ) << directions.size();
}

// Points --------------------------------------------------------------------------------------------------------------

/// The fit by another route: a point's excess is how far it is from where the ray from the axis to it leaves the cone.
GeAnchoredCone fitByReference( const std::vector<Point>& points, const GeFloatingCone& cone )
{
    const Wide a = widen( cone.getAxis() );
    const auto isLower = [&]( const Point& p, const Point& q ) { return a.dot( widen( p ) ) < a.dot( widen( q ) ); };
    const auto [bottom, top] = std::minmax_element( points.begin(), points.end(), isLower );
    const double sizes[] = { std::fabs( a[2] ), std::fabs( a[1] ), std::fabs( a[0] ) };
    Wide frameAxis;
    frameAxis[static_cast<int>( sizes + 2 - std::min_element( sizes, sizes + 3 ) )] = 1;
    const Wide v = a.cross( frameAxis ).computeUnit(), u = v.cross( a );
    std::vector<GePoint3<double>> excesses;
    GeAlignedBox3<double> box{ GePoint3<double>() };
    for ( const Point& point : points )
    {
        const Wide offset = widen( point - *bottom );
        const Wide sideways = offset - a * offset.dot( a );
        const double excess = sideways.length() - offset.dot( a ) * std::tan( cone.getSemiAngle() );
        if ( excess <= 0 )
            continue;
        const Wide direction = sideways.computeUnit();
        excesses.emplace_back( direction.dot( u ) * excess, direction.dot( v ) * excess, 0 );
        box.extend( excesses.back() );
    }
    const GePoint3<double> middle = box.getCenter();
    double radius = 0;
    for ( const GePoint3<double>& excess : excesses )
        radius = std::max( radius, ( excess - middle ).length() );
    const Point center = *bottom + Vector( u * middle.getX() + v * middle.getY() );
    const float height = static_cast<float>( a.dot( widen( *top - *bottom ) ) );
    return { cone, center, static_cast<float>( radius ), height };
}

TEST( AnchoredConeBuilder, FitsAsAReferenceDoes )
{
    Random random( 1 );
    for ( const auto i : random.runs( 3000 ) )
    {
        // axes that have components of equal size, too: the ties of the frame
        const auto pick = [&random] { return static_cast<float>( random.index( 5 ) - 2 ); };
        const float x = pick(), y = pick();
        const GeFloatingCone cone( Unit( x, y, i % 2 ? 1.3F : 1.0F ), random.uniform( 0.0F, 1.2F ) );
        std::vector<Point> points( std::size_t( 1 + random.index( 12 ) ) );
        std::generate( points.begin(), points.end(), [&] { return random.point<float>( 1 ); } );
        EXPECT_CLOSE( fit( points, cone ), fitByReference( points, cone ), 1e-5F, 1e-30F );
    }
}

TEST( AnchoredConeBuilder, NamedSets )
{
    const GeFloatingCone cone( Z, 0.5F );
    const Point a( 0, 0, 0 ), b( 1, 0.5F, 0 ), c( 0.5F, 1, 0 ), top( 0, 0, 5 ), bad( ZqTest::nan<float>, 0, 0 );
    EXPECT_EQ( fit( { bad, a, top, bad }, cone ), GeAnchoredCone( cone, a, 0, 5 ) ) << "NaN is neither low nor outside";
    // Of equal projections the first is the bottom point, and only excesses count for the radius. Seen from a the
    // bottom point itself is farther from the middle than both excesses; seen from b one excess is far.
    const Point middle( 0.5F, 0.5F, 0 );
    EXPECT_CLOSE( fit( { a, b, c }, cone ), GeAnchoredCone( cone, middle, 0.5F, 0 ), 1e-6F, 1e-6F );
    EXPECT_CLOSE( fit( { b, a, c }, cone ), GeAnchoredCone( cone, middle, 0.7071068F, 0 ), 1e-6F, 1e-6F );
}

// Viewpoints ----------------------------------------------------------------------------------------------------------

// By another road, without apexes: the face that turns first leans by the semi-angle, away from or towards the eye, on
// the rim of the bottom or the top. Up to 45 degrees that goes for all faces, not only those of the two discs.
TEST( CullingCones, AnswersAreThoseOfTheFaceThatTurnsFirst )
{
    Random random( 1 );
    for ( const auto i : random.runs( 10000 ) )
    {
        const float alpha = random.uniform( 0.05F, 1.5F ), radius = random.uniform( 0.0F, 1.0F );
        const float height = random.uniform( 0.0F, 1.0F ), sine = std::sin( alpha ), cosine = std::cos( alpha );
        const GeAnchoredCone anchored( { random.direction<float>(), alpha }, random.point<float>( 1 ), radius, height );
        const GeCullingCones cones( anchored );
        // near a tip and far from it
        const Point tip = i % 2 ? anchored.getBackfacingApex() : anchored.getFrontfacingApex();
        const Point eye = tip + random.vector<float>( std::pow( 10.0F, random.uniform( -3.0F, 1.0F ) ) );
        const Wide axis = widen( anchored.getFloatingCone().getAxis() );
        const Wide offset = widen( eye ) - widen( anchored.getBottomCenter() );
        const double level = axis.dot( offset ), aside = axis.cross( offset ).length(), bound = 1e-5;
        const double back = cosine * level + sine * ( aside + radius );
        const double front = cosine * ( level - height ) - sine * ( aside + anchored.getTopRadius() );
        EXPECT_TRUE( cones.isBehind( eye ) == ( back < 0 ) || std::fabs( back ) < bound ) << cones << eye;
        EXPECT_TRUE( cones.isInFront( eye ) == ( front > 0 ) || std::fabs( front ) < bound ) << cones << eye;
        EXPECT_NEAR( cones.getCullingSemiAngle(), 2 * QUARTER_PI - alpha, 1e-6 );
        const double toApex = axis.dot( widen( anchored.getBottomCenter() ) - widen( anchored.getApex() ) );
        EXPECT_NEAR( toApex * sine, radius * cosine, 1e-5 );
        const double tips = axis.dot( widen( anchored.getFrontfacingApex() ) - widen( anchored.getBackfacingApex() ) );
        EXPECT_NEAR( cones.getFrontfacingOffset(), tips, 1e-4 );
    }
}

TEST( CullingCones, NamedViewpoints )
{
    const float nan = ZqTest::nan<float>;
    const float widest = 1.57079625F; // twice this is the largest float below pi
    using Row = std::tuple<float, float, Point, bool, bool>;
    for ( const auto& [semiAngle, cosBeta, p, isBehind, isInFront] : {
              Row{ 0.5F, 0.479425539F, Point( 0, 0, 1 ), true, false }, // the tips count
              Row{ 0.5F, 0.479425539F, Point( 0, 0, 11 ), false, true },
              Row{ 0.5F, 0.479425539F, Point( nan, 0, 0 ), false, false },
              Row{ 0.5F, 0.479425539F, Point( 0, 0, -1e30F ), false, false }, // the direction overflows to zero
              Row{ 0, 0, Point( 5, 3, 1 ), true, false },                     // and the surfaces count
              Row{ 0, 0, Point( 5, 3, 11 ), false, true },
              Row{ widest, 1, Point( 0, 0, -1 ), true, false },
              Row{ std::nextafter( widest, 2.0F ), -1, Point( 0, 0, -1 ), false, true },
              Row{ nan, -1, Point( nan, 0, 0 ), false, true },
          } )
    {
        const GeCullingCones cones( { Z, semiAngle }, Point( 0, 0, 1 ), 10 );
        EXPECT_EQ( cones.isBehind( p ), isBehind ) << cones << p;
        EXPECT_EQ( cones.isInFront( p ), isInFront ) << cones << p;
        EXPECT_EQ( cones.getCosBeta(), cosBeta ) << cones;
        EXPECT_TRUE( cosBeta >= 0 || cones.getCullingSemiAngle() == 0 ) << cones;
    }
}

// Regions of viewpoints -----------------------------------------------------------------------------------------------

using Exact = std::array<mpz_class, 3>;

/// A float, or a double as fine, in units of the smallest float.
mpz_class toInteger( double x )
{
    mpz_class integer( std::ldexp( x, 149 ) );
    return integer;
}

mpz_class dot( const Exact& a, const Exact& b )
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

template <class V>
Exact toIntegers( const V& v )
{
    return { toInteger( v[0] ), toInteger( v[1] ), toInteger( v[2] ) };
}

/// Whether all w from the eyes to the tip have w . a >= cosine |w|.
bool areAllWithin( const GeCullingCones& cones, const Box& eyes, const mpz_class& cosine )
{
    const Exact a = toIntegers( cones.getFloatingCone().getAxis() ), tip = toIntegers( cones.getBackfacingApex() );
    for ( int corner = 0; corner < 8; ++corner )
    {
        Exact w = toIntegers( eyes.getCorner( corner ) );
        for ( std::size_t i = 0; i < 3; ++i )
            w[i] = tip[i] - w[i];
        const mpz_class along = dot( w, a );
        if ( along < 0 || along * along < cosine * cosine * dot( w, w ) )
            return false;
    }
    return true;
}

/// Whether all normals n at the semi-angle with that sine, or less, from the axis have n . d >= 0.
bool areAllWithin( const Unit& axis, const Vector& direction, double sine )
{
    const Exact a = toIntegers( axis ), d = toIntegers( direction );
    const mpz_class along = dot( a, d ), s = toInteger( sine );
    return along >= 0 && ( along * along << 298 ) >= s * s * dot( a, a ) * dot( d, d );
}

/// As it is, of any length.
Unit makeAxis( const Vector& v )
{
    Unit axis;
    std::memcpy( static_cast<void*>( &axis ), &v, sizeof axis );
    return axis;
}

/// Of length 1, and with a . v = cosine.
Wide makeDirectionAt( Random& random, const Unit& axis, double cosine )
{
    const Wide a = widen( axis ).computeUnit();
    const double along = cosine / widen( axis ).length();
    return a * along + a.cross( widen( random.direction<float>() ) ).computeUnit() * std::sqrt( 1 - along * along );
}

// Tips are small against the eyes, so that the differences are as fine as doubles, and so is the distance to the surface.
TEST( CullingCones, RegionsThatAreBehindAreSoExactlyAndHardlyAnyOtherIsMissed )
{
    Random random( 3 );
    int nbBehind = 0, nbTight = 0;
    for ( const auto i : random.runs( 25000 ) )
    {
        const GeFloatingCone normals( random.direction<float>(), random.uniform( 0.0F, 1.57F ) );
        const float cosBeta = GeCullingCones( normals, Point(), 0 ).getCosBeta();
        const double target = double( cosBeta ) + std::ldexp( i % 4 ? 1.0 : -1.0, -random.index( 30 ) - 25 );
        if ( !( target < widen( normals.getAxis() ).length() ) )
            continue;
        const int exponent = random.index( 120 ) - 60;
        const Wide w = makeDirectionAt( random, normals.getAxis(), target ) * std::ldexp( 1.0, exponent );
        const Point eye( -Vector( w ) );
        const GeCullingCones cones( normals, Point( Vector( w + widen( eye ) ) ), 0 );
        // the other corners lie farther inside, at least near the eye
        const double extent = std::ldexp( 1.0, -random.index( 30 ) );
        Vector inwards(
            ( w * ( double( cosBeta ) / w.length() ) - widen( normals.getAxis() ) ) * ( extent * w.length() ) );
        for ( int axis = 0; axis < 3; ++axis )
            inwards[axis] *= random.uniform( 0.0F, 1.0F );
        const Box eyes = i % 3 == 0 ? Box( eye ) : Box( eye, eye + inwards );
        const bool isBehind = cones.isBehind( eyes ),
                   isTight = areAllWithin( cones, eyes, toInteger( cosBeta + 0x1p-47 ) );
        EXPECT_TRUE( !isBehind || areAllWithin( cones, eyes, toInteger( cosBeta ) ) ) << cones << eyes;
        EXPECT_TRUE( isBehind || !isTight ) << cones << eyes;
        nbBehind += isBehind;
        nbTight += isTight && !areAllWithin( cones, eyes, toInteger( cosBeta + 0x1p-43 ) );
    }
    EXPECT_GT( nbBehind, 7500 );
    EXPECT_GT( nbTight, 1250 );
}

TEST( CullingCones, DirectionsThatAreBehindAreSoExactlyAndHardlyAnyOtherIsMissed )
{
    Random random( 4 );
    int nbBehind = 0;
    for ( const auto i : random.runs( 25000 ) )
    {
        const Unit axis = makeAxis( random.direction<float>() * ( i % 4 ? 1.0F : random.uniform( 0.25F, 4.0F ) ) );
        const GeFloatingCone normals( axis, random.uniform( 0.0F, 1.57F ) );
        // up to some roundings more than the sine, or clearly more or less than it
        const double sine = std::sin( double( normals.getSemiAngle() ) );
        const double off = i % 2 ? 0x1p-23 * random.uniform( -1.0F, 2.0F ) : random.uniform( -1.0F, 1.0F );
        if ( std::fabs( sine + off ) >= 1 )
            continue;
        const Wide wide = makeDirectionAt( random, axis, ( sine + off ) * widen( axis ).length() );
        const Vector direction( wide * std::ldexp( 1.0, random.index( 200 ) - 100 ) );
        const GeCullingCones cones( normals, random.point<float>( 1 ), 0 );
        const bool isBehind = cones.isBehindDirection( direction );
        EXPECT_TRUE( !isBehind || areAllWithin( axis, direction, sine * ( 1 + 0x1p-50 ) ) ) << cones << direction;
        EXPECT_TRUE( isBehind || !areAllWithin( axis, direction, sine * ( 1 + 0x1p-21 ) + 0x1p-50 ) )
            << cones << direction;
        nbBehind += isBehind;
        if ( i % 4 && std::fabs( off ) > 1e-5 )
        {
            const Point farAway( cones.getBackfacingApex() - Vector( wide * 0x1p30 ) );
            EXPECT_EQ( isBehind, cones.isBehind( Box( farAway ) ) ) << cones << direction;
        }
    }
    EXPECT_GT( nbBehind, 7500 );
}

TEST( CullingCones, NamedRegions )
{
    constexpr float nan = ZqTest::nan<float>, infinity = ZqTest::infinity<float>, huge = 3e38F, tiny = 1e-45F;
    const float next = std::nextafter( 1.0F, 2.0F ), widest = 1.57079625F;
    const auto make = []( float alpha, const Unit& axis = Z, const Point& tip = Point( 0, 0, 1 ) ) {
        return GeCullingCones( { axis, alpha }, tip, 0 );
    };
    const Unit bad = makeAxis( { 0, infinity, 1 } );
    const Box below( { -5, 5 }, { -5, 5 }, { -40, -30 } );
    using Row = std::tuple<GeCullingCones, Box, bool>;
    for ( const auto& [cones, eyes, isBehind] : {
              Row{ make( 0.5F ), below, true },
              Row{ make( 0.5F ), Box( { -5, 5 }, { -5, 60 }, { -40, -30 } ), false }, // the upper edge there sticks out
              Row{ make( 0.5F ), Box( Point( 0, 0, 1 ) ), true },                     // the tip
              Row{ make( 0 ), Box( { -5, 5 }, { -5, 5 }, { -5, 1 } ), true },         // touches the surface
              Row{ make( 0 ), Box( { -5, 5 }, { -5, 5 }, { -5, next } ), false },
              Row{ make( widest ), Box( Point( 0, 0, 1 ) ), true },
              Row{ make( widest ), Box( Point( 0, 0, 0 ) ), false },
              Row{ make( std::nextafter( widest, 2.0F ) ), below, false }, // no culling cones
              Row{ make( nan ), below, false },
              Row{ make( 0.5F ), Box( { -huge, huge }, { 0, 0 }, { -huge, -huge } ), true },
              Row{ make( 0.5F, Z, Point() ), Box( { -tiny, tiny }, { 0, 0 }, { -3 * tiny, -2 * tiny } ), true },
              Row{ make( 0.5F ), Box(), false },
              Row{ make( 0.5F ), Box( { 1, 0 }, { -5, 5 }, { -40, -30 } ), false },
              Row{ make( 0.5F ), Box( { nan, 5 }, { -5, 5 }, { -40, -30 } ), false },
              Row{ make( 0.5F ), Box( { -5, 5 }, { -5, 5 }, { -infinity, -30 } ), false },
              Row{ make( 0, Z, Point( 0, 0, infinity ) ), below, false },
              Row{ make( 0, Z, Point( nan, 0, 1 ) ), below, false },
              Row{ make( 0.5F, bad ), Box( Point( 0, -1, 0 ) ), false },
          } )
        EXPECT_EQ( cones.isBehind( eyes ), isBehind ) << cones << eyes;

    using Way = std::tuple<GeCullingCones, Vector, bool>;
    for ( const auto& [cones, direction, isBehind] : {
              Way{ make( 0.5F ), Vector( 0, 0, 1 ), true },
              Way{ make( 0.5F ), Vector( 0, 0, -1 ), false },
              Way{ make( 0 ), Vector( 1, 0, 0 ), true }, // along the surface
              Way{ make( 0 ), Vector( 1, 0, -tiny ), false },
              Way{ make( std::nextafter( widest, 2.0F ) ), Vector( 0, 0, 1 ), false },
              Way{ make( 0.5F ), Vector( huge, 0, huge ), true },
              Way{ make( 0.5F ), Vector( tiny, 0, tiny ), true },
              Way{ make( 0 ), Vector( 0, 0, 0 ), false },
              Way{ make( 0 ), Vector( 0, nan, 1 ), false },
              Way{ make( 0 ), Vector( 0, 0, infinity ), false },
              Way{ make( 0, Unit() ), Vector( 0, 0, 1 ), false },
              Way{ make( 0, bad ), Vector( 0, 1, 1 ), false },
              Way{ make( nan ), Vector( 0, 0, 1 ), false },
          } )
        EXPECT_EQ( cones.isBehindDirection( direction ), isBehind ) << cones << direction;
}

} // namespace
