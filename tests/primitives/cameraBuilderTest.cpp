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
    const T tolerance = 500 * epsilon<T>;
    Random random( 51 );
    for ( int i = 0; i < 500; ++i )
    {
        const T angle = random.uniform<T>( T( 0.1 ), T( 2.5 ) ), aspect = random.uniform<T>( T( 0.5 ), T( 2 ) );
        T nearDistance = random.uniform<T>( T( 0.5 ), T( 2 ) ), farDistance = random.uniform<T>( T( 4 ), T( 20 ) );
        if ( i % 2 ) // near behind far: flipped, not refused
            std::swap( nearDistance, farDistance );
        const auto perspective = GeCameraBuilder<T>::makePerspective( angle, nearDistance, farDistance, aspect );
        const auto orthographic = GeCameraBuilder<T>::makeOrthographic( angle, nearDistance, farDistance, aspect );
        const T slope = static_cast<T>( std::tan( static_cast<long double>( angle ) / 2 ) );
        for ( const T x : { T( -1 ), T( 1 ) } )
            for ( const T y : { T( -1 ), T( 1 ) } )
                for ( const T z : { T( -1 ), T( 1 ) } )
                {
                    const Coord cube( x, y, z, 1 );
                    const T depth = z > 0 ? farDistance : nearDistance;
                    const auto place = [&]( T size ) { return Coord( x * size * aspect, y * size, -depth, 1 ); };
                    const Coord clip = perspective * place( slope * depth );
                    EXPECT_TRUE( clip.getW() == depth && ( clip / depth ).isEqual( cube, tolerance ) ) << clip;
                    EXPECT_TRUE( ( orthographic * place( slope * nearDistance ) ).isEqual( cube, tolerance ) );
                }
    }
}

ZQ_TWIN_TEST( CameraBuilder, AnglesAreCappedFromPiOn )
{
    const bool isFloat = sizeof( T ) == sizeof( float );
    const T pi = T( 3.14159265358979323846 ), widest = T( 3.1405926535897932 ), belowPi = std::nextafter( pi, T( 0 ) );
    const auto radius = GeCameraBuilder<T>::computeOrthoRadius;
    const T cap = radius( pi, 1 );
    // steep: the next float of the angle is 0.5 away
    EXPECT_NEAR( double( cap ), isFloat ? 1999.8428 : 1999.99983333, isFloat ? 1e-4 : 1e-8 );
    // between the cap and pi nothing is changed: such an angle sees more than pi itself
    EXPECT_TRUE( radius( std::nextafter( widest, T( 4 ) ), 1 ) > cap && radius( belowPi, 1 ) > T( 1e6 ) );
    EXPECT_TRUE( radius( -1, 5 ) == substitute<T> && radius( 1, 0 ) == substitute<T> );
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
    for ( const T bad : { T( 0 ), T( -1 ) } )
    {
        EXPECT_EQ( perspective( bad, 3, 2 ), perspective( s, 3, 2 ) );
        EXPECT_EQ( perspective( 3, bad, 2 ), perspective( 3, s, 2 ) );
        EXPECT_EQ( orthographic( 3, bad, 2 ), orthographic( 3, s, 2 ) );
        // the extent comes from the near distance before that is replaced
        EXPECT_EQ( orthographic( bad, 3, 2 )( 1, 1 ), 1 / s );
        EXPECT_EQ( orthographic( bad, 3, 2 )( 2, 3 ), orthographic( s, 3, 2 )( 2, 3 ) );
    }
    for ( const auto& make : { +perspective, +orthographic } )
    {
        EXPECT_EQ( make( 1, 3, std::nextafter( -limit, T( 0 ) ) ), make( 1, 3, s ) );
        EXPECT_EQ( make( 1, 3, -limit )( 0, 0 ), make( 1, 3, 1 )( 0, 0 ) / -limit );
        EXPECT_TRUE( std::isnan( make( ZqTest::nan<T>, 3, 2 )( 2, 2 ) ) );
    }
    // equal distances: the difference becomes 0.5; where their sum counts as zero, 0.5 is added to it
    const T tiny = limit / 10;
    EXPECT_TRUE( perspective( 2, 2, 2 )( 2, 2 ) == -8 && perspective( 2, 2, 2 )( 2, 3 ) == -16 );
    EXPECT_EQ( orthographic( tiny, tiny, 2 )( 2, 3 ), -( T( 2 ) * ( 2 * tiny + T( 0.5 ) ) ) );
}

} // namespace
