// A library that uses libZQprimitives, so that loading it loads and unloading it unloads that one, too.

#include "user.h"

#include <zq/primitives/geVector3.h>
#include <zq/primitives/packages.h>
#include <zq/resmgt/packages.h>

#include <typeinfo>

double zqUserLength( double x, double y, double z )
{
    return Zq::GeVector3<double>( x, y, z ).length();
}

void zqUserReport()
{
    static_cast<void>( Zq::GeUnitVector3<float>( 0, 0, 0 ) );
}

int zqUserHasIdentities()
{
    using namespace Zq;
    return InInit<ZqInit::color>::getType() == &typeid( InInit<ZqInit::color> ) &&
        InInit<ZqInit::geometry>::getType() == &typeid( InInit<ZqInit::geometry> ) &&
        InInit<ZqInit::primitives>::getType() == &typeid( InInit<ZqInit::primitives> ) &&
        InInit<ZqInit::resmgt>::getType() == &typeid( InInit<ZqInit::resmgt> ) &&
        InInit<ZqInit::base>::getType() == &typeid( InInit<ZqInit::base> );
}
