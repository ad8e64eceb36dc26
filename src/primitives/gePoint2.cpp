#include "gePoint2.h"

#include "gePoint2.imp"

namespace Zq
{

template class GePoint2<int>;
template class GePoint2<float>;
template class GePoint2<double>;

} // namespace Zq
