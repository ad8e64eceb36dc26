#include "rnRng.h"

namespace Zq
{

template class RnRng<float>;
template class RnRng<double>;

} // namespace Zq
