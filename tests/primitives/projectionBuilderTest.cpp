#include "support/cameras.h"
#include "support/prelude.h"

namespace
{

ZQ_TWIN_SUITE( ProjectionBuilder );

using ZqTest::farDepths;
using ZqTest::Lens;
using ZqTest::nearDepths;
using ZqTest::Number;
using ZqTest::ranges;
using Clip = std::array<Number, 4>;

/// The elements as they are, times a point, divided by w, which comes last.
template <class T>
Clip project( const GeProjectiveMatrix3<T>& m, Number x, Number y, Number z )
{
    Clip clip;
    for ( int row = 0; row < 4; ++row )
        clip[static_cast<std::size_t>( row )] = m( row, 0 ) * x + m( row, 1 ) * y + m( row, 2 ) * z + m( row, 3 );
    return { clip[0] / clip[3], clip[1] / clip[3], clip[2] / clip[3], clip[3] };
}

// Each of the eight corners, from the edges on the near plane and from those of an orthographic view; far / near to 1e6
ZQ_TWIN_TEST( ProjectionBuilder, CornersOfTheVolumeBecomeThoseOfTheRange )
{
    Random random( 301 );
    for ( const auto run : random.runs( 300 ) )
    {
        const Lens<T> lens( random );
        const int i = run % 3;
        const auto perspective = lens.makePerspective( ranges[i] ), orthographic = lens.makeOrthographic( ranges[i] );
        const double tolerance = 4.0 * static_cast<double>( epsilon<T> );
        const double depthTolerance = tolerance * ( 1.0 + std::fabs( static_cast<double>( perspective( 2, 2 ) ) ) );
        for ( int corner = 0; corner < 8; ++corner )
        {
            const Number x = corner & 1 ? lens.right : lens.left, y = corner & 2 ? lens.top : lens.bottom;
            const Number t = corner & 4 ? lens.farDistance : lens.nearDistance;
            const Number depth = ( corner & 4 ? farDepths : nearDepths )[i];
            for ( const Clip& clip : { project( perspective, x * t, y * t, -t ), project( orthographic, x, y, -t ) } )
            {
                EXPECT_NEAR( double( clip[0] ), corner & 1 ? 1 : -1, tolerance );
                EXPECT_NEAR( double( clip[1] ), corner & 2 ? 1 : -1, tolerance );
                EXPECT_NEAR( double( clip[2] ), double( depth ), depthTolerance ) << "corner " << corner;
            }
            EXPECT_EQ( project( perspective, x * t, y * t, -t )[3], t );
            EXPECT_EQ( project( GeProjectionBuilder<T>::makeYDown( orthographic ), x, y, -t )[1],
                -project( orthographic, x, y, -t )[1] );
        }
    }
}

ZQ_TWIN_TEST( ProjectionBuilder, WithoutAFarPlaneItIsTheLimit )
{
    const T far = std::numeric_limits<T>::max() / 4;
    const auto make = GeProjectionBuilder<T>::makePerspectiveFromVerticalAngle;
    for ( int i = 0; i < 3; ++i )
    {
        const auto infinite = make( 1, 2, T( 0.3 ), ZqTest::infinity<T>, ranges[i] );
        EXPECT_CLOSE( infinite, make( 1, 2, T( 0.3 ), far, ranges[i] ), epsilon<T> );
        EXPECT_EQ( infinite( 2, 2 ), -T( farDepths[i] ) ); // exactly: the direction ahead has the far depth
        EXPECT_NEAR( double( project( infinite, 0, 0, -T( 0.3 ) )[2] ), double( nearDepths[i] ), epsilon<T> );
        const Number depth = farDepths[i] + ( nearDepths[i] - farDepths[i] ) / 8;
        EXPECT_NEAR( double( project( infinite, 0, 0, -8 * T( 0.3 ) )[2] ), double( depth ), epsilon<T> );
    }
}

ZQ_TWIN_TEST( ProjectionBuilder, AnglesEdgesAndTangentsMeanTheSameCamera )
{
    using Builder = GeProjectionBuilder<T>;
    Random random( 302 );
    for ( const auto run : random.runs( 200 ) )
    {
        const GeDepthRange range = ranges[run % 3];
        const T angle = random.uniform<T>( T( 0.01 ), 3 ), aspect = random.uniform<T>( T( 0.3 ), 3 );
        const T n = random.uniform<T>( T( 0.1 ), 2 ), f = n * random.uniform<T>( 2, 1000 );
        const Number up = std::tan( Number( angle ) / 2 ), right = up * aspect;
        const auto vertical = Builder::makePerspectiveFromVerticalAngle( angle, aspect, n, f, range );
        const T tolerance = 16 * epsilon<T> * std::max( vertical( 0, 0 ), std::max( vertical( 1, 1 ), 2 * n ) );
        EXPECT_CLOSE( vertical,
            Builder::makePerspectiveFromTangents( T( -right ), T( right ), T( -up ), T( up ), n, f, range ),
            tolerance );
        EXPECT_CLOSE( Builder::makePerspectiveFromHorizontalAngle( angle, aspect, n, f, range ),
            Builder::makePerspectiveFromTangents( T( -up ), T( up ), T( -up / aspect ), T( up / aspect ), n, f, range ),
            tolerance );
        const Lens<T> lens( random );
        const auto edges = Builder::makePerspectiveFromNearEdges(
            lens.left * n, lens.right * n, lens.bottom * n, lens.top * n, n, f, range );
        EXPECT_CLOSE( edges,
            Builder::makePerspectiveFromTangents( lens.left, lens.right, lens.bottom, lens.top, n, f, range ),
            64 * epsilon<T> * ( 1 + n ) );
    }
}

// On the plane: near depth. On its visible side within the old volume: within the range, and a far corner at its end.
ZQ_TWIN_TEST( ProjectionBuilder, AnObliqueNearPlaneReplacesTheOldOne )
{
    Random random( 303 );
    for ( const auto run : random.runs( 400 ) )
    {
        Lens<T> lens( random );
        lens.farDistance = run % 4 == 3 ? ZqTest::infinity<T> : lens.nearDistance * random.uniform<T>( 4, 100 );
        const int i = run % 3;
        const bool isPerspective = run % 4 != 0;
        auto m = isPerspective ? lens.makePerspective( ranges[i] ) : lens.makeOrthographic( ranges[i] );
        if ( run % 5 == 0 )
            m = GeProjectionBuilder<T>::makeYDown( m );
        const GeVector3<T> normal( random.uniform<T>( -1, 1 ), random.uniform<T>( -1, 1 ), -1 );
        const GePlane3<T> plane( normal, -2 * lens.nearDistance );
        const auto oblique = GeProjectionBuilder<T>::makeOblique( m, plane, ranges[i] );
        const Number low = std::min( nearDepths[i], farDepths[i] ), high = std::max( nearDepths[i], farDepths[i] );
        const Number slack = 1000 * epsilon<T>;
        Number closestToFar = 10;
        const Number last = lens.farDistance > 1e30F ? 1e18L : Number( lens.farDistance );
        for ( int corner = 0; corner < 8; ++corner )
        {
            const Number t = corner & 4 ? last : Number( lens.nearDistance ), size = isPerspective ? t : 1;
            const Number x = ( corner & 1 ? lens.right : lens.left ) * size;
            const Number y = ( corner & 2 ? lens.top : lens.bottom ) * size;
            const Number value = normal[0] * x + normal[1] * y - normal[2] * t + plane.getOffset();
            const Clip clip = project( oblique, x, y, -t );
            EXPECT_NEAR( double( clip[0] ), double( project( m, x, y, -t )[0] ), 1e-12 );
            if ( value > 0 )
            {
                EXPECT_GE( clip[2], low - slack );
                EXPECT_LE( clip[2], high + slack );
                closestToFar = std::min( closestToFar, std::fabs( clip[2] - farDepths[i] ) );
            }
            if ( isPerspective && value / t + 2 * lens.nearDistance / t < Number( 0.05 ) )
                continue; // the line from the eye meets the plane far away or not at all
            const Number s = isPerspective ? -plane.getOffset() / ( value - plane.getOffset() ) : 1;
            const Number z = isPerspective ? -t * s : ( plane.getOffset() + normal[0] * x + normal[1] * y );
            EXPECT_NEAR( double( project( oblique, x * s, y * s, z )[2] ), double( nearDepths[i] ), double( slack ) );
        }
        EXPECT_LE( closestToFar, slack );
    }
}

ZQ_TWIN_TEST( ProjectionBuilder, AnglesUpToPiAndDistancesOfAnySizeAreTaken )
{
    using Builder = GeProjectionBuilder<T>;
    const T largest = std::numeric_limits<T>::max(), smallest = std::numeric_limits<T>::min();
    const T belowPi = std::nextafter( T( 3.14159265358979323846 ), T( 0 ) );
    for ( const GeDepthRange range : ranges )
    {
        const auto deep = Builder::makePerspectiveFromVerticalAngle( belowPi, 1, smallest, largest, range );
        EXPECT_GT( deep( 1, 1 ), T( 0 ) );
        const auto wide = Builder::makeOrthographicFromEdges(
            -largest / 4, largest / 4, -1, 1, largest / 2, std::nextafter( largest, T( 0 ) ), range );
        EXPECT_NEAR( double( project( wide, largest / 4, 0, -largest / 2 )[0] ), 1, 4 * double( epsilon<T> ) );
    }
}

} // namespace
