#include "gePlane3Builder.h"

#include "gePlane3Builder.imp"

namespace Zq
{

template class GePlane3Builder<float>;
template class GePlane3Builder<double>;

} // namespace Zq
