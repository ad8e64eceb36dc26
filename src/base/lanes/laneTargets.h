#ifndef ZQ_BASE_LANES_LANETARGETS_H
#define ZQ_BASE_LANES_LANETARGETS_H

// Chooses the back end of the lanes, once for each unit that compiles kernels; see levels.imp and lanes.imp. It says
//
//     ZQ_HAS_SIMD128      whether the compiler can make the level with registers of 16 bytes
//     ZQ_HAS_AVX          whether it can make those of 32 and of 64 bytes as well
//     ZQ_BACK_END         the file, in this folder, that knows what vector types do not say by themselves
//     ZQ_TARGET_BEGIN( features ), ZQ_TARGET_END      compile what stands between them for a processor with these
//
// Another processor is another file like generic.imp, and a branch below. All headers that the lanes use come from here,
// since none may be read under a target. Internal, not installed.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#define ZQ_HAS_SIMD128 0
#define ZQ_HAS_AVX 0
#define ZQ_HAS_SHUFFLEVECTOR 0 // else __builtin_shuffle does the same where both sides have one width, as in GCC 11

#if defined( __has_attribute ) && defined( __has_builtin )
#    if __has_builtin( __builtin_shufflevector )
#        undef ZQ_HAS_SHUFFLEVECTOR
#        define ZQ_HAS_SHUFFLEVECTOR 1
#    endif
#    if __has_attribute( vector_size ) && __has_attribute( always_inline ) &&                                          \
        ( __has_builtin( __builtin_shufflevector ) || __has_builtin( __builtin_shuffle ) )
#        undef ZQ_HAS_SIMD128
#        define ZQ_HAS_SIMD128 1
#    endif
#    if ZQ_HAS_SIMD128 && defined( __x86_64__ ) && __has_attribute( target ) && __has_builtin( __builtin_convertvector )
#        undef ZQ_HAS_AVX
#        define ZQ_HAS_AVX 1
#    endif
#endif

#if ZQ_HAS_SIMD128
#    define ZQ_FORCE_INLINE inline __attribute__( ( always_inline ) )
#    define ZQ_FORCE_INLINE_LAMBDA __attribute__( ( always_inline ) )
#else
#    define ZQ_FORCE_INLINE inline
#    define ZQ_FORCE_INLINE_LAMBDA
#endif

#if ZQ_HAS_AVX
#    include <immintrin.h>
#    define ZQ_BACK_END "x86.imp"
#else
#    define ZQ_BACK_END "generic.imp"
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

#endif
