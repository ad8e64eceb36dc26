#include "support/prelude.h"

#include <zq/primitives/geVector2Utils.h>

namespace
{

template <class T>
T measure( GePoint2<T> p, GePoint2<T> a, GePoint2<T> b, bool infiniteLine )
{
    return GeVector2Utils<T>::distanceSquaredFromPointToLineSegment( p, a, b, infiniteLine );
}

ZQ_TWIN_SUITE( Vector2Utils );

ZQ_TWIN_TEST( Vector2Utils, DistanceIsThatToTheFootOfThePerpendicular )
{
    using R = long double;
    ZqTest::Random random( 22 );
    for ( int i = 0; i < 5000; ++i )
    {
        GePoint2<T> p, a, b;
        for ( GePoint2<T>* point : { &p, &a, &b } )
            *point = { random.uniform<T>( -4, 4 ), random.uniform<T>( -4, 4 ) };
        const R x = R( b[0] ) - a[0], y = R( b[1] ) - a[1], length2 = x * x + y * y;
        const R foot = ( ( R( p[0] ) - a[0] ) * x + ( R( p[1] ) - a[1] ) * y ) / length2;
        const auto distance2 = [&]( R t )
        { return double( std::pow( a[0] + t * x - p[0], 2 ) + std::pow( a[1] + t * y - p[1], 2 ) ); };
        if ( length2 < R( 0.1 ) )
            continue;
        const double rounding = 1000 * double( epsilon<T> );
        EXPECT_NEAR( double( measure( p, a, b, true ) ), distance2( foot ), rounding );
        EXPECT_NEAR( double( measure( p, a, b, false ) ), distance2( std::clamp<R>( foot, 0, 1 ) ), rounding );
    }
}

ZQ_TWIN_TEST( Vector2Utils, DistanceOfDegenerateInput )
{
    const GePoint2<T> o, p( 1, 2 ), x( 1, 0 ), bad( ZqTest::nan<T>, 0 );
    // a NaN length is not at most 0, and a foot that is NaN lies behind b
    EXPECT_EQ( measure( p, bad, x, false ), T( 4 ) );
    for ( const T result : { measure( p, bad, x, true ), measure( x, o, bad, false ), measure( bad, o, x, false ),
              measure( bad, x, x, false ) } )
        EXPECT_TRUE( std::isnan( result ) );
    // a segment whose squared length underflows counts as its first end
    const T tiny = std::sqrt( std::numeric_limits<T>::denorm_min() ) / 4;
    for ( const bool isLine : { false, true } )
        EXPECT_TRUE( measure( p, o, GePoint2<T>( tiny, tiny ), isLine ) == 5 && measure( p, o, o, isLine ) == 5 );
    // a foot at an end, and a point on the line
    EXPECT_TRUE( measure( p, x, GePoint2<T>( 3, 0 ), false ) == 4 && measure( p, GePoint2<T>( 3, 0 ), x, false ) == 4 );
    EXPECT_TRUE( measure( GePoint2<T>( 5, 0 ), o, x, false ) == 16 && measure( GePoint2<T>( 5, 0 ), o, x, true ) == 0 );
}

TEST( Vector2UtilsRounding, TheTwoFormsOfTheDistanceRoundInTheirOwnOrder )
{
    // 3.24: ( c / L ) * c for the line, c * ( ( 1 / L ) * c ) for the segment; c * c / L gives 0x1.9eb852p+1
    const GePoint2<float> p( 0, 3 ), a( 0, 0 ), b( 3, 4 );
    EXPECT_EQ( measure( p, a, b, true ), 0x1.9eb854p+1F );
    EXPECT_EQ( measure( p, a, b, false ), 0x1.9eb85p+1F );
}

} // namespace
