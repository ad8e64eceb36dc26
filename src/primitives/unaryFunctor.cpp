#include "unaryFunctor.h"

#include "geVector3.h"

namespace Zq
{

template class UnaryFunctor<GePoint3<float>, bool>;
template class UnaryFunctor<GePoint3<double>, bool>;
template class UnaryFunctor<GeUnitVector3<float>, void>;
template class UnaryFunctor<GeVector3<float>, void>;

} // namespace Zq
