#include "geSphere3.h"

#include "geSphere3.imp"

namespace Zq
{

template class GeSphere3<float>;
template class GeSphere3<double>;

} // namespace Zq
