#include "support/prelude.h"

#include <zq/primitives/geVector2Utils.h>

namespace
{

using R = long double;

ZQ_TWIN_SUITE( Vector2Utils );

ZQ_TWIN_TEST( Vector2Utils, DistanceToALineAndToASegment )
{
    const auto measure = GeVector2Utils<T>::distanceSquaredFromPointToLineSegment;
    Random random( 22 );
    for ( const auto i : random.runs( 5000 ) )
    {
        GePoint2<T> p, a, b;
        for ( GePoint2<T>* point : { &p, &a, &b } )
            *point = { random.uniform<T>( -4, 4 ), random.uniform<T>( -4, 4 ) };
        const R x = R( b[0] ) - a[0], y = R( b[1] ) - a[1], length2 = x * x + y * y;
        if ( length2 < R( 0.1 ) )
            continue;
        const R foot = ( ( R( p[0] ) - a[0] ) * x + ( R( p[1] ) - a[1] ) * y ) / length2;
        for ( const bool isLine : { false, true } )
        {
            const R t = isLine ? foot : std::clamp<R>( foot, 0, 1 );
            const R expected = std::pow( a[0] + t * x - p[0], 2 ) + std::pow( a[1] + t * y - p[1], 2 );
            EXPECT_LE( std::fabs( measure( p, a, b, isLine ) - expected ), 1000 * R( epsilon<T> ) );
        }
    }
    const GePoint2<T> o, p( 1, 2 ), x( 1, 0 ), bad( ZqTest::nan<T>, 0 );
    // a NaN length is not at most 0, and a foot that is NaN lies behind b
    EXPECT_EQ( measure( p, bad, x, false ), T( 4 ) );
    EXPECT_TRUE( std::isnan( measure( p, bad, x, true ) ) );
    EXPECT_TRUE( std::isnan( measure( x, o, bad, false ) ) );
    // a segment whose squared length underflows counts as its first end
    const T tiny = std::sqrt( std::numeric_limits<T>::denorm_min() ) / 4;
    EXPECT_EQ( measure( p, o, { tiny, tiny }, false ), 5 );
    EXPECT_EQ( measure( p, o, { tiny, tiny }, true ), 5 );
    // the square of the area, which would overflow, is never formed
    const T large = std::sqrt( std::numeric_limits<T>::max() ) / 8, far = std::sqrt( large );
    for ( const bool isLine : { false, true } )
        EXPECT_NEAR( measure( { far, far }, o, { large, 0 }, isLine ) / large, 1, 4 * epsilon<T> );
}

} // namespace
