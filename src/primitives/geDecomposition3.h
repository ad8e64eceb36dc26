#ifndef ZQ_PRIMITIVES_GEDECOMPOSITION3_H
#define ZQ_PRIMITIVES_GEDECOMPOSITION3_H

#include "geRotation3.h"
#include "geScale3.h"
#include "geTranslation3.h"

#include <type_traits>

namespace Zq
{

/// The parts of an affine matrix M with the linear block L. For float and double.
///
///     M = translation * rotation * stretch
///
/// The stretch is a symmetric matrix: it scales along three perpendicular axes. Its diagonal is the scale; what stands
/// beside it is the shear, which is 0 when the axes of the stretch are those of space, as for a product of translation,
/// rotation and scale. This is the polar decomposition of L, which depends on no choice of axes: of all rotations, this
/// one is the nearest to L in the sum of the squared differences of elements.
///
/// A reflection, a matrix whose determinant is negative, has the rotation nearest to -L and a stretch that scales by
/// negative factors only: the product above holds as it stands. So diag(1, 1, -1) is half a turn about z times
/// diag(-1, -1, -1), and of the scales (1, -1, -1) half a turn about x remains, with the scale (1, 1, 1): signs of a
/// scale do not come back by themselves.
///
/// Every matrix has its parts, a singular one, too. For L of rank 1 or 0 several rotations are equally near, and some one
/// of them is taken; the rotation of L = 0 is the identity. The rotation is that of the largest eigenvector of a symmetric
/// 4x4 matrix, after N. Higham and V. Noferini, An algorithm to compute the polar decomposition of a 3x3 matrix, 2016,
/// here by C. Jacobi's rotations, in double for both twins. The rotation is orthonormal but for rounding whatever L is, and
/// the product of the parts differs from L by rounding of its largest element; docs/numerics.md has the measurements.
template <class T>
class ZQ_PRIMITIVES_API GeDecomposition3
{
public:
    /// @name Construction
    /// @{

    /// The parts of a matrix of any size; a stretch that T cannot hold becomes infinite. Reports "isFinite( matrix )" for
    /// an element that is NaN or infinite.
    explicit GeDecomposition3( const GeAffineMatrix3<T>& matrix );
    /// @}

    /// @name Access
    /// @{

    /// Column 3 of the matrix, as it is.
    const GeTranslation3<T>& getTranslation() const;
    /// The rotation, right-handed also for a reflection.
    const GeRotation3<T>& getRotation() const;
    /// The diagonal of the stretch: no factor is negative, or none is positive for a reflection, but for rounding.
    const GeScale3<T>& getScale() const;
    /// Elements (1, 2), (0, 2) and (0, 1) of the stretch, which are those of (2, 1), (2, 0) and (1, 0): in the planes at
    /// right angles to x, y and z.
    const GeVector3<T>& getShear() const;
    /// Scale and shear in one symmetric matrix.
    GeLinearMatrix3<T> getStretch() const;
    /// Whether the determinant is negative, as it is computed in double.
    bool isReflection() const;
    /// @}

private:
    GeTranslation3<T> _translation;
    GeRotation3<T> _rotation;
    GeScale3<T> _scale;
    GeVector3<T> _shear;
    bool _isReflection;
};

} // namespace Zq

#include "geDecomposition3.inline"

namespace Zq
{

extern template class GeDecomposition3<float>;
extern template class GeDecomposition3<double>;

static_assert( std::is_trivially_copyable_v<GeDecomposition3<float>> );
static_assert( std::is_trivially_copyable_v<GeDecomposition3<double>> );

} // namespace Zq

#endif
