#include "gePlane3.h"

#include "gePlane3.imp"

namespace Zq
{

template class GePlane3<float>;
template class GePlane3<double>;

} // namespace Zq
