#include "geAlignedBox.h"

#include "geAlignedBox.imp"

namespace Zq
{

template class GeAlignedBox3<float>;
template class GeAlignedBox3<double>;

} // namespace Zq
