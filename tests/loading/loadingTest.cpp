// Loads and unloads libZQprimitives, which this program is not linked with, and looks at what the base library knows.

#include <zq/base/assertions.h>
#include <zq/base/dbgBuildInfo.h>
#include <zq/base/inPackageInit.h>
#include <zq/base/trace.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cxxabi.h>
#include <dlfcn.h>
#include <malloc.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace Zq;

// The recorder --------------------------------------------------------------------------------------------------------

namespace
{

using Record = std::vector<std::string>;
Record record;

template <class Function>
Function* find( void* library, const char* symbol )
{
    if ( void* const address = dlsym( library, symbol ) )
        return reinterpret_cast<Function*>( address );
    throw std::runtime_error( dlerror() );
}

std::string demangle( const std::type_info* type )
{
    using Text = std::unique_ptr<char, void ( * )( void* )>;
    return Text( abi::__cxa_demangle( type->name(), nullptr, nullptr, nullptr ), &std::free ).get();
}

} // namespace

// Stands in for an operation of libZQbase: the loader finds a program's own symbols first. Each call is written down
// and passed on. A package's derived part may be half made or half gone: the base part's own name is all that is asked
// of it.
#define STAND_IN( result, symbol, name, parameters, arguments, text )                                                  \
    result name parameters __asm__( symbol ) __attribute__( ( visibility( "default" ) ) );                             \
    result name parameters                                                                                             \
    {                                                                                                                  \
        record.push_back( std::string text );                                                                          \
        return find<result parameters>( RTLD_NEXT, symbol ) arguments;                                                 \
    }
STAND_IN( void, "_ZN2Zq13InPackageInit15registerPackageEv", recordPackage, ( InPackageInit * package ), ( package ),
    ( "package " ) + package->InPackageInit::getName() )
STAND_IN( void, "_ZN2Zq13InPackageInit13addDependencyEPKSt9type_info", recordNeed,
    ( InPackageInit * package, const std::type_info* needed ), ( package, needed ), ( "needs " ) + demangle( needed ) )
STAND_IN( void, "_ZN2Zq13InPackageInitD2Ev", recordEnd, ( InPackageInit * package ), ( package ),
    ( "gone " ) + package->InPackageInit::getName() )
STAND_IN( TraceLevel*, "_ZN2Zq5Trace13registerLevelEPKcS2_", recordLevel, ( const char* name, const char* file ),
    ( name, file ), ( "level " ) + name + " " + file )

// The tests -----------------------------------------------------------------------------------------------------------

namespace
{

using Library = std::unique_ptr<void, int ( * )( void* )>;

Library load( const char* path, int flags = RTLD_NOW | RTLD_LOCAL )
{
    return { dlopen( path, flags ), &dlclose };
}

/// At the end the registry and the records are those of libZQbase alone.
class Loading : public ::testing::Test
{
protected:
    void SetUp() override { record.clear(); }
    void TearDown() override
    {
        EXPECT_FALSE( load( ZQ_PRIMITIVES_LIBRARY, RTLD_NOW | RTLD_NOLOAD ) );
        EXPECT_FALSE( load( ZQ_RESMGT_LIBRARY, RTLD_NOW | RTLD_NOLOAD ) );
        EXPECT_EQ( InPackageRegistry::getNbPackages(), 0U );
        EXPECT_EQ( DbgBuildInfoUtil::getNbInfos(), 0U );
        InPackageRegistry::shutdown(); // nobody there to be called
    }
};

TEST_F( Loading, PackagesAndLevelsComeInOrderAndGoInReverse )
{
    const Record whole = { "package color", "needs Zq::InInit<Zq::ZqInit::base>",
        "level Geometry src/primitives/geFloatingCone", "level GeFrustum src/primitives/geFrustum.imp",
        "level GeShaft src/primitives/geShaft", "package geometry", "needs Zq::InInit<Zq::ZqInit::base>",
        "package primitives", "needs Zq::InInit<Zq::ZqInit::color>", "needs Zq::InInit<Zq::ZqInit::geometry>",
        "needs Zq::InInit<Zq::ZqInit::resmgt>", "needs Zq::InInit<Zq::ZqInit::base>", "gone primitives",
        "gone geometry", "gone color" };
    TraceLevel* level = nullptr;
    for ( int round = 0; round < 3; ++round )
    {
        record.clear();
        {
            const Library library = load( ZQ_PRIMITIVES_LIBRARY );
            const Library again = load( ZQ_USER_LIBRARY );
            EXPECT_EQ( record.size() + 3, whole.size() );
            InPackageRegistry::initialize();
            // a level outlives the library that named it, and stays as it was switched
            level = Trace::findLevel( "GeFrustum" );
            ASSERT_NE( level, nullptr );
            EXPECT_EQ( level->isEnabled(), round > 0 );
            level->setEnabled( true );
        }
        EXPECT_EQ( record, whole ) << "round " << round;
        EXPECT_EQ( Trace::findLevel( "GeFrustum" ), level );
        EXPECT_STREQ( level->getSourceFile(), "src/primitives/geFrustum.imp" );
    }
    level->setEnabled( false );
}

TEST_F( Loading, TheBuildRecordAppearsWithInitialisation )
{
    const Library library = load( ZQ_PRIMITIVES_LIBRARY );
    for ( const char* name : { "color", "geometry", "primitives" } )
    {
        EXPECT_FALSE( DbgBuildInfoUtil::findInfo( "libZQprimitives" ) ) << name;
        InPackageInit* const package = InPackageRegistry::findPackage( name );
        ASSERT_NE( package, nullptr ) << name;
        EXPECT_TRUE( package->setInitialized( true ) ) << name;
        EXPECT_FALSE( package->setInitialized( false ) ) << name;
        package->initialize();
    }
    const ObjPtr<DbgBuildInfo> info = DbgBuildInfoUtil::findInfo( "libZQprimitives" );
    ASSERT_TRUE( info );
    for ( const bool longForm : { false, true } ) // only the label knows a long form
    {
        EXPECT_STREQ( info->getLibraryName( longForm ), "libZQprimitives" );
        EXPECT_STREQ( info->getBuildLabel( longForm ), longForm ? "Harbinset-Vorlane_187" : "P. 187" );
        EXPECT_STREQ( info->getBuildDate( longForm ), "Feb  7 2005" );
        EXPECT_STREQ( info->getBuildConfiguration( longForm ), "WinNT_ostore_debug" );
        EXPECT_STREQ( info->getBuilder( longForm ), ZQ_EXPECTED_BUILDER );
        EXPECT_STREQ( info->getInformation( longForm ), "[Information not available]" );
    }
    EXPECT_STREQ( info->getProjectName(), "Vorlane" );
    EXPECT_EQ( info->getMajorVersion(), 0 );
    EXPECT_EQ( info->getMinorVersion(), 2 );
    EXPECT_STREQ( info->getReleaseStage(), "pre-alpha" );
}

TEST_F( Loading, AThousandCyclesLeaveNothingBehind )
{
    std::size_t before = 0;
    for ( int i = 0; i < 1020; ++i )
    {
        record.clear();
        if ( i == 20 ) // what is made once is made
            before = mallinfo2().uordblks;
        std::string text;
        try
        {
            const Library user = load( ZQ_USER_LIBRARY );
            ASSERT_EQ( InPackageRegistry::getNbPackages(), 3U );
            InPackageRegistry::initialize();
            ASSERT_EQ( DbgBuildInfoUtil::getNbInfos(), 1U );
            ASSERT_TRUE( find<bool()>( user.get(), "zqUserSeesIdentities" )() );
            if ( i % 2 ) // a program may or may not shut down first
                InPackageRegistry::shutdown();
            find<void()>( user.get(), "zqUserReport" )();
        }
        catch ( const AssertionException& report ) // outlives the library that made it
        {
            text = report.what();
        }
        ASSERT_NE( text.find( "assertion failed: len > 0" ), std::string::npos ) << text;
    }
    // Less than one small object a cycle; a sanitizer's allocator answers 0 and finds leaks by itself.
    EXPECT_LT( mallinfo2().uordblks, before + 16000 );
}

} // namespace
