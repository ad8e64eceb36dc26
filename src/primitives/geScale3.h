#ifndef ZQ_PRIMITIVES_GESCALE3_H
#define ZQ_PRIMITIVES_GESCALE3_H

#include "geProjectiveMatrix3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A scale by separate factors along x, y and z, kept as three numbers: the matrix diag(x, y, z) or diag(x, y, z, 1).
/// For float and double.
///
/// Its products with matrices touch only what changes: one multiplication for each element, all others are copied bit by
/// bit. As with matrices, in S * M the matrix acts first, and S.mulOnRight( M ) is M * S.
///
/// Any factors are allowed. A zero makes singular matrices, which only their inversion reports.
///
/// Text form: "Scale3(2, 1, 0.5)", with the number format and locale of the stream.
template <class T>
class ZQ_PRIMITIVES_API GeScale3
{
public:
    /// @name Construction
    /// @{

    /// From three numbers, stored as they are.
    GeScale3( T x, T y, T z );
    /// From the factors.
    explicit GeScale3( const GeVector3<T>& factors );
    /// @}

    /// @name Access
    /// The three factors, one by one or together.
    /// @{
    T getX() const;
    T getY() const;
    T getZ() const;
    const GeVector3<T>& getVector() const;
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: factors compared in order x, y, z; -0 equals 0, NaN equals nothing. != is
    /// the exact negation of ==.
    /// @{
    bool operator==( const GeScale3<T>& other ) const;
    bool operator!=( const GeScale3<T>& other ) const;
    bool isEqualExact( const GeScale3<T>& other ) const;
    /// Each factor within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const GeScale3<T>& other, T tolerance ) const;
    /// @}

    /// @name Conversion
    /// @{

    /// The matrix diag(x, y, z).
    GeLinearMatrix3<T> getMatrix() const;
    /// @}

    /// @name Arithmetic
    /// operator* is this times the matrix: rows are scaled, the translation with them. mulOnRight() is the matrix times
    /// this: columns 0 to 2 are scaled, a translation remains. mulOnRightAssign() puts that product in place of m and
    /// returns m. A matrix times a scale can be written as a product, too; a rotation is a linear matrix there.
    /// @{
    GeLinearMatrix3<T> operator*( const GeLinearMatrix3<T>& m ) const;
    GeAffineMatrix3<T> operator*( const GeAffineMatrix3<T>& m ) const;
    GeProjectiveMatrix3<T> operator*( const GeProjectiveMatrix3<T>& m ) const;
    GeLinearMatrix3<T> mulOnRight( const GeLinearMatrix3<T>& m ) const;
    GeAffineMatrix3<T> mulOnRight( const GeAffineMatrix3<T>& m ) const;
    GeProjectiveMatrix3<T> mulOnRight( const GeProjectiveMatrix3<T>& m ) const;
    GeLinearMatrix3<T>& mulOnRightAssign( GeLinearMatrix3<T>& m ) const;
    GeAffineMatrix3<T>& mulOnRightAssign( GeAffineMatrix3<T>& m ) const;
    GeProjectiveMatrix3<T>& mulOnRightAssign( GeProjectiveMatrix3<T>& m ) const;
    friend GeLinearMatrix3<T> operator*( const GeLinearMatrix3<T>& m, const GeScale3<T>& s )
    {
        return s.mulOnRight( m );
    }
    friend GeAffineMatrix3<T> operator*( const GeAffineMatrix3<T>& m, const GeScale3<T>& s )
    {
        return s.mulOnRight( m );
    }
    friend GeProjectiveMatrix3<T> operator*( const GeProjectiveMatrix3<T>& m, const GeScale3<T>& s )
    {
        return s.mulOnRight( m );
    }
    /// Factor by factor: one multiplication each. A homogeneous coordinate keeps its w.
    GeScale3<T> operator*( const GeScale3<T>& other ) const;
    GeScale3<T>& operator*=( const GeScale3<T>& other );
    GeVector3<T> operator*( const GeVector3<T>& v ) const;
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
    GeVector3<T> _factors;
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeScale3<T>& s );

} // namespace Zq

#include "geScale3.inline"

namespace Zq
{

extern template class GeScale3<float>;
extern template class GeScale3<double>;

static_assert( sizeof( GeScale3<float> ) == 3 * sizeof( float ) && std::is_trivially_copyable_v<GeScale3<float>> );
static_assert( sizeof( GeScale3<double> ) == 3 * sizeof( double ) && std::is_trivially_copyable_v<GeScale3<double>> );

} // namespace Zq

#endif
