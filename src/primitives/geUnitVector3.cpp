#include "geUnitVector3.h"

#include "geUnitVector3.imp"

namespace Zq
{

template class GeUnitVector3<float>;
template class GeUnitVector3<double>;

} // namespace Zq
