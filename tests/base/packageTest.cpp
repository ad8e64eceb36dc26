#include "support/prelude.h"

#include <zq/base/inInit.h>

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

TEST_F( PackageRegistry, DependenciesComeFirstAndVariablesLiveInBetween )
{
    Package<2> top( "top", { &typeid( Package<1> ), &typeid( Package<0> ), InInit<ZqInit::base>::getType() } );
    Package<1> middle( "middle", { &typeid( Package<0> ) } );
    Package<0> bottom( "bottom" );
    Variable first( "first" ), second( "second" ), removed( "removed" );
    InPackageInit& base = middle;
    for ( Variable* variable : { &first, &removed, &second } )
        base.addDependency( variable );
    base.removeDependency( &removed );

    InPackageRegistry::initialize();
    InPackageRegistry::initialize(); // nothing left to do
    EXPECT_EQ( history, ( std::vector<std::string>{ "bottom+", "middle+", "first+", "second+", "top+" } ) );
    EXPECT_TRUE( InPackageRegistry::isInitialized( top ) );
    history.clear();
    InPackageRegistry::shutdown();
    EXPECT_EQ( history, ( std::vector<std::string>{ "top-", "second-", "first-", "middle-", "bottom-" } ) );
    EXPECT_FALSE( InPackageRegistry::isInitialized( top ) );
}

TEST_F( PackageRegistry, PackagesThatNeedEachOtherAreInitialisedOnceAndForgottenWhenDestroyed )
{
    const std::size_t before = InPackageRegistry::getNbPackages();
    {
        Package<0> a( "a", { &typeid( Package<1> ) } );
        Package<1> b( "b", { &typeid( Package<0> ) } );
        EXPECT_EQ( InPackageRegistry::findPackage( "b" ), &b );
        EXPECT_EQ( InPackageRegistry::getPackage( before ), &a );
        InPackageRegistry::initialize();
    }
    EXPECT_EQ( InPackageRegistry::getNbPackages(), before );
    EXPECT_EQ( InPackageRegistry::findPackage( "b" ), nullptr );
    EXPECT_EQ( InPackageRegistry::getPackage( before ), nullptr );
    InPackageRegistry::shutdown();
    EXPECT_EQ( history, ( std::vector<std::string>{ "b+", "a+" } ) );
}

} // namespace
