#include "geTranslation3.h"

#include "geScale3.h"
#include "geTranslation3.imp"

namespace Zq
{

template class GeTranslation3<float>;
template class GeTranslation3<double>;

} // namespace Zq
