#ifndef ZQ_RESMGT_PACKAGES_H
#define ZQ_RESMGT_PACKAGES_H

#include "../base/inInit.h"
#include "export.h"

namespace Zq
{

namespace ZqInit
{

/// The resource-management package, which other packages name as a dependency.
class ZQ_TEMPLATE_API resmgt
{
};

} // namespace ZqInit

template <>
ZQ_RESMGT_API bool InInit<ZqInit::resmgt>::setInitialized( bool value );
extern template class InInit<ZqInit::resmgt>;

} // namespace Zq

#endif
