// Loads and unloads libZQprimitives, which this program is not linked with, and looks at what the base library knows.

#include "loading/loadedLibrary.h"
#include "loading/recorder.h"
#include "loading/user.h"

#include <zq/base/assertions.h>
#include <zq/base/dbgBuildInfo.h>
#include <zq/base/inInit.h>
#include <zq/base/trace.h>

#include <gtest/gtest.h>

#include <malloc.h>
#include <string>
#include <vector>

using namespace Zq;
using ZqTest::LoadedLibrary;

namespace
{

/// The registry and the records are those of libZQbase alone.
void expectNothingLeft()
{
    EXPECT_FALSE( LoadedLibrary::isLoaded( ZQ_PRIMITIVES_LIBRARY ) );
    EXPECT_FALSE( LoadedLibrary::isLoaded( ZQ_RESMGT_LIBRARY ) );
    EXPECT_EQ( InPackageRegistry::getNbPackages(), 0U );
    EXPECT_EQ( DbgBuildInfoUtil::getNbInfos(), 0U );
    EXPECT_FALSE( DbgBuildInfoUtil::findInfo( "libZQprimitives" ) );
    InPackageRegistry::shutdown(); // nobody there to be called
}

const std::vector<std::string> LOAD = {
    "package color",
    "needs Zq::InInit<Zq::ZqInit::base>",
    "level Geometry src/primitives/geFloatingCone",
    "level GeFrustum src/primitives/geFrustum.imp",
    "level GeShaft src/primitives/geShaft",
    "package geometry",
    "needs Zq::InInit<Zq::ZqInit::base>",
    "package primitives",
    "needs Zq::InInit<Zq::ZqInit::color>",
    "needs Zq::InInit<Zq::ZqInit::geometry>",
    "needs Zq::InInit<Zq::ZqInit::resmgt>",
    "needs Zq::InInit<Zq::ZqInit::base>",
};
const std::vector<std::string> UNLOAD = { "gone primitives", "gone geometry", "gone color" };

TEST( Loading, PackagesAndLevelsComeInOrderAndGoInReverse )
{
    ZqTest::takeRecord();
    for ( int round = 0; round < 3; ++round )
    {
        {
            const LoadedLibrary library( ZQ_PRIMITIVES_LIBRARY );
            EXPECT_EQ( ZqTest::takeRecord(), LOAD ) << "round " << round;
            InPackageRegistry::initialize();
            EXPECT_EQ( ZqTest::takeRecord(), std::vector<std::string>{} );
        }
        EXPECT_EQ( ZqTest::takeRecord(), UNLOAD ) << "round " << round;
    }
    expectNothingLeft();
}

TEST( Loading, ALibraryLoadedTwiceIsThereOnce )
{
    ZqTest::takeRecord();
    {
        const LoadedLibrary library( ZQ_PRIMITIVES_LIBRARY );
        {
            const LoadedLibrary user( ZQ_USER_LIBRARY );
            EXPECT_EQ( ZqTest::takeRecord(), LOAD );
        }
        EXPECT_TRUE( ZqTest::takeRecord().empty() );
        EXPECT_EQ( InPackageRegistry::getNbPackages(), 3U );
    }
    EXPECT_EQ( ZqTest::takeRecord(), UNLOAD );
    expectNothingLeft();
}

TEST( Loading, AThousandCyclesLeaveNothingBehind )
{
    const auto cycle = []( int number )
    {
        const LoadedLibrary user( ZQ_USER_LIBRARY );
        ASSERT_EQ( InPackageRegistry::getNbPackages(), 3U );
        ASSERT_EQ( DbgBuildInfoUtil::getNbInfos(), 0U );
        InPackageRegistry::initialize();
        ASSERT_STREQ( DbgBuildInfoUtil::findInfo( "libZQprimitives" )->getBuildLabel( true ), "Harbinset-Vorlane_187" );
        ASSERT_EQ( user.find<decltype( zqUserLength )>( "zqUserLength" )( 2, 3, 6 ), 7 );
        ASSERT_TRUE( user.find<decltype( zqUserHasIdentities )>( "zqUserHasIdentities" )() );
        ASSERT_THROW( user.find<decltype( zqUserReport )>( "zqUserReport" )(), AssertionException );
        if ( number % 2 == 0 ) // a program may or may not shut down first
        {
            InPackageRegistry::shutdown();
            ASSERT_FALSE( InPackageRegistry::isInitialized( *InPackageRegistry::findPackage( "primitives" ) ) );
        }
    };
    for ( int i = 0; i < 20 && !HasFatalFailure(); ++i )
        cycle( i );
    ZqTest::takeRecord();
    const std::size_t before = mallinfo2().uordblks;
    for ( int i = 0; i < 1000 && !HasFatalFailure(); ++i )
    {
        cycle( i );
        ZqTest::takeRecord();
    }
    // Less than one small object a cycle; a sanitizer's allocator answers 0 and finds leaks by itself.
    EXPECT_LT( mallinfo2().uordblks, before + 16000 );
    expectNothingLeft();
}

TEST( Loading, LevelsOutliveTheLibraryThatNamedThem )
{
    const char* const names[] = { "Geometry", "GeFrustum", "GeShaft" };
    std::vector<TraceLevel*> levels;
    {
        const LoadedLibrary library( ZQ_PRIMITIVES_LIBRARY );
        for ( const char* name : names )
        {
            levels.push_back( Trace::findLevel( name ) );
            ASSERT_NE( levels.back(), nullptr );
            EXPECT_FALSE( levels.back()->isEnabled() );
        }
        levels[1]->setEnabled( true );
    }
    expectNothingLeft();
    EXPECT_STREQ( levels[1]->getName(), "GeFrustum" );
    EXPECT_STREQ( levels[1]->getSourceFile(), "src/primitives/geFrustum.imp" );
    {
        const LoadedLibrary library( ZQ_PRIMITIVES_LIBRARY );
        EXPECT_EQ( Trace::findLevel( "GeFrustum" ), levels[1] );
        EXPECT_TRUE( levels[1]->isEnabled() ) << "a level stays as it was switched";
        levels[1]->setEnabled( false );
    }
}

TEST( Loading, AReportOutlivesTheLibraryThatMadeIt )
{
    std::string what;
    try
    {
        const LoadedLibrary user( ZQ_USER_LIBRARY );
        user.find<decltype( zqUserReport )>( "zqUserReport" )();
        ADD_FAILURE() << "no report";
    }
    catch ( const AssertionException& report )
    {
        EXPECT_EQ( report.getExpression(), "len > 0" );
        EXPECT_EQ( report.getFile().rfind( "src/primitives/", 0 ), 0U );
        what = report.what();
    }
    EXPECT_NE( what.find( "len > 0" ), std::string::npos );
    expectNothingLeft();
}

} // namespace
