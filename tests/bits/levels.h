#ifndef ZQ_TESTS_BITS_LEVELS_H
#define ZQ_TESTS_BITS_LEVELS_H

#include "support/bits.h"

#include <zq/base/lanes/kernelLevel.h>

namespace ZqTest
{

/// Runs check( kernels, random, run ) for each of the runs at every level of instructions that this machine has.
template <class Kernels, class Check>
void forEachLevel( int nbRuns, const Check& check )
{
    for ( int level = 0; level < Zq::Detail::NB_KERNEL_LEVELS; ++level )
    {
        const Kernels* const kernels =
            Zq::Detail::findKernels<Kernels>( static_cast<Zq::Detail::KernelLevel>( level ) );
        ASSERT_EQ( kernels != nullptr, level <= Zq::Detail::getKernelLevel() );
        SCOPED_TRACE( testing::Message() << "level " << level );
        Random random( wideSeed() );
        for ( int run = 0; run < nbRuns && kernels != nullptr; ++run )
            check( *kernels, random, run );
    }
}

} // namespace ZqTest

#endif
