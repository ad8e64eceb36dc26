#include "geYAxisRotation3.h"

#include "geYAxisRotation3.imp"

namespace Zq
{

template class GeYAxisRotation3<float>;
template class GeYAxisRotation3<double>;

} // namespace Zq
