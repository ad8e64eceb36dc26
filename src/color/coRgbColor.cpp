#include "coRgbColor.h"

#include "coRgbColor.imp"

namespace Zq
{

template class CoRgbColorT<float>;
template class CoRgbColorT<double>;

} // namespace Zq
