#include "support/prelude.h"

#include <zq/primitives/geSphere3.h>

namespace
{

ZQ_TWIN_SUITE( Sphere3 );

ZQ_TWIN_TEST( Sphere3, RootsLieOnTheSphereAndClosestPointsTowardsTheLine )
{
    Random random( 1 );
    const T bound = 200 * epsilon<T>;
    int nbMisses = 0;
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
    EXPECT_GT( nbMisses, 300 );
}

ZQ_TWIN_TEST( Sphere3, RaysThatTouchNearlyMissAndMiss )
{
    // the limit of the discriminant, here -y^2, is the float -0.0001 in both scalars; down to it the roots are NaN
    const bool isFloat = sizeof( T ) == sizeof( float );
    const T tiny = T( 1.0 / 65536 ), tinyRoot = 24 / ( 5 * tiny ) / 2; // the square of the direction falls away
    using Row = std::tuple<T, GePoint3<T>, GeVector3<T>, bool, T>;
    for ( const auto& [radius, origin, direction, hits, expected] : {
              Row{ 1, { -5, 1, 0 }, { 1, 0, 0 }, true, 5 },
              Row{ 1, { -5, 0, 0 }, { tiny, 0, 0 }, true, tinyRoot },
              Row{ 1, { -5, 0, 0 }, { 0, 0, 0 }, false, 7 },
              Row{ 0, { 0, T( 0.009999 ), 0 }, { 1, 0, 0 }, true, ZqTest::nan<T> },
              Row{ 0, { 0, T( 0.010001 ), 0 }, { 1, 0, 0 }, false, 7 },
              Row{ 0, { 0, std::sqrt( T( 9.9999999e-5 ) ), 0 }, { 1, 0, 0 }, isFloat, isFloat ? ZqTest::nan<T> : 7 },
          } )
    {
        T t0 = 7, t1 = 7;
        EXPECT_EQ( GeSphere3<T>( GePoint3<T>(), radius ).intersectRay( origin, direction, t0, t1 ), hits ) << origin;
        EXPECT_TRUE( std::isnan( expected ) ? std::isnan( t0 ) && std::isnan( t1 ) : t0 == expected && t1 == expected );
    }
}

ZQ_TWIN_TEST( Sphere3, ClosestPoint )
{
    const GeSphere3<T> sphere( { 1, 0, 0 }, 1 );
    const GePoint3<T> untouched( 7, 8, 9 );
    using Row = std::tuple<const char*, GePoint3<T>, GeVector3<T>, GePoint3<T>>;
    for ( const auto& [what, origin, direction, expected] : {
              Row{ "goes through", { -5, T( 0.25 ), 0 }, { 1, 0, 0 }, { 1, 1, 0 } },
              Row{ "through the centre", { -5, 0, 0 }, { 1, 0, 0 }, { 1, 0, 0 } },
              Row{ "beside the centre", { 1, 4, 0 }, { 1, 0, 0 }, { 1, 1, 0 } },
              Row{ "from the surface", { 1, 1, 0 }, { 1, 0, 0 }, { 1, 1, 0 } },
              Row{ "from inside", { 1, T( 0.5 ), 0 }, { 1, 0, 0 }, untouched },
              Row{ "centre behind", { 3, 2, 0 }, { 1, 0, 0 }, untouched },
          } )
    {
        GePoint3<T> closest = untouched;
        EXPECT_EQ( sphere.getClosestPoint( origin, direction, closest ), expected != untouched ) << what;
        EXPECT_EQ( closest, expected ) << what;
    }
    // each tolerance for its own part
    EXPECT_TRUE( sphere.isEqual( GeSphere3<T>( { 1, 0, 0 }, 2 ), T( 0.1 ), 2 ) );
    EXPECT_TRUE( sphere.isEqual( GeSphere3<T>( { 1, 0, 1 }, 1 ), 2, T( 0.1 ) ) );
}

} // namespace
