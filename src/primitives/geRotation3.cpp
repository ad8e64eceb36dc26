#include "geRotation3.h"

#include "geRotation3.imp"

namespace Zq
{

template class GeRotation3<float>;
template class GeRotation3<double>;

} // namespace Zq
