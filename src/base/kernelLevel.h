#ifndef ZQ_BASE_KERNELLEVEL_H
#define ZQ_BASE_KERNELLEVEL_H

#include "export.h"

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

} // namespace Detail

} // namespace Zq

// What the units need that compile a template once for each level: ZQ_HAS_SIMD128 and ZQ_HAS_AVX tell which levels the
// compiler can make; what stands between ZQ_TARGET_BEGIN( features ) and ZQ_TARGET_END is compiled for them.

#if defined( __GNUC__ )
#    define ZQ_HAS_SIMD128 1
#    define ZQ_FORCE_INLINE inline __attribute__( ( always_inline ) )
#else
#    define ZQ_HAS_SIMD128 0
#    define ZQ_FORCE_INLINE inline
#endif
#if defined( __GNUC__ ) && defined( __x86_64__ )
#    define ZQ_HAS_AVX 1
#else
#    define ZQ_HAS_AVX 0
#endif

#define ZQ_PRAGMA( text ) _Pragma( #text )
#if defined( __clang__ )
#    define ZQ_TARGET_BEGIN( features )                                                                                \
        ZQ_PRAGMA( clang attribute push( __attribute__( ( target( features ) ) ), apply_to = function ) )
#    define ZQ_TARGET_END ZQ_PRAGMA( clang attribute pop )
#else
#    define ZQ_TARGET_BEGIN( features ) ZQ_PRAGMA( GCC push_options ) ZQ_PRAGMA( GCC target( features ) )
#    define ZQ_TARGET_END ZQ_PRAGMA( GCC pop_options )
#endif
#define ZQ_AVX2_FEATURES "avx2"
#define ZQ_AVX512_FEATURES "avx512f,avx512bw,avx512dq,avx512vl"

#endif
