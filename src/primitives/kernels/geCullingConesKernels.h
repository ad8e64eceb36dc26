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

/// What the proved answers, of single calls and array forms, allow for the rounding of their terms and squares in double.
/// A term that is positive is at most ( 1 + u )^5 times the exact one when it arrives in its sum, a negative one at least
/// ( 1 - u )^5 times, and a square arrives with at least ( 1 - u )^7; u is 2^-53 and this is 16 u.
constexpr double CONE_SLACK = 0x1p-49;

/// As much again, and much more than that, for the sine of a semi-angle that is off by a unit in the last place of a
/// float: ( 1 + 2^-23 )^2 is 1 + 2^-22 + 2^-46.
constexpr double CONE_SINE_SLACK = 0x1p-22 + 0x1p-40;

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
