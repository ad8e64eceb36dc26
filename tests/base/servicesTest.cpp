#include "support/collectingTraceManager.h"
#include "support/prelude.h"

#include <zq/base/dbgBuildInfo.h>
#include <zq/base/objPtr.h>
#include <zq/base/trace.h>

namespace
{

TEST( Assertions, AReportNamesFileLineAndTheTextAsWritten )
{
    const int axis = 3;
    const ZqTest::Report report = ZqTest::catchReport( [&] { ZQ_ASSERT( "src/f", axis >= 0 && axis <= 2 ); } );
    EXPECT_EQ( report.file, "src/f" );
    EXPECT_EQ( report.line, __LINE__ - 2 );
    EXPECT_EQ( report.text, "axis >= 0 && axis <= 2" );
    EXPECT_EQ( ZqTest::catchReport( [&] { ZQ_ASSERT_AT( "f", 17, axis == 0 ); } ).line, 17 );
    EXPECT_EQ( ZqTest::catchReport( [&] { ZQ_ASSERT_TEXT( "f", axis == 0, "other text" ); } ).text, "other text" );
    EXPECT_EQ( ZqTest::catchReport( [&] { ZQ_ABORT( "f" ); } ).text, "program aborted" );
    EXPECT_EQ( ZqTest::catchReport( [&] { ZQ_ASSERT( "f", axis == 3 ); } ).text, "" );
    // what() reads like a message of a compiler
    EXPECT_STREQ( AssertionException( "src/a.cpp", 12, "x" ).what(), "src/a.cpp:12: assertion failed: x" );
    EXPECT_STREQ( ProgramAbortedException( "src/a.cpp", 12 ).what(), "src/a.cpp:12: program aborted" );
}

TEST( Trace, ALevelIsKnownByNameAndItsMessagesAreBuiltOnlyWhileItIsOn )
{
    std::string name = "ServicesTest level";
    TraceLevel* const level = Trace::registerLevel( name.c_str(), "first" );
    name.assign( name.size(), '?' ); // the texts are copied
    EXPECT_EQ( Trace::registerLevel( "ServicesTest level", "second" ), level );
    EXPECT_EQ( Trace::findLevel( "ServicesTest level" ), level );
    EXPECT_EQ( Trace::findLevel( "no such level" ), nullptr );
    EXPECT_STREQ( level->getName(), "ServicesTest level" );
    EXPECT_STREQ( level->getSourceFile(), "first" );

    int built = 0;
    ZqTest::CollectingTraceManager manager( "ServicesTest level" );
    for ( const bool isOn : { Trace::isEnabled( *level ), true, false } )
    {
        level->setEnabled( isOn );
        ZQ_TRACE( *level, "src/f", "n=" << ++built );
    }
    EXPECT_EQ( built, 1 );
    EXPECT_EQ( manager.takeText( "src/f:" + std::to_string( __LINE__ - 3 ) ), "n=1\n" );
}

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
    for ( const int version : { 1, 2 } )
        DbgBuildInfoUtil::registerInfo( ObjPtr<DbgBuildInfo>( new Record( version, alive ) ) );
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
