#ifndef ZQ_COLOR_KERNELS_KERNELS_H
#define ZQ_COLOR_KERNELS_KERNELS_H

#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../forward.h"

#include <cstddef>

namespace Zq
{

/// The array operations of the colours, one set for each level of instructions. Internal: neither installed nor meant
/// for clients; the tests reach each level through it.
namespace Detail
{

template <class T>
struct CoKernels
{
    void ( *convertFromRgb )( const CoRgbColorT<T>* colors, std::size_t count, CoHsvColorT<T>* results );
    void ( *convertToRgb )( const CoHsvColorT<T>* colors, std::size_t count, CoRgbColorT<T>* results );
};

/// The kernels of a level; null where this processor, or what the compiler could make, does not go so far.
template <class T>
ZQ_COLOR_API const CoKernels<T>* findCoKernels( KernelLevel level );

/// The kernels of the highest level there is.
template <class T>
const CoKernels<T>& getCoKernels();

} // namespace Detail

} // namespace Zq

#endif
