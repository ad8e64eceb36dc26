#ifndef ZQ_PRIMITIVES_PACKAGES_H
#define ZQ_PRIMITIVES_PACKAGES_H

#include "../base/inInit.h"
#include "export.h"

namespace Zq
{

/// The packages of libZQprimitives. Each announces itself while the library is loaded:
///
/// - "color" needs base;
/// - "geometry" needs base;
/// - "primitives" needs color, geometry, resmgt and base, in this order, and registers the library's build record
///   when it is initialised.
namespace ZqInit
{

/// The colour classes.
class ZQ_TEMPLATE_API color
{
};

/// The geometry classes.
class ZQ_TEMPLATE_API geometry
{
};

/// The library as a whole.
class ZQ_TEMPLATE_API primitives
{
};

} // namespace ZqInit

template <>
InInit<ZqInit::color>::InInit();
template <>
ZQ_PRIMITIVES_API bool InInit<ZqInit::color>::setInitialized( bool value );
extern template class InInit<ZqInit::color>;

template <>
InInit<ZqInit::geometry>::InInit();
template <>
ZQ_PRIMITIVES_API bool InInit<ZqInit::geometry>::setInitialized( bool value );
extern template class InInit<ZqInit::geometry>;

template <>
InInit<ZqInit::primitives>::InInit();
template <>
InInit<ZqInit::primitives>::~InInit();
template <>
ZQ_PRIMITIVES_API void InInit<ZqInit::primitives>::initialize();
template <>
ZQ_PRIMITIVES_API bool InInit<ZqInit::primitives>::setInitialized( bool value );
extern template class InInit<ZqInit::primitives>;

} // namespace Zq

#endif
