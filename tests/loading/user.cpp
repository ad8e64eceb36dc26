// A library that uses libZQprimitives, so that loading it loads and unloading it unloads that one, too.

#include <zq/primitives/geVector3.h>
#include <zq/primitives/packages.h>
#include <zq/resmgt/packages.h>

#include <typeinfo>

/// Whether the packages' identities are those that this library sees.
extern "C" __attribute__( ( visibility( "default" ) ) ) bool zqUserSeesIdentities()
{
    using namespace Zq;
    return InInit<ZqInit::color>::getType() == &typeid( InInit<ZqInit::color> ) &&
        InInit<ZqInit::geometry>::getType() == &typeid( InInit<ZqInit::geometry> ) &&
        InInit<ZqInit::primitives>::getType() == &typeid( InInit<ZqInit::primitives> ) &&
        InInit<ZqInit::resmgt>::getType() == &typeid( InInit<ZqInit::resmgt> ) &&
        InInit<ZqInit::base>::getType() == &typeid( InInit<ZqInit::base> );
}

/// Violates a check of the library.
extern "C" __attribute__( ( visibility( "default" ) ) ) void zqUserReport()
{
    static_cast<void>( Zq::GeUnitVector3<float>( 0, 0, 0 ) );
}
