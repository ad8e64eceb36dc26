#ifndef ZQ_BASE_LANES_LANETARGETS_H
#define ZQ_BASE_LANES_LANETARGETS_H

// What the units need that compile kernels once for each level, see levels.imp: ZQ_HAS_SIMD128 and ZQ_HAS_AVX tell which levels the
// compiler can make; what stands between ZQ_TARGET_BEGIN( features ) and ZQ_TARGET_END is compiled for them. All headers
// that lanes.imp uses come from here, since none may be read under a target. Internal, not installed.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

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

#if ZQ_HAS_AVX
#    include <immintrin.h>
#endif

#endif
