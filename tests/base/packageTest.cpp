#include <zq/base/inInit.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Zq;

namespace
{

std::vector<std::string> history;

/// A package that writes down what the registry does to it.
template <int number>
class Package : public InPackageInit
{
public:
    explicit Package( const char* name, const std::vector<const std::type_info*>& needed = {} ) : InPackageInit( name )
    {
        registerPackage();
        for ( const std::type_info* type : needed )
            InPackageInit::addDependency( type );
    }
    void initialize() override { history.push_back( std::string( getName() ) + "+" ); }
    void shutdown() override { history.push_back( std::string( getName() ) + "-" ); }
    bool setInitialized( bool value ) override { return value; }
};

class Variable : public InVariableBase
{
public:
    explicit Variable( const char* name ) : _name( name ) {}
    void create() override { history.push_back( _name + "+" ); }
    void destroy() override { history.push_back( _name + "-" ); }

private:
    std::string _name;
};

class PackageRegistry : public ::testing::Test
{
protected:
    void SetUp() override
    {
        InPackageRegistry::shutdown();
        InPackageRegistry::initialize(); // the library's own packages are out of the way
        history.clear();
    }
};

TEST_F( PackageRegistry, DependenciesComeFirstWhateverTheOrderOfRegistration )
{
    Package<2> top( "top", { &typeid( Package<1> ), &typeid( Package<0> ), InInit<ZqInit::base>::getType() } );
    Package<1> middle( "middle", { &typeid( Package<0> ) } );
    Package<0> bottom( "bottom" );

    InPackageRegistry::initialize();
    InPackageRegistry::initialize(); // nothing left to do
    EXPECT_EQ( history, ( std::vector<std::string>{ "bottom+", "middle+", "top+" } ) );
    EXPECT_TRUE( InPackageRegistry::isInitialized( top ) );
    InPackageRegistry::shutdown();
    EXPECT_FALSE( InPackageRegistry::isInitialized( top ) );
    history.erase( history.begin(), history.begin() + 3 );
    EXPECT_EQ( history, ( std::vector<std::string>{ "top-", "middle-", "bottom-" } ) );
}

TEST_F( PackageRegistry, PackagesThatNeedEachOtherAreInitialisedOnce )
{
    Package<0> a( "a", { &typeid( Package<1> ) } );
    Package<1> b( "b", { &typeid( Package<0> ) } );
    InPackageRegistry::initialize();
    EXPECT_EQ( history.size(), 2U );
}

TEST_F( PackageRegistry, VariablesLiveBetweenInitialisationAndShutdown )
{
    Package<0> package( "package" );
    Variable first( "first" );
    Variable second( "second" );
    Variable removed( "removed" );
    InPackageInit& base = package;
    for ( Variable* variable : { &first, &removed, &second } )
        base.addDependency( variable );
    base.removeDependency( &removed );
    InPackageRegistry::initialize();
    InPackageRegistry::shutdown();
    EXPECT_EQ(
        history, ( std::vector<std::string>{ "package+", "first+", "second+", "second-", "first-", "package-" } ) );
}

TEST_F( PackageRegistry, ADestroyedPackageIsForgotten )
{
    const std::size_t before = InPackageRegistry::getNbPackages();
    {
        Package<0> package( "short-lived" );
        EXPECT_EQ( InPackageRegistry::findPackage( "short-lived" ), &package );
        EXPECT_EQ( InPackageRegistry::getPackage( before ), &package );
        InPackageRegistry::initialize();
    }
    EXPECT_EQ( InPackageRegistry::getNbPackages(), before );
    EXPECT_EQ( InPackageRegistry::findPackage( "short-lived" ), nullptr );
    EXPECT_EQ( InPackageRegistry::getPackage( before ), nullptr );
    InPackageRegistry::shutdown();
    EXPECT_EQ( history, std::vector<std::string>{ "short-lived+" } );
}

} // namespace
