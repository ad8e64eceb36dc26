#include "support/cameras.h"
#include "support/prelude.h"

#include <zq/primitives/geCameraBuilder.h>

namespace
{

ZQ_TWIN_SUITE( CameraBuilder );

ZQ_TWIN_TEST( CameraBuilder, MatricesAreThoseOfTheProjectionBuilder )
{
    using Builder = GeProjectionBuilder<T>;
    const auto range = GeDepthRange::MINUS_ONE_TO_ONE;
    Random random( 51 );
    for ( const auto i : random.runs( 500 ) )
    {
        const T angle = random.uniform<T>( T( 0.1 ), T( 2.5 ) ), aspect = random.uniform<T>( T( 0.5 ), T( 2 ) );
        const T n = random.uniform<T>( T( 0.5 ), T( 2 ) ), f = random.uniform<T>( T( 4 ), T( 20 ) );
        const T up = n * static_cast<T>( std::tan( static_cast<long double>( angle ) / 2 ) ), right = up * aspect;
        const T tolerance = 500 * epsilon<T>;
        EXPECT_CLOSE( GeCameraBuilder<T>::makePerspective( angle, n, f, aspect ),
            Builder::makePerspectiveFromVerticalAngle( angle, aspect, n, f, range ), tolerance );
        EXPECT_CLOSE( GeCameraBuilder<T>::makeOrthographic( angle, n, f, aspect ),
            Builder::makeOrthographicFromEdges( -right, right, -up, up, n, f, range ), tolerance );
    }
    // near behind far is not refused: the depths change places
    const auto flipped = GeCameraBuilder<T>::makePerspective( 1, 3, 1, 2 );
    EXPECT_EQ( flipped( 2, 2 ), T( 2 ) );
    EXPECT_EQ( flipped( 2, 3 ), T( 3 ) );
    EXPECT_EQ( GeCameraBuilder<T>::makeOrthographic( 1, 3, 1, 2 )( 2, 2 ), T( 1 ) );
}

ZQ_TWIN_TEST( CameraBuilder, DegenerateArgumentsAreReplaced )
{
    const bool isFloat = sizeof( T ) == sizeof( float );
    const T s = isFloat ? T( 0.0001F ) : T( 1e-7 ), limit = isFloat ? T( 1e-6F ) : T( 1e-7 );
    const auto perspective = GeCameraBuilder<T>::makePerspective, orthographic = GeCameraBuilder<T>::makeOrthographic;
    const auto radius = GeCameraBuilder<T>::computeOrthoRadius;
    EXPECT_EQ( radius( -1, 5 ), s );
    EXPECT_EQ( radius( 1, 0 ), s );
    // from pi on an angle is capped, steeply: the next float of the angle is 0.5 away; below pi nothing is changed
    const T pi = T( 3.14159265358979323846 ), belowPi = std::nextafter( pi, T( 0 ) );
    EXPECT_NEAR( double( radius( pi, 1 ) ), isFloat ? 1999.8428 : 1999.99983333, isFloat ? 1e-4 : 1e-8 );
    EXPECT_GT( radius( belowPi, 1 ), T( 1e6 ) );
    // a cotangent that counts as zero is replaced, an infinite one is not
    EXPECT_EQ( perspective( belowPi, 1, 3, 2 )( 1, 1 ), s );
    EXPECT_EQ( perspective( -1, 1, 3, 2 )( 1, 1 ), ZqTest::infinity<T> );
    for ( const T bad : { T( 0 ), T( -1 ) } )
    {
        EXPECT_EQ( perspective( 1, bad, 3, 2 ), perspective( 1, s, 3, 2 ) );
        EXPECT_EQ( perspective( 1, 3, bad, 2 ), perspective( 1, 3, s, 2 ) );
        // the extent comes from the near distance before that is replaced
        EXPECT_EQ( orthographic( 1, bad, 3, 2 )( 1, 1 ), 1 / s );
        EXPECT_EQ( orthographic( 1, bad, 3, 2 )( 2, 3 ), orthographic( 1, s, 3, 2 )( 2, 3 ) );
    }
    for ( const auto make : { perspective, orthographic } )
    {
        EXPECT_EQ( make( 1, 1, 3, std::nextafter( -limit, T( 0 ) ) ), make( 1, 1, 3, s ) );
        EXPECT_EQ( make( 1, 1, 3, -limit )( 0, 0 ), make( 1, 1, 3, 1 )( 0, 0 ) / -limit );
        EXPECT_TRUE( std::isnan( make( 1, ZqTest::nan<T>, 3, 2 )( 2, 2 ) ) );
    }
    // equal distances: the difference becomes 0.5; where their sum counts as zero, 0.5 is added to it
    EXPECT_EQ( perspective( 1, 2, 2, 2 )( 2, 2 ), -8 );
    EXPECT_EQ( perspective( 1, 2, 2, 2 )( 2, 3 ), -16 );
    EXPECT_EQ( orthographic( 1, limit / 10, limit / 10, 2 )( 2, 3 ), -( T( 2 ) * ( limit / 10 * 2 + T( 0.5 ) ) ) );
}

} // namespace
