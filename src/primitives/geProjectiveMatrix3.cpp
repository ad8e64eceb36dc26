#include "geProjectiveMatrix3.h"

#include "geProjectiveMatrix3.imp"

namespace Zq
{

template class GeProjectiveMatrix3<float>;
template class GeProjectiveMatrix3<double>;

} // namespace Zq
