#include "support/prelude.h"

#include <zq/primitives/geSphere3.h>

namespace
{

ZQ_TWIN_SUITE( Sphere3 );

ZQ_TWIN_TEST( Sphere3, LinesThatHitTouchAndMiss )
{
    const GeSphere3<T> unit( GePoint3<T>(), 1 );
    const T tiny = T( 1.0 / 65536 ); // its square falls away
    using Case = std::tuple<const char*, GePoint3<T>, GeVector3<T>, bool, T, T>;
    for ( const auto& [what, origin, direction, hits, expected0, expected1] :
        std::vector<Case>{
            { "in front", { -5, 0, 0 }, { 1, 0, 0 }, true, 4, 6 },
            { "behind", { 5, 0, 0 }, { 1, 0, 0 }, true, -6, -4 },
            { "from inside, against z", { 0, 0, T( 0.5 ) }, { 0, 0, -1 }, true, T( -0.5 ), T( 1.5 ) },
            { "tangent", { -5, 1, 0 }, { 1, 0, 0 }, true, 5, 5 },
            { "t in lengths of the direction", { 0, -5, 0 }, { 0, 4, 0 }, true, 1, T( 1.5 ) },
            { "almost no direction", { -5, 0, 0 }, { tiny, 0, 0 }, true, 24 / ( 5 * tiny ) / 2, 24 / ( 5 * tiny ) / 2 },
            { "miss", { -5, T( 1.001 ), 0 }, { 1, 0, 0 }, false, 7, 8 },
            { "no direction", { -5, 0, 0 }, { 0, 0, 0 }, false, 7, 8 },
            { "no direction from the centre", { 0, 0, 0 }, { T( 1e-5 ), 0, 0 }, false, 7, 8 },
        } )
    {
        T t0 = 7, t1 = 8;
        EXPECT_EQ( unit.intersectRay( origin, direction, t0, t1 ), hits ) << what;
        EXPECT_TRUE( t0 == expected0 && t1 == expected1 ) << what << ' ' << t0 << ' ' << t1;
    }
}

ZQ_TWIN_TEST( Sphere3, RootsLieOnTheSphereAndClosestPointsTowardsTheLine )
{
    Random random( 1 );
    const T bound = 200 * epsilon<T>;
    int nbHits = 0, nbMisses = 0;
    for ( int i = 0; i < 20000; ++i )
    {
        const GeSphere3<T> sphere( random.point<T>( 5 ), random.uniform<T>( T( 0.5 ), 4 ) );
        const GePoint3<T> origin = random.point<T>( 10 ), center = sphere.getCenter();
        const GeUnitVector3<T> along = random.direction<T>();
        const GeVector3<T> direction = along * random.uniform<T>( T( 0.5 ), 3 );
        const T radius = sphere.getRadius(), distance = ( center - origin ).cross( along ).length();
        if ( std::fabs( distance - radius ) < T( 0.1 ) )
            continue;
        T t0 = 0, t1 = 0;
        GePoint3<T> closest;
        ASSERT_EQ( sphere.intersectRay( origin, direction, t0, t1 ), distance < radius );
        if ( distance < radius )
        {
            ++nbHits;
            EXPECT_LT( t0, t1 );
            EXPECT_NEAR( ( origin + direction * t0 - center ).length(), radius, bound );
            EXPECT_NEAR( ( origin + direction * t1 - center ).length(), radius, bound );
        }
        else if ( sphere.getClosestPoint( origin, along, closest ) )
        {
            ++nbMisses;
            EXPECT_NEAR( ( closest - center ).length(), radius, bound );
            EXPECT_NEAR( ( closest - origin ).cross( along ).length(), distance - radius, bound );
        }
    }
    EXPECT_TRUE( nbHits > 300 && nbMisses > 300 );
}

ZQ_TWIN_TEST( Sphere3, ANearMissIsAHitWithNaNRoots )
{
    const GeSphere3<T> unit( GePoint3<T>(), 1 ), dot( GePoint3<T>(), 0 );
    const auto expect = []( const GeSphere3<T>& sphere, const GePoint3<T>& origin, bool hits )
    {
        T t0 = 7, t1 = 8;
        EXPECT_EQ( sphere.intersectRay( origin, { 1, 0, 0 }, t0, t1 ), hits ) << origin;
        EXPECT_TRUE( hits ? std::isnan( t0 ) && std::isnan( t1 ) : t0 == 7 && t1 == 8 ) << origin;
    };
    // radius 0 and unit direction: the discriminant is -y^2; the limit is the float -0.0001 in both scalars
    expect( dot, { 0, T( 0.009999 ), 0 }, true );
    expect( dot, { 0, T( 0.010001 ), 0 }, false );
    expect( dot, { 0, std::sqrt( T( 9.9999999e-5 ) ), 0 }, sizeof( T ) == sizeof( float ) );
    expect( unit, { -5, T( 1.00004 ), 0 }, true );
    expect( unit, { ZqTest::nan<T>, 0, 0 }, true );
}

ZQ_TWIN_TEST( Sphere3, ClosestPoint )
{
    const GeSphere3<T> sphere( { 1, 0, 0 }, 1 );
    const GePoint3<T> untouched( 7, 8, 9 );
    using Case = std::tuple<const char*, GePoint3<T>, GeVector3<T>, GePoint3<T>>;
    for ( const auto& [what, origin, direction, expected] : std::vector<Case>{
              { "passes by", { -5, 2, 0 }, { 1, 0, 0 }, { 1, 1, 0 } },
              { "goes through", { -5, T( 0.25 ), 0 }, { 1, 0, 0 }, { 1, 1, 0 } },
              { "below, along z", { 1, -3, -5 }, { 0, 0, 1 }, { 1, -1, 0 } },
              { "through the centre", { -5, 0, 0 }, { 1, 0, 0 }, { 1, 0, 0 } },
              { "beside the centre", { 1, 4, 0 }, { 1, 0, 0 }, { 1, 1, 0 } },
              { "from the surface", { 1, 1, 0 }, { 1, 0, 0 }, { 1, 1, 0 } },
              { "from inside", { 1, T( 0.5 ), 0 }, { 1, 0, 0 }, untouched },
              { "centre behind", { 3, 2, 0 }, { 1, 0, 0 }, untouched },
          } )
    {
        GePoint3<T> closest = untouched;
        EXPECT_EQ( sphere.getClosestPoint( origin, direction, closest ), expected != untouched ) << what;
        EXPECT_EQ( closest, expected ) << what;
    }
    GePoint3<T> closest;
    EXPECT_TRUE( sphere.getClosestPoint( { ZqTest::nan<T>, 0, 0 }, { 1, 0, 0 }, closest ) );
    EXPECT_TRUE( std::isnan( closest.getX() ) );
    // each tolerance for its own part
    EXPECT_TRUE( sphere.isEqual( GeSphere3<T>( { 1, 0, 0 }, 2 ), T( 0.1 ), 2 ) );
    EXPECT_TRUE( sphere.isEqual( GeSphere3<T>( { 1, 0, 1 }, 1 ), 2, T( 0.1 ) ) );
}

} // namespace
