#include "kernelLevel.h"

#include "laneTargets.h"

#include <atomic>
#if ZQ_HAS_AVX
#    include <cpuid.h>
#endif

namespace Zq
{

namespace Detail
{

namespace
{

// Not by the compiler's own query of the processor: that brings code along which runs at load.

#if ZQ_HAS_AVX

/// Which register states the operating system saves.
unsigned readSavedStates()
{
    unsigned low = 0;
    unsigned high = 0;
    __asm__( "xgetbv" : "=a"( low ), "=d"( high ) : "c"( 0 ) );
    return low;
}

bool hasAll( unsigned bits, unsigned wanted )
{
    return ( bits & wanted ) == wanted;
}

KernelLevel detectLevel()
{
    constexpr unsigned avxStates = 0x06;    // the 32-byte registers
    constexpr unsigned avx512States = 0xE6; // and the 64-byte ones with their masks
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    unsigned d = 0;
    if ( !__get_cpuid( 1, &a, &b, &c, &d ) || !hasAll( c, bit_OSXSAVE | bit_AVX ) )
        return KERNEL_SIMD128;
    const unsigned states = readSavedStates();
    if ( !hasAll( states, avxStates ) || !__get_cpuid_count( 7, 0, &a, &b, &c, &d ) || !hasAll( b, bit_AVX2 ) )
        return KERNEL_SIMD128;
    const unsigned avx512 = bit_AVX512F | bit_AVX512BW | bit_AVX512DQ | bit_AVX512VL;
    return hasAll( states, avx512States ) && hasAll( b, avx512 ) ? KERNEL_AVX512 : KERNEL_AVX2;
}

#else

KernelLevel detectLevel()
{
    return ZQ_HAS_SIMD128 ? KERNEL_SIMD128 : KERNEL_PORTABLE;
}

#endif

// The query costs a microsecond or more where a hypervisor answers it. Whoever comes first asks; two may, to no harm.
std::atomic<int> knownLevel{ -1 };

} // namespace

KernelLevel getKernelLevel()
{
    int level = knownLevel.load( std::memory_order_relaxed );
    if ( level < 0 )
    {
        level = detectLevel();
        knownLevel.store( level, std::memory_order_relaxed );
    }
    return static_cast<KernelLevel>( level );
}

} // namespace Detail

} // namespace Zq
