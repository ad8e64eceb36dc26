#ifndef ZQ_PRIMITIVES_GELINEARMATRIX3_H
#define ZQ_PRIMITIVES_GELINEARMATRIX3_H

#include "geVector3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A linear map of 3D space: nine elements and nothing else. For float and double.
///
/// Conventions of all matrices of the library:
/// - Element (r, c) is row r, column c of the mathematical matrix, counted from 0, whatever the storage order.
/// - A matrix transforms a column vector on its right: M * v. In A * B, B acts first.
/// - M.mulOnRight( x ) is x * M, the operand on the other side; for a vector that is the row vector x times M.
/// - Sums of products run over ascending indices, from left to right, in T.
///
/// A linear matrix is stored by rows: element (r, c) is value 3 r + c. The other matrices are stored by columns.
///
/// Inverses come from an LU decomposition with scaled partial pivoting. A matrix is singular when the largest magnitude
/// of a row, or a pivot, equals 0 within the default tolerance of FloatUtil::isEqual (float 1e-6, double 1e-7). That is
/// an absolute measure: a float matrix whose elements are all below 1e-6 is singular however well conditioned it is. A
/// matrix with NaN or infinity is either singular or has them in its inverse.
///
/// Text form: one line per row, "| 1 0 0 |", each ended by a line break and a flush, with the number format and locale
/// of the stream.
template <class T>
class ZQ_PRIMITIVES_API GeLinearMatrix3
{
public:
    /// @name Construction
    /// @{

    /// The identity.
    GeLinearMatrix3();
    /// From elements, row by row.
    GeLinearMatrix3( T m00, T m01, T m02, T m10, T m11, T m12, T m20, T m21, T m22 );
    /// From rows.
    GeLinearMatrix3( const GeVector3<T>& row0, const GeVector3<T>& row1, const GeVector3<T>& row2 );

    /// Becomes the identity.
    void setIdentity();
    /// All nine elements 0.
    void setZero();

    /// Rows and columns 0 to 2; any other index is undefined.
    /// @}

    /// @name Access
    /// One element, to be read or assigned: rows and columns 0 to 2, any other index is undefined.
    /// @{
    T operator()( int row, int column ) const;
    T& operator()( int row, int column );
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: element by element; -0 equals 0, NaN equals nothing. != is the exact
    /// negation of ==.
    /// @{
    bool operator==( const GeLinearMatrix3<T>& other ) const;
    bool operator!=( const GeLinearMatrix3<T>& other ) const;
    bool isEqualExact( const GeLinearMatrix3<T>& other ) const;
    /// Each element within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const GeLinearMatrix3<T>& other, T tolerance ) const;
    /// Each element that of the identity, within the default tolerance of FloatUtil::isEqual.
    bool isIdentity() const;
    /// @}

    /// @name Arithmetic
    /// This times the operand, which acts first; the assigning form puts the product in place of this matrix. A point
    /// is turned into the image of its position vector.
    /// @{
    GeLinearMatrix3<T> operator*( const GeLinearMatrix3<T>& b ) const;
    GeLinearMatrix3<T>& operator*=( const GeLinearMatrix3<T>& b );
    GeVector3<T> operator*( const GeVector3<T>& v ) const;
    GePoint3<T> operator*( const GePoint3<T>& p ) const;
    /// The row vector v times this, which is the transpose of this times v.
    GeVector3<T> mulOnRight( const GeVector3<T>& v ) const;
    /// @}

    /// @name Queries
    /// @{

    /// By cofactors: with the rows (a b c), (d e f), (g h i), (f b - e c) g + (e a - d b) i + (d c - a f) h.
    T computeDeterminant() const;
    /// Element (r, c) goes to (c, r).
    GeLinearMatrix3<T> computeTranspose() const;
    /// The matrix of signed cofactors: element (r, c) is (-1)^(r + c) times the minor of element (r, c). It is not
    /// transposed; the classical adjugate is its transpose, and the inverse that divided by the determinant.
    GeLinearMatrix3<T> computeAdjoint() const;
    /// The matrix that normals are turned by: for a surface that this matrix transforms, N n points where the normal of
    /// the image does, to the outside if n does, also after a reflection. N is the inverse of the transpose times a
    /// positive factor: normalise what it makes of a normal. Formed of cofactors, so that no matrix is singular here: one
    /// that flattens space to a plane gives the normal of that plane, on either side; one that flattens it to a line or a
    /// point gives 0. The elements are first scaled together, by the power of two that takes the largest magnitude into
    /// [9/16, 9/8), so that matrices of every size will do; a rotation is there already and gives itself but for
    /// rounding. An element that is not finite makes some of the result NaN or infinite.
    GeLinearMatrix3<T> computeNormalMatrix() const;
    /// Reports "nonSingular" (src/base/matrix3x3Imp, line 126) for a singular matrix.
    GeLinearMatrix3<T> computeInverse() const;
    /// Inverse and determinant from one decomposition; `inverse` may be this matrix. A singular matrix leaves both
    /// outputs as they were, without a report: give `determinant` the value 0 beforehand to tell.
    void computeInverseAndDeterminant( GeLinearMatrix3<T>& inverse, T& determinant ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form, three lines.
    std::ostream& dump( std::ostream& os ) const;
    /// @}

private:
    GeVector3<T> getRow( int row ) const;

    T _m[9];
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeLinearMatrix3<T>& m );

} // namespace Zq

#include "geLinearMatrix3.inline"

namespace Zq
{

extern template class GeLinearMatrix3<float>;
extern template class GeLinearMatrix3<double>;

static_assert(
    sizeof( GeLinearMatrix3<float> ) == 9 * sizeof( float ) && std::is_trivially_copyable_v<GeLinearMatrix3<float>> );
static_assert( sizeof( GeLinearMatrix3<double> ) == 9 * sizeof( double ) &&
    std::is_trivially_copyable_v<GeLinearMatrix3<double>> );

} // namespace Zq

#endif
