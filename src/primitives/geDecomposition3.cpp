#include "geDecomposition3.h"

#include "geDecomposition3.imp"

namespace Zq
{

template class GeDecomposition3<float>;
template class GeDecomposition3<double>;

// the member of GeAffineMatrix3 that names what stands above it
template GeDecomposition3<float> GeAffineMatrix3<float>::computeDecomposition() const;
template GeDecomposition3<double> GeAffineMatrix3<double>::computeDecomposition() const;

} // namespace Zq
