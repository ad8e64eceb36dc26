#ifndef ZQ_PRIMITIVES_KERNELS_KERNELS_H
#define ZQ_PRIMITIVES_KERNELS_KERNELS_H

#include "../../base/interval.h"
#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../forward.h"

#include <cstddef>
#include <cstdint>

namespace Zq
{

/// The array operations as the classes call them, one set for each level of instructions. Internal: neither installed
/// nor meant for clients; the tests reach each level through it.
///
/// What they answer is documented where the classes declare them. The planes of a frustum come by component: x, y and z
/// of the normals and the offsets, six of each. The bounds of a box are x.min, x.max, y.min, ... z.max.
namespace Detail
{

template <class T>
using FrustumPlanes = T[4][6];

/// A point is inside a plane down to this value, in both scalars.
inline constexpr float FRUSTUM_THRESHOLD = -0.0001F;

template <class T>
struct GeKernels
{
    void ( *classifyPoints )(
        const FrustumPlanes<T>& planes, const GePoint3<T>* points, std::size_t count, unsigned char* verdicts );
    void ( *classifyBoxes )(
        const FrustumPlanes<T>& planes, const GeAlignedBox3<T>* boxes, std::size_t count, unsigned char* verdicts );
    std::size_t ( *findNotOutside )(
        const FrustumPlanes<T>& planes, const GeAlignedBox3<T>* boxes, std::size_t count, std::uint32_t* indices );

    void ( *extend )( T ( &bounds )[6], const GePoint3<T>* points, std::size_t count );
    void ( *classify )(
        const GeAlignedBox3<T>& box, const GeAlignedBox3<T>* others, std::size_t count, unsigned char* verdicts );
    void ( *classifyExclude )(
        const GeAlignedBox3<T>& box, const GeAlignedBox3<T>* others, std::size_t count, unsigned char* verdicts );
    void ( *intersectLine )( const GeAlignedBox3<T>* boxes, std::size_t count, const GePoint3<T>& origin,
        const GeVector3<T>& direction, Interval<T>* ranges );

    // matrices by columns of four
    void ( *transformPoints )( const T* columns, const GePoint3<T>* points, std::size_t count, GePoint3<T>* results );
    void ( *transformVectors )(
        const T* columns, const GeVector3<T>* vectors, std::size_t count, GeVector3<T>* results );
    void ( *transformCoords )(
        const T* columns, const GeHomogeneousCoord3<T>* coords, std::size_t count, GeHomogeneousCoord3<T>* results );
    void ( *projectVectors )(
        const T* columns, const GeVector3<T>* vectors, std::size_t count, GeHomogeneousCoord3<T>* results );
};

/// What exists in single precision only.
struct GeSingleKernels
{
    void ( *isBehind )(
        const GeCullingCones* cones, std::size_t count, const GePoint3<float>& eye, unsigned char* verdicts );
    void ( *isInFront )(
        const GeCullingCones* cones, std::size_t count, const GePoint3<float>& eye, unsigned char* verdicts );
    void ( *overlaps )(
        const GeShaft& shaft, const GeAlignedBox3<float>* boxes, std::size_t count, unsigned char* verdicts );
    void ( *overlapsExclude )(
        const GeShaft& shaft, const GeAlignedBox3<float>* boxes, std::size_t count, unsigned char* verdicts );
};

/// The kernels of a level; null where this processor, or what the compiler could make, does not go so far.
template <class T>
ZQ_PRIMITIVES_API const GeKernels<T>* findGeKernels( KernelLevel level );
ZQ_PRIMITIVES_API const GeSingleKernels* findGeSingleKernels( KernelLevel level );

/// The kernels of the highest level there is.
template <class T>
const GeKernels<T>& getGeKernels();
const GeSingleKernels& getGeSingleKernels();

/// One point or box against the planes; the lanes are planes here, and there are no jumps that depend on the data.
template <class T>
int classifyPoint( const FrustumPlanes<T>& planes, const GePoint3<T>& point );
template <class T>
int classifyBox( const FrustumPlanes<T>& planes, const GeAlignedBox3<T>& box );

} // namespace Detail

} // namespace Zq

#endif
