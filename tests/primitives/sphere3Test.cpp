#include "support/prelude.h"

#include <zq/primitives/geSphere3.h>

namespace
{

ZQ_TWIN_SUITE( Sphere3 );

ZQ_TWIN_TEST( Sphere3, RootsLieOnTheSphereAndClosestPointsTowardsTheLine )
{
    Random random( 1 );
    const T bound = 200 * epsilon<T>;
    for ( const auto i : random.runs( 5000 ) )
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
            EXPECT_NEAR( ( closest - center ).length(), radius, bound );
            EXPECT_NEAR( ( closest - origin ).cross( along ).length(), distance - radius, bound );
        }
    }
    // radius 0 and unit direction: the discriminant is -y^2; its limit is the float -0.0001 in both scalars
    T t0 = 0, t1 = 0;
    const std::pair<T, bool> rows[] = { { T( 0.009999 ), true }, { T( 0.010001 ), false },
        { std::sqrt( T( 9.9999999e-5 ) ), sizeof( T ) == sizeof( float ) } };
    for ( const auto& [y, hits] : rows )
        EXPECT_EQ( GeSphere3<T>( GePoint3<T>(), 0 ).intersectRay( { 0, y, 0 }, { 1, 0, 0 }, t0, t1 ), hits ) << y;
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
    EXPECT_CLOSE( sphere, GeSphere3<T>( { 1, 0, 0 }, 2 ), T( 0.1 ), T( 2 ) );
    EXPECT_CLOSE( sphere, GeSphere3<T>( { 1, 0, 1 }, 1 ), T( 2 ), T( 0.1 ) );
}

} // namespace
