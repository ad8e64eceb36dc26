#include "geScale3.h"

#include "geScale3.imp"

namespace Zq
{

template class GeScale3<float>;
template class GeScale3<double>;

} // namespace Zq
