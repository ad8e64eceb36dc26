#ifndef ZQ_PRIMITIVES_KERNELS_GEVIEWVOLUMEKERNELS_H
#define ZQ_PRIMITIVES_KERNELS_GEVIEWVOLUMEKERNELS_H

#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../geViewVolume.h"

#include <cstddef>
#include <cstdint>

namespace Zq
{

namespace Detail
{

/// A plane of a view volume, and which bound of each axis makes the corner where its value is smallest.
template <class T>
struct VolumePlane
{
    T x, y, z, d;
    T errorSlope, errorConstant, length;
    int nearX, nearY, nearZ; // fields of a box; the opposite bound differs in the lowest bit
};

template <class T>
struct VolumePlanes
{
    int ends[3]; // of those that bound all there is, of those of the first view of two alone, of those of the second
    VolumePlane<T> planes[GeViewVolume<T>::NB_MAX_PLANES];
};

/// The array forms of GeViewVolume at one level of instructions, as findKernels() gives them.
/// What they answer is documented where the class declares them. Internal: the tests reach each level through it.
template <class T>
struct ZQ_PRIMITIVES_API GeViewVolumeKernels
{
    void ( *classifyPoints )(
        const VolumePlanes<T>& volume, const GePoint3<T>* points, std::size_t count, unsigned char* verdicts );
    void ( *classifySpheres )(
        const VolumePlanes<T>& volume, const GeSphere3<T>* spheres, std::size_t count, unsigned char* verdicts );
    void ( *classifyBoxes )(
        const VolumePlanes<T>& volume, const GeAlignedBox3<T>* boxes, std::size_t count, unsigned char* verdicts );
    /// What findSeparatingPlane() answers, 0xFF for -1.
    void ( *findSeparatingPlanes )(
        const VolumePlanes<T>& volume, const GeAlignedBox3<T>* boxes, std::size_t count, unsigned char* planes );

    static const GeViewVolumeKernels* const byLevel[NB_KERNEL_LEVELS];
};

extern template struct GeViewVolumeKernels<float>;
extern template struct GeViewVolumeKernels<double>;

} // namespace Detail

} // namespace Zq

#endif
