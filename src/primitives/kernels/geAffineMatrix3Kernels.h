#ifndef ZQ_PRIMITIVES_KERNELS_GEAFFINEMATRIX3KERNELS_H
#define ZQ_PRIMITIVES_KERNELS_GEAFFINEMATRIX3KERNELS_H

#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../forward.h"

#include <cstddef>

namespace Zq
{

namespace Detail
{

/// The array forms of GeAffineMatrix3 at one level of instructions, as findKernels() gives them.
/// What they answer is documented where the class declares them. Internal: the tests reach each level through it.
///
/// The matrix comes by columns of four.
template <class T>
struct ZQ_PRIMITIVES_API GeAffineMatrix3Kernels
{
    void ( *transformPoints )( const T* columns, const GePoint3<T>* points, std::size_t count, GePoint3<T>* results );
    void ( *transformVectors )(
        const T* columns, const GeVector3<T>* vectors, std::size_t count, GeVector3<T>* results );

    static const GeAffineMatrix3Kernels* const byLevel[NB_KERNEL_LEVELS];
};

extern template struct GeAffineMatrix3Kernels<float>;
extern template struct GeAffineMatrix3Kernels<double>;

} // namespace Detail

} // namespace Zq

#endif
