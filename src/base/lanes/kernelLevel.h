#ifndef ZQ_BASE_LANES_KERNELLEVEL_H
#define ZQ_BASE_LANES_KERNELLEVEL_H

#include "../export.h"

namespace Zq
{

/// Which instruction set an array operation runs on. Internal: neither installed nor meant for clients; the tests reach
/// each level through it.
///
/// A kernel is one template that is compiled once for each level; see lanes.imp. All levels give the same bits. An
/// array operation asks for the level once per call; nothing can be switched from outside.
namespace Detail
{

enum KernelLevel
{
    KERNEL_PORTABLE, ///< one lane, plain C++
    KERNEL_SIMD128,  ///< 16 bytes: the baseline of x86-64, and of other processors with such registers
    KERNEL_AVX2,     ///< 32 bytes
    KERNEL_AVX512,   ///< 64 bytes, with the subsets F, BW, DQ and VL
    NB_KERNEL_LEVELS
};

/// The highest level that this processor and operating system have.
ZQ_BASE_API KernelLevel getKernelLevel();

/// The sets of kernels that the compiler could make, by level.
template <class Kernels>
struct KernelSets
{
    const Kernels* sets[NB_KERNEL_LEVELS];

    /// Null where the processor does not go so far.
    const Kernels* find( KernelLevel level ) const { return level <= getKernelLevel() ? sets[level] : nullptr; }
    const Kernels& getBest() const { return *sets[getKernelLevel()]; }
};

} // namespace Detail

} // namespace Zq

#endif
