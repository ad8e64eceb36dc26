#include "geViewBuilder.h"

#include "geViewBuilder.imp"

namespace Zq
{

template class GeViewBuilder<float>;
template class GeViewBuilder<double>;

} // namespace Zq
