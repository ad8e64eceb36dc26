#include "support/prelude.h"

#include <zq/base/floatUtil.h>

namespace
{

ZQ_TWIN_SUITE( FloatUtilTwins );

ZQ_TWIN_TEST( FloatUtilTwins, ToleranceIsStrictAndNaNIsNeverEqual )
{
    const T one = 1, nan = ZqTest::nan<T>, infinity = ZqTest::infinity<T>;
    for ( const T sign : { T( 1 ), T( -1 ) } )
    {
        EXPECT_TRUE( FloatUtil::isEqual( one, one + sign / 4, T( 0.5 ) ) );
        EXPECT_FALSE( FloatUtil::isEqual( one, one + sign / 2, T( 0.5 ) ) );
        EXPECT_TRUE( FloatUtil::isEqual( one, one + sign / 2, std::nextafter( T( 0.5 ), one ) ) );
        EXPECT_FALSE( FloatUtil::isEqual( nan, nan ) );
        EXPECT_FALSE( FloatUtil::isEqual( one, sign * nan ) );
        EXPECT_FALSE( FloatUtil::isEqual( one, one, sign * nan ) );
        EXPECT_FALSE( FloatUtil::isEqual( nan, one, T( 10 ) ) );
        const T limit = sign * ( sizeof( T ) == sizeof( float ) ? T( 1e-6F ) : T( 1e-7 ) );
        EXPECT_TRUE( FloatUtil::isEqual( T( 0 ), std::nextafter( limit, T( 0 ) ) ) );
        EXPECT_FALSE( FloatUtil::isEqual( T( 0 ), limit ) );
    }
    EXPECT_FALSE( FloatUtil::isEqual( one, one, T( 0 ) ) );
    // equal values are equal in single precision, infinities too; double tests the difference and nothing else
    EXPECT_EQ( FloatUtil::isEqual( infinity, infinity ), sizeof( T ) == sizeof( float ) );
    EXPECT_FALSE( FloatUtil::isEqual( infinity, -infinity ) );
}

ZQ_TWIN_TEST( FloatUtilTwins, FunctionsStayInTheirScalar )
{
    static_assert( std::is_same_v<decltype( FloatUtil::sqrt( T( 2 ) ) ), T> );
    static_assert( std::is_same_v<decltype( FloatUtil::pow( T( 2 ), T( 2 ) ) ), T> );
    const T angle = T( 0.7 ), sine = FloatUtil::sin( angle ), cosine = FloatUtil::cos( angle );
    EXPECT_TRUE( std::isnan( FloatUtil::sqrt( T( -1 ) ) ) );
    EXPECT_FALSE( std::signbit( FloatUtil::abs( T( -0.0 ) ) ) );
    EXPECT_EQ( FloatUtil::pow( T( 2 ), T( 10 ) ), T( 1024 ) );
    EXPECT_EQ( FloatUtil::floor( T( -1.5 ) ), T( -2 ) );
    EXPECT_TRUE( FloatUtil::isEqual( FloatUtil::tan( angle ), sine / cosine ) );
    for ( const T found : { FloatUtil::atan2( sine, cosine ), FloatUtil::acos( cosine ) } )
        EXPECT_TRUE( FloatUtil::isEqual( found, angle ) );
}

} // namespace
