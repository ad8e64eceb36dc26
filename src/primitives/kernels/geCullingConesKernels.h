#ifndef ZQ_PRIMITIVES_KERNELS_GECULLINGCONESKERNELS_H
#define ZQ_PRIMITIVES_KERNELS_GECULLINGCONESKERNELS_H

#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../forward.h"

#include <cstddef>

namespace Zq
{

namespace Detail
{

/// The array forms of GeCullingCones at one level of instructions, as findKernels() gives them.
/// What they answer is documented where the class declares them. Internal: the tests reach each level through it.
struct ZQ_PRIMITIVES_API GeCullingConesKernels
{
    void ( *isBehind )(
        const GeCullingCones* cones, std::size_t count, const GePoint3<float>& eye, unsigned char* verdicts );
    void ( *isInFront )(
        const GeCullingCones* cones, std::size_t count, const GePoint3<float>& eye, unsigned char* verdicts );

    static const GeCullingConesKernels* const byLevel[NB_KERNEL_LEVELS];
};

} // namespace Detail

} // namespace Zq

#endif
