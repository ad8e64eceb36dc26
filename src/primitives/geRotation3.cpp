#include "geRotation3.h"

#include "geRotation3.imp"

namespace Zq
{

template class GeRotation3<float>;
template class GeRotation3<double>;

// the member of GeAffineMatrix3 that names what stands above it
template GeAffineMatrix3<float>::GeAffineMatrix3(
    const GeTranslation3<float>&, const GeRotation3<float>&, const GeScale3<float>& );
template GeAffineMatrix3<double>::GeAffineMatrix3(
    const GeTranslation3<double>&, const GeRotation3<double>&, const GeScale3<double>& );

} // namespace Zq
