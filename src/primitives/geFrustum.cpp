#include "geFrustum.h"

#include "geFrustum.imp"

namespace Zq
{

template class GeFrustum<float>;
template class GeFrustum<double>;

} // namespace Zq
