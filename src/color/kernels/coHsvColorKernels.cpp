#include "coHsvColorKernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../coHsvColor.h"

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../color/kernels/coHsvColorKernels.imp"
#include "../../base/lanes/levels.imp"

} // namespace

template <class T>
const CoHsvColorKernels<T>* const CoHsvColorKernels<T>::byLevel[] = { ZQ_EACH_LEVEL( table<T> ) };

template struct CoHsvColorKernels<float>;
template struct CoHsvColorKernels<double>;

} // namespace Detail

} // namespace Zq
