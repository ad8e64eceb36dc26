#include "support/random.h"
#include "support/scalars.h"

#include <zq/primitives/geSphere3.h>

#include <cmath>
#include <iomanip>
#include <sstream>
#include <vector>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( Sphere3 );

TYPED_TEST( Sphere3, LinesThatHitTouchAndMiss )
{
    using T = TypeParam;
    const GeSphere3<T> unit( GePoint3<T>(), 1 );
    struct Case
    {
        const char* what;
        GePoint3<T> origin;
        GeVector3<T> direction;
        bool hits;
        T t0, t1;
    };
    for ( const Case& c : std::vector<Case>{
              { "in front", { -5, 0, 0 }, { 1, 0, 0 }, true, 4, 6 },
              { "behind", { 5, 0, 0 }, { 1, 0, 0 }, true, -6, -4 },
              { "from inside, against z", { 0, 0, T( 0.5 ) }, { 0, 0, -1 }, true, T( -0.5 ), T( 1.5 ) },
              { "tangent", { -5, 1, 0 }, { 1, 0, 0 }, true, 5, 5 },
              { "t in lengths of the direction", { 0, -5, 0 }, { 0, 4, 0 }, true, 1, T( 1.5 ) },
              { "miss", { -5, T( 1.001 ), 0 }, { 1, 0, 0 }, false, 7, 8 },
              { "no direction", { -5, 0, 0 }, { 0, 0, 0 }, false, 7, 8 },
              { "no direction from the centre", { 0, 0, 0 }, { T( 1e-5 ), 0, 0 }, false, 7, 8 },
          } )
    {
        T t0 = 7, t1 = 8;
        EXPECT_EQ( unit.intersectRay( c.origin, c.direction, t0, t1 ), c.hits ) << c.what;
        EXPECT_EQ( t0, c.t0 ) << c.what;
        EXPECT_EQ( t1, c.t1 ) << c.what;
    }
    // the square falls away for a direction shorter than 1e-3 (float) or 3e-4 (double)
    T t0 = 0, t1 = 0;
    const T tiny = T( 1.0 / 65536 );
    EXPECT_TRUE( unit.intersectRay( { -5, 0, 0 }, { tiny, 0, 0 }, t0, t1 ) );
    EXPECT_EQ( t0, 24 / ( 5 * tiny ) / 2 );
    EXPECT_EQ( t1, t0 );
}

TYPED_TEST( Sphere3, RootsLieOnTheSphere )
{
    using T = TypeParam;
    using R = long double;
    Random random( 1 );
    int hits = 0;
    for ( int i = 0; i < 5000; ++i )
    {
        const GeSphere3<T> sphere( random.point<T>( 5 ), random.uniform<T>( T( 0.5 ), 4 ) );
        const GePoint3<T> origin = random.point<T>( 10 );
        const GeVector3<T> direction = random.vector<T>( 2 ) + ( sphere.getCenter() - origin );
        R a = 0, b = 0, c = -R( sphere.getRadius() ) * R( sphere.getRadius() );
        for ( int axis = 0; axis < 3; ++axis )
        {
            const R m = R( origin[axis] ) - R( sphere.getCenter()[axis] );
            a += R( direction[axis] ) * R( direction[axis] );
            b += R( direction[axis] ) * m;
            c += m * m;
        }
        const R discriminant = b * b - a * c;
        if ( std::fabs( discriminant ) < 0.1L || a < 0.1L )
            continue;
        T t0 = 0, t1 = 0;
        ASSERT_EQ( sphere.intersectRay( origin, direction, t0, t1 ), discriminant > 0 );
        if ( discriminant < 0 )
            continue;
        ++hits;
        const double bound = 3000 * double( ZqTest::epsilon<T> ); // b b cancels a c
        EXPECT_NEAR( double( t0 ), double( ( -b - std::sqrt( discriminant ) ) / a ), bound );
        EXPECT_NEAR( double( t1 ), double( ( -b + std::sqrt( discriminant ) ) / a ), bound );
    }
    EXPECT_GT( hits, 1500 );
}

TYPED_TEST( Sphere3, ANearMissIsAHitWithNaNRoots )
{
    using T = TypeParam;
    T t0 = 7, t1 = 8;
    // radius 0 and unit direction: the discriminant is -y^2; the limit is the float -0.0001 in both scalars
    const GeSphere3<T> dot( GePoint3<T>(), 0 );
    const auto meets = [&]( T y ) { return dot.intersectRay( { 0, y, 0 }, { 1, 0, 0 }, t0, t1 ); };
    EXPECT_FALSE( meets( T( 0.010001 ) ) );
    if ( sizeof( T ) == sizeof( double ) )
    {
        EXPECT_FALSE( meets( std::sqrt( T( 9.9999999e-5 ) ) ) );
    }
    EXPECT_TRUE( t0 == 7 && t1 == 8 );
    EXPECT_TRUE( meets( T( 0.009999 ) ) );
    EXPECT_TRUE( std::isnan( t0 ) && std::isnan( t1 ) );

    t0 = t1 = 0;
    const GeSphere3<T> unit( GePoint3<T>(), 1 );
    EXPECT_TRUE( unit.intersectRay( { -5, T( 1.00004 ), 0 }, { 1, 0, 0 }, t0, t1 ) );
    EXPECT_TRUE( std::isnan( t0 ) && std::isnan( t1 ) );
    t0 = t1 = 0;
    EXPECT_TRUE( unit.intersectRay( { ZqTest::nan<T>, 0, 0 }, { 1, 0, 0 }, t0, t1 ) );
    EXPECT_TRUE( std::isnan( t0 ) && std::isnan( t1 ) );
}

TYPED_TEST( Sphere3, ClosestPoint )
{
    using T = TypeParam;
    const GeSphere3<T> sphere( { 1, 0, 0 }, 1 );
    const GePoint3<T> untouched( 7, 8, 9 );
    struct Case
    {
        const char* what;
        GePoint3<T> origin;
        GeVector3<T> direction;
        bool found;
        GePoint3<T> closest;
    };
    for ( const Case& c : std::vector<Case>{
              { "passes by", { -5, 2, 0 }, { 1, 0, 0 }, true, { 1, 1, 0 } },
              { "goes through", { -5, T( 0.25 ), 0 }, { 1, 0, 0 }, true, { 1, 1, 0 } },
              { "below, along z", { 1, -3, -5 }, { 0, 0, 1 }, true, { 1, -1, 0 } },
              { "through the centre", { -5, 0, 0 }, { 1, 0, 0 }, true, { 1, 0, 0 } },
              { "beside the centre", { 1, 4, 0 }, { 1, 0, 0 }, true, { 1, 1, 0 } },
              { "from the surface", { 1, 1, 0 }, { 1, 0, 0 }, true, { 1, 1, 0 } },
              { "from inside", { 1, T( 0.5 ), 0 }, { 1, 0, 0 }, false, untouched },
              { "centre behind", { 3, 2, 0 }, { 1, 0, 0 }, false, untouched },
          } )
    {
        GePoint3<T> closest = untouched;
        EXPECT_EQ( sphere.getClosestPoint( c.origin, c.direction, closest ), c.found ) << c.what;
        EXPECT_EQ( closest, c.closest ) << c.what;
    }
    GePoint3<T> closest;
    EXPECT_TRUE( sphere.getClosestPoint( { ZqTest::nan<T>, 0, 0 }, { 1, 0, 0 }, closest ) );
    EXPECT_TRUE( std::isnan( closest.getX() ) );

    // nothing on the sphere comes closer to the line
    Random random( 2 );
    for ( int i = 0; i < 200; ++i )
    {
        const GeSphere3<T> s( random.point<T>( 3 ), random.uniform<T>( T( 0.5 ), 2 ) );
        const GeUnitVector3<T> direction = random.direction<T>();
        const GePoint3<T> origin = random.point<T>( 20 );
        const auto distance = [&]( const GePoint3<T>& p ) { return ( p - origin ).cross( direction ).length(); };
        if ( !s.getClosestPoint( origin, direction, closest ) || distance( s.getCenter() ) < s.getRadius() )
            continue;
        EXPECT_NEAR( double( ( closest - s.getCenter() ).length() ), double( s.getRadius() ), 1e-5 );
        for ( int k = 0; k < 200; ++k )
            EXPECT_GE( double( distance( s.getCenter() + random.direction<T>() * s.getRadius() ) ),
                double( distance( closest ) ) - 1e-5 );
    }
}

TYPED_TEST( Sphere3, ComparisonAndText )
{
    using T = TypeParam;
    const GeSphere3<T> sphere( { 1, 2, 3 }, 4 );
    for ( int item = 0; item < 4; ++item )
        for ( const T change : { T( 0.25 ), T( 0.5 ), ZqTest::nan<T> } )
        {
            GePoint3<T> center = sphere.getCenter();
            T radius = sphere.getRadius();
            ( item < 3 ? center[item] : radius ) += change;
            const GeSphere3<T> other( center, radius );
            EXPECT_TRUE( sphere != other && !( sphere == other ) );
            EXPECT_EQ( sphere.isEqual( other, T( 0.5 ), T( 0.5 ) ), change < T( 0.5 ) );
            EXPECT_EQ( sphere.isEqual( other, 9, T( 0.1 ) ), item < 3 && change < 1 );
            EXPECT_EQ( sphere.isEqual( other, T( 0.1 ), 9 ), item == 3 && change < 1 );
        }
    std::ostringstream os;
    os << GeSphere3<T>( GePoint3<T>(), 1 ) << std::fixed << std::setprecision( 1 ) << sphere;
    EXPECT_EQ( os.str(), "GeSphere {(0, 0, 0), 1} GeSphere {(1.0, 2.0, 3.0), 4.0} " );
}

} // namespace
