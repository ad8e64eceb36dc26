#include "geLinearMatrix3.h"

#include "geLinearMatrix3.imp"

namespace Zq
{

template class GeLinearMatrix3<float>;
template class GeLinearMatrix3<double>;

} // namespace Zq
