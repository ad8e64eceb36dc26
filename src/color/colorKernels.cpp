#include "kernels.h"

#include "../base/laneTargets.h"
#include "coHsvColor.h"

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
#include "colorKernels.imp"
#undef ZQ_LANE_BYTES

} // namespace Portable

#if ZQ_HAS_SIMD128

namespace Simd128
{

#    define ZQ_LANE_BYTES 16
#    include "../base/lanes.imp"
#    include "colorKernels.imp"
#    undef ZQ_LANE_BYTES

} // namespace Simd128

#endif

#if ZQ_HAS_AVX

ZQ_TARGET_BEGIN( ZQ_AVX2_FEATURES )
namespace Avx2
{

#    define ZQ_LANE_BYTES 32
#    include "../base/lanes.imp"
#    include "colorKernels.imp"
#    undef ZQ_LANE_BYTES

} // namespace Avx2
ZQ_TARGET_END

ZQ_TARGET_BEGIN( ZQ_AVX512_FEATURES )
namespace Avx512
{

#    define ZQ_LANE_BYTES 64
#    include "../base/lanes.imp"
#    include "colorKernels.imp"
#    undef ZQ_LANE_BYTES

} // namespace Avx512
ZQ_TARGET_END

#endif

template <class T>
constexpr KernelSets<CoKernels<T>> coKernelSets = { {
    &Portable::coKernels<T>,
#if ZQ_HAS_SIMD128
    &Simd128::coKernels<T>,
#endif
#if ZQ_HAS_AVX
    &Avx2::coKernels<T>,
    &Avx512::coKernels<T>,
#endif
} };

} // namespace

template <class T>
const CoKernels<T>* findCoKernels( KernelLevel level )
{
    return coKernelSets<T>.find( level );
}

template <class T>
const CoKernels<T>& getCoKernels()
{
    return coKernelSets<T>.getBest();
}

template ZQ_COLOR_API const CoKernels<float>* findCoKernels( KernelLevel level );
template ZQ_COLOR_API const CoKernels<double>* findCoKernels( KernelLevel level );
template const CoKernels<float>& getCoKernels();
template const CoKernels<double>& getCoKernels();

} // namespace Detail

} // namespace Zq
