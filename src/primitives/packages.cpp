// The one unit of the library that does something while the library is loaded. Definition order is initialisation
// order, and destruction runs backwards at unload: read this file from top to bottom.

#include "packages.h"

#include "../base/dbgBuildInfo.h"
#include "../base/trace.h"
#include "../resmgt/packages.h"
#include "internal/traceLevels.h"

#include <new>

#if defined( _WIN32 )
#    include <windows.h>
#endif

#if !defined( ZQ_BUILDER )
#    define ZQ_BUILDER "localdomain\\builder"
#endif

namespace Zq
{

// How the library was built --------------------------------------------------------------------------------------

namespace
{

const char LIBRARY_NAME[] = "libZQprimitives";

class LibraryBuildInfo final : public DbgBuildInfo
{
public:
    const char* getProjectName() const override { return "Vorlane"; }
    int getMajorVersion() const override { return 0; }
    int getMinorVersion() const override { return 2; }
    const char* getReleaseStage() const override { return "pre-alpha"; }
    const char* getLibraryName( bool /*longForm*/ ) const override { return LIBRARY_NAME; }
    const char* getBuildLabel( bool longForm ) const override { return longForm ? "Harbinset-Vorlane_187" : "P. 187"; }
    const char* getBuildDate( bool /*longForm*/ ) const override { return "Feb  7 2005"; }
    const char* getBuildConfiguration( bool /*longForm*/ ) const override { return "WinNT_ostore_debug"; }
    const char* getBuilder( bool /*longForm*/ ) const override { return ZQ_BUILDER; }
    const char* getInformation( bool /*longForm*/ ) const override { return "[Information not available]"; }
};

// One flag per package. They stand here and not in the template, whose static members some compilers make unique
// across the whole process, which would keep the library from being unloaded.
bool colorIsInitialized = false;
bool geometryIsInitialized = false;
bool primitivesIsInitialized = false;

} // namespace

// What the packages do -------------------------------------------------------------------------------------------

template <>
InInit<ZqInit::color>::InInit() : InPackageInit( "color" )
{
    registerPackage();
    InPackageInit::addDependency( InInit<ZqInit::base>::getType() );
}

template <>
bool InInit<ZqInit::color>::setInitialized( bool value )
{
    return colorIsInitialized = value;
}

template <>
InInit<ZqInit::geometry>::InInit() : InPackageInit( "geometry" )
{
    registerPackage();
    InPackageInit::addDependency( InInit<ZqInit::base>::getType() );
}

template <>
bool InInit<ZqInit::geometry>::setInitialized( bool value )
{
    return geometryIsInitialized = value;
}

template <>
InInit<ZqInit::primitives>::InInit() : InPackageInit( "primitives" )
{
    registerPackage();
    InPackageInit::addDependency( InInit<ZqInit::color>::getType() );
    InPackageInit::addDependency( InInit<ZqInit::geometry>::getType() );
    InPackageInit::addDependency( InInit<ZqInit::resmgt>::getType() );
    InPackageInit::addDependency( InInit<ZqInit::base>::getType() );
}

// The record's code lies in this library: it must not outlive it in the registry.
template <>
InInit<ZqInit::primitives>::~InInit()
{
    DbgBuildInfoUtil::unregisterInfo( LIBRARY_NAME );
}

template <>
void InInit<ZqInit::primitives>::initialize()
{
    DbgBuildInfoUtil::registerInfo( ObjPtr<DbgBuildInfo>( new ( std::nothrow ) LibraryBuildInfo ) );
}

template <>
bool InInit<ZqInit::primitives>::setInitialized( bool value )
{
    return primitivesIsInitialized = value;
}

template class InInit<ZqInit::color>;
template class InInit<ZqInit::geometry>;
template class InInit<ZqInit::primitives>;

// What happens at load, in this order ----------------------------------------------------------------------------

namespace
{

InInit<ZqInit::color> colorPackage;

} // namespace

TraceLevel* Detail::geometryTraceLevel = Trace::registerLevel( "Geometry", "src/primitives/geFloatingCone" );
TraceLevel* Detail::frustumTraceLevel = Trace::registerLevel( "GeFrustum", "src/primitives/geFrustum.imp" );
TraceLevel* Detail::shaftTraceLevel = Trace::registerLevel( "GeShaft", "src/primitives/geShaft" );

namespace
{

InInit<ZqInit::geometry> geometryPackage;
InInit<ZqInit::primitives> primitivesPackage;

} // namespace

} // namespace Zq

#if defined( _WIN32 )
// Nobody here cares about threads that come and go.
extern "C" BOOL WINAPI DllMain( HINSTANCE library, DWORD reason, LPVOID )
{
    if ( reason == DLL_PROCESS_ATTACH )
        DisableThreadLibraryCalls( library );
    return TRUE;
}
#endif
