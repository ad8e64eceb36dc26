// The helpers of the tests: what they print when something fails, which nobody sees as long as nothing does.

#include "support/prelude.h"

#include <gtest/gtest-spi.h>

namespace
{

using ::testing::PrintToString;

TEST( Support, ClosenessIsThatOfTheClassAndTellsWhichNumbersDiffer )
{
    const GeVector3<float> a( 1, 2, 3 ), b( 1, 2.5F, 3 );
    EXPECT_CLOSE( a, b, 0.51F );
    const ::testing::AssertionResult result = ZqTest::isClose( a, b, 0.5F );
    EXPECT_FALSE( result );
    EXPECT_STREQ( result.message(), "(1, 2, 3) and (1, 2.5, 3)\nnumber 1: 2 and 2.5 are 0.5 apart; tolerance 0.5" );
    // a unit vector is a vector, and as one it is compared
    EXPECT_CLOSE( GeUnitVector3<double>( 0, 1, 0 ), GeUnitVector3<double>( 0, 1, 0 ), 1e-9 );
}

TEST( Support, ValuesArePrintedWithAllDigits )
{
    EXPECT_EQ(
        PrintToString( GeVector3<float>( 0.1F, 1, std::nextafter( 1.0F, 2.0F ) ) ), "(0.100000001, 1, 1.00000012)" );
    EXPECT_EQ( PrintToString( GeVector3<double>( 0.1, 1, 2 ) ), "(0.10000000000000001, 1, 2)" );
}

TEST( Support, AFailureInALoopTellsSeedAndRun )
{
    const Random random( 7 );
    int sum = 0;
    ::testing::TestPartResultArray results;
    {
        const ::testing::ScopedFakeTestPartResultReporter reporter(
            ::testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results );
        for ( const auto i : random.runs( 4 ) )
        {
            sum += i;
            EXPECT_NE( i % 3, 1 );
        }
        EXPECT_EQ( sum, 0 );
    }
    EXPECT_EQ( sum, 6 );
    ASSERT_EQ( results.size(), 2 );
    EXPECT_PRED_FORMAT2( ::testing::IsSubstring, "seed 7, run 1", results.GetTestPartResult( 0 ).message() );
    EXPECT_PRED_FORMAT2( ::testing::IsNotSubstring, "seed 7", results.GetTestPartResult( 1 ).message() );
}

} // namespace
