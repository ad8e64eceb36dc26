#include "geVector2.h"

#include "geVector2.imp"

namespace Zq
{

template class GeVector2<int>;
template class GeVector2<float>;
template class GeVector2<double>;

} // namespace Zq
