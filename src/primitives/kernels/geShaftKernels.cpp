#include "geShaftKernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../geShaft.h"

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../primitives/kernels/geShaftKernels.imp"
#include "../../base/lanes/levels.imp"

} // namespace

const GeShaftKernels* const GeShaftKernels::byLevel[] = { ZQ_EACH_LEVEL( table ) };

} // namespace Detail

} // namespace Zq
