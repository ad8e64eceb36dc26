#include "support/random.h"
#include "support/scalars.h"

#include <zq/primitives/geCameraBuilder.h>

#include <cmath>
#include <cstring>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( CameraBuilder );

template <class T>
constexpr T substitute = sizeof( T ) == sizeof( float ) ? T( 0.0001F ) : T( 1e-7 );
template <class T>
constexpr T pi = T( 3.14159265358979323846 );
template <class T>
const T widest = T( 3.1405926535897932 );

template <class T>
GePoint3<T> project( const GeProjectiveMatrix3<T>& m, const GePoint3<T>& p )
{
    const GeHomogeneousCoord3<T> h = m * GeHomogeneousCoord3<T>( p.getX(), p.getY(), p.getZ(), 1 );
    return { h.getX() / h.getW(), h.getY() / h.getW(), h.getZ() / h.getW() };
}

template <class T>
bool isNear( const GeProjectiveMatrix3<T>& m, const double ( &rows )[4][4] )
{
    return m.isEqual( GeProjectiveMatrix3<T>( rows, false ), 8 * ZqTest::epsilon<T> );
}

TYPED_TEST( CameraBuilder, KnownMatrices )
{
    using T = TypeParam;
    using Builder = GeCameraBuilder<T>;
    const double perspective[4][4] = { { 0.5, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, -2, -3 }, { 0, 0, -1, 0 } };
    const double orthographic[4][4] = { { 0.5, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, -1, -2 }, { 0, 0, 0, 1 } };
    EXPECT_PRED2( isNear<T>, Builder::makePerspective( pi<T> / 2, 1, 3, 2 ), perspective );
    EXPECT_PRED2( isNear<T>, Builder::makeOrthographic( pi<T> / 2, 1, 3, 2 ), orthographic );
    EXPECT_NEAR( Builder::computeOrthoRadius( pi<T> / 2, 1 ), T( 1 ), ZqTest::epsilon<T> );
}

// The eight corners of the view volume land on the corners of the cube, however the camera was built.
TYPED_TEST( CameraBuilder, TheViewVolumeBecomesTheCube )
{
    using T = TypeParam;
    Random random( 51 );
    for ( int i = 0; i < 500; ++i )
    {
        const T angle = random.uniform<T>( T( 0.1 ), T( 2.5 ) );
        const T nearDistance = random.uniform<T>( T( 0.5 ), T( 2 ) );
        const T farDistance = nearDistance + random.uniform<T>( T( 1 ), T( 20 ) );
        const T aspect = random.uniform<T>( T( 0.5 ), T( 2 ) );
        const auto perspective = GeCameraBuilder<T>::makePerspective( angle, nearDistance, farDistance, aspect );
        const auto orthographic = GeCameraBuilder<T>::makeOrthographic( angle, nearDistance, farDistance, aspect );
        const long double slope = std::tan( static_cast<long double>( angle ) / 2 );
        for ( int corner = 0; corner < 8; ++corner )
        {
            const T x = corner & 1 ? T( 1 ) : T( -1 );
            const T y = corner & 2 ? T( 1 ) : T( -1 );
            const T z = corner & 4 ? T( 1 ) : T( -1 );
            const T depth = corner & 4 ? farDistance : nearDistance;
            const T atDepth = static_cast<T>( slope * depth );
            const T atNear = static_cast<T>( slope * nearDistance );
            const GePoint3<T> expected( x, y, z );
            const T tolerance = 500 * ZqTest::epsilon<T>;
            EXPECT_TRUE( project( perspective, GePoint3<T>( x * atDepth * aspect, y * atDepth, -depth ) )
                             .isEqual( expected, tolerance ) );
            EXPECT_TRUE( project( orthographic, GePoint3<T>( x * atNear * aspect, y * atNear, -depth ) )
                             .isEqual( expected, tolerance ) );
        }
        // flipped, not refused
        const auto flipped = GeCameraBuilder<T>::makePerspective( angle, farDistance, nearDistance, aspect );
        EXPECT_NEAR( project( flipped, GePoint3<T>( 0, 0, -nearDistance ) ).getZ(), T( 1 ), 500 * ZqTest::epsilon<T> );
    }
}

TYPED_TEST( CameraBuilder, AnglesAreCappedFromPiOn )
{
    using T = TypeParam;
    using Builder = GeCameraBuilder<T>;
    const T cap = Builder::computeOrthoRadius( widest<T>, 1 );
    for ( const T angle : { pi<T>, T( 4 ), ZqTest::infinity<T> } )
    {
        EXPECT_EQ( Builder::computeOrthoRadius( angle, 1 ), cap );
        EXPECT_EQ( Builder::makePerspective( angle, 1, 3, 2 ), Builder::makePerspective( widest<T>, 1, 3, 2 ) );
    }
    // between the cap and pi nothing is changed: such an angle sees more than pi itself
    EXPECT_GT( Builder::computeOrthoRadius( std::nextafter( widest<T>, T( 4 ) ), 1 ), cap );
    EXPECT_GT( Builder::computeOrthoRadius( std::nextafter( pi<T>, T( 0 ) ), 1 ), T( 1e6 ) );
    // there the cotangent is zero, and replaced
    EXPECT_EQ( Builder::makePerspective( std::nextafter( pi<T>, T( 0 ) ), 1, 3, 2 )( 1, 1 ), substitute<T> );
    if ( sizeof( T ) == sizeof( float ) )
        EXPECT_NEAR( cap, T( 1999.8428 ), T( 2e-4 ) );
    else
        EXPECT_NEAR( cap, T( 1999.99983333 ), T( 1e-8 ) );

    for ( const T angle : { T( 0 ), T( -1 ), -ZqTest::infinity<T> } )
    {
        EXPECT_EQ( Builder::computeOrthoRadius( angle, 5 ), substitute<T> );
        EXPECT_EQ( Builder::makePerspective( angle, 1, 3, 2 )( 1, 1 ), ZqTest::infinity<T> );
        EXPECT_EQ( Builder::makeOrthographic( angle, 1, 3, 2 )( 1, 1 ), 1 / substitute<T> );
    }
    EXPECT_EQ( Builder::computeOrthoRadius( 1, 0 ), substitute<T> );
    EXPECT_EQ( Builder::computeOrthoRadius( 1, -3 ), substitute<T> );
}

TEST( CameraBuilderFloat, TheFloatLimitsAreExact )
{
    const auto fromBits = []( unsigned bits )
    {
        float value = 0;
        std::memcpy( &value, &bits, sizeof value );
        return value;
    };
    using Builder = GeCameraBuilder<float>;
    EXPECT_EQ( Builder::computeOrthoRadius( 0, 1 ), fromBits( 0x38D1B717U ) );
    const float cap = Builder::computeOrthoRadius( fromBits( 0x4048FF78U ), 1 );
    EXPECT_EQ( Builder::computeOrthoRadius( fromBits( 0x40490FDBU ), 1 ), cap );
    EXPECT_NE( Builder::computeOrthoRadius( fromBits( 0x40490FDAU ), 1 ), cap );
    EXPECT_NE( Builder::computeOrthoRadius( fromBits( 0x4048FF79U ), 1 ), cap );
}

TYPED_TEST( CameraBuilder, DegenerateDistancesAreReplaced )
{
    using T = TypeParam;
    using Builder = GeCameraBuilder<T>;
    const T s = substitute<T>;
    const auto perspective = []( T nearDistance, T farDistance )
    { return Builder::makePerspective( 1, nearDistance, farDistance, 2 ); };
    const auto orthographic = []( T nearDistance, T farDistance )
    { return Builder::makeOrthographic( 1, nearDistance, farDistance, 2 ); };

    for ( const T bad : { T( 0 ), T( -0.0 ), T( -1 ), -ZqTest::infinity<T> } )
    {
        EXPECT_EQ( perspective( bad, 3 ), perspective( s, 3 ) );
        EXPECT_EQ( perspective( 3, bad ), perspective( 3, s ) );
        EXPECT_EQ( orthographic( 3, bad ), orthographic( 3, s ) );
        // the extent comes from the near distance before it is replaced
        EXPECT_EQ( orthographic( bad, 3 )( 1, 1 ), 1 / s );
        EXPECT_EQ( orthographic( bad, 3 )( 2, 2 ), orthographic( s, 3 )( 2, 2 ) );
        EXPECT_EQ( orthographic( bad, 3 )( 2, 3 ), orthographic( s, 3 )( 2, 3 ) );
    }
    // equal distances: the difference becomes 0.5
    EXPECT_EQ( perspective( 2, 2 )( 2, 2 ), T( -8 ) );
    EXPECT_EQ( perspective( 2, 2 )( 2, 3 ), T( -16 ) );
    EXPECT_EQ( orthographic( 2, 2 )( 2, 2 ), T( -4 ) );
    EXPECT_EQ( orthographic( 2, 2 )( 2, 3 ), T( -8 ) );
    EXPECT_EQ( perspective( -1, 0 ), perspective( s, s ) );
    EXPECT_EQ( orthographic( s, s )( 2, 2 ), T( -4 ) );
    // the sum is zero too: tiny distances, below the tolerance together
    const T tiny = sizeof( T ) == sizeof( float ) ? T( 1e-7 ) : T( 1e-8 );
    EXPECT_EQ( orthographic( tiny, tiny )( 2, 3 ), -( T( 2 ) * ( 2 * tiny + T( 0.5 ) ) ) );
    EXPECT_EQ( perspective( tiny, tiny )( 2, 2 ), -( T( 2 ) * ( 2 * tiny + T( 0.5 ) ) ) );
}

TYPED_TEST( CameraBuilder, AnAspectRatioOfZeroIsReplaced )
{
    using T = TypeParam;
    using Builder = GeCameraBuilder<T>;
    const T limit = sizeof( T ) == sizeof( float ) ? T( 1e-6F ) : T( 1e-7 );
    const T below = std::nextafter( limit, T( 0 ) );
    for ( const T aspect : { T( 0 ), below, -below } )
    {
        EXPECT_EQ( Builder::makePerspective( 1, 1, 3, aspect ), Builder::makePerspective( 1, 1, 3, substitute<T> ) );
        EXPECT_EQ( Builder::makeOrthographic( 1, 1, 3, aspect ), Builder::makeOrthographic( 1, 1, 3, substitute<T> ) );
    }
    const auto m = Builder::makePerspective( 1, 1, 3, limit );
    const auto o = Builder::makeOrthographic( 1, 1, 3, -limit );
    EXPECT_EQ( m( 0, 0 ), m( 1, 1 ) / limit );
    EXPECT_EQ( o( 0, 0 ), o( 1, 1 ) / -limit );
}

TYPED_TEST( CameraBuilder, NaNPassesThrough )
{
    using T = TypeParam;
    using Builder = GeCameraBuilder<T>;
    const T nan = ZqTest::nan<T>;
    EXPECT_TRUE( std::isnan( Builder::computeOrthoRadius( nan, 1 ) ) );
    EXPECT_TRUE( std::isnan( Builder::computeOrthoRadius( 1, nan ) ) );
    EXPECT_TRUE( std::isnan( Builder::makePerspective( nan, 1, 3, 2 )( 1, 1 ) ) );
    EXPECT_TRUE( std::isnan( Builder::makePerspective( 1, nan, 3, 2 )( 2, 2 ) ) );
    EXPECT_TRUE( std::isnan( Builder::makePerspective( 1, 1, nan, 2 )( 2, 3 ) ) );
    EXPECT_TRUE( std::isnan( Builder::makePerspective( 1, 1, 3, nan )( 0, 0 ) ) );
    EXPECT_TRUE( std::isnan( Builder::makeOrthographic( nan, 1, 3, 2 )( 1, 1 ) ) );
    EXPECT_TRUE( std::isnan( Builder::makeOrthographic( 1, 1, 3, nan )( 0, 0 ) ) );
    EXPECT_TRUE( std::isnan( Builder::makePerspective( 1, 1, ZqTest::infinity<T>, 2 )( 2, 2 ) ) );
}

} // namespace
