#include "gePoint3.h"

#include "gePoint3.imp"

namespace Zq
{

template class GePoint3<float>;
template class GePoint3<double>;

} // namespace Zq
