#include "coHsvColor.h"

#include "coHsvColor.imp"

namespace Zq
{

template class CoHsvColorT<float>;
template class CoHsvColorT<double>;

} // namespace Zq
