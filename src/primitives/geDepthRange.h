#ifndef ZQ_PRIMITIVES_GEDEPTHRANGE_H
#define ZQ_PRIMITIVES_GEDEPTHRANGE_H

namespace Zq
{

/// What a projection does to depth, as the API that draws with it expects: which z / w the near and the far plane get.
/// docs/cameras.md says which API takes which.
enum class GeDepthRange
{
    MINUS_ONE_TO_ONE, ///< near -1, far 1
    ZERO_TO_ONE,      ///< near 0, far 1
    ONE_TO_ZERO       ///< near 1, far 0: reversed
};

} // namespace Zq

#endif
