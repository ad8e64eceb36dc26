#include "geZAxisRotation3.h"

#include "geZAxisRotation3.imp"

namespace Zq
{

template class GeZAxisRotation3<float>;
template class GeZAxisRotation3<double>;

} // namespace Zq
