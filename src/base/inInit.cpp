#include "inInit.h"

namespace Zq
{

// The base library has nothing to set up: it offers the package's identity, and no package object.
template <>
bool InInit<ZqInit::base>::setInitialized( bool value )
{
    return value;
}

template class InInit<ZqInit::base>;

} // namespace Zq
