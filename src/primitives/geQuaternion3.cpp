#include "geQuaternion3.h"

#include "geQuaternion3.imp"

namespace Zq
{

template class GeQuaternion3<float>;
template class GeQuaternion3<double>;

} // namespace Zq
