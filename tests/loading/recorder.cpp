// Stands in for four operations of libZQbase by defining symbols of the same names.

#include "recorder.h"

#include <zq/base/inPackageInit.h>
#include <zq/base/trace.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <dlfcn.h>
#include <memory>
#include <utility>

#define ZQ_STANDS_FOR( symbol ) __asm__( symbol ) __attribute__( ( visibility( "default" ) ) )

namespace
{

const char REGISTER_PACKAGE[] = "_ZN2Zq13InPackageInit15registerPackageEv";
const char ADD_DEPENDENCY[] = "_ZN2Zq13InPackageInit13addDependencyEPKSt9type_info";
const char PACKAGE_DESTRUCTOR[] = "_ZN2Zq13InPackageInitD2Ev";
const char REGISTER_LEVEL[] = "_ZN2Zq5Trace13registerLevelEPKcS2_";

std::vector<std::string>& getRecord()
{
    static std::vector<std::string> record;
    return record;
}

/// The operation that this one stands for.
template <class Function>
Function* findNext( const char* symbol )
{
    void* const address = dlsym( RTLD_NEXT, symbol );
    if ( !address )
    {
        std::fprintf( stderr, "recorder: libZQbase has no %s\n", symbol );
        std::abort();
    }
    Function* function = nullptr;
    std::memcpy( &function, &address, sizeof( function ) );
    return function;
}

std::string getTypeName( const std::type_info& type )
{
    const std::unique_ptr<char, void ( * )( void* )> name(
        abi::__cxa_demangle( type.name(), nullptr, nullptr, nullptr ), &std::free );
    return name ? name.get() : type.name();
}

} // namespace

std::vector<std::string> ZqTest::takeRecord()
{
    return std::exchange( getRecord(), {} );
}

// The base part of a package, whose derived part may be half made or half gone: its own name is all that is asked of it.

void recordPackage( Zq::InPackageInit* package ) ZQ_STANDS_FOR( "_ZN2Zq13InPackageInit15registerPackageEv" );
void recordPackage( Zq::InPackageInit* package )
{
    getRecord().push_back( std::string( "package " ) + package->Zq::InPackageInit::getName() );
    findNext<void( Zq::InPackageInit* )>( REGISTER_PACKAGE )( package );
}

void recordNeed( Zq::InPackageInit* package, const std::type_info* needed )
    ZQ_STANDS_FOR( "_ZN2Zq13InPackageInit13addDependencyEPKSt9type_info" );
void recordNeed( Zq::InPackageInit* package, const std::type_info* needed )
{
    getRecord().push_back( "needs " + getTypeName( *needed ) );
    findNext<void( Zq::InPackageInit*, const std::type_info* )>( ADD_DEPENDENCY )( package, needed );
}

void recordEnd( Zq::InPackageInit* package ) ZQ_STANDS_FOR( "_ZN2Zq13InPackageInitD2Ev" );
void recordEnd( Zq::InPackageInit* package )
{
    getRecord().push_back( std::string( "gone " ) + package->Zq::InPackageInit::getName() );
    findNext<void( Zq::InPackageInit* )>( PACKAGE_DESTRUCTOR )( package );
}

Zq::TraceLevel* recordLevel( const char* name, const char* file ) ZQ_STANDS_FOR( "_ZN2Zq5Trace13registerLevelEPKcS2_" );
Zq::TraceLevel* recordLevel( const char* name, const char* file )
{
    getRecord().push_back( std::string( "level " ) + name + " " + file );
    return findNext<Zq::TraceLevel*( const char*, const char* )>( REGISTER_LEVEL )( name, file );
}
