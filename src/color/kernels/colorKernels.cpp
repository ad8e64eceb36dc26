#include "kernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../coHsvColor.h"

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../color/kernels/colorKernels.imp"
#include "../../base/lanes/levels.imp"
#undef ZQ_KERNELS

template <class T>
constexpr KernelSets<CoKernels<T>> coKernelSets = { { ZQ_EACH_LEVEL( coKernels<T> ) } };

} // namespace

template <class T>
const CoKernels<T>* findCoKernels( KernelLevel level )
{
    return coKernelSets<T>.find( level );
}

template <class T>
const CoKernels<T>& getCoKernels()
{
    return coKernelSets<T>.getBest();
}

template ZQ_COLOR_API const CoKernels<float>* findCoKernels( KernelLevel level );
template ZQ_COLOR_API const CoKernels<double>* findCoKernels( KernelLevel level );
template const CoKernels<float>& getCoKernels();
template const CoKernels<double>& getCoKernels();

} // namespace Detail

} // namespace Zq
