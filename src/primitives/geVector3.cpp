#include "geVector3.h"

#include "geVector3.imp"

namespace Zq
{

template class GeVector3<float>;
template class GeVector3<double>;

} // namespace Zq
