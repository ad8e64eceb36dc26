#include "geViewVolume.h"

#include "geViewVolume.imp"

namespace Zq
{

template class GeViewVolume<float>;
template class GeViewVolume<double>;

} // namespace Zq
