#include "coSpectrum.h"

#include "coSpectrum.imp"

namespace Zq
{

template class CoSpectrumT<float>;
template class CoSpectrumT<double>;

} // namespace Zq
