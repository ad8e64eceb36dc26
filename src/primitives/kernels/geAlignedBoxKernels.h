#ifndef ZQ_PRIMITIVES_KERNELS_GEALIGNEDBOXKERNELS_H
#define ZQ_PRIMITIVES_KERNELS_GEALIGNEDBOXKERNELS_H

#include "../../base/interval.h"
#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../forward.h"

#include <cstddef>

namespace Zq
{

namespace Detail
{

/// The array forms of GeAlignedBox3 at one level of instructions, as findKernels() gives them.
/// What they answer is documented where the class declares them. Internal: the tests reach each level through it.
///
/// Bounds are x.min, x.max, y.min, ... z.max.
template <class T>
struct ZQ_PRIMITIVES_API GeAlignedBoxKernels
{
    void ( *extend )( T ( &bounds )[6], const GePoint3<T>* points, std::size_t count );
    void ( *classify )(
        const GeAlignedBox3<T>& box, const GeAlignedBox3<T>* others, std::size_t count, unsigned char* verdicts );
    void ( *classifyExclude )(
        const GeAlignedBox3<T>& box, const GeAlignedBox3<T>* others, std::size_t count, unsigned char* verdicts );
    void ( *intersectLine )( const GeAlignedBox3<T>* boxes, std::size_t count, const GePoint3<T>& origin,
        const GeVector3<T>& direction, Interval<T>* ranges );

    static const GeAlignedBoxKernels* const byLevel[NB_KERNEL_LEVELS];
};

extern template struct GeAlignedBoxKernels<float>;
extern template struct GeAlignedBoxKernels<double>;

} // namespace Detail

} // namespace Zq

#endif
