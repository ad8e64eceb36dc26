#include "support/collectingTraceManager.h"
#include "support/report.h"

#include <zq/base/dbgBuildInfo.h>
#include <zq/base/objPtr.h>
#include <zq/base/trace.h>

#include <sstream>
#include <string>
#include <thread>

using namespace Zq;

namespace
{

// Assertions -----------------------------------------------------------------------------------------------------

TEST( Assertions, AReportNamesFileLineAndTheTextAsWritten )
{
    const int axis = 3;
    int line = 0;
    const ZqTest::Report report = ZqTest::catchReport(
        [&]
        {
            line = __LINE__ + 1;
            ZQ_ASSERT( "src/some/file", axis >= 0 && axis <= 2 );
        } );
    EXPECT_EQ( report.file, "src/some/file" );
    EXPECT_EQ( report.line, line );
    EXPECT_EQ( report.text, "axis >= 0 && axis <= 2" );
    EXPECT_EQ( ZqTest::catchReport( [&] { ZQ_ASSERT_AT( "f", 17, axis == 0 ); } ).line, 17 );
    EXPECT_EQ( ZqTest::catchReport( [&] { ZQ_ASSERT_TEXT( "f", axis == 0, "other text" ); } ).text, "other text" );
    EXPECT_EQ( ZqTest::catchReport( [&] { ZQ_ABORT( "f" ); } ).text, "program aborted" );
    EXPECT_EQ( ZqTest::catchReport( [&] { ZQ_ASSERT( "f", axis == 3 ); } ).text, "" );
}

TEST( Assertions, WhatReadsLikeACompilerMessage )
{
    try
    {
        Assertions::throwAssertionFailed( "src/a.cpp", 12, "len > 0" );
    }
    catch ( const std::logic_error& e )
    {
        EXPECT_STREQ( e.what(), "src/a.cpp:12: assertion failed: len > 0" );
    }
    EXPECT_THROW( Assertions::throwProgramAborted( "src/a.cpp", 1 ), ProgramAbortedException );
}

// Trace ----------------------------------------------------------------------------------------------------------

TEST( Trace, ALevelIsFoundByNameAndCopiesItsTexts )
{
    std::string name = "ServicesTest level";
    TraceLevel* const level = Trace::registerLevel( name.c_str(), "first" );
    name.assign( name.size(), '?' );
    EXPECT_EQ( Trace::registerLevel( "ServicesTest level", "second" ), level );
    EXPECT_EQ( Trace::findLevel( "ServicesTest level" ), level );
    EXPECT_STREQ( level->getName(), "ServicesTest level" );
    EXPECT_STREQ( level->getSourceFile(), "first" );
    EXPECT_EQ( Trace::findLevel( "no such level" ), nullptr );
    EXPECT_FALSE( Trace::isEnabled( *level ) );
}

TEST( Trace, AMessageIsBuiltOnlyWhileItsLevelIsOn )
{
    TraceLevel* const level = Trace::registerLevel( "ServicesTest switch", "file" );
    int built = 0;
    const auto build = [&] { return ++built; };
    ZqTest::CollectingTraceManager manager;

    ZQ_TRACE( *level, "src/f", "n=" << build() );
    EXPECT_EQ( built, 0 );
    level->setEnabled( true );
    const int line = __LINE__ + 1;
    ZQ_TRACE( *level, "src/f", "n=" << build() );
    level->setEnabled( false );
    ZQ_TRACE( *level, "src/f", "n=" << build() );

    EXPECT_EQ( built, 1 );
    ASSERT_EQ( manager.messages.size(), 1U );
    EXPECT_EQ( manager.messages[0], "src/f:" + std::to_string( line ) + ": n=1\n" );
}

TEST( Trace, LevelsMayBeSwitchedWhileOtherThreadsAsk )
{
    TraceLevel* const level = Trace::registerLevel( "ServicesTest threads", "file" );
    std::atomic<bool> stop{ false };
    std::thread reader(
        [&]
        {
            while ( !stop )
                static_cast<void>( Trace::isEnabled( *level ) || Trace::findLevel( "Geometry" ) == level );
        } );
    for ( int i = 0; i < 1000; ++i )
    {
        level->setEnabled( i % 2 == 0 );
        Trace::registerLevel( "ServicesTest threads", "file" );
    }
    stop = true;
    reader.join();
    EXPECT_FALSE( level->isEnabled() );
}

// Build records --------------------------------------------------------------------------------------------------

class Record final : public DbgBuildInfo
{
public:
    explicit Record( int version, int& alive ) : _version( version ), _alive( alive ) { ++_alive; }
    ~Record() override { --_alive; }
    const char* getProjectName() const override { return "p"; }
    int getMajorVersion() const override { return _version; }
    int getMinorVersion() const override { return 0; }
    const char* getReleaseStage() const override { return ""; }
    const char* getLibraryName( bool ) const override { return "libServicesTest"; }
    const char* getBuildLabel( bool ) const override { return ""; }
    const char* getBuildDate( bool ) const override { return ""; }
    const char* getBuildConfiguration( bool ) const override { return ""; }
    const char* getBuilder( bool ) const override { return ""; }
    const char* getInformation( bool ) const override { return ""; }

private:
    int _version;
    int& _alive;
};

TEST( DbgBuildInfoUtil, HoldsOneRecordPerLibraryAndLetsItGo )
{
    int alive = 0;
    const std::size_t before = DbgBuildInfoUtil::getNbInfos();
    DbgBuildInfoUtil::registerInfo( ObjPtr<DbgBuildInfo>() );
    EXPECT_EQ( DbgBuildInfoUtil::getNbInfos(), before );

    DbgBuildInfoUtil::registerInfo( ObjPtr<DbgBuildInfo>( new Record( 1, alive ) ) );
    DbgBuildInfoUtil::registerInfo( ObjPtr<DbgBuildInfo>( new Record( 2, alive ) ) );
    EXPECT_EQ( alive, 1 );
    EXPECT_EQ( DbgBuildInfoUtil::getNbInfos(), before + 1 );

    ObjPtr<DbgBuildInfo> kept = DbgBuildInfoUtil::findInfo( "libServicesTest" );
    ASSERT_TRUE( kept );
    EXPECT_EQ( kept->getMajorVersion(), 2 );
    DbgBuildInfoUtil::unregisterInfo( "libServicesTest" );
    DbgBuildInfoUtil::unregisterInfo( "libServicesTest" );
    EXPECT_FALSE( DbgBuildInfoUtil::findInfo( "libServicesTest" ) );
    EXPECT_EQ( alive, 1 ); // still ours
    kept.reset();
    EXPECT_EQ( alive, 0 );
}

} // namespace
