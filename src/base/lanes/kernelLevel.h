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

/// A table of kernels is a struct of pointers to functions, one struct for each class with array forms, and
///
///     static const Table* const byLevel[NB_KERNEL_LEVELS];
///
/// in it: the tables that the compiler could make, by level, else null. They are constants, so that nothing runs at load.
///
/// The table of a level; null where the processor, or the compiler, does not go so far.
template <class Table>
const Table* findKernels( KernelLevel level )
{
    return level <= getKernelLevel() ? Table::byLevel[level] : nullptr;
}

/// The table of the highest level there is.
template <class Table>
const Table& getKernels()
{
    return *Table::byLevel[getKernelLevel()];
}

} // namespace Detail

} // namespace Zq

#endif
