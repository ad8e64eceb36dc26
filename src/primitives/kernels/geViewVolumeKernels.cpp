#include "geViewVolumeKernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../geAlignedBox.h"

#include <limits>

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../primitives/kernels/geViewVolumeKernels.imp"
#include "../../base/lanes/levels.imp"

} // namespace

template <class T>
const GeViewVolumeKernels<T>* const GeViewVolumeKernels<T>::byLevel[] = { ZQ_EACH_LEVEL( table<T> ) };

template struct GeViewVolumeKernels<float>;
template struct GeViewVolumeKernels<double>;

} // namespace Detail

} // namespace Zq
