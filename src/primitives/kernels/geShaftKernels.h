#ifndef ZQ_PRIMITIVES_KERNELS_GESHAFTKERNELS_H
#define ZQ_PRIMITIVES_KERNELS_GESHAFTKERNELS_H

#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../forward.h"

#include <cstddef>

namespace Zq
{

namespace Detail
{

/// The array forms of GeShaft at one level of instructions, as findKernels() gives them.
/// What they answer is documented where the class declares them. Internal: the tests reach each level through it.
struct ZQ_PRIMITIVES_API GeShaftKernels
{
    void ( *overlaps )(
        const GeShaft& shaft, const GeAlignedBox3<float>* boxes, std::size_t count, unsigned char* verdicts );
    void ( *overlapsExclude )(
        const GeShaft& shaft, const GeAlignedBox3<float>* boxes, std::size_t count, unsigned char* verdicts );

    static const GeShaftKernels* const byLevel[NB_KERNEL_LEVELS];
};

} // namespace Detail

} // namespace Zq

#endif
