#ifndef ZQ_PRIMITIVES_KERNELS_GEPROJECTIVEMATRIX3KERNELS_H
#define ZQ_PRIMITIVES_KERNELS_GEPROJECTIVEMATRIX3KERNELS_H

#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../forward.h"

#include <cstddef>

namespace Zq
{

namespace Detail
{

/// The array forms of GeProjectiveMatrix3 at one level of instructions, as findKernels() gives them.
/// What they answer is documented where the class declares them. Internal: the tests reach each level through it.
///
/// The matrix comes by columns of four.
template <class T>
struct ZQ_PRIMITIVES_API GeProjectiveMatrix3Kernels
{
    void ( *transformCoords )(
        const T* columns, const GeHomogeneousCoord3<T>* coords, std::size_t count, GeHomogeneousCoord3<T>* results );
    void ( *projectVectors )(
        const T* columns, const GeVector3<T>* vectors, std::size_t count, GeHomogeneousCoord3<T>* results );

    static const GeProjectiveMatrix3Kernels* const byLevel[NB_KERNEL_LEVELS];
};

extern template struct GeProjectiveMatrix3Kernels<float>;
extern template struct GeProjectiveMatrix3Kernels<double>;

} // namespace Detail

} // namespace Zq

#endif
