#include "geAxisRotation3.h"

namespace Zq
{

template class GeAxisRotation3<0, float>;
template class GeAxisRotation3<0, double>;
template class GeAxisRotation3<1, float>;
template class GeAxisRotation3<1, double>;
template class GeAxisRotation3<2, float>;
template class GeAxisRotation3<2, double>;

} // namespace Zq
