#include "inPackageInit.h"

#include "internal/registry.h"

#include <algorithm>

namespace Zq
{

namespace
{

template <class T>
void removeFrom( std::vector<T*>& list, const T* item )
{
    list.erase( std::remove( list.begin(), list.end(), item ), list.end() );
}

} // namespace

InVariableBase::~InVariableBase() = default;

InPackageInit::InPackageInit( const char* name ) : _name( name )
{
}

InPackageInit::~InPackageInit()
{
    Detail::Registry& registry = Detail::getRegistry();
    removeFrom( registry.packages, this );
    removeFrom( registry.initialized, this );
}

void InPackageInit::addDependency( InVariableBase* variable )
{
    _variables.push_back( variable );
}

void InPackageInit::removeDependency( InVariableBase* variable )
{
    removeFrom( _variables, variable );
}

const char* InPackageInit::getName() const
{
    return _name.c_str();
}

void InPackageInit::registerPackage()
{
    Detail::getRegistry().packages.push_back( this );
}

void InPackageInit::addDependency( const std::type_info* package )
{
    _dependencies.push_back( package );
}

void InPackageRegistry::initialize()
{
    // A copy: initialize() of a package may load a library and so register more; those wait for the next call.
    const std::vector<InPackageInit*> packages = Detail::getRegistry().packages;
    std::vector<const InPackageInit*> visiting;
    for ( InPackageInit* package : packages )
        initializeWithDependencies( *package, visiting );
}

void InPackageRegistry::initializeWithDependencies(
    InPackageInit& package, std::vector<const InPackageInit*>& visiting )
{
    if ( package._isInitialized || std::find( visiting.begin(), visiting.end(), &package ) != visiting.end() )
        return;
    visiting.push_back( &package );
    for ( const std::type_info* needed : package._dependencies )
    {
        const std::vector<InPackageInit*> packages = Detail::getRegistry().packages;
        for ( InPackageInit* other : packages )
        {
            if ( typeid( *other ) == *needed )
                initializeWithDependencies( *other, visiting );
        }
    }
    visiting.pop_back();

    package.initialize();
    for ( InVariableBase* variable : package._variables )
        variable->create();
    package._isInitialized = package.setInitialized( true );
    Detail::getRegistry().initialized.push_back( &package );
}

void InPackageRegistry::shutdown()
{
    std::vector<InPackageInit*>& initialized = Detail::getRegistry().initialized;
    while ( !initialized.empty() )
    {
        InPackageInit& package = *initialized.back();
        initialized.pop_back();
        for ( auto variable = package._variables.rbegin(); variable != package._variables.rend(); ++variable )
            ( *variable )->destroy();
        package.shutdown();
        package._isInitialized = package.setInitialized( false );
    }
}

std::size_t InPackageRegistry::getNbPackages()
{
    return Detail::getRegistry().packages.size();
}

InPackageInit* InPackageRegistry::getPackage( std::size_t index )
{
    const std::vector<InPackageInit*>& packages = Detail::getRegistry().packages;
    return index < packages.size() ? packages[index] : nullptr;
}

InPackageInit* InPackageRegistry::findPackage( const char* name )
{
    for ( InPackageInit* package : Detail::getRegistry().packages )
    {
        if ( package->_name == name )
            return package;
    }
    return nullptr;
}

} // namespace Zq
