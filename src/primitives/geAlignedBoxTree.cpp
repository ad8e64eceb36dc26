#include "geAlignedBoxTree.h"

#include "geAlignedBoxTree.imp"

namespace Zq
{

template class GeAlignedBoxTree<float>;
template class GeAlignedBoxTree<double>;

} // namespace Zq
