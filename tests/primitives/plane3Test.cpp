#include "support/prelude.h"

#include <zq/primitives/gePlane3Builder.h>

namespace
{

// Rays are compared bit for bit with the plain rule in arithmeticBitsTest.cpp.
ZQ_TWIN_SUITE( Plane3 );

template <class T>
GeNormalizedPlane3<T> fit( const std::vector<GePoint3<T>>& polygon )
{
    GePlane3Builder<T> builder;
    for ( const GePoint3<T>& point : polygon )
        builder.addPoint( point );
    return builder.getPlane();
}

ZQ_TWIN_TEST( Plane3, NormalizingLeavesThePlaneInPlace )
{
    Random random( 1 );
    const double eps = double( epsilon<T> );
    for ( const auto i : random.runs( 4000 ) )
    {
        const GePlane3<T> plane( random.vector<T>( 10 ), random.uniform<T>( -20, 20 ) );
        GeNormalizedPlane3<T> unit( plane );
        const GeVector3<double> normal( plane.getNormal() );
        const GePoint3<T> p = random.point<T>( 10 );
        const double length = normal.length();
        const double value = normal.dot( GeVector3<double>( GeVector3<T>( p ) ) ) + double( plane.getOffset() );
        EXPECT_NEAR( double( plane.computeValue( p ) ), value, 2000 * eps );
        EXPECT_NEAR( double( unit.computeValue( p ) ), value / length, 100 * eps * ( 1 + 1 / length ) );
        const GeNormalizedPlane3<T> before = unit;
        unit.flip();
        EXPECT_EQ( unit.computeValue( p ), -before.computeValue( p ) );
        // a unit vector is trusted: its rounding is not rounded again
        const GeUnitVector3<T> direction = random.direction<T>();
        EXPECT_EQ( GeNormalizedPlane3<T>( direction, 3 ).getNormal(), direction );
    }
    EXPECT_EQ( GeNormalizedPlane3<T>(), ( GeNormalizedPlane3<T>( GePlane3<T>( 0, 0, 1, 0 ) ) ) );
    EXPECT_EQ( GePlane3<T>(), ( GePlane3<T>( 0, 0, 1, 0 ) ) );
    // neither NaN nor an overflowing length counts as zero
    EXPECT_TRUE( std::isnan( GeNormalizedPlane3<T>( 0, ZqTest::nan<T>, 0, 1 ).getNormal().getX() ) );
    EXPECT_EQ( GeNormalizedPlane3<T>( std::numeric_limits<T>::max(), 0, 0, 1 ).getNormal(), GeVector3<T>() );
}

// By another road than Newell's: the cross products of a fan of triangles, summed, and the mean of the vertices.
ZQ_TWIN_TEST( Plane3, FitAgreesWithAFanOfTriangles )
{
    Random random( 3 );
    const double eps = double( epsilon<T> );
    const GeVector3<T> away( 8000000, -8000000, 8000000 );
    for ( const auto i : random.runs( 1000 ) )
    {
        // any closed polygon of integer coordinates: the sums are exact
        std::vector<GePoint3<T>> polygon, moved;
        GeVector3<double> sum, mean, previous;
        const int count = 3 + i % 20;
        for ( int k = 0; k < count; ++k )
        {
            GeVector3<T> vertex;
            for ( int axis = 0; axis < 3; ++axis )
                vertex[axis] = T( random.index( 100 ) );
            polygon.emplace_back( vertex );
            moved.emplace_back( vertex + away );
            const GeVector3<double> fromFirst( polygon.back() - polygon.front() );
            sum += previous.cross( fromFirst );
            mean += GeVector3<double>( vertex ) / count;
            previous = fromFirst;
        }
        sum.normalize();
        const GeNormalizedPlane3<T> plane = fit( polygon ), far = fit( moved );
        EXPECT_CLOSE( GeVector3<double>( plane.getNormal() ), sum, 100 * eps ) << i;
        EXPECT_NEAR( double( plane.getOffset() ), -sum.dot( mean ), 20000 * eps ) << i;
        // far away nothing is lost: the sums are relative to the first vertex
        EXPECT_EQ( far.getNormal(), plane.getNormal() );
        EXPECT_NEAR( double( far.getOffset() ), -sum.dot( mean + GeVector3<double>( away ) ), 1e8 * eps ) << i;
    }
}

ZQ_TWIN_TEST( Plane3, BuilderStartsAnewAfterAFitAndGoesOnAfterAFailure )
{
    const std::vector<GePoint3<T>> polygon = { { 5, 5, 2 }, { 7, 7, 2 }, { 7, 9, 4 }, { 5, 9, 4 } };
    const GeNormalizedPlane3<T> plane = fit( polygon );
    GePlane3Builder<T> builder;
    for ( const GePoint3<T>& point : polygon )
        builder.addPoint( point );
    EXPECT_EQ( builder.getPlane(), plane );
    EXPECT_EQ( builder.getPlane(), plane );
    const std::vector<GePoint3<T>> late = { { 0, 0, 1 }, { 1, 1, 1 }, { 2, 2, 1 }, { 0, 0, 2 } };
    for ( const GePoint3<T>& point : late )
    {
        if ( &point != &late[0] ) // one, two, and three in a row
            EXPECT_REPORT( builder.getPlane(), "src/primitives/gePlane3Builder",
                &point == &late[3] ? "len > 0" : "program aborted" );
        builder.addPoint( point );
    }
    EXPECT_EQ( builder.getPlane(), fit( late ) );
}

} // namespace
