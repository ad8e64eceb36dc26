#include "geUnitVector2.h"

#include "geUnitVector2.imp"

namespace Zq
{

template class GeUnitVector2<float>;
template class GeUnitVector2<double>;

} // namespace Zq
