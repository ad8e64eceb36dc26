#include "support/prelude.h"

#include <zq/primitives/geCameraBuilder.h>

namespace
{

ZQ_TWIN_SUITE( CameraBuilder );

template <class T>
constexpr T substitute = sizeof( T ) == sizeof( float ) ? T( 0.0001F ) : T( 1e-7 );

// The eight corners of the view volume land on the corners of the cube; w is the depth of a perspective.
ZQ_TWIN_TEST( CameraBuilder, TheViewVolumeBecomesTheCube )
{
    using Coord = GeHomogeneousCoord3<T>;
    using Builder = GeCameraBuilder<T>;
    const T tolerance = 500 * epsilon<T>;
    Random random( 51 );
    for ( int i = 0; i < 500; ++i )
    {
        const T angle = random.uniform<T>( T( 0.1 ), T( 2.5 ) ), aspect = random.uniform<T>( T( 0.5 ), T( 2 ) );
        const T distances[] = { random.uniform<T>( T( 0.5 ), T( 2 ) ), random.uniform<T>( T( 4 ), T( 20 ) ) };
        const bool isFlipped = i % 2; // near behind far: flipped, not refused
        const T nearDistance = distances[isFlipped], farDistance = distances[!isFlipped];
        const T slope = static_cast<T>( std::tan( static_cast<long double>( angle ) / 2 ) );
        for ( int corner = 0; corner < 8; ++corner )
        {
            const Coord cube(
                corner & 1 ? T( 1 ) : T( -1 ), corner & 2 ? T( 1 ) : T( -1 ), corner & 4 ? T( 1 ) : T( -1 ), 1 );
            const T depth = corner & 4 ? farDistance : nearDistance;
            const auto place = [&]( T size )
            { return Coord( cube.getX() * size * aspect, cube.getY() * size, -depth, 1 ); };
            const Coord clip =
                Builder::makePerspective( angle, nearDistance, farDistance, aspect ) * place( slope * depth );
            EXPECT_EQ( clip.getW(), depth );
            EXPECT_TRUE( ( clip / depth ).isEqual( cube, tolerance ) ) << clip;
            EXPECT_TRUE( (
                Builder::makeOrthographic( angle, nearDistance, farDistance, aspect ) * place( slope * nearDistance ) )
                             .isEqual( cube, tolerance ) );
        }
    }
}

ZQ_TWIN_TEST( CameraBuilder, AnglesAreCappedFromPiOn )
{
    const bool isFloat = sizeof( T ) == sizeof( float );
    const T pi = T( 3.14159265358979323846 ), widest = T( 3.1405926535897932 ), belowPi = std::nextafter( pi, T( 0 ) );
    const auto radius = GeCameraBuilder<T>::computeOrthoRadius;
    const T cap = radius( widest, 1 );
    // steep: the next float of the angle is 0.5 away
    EXPECT_NEAR( double( cap ), isFloat ? 1999.8428 : 1999.99983333, isFloat ? 1e-4 : 1e-8 );
    EXPECT_TRUE( radius( pi, 1 ) == cap && radius( ZqTest::infinity<T>, 1 ) == cap );
    // between the cap and pi nothing is changed: such an angle sees more than pi itself
    EXPECT_TRUE( radius( std::nextafter( widest, T( 4 ) ), 1 ) > cap && radius( belowPi, 1 ) > T( 1e6 ) );
    for ( const T angle : { T( 0 ), T( -1 ), -ZqTest::infinity<T> } )
        EXPECT_EQ( radius( angle, 5 ), substitute<T> );
    EXPECT_TRUE( radius( 1, 0 ) == substitute<T> && radius( 1, -3 ) == substitute<T> );
    // a cotangent that counts as zero is replaced, an infinite one is not
    EXPECT_EQ( GeCameraBuilder<T>::makePerspective( belowPi, 1, 3, 2 )( 1, 1 ), substitute<T> );
    EXPECT_EQ( GeCameraBuilder<T>::makePerspective( -1, 1, 3, 2 )( 1, 1 ), ZqTest::infinity<T> );
}

ZQ_TWIN_TEST( CameraBuilder, DegenerateArgumentsAreReplaced )
{
    const T s = substitute<T>, limit = sizeof( T ) == sizeof( float ) ? T( 1e-6F ) : T( 1e-7 );
    const auto perspective = []( T nearDistance, T farDistance, T aspect )
    { return GeCameraBuilder<T>::makePerspective( 1, nearDistance, farDistance, aspect ); };
    const auto orthographic = []( T nearDistance, T farDistance, T aspect )
    { return GeCameraBuilder<T>::makeOrthographic( 1, nearDistance, farDistance, aspect ); };
    for ( const T bad : { T( 0 ), T( -0.0 ), T( -1 ), -ZqTest::infinity<T> } )
    {
        EXPECT_EQ( perspective( bad, 3, 2 ), perspective( s, 3, 2 ) );
        EXPECT_EQ( perspective( 3, bad, 2 ), perspective( 3, s, 2 ) );
        EXPECT_EQ( orthographic( 3, bad, 2 ), orthographic( 3, s, 2 ) );
        // the extent comes from the near distance before that is replaced
        EXPECT_EQ( orthographic( bad, 3, 2 )( 1, 1 ), 1 / s );
        EXPECT_EQ( orthographic( bad, 3, 2 )( 2, 2 ), orthographic( s, 3, 2 )( 2, 2 ) );
        EXPECT_EQ( orthographic( bad, 3, 2 )( 2, 3 ), orthographic( s, 3, 2 )( 2, 3 ) );
    }
    for ( const T zero : { T( 0 ), std::nextafter( limit, T( 0 ) ), std::nextafter( -limit, T( 0 ) ) } )
    {
        EXPECT_EQ( perspective( 1, 3, zero ), perspective( 1, 3, s ) );
        EXPECT_EQ( orthographic( 1, 3, zero ), orthographic( 1, 3, s ) );
    }
    for ( const auto& m : { perspective( 1, 3, -limit ), orthographic( 1, 3, -limit ) } )
        EXPECT_EQ( m( 0, 0 ), m( 1, 1 ) / -limit );
    // equal distances: the difference becomes 0.5; where their sum counts as zero, 0.5 is added to it
    const T tiny = limit / 10;
    EXPECT_EQ( perspective( 2, 2, 2 )( 2, 2 ), T( -8 ) );
    EXPECT_EQ( perspective( 2, 2, 2 )( 2, 3 ), T( -16 ) );
    EXPECT_EQ( orthographic( 2, 2, 2 )( 2, 2 ), T( -4 ) );
    EXPECT_EQ( orthographic( tiny, tiny, 2 )( 2, 3 ), -( T( 2 ) * ( 2 * tiny + T( 0.5 ) ) ) );
}

ZQ_TWIN_TEST( CameraBuilder, NaNPassesThrough )
{
    using Builder = GeCameraBuilder<T>;
    const T nan = ZqTest::nan<T>;
    for ( const T result : { Builder::computeOrthoRadius( nan, 1 ), Builder::computeOrthoRadius( 1, nan ),
              Builder::makePerspective( nan, 1, 3, 2 )( 1, 1 ), Builder::makePerspective( 1, nan, 3, 2 )( 2, 2 ),
              Builder::makePerspective( 1, 1, nan, 2 )( 2, 3 ), Builder::makePerspective( 1, 1, 3, nan )( 0, 0 ),
              Builder::makePerspective( 1, 1, ZqTest::infinity<T>, 2 )( 2, 2 ),
              Builder::makeOrthographic( nan, 1, 3, 2 )( 1, 1 ), Builder::makeOrthographic( 1, 1, 3, nan )( 0, 0 ) } )
        EXPECT_TRUE( std::isnan( result ) );
}

} // namespace
