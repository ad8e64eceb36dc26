#include "kernels.h"

#include "../base/laneTargets.h"
#include "geAlignedBox.h"
#include "geCullingCones.h"
#include "geFrustum.h"
#include "geHomogeneousCoord3.h"
#include "geShaft.h"

#include <limits>

namespace Zq
{

namespace Detail
{

namespace
{

namespace Portable
{

#define ZQ_LANE_BYTES 0
#include "../base/lanes.imp"
#include "arrayKernels.imp"
#undef ZQ_LANE_BYTES

} // namespace Portable

#if ZQ_HAS_SIMD128

namespace Simd128
{

#    define ZQ_LANE_BYTES 16
#    include "../base/lanes.imp"
#    include "arrayKernels.imp"
#    undef ZQ_LANE_BYTES

} // namespace Simd128

namespace Single = Simd128;

#else

namespace Single = Portable;

#endif

#if ZQ_HAS_AVX

ZQ_TARGET_BEGIN( ZQ_AVX2_FEATURES )
namespace Avx2
{

#    define ZQ_LANE_BYTES 32
#    include "../base/lanes.imp"
#    include "arrayKernels.imp"
#    undef ZQ_LANE_BYTES

} // namespace Avx2
ZQ_TARGET_END

ZQ_TARGET_BEGIN( ZQ_AVX512_FEATURES )
namespace Avx512
{

#    define ZQ_LANE_BYTES 64
#    include "../base/lanes.imp"
#    include "arrayKernels.imp"
#    undef ZQ_LANE_BYTES

} // namespace Avx512
ZQ_TARGET_END

#endif

template <class T>
constexpr KernelSets<GeKernels<T>> geKernelSets = { {
    &Portable::geKernels<T>,
#if ZQ_HAS_SIMD128
    &Simd128::geKernels<T>,
#endif
#if ZQ_HAS_AVX
    &Avx2::geKernels<T>,
    &Avx512::geKernels<T>,
#endif
} };

constexpr KernelSets<GeSingleKernels> geSingleKernelSets = { {
    &Portable::geSingleKernels,
#if ZQ_HAS_SIMD128
    &Simd128::geSingleKernels,
#endif
#if ZQ_HAS_AVX
    &Avx2::geSingleKernels,
    &Avx512::geSingleKernels,
#endif
} };

} // namespace

template <class T>
const GeKernels<T>* findGeKernels( KernelLevel level )
{
    return geKernelSets<T>.find( level );
}

const GeSingleKernels* findGeSingleKernels( KernelLevel level )
{
    return geSingleKernelSets.find( level );
}

template <class T>
const GeKernels<T>& getGeKernels()
{
    return geKernelSets<T>.getBest();
}

const GeSingleKernels& getGeSingleKernels()
{
    return geSingleKernelSets.getBest();
}

template <class T>
int classifyPoint( const FrustumPlanes<T>& planes, const GePoint3<T>& point )
{
    return Single::classifyOnePoint( planes, point );
}

template <class T>
int classifyBox( const FrustumPlanes<T>& planes, const GeAlignedBox3<T>& box )
{
    return Single::classifyOneBox( planes, box );
}

template ZQ_PRIMITIVES_API const GeKernels<float>* findGeKernels( KernelLevel level );
template ZQ_PRIMITIVES_API const GeKernels<double>* findGeKernels( KernelLevel level );
template const GeKernels<float>& getGeKernels();
template const GeKernels<double>& getGeKernels();
template int classifyPoint( const FrustumPlanes<float>& planes, const GePoint3<float>& point );
template int classifyPoint( const FrustumPlanes<double>& planes, const GePoint3<double>& point );
template int classifyBox( const FrustumPlanes<float>& planes, const GeAlignedBox3<float>& box );
template int classifyBox( const FrustumPlanes<double>& planes, const GeAlignedBox3<double>& box );

} // namespace Detail

} // namespace Zq
