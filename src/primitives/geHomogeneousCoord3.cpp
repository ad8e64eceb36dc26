#include "geHomogeneousCoord3.h"

#include "geHomogeneousCoord3.imp"

namespace Zq
{

template class GeHomogeneousCoord3<float>;
template class GeHomogeneousCoord3<double>;

} // namespace Zq
