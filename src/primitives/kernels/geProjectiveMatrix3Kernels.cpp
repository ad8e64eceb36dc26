#include "geProjectiveMatrix3Kernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../geHomogeneousCoord3.h"
#include "../geProjectiveMatrix3.h"

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../primitives/kernels/geProjectiveMatrix3Kernels.imp"
#include "../../base/lanes/levels.imp"

} // namespace

template <class T>
const GeProjectiveMatrix3Kernels<T>* const GeProjectiveMatrix3Kernels<T>::byLevel[] = { ZQ_EACH_LEVEL( table<T> ) };

template struct GeProjectiveMatrix3Kernels<float>;
template struct GeProjectiveMatrix3Kernels<double>;

} // namespace Detail

} // namespace Zq
