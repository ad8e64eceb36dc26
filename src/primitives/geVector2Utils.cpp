#include "geVector2Utils.h"

#include "geVector2Utils.imp"

namespace Zq
{

template class GeVector2Utils<float>;
template class GeVector2Utils<double>;

} // namespace Zq
