#ifndef ZQ_PRIMITIVES_GETRANSLATION3_H
#define ZQ_PRIMITIVES_GETRANSLATION3_H

#include "geProjectiveMatrix3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A displacement, kept as three numbers: the affine matrix with the identity as linear block and (x, y, z) as
/// translation. For float and double.
///
/// Its products with matrices touch only what changes; all other elements are copied bit by bit. As with matrices, in
/// T * M the matrix acts first, and T.mulOnRight( M ) is M * T.
///
/// Text form: "Translation3(1, 2, 3)", with the number format and locale of the stream.
template <class T>
class ZQ_PRIMITIVES_API GeTranslation3
{
public:
    /// @name Construction
    /// @{

    /// From three numbers, stored as they are.
    GeTranslation3( T x, T y, T z );
    /// From the displacement.
    explicit GeTranslation3( const GeVector3<T>& displacement );
    /// @}

    /// @name Access
    /// The three components of the displacement, one by one or together.
    /// @{
    T getX() const;
    T getY() const;
    T getZ() const;
    const GeVector3<T>& getVector() const;
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: components compared in order x, y, z; -0 equals 0, NaN equals nothing. != is
    /// the exact negation of ==.
    /// @{
    bool operator==( const GeTranslation3<T>& other ) const;
    bool operator!=( const GeTranslation3<T>& other ) const;
    bool isEqualExact( const GeTranslation3<T>& other ) const;
    /// Each component within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const GeTranslation3<T>& other, T tolerance ) const;
    /// @}

    /// @name Conversion
    /// @{

    /// The affine matrix, as it stands above.
    GeAffineMatrix3<T> getMatrix() const;
    /// @}

    /// @name Arithmetic
    /// operator* is this times the matrix: the translation grows by the displacement; a projective matrix gets its row
    /// 3, times the displacement, added to the rows above. mulOnRight() is the matrix times this: the translation grows
    /// by what the matrix makes of the displacement; only column 3 changes, in a projective matrix all four rows of it.
    /// mulOnRightAssign() puts that product in place of m and returns m. A matrix or a scale times a translation can be
    /// written as a product, too; a rotation is a linear matrix there.
    /// @{
    GeAffineMatrix3<T> operator*( const GeLinearMatrix3<T>& m ) const;
    GeAffineMatrix3<T> operator*( const GeAffineMatrix3<T>& m ) const;
    GeProjectiveMatrix3<T> operator*( const GeProjectiveMatrix3<T>& m ) const;
    GeAffineMatrix3<T> mulOnRight( const GeLinearMatrix3<T>& m ) const;
    GeAffineMatrix3<T> mulOnRight( const GeAffineMatrix3<T>& m ) const;
    GeProjectiveMatrix3<T> mulOnRight( const GeProjectiveMatrix3<T>& m ) const;
    GeAffineMatrix3<T>& mulOnRightAssign( GeAffineMatrix3<T>& m ) const;
    GeProjectiveMatrix3<T>& mulOnRightAssign( GeProjectiveMatrix3<T>& m ) const;
    friend GeAffineMatrix3<T> operator*( const GeLinearMatrix3<T>& m, const GeTranslation3<T>& t )
    {
        return t.mulOnRight( m );
    }
    friend GeAffineMatrix3<T> operator*( const GeAffineMatrix3<T>& m, const GeTranslation3<T>& t )
    {
        return t.mulOnRight( m );
    }
    friend GeProjectiveMatrix3<T> operator*( const GeProjectiveMatrix3<T>& m, const GeTranslation3<T>& t )
    {
        return t.mulOnRight( m );
    }
    /// With a scale: its factors on the diagonal; mulOnRight() is the scale times this, and scales the displacement.
    GeAffineMatrix3<T> operator*( const GeScale3<T>& s ) const;
    GeAffineMatrix3<T> mulOnRight( const GeScale3<T>& s ) const;
    friend GeAffineMatrix3<T> operator*( const GeScale3<T>& s, const GeTranslation3<T>& t )
    {
        return t.mulOnRight( s );
    }
    /// The sum of the displacements.
    GeTranslation3<T> operator*( const GeTranslation3<T>& other ) const;
    GeTranslation3<T>& operator*=( const GeTranslation3<T>& other );
    /// A copy: vectors are not translated, and so a direction stays one.
    GeVector3<T> operator*( const GeVector3<T>& v ) const;
    GeUnitVector3<T> operator*( const GeUnitVector3<T>& v ) const;
    /// The point plus the displacement; a homogeneous coordinate moves by w times the displacement.
    GePoint3<T> operator*( const GePoint3<T>& p ) const;
    GeHomogeneousCoord3<T> operator*( const GeHomogeneousCoord3<T>& h ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form; no line end.
    std::ostream& dump( std::ostream& os ) const;
    /// @}

private:
    GeVector3<T> _displacement;
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeTranslation3<T>& t );

} // namespace Zq

#include "geTranslation3.inline"

namespace Zq
{

extern template class GeTranslation3<float>;
extern template class GeTranslation3<double>;

static_assert(
    sizeof( GeTranslation3<float> ) == 3 * sizeof( float ) && std::is_trivially_copyable_v<GeTranslation3<float>> );
static_assert(
    sizeof( GeTranslation3<double> ) == 3 * sizeof( double ) && std::is_trivially_copyable_v<GeTranslation3<double>> );

} // namespace Zq

#endif
