#include "geFrustumKernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../geAlignedBox.h"

#include <limits>

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../primitives/kernels/geFrustumKernels.imp"
#include "../../base/lanes/levels.imp"

} // namespace

template <class T>
const GeFrustumKernels<T>* const GeFrustumKernels<T>::byLevel[] = { ZQ_EACH_LEVEL( table<T> ) };

template struct GeFrustumKernels<float>;
template struct GeFrustumKernels<double>;

template <class T>
int classifyPoint( const FrustumPlanes<T>& planes, const GePoint3<T>& point )
{
    return Baseline::classifyOnePoint( planes, point );
}

template <class T>
int classifyBox( const FrustumPlanes<T>& planes, const GeAlignedBox3<T>& box )
{
    return Baseline::classifyOneBox( planes, box );
}

template int classifyPoint( const FrustumPlanes<float>& planes, const GePoint3<float>& point );
template int classifyPoint( const FrustumPlanes<double>& planes, const GePoint3<double>& point );
template int classifyBox( const FrustumPlanes<float>& planes, const GeAlignedBox3<float>& box );
template int classifyBox( const FrustumPlanes<double>& planes, const GeAlignedBox3<double>& box );

} // namespace Detail

} // namespace Zq
