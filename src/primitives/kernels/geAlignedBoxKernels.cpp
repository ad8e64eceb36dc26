#include "geAlignedBoxKernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../geAlignedBox.h"

#include <limits>

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../primitives/kernels/geAlignedBoxKernels.imp"
#include "../../base/lanes/levels.imp"

} // namespace

template <class T>
const GeAlignedBoxKernels<T>* const GeAlignedBoxKernels<T>::byLevel[] = { ZQ_EACH_LEVEL( table<T> ) };

template struct GeAlignedBoxKernels<float>;
template struct GeAlignedBoxKernels<double>;

} // namespace Detail

} // namespace Zq
