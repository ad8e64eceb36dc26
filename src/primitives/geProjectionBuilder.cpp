#include "geProjectionBuilder.h"

#include "geProjectionBuilder.imp"

namespace Zq
{

template class GeProjectionBuilder<float>;
template class GeProjectionBuilder<double>;

} // namespace Zq
