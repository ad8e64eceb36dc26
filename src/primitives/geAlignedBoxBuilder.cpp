#include "geAlignedBoxBuilder.h"

namespace Zq
{

GeAlignedBoxBuilder::~GeAlignedBoxBuilder() = default;

} // namespace Zq
