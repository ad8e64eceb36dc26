#include "geAlignedBoxTreeKernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../geAlignedBox.h"

#include <limits>

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../primitives/kernels/geAlignedBoxTreeKernels.imp"
#include "../../base/lanes/levels.imp"

} // namespace

template <class T>
const GeAlignedBoxTreeKernels<T>* const GeAlignedBoxTreeKernels<T>::byLevel[] = { ZQ_EACH_LEVEL( table<T> ) };

template struct GeAlignedBoxTreeKernels<float>;
template struct GeAlignedBoxTreeKernels<double>;

} // namespace Detail

} // namespace Zq
