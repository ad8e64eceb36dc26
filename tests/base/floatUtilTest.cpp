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

} // namespace
