#include "support/prelude.h"

#include <zq/primitives/gePlane3Builder.h>
#include <zq/primitives/geRotation3.h>

namespace
{

ZQ_TWIN_SUITE( Plane3 );

template <class T>
GeNormalizedPlane3<T> fit( const std::vector<GePoint3<T>>& polygon )
{
    GePlane3Builder<T> builder;
    for ( const GePoint3<T>& point : polygon )
        builder.addPoint( point );
    return builder.getPlane();
}

// Where a line meets a plane, by the values at two of its points: they change evenly along it.
ZQ_TWIN_TEST( Plane3, NormalizingLeavesThePlaneInPlaceAndRaysEndOnIt )
{
    Random random( 1 );
    const double eps = double( epsilon<T> );
    for ( int i = 0; i < 4000; ++i )
    {
        const GePlane3<T> plane( random.vector<T>( 10 ), random.uniform<T>( -20, 20 ) );
        GeNormalizedPlane3<T> unit( plane );
        const GePoint3<T> p = random.point<T>( 10 ), q = random.point<T>( 10 );
        const auto valueAt = [&plane]( const GePoint3<T>& point )
        {
            long double value = plane.getOffset();
            for ( int axis = 0; axis < 3; ++axis )
                value += static_cast<long double>( plane.getNormal()[axis] ) * point[axis];
            return static_cast<double>( value );
        };
        const double length = GeVector3<double>( plane.getNormal() ).length(), drop = valueAt( p ) - valueAt( q );
        EXPECT_NEAR( double( plane.computeValue( p ) ), valueAt( p ), 2000 * eps );
        EXPECT_NEAR( double( unit.computeValue( p ) ), valueAt( p ) / length, 100 * eps * ( 1 + 1 / length ) );
        T t = 0;
        if ( std::fabs( drop ) > length )
        {
            EXPECT_TRUE( unit.intersectRay( p, q - p, t ) );
            EXPECT_NEAR( double( t ), valueAt( p ) / drop, 3000 * eps * ( 1 + 1 / length ) );
        }
        // the offset is divided, not multiplied by a reciprocal
        EXPECT_EQ( GeNormalizedPlane3<T>( 0, 49, 0, plane.getOffset() ).getOffset(), plane.getOffset() / T( 49 ) );
        // a unit vector is trusted: its rounding is not rounded again
        const GeUnitVector3<T> direction = random.direction<T>();
        EXPECT_EQ( GeNormalizedPlane3<T>( direction, 3 ).getNormal(), direction );
        const T value = unit.computeValue( p );
        unit.flip();
        EXPECT_EQ( unit.computeValue( p ), -value );
    }
    EXPECT_EQ( GeNormalizedPlane3<T>(), ( GeNormalizedPlane3<T>( GePlane3<T>( 0, 0, 1, 0 ) ) ) );
    EXPECT_EQ( GePlane3<T>(), ( GePlane3<T>( 0, 0, 1, 0 ) ) );
    // neither NaN nor an overflowing length counts as zero
    EXPECT_TRUE( std::isnan( GeNormalizedPlane3<T>( 0, ZqTest::nan<T>, 0, 1 ).getNormal().getX() ) );
    EXPECT_EQ( GeNormalizedPlane3<T>( std::numeric_limits<T>::max(), 0, 0, 1 ).getNormal(), GeVector3<T>() );
}

ZQ_TWIN_TEST( Plane3, ParallelBehindAndNaNRays )
{
    using Plane = GePlane3<T>;
    const T nan = ZqTest::nan<T>, tiny = sizeof( T ) == sizeof( float ) ? T( 5e-7F ) : T( 5e-8 ), untouched = 7;
    // what the plane and its normalised form leave in t, for a ray along x
    const auto expectT = [=]( const Plane& plane, T start, T direction, T expected, T expectedNormalized )
    {
        T t = untouched, tNormalized = untouched;
        const GePoint3<T> origin( start, 5, 5 );
        const bool meets = plane.intersectRay( origin, GeVector3<T>( direction, 0, 0 ), t );
        EXPECT_EQ( GeNormalizedPlane3<T>( plane ).intersectRay( origin, { direction, 0, 0 }, tNormalized ), meets );
        EXPECT_EQ( meets, expected != untouched ) << start << ' ' << direction;
        EXPECT_TRUE( t == expected || ( std::isnan( t ) && std::isnan( expected ) ) ) << t;
        EXPECT_TRUE( tNormalized == expectedNormalized || ( std::isnan( t ) && std::isnan( tNormalized ) ) ) << t;
    };
    const Plane wall( 1, 0, 0, -1 );
    expectT( wall, 3, 1, -2, -2 );
    expectT( wall, 0, -2, T( -0.5 ), T( -0.5 ) );
    expectT( wall, 0, 0, untouched, untouched );
    expectT( wall, 0, tiny, untouched, untouched );
    expectT( wall, 0, -tiny, untouched, untouched );
    expectT( wall, 0, T( 0.03125 ), 32, 32 );
    expectT( wall, 0, nan, nan, nan );
    expectT( wall, nan, 1, nan, nan );
    expectT( Plane( 1, 0, 0, nan ), 0, 1, nan, nan );
    // the general plane scales its normal and keeps its offset
    expectT( Plane( 2, 0, 0, -2 ), 0, 1, 2, 1 );
    T t = untouched;
    EXPECT_FALSE( Plane( 0, 0, 0, 1 ).intersectRay( GePoint3<T>(), GeVector3<T>( 1, 2, 3 ), t ) );
}

// By another road than Newell's: the cross products of a fan of triangles, summed, and the mean of the vertices.
ZQ_TWIN_TEST( Plane3, FitAgreesWithAFanOfTriangles )
{
    Random random( 3 );
    const double eps = double( epsilon<T> );
    for ( int i = 0; i < 1000; ++i )
    {
        // a wavy ring of 3 to 22 vertices with integer coordinates
        const GeLinearMatrix3<T> frame = GeRotation3<T>::aim( random.direction<T>(), 2, false );
        const int count = 3 + i % 20;
        std::vector<GePoint3<T>> polygon, moved;
        GeVector3<double> sum, mean, previous;
        for ( int k = 0; k < count; ++k )
        {
            const double angle = 2 * 3.14159265358979 * k / count;
            GePoint3<T> vertex( frame * GeVector3<T>( T( 500 * std::cos( angle ) ), T( 500 * std::sin( angle ) ), 0 ) );
            vertex += random.vector<T>( 20 );
            for ( int c = 0; c < 3; ++c )
                vertex[c] = std::round( vertex[c] );
            polygon.push_back( vertex );
            moved.push_back( vertex + GeVector3<T>( 8000000, -8000000, 8000000 ) );
            const GeVector3<double> fromFirst( vertex - polygon[0] );
            sum += previous.cross( fromFirst );
            mean += GeVector3<double>( GeVector3<T>( vertex ) ) / count;
            previous = fromFirst;
        }
        sum.normalize();
        const GeNormalizedPlane3<T> plane = fit( polygon ), far = fit( moved );
        EXPECT_TRUE( GeVector3<double>( plane.getNormal() ).isEqual( sum, 100 * eps ) ) << i;
        EXPECT_NEAR( double( plane.getOffset() ), -sum.dot( mean ), 20000 * eps ) << i;
        // far away nothing is lost: the sums are relative to the first vertex
        EXPECT_EQ( far.getNormal(), plane.getNormal() );
        mean += GeVector3<double>( 8000000, -8000000, 8000000 );
        EXPECT_NEAR( double( far.getOffset() ), -sum.dot( mean ), 1e8 * eps ) << i;
    }
}

ZQ_TWIN_TEST( Plane3, BuilderStartsAnewAfterAFitAndGoesOnAfterAFailure )
{
    const char* file = "src/primitives/gePlane3Builder";
    const std::vector<GePoint3<T>> polygon = { { 5, 5, 2 }, { 6, 5, 2 }, { 7, 5, 2 }, { 7, 7, 4 }, { 5, 7, 4 } };
    const GeNormalizedPlane3<T> plane = fit( polygon );
    GePlane3Builder<T> builder;
    for ( const GePoint3<T>& point : polygon )
    {
        builder.addPoint( point );
        // the first three are collinear; asking must not close the polygon
        if ( point.getZ() == 2 )
            EXPECT_REPORT( builder.getPlane(), file, point.getX() < 7 ? "program aborted" : "len > 0" );
    }
    EXPECT_EQ( builder.getPlane(), plane );
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
