#include "support/scalars.h"

#include <zq/base/floatUtil.h>

#include <cmath>

using namespace Zq;

namespace
{

ZQ_TWIN_SUITE( FloatUtilTwins );

TYPED_TEST( FloatUtilTwins, ToleranceIsStrictAndNaNIsNeverEqual )
{
    using T = TypeParam;
    const T one = 1;
    EXPECT_TRUE( FloatUtil::isEqual( one, T( 1.25 ), T( 0.5 ) ) );
    EXPECT_FALSE( FloatUtil::isEqual( one, T( 1.5 ), T( 0.5 ) ) );
    EXPECT_FALSE( FloatUtil::isEqual( T( 1.5 ), one, T( 0.5 ) ) );
    EXPECT_TRUE( FloatUtil::isEqual( T( 1.5 ), one, std::nextafter( T( 0.5 ), one ) ) );
    EXPECT_FALSE( FloatUtil::isEqual( one, one, T( 0 ) ) );
    EXPECT_FALSE( FloatUtil::isEqual( one, one, T( -1 ) ) );
    for ( const T bad : { ZqTest::nan<T>, -ZqTest::nan<T> } )
    {
        EXPECT_FALSE( FloatUtil::isEqual( bad, bad ) );
        EXPECT_FALSE( FloatUtil::isEqual( one, bad ) );
        EXPECT_FALSE( FloatUtil::isEqual( bad, one, T( 10 ) ) );
        EXPECT_FALSE( FloatUtil::isEqual( one, one, bad ) );
    }
}

TEST( FloatUtil, DefaultTolerances )
{
    // float: a power of two apart from zero on either side of 1e-6, and the last values that pass
    EXPECT_TRUE( FloatUtil::isEqual( 0.0F, std::nextafter( 1e-6F, 0.0F ) ) );
    EXPECT_FALSE( FloatUtil::isEqual( 0.0F, 1e-6F ) );
    EXPECT_FALSE( FloatUtil::isEqual( -1e-6F, 0.0F ) );
    EXPECT_TRUE( FloatUtil::isEqual( 0.0, std::nextafter( 1e-7, 0.0 ) ) );
    EXPECT_FALSE( FloatUtil::isEqual( 0.0, 1e-7 ) );

    // equal values are equal in single precision, infinities too; double tests the difference and nothing else
    const float infinity = ZqTest::infinity<float>;
    EXPECT_TRUE( FloatUtil::isEqual( infinity, infinity ) );
    EXPECT_FALSE( FloatUtil::isEqual( infinity, -infinity ) );
    EXPECT_FALSE( FloatUtil::isEqual( ZqTest::infinity<double>, ZqTest::infinity<double> ) );
}

TYPED_TEST( FloatUtilTwins, FunctionsStayInTheirScalar )
{
    using T = TypeParam;
    static_assert( std::is_same_v<decltype( FloatUtil::sqrt( T( 2 ) ) ), T> );
    static_assert( std::is_same_v<decltype( FloatUtil::pow( T( 2 ), T( 2 ) ) ), T> );
    EXPECT_EQ( FloatUtil::sqrt( T( 2 ) ), std::sqrt( T( 2 ) ) );
    EXPECT_EQ( FloatUtil::atan2( T( 1 ), T( -1 ) ), std::atan2( T( 1 ), T( -1 ) ) );
    EXPECT_EQ( FloatUtil::pow( T( 2 ), T( 10 ) ), T( 1024 ) );
    EXPECT_EQ( FloatUtil::floor( T( -1.5 ) ), T( -2 ) );
    EXPECT_EQ( FloatUtil::abs( T( -1.5 ) ), T( 1.5 ) );
    EXPECT_FALSE( std::signbit( FloatUtil::abs( T( -0.0 ) ) ) );
    EXPECT_EQ( FloatUtil::acos( T( -1 ) ), std::acos( T( -1 ) ) );
    EXPECT_TRUE( std::isnan( FloatUtil::sqrt( T( -1 ) ) ) );
    const T angle = T( 0.7 );
    EXPECT_TRUE( FloatUtil::isEqual( FloatUtil::tan( angle ), FloatUtil::sin( angle ) / FloatUtil::cos( angle ) ) );
}

} // namespace
