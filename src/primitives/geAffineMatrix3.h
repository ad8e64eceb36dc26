#ifndef ZQ_PRIMITIVES_GEAFFINEMATRIX3_H
#define ZQ_PRIMITIVES_GEAFFINEMATRIX3_H

#include "geLinearMatrix3.h"

#include <cstddef>
#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A linear block L and a translation t: a point p goes to L p + t, a vector v to L v. For float and double.
///
/// It is a 4x4 matrix whose bottom row is always (0, 0, 0, 1); t is column 3. Its sixteen elements are stored by
/// columns: element (r, c) is value r + 4 c. GeLinearMatrix3 is stored by rows, so memory must not be copied between the
/// two; the constructors and getLinear() map element (r, c) to element (r, c). The conventions on products and element
/// names, the text form and the meaning of singular are those of GeLinearMatrix3.
template <class T>
class ZQ_PRIMITIVES_API GeAffineMatrix3
{
public:
    /// @name Construction
    /// @{

    /// The identity.
    GeAffineMatrix3();
    /// From a 4x4 array, each element converted to T. byColumns false: elements[r][c] becomes element (r, c), and the
    /// array's fourth row is not read. byColumns true: elements[c][r] becomes element (r, c), so elements[3] begins with
    /// the translation, and the array's fourth column is not read. The bottom row is (0, 0, 0, 1) either way.
    GeAffineMatrix3( const float ( *elements )[4], bool byColumns );
    /// The same from double.
    GeAffineMatrix3( const double ( *elements )[4], bool byColumns );
    /// Without translation.
    explicit GeAffineMatrix3( const GeLinearMatrix3<T>& linear );
    /// From L and t.
    GeAffineMatrix3( const GeLinearMatrix3<T>& linear, const GeVector3<T>& translation );
    /// translation * rotation * scale, in one step with the same bits: the scale acts first.
    GeAffineMatrix3( const GeTranslation3<T>& translation, const GeRotation3<T>& rotation, const GeScale3<T>& scale );

    /// Becomes the identity.
    void setIdentity();
    /// L = 0 and t = 0; the bottom row remains.
    void setZero();
    /// @}

    /// @name Access
    /// Rows and columns 0 to 3; any other index is undefined. Row 3 is for reading only.
    /// @{

    /// Element (row, column).
    T operator()( int row, int column ) const;
    /// Element (row, column), to be assigned.
    T& operator()( int row, int column );
    /// The upper three elements of column 0 to 3.
    GeVector3<T> getColumn( int column ) const;
    /// L.
    GeLinearMatrix3<T> getLinear() const;
    /// t.
    GeVector3<T> getTranslation() const;
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: element by element; -0 equals 0, NaN equals nothing. != is the exact
    /// negation of ==.
    /// @{
    bool operator==( const GeAffineMatrix3<T>& other ) const;
    bool operator!=( const GeAffineMatrix3<T>& other ) const;
    bool isEqualExact( const GeAffineMatrix3<T>& other ) const;
    /// Each element of L and t within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const GeAffineMatrix3<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// This times the operand, which acts first, and mulOnRight(), the operand times this. The assigning forms put the
    /// product in place of this matrix.
    /// @{

    /// Linear block L m; the translation stays.
    GeAffineMatrix3<T> operator*( const GeLinearMatrix3<T>& m ) const;
    GeAffineMatrix3<T>& operator*=( const GeLinearMatrix3<T>& m );
    /// Linear block L times that of b, translation L times that of b, plus t.
    GeAffineMatrix3<T> operator*( const GeAffineMatrix3<T>& b ) const;
    GeAffineMatrix3<T>& operator*=( const GeAffineMatrix3<T>& b );
    /// L v; a vector has no place to be translated.
    GeVector3<T> operator*( const GeVector3<T>& v ) const;
    /// L p + t.
    GePoint3<T> operator*( const GePoint3<T>& p ) const;
    /// m times this: linear block m L, translation m t.
    GeAffineMatrix3<T> mulOnRight( const GeLinearMatrix3<T>& m ) const;
    /// The same, written as a product; a rotation is a linear matrix here, too.
    friend GeAffineMatrix3<T> operator*( const GeLinearMatrix3<T>& m, const GeAffineMatrix3<T>& a )
    {
        return a.mulOnRight( m );
    }
    /// The row vector v times L; the translation is not used.
    GeVector3<T> mulOnRight( const GeVector3<T>& v ) const;
    /// @}

    /// @name Array forms
    /// What operator* does to one element, and faster: results[i] is this times element i. Any count, also 0; no
    /// alignment is asked for. The results may replace the input, but not overlap it otherwise. Of several NaN, any one
    /// may be passed on.
    /// @{
    void transform( const GePoint3<T>* points, std::size_t count, GePoint3<T>* results ) const;
    void transform( const GeVector3<T>* vectors, std::size_t count, GeVector3<T>* results ) const;
    /// @}

    /// @name Queries
    /// @{

    /// The determinant of L, by cofactors as in GeLinearMatrix3; it is that of the 4x4 matrix too.
    T computeDeterminant() const;
    /// Translation, rotation, scale and shear, of singular matrices and of reflections, too: see GeDecomposition3, whose
    /// header has to be included. Reports what its constructor does.
    GeDecomposition3<T> computeDecomposition() const;
    /// That of L: see GeLinearMatrix3.
    GeLinearMatrix3<T> computeNormalMatrix() const;
    /// Linear block the inverse of L, translation -( inverse of L times t ); a zero sum is negated to -0.
    /// Reports "nonSingular" (src/base/matrix3x3Imp, line 126) when L is singular.
    GeAffineMatrix3<T> computeInverse() const;
    /// Inverse and determinant from one decomposition; either may go into this matrix. When L is singular there is no
    /// report, and the determinant and the linear block of `inverse` stay as they were; yet its translation is written
    /// in any case, as -( B t ) with B the linear block that `inverse` holds by then and t as it was before the call.
    void computeInverseAndDeterminant( GeAffineMatrix3<T>& inverse, T& determinant ) const;
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
    void setColumn( int column, const GeVector3<T>& v );

    T _m[16];
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeAffineMatrix3<T>& m );

} // namespace Zq

#include "geAffineMatrix3.inline"

namespace Zq
{

extern template class GeAffineMatrix3<float>;
extern template class GeAffineMatrix3<double>;

static_assert(
    sizeof( GeAffineMatrix3<float> ) == 16 * sizeof( float ) && std::is_trivially_copyable_v<GeAffineMatrix3<float>> );
static_assert( sizeof( GeAffineMatrix3<double> ) == 16 * sizeof( double ) &&
    std::is_trivially_copyable_v<GeAffineMatrix3<double>> );

} // namespace Zq

#endif
