#include "geAffineMatrix3.h"

#include "geAffineMatrix3.imp"

namespace Zq
{

template class GeAffineMatrix3<float>;
template class GeAffineMatrix3<double>;

} // namespace Zq
