#ifndef ZQ_PRIMITIVES_KERNELS_GEFRUSTUMKERNELS_H
#define ZQ_PRIMITIVES_KERNELS_GEFRUSTUMKERNELS_H

#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../geFrustum.h"

#include <cstddef>
#include <cstdint>

namespace Zq
{

namespace Detail
{

/// The planes by component: x, y and z of the normals and the offsets, one of each for every plane.
template <class T>
using FrustumPlanes = T[4][GeFrustum<T>::NB_PLANES];

/// The array forms of GeFrustum at one level of instructions, as findKernels() gives them.
/// What they answer is documented where the class declares them. Internal: the tests reach each level through it.
template <class T>
struct ZQ_PRIMITIVES_API GeFrustumKernels
{
    void ( *classifyPoints )(
        const FrustumPlanes<T>& planes, const GePoint3<T>* points, std::size_t count, unsigned char* verdicts );
    void ( *classifyBoxes )(
        const FrustumPlanes<T>& planes, const GeAlignedBox3<T>* boxes, std::size_t count, unsigned char* verdicts );
    std::size_t ( *findNotOutside )(
        const FrustumPlanes<T>& planes, const GeAlignedBox3<T>* boxes, std::size_t count, std::uint32_t* indices );

    static const GeFrustumKernels* const byLevel[NB_KERNEL_LEVELS];
};

extern template struct GeFrustumKernels<float>;
extern template struct GeFrustumKernels<double>;

/// One point or box against the planes; the lanes are planes here, and there are no jumps that depend on the data.
template <class T>
int classifyPoint( const FrustumPlanes<T>& planes, const GePoint3<T>& point );
template <class T>
int classifyBox( const FrustumPlanes<T>& planes, const GeAlignedBox3<T>& box );

} // namespace Detail

} // namespace Zq

#endif
