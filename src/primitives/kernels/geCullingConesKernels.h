#ifndef ZQ_PRIMITIVES_KERNELS_GECULLINGCONESKERNELS_H
#define ZQ_PRIMITIVES_KERNELS_GECULLINGCONESKERNELS_H

#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../forward.h"
#include "../geAlignedBox.h"

#include <cstddef>
#include <limits>

namespace Zq
{

namespace Detail
{

/// What is taken off the terms of an inner product: 16 u, where u is 2^-53. Their own roundings in double need 5 u of it,
/// those of the squares that the product is compared with 4 u. docs/culling.md has the proof.
constexpr double CONE_SLACK = 0x1p-49;

/// The square of 1 + 2^-23, for a sine that is off by a unit in the last place of a float.
constexpr double CONE_SINE_FACTOR = 1 + 0x1p-22 + 0x1p-46;

/// Whether a box is a region of eyes to prove something about: finite, and not inverted on any axis.
inline bool isEyeRegion( const GeAlignedBox3<float>& box )
{
    constexpr float LARGEST = ( std::numeric_limits<float>::max )();
    bool answer = true;
    for ( int axis = 0; axis < 3; ++axis )
    {
        const Interval<float> interval = box.getInterval( axis );
        answer = answer && -LARGEST <= interval.min && interval.min <= interval.max && interval.max <= LARGEST;
    }
    return answer;
}

/// The array forms of GeCullingCones at one level of instructions, as findKernels() gives them.
/// What they answer is documented where the class declares them. Internal: the tests reach each level through it.
struct ZQ_PRIMITIVES_API GeCullingConesKernels
{
    void ( *isBehind )(
        const GeCullingCones* cones, std::size_t count, const GePoint3<float>& eye, unsigned char* verdicts );
    void ( *isBehindBox )(
        const GeCullingCones* cones, std::size_t count, const GeAlignedBox3<float>& eyes, unsigned char* verdicts );
    void ( *isBehindDirection )(
        const GeCullingCones* cones, std::size_t count, const GeVector3<float>& direction, unsigned char* verdicts );
    void ( *isInFront )(
        const GeCullingCones* cones, std::size_t count, const GePoint3<float>& eye, unsigned char* verdicts );

    static const GeCullingConesKernels* const byLevel[NB_KERNEL_LEVELS];
};

} // namespace Detail

} // namespace Zq

#endif
