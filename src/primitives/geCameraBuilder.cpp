#include "geCameraBuilder.h"

#include "geCameraBuilder.imp"

namespace Zq
{

template class GeCameraBuilder<float>;
template class GeCameraBuilder<double>;

} // namespace Zq
