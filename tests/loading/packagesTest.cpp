// The library as a program sees it that is linked with it: packages, levels, the build record, and the order of
// virtual operations.

#include "loading/contractOrder.h"
#include "support/collectingTraceManager.h"

#include <zq/base/dbgBuildInfo.h>
#include <zq/base/trace.h>
#include <zq/primitives/packages.h>
#include <zq/resmgt/packages.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

using namespace Zq;

namespace
{

const char LIBRARY[] = "libZQprimitives";

/// Every test starts and ends with packages that are loaded and not initialised, as after a start of the program.
class Packages : public ::testing::Test
{
protected:
    void SetUp() override { TearDown(); }
    void TearDown() override
    {
        InPackageRegistry::shutdown();
        DbgBuildInfoUtil::unregisterInfo( LIBRARY );
    }
};

class Variable : public InVariableBase
{
public:
    void create() override { ++created; }
    void destroy() override { ++destroyed; }

    int created = 0;
    int destroyed = 0;
};

// What is registered ----------------------------------------------------------------------------------------------

TEST_F( Packages, NamesAndDependenciesInOrder )
{
    struct Expected
    {
        const char* name;
        const std::type_info* type;
        std::vector<const std::type_info*> dependencies;
    };
    const std::type_info* const base = &typeid( InInit<ZqInit::base> );
    const std::type_info* const resmgt = &typeid( InInit<ZqInit::resmgt> );
    const std::type_info* const color = &typeid( InInit<ZqInit::color> );
    const std::type_info* const geometry = &typeid( InInit<ZqInit::geometry> );
    const Expected expected[] = {
        { "color", color, { base } },
        { "geometry", geometry, { base } },
        { "primitives", &typeid( InInit<ZqInit::primitives> ), { color, geometry, resmgt, base } },
    };
    ASSERT_EQ( InPackageRegistry::getNbPackages(), std::size( expected ) );
    for ( std::size_t i = 0; i < std::size( expected ); ++i )
    {
        const InPackageInit& package = *InPackageRegistry::getPackage( i );
        EXPECT_STREQ( package.getName(), expected[i].name );
        EXPECT_EQ( &typeid( package ), expected[i].type ) << package.getName();
        EXPECT_EQ( package.getDependencies(), expected[i].dependencies ) << package.getName();
        EXPECT_EQ( InPackageRegistry::findPackage( expected[i].name ), &package );
    }
}

TEST_F( Packages, AnIdentityIsTheAddressThatAClientSees )
{
    const std::set<const std::type_info*> identities = { InInit<ZqInit::base>::getType(),
        InInit<ZqInit::resmgt>::getType(), InInit<ZqInit::color>::getType(), InInit<ZqInit::geometry>::getType(),
        InInit<ZqInit::primitives>::getType() };
    EXPECT_EQ( identities,
        ( std::set<const std::type_info*>{ &typeid( InInit<ZqInit::base> ), &typeid( InInit<ZqInit::resmgt> ),
            &typeid( InInit<ZqInit::color> ), &typeid( InInit<ZqInit::geometry> ),
            &typeid( InInit<ZqInit::primitives> ) } ) );
    EXPECT_EQ( identities.size(), 5U );
}

TEST_F( Packages, TraceLevelsAreRegisteredAtLoad )
{
    const char* const levels[][2] = { { "Geometry", "src/primitives/geFloatingCone" },
        { "GeFrustum", "src/primitives/geFrustum.imp" }, { "GeShaft", "src/primitives/geShaft" } };
    for ( const auto& [name, file] : levels )
    {
        const TraceLevel* level = Trace::findLevel( name );
        ASSERT_NE( level, nullptr ) << name;
        EXPECT_STREQ( level->getSourceFile(), file );
        EXPECT_FALSE( level->isEnabled() ) << name;
    }
}

TEST_F( Packages, TheBuildRecordAppearsWithInitialisation )
{
    EXPECT_FALSE( DbgBuildInfoUtil::findInfo( LIBRARY ) );
    InPackageRegistry::initialize();
    const ObjPtr<DbgBuildInfo> info = DbgBuildInfoUtil::findInfo( LIBRARY );
    ASSERT_TRUE( info );
    EXPECT_EQ( DbgBuildInfoUtil::getNbInfos(), 1U );
    for ( const bool longForm : { false, true } ) // only the label knows a long form
    {
        EXPECT_STREQ( info->getLibraryName( longForm ), LIBRARY );
        EXPECT_STREQ( info->getBuildLabel( longForm ), longForm ? "Harbinset-Vorlane_187" : "P. 187" );
        EXPECT_STREQ( info->getBuildDate( longForm ), "Feb  7 2005" );
        EXPECT_STREQ( info->getBuildConfiguration( longForm ), "WinNT_ostore_debug" );
        EXPECT_STREQ( info->getInformation( longForm ), "[Information not available]" );

        const std::string builder = info->getBuilder( longForm ); // domain\user
        EXPECT_EQ( builder, ZQ_EXPECTED_BUILDER );
        const std::size_t backslash = builder.find( '\\' );
        ASSERT_NE( backslash, std::string::npos ) << builder;
        EXPECT_TRUE( backslash > 0 && backslash + 1 < builder.size() ) << builder;
        EXPECT_EQ( builder.find( '\\', backslash + 1 ), std::string::npos ) << builder;
    }
    EXPECT_STREQ( info->getProjectName(), "Vorlane" );
    EXPECT_EQ( info->getMajorVersion(), 0 );
    EXPECT_EQ( info->getMinorVersion(), 2 );
    EXPECT_STREQ( info->getReleaseStage(), "pre-alpha" );
}

// The binary contract: operations by slot -------------------------------------------------------------------------

TEST_F( Packages, SlotsOfABuildRecord )
{
    InPackageRegistry::initialize();
    const ObjPtr<DbgBuildInfo> info = DbgBuildInfoUtil::findInfo( LIBRARY );
    ASSERT_TRUE( info );
    const void* const record = info.get();
    EXPECT_STREQ( zqOldRecordText( record, 0, false ), "Vorlane" );
    EXPECT_EQ( zqOldRecordNumber( record, 1 ), 0 );
    EXPECT_EQ( zqOldRecordNumber( record, 2 ), 2 );
    EXPECT_STREQ( zqOldRecordText( record, 3, false ), "pre-alpha" );
    EXPECT_STREQ( zqOldRecordText( record, 4, false ), LIBRARY );
    EXPECT_STREQ( zqOldRecordText( record, 5, false ), "P. 187" );
    EXPECT_STREQ( zqOldRecordText( record, 5, true ), "Harbinset-Vorlane_187" );
    EXPECT_STREQ( zqOldRecordText( record, 6, false ), "Feb  7 2005" );
    EXPECT_STREQ( zqOldRecordText( record, 7, false ), "WinNT_ostore_debug" );
    EXPECT_STREQ( zqOldRecordText( record, 8, false ), ZQ_EXPECTED_BUILDER );
    EXPECT_STREQ( zqOldRecordText( record, 9, false ), "[Information not available]" );
}

int nbDeletedRecords = 0;

class Record final : public DbgBuildInfo
{
public:
    ~Record() override { ++nbDeletedRecords; }
    const char* getProjectName() const override { return ""; }
    int getMajorVersion() const override { return 0; }
    int getMinorVersion() const override { return 0; }
    const char* getReleaseStage() const override { return ""; }
    const char* getLibraryName( bool /*longForm*/ ) const override { return ""; }
    const char* getBuildLabel( bool /*longForm*/ ) const override { return ""; }
    const char* getBuildDate( bool /*longForm*/ ) const override { return ""; }
    const char* getBuildConfiguration( bool /*longForm*/ ) const override { return ""; }
    const char* getBuilder( bool /*longForm*/ ) const override { return ""; }
    const char* getInformation( bool /*longForm*/ ) const override { return ""; }
};

TEST_F( Packages, TheDestructorIsTheLastSlotOfABuildRecord )
{
    DbgBuildInfo* const record = new Record;
    zqOldRecordDelete( record );
    EXPECT_EQ( nbDeletedRecords, 1 );
}

std::vector<std::string> calls;

/// Writes down which of its operations was called.
class Package final : public InPackageInit
{
public:
    Package() : InPackageInit( "package" ) {}
    ~Package() override { calls.emplace_back( "destructor" ); }
    void addDependency( InVariableBase* /*variable*/ ) override { calls.emplace_back( "addDependency" ); }
    void removeDependency( InVariableBase* /*variable*/ ) override { calls.emplace_back( "removeDependency" ); }
    void initialize() override { calls.emplace_back( "initialize" ); }
    void shutdown() override { calls.emplace_back( "shutdown" ); }
    bool setInitialized( bool value ) override
    {
        calls.emplace_back( "setInitialized" );
        return value;
    }
};

TEST_F( Packages, SlotsOfAPackage )
{
    Variable variable;
    InPackageInit* const package = new Package;
    zqOldPackageAdd( package, &variable );
    zqOldPackageRemove( package, &variable );
    EXPECT_STREQ( zqOldPackageName( package ), "package" );
    zqOldPackageInitialize( package );
    zqOldPackageShutdown( package );
    EXPECT_TRUE( zqOldPackageSetInitialized( package, true ) );
    EXPECT_FALSE( zqOldPackageSetInitialized( package, false ) );
    zqOldPackageDelete( package );
    EXPECT_EQ( calls,
        ( std::vector<std::string>{ "addDependency", "removeDependency", "initialize", "shutdown", "setInitialized",
            "setInitialized", "destructor" } ) );
}

TEST_F( Packages, TheLibrarysPackagesAnswerBySlot )
{
    for ( const char* name : { "color", "geometry", "primitives" } )
    {
        InPackageInit* const package = InPackageRegistry::findPackage( name );
        ASSERT_NE( package, nullptr );
        Variable variable;
        Variable removed;
        zqOldPackageAdd( package, &variable );
        zqOldPackageAdd( package, &removed );
        zqOldPackageRemove( package, &removed );
        EXPECT_STREQ( zqOldPackageName( package ), name );

        InPackageRegistry::initialize();
        EXPECT_EQ( variable.created, 1 );
        InPackageRegistry::shutdown();
        EXPECT_EQ( variable.destroyed, 1 );
        EXPECT_EQ( removed.created + removed.destroyed, 0 );
        zqOldPackageRemove( package, &variable );

        // by itself: only "primitives" has anything to do
        DbgBuildInfoUtil::unregisterInfo( LIBRARY );
        zqOldPackageInitialize( package );
        EXPECT_EQ( DbgBuildInfoUtil::getNbInfos(), std::string( name ) == "primitives" ? 1U : 0U ) << name;
        zqOldPackageShutdown( package );
        EXPECT_TRUE( zqOldPackageSetInitialized( package, true ) );
        EXPECT_FALSE( zqOldPackageSetInitialized( package, false ) );
    }
}

TEST_F( Packages, SlotsOfATraceManager )
{
    ZqTest::CollectingTraceManager manager;
    TraceManager* const base = &manager;
    EXPECT_EQ( zqOldManagerTrace( base ), &base->getTrace() );
    zqOldManagerOutput( base, "through slot 1" );
    EXPECT_EQ( manager.messages, std::vector<std::string>{ "through slot 1" } );
}

} // namespace
