#ifndef ZQ_PRIMITIVES_GEVECTOR3_H
#define ZQ_PRIMITIVES_GEVECTOR3_H

#include "export.h"
#include "forward.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A direction with a magnitude in 3D space: three components x, y, z and nothing else. For float and double.
///
/// Any components are allowed; infinities and NaN follow the arithmetic. Division by a scalar is one reciprocal and
/// three multiplications, so it can differ from three divisions in the last place.
///
/// Text form: "(1, 2.5, -3)", with the number format and locale of the stream. Six digits are the stream's default;
/// for an exact round trip set its precision to std::numeric_limits<T>::max_digits10 and use the classic locale.
template <class T>
class ZQ_PRIMITIVES_API GeVector3
{
public:
    /// @name Construction
    /// @{

    /// The zero vector.
    GeVector3();
    /// From components, stored as they are.
    GeVector3( T x, T y, T z );
    /// The vector from the origin to a point.
    explicit GeVector3( const GePoint3<T>& point );
    /// Converts each component to T.
    template <class U>
    explicit GeVector3( const GeVector3<U>& other );
    /// @}

    /// @name Access
    /// One component, or all of them; any value is allowed.
    /// @{
    T getX() const;
    T getY() const;
    T getZ() const;
    void setX( T x );
    void setY( T y );
    void setZ( T z );
    void set( T x, T y, T z );
    /// Component 0, 1 or 2; any other index is undefined.
    T operator[]( int index ) const;
    /// The same, to be assigned.
    T& operator[]( int index );
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: components compared in order x, y, z; -0 equals 0, NaN equals nothing. != is
    /// the exact negation of ==.
    /// @{
    bool operator==( const GeVector3<T>& other ) const;
    bool operator!=( const GeVector3<T>& other ) const;
    bool isEqualExact( const GeVector3<T>& other ) const;
    /// Each component within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const GeVector3<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// Component by component, in T. Division is one reciprocal and three multiplications. The assigning forms return
    /// this vector.
    /// @{
    GeVector3<T> operator+( const GeVector3<T>& other ) const;
    GeVector3<T> operator-( const GeVector3<T>& other ) const;
    GeVector3<T> operator-() const;
    GeVector3<T>& operator+=( const GeVector3<T>& other );
    GeVector3<T>& operator-=( const GeVector3<T>& other );
    GeVector3<T> operator*( T factor ) const;
    GeVector3<T>& operator*=( T factor );
    GeVector3<T> operator/( T divisor ) const;
    GeVector3<T>& operator/=( T divisor );
    /// @}

    /// @name Queries
    /// @{

    /// x1 x2 + y1 y2 + z1 z2, summed from left to right.
    T dot( const GeVector3<T>& other ) const;
    /// Right-handed: x cross y is z.
    GeVector3<T> cross( const GeVector3<T>& other ) const;

    /// The square root of lengthSquared().
    T length() const;
    /// x^2 + y^2 + z^2, summed from left to right; overflows and underflows long before the length itself does.
    T lengthSquared() const;
    /// |x| + |y| + |z|.
    T computeAbsSum() const;
    /// The largest of |x|, |y|, |z|.
    T computeMaxAbs() const;

    /// Component by component the smaller of the two: b where b < a, else a.
    static GeVector3<T> computeMin( const GeVector3<T>& a, const GeVector3<T>& b );
    /// Component by component the larger of the two: b where a < b, else a.
    static GeVector3<T> computeMax( const GeVector3<T>& a, const GeVector3<T>& b );

    /// The angle between two directions of any length, in radians, 0 to pi; 0 when either vector is zero.
    T computeAngle( const GeVector3<T>& other ) const;
    /// @}

    /// @name Normalisation
    /// @{

    /// Divides the vector by its length and returns the length that it had. A vector of length 0 stays unchanged.
    /// Where the square of the length overflows (float: components above about 1.8e19) the result is the zero vector
    /// and an infinite length is returned; where it underflows (float: below about 1e-19), precision is lost.
    T normalize();
    /// This direction as a unit vector; reports "len > 0" for a zero vector and for NaN.
    GeUnitVector3<T> computeUnit() const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form; no line end.
    std::ostream& dump( std::ostream& os ) const;
    /// Reads the text form; white space is accepted before every item. On any failure the vector is unchanged and
    /// failbit is set; the characters that were consumed are gone.
    std::istream& read( std::istream& is );
    /// @}

private:
    T _v[3];
};

/// The same as v * factor.
template <class T>
GeVector3<T> operator*( T factor, const GeVector3<T>& v );
/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeVector3<T>& v );
/// Reads the text form, as read() does.
template <class T>
std::istream& operator>>( std::istream& is, GeVector3<T>& v );

} // namespace Zq

// The bodies come before anything that instantiates the class: GCC inlines only what was inline by then.
#include "geVector3.inline"

#include "gePoint3.h"
#include "geUnitVector3.h"

namespace Zq
{

extern template class GeVector3<float>;
extern template class GeVector3<double>;

static_assert( sizeof( GeVector3<float> ) == 3 * sizeof( float ) && std::is_trivially_copyable_v<GeVector3<float>> );
static_assert( sizeof( GeVector3<double> ) == 3 * sizeof( double ) && std::is_trivially_copyable_v<GeVector3<double>> );

} // namespace Zq

#endif
