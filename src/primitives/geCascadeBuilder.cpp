#include "geCascadeBuilder.h"

#include "geCascadeBuilder.imp"

namespace Zq
{

template class GeCascadeBuilder<float>;
template class GeCascadeBuilder<double>;

} // namespace Zq
