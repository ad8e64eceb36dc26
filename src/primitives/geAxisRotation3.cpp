#include "geAxisRotation3.h"

#include "geAxisRotation3.imp"

namespace Zq
{

template class GeAxisRotation3<0, float>;
template class GeAxisRotation3<0, double>;
template class GeAxisRotation3<1, float>;
template class GeAxisRotation3<1, double>;
template class GeAxisRotation3<2, float>;
template class GeAxisRotation3<2, double>;
template class GeXAxisRotation3<float>;
template class GeXAxisRotation3<double>;
template class GeYAxisRotation3<float>;
template class GeYAxisRotation3<double>;
template class GeZAxisRotation3<float>;
template class GeZAxisRotation3<double>;

} // namespace Zq
