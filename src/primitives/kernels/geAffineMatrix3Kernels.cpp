#include "geAffineMatrix3Kernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../geAffineMatrix3.h"

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../primitives/kernels/geAffineMatrix3Kernels.imp"
#include "../../base/lanes/levels.imp"

} // namespace

template <class T>
const GeAffineMatrix3Kernels<T>* const GeAffineMatrix3Kernels<T>::byLevel[] = { ZQ_EACH_LEVEL( table<T> ) };

template struct GeAffineMatrix3Kernels<float>;
template struct GeAffineMatrix3Kernels<double>;

} // namespace Detail

} // namespace Zq
