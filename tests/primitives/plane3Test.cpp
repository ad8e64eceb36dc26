#include "support/random.h"
#include "support/report.h"
#include "support/scalars.h"

#include <zq/primitives/gePlane3Builder.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( Plane3 );

using R = long double;

struct Vector
{
    R x, y, z;
};

template <class V>
Vector wide( const V& v )
{
    return { R( v.getX() ), R( v.getY() ), R( v.getZ() ) };
}

R dot( const Vector& a, const Vector& b )
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector cross( const Vector& a, const Vector& b )
{
    return { a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x };
}

/// The plane of a polygon by another road than Newell's: half the cross products of a fan, summed, and the mean of the
/// vertices, all in long double. Returns normal and offset.
template <class T>
std::pair<Vector, R> fitByFan( const std::vector<GePoint3<T>>& polygon )
{
    const Vector first = wide( polygon.front() );
    const auto fromFirst = [&]( const GePoint3<T>& p )
    {
        const Vector w = wide( p );
        return Vector{ w.x - first.x, w.y - first.y, w.z - first.z };
    };
    Vector sum{ 0, 0, 0 }, mean{ 0, 0, 0 };
    for ( std::size_t i = 0; i < polygon.size(); ++i )
    {
        const Vector n = cross( fromFirst( polygon[i] ), fromFirst( polygon[( i + 1 ) % polygon.size()] ) );
        const Vector p = wide( polygon[i] );
        const R count = R( polygon.size() );
        sum = { sum.x + n.x, sum.y + n.y, sum.z + n.z };
        mean = { mean.x + p.x / count, mean.y + p.y / count, mean.z + p.z / count };
    }
    const R len = std::sqrt( dot( sum, sum ) );
    const Vector normal{ sum.x / len, sum.y / len, sum.z / len };
    return { normal, -dot( normal, mean ) };
}

template <class T>
GeNormalizedPlane3<T> fit( const std::vector<GePoint3<T>>& polygon )
{
    GePlane3Builder<T> builder;
    for ( const GePoint3<T>& point : polygon )
        builder.addPoint( point );
    return builder.getPlane();
}

TYPED_TEST( Plane3, NormalizingLeavesThePlaneInPlace )
{
    using T = TypeParam;
    Random random( 1 );
    const R eps = ZqTest::epsilon<T>;
    for ( int i = 0; i < 2000; ++i )
    {
        const GePlane3<T> plane( random.vector<T>( 10 ), random.uniform<T>( -20, 20 ) );
        const GeNormalizedPlane3<T> unit( plane );
        const Vector n = wide( plane.getNormal() );
        const R len = std::sqrt( dot( n, n ) );
        const GePoint3<T> p = random.point<T>( 10 );
        const R distance = ( dot( n, wide( p ) ) + R( plane.getOffset() ) ) / len;
        EXPECT_NEAR( double( unit.computeValue( p ) ), double( distance ), double( 100 * eps * ( 1 + 1 / len ) ) );
        EXPECT_NEAR( double( plane.computeValue( p ) ), double( distance * len ), double( 2000 * eps ) );
        // a power of two changes no rounding
        EXPECT_EQ( GeNormalizedPlane3<T>( plane.getNormal() * T( 8 ), plane.getOffset() * T( 8 ) ), unit );
        // the offset is divided, not multiplied by a reciprocal
        EXPECT_EQ( GeNormalizedPlane3<T>( 0, 49, 0, plane.getOffset() ).getOffset(), plane.getOffset() / T( 49 ) );

        GeNormalizedPlane3<T> flipped = unit;
        flipped.flip();
        EXPECT_EQ( flipped.computeValue( p ), -unit.computeValue( p ) );
        // a unit vector is trusted: its rounding is not rounded again
        const GeUnitVector3<T> direction = random.direction<T>();
        EXPECT_EQ( GeNormalizedPlane3<T>( direction, 3 ).getNormal(), direction );
    }
    EXPECT_EQ( GeNormalizedPlane3<T>(), ( GeNormalizedPlane3<T>( 0, 0, 1, 0 ) ) );
    EXPECT_EQ( GePlane3<T>(), ( GePlane3<T>( 0, 0, 1, 0 ) ) );
}

TYPED_TEST( Plane3, DegenerateNormals )
{
    using T = TypeParam;
    const char* file = "src/primitives/geNormalizedPlane3.inline";
    EXPECT_REPORT( GeNormalizedPlane3<T>( GePlane3<T>( 0, T( -0.0 ), 0, 1 ) ), file, "len != 0" );
    // neither NaN nor an overflowing length is zero
    EXPECT_TRUE( std::isnan( GeNormalizedPlane3<T>( 0, ZqTest::nan<T>, 0, 1 ).getNormal().getX() ) );
    const T huge = std::numeric_limits<T>::max();
    EXPECT_EQ( GeNormalizedPlane3<T>( huge, 0, 0, 1 ).getNormal(), GeVector3<T>() );
    // a general plane takes any normal, and a zero one meets no ray
    T t = 7;
    EXPECT_FALSE( GePlane3<T>( 0, 0, 0, 1 ).intersectRay( GePoint3<T>(), GeVector3<T>( 1, 2, 3 ), t ) );
    EXPECT_EQ( t, T( 7 ) );
}

TYPED_TEST( Plane3, RaysEndOnThePlane )
{
    using T = TypeParam;
    Random random( 2 );
    for ( int i = 0; i < 4000; ++i )
    {
        const GeUnitVector3<T> normal = random.direction<T>();
        const GeNormalizedPlane3<T> plane( normal, random.uniform<T>( -5, 5 ) );
        const GePoint3<T> origin = random.point<T>( 5 );
        const GeVector3<T> direction = random.direction<T>();
        const R slope = dot( wide( plane.getNormal() ), wide( direction ) );
        if ( std::fabs( slope ) < 1e-3L )
            continue;
        T t = 0;
        ASSERT_TRUE( plane.intersectRay( origin, direction, t ) );
        const R value = dot( wide( plane.getNormal() ), wide( origin ) ) + R( plane.getOffset() );
        const R bound = 40 * R( ZqTest::epsilon<T> ) * ( 1 + std::fabs( value / slope ) ) / std::fabs( slope );
        EXPECT_NEAR( double( t ), double( -value / slope ), double( bound ) );

        // the general plane scales the normal and not the offset: it meets a plane four times as far away
        const GePlane3<T> general( normal * T( 4 ), plane.getOffset() * T( 4 ) );
        T tGeneral = 0;
        ASSERT_TRUE( general.intersectRay( origin, direction, tGeneral ) );
        ASSERT_TRUE( GeNormalizedPlane3<T>( normal, general.getOffset() ).intersectRay( origin, direction, t ) );
        EXPECT_NEAR( double( tGeneral ), double( t ), double( bound * 4 ) );
    }
}

TYPED_TEST( Plane3, ParallelBehindAndNaNRays )
{
    using T = TypeParam;
    const T nan = ZqTest::nan<T>;
    const T tolerance = sizeof( T ) == sizeof( float ) ? T( 1e-6F ) : T( 1e-7 );
    struct Case
    {
        const char* what;
        GePlane3<T> plane;
        GePoint3<T> origin;
        GeVector3<T> direction;
        bool meets;
        T t;
    };
    const GePlane3<T> wall( 1, 0, 0, -1 );
    for ( const Case& c : std::vector<Case>{
              { "ahead", wall, { 0, 5, 5 }, { 1, 0, 0 }, true, 1 },
              { "behind", wall, { 3, 0, 0 }, { 1, 0, 0 }, true, -2 },
              { "from behind the plane", wall, { 0, 0, 0 }, { -2, 0, 0 }, true, T( -0.5 ) },
              { "on the plane", wall, { 1, 0, 0 }, { 1, 1, 0 }, true, 0 },
              { "parallel", wall, { 0, 0, 0 }, { 0, 3, 4 }, false, 7 },
              { "too short", wall, { 0, 0, 0 }, { tolerance / 2, 0, 0 }, false, 7 },
              { "too short, backwards", wall, { 0, 0, 0 }, { -tolerance / 2, 0, 0 }, false, 7 },
              { "long enough", wall, { 0, 0, 0 }, { T( 0.03125 ), 0, 0 }, true, 32 },
              { "NaN direction", wall, { 0, 0, 0 }, { nan, 0, 0 }, true, nan },
              { "NaN origin", wall, { 0, nan, 0 }, { 1, 0, 0 }, true, nan },
              { "NaN offset", GePlane3<T>( 1, 0, 0, nan ), { 0, 0, 0 }, { 1, 0, 0 }, true, nan },
          } )
    {
        T t = 7;
        EXPECT_EQ( c.plane.intersectRay( c.origin, c.direction, t ), c.meets ) << c.what;
        EXPECT_TRUE( t == c.t || ( std::isnan( t ) && std::isnan( c.t ) ) ) << c.what << ": " << t;
        T again = 7;
        EXPECT_EQ( GeNormalizedPlane3<T>( c.plane ).intersectRay( c.origin, c.direction, again ), c.meets ) << c.what;
        EXPECT_TRUE( again == t || std::isnan( t ) ) << c.what;
    }
    // a normal of length 2: the general plane keeps its offset, the normalised one divides it
    const GePlane3<T> twice( 2, 0, 0, -2 );
    T t = 0;
    EXPECT_TRUE( twice.intersectRay( GePoint3<T>(), GeVector3<T>( 1, 0, 0 ), t ) );
    EXPECT_EQ( t, T( 2 ) );
    EXPECT_TRUE( GeNormalizedPlane3<T>( twice ).intersectRay( GePoint3<T>(), GeVector3<T>( 1, 0, 0 ), t ) );
    EXPECT_EQ( t, T( 1 ) );
}

TYPED_TEST( Plane3, ComparisonLooksAtEveryNumber )
{
    using T = TypeParam;
    const T values[4] = { 0, T( 0.5 ), -1, 2 };
    const GePlane3<T> plane( values[0], values[1], values[2], values[3] );
    for ( int changed = 0; changed < 4; ++changed )
        for ( const T change : { T( 0.25 ), T( 0.5 ), ZqTest::nan<T> } )
        {
            T other[4] = { values[0], values[1], values[2], values[3] };
            other[changed] += change;
            const GePlane3<T> moved( other[0], other[1], other[2], other[3] );
            EXPECT_TRUE( plane != moved && !( plane == moved ) && !plane.isEqualExact( moved ) );
            EXPECT_EQ( plane.isEqual( moved, T( 0.5 ) ), change < T( 0.5 ) ) << changed << ' ' << change;
        }
    const GeNormalizedPlane3<T> up( 0, 0, 1, 2 ), tilted( 0, T( 0.6 ), T( 0.8 ), 2 );
    EXPECT_TRUE( up == up && up != tilted && !up.isEqual( tilted, T( 0.5 ) ) && up.isEqual( tilted, T( 0.7 ) ) );
}

TYPED_TEST( Plane3, TextForm )
{
    using T = TypeParam;
    std::ostringstream os;
    os << GePlane3<T>( 2, 0, T( -0.5 ), 3 ) << GeNormalizedPlane3<T>( 2, 0, 0, -2 );
    EXPECT_EQ( os.str(), "[2, 0, -0.5, 3][1, 0, 0, -1]" );
}

TYPED_TEST( Plane3, FitFollowsTheWinding )
{
    using T = TypeParam;
    std::vector<GePoint3<T>> square = { { 0, 0, 0 }, { 1, 0, 0 }, { 1, 1, 0 }, { 0, 1, 0 } };
    EXPECT_EQ( fit( square ), ( GeNormalizedPlane3<T>( 0, 0, 1, 0 ) ) );
    std::vector<GePoint3<T>> far = square;
    for ( GePoint3<T>& p : far )
        p += GeVector3<T>( 1000, 1000, 5 );
    EXPECT_EQ( fit( far ), ( GeNormalizedPlane3<T>( 0, 0, 1, -5 ) ) );
    std::reverse( square.begin(), square.end() );
    EXPECT_EQ( fit( square ), ( GeNormalizedPlane3<T>( 0, 0, -1, 0 ) ) );
}

TYPED_TEST( Plane3, FitAgreesWithAFanOfTriangles )
{
    using T = TypeParam;
    Random random( 3 );
    const auto rounded = []( const GeVector3<T>& v )
    { return GeVector3<T>( std::round( v.getX() ), std::round( v.getY() ), std::round( v.getZ() ) ); };
    for ( int i = 0; i < 2000; ++i )
    {
        // Even: a wavy ring of 3 to 22 vertices. Odd: integer vertices, hence exactly planar 8 million units away.
        const bool isFlat = i % 2;
        const GeUnitVector3<T> axis = random.direction<T>();
        const GeVector3<T> across = axis.cross( random.direction<T>() ) * T( 20 );
        const GeVector3<T> u = isFlat ? rounded( across ) : across,
                           v = isFlat ? rounded( axis * T( 20 ) ) : axis.cross( u );
        const GePoint3<T> middle( isFlat ? rounded( random.vector<T>( 8000000 ) ) : random.vector<T>( 50 ) );
        const int count = 3 + i / 2 % 20;
        std::vector<GePoint3<T>> polygon;
        for ( int k = 0; k < count; ++k )
        {
            const double angle = 2 * 3.14159265358979 * k / count;
            const T x = T( std::round( 30 * std::cos( angle ) ) ), y = T( std::round( 30 * std::sin( angle ) ) );
            polygon.push_back( middle + u * x + v * y );
            if ( !isFlat )
                polygon.back() += axis * random.uniform<T>( -5, 5 );
        }
        if ( across.length() < 5 )
            continue;
        const auto [n, d] = fitByFan( polygon );
        const GeNormalizedPlane3<T> plane = fit( polygon );
        const R eps = ZqTest::epsilon<T>, distance = GeVector3<T>( middle ).computeAbsSum() + 1000;
        EXPECT_NEAR( double( plane.getNormal().getX() ), double( n.x ), double( 100 * eps ) ) << i;
        EXPECT_NEAR( double( plane.getNormal().getY() ), double( n.y ), double( 100 * eps ) ) << i;
        EXPECT_NEAR( double( plane.getNormal().getZ() ), double( n.z ), double( 100 * eps ) ) << i;
        EXPECT_NEAR( double( plane.getOffset() ), double( d ), double( 10 * eps * distance ) ) << i;
    }
}

TYPED_TEST( Plane3, BuilderStartsAnewAfterAFitAndGoesOnAfterAFailure )
{
    using T = TypeParam;
    const char* file = "src/primitives/gePlane3Builder";
    GePlane3Builder<T> builder;
    EXPECT_REPORT( builder.getPlane(), file, "program aborted" );
    const std::vector<GePoint3<T>> polygon = { { 5, 5, 2 }, { 6, 5, 2 }, { 7, 5, 2 }, { 7, 7, 4 }, { 5, 7, 4 } };
    for ( std::size_t i = 0; i < 3; ++i )
    {
        EXPECT_REPORT( builder.getPlane(), file, "program aborted" );
        builder.addPoint( polygon[i] );
    }
    // the first three are collinear; asking twice must not close the polygon
    EXPECT_REPORT( builder.getPlane(), file, "len > 0" );
    EXPECT_REPORT( builder.getPlane(), file, "len > 0" );
    builder.addPoint( polygon[3] );
    builder.addPoint( polygon[4] );
    const GeNormalizedPlane3<T> plane = builder.getPlane();
    EXPECT_EQ( plane, fit( polygon ) );
    EXPECT_EQ( builder.getPlane(), plane );

    builder.addPoint( { 0, 0, 0 } );
    EXPECT_REPORT( builder.getPlane(), file, "program aborted" );
    builder.addPoint( { 0, 1, 0 } );
    builder.addPoint( { 0, 0, 1 } );
    EXPECT_EQ( builder.getPlane(), ( GeNormalizedPlane3<T>( 1, 0, 0, 0 ) ) );

    for ( int i = 0; i < 4; ++i )
        builder.addPoint( { 1, T( i ), ZqTest::nan<T> } );
    EXPECT_REPORT( builder.getPlane(), file, "len > 0" );
}

} // namespace
