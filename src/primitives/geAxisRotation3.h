#ifndef ZQ_PRIMITIVES_GEAXISROTATION3_H
#define ZQ_PRIMITIVES_GEAXISROTATION3_H

#include "geRotation3.h"
#include "geScale3.h"
#include "geTranslation3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A rotation about one coordinate axis, kept as the cosine and the sine of its angle. For axis 0, 1, 2 = x, y, z, and
/// for float and double.
///
/// A positive angle turns counter-clockwise for an eye that the axis points at: about z, it takes x towards y. The
/// matrices, row by row:
///
///     x: 1, 0, 0 / 0, c, -s / 0, s, c      y: c, 0, s / 0, 1, 0 / -s, 0, c      z: c, -s, 0 / s, c, 0 / 0, 0, 1
///
/// It exists for cheap products: they leave out the known zeros and ones, copy what does not change bit by bit, and
/// equal the full product otherwise. As with matrices, in R * M the operand acts first, and R.mulOnRight( M ) is M * R.
///
/// GeXAxisRotation3, GeYAxisRotation3 and GeZAxisRotation3, below, are the names of the three.
///
/// Text form: the three lines of the matrix.
template <int axis, class T>
class ZQ_PRIMITIVES_API GeAxisRotation3
{
    static_assert( axis >= 0 && axis <= 2, "axes are numbered 0, 1, 2 for x, y, z" );

public:
    /// @name Construction
    /// @{

    /// By an angle in radians.
    explicit GeAxisRotation3( T angle );
    /// Trusts that the two belong to one angle; nothing is checked.
    GeAxisRotation3( T cosine, T sine );
    /// @}

    /// @name Access
    /// @{

    /// The cosine of the angle.
    T getCosine() const;
    /// The sine of the angle.
    T getSine() const;
    /// The matrix, as it stands above.
    GeLinearMatrix3<T> getMatrix() const;
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: cosine, then sine; -0 equals 0, NaN equals nothing. != is the exact negation
    /// of ==.
    /// @{
    bool operator==( const GeAxisRotation3<axis, T>& other ) const;
    bool operator!=( const GeAxisRotation3<axis, T>& other ) const;
    bool isEqualExact( const GeAxisRotation3<axis, T>& other ) const;
    /// Cosine and sine each within the tolerance, strictly. See FloatUtil::isEqual.
    bool isEqual( const GeAxisRotation3<axis, T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// operator* is this times the operand, mulOnRight() the operand times this, which can be written as a product, too.
    /// @{
    GeLinearMatrix3<T> operator*( const GeScale3<T>& s ) const;
    GeAffineMatrix3<T> operator*( const GeTranslation3<T>& t ) const;
    GeLinearMatrix3<T> operator*( const GeLinearMatrix3<T>& m ) const;
    GeRotation3<T> operator*( const GeRotation3<T>& r ) const;
    GeAffineMatrix3<T> operator*( const GeAffineMatrix3<T>& m ) const;
    GeVector3<T> operator*( const GeVector3<T>& v ) const;
    GePoint3<T> operator*( const GePoint3<T>& p ) const;
    GeLinearMatrix3<T> mulOnRight( const GeScale3<T>& s ) const;
    GeAffineMatrix3<T> mulOnRight( const GeTranslation3<T>& t ) const;
    GeLinearMatrix3<T> mulOnRight( const GeLinearMatrix3<T>& m ) const;
    GeRotation3<T> mulOnRight( const GeRotation3<T>& r ) const;
    GeAffineMatrix3<T> mulOnRight( const GeAffineMatrix3<T>& m ) const;
    GeProjectiveMatrix3<T> operator*( const GeProjectiveMatrix3<T>& m ) const;
    GeProjectiveMatrix3<T> mulOnRight( const GeProjectiveMatrix3<T>& m ) const;
    GeHomogeneousCoord3<T> operator*( const GeHomogeneousCoord3<T>& h ) const;
    friend GeLinearMatrix3<T> operator*( const GeScale3<T>& s, const GeAxisRotation3<axis, T>& r )
    {
        return r.mulOnRight( s );
    }
    friend GeAffineMatrix3<T> operator*( const GeTranslation3<T>& t, const GeAxisRotation3<axis, T>& r )
    {
        return r.mulOnRight( t );
    }
    friend GeLinearMatrix3<T> operator*( const GeLinearMatrix3<T>& m, const GeAxisRotation3<axis, T>& r )
    {
        return r.mulOnRight( m );
    }
    friend GeRotation3<T> operator*( const GeRotation3<T>& m, const GeAxisRotation3<axis, T>& r )
    {
        return r.mulOnRight( m );
    }
    friend GeAffineMatrix3<T> operator*( const GeAffineMatrix3<T>& m, const GeAxisRotation3<axis, T>& r )
    {
        return r.mulOnRight( m );
    }
    friend GeProjectiveMatrix3<T> operator*( const GeProjectiveMatrix3<T>& m, const GeAxisRotation3<axis, T>& r )
    {
        return r.mulOnRight( m );
    }
    /// About the same axis, by the sum of the angles: nothing renews that the squares of cosine and sine add up to 1.
    GeAxisRotation3<axis, T> operator*( const GeAxisRotation3<axis, T>& other ) const;
    GeAxisRotation3<axis, T>& operator*=( const GeAxisRotation3<axis, T>& other );
    /// About different axes: a rotation.
    template <int other>
    GeRotation3<T> operator*( const GeAxisRotation3<other, T>& r ) const;
    /// The same for a direction, which stays one: normalised again, so that no chain of turns takes it off unit length.
    /// Reports "len > 0" (src/primitives/geVector3.inline, line 496) where nothing or NaN is left of it: the zero vector
    /// of the default constructor, or a cosine and a sine that are none.
    GeUnitVector3<T> turn( const GeUnitVector3<T>& direction ) const;
    /// @}

    /// @name Queries
    /// @{

    /// By the opposite angle.
    GeAxisRotation3<axis, T> computeInverse() const;
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
    // The rotation turns coordinate `first` towards coordinate `second` and leaves coordinate `axis` alone.
    static constexpr int first = ( axis + 1 ) % 3;
    static constexpr int second = ( axis + 2 ) % 3;

    template <int columns, class Matrix>
    Matrix turnRows( const Matrix& m ) const;
    template <int rows, class Matrix>
    Matrix turnColumns( const Matrix& m ) const;

    T _cosine;
    T _sine;
};

/// Writes the text form, as dump() does.
template <int axis, class T>
std::ostream& operator<<( std::ostream& os, const GeAxisRotation3<axis, T>& r );

/// A rotation about the x axis.
template <class T>
class ZQ_PRIMITIVES_API GeXAxisRotation3 : public GeAxisRotation3<0, T>
{
public:
    /// @name Construction
    /// From an angle, or from a cosine and a sine, as GeAxisRotation3.
    /// @{
    using GeAxisRotation3<0, T>::GeAxisRotation3;
    /// Gives a name to the result of a product or an inversion.
    explicit GeXAxisRotation3( const GeAxisRotation3<0, T>& rotation );
    /// @}
};

/// A rotation about the y axis.
template <class T>
class ZQ_PRIMITIVES_API GeYAxisRotation3 : public GeAxisRotation3<1, T>
{
public:
    /// @name Construction
    /// From an angle, or from a cosine and a sine, as GeAxisRotation3.
    /// @{
    using GeAxisRotation3<1, T>::GeAxisRotation3;
    /// Gives a name to the result of a product or an inversion.
    explicit GeYAxisRotation3( const GeAxisRotation3<1, T>& rotation );
    /// @}
};

/// A rotation about the z axis.
template <class T>
class ZQ_PRIMITIVES_API GeZAxisRotation3 : public GeAxisRotation3<2, T>
{
public:
    /// @name Construction
    /// From an angle, or from a cosine and a sine, as GeAxisRotation3.
    /// @{
    using GeAxisRotation3<2, T>::GeAxisRotation3;
    /// Gives a name to the result of a product or an inversion.
    explicit GeZAxisRotation3( const GeAxisRotation3<2, T>& rotation );
    /// @}
};

} // namespace Zq

#include "geAxisRotation3.inline"

namespace Zq
{

extern template class GeAxisRotation3<0, float>;
extern template class GeAxisRotation3<0, double>;
extern template class GeAxisRotation3<1, float>;
extern template class GeAxisRotation3<1, double>;
extern template class GeAxisRotation3<2, float>;
extern template class GeAxisRotation3<2, double>;
extern template class GeXAxisRotation3<float>;
extern template class GeXAxisRotation3<double>;
extern template class GeYAxisRotation3<float>;
extern template class GeYAxisRotation3<double>;
extern template class GeZAxisRotation3<float>;
extern template class GeZAxisRotation3<double>;

static_assert(
    sizeof( GeXAxisRotation3<float> ) == 2 * sizeof( float ) && std::is_trivially_copyable_v<GeXAxisRotation3<float>> );
static_assert( sizeof( GeXAxisRotation3<double> ) == 2 * sizeof( double ) &&
    std::is_trivially_copyable_v<GeXAxisRotation3<double>> );

} // namespace Zq

#endif
