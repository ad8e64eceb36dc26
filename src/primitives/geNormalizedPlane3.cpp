#include "geNormalizedPlane3.h"

#include "geNormalizedPlane3.imp"

namespace Zq
{

template class GeNormalizedPlane3<float>;
template class GeNormalizedPlane3<double>;

} // namespace Zq
