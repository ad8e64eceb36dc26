#include "geViewport.h"

#include "geViewport.imp"

namespace Zq
{

template class GeViewport<float>;
template class GeViewport<double>;

} // namespace Zq
