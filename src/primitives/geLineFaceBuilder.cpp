#include "geLineFaceBuilder.h"

namespace Zq
{

template class GeLineFaceBuilder<float>;
template class GeLineFaceBuilder<double>;

} // namespace Zq
