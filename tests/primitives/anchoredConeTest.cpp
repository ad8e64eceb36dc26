#include "support/exactVector.h"
#include "support/random.h"
#include "support/report.h"
#include "support/scalars.h"

#include <zq/primitives/geAnchoredConeBuilder.h>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Zq;
using ZqTest::combine;
using ZqTest::cross;
using ZqTest::difference;
using ZqTest::dot;
using ZqTest::Exact;
using ZqTest::Random;
using ZqTest::widen;

namespace
{

using Unit = GeUnitVector3<float>;
using Point = GePoint3<float>;

const Unit X( 1, 0, 0 );
const Unit Z( 0, 0, 1 );
constexpr float QUARTER_PI = 0.785398163F;
const char BUILDER_FILE[] = "src/primitives/geAnchoredConeBuilder";

GeAnchoredCone build( const std::vector<Point>& points, const GeFloatingCone& cone )
{
    GeAnchoredConeBuilder builder;
    UnaryFunctor<Point, bool>& functor = builder;
    for ( const Point& point : points )
        EXPECT_TRUE( functor( point ) );
    return builder.createCone( cone );
}

// The fit in long double, by another route: every point's excess is the difference between where it is and where the
// ray from the axis to it leaves the cone.
struct Fit
{
    Exact bottom, u, v, center;
    long double radius = 0, height = 0, offset = 0; // offset: from the bottom point to the centre
};

Exact chooseFrameAxis( const Unit& axis )
{
    const float x = std::fabs( axis.getX() );
    const float y = std::fabs( axis.getY() );
    const float z = std::fabs( axis.getZ() );
    if ( x < ( std::min )( y, z ) )
        return { 1, 0, 0 };
    return y < z && y <= x ? Exact{ 0, 1, 0 } : Exact{ 0, 0, 1 };
}

Fit fit( const std::vector<Point>& points, const GeFloatingCone& cone, std::size_t bottomIndex )
{
    const Exact a = widen( cone.getAxis() );
    const long double t = std::tan( static_cast<long double>( cone.getSemiAngle() ) );
    Fit result;
    result.bottom = widen( points[bottomIndex] );
    result.v = ZqTest::normalized( cross( a, chooseFrameAxis( cone.getAxis() ) ) );
    result.u = ZqTest::normalized( cross( result.v, a ) );
    std::vector<std::array<long double, 2>> excesses;
    long double low[2] = { 0, 0 }, high[2] = { 0, 0 };
    for ( std::size_t i = 0; i < points.size(); ++i )
    {
        const Exact offset = difference( widen( points[i] ), result.bottom );
        const long double height = dot( offset, a );
        const Exact sideways = combine( 1, offset, -height, a );
        const long double rho = ZqTest::length( sideways );
        result.height = std::max( result.height, height );
        if ( i == bottomIndex || rho <= height * t )
            continue;
        const Exact excess = combine( 1, sideways, -height * t / rho, sideways );
        const std::array<long double, 2> e{ dot( excess, result.u ), dot( excess, result.v ) };
        excesses.push_back( e );
        for ( int k : { 0, 1 } )
        {
            low[k] = std::min( low[k], e[static_cast<unsigned>( k )] );
            high[k] = std::max( high[k], e[static_cast<unsigned>( k )] );
        }
    }
    const long double cx = ( low[0] + high[0] ) / 2, cy = ( low[1] + high[1] ) / 2;
    for ( const auto& e : excesses )
        result.radius = std::max( result.radius, std::hypot( e[0] - cx, e[1] - cy ) );
    result.offset = std::hypot( cx, cy );
    result.center = combine( 1, result.bottom, 1, combine( cx, result.u, cy, result.v ) );
    return result;
}

TEST( AnchoredConeBuilder, FitsAsALongDoubleReferenceDoes )
{
    Random random( 1 );
    int lopsided = 0;
    for ( int i = 0; i < 3000; ++i )
    {
        // half of the axes have components of equal size: the ties of the frame
        const auto pick = [&random] { return static_cast<float>( random.index( 5 ) - 2 ); };
        const GeVector3<float> tied( pick(), pick(), pick() );
        const Unit axis = i % 2 || tied == GeVector3<float>() ? random.direction<float>() : Unit( tied );
        const GeFloatingCone cone( axis, random.uniform( 0.0F, 1.2F ) );
        std::vector<Point> points;
        const int count = 1 + random.index( 12 );
        for ( int k = 0; k < count; ++k )
            points.push_back( random.point<float>( 1 ) );
        std::size_t bottomIndex = 0;
        for ( std::size_t k = 1; k < points.size(); ++k )
        {
            if ( dot( widen( points[k] ), widen( axis ) ) < dot( widen( points[bottomIndex] ), widen( axis ) ) )
                bottomIndex = k;
        }
        const GeAnchoredCone built = build( points, cone );
        const Fit expected = fit( points, cone, bottomIndex );
        const long double bound = 1e-5L;
        EXPECT_EQ( built.getFloatingCone(), cone );
        EXPECT_LE( ZqTest::length( difference( widen( built.getBottomCenter() ), expected.center ) ), bound );
        EXPECT_LE( std::fabs( built.getBottomRadius() - expected.radius ), bound );
        EXPECT_LE( std::fabs( built.getHeight() - expected.height ), bound );

        // whatever sticks out lies inside the result, and so do the others unless the excesses are lopsided
        lopsided += expected.offset > expected.radius;
        for ( const Point& point : points )
        {
            const Exact fromBottom = difference( widen( point ), expected.bottom );
            const Exact fromCenter = difference( widen( point ), widen( built.getBottomCenter() ) );
            const long double z = dot( fromBottom, widen( axis ) );
            const long double inside = z * built.getTangent();
            const bool sticksOut = ZqTest::length( combine( 1, fromBottom, -z, widen( axis ) ) ) > inside + bound;
            const long double reach = ZqTest::length( combine( 1, fromCenter, -z, widen( axis ) ) );
            if ( sticksOut || expected.offset <= expected.radius )
            {
                EXPECT_LE( reach, built.getBottomRadius() + inside + bound );
                EXPECT_LE( z, built.getHeight() + bound );
            }
        }
    }
    EXPECT_GT( lopsided, 50 );
}

TEST( AnchoredConeBuilder, NamedSets )
{
    const GeFloatingCone half( Z, 0.5F );
    const GeFloatingCone quarter( Z, QUARTER_PI );
    EXPECT_EQ( build( { Point( 3, 4, 5 ) }, half ), GeAnchoredCone( half, Point( 3, 4, 5 ), 0, 0 ) );
    EXPECT_EQ( build( { Point(), Point( 0, 0, 5 ) }, half ), GeAnchoredCone( half, Point(), 0, 5 ) );

    const GeAnchoredCone moved = build( { Point(), Point( 2, 0, 1 ) }, quarter );
    EXPECT_TRUE( moved.isEqual( GeAnchoredCone( quarter, Point( 0.5F, 0, 0 ), 0.5F, 1 ), 1e-6F, 1e-6F ) );

    // the lowest point is a copy: its place is overwritten before the last point is read
    const GeAnchoredCone late = build( { Point( 1, 0, 0 ), Point( 3, 0, 0 ), Point( 5, 0, 0 ) }, half );
    EXPECT_TRUE( late.isEqual( GeAnchoredCone( half, Point( 3, 0, 0 ), 2, 0 ), 1e-6F, 1e-6F ) );

    // equal projections: the first is the bottom point, and only excesses count for the radius. Seen from (0, 0, 0) the
    // bottom point itself is farther from the middle than both excesses; seen from (1, 0.5, 0) one excess is far.
    const Point lopsided[] = { Point(), Point( 1, 0.5F, 0 ), Point( 0.5F, 1, 0 ) };
    const GeAnchoredCone first = build( { lopsided[0], lopsided[1], lopsided[2] }, half );
    EXPECT_TRUE( first.isEqual( GeAnchoredCone( half, Point( 0.5F, 0.5F, 0 ), 0.5F, 0 ), 1e-6F, 1e-6F ) );
    const GeAnchoredCone second = build( { lopsided[1], lopsided[0], lopsided[2] }, half );
    EXPECT_TRUE( second.isEqual( GeAnchoredCone( half, Point( 0.5F, 0.5F, 0 ), 0.7071068F, 0 ), 1e-6F, 1e-6F ) );

    // a NaN point is never the lowest and never sticks out
    const Point bad( ZqTest::nan<float>, 0, 0 );
    EXPECT_EQ( build( { bad, Point(), Point( 0, 0, 5 ), bad }, half ), GeAnchoredCone( half, Point(), 0, 5 ) );
}

TEST( AnchoredConeBuilder, WithoutResetTheNextConeIsAnother )
{
    const GeFloatingCone cone( Z, 0.5F );
    const std::vector<Point> points{ Point( 4, 0, 0 ), Point( 6, 0, 0 ), Point( 4, 2, 1 ) };
    GeAnchoredConeBuilder builder( 0 );
    for ( const Point& point : points )
        builder( point );
    GeAnchoredConeBuilder copy = builder;
    const GeAnchoredCone first = builder.createCone( cone );
    const GeAnchoredCone second = builder.createCone( cone );
    EXPECT_FALSE( first == second );
    // what the first call left: its two excesses, in the frame u = y, v = -x, then the untouched tail
    const float excess = 2 - FloatUtil::tan( 0.5F );
    EXPECT_EQ( second, build( { Point( 0, -2, 0 ), Point( excess, 0, 0 ), points[2] }, cone ) );
    EXPECT_EQ( copy.createCone( cone ), first );
    builder.reset();
    for ( const Point& point : points )
        builder( point );
    EXPECT_EQ( builder.createCone( cone ), first );
}

TEST( AnchoredConeBuilder, ReportsLeaveThePointsAsTheyWere )
{
    const GeFloatingCone cone( Z, 0.5F );
    GeAnchoredConeBuilder builder;
    EXPECT_REPORT( builder.createCone( cone ), BUILDER_FILE, "bottomIndex != -1" );
    builder( Point( 0, 0, ZqTest::nan<float> ) );
    builder( Point( 0, 0, ZqTest::infinity<float> ) );
    builder( Point( 0, 0, std::numeric_limits<float>::max() ) );
    EXPECT_REPORT( builder.createCone( cone ), BUILDER_FILE, "bottomIndex != -1" );

    builder.reset();
    builder( Point( 1, 2, 3 ) );
    builder( Point( 5, 2, 3 ) );
    EXPECT_REPORT( builder.createCone( GeFloatingCone( Unit(), 0.5F ) ), BUILDER_FILE, "len > 0" );
    EXPECT_EQ( builder.createCone( cone ), build( { Point( 1, 2, 3 ), Point( 5, 2, 3 ) }, cone ) );
}

TEST( AnchoredCone, ApexesSeeTheRimsAtTheirAngles )
{
    Random random( 2 );
    for ( int i = 0; i < 1000; ++i )
    {
        const Unit axis = random.direction<float>();
        const float alpha = random.uniform( 0.2F, 1.3F );
        const GeAnchoredCone cone(
            { axis, alpha }, random.point<float>( 1 ), random.uniform( 0.5F, 2.0F ), random.uniform( 0.5F, 2.0F ) );
        const Exact a = widen( axis );
        const Exact sideways = ZqTest::normalized( cross( a, widen( random.direction<float>() ) ) );
        const Exact bottom = widen( cone.getBottomCenter() );
        const Exact bottomRim = combine( 1, bottom, cone.getBottomRadius(), sideways );
        const Exact top = combine( 1, bottom, cone.getHeight(), a );
        const Exact topRim = combine( 1, top, cone.getTopRadius(), sideways );
        const auto angle = [&a]( const Point& apex, const Exact& rim )
        { return ZqTest::angleBetween( a, difference( rim, widen( apex ) ) ); };
        const long double right = std::acos( -1.0L ) / 2;
        const long double bound = 1e-5L;
        EXPECT_LE( std::fabs( angle( cone.getApex(), bottomRim ) - alpha ), bound );
        EXPECT_LE( std::fabs( angle( cone.getApex(), topRim ) - alpha ), bound );
        EXPECT_LE( std::fabs( angle( cone.getBackfacingApex(), bottomRim ) - ( right - alpha ) ), bound );
        EXPECT_LE( std::fabs( angle( cone.getFrontfacingApex(), topRim ) - ( right + alpha ) ), bound );
    }
    // nothing is guarded
    EXPECT_EQ( GeAnchoredCone( { Z, 0 }, Point(), 1, 1 ).getApexDistance(), ZqTest::infinity<float> );
    EXPECT_TRUE( std::isnan( GeAnchoredCone( { Z, 0 }, Point(), 0, 1 ).getApexDistance() ) );
}

TEST( AnchoredCone, ComparisonsIgnoreTheAxis )
{
    const GeAnchoredCone cone( { Z, 0.5F }, Point( 1, 2, 3 ), 4, 5 );
    EXPECT_TRUE( cone == GeAnchoredCone( { X, 0.5F }, Point( 1, 2, 3 ), 4, 5 ) );
    EXPECT_TRUE( cone.isEqual( GeAnchoredCone( { X, 0.5F }, Point( 1, 2, 3 ), 4, 5 ), 0.1F, 0.1F ) );
    for ( const GeAnchoredCone& other : {
              GeAnchoredCone( { Z, 0.5F }, Point( 1.25F, 2, 3 ), 4, 5 ),
              GeAnchoredCone( { Z, 0.5F }, Point( 1, 2.25F, 3 ), 4, 5 ),
              GeAnchoredCone( { Z, 0.5F }, Point( 1, 2, 3.25F ), 4, 5 ),
              GeAnchoredCone( { Z, 0.5F }, Point( 1, 2, 3 ), 4.25F, 5 ),
              GeAnchoredCone( { Z, 0.5F }, Point( 1, 2, 3 ), 4, 5.25F ),
          } )
    {
        EXPECT_TRUE( cone != other );
        EXPECT_FALSE( cone.isEqual( other, 0.25F, 0.5F ) );
        EXPECT_TRUE( cone.isEqual( other, 0.5F, 0.0001F ) );
    }
    const GeAnchoredCone steeper( { Z, 0.75F }, Point( 1, 2, 3 ), 4, 5 );
    EXPECT_FALSE( cone == steeper );
    EXPECT_FALSE( cone.isEqual( steeper, 1, 0.1F ) );
    EXPECT_TRUE( cone.isEqual( steeper, 0.1F, 1 ) );
}

} // namespace
