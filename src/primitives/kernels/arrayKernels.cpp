#include "kernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../geAlignedBox.h"
#include "../geCullingCones.h"
#include "../geFrustum.h"
#include "../geHomogeneousCoord3.h"
#include "../geShaft.h"

#include <limits>

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../primitives/kernels/arrayKernels.imp"
#include "../../base/lanes/levels.imp"
#undef ZQ_KERNELS

#if ZQ_HAS_SIMD128
namespace Single = Simd128;
#else
namespace Single = Portable;
#endif

template <class T>
constexpr KernelSets<GeKernels<T>> geKernelSets = { { ZQ_EACH_LEVEL( geKernels<T> ) } };

constexpr KernelSets<GeSingleKernels> geSingleKernelSets = { { ZQ_EACH_LEVEL( geSingleKernels ) } };

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
