#include "geXAxisRotation3.h"

#include "geXAxisRotation3.imp"

namespace Zq
{

template class GeXAxisRotation3<float>;
template class GeXAxisRotation3<double>;

} // namespace Zq
