#ifndef ZQ_PRIMITIVES_GEPROJECTIVEMATRIX3_H
#define ZQ_PRIMITIVES_GEPROJECTIVEMATRIX3_H

#include "geAffineMatrix3.h"
#include "geHomogeneousCoord3.h"

#include <cstddef>
#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A general 4x4 matrix, for projections; it transforms homogeneous coordinates. For float and double.
///
/// Its sixteen elements are stored by columns, as in GeAffineMatrix3: element (r, c) is value r + 4 c. All of them are
/// free. The conventions on products and element names, the text form and the meaning of singular are those of
/// GeLinearMatrix3; the decomposition is the same, with four rows.
template <class T>
class ZQ_PRIMITIVES_API GeProjectiveMatrix3
{
public:
    /// @name Construction
    /// @{

    /// The identity.
    GeProjectiveMatrix3();
    /// From a 4x4 array, each element converted to T. byColumns false: elements[r][c] becomes element (r, c).
    /// byColumns true: elements[c][r] becomes element (r, c), a plain copy of the storage order.
    GeProjectiveMatrix3( const float ( *elements )[4], bool byColumns );
    /// The same from double.
    GeProjectiveMatrix3( const double ( *elements )[4], bool byColumns );
    /// The upper-left block; the rest is that of the identity.
    explicit GeProjectiveMatrix3( const GeLinearMatrix3<T>& linear );
    /// The upper three rows; the bottom row is (0, 0, 0, 1).
    explicit GeProjectiveMatrix3( const GeAffineMatrix3<T>& affine );

    /// Becomes the identity.
    void setIdentity();
    /// @}

    /// @name Access
    /// One element, to be read or assigned: rows and columns 0 to 3, any other index is undefined.
    /// @{
    T operator()( int row, int column ) const;
    T& operator()( int row, int column );
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: element by element; -0 equals 0, NaN equals nothing. != is the exact
    /// negation of ==.
    /// @{
    bool operator==( const GeProjectiveMatrix3<T>& other ) const;
    bool operator!=( const GeProjectiveMatrix3<T>& other ) const;
    bool isEqualExact( const GeProjectiveMatrix3<T>& other ) const;
    /// Each element within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const GeProjectiveMatrix3<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// This times the operand, which acts first, and mulOnRight(), the operand times this, which * says, too. What a
    /// linear or affine matrix lacks to four rows and columns is left out of the sums, not multiplied; a rotation is a
    /// linear matrix. The assigning forms put the product in place of this matrix.
    /// @{
    GeProjectiveMatrix3<T> operator*( const GeLinearMatrix3<T>& b ) const;
    GeProjectiveMatrix3<T>& operator*=( const GeLinearMatrix3<T>& b );
    GeProjectiveMatrix3<T> operator*( const GeAffineMatrix3<T>& b ) const;
    GeProjectiveMatrix3<T>& operator*=( const GeAffineMatrix3<T>& b );
    GeProjectiveMatrix3<T> operator*( const GeProjectiveMatrix3<T>& b ) const;
    GeProjectiveMatrix3<T>& operator*=( const GeProjectiveMatrix3<T>& b );
    GeHomogeneousCoord3<T> operator*( const GeHomogeneousCoord3<T>& h ) const;
    /// The direction (x, y, z, 0) transformed: column 3 is not used.
    GeHomogeneousCoord3<T> operator*( const GeVector3<T>& v ) const;
    /// The point (x, y, z, 1) transformed: column 3 is added, not multiplied. Nothing is divided by w.
    GeHomogeneousCoord3<T> operator*( const GePoint3<T>& p ) const;
    GeProjectiveMatrix3<T> mulOnRight( const GeLinearMatrix3<T>& m ) const;
    GeProjectiveMatrix3<T> mulOnRight( const GeAffineMatrix3<T>& m ) const;
    friend GeProjectiveMatrix3<T> operator*( const GeLinearMatrix3<T>& m, const GeProjectiveMatrix3<T>& p )
    {
        return p.mulOnRight( m );
    }
    friend GeProjectiveMatrix3<T> operator*( const GeAffineMatrix3<T>& m, const GeProjectiveMatrix3<T>& p )
    {
        return p.mulOnRight( m );
    }
    /// The row h times this, which is the transpose of this times h.
    GeHomogeneousCoord3<T> mulOnRight( const GeHomogeneousCoord3<T>& h ) const;
    /// @}

    /// @name Array forms
    /// What operator* does to one element, and faster: results[i] is this times element i. Any count, also 0; no
    /// alignment is asked for. The results may replace the coordinates, but not overlap the input otherwise. Of several
    /// NaN, any one may be passed on.
    /// @{
    void transform( const GeHomogeneousCoord3<T>* coords, std::size_t count, GeHomogeneousCoord3<T>* results ) const;
    void transform( const GeVector3<T>* vectors, std::size_t count, GeHomogeneousCoord3<T>* results ) const;
    /// @}

    /// @name Queries
    /// @{

    /// From the decomposition, not from cofactors: 0 when the matrix is singular in the sense of the decomposition.
    T computeDeterminant() const;
    /// Element (r, c) goes to (c, r).
    GeProjectiveMatrix3<T> computeTranspose() const;
    /// The transpose of the full 4x4 form: the translation lands in the bottom row.
    static GeProjectiveMatrix3<T> computeTranspose( const GeAffineMatrix3<T>& a );
    /// The matrix of plain minors: element (r, c) is the determinant of what remains without row r and column c. No
    /// sign (-1)^(r + c) is applied, unlike GeLinearMatrix3::computeAdjoint(), and the result is not transposed.
    GeProjectiveMatrix3<T> computeAdjoint() const;
    /// The same of the full 4x4 form.
    static GeProjectiveMatrix3<T> computeAdjoint( const GeAffineMatrix3<T>& a );
    /// Reports "nonSingular" (src/base/matrix4x4Imp, line 175) for a singular matrix.
    GeProjectiveMatrix3<T> computeInverse() const;
    /// Inverse and determinant from one decomposition; `inverse` may be this matrix. A singular matrix leaves both
    /// outputs as they were, without a report: give `determinant` the value 0 beforehand to tell.
    void computeInverseAndDeterminant( GeProjectiveMatrix3<T>& inverse, T& determinant ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form, four lines.
    std::ostream& dump( std::ostream& os ) const;
    /// @}

private:
    GeHomogeneousCoord3<T> getColumn( int column ) const;
    void setColumn( int column, const GeHomogeneousCoord3<T>& h );

    T _m[16];
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeProjectiveMatrix3<T>& m );

} // namespace Zq

#include "geProjectiveMatrix3.inline"

namespace Zq
{

extern template class GeProjectiveMatrix3<float>;
extern template class GeProjectiveMatrix3<double>;

static_assert( sizeof( GeProjectiveMatrix3<float> ) == 16 * sizeof( float ) &&
    std::is_trivially_copyable_v<GeProjectiveMatrix3<float>> );
static_assert( sizeof( GeProjectiveMatrix3<double> ) == 16 * sizeof( double ) &&
    std::is_trivially_copyable_v<GeProjectiveMatrix3<double>> );

} // namespace Zq

#endif
