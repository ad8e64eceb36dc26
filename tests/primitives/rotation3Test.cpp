// Frames that look somewhere. Rotations by an angle are tested along with the quaternions.

#include "support/matrixReference.h"
#include "support/prelude.h"

#include <zq/primitives/geRotation3.h>

namespace
{

using R = long double;

ZQ_TWIN_SUITE( Rotation3 );

/// Directions of all kinds: none at all, coordinate axes, ties between components, nearly along an axis, random ones.
template <class T>
std::vector<GeUnitVector3<T>> makeDirections( Random& random, int count )
{
    std::vector<GeUnitVector3<T>> directions{ {}, { T( 1e-6 ), 1, T( -1e-6 ) }, { T( 1e-12 ), T( 1e-12 ), -1 } };
    for ( int i = 0; i < 27; ++i )
        if ( i != 13 )
            directions.emplace_back( T( i % 3 - 1 ), T( i / 3 % 3 - 1 ), T( i / 9 - 1 ) );
    for ( int i = 0; i < count; ++i )
        directions.push_back( random.direction<T>() );
    return directions;
}

/// What every frame promises; returns its basis vectors.
template <class T, class... Arguments>
auto checkFrame( R bound, const Arguments&... arguments )
{
    const auto frame = GeRotation3<T>::aim( arguments..., true ), inverse = GeRotation3<T>::aim( arguments..., false );
    EXPECT_EQ( inverse, frame.computeInverse() );
    EXPECT_GT( frame.getMatrix().computeDeterminant(), T( 0 ) ) << frame;
    const auto product = multiply( ZqTest::toRows<R, 3>( frame ), ZqTest::toRows<R, 3>( inverse ) );
    ZqTest::forEachPlace<3>(
        [&]( int r, int c ) { EXPECT_LE( std::fabs( product( r, c ) - ( r == c ) ), bound ) << frame; } );
    return [frame]( int axis ) { return GeVector3<T>( frame( axis, 0 ), frame( axis, 1 ), frame( axis, 2 ) ); };
}

ZQ_TWIN_TEST( Rotation3, AimAtADirectionForEveryAxis )
{
    Random random( 51 );
    for ( const GeUnitVector3<T>& direction : makeDirections<T>( random, 500 ) )
        for ( int axis = 0; axis < 3; ++axis )
        {
            const auto basis = checkFrame<T>( 8 * R( epsilon<T> ), direction, axis );
            const GeVector3<T> w = basis( axis );
            EXPECT_EQ( w, direction.length() == 0 ? GeVector3<T>( 0, 0, -1 ) : GeVector3<T>( direction ) );
            // the last basis vector has no part along the axis of the smallest component, the first of y, x, z
            int fallback = 1;
            for ( const int other : { 0, 2 } )
                fallback = std::fabs( w[other] ) < std::fabs( w[fallback] ) ? other : fallback;
            EXPECT_EQ( basis( ( axis + 2 ) % 3 )[fallback], T( 0 ) );
            EXPECT_LT( basis( ( axis + 1 ) % 3 )[fallback], T( -0.5 ) ); // the fallback axes are negative
        }
}

ZQ_TWIN_TEST( Rotation3, AimWithUpForEveryPairOfAxes )
{
    const double eps = double( epsilon<T> );
    Random random( 52 );
    for ( const GeUnitVector3<T>& direction : makeDirections<T>( random, 120 ) )
    {
        std::vector<GeVector3<T>> ups{ {}, { 0, 1, 0 }, { 0, 0, -3 }, random.vector<T>( 10 ) };
        // parallel, and nearer and nearer to parallel
        for ( int i = 0; i < 14; ++i )
        {
            const double distance = i < 4 ? 0 : std::pow( 10, random.uniform( -17.0, -1.0 ) );
            ups.push_back( direction * T( i % 2 ? 5 : -0.7 ) + random.vector<T>( T( distance ) ) );
        }
        for ( const GeVector3<T>& up : ups )
            for ( const auto& [axis, plane] : { std::pair{ 0, 1 }, { 0, 2 }, { 1, 0 }, { 1, 2 }, { 2, 0 }, { 2, 1 } } )
            {
                // a pair of axes may be off by up to the default tolerance
                const auto basis = checkFrame<T>( sizeof( T ) == 4 ? 2e-6L : 2e-7L, direction, up, axis, plane );
                const GeVector3<double> w( basis( axis ) ), q( basis( plane ) ), exactUp( up );
                EXPECT_EQ( basis( axis ), checkFrame<T>( 1, direction, axis )( axis ) );
                // in the plane of direction and up, on the side of up: as far as up tells a plane from rounding
                const GeVector3<double> p = exactUp - w * ( w.dot( exactUp ) / w.lengthSquared() );
                if ( p.length() <= 64 * eps * exactUp.length() )
                    continue;
                const double out = double( basis( 3 - axis - plane ).dot( up ) );
                EXPECT_LE( std::fabs( out ), 8 * eps * exactUp.length() ) << direction << up;
                EXPECT_GT( q.dot( p ), 0.9 * p.length() ) << direction << up;
            }
    }
    // by hand: w = z, e = (0, -1, 0), q = w x e = (1, 0, 0), t = q x w = (0, -1, 0), which (0, 2) turns to (0, 1, 0)
    const GeUnitVector3<T> z( 0, 0, 1 );
    EXPECT_EQ( ( GeRotation3<T>::aim( z, GeVector3<T>( 0, 0, 2 ), 2, 0, false ) ), GeRotation3<T>() );
    const GeVector3<T> noUp( 0, ZqTest::nan<T>, 0 );
    EXPECT_REPORT( GeRotation3<T>::aim( z, noUp, 0, 1, true ), "src/primitives/geRotation3.imp", "len > 0" );
}

ZQ_TWIN_TEST( Rotation3, AimAtAPolygon )
{
    using Points = std::vector<GePoint3<T>>;
    using V = GeVector3<T>;
    const auto aim = []( const Points& points, int aimAxis, int planeAxis )
    { return checkFrame<T>( 16 * R( epsilon<T> ), int( points.size() ), points.data(), aimAxis, planeAxis ); };
    // a tie between edges of length 2: the first one wins
    EXPECT_EQ( aim( { { 0, 0, 3 }, { 2, 0, 3 }, { 2, 1, 3 }, { 0, 1, 3 } }, 2, 0 )( 0 ), V( 1, 0, 0 ) );
    Random random( 53 );
    for ( const auto i : random.runs( 300 ) )
    {
        // a concave polygon in a known frame, whose first corner turns the wrong way, with its longest edge last
        const GeUnitVector3<T> normal = random.direction<T>();
        const GeLinearMatrix3<T> frame = GeRotation3<T>::aim( normal, 2, false );
        const T z = random.uniform<T>( -1, 1 );
        Points points;
        for ( const V& corner : { V( 1, 1, z ), V( 0, 2, z ), V( 0, -3, z ), V( 6, 0, z ) } )
            points.push_back( GePoint3<T>( frame * corner ) );
        std::rotate( points.begin(), points.begin() + i % 4, points.end() );
        const int aimAxis = i % 3, planeAxis = ( i + 1 + i / 3 % 2 ) % 3;
        const auto basis = aim( points, aimAxis, planeAxis );
        const T bound = 16 * epsilon<T>;
        EXPECT_CLOSE( basis( aimAxis ), normal, bound );
        EXPECT_CLOSE( basis( planeAxis ), frame * V( 2, 1, 0 ).computeUnit(), bound );
    }
}

} // namespace
