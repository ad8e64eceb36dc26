#include "geBezier3FaceBuilder.h"

namespace Zq
{

template class GeBezier3FaceBuilder<float>;
template class GeBezier3FaceBuilder<double>;

} // namespace Zq
