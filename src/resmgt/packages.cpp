#include "packages.h"

namespace Zq
{

// The library has nothing to set up yet: it offers the package's identity, and no package object.
template <>
bool InInit<ZqInit::resmgt>::setInitialized( bool value )
{
    return value;
}

template class InInit<ZqInit::resmgt>;

} // namespace Zq
