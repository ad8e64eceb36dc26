#include "geCullingConesKernels.h"

#include "../../base/lanes/laneTargets.h"
#include "../geCullingCones.h"

#include <algorithm>

namespace Zq
{

namespace Detail
{

namespace
{

#define ZQ_KERNELS "../../primitives/kernels/geCullingConesKernels.imp"
#include "../../base/lanes/levels.imp"

} // namespace

const GeCullingConesKernels* const GeCullingConesKernels::byLevel[] = { ZQ_EACH_LEVEL( table ) };

} // namespace Detail

} // namespace Zq
