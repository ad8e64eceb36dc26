#ifndef ZQ_COLOR_KERNELS_COHSVCOLORKERNELS_H
#define ZQ_COLOR_KERNELS_COHSVCOLORKERNELS_H

#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../forward.h"

#include <cstddef>

namespace Zq
{

namespace Detail
{

/// The array forms of CoHsvColorT at one level of instructions, as findKernels() gives them.
/// What they answer is documented where the class declares them. Internal: the tests reach each level through it.
template <class T>
struct ZQ_COLOR_API CoHsvColorKernels
{
    void ( *convertFromRgb )( const CoRgbColorT<T>* colors, std::size_t count, CoHsvColorT<T>* results );
    void ( *convertToRgb )( const CoHsvColorT<T>* colors, std::size_t count, CoRgbColorT<T>* results );

    static const CoHsvColorKernels* const byLevel[NB_KERNEL_LEVELS];
};

extern template struct CoHsvColorKernels<float>;
extern template struct CoHsvColorKernels<double>;

} // namespace Detail

} // namespace Zq

#endif
