#include "support/collectingTraceManager.h"
#include "support/exactVector.h"
#include "support/random.h"
#include "support/report.h"
#include "support/scalars.h"

#include <zq/primitives/geFloatingConeBuilder.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <sstream>

using namespace Zq;
using ZqTest::angleBetween;
using ZqTest::combine;
using ZqTest::dot;
using ZqTest::Exact;
using ZqTest::Random;
using ZqTest::widen;

namespace
{

using Unit = GeUnitVector3<float>;

const Unit X( 1, 0, 0 );
const Unit Z( 0, 0, 1 );
const char FILE_NAME[] = "src/primitives/geFloatingCone";
constexpr float SPHERE = 3.1415927410125732F;

// a, turned by an angle away from b in their common plane
Exact turnAway( const Exact& a, const Exact& b, long double angle )
{
    const Exact sideways = ZqTest::normalized( combine( 1, b, -dot( a, b ), a ) );
    return combine( std::cos( angle ), a, -std::sin( angle ), sideways );
}

std::uint32_t bits( float value )
{
    std::uint32_t result = 0;
    std::memcpy( &result, &value, sizeof( result ) );
    return result;
}

GeFloatingCone build( const std::vector<Unit>& directions )
{
    GeFloatingConeBuilder builder;
    UnaryFunctor<Unit, void>& functor = builder;
    for ( const Unit& direction : directions )
        functor( direction );
    return builder.createCone();
}

// The cone ----------------------------------------------------------------------------------------------------------

TEST( FloatingCone, SphereBeginsAtPiInDoublePrecision )
{
    EXPECT_FALSE( GeFloatingCone( Z, 3.1415925F ).isSphere() );
    EXPECT_TRUE( GeFloatingCone( Z, SPHERE ).isSphere() );
    EXPECT_TRUE( GeFloatingCone( Z, ZqTest::infinity<float> ).isSphere() );
    EXPECT_FALSE( GeFloatingCone( Z, ZqTest::nan<float> ).isSphere() );
}

TEST( FloatingCone, ContainsItsSurfaceAndNothingForNaN )
{
    Random random( 1 );
    const float cosine = FloatUtil::cos( 0.5F );
    const float sine = FloatUtil::sin( 0.5F );
    const GeFloatingCone cone( Z, 0.5F );
    EXPECT_TRUE( cone.contains( Unit( sine, 0, cosine, GE_TRUSTED ) ) );
    EXPECT_FALSE( cone.contains( Unit( sine, 0, std::nextafter( cosine, 0.0F ), GE_TRUSTED ) ) );
    EXPECT_TRUE( GeFloatingCone( Z, 0 ).contains( Z ) );
    EXPECT_FALSE( GeFloatingCone( Z, ZqTest::nan<float> ).contains( Z ) );
    EXPECT_FALSE( GeFloatingCone( Z, ZqTest::infinity<float> ).contains( Z ) ); // its cosine is NaN

    int outsideItself = 0;
    for ( int i = 0; i < 2000; ++i )
    {
        const Unit axis = random.direction<float>();
        const Unit other = random.direction<float>();
        const float semiAngle = random.uniform( 0.0F, 3.1F );
        const long double angle = angleBetween( widen( axis ), widen( other ) );
        const long double margin = 2e-6L / std::max( 1e-3L, std::sin( angle ) );
        if ( std::fabs( angle - semiAngle ) > margin )
        {
            EXPECT_EQ( GeFloatingCone( axis, semiAngle ).contains( other ), angle < semiAngle );
        }
        // an axis whose product with itself is rounded below 1 is not in its own cone of angle 0
        EXPECT_EQ( GeFloatingCone( axis, 0 ).contains( axis ), axis.dot( axis ) >= 1 );
        outsideItself += axis.dot( axis ) < 1;
        EXPECT_EQ( GeFloatingCone( axis, SPHERE ).contains( -axis ), axis.dot( axis ) <= 1 );
    }
    EXPECT_GT( outsideItself, 0 );
}

TEST( FloatingCone, ComparisonsAndText )
{
    const GeFloatingCone cone( Z, 0.5F );
    EXPECT_TRUE( cone == GeFloatingCone( Z, 0.5F ) );
    EXPECT_TRUE( cone != GeFloatingCone( X, 0.5F ) );
    EXPECT_TRUE( cone != GeFloatingCone( Z, 0.75F ) );
    EXPECT_TRUE( cone.isEqual( GeFloatingCone( Z, 0.75F ), 0.1F, 0.3F ) );
    EXPECT_FALSE( cone.isEqual( GeFloatingCone( Z, 0.75F ), 0.3F, 0.25F ) );
    EXPECT_TRUE( cone.isEqual( GeFloatingCone( Unit( 0.6F, 0, 0.8F ), 0.5F ), 0.7F, 0.1F ) );
    EXPECT_FALSE( cone.isEqual( GeFloatingCone( Unit( 0.6F, 0, 0.8F ), 0.5F ), 0.5F, 0.7F ) );
    const GeFloatingCone bad( Z, ZqTest::nan<float> );
    EXPECT_FALSE( bad == bad );
    EXPECT_FALSE( bad.isEqual( bad, 1, 1 ) );

    std::ostringstream os;
    os << cone << GeFloatingCone( X, SPHERE );
    EXPECT_EQ( os.str(), "floatingCone( axis=(0, 0, 1), alpha=0.5 )floatingCone( axis=(1, 0, 0), alpha=3.14159 )" );
}

// Growing -----------------------------------------------------------------------------------------------------------

TEST( FloatingCone, ExpandMakesTheSmallestConeAboutTwo )
{
    Random random( 2 );
    int used = 0;
    for ( int i = 0; i < 4000; ++i )
    {
        const GeFloatingCone before( random.direction<float>(), random.uniform( 0.0F, 1.5F ) );
        const GeFloatingCone other( random.direction<float>(), random.uniform( 0.0F, 1.5F ) );
        const Exact t = widen( before.getAxis() );
        const Exact o = widen( other.getAxis() );
        const long double theta = angleBetween( t, o );
        const long double a = before.getSemiAngle();
        const long double b = other.getSemiAngle();
        if ( theta < 0.2 || theta > 2.6 || theta + b < a || theta + a < b || theta + a + b > 6.2 )
            continue;
        ++used;
        GeFloatingCone grown = before;
        grown.expand( other );
        // the two outermost directions are on opposite sides of the surface: no smaller cone holds both
        const long double bound = 4e-6L;
        const Exact axis = widen( grown.getAxis() );
        EXPECT_LE( std::fabs( angleBetween( axis, turnAway( t, o, a ) ) - grown.getSemiAngle() ), bound );
        EXPECT_LE( std::fabs( angleBetween( axis, turnAway( o, t, b ) ) - grown.getSemiAngle() ), bound );
        EXPECT_LE( std::fabs( 2 * grown.getSemiAngle() - ( theta + a + b ) ), bound );
    }
    EXPECT_GT( used, 1000 );
}

TEST( FloatingCone, ExpandMakesSpheresAndKeepsTheAxis )
{
    const float tilted = std::sqrt( 1 - 0.81F );
    const Unit justBefore( tilted, 0, -0.9F, GE_TRUSTED );
    const Unit justBeyond( tilted, 0, std::nextafter( -0.9F, -1.0F ), GE_TRUSTED );
    const float degrees160 = 2.792526803F;
    struct Row
    {
        GeFloatingCone cone, other, expected;
    };
    for ( const Row& row : {
              Row{ { Z, SPHERE }, { X, 0.5F }, { Z, SPHERE } },
              Row{ { Z, 4.0F }, { X, SPHERE }, { Z, 4.0F } },
              Row{ { Z, 0.5F }, { X, SPHERE }, { Z, SPHERE } },
              Row{ { Z, 0.1F }, { Unit( std::sin( degrees160 ), 0, std::cos( degrees160 ) ), 0.1F }, { Z, SPHERE } },
              Row{ { Z, 0.1F }, { justBeyond, 0.1F }, { Z, SPHERE } },
          } )
    {
        GeFloatingCone cone = row.cone;
        cone.expand( row.other );
        EXPECT_EQ( cone, row.expected ) << row.other;
        EXPECT_EQ( bits( cone.getSemiAngle() ), bits( row.expected.getSemiAngle() ) );
    }
    GeFloatingCone cone( Z, 0.1F );
    cone.expand( GeFloatingCone( justBefore, 0.1F ) );
    EXPECT_FALSE( cone.isSphere() );
}

TEST( FloatingCone, ExpandTestsNoContainmentAndHasNoLimit )
{
    GeFloatingCone shrunk( Z, 1.0F );
    shrunk.expand( GeFloatingCone( Z, 0.1F ) );
    EXPECT_TRUE( shrunk.isEqual( GeFloatingCone( Z, 0.55F ), 1e-6F, 1e-6F ) );

    GeFloatingCone wide( Z, 3.0F );
    wide.expand( GeFloatingCone( X, 3.0F ) );
    EXPECT_NEAR( wide.getSemiAngle(), 3 + 3.14159265 / 4, 1e-6 );

    // a cone that is grown by itself: unchanged for an exact axis, half the rounding angle wider for a short one
    GeFloatingCone same( Unit( 0.6F, 0, 0.8F, GE_TRUSTED ), 0.25F );
    ASSERT_GE( same.getAxis().dot( same.getAxis() ), 1.0F );
    const GeFloatingCone before = same;
    same.expand( same );
    EXPECT_EQ( same.getSemiAngle(), before.getSemiAngle() );
    EXPECT_TRUE( same.isEqual( before, 1e-7F, 1e-7F ) );
    Random random( 3 );
    for ( int i = 0; i < 100; ++i )
    {
        const Unit axis = random.direction<float>();
        if ( axis.getZ() * axis.getZ() + axis.getY() * axis.getY() + axis.getX() * axis.getX() >= 1 )
            continue;
        GeFloatingCone cone( axis, 0.25F );
        cone.expand( cone );
        EXPECT_GT( cone.getSemiAngle(), 0.2501F );
        EXPECT_LT( cone.getSemiAngle(), 0.2505F );
    }
}

TEST( FloatingCone, ExpandReportsBeforeItStores )
{
    const float nan = ZqTest::nan<float>;
    GeFloatingCone zero( Unit(), 0.5F );
    EXPECT_REPORT( zero.expand( GeFloatingCone( Z, 0.25F ) ), FILE_NAME, "len > 0" );
    EXPECT_EQ( zero, GeFloatingCone( Unit(), 0.5F ) );
    GeFloatingCone cone( Z, 0.5F );
    EXPECT_REPORT( cone.expand( GeFloatingCone( X, nan ) ), FILE_NAME, "len > 0" );
    EXPECT_REPORT( cone.expand( GeFloatingCone( X, -ZqTest::infinity<float> ) ), FILE_NAME, "len > 0" );
    EXPECT_EQ( cone, GeFloatingCone( Z, 0.5F ) );
}

TEST( FloatingCone, ExpandTracesACosineAboveOne )
{
    TraceLevel* const level = Trace::findLevel( "Geometry" );
    ASSERT_TRUE( level );
    ZqTest::CollectingTraceManager traces;
    Random random( 4 );
    int sawOrder = 0;
    for ( int i = 0; i < 3000; ++i )
    {
        const Unit axis = random.direction<float>();
        const float x = axis.getX(), y = axis.getY(), z = axis.getZ();
        const bool isAbove = z * z + y * y + x * x > 1;
        sawOrder += isAbove != ( x * x + y * y + z * z > 1 );
        GeFloatingCone cone( axis, 0.5F );
        cone.expand( GeFloatingCone( axis, 0.5F ) );
        EXPECT_TRUE( traces.messages.empty() );

        level->setEnabled( true );
        cone = GeFloatingCone( axis, 0.5F );
        cone.expand( GeFloatingCone( axis, 0.5F ) );
        level->setEnabled( false );
        ASSERT_EQ( traces.messages.size(), isAbove ? 1U : 0U );
        if ( isAbove )
        {
            const std::string& message = traces.messages.front();
            EXPECT_EQ( message.rfind( std::string( FILE_NAME ) + ":", 0 ), 0U ) << message;
            EXPECT_EQ( message.substr( message.rfind( ' ' ) ), " dotAxis=1\n" ) << message;
            EXPECT_EQ( cone.getSemiAngle(), 0.5F );
        }
        traces.messages.clear();
    }
    EXPECT_GT( sawOrder, 0 ) << "no input tells the order of the sum";
}

// Building ----------------------------------------------------------------------------------------------------------

TEST( FloatingConeBuilder, TheConeHoldsEveryDirectionAndNoMoreThanThat )
{
    Random random( 5 );
    int spheres = 0;
    for ( int i = 0; i < 3000; ++i )
    {
        const Unit middle = random.direction<float>();
        const float spread = random.uniform( 0.01F, 1.6F );
        std::vector<Unit> directions;
        const int count = 1 + random.index( 20 );
        Exact low{ 2, 2, 2 }, high{ -2, -2, -2 };
        for ( int k = 0; k < count; ++k )
        {
            const Unit u = Unit( middle + random.direction<float>() * ( spread * random.uniform( 0.0F, 1.0F ) ) );
            directions.push_back( u );
            const Exact e = widen( u );
            low = { std::min( low.x, e.x ), std::min( low.y, e.y ), std::min( low.z, e.z ) };
            high = { std::max( high.x, e.x ), std::max( high.y, e.y ), std::max( high.z, e.z ) };
        }
        const GeFloatingCone cone = build( directions );
        const bool holdsOrigin = low.x <= 0 && 0 <= high.x && low.y <= 0 && 0 <= high.y && low.z <= 0 && 0 <= high.z;
        spheres += holdsOrigin;
        if ( holdsOrigin )
        {
            EXPECT_EQ( cone, GeFloatingCone( Z, SPHERE ) );
            continue;
        }
        const long double bound = 4 * ZqTest::epsilon<float>;
        const Exact axis = widen( cone.getAxis() );
        EXPECT_LE( angleBetween( axis, combine( 0.5, low, 0.5, high ) ), bound );
        long double widest = 1;
        for ( const Unit& u : directions )
            widest = std::min( widest, dot( axis, widen( u ) ) );
        EXPECT_LE( std::fabs( widest - std::cos( static_cast<long double>( cone.getSemiAngle() ) ) ), bound );
    }
    EXPECT_GT( spheres, 100 );
}

TEST( FloatingConeBuilder, NamedSets )
{
    const GeFloatingCone sphere( Z, SPHERE );
    EXPECT_EQ( build( {} ), sphere );
    EXPECT_EQ( bits( build( {} ).getSemiAngle() ), 0x40490FDBU );
    EXPECT_EQ( build( { X } ), GeFloatingCone( X, 0 ) );
    EXPECT_EQ( build( { X, -X } ), sphere );
    EXPECT_EQ( build( { X, Unit( 0, 1, 0 ) } ), sphere ) << "the box touches the origin";
    EXPECT_EQ( build( { Unit() } ), sphere );

    const GeFloatingCone pair = build( { X, Unit( 0.6F, 0.8F, 0 ) } );
    EXPECT_TRUE( pair.isEqual( GeFloatingCone( Unit( 0.8944272F, 0.4472136F, 0 ), 0.4636476F ), 1e-6F, 1e-6F ) );

    // the squares of the centre underflow: as good as no centre
    EXPECT_EQ( build( { Unit( 1e-30F, 1, 0, GE_TRUSTED ), Unit( 1e-30F, -1, 0, GE_TRUSTED ) } ), sphere );
    // a direction against the axis, although the box misses the origin: all directions, and the axis is kept
    const float half = 0.7071071F; // a little long: the product must not be rounded above -1
    const GeFloatingCone kept = build( { Unit( -half, -half, 1e-20F, GE_TRUSTED ), Unit( 1, 0, 1e-20F, GE_TRUSTED ),
        Unit( 0, 1, 1e-20F, GE_TRUSTED ) } );
    EXPECT_TRUE( kept.isEqual( GeFloatingCone( Unit( 1, 1, 0 ), SPHERE ), 1e-6F, 1e-7F ) ) << kept;
    EXPECT_TRUE( kept.isSphere() );
}

TEST( FloatingConeBuilder, CreateConeAndResetEmptyIt )
{
    GeFloatingConeBuilder builder( 0 );
    builder( X );
    GeFloatingConeBuilder copy = builder;
    builder.reset();
    EXPECT_TRUE( builder.createCone().isSphere() );
    EXPECT_EQ( copy.createCone(), GeFloatingCone( X, 0 ) );
    EXPECT_TRUE( copy.createCone().isSphere() );
    copy( Z );
    builder = copy;
    EXPECT_EQ( builder.createCone(), GeFloatingCone( Z, 0 ) );
}

} // namespace
