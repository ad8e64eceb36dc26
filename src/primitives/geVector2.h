#ifndef ZQ_PRIMITIVES_GEVECTOR2_H
#define ZQ_PRIMITIVES_GEVECTOR2_H

#include "export.h"
#include "forward.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

namespace Detail
{

/// Keeps a member out of the int forms. It constrains a template parameter that defaults to the class's scalar: member
/// templates are not instantiated along with their class, so GeVector2<int> has no length(), not even a broken one.
template <class T, class U>
using IfFloating = std::enable_if_t<std::is_same_v<T, U> && std::is_floating_point_v<U>>;

} // namespace Detail

/// A direction with a magnitude in the plane: two components x, y and nothing else. For int, float and double.
///
/// What needs a root or a fraction does not exist for int: length, normalisation, angles, division and tolerant
/// comparison. The arithmetic of int is that of the language: a result that does not fit is undefined.
///
/// Any float or double is allowed; infinities and NaN follow the arithmetic. Division by a scalar is one reciprocal and
/// two multiplications.
///
/// Text form: "(1, 2.5)", like that of GeVector3. For int the components are written and read as integers: reading
/// stops at a decimal point, and the vector is refused.
template <class T>
class ZQ_PRIMITIVES_API GeVector2
{
public:
    /// @name Construction
    /// @{

    /// The zero vector.
    GeVector2();
    /// From components, stored as they are.
    GeVector2( T x, T y );
    /// The vector from the origin to a point.
    explicit GeVector2( const GePoint2<T>& point );
    /// Converts each component to T; to int towards zero, where a value that does not fit is undefined.
    template <class U>
    explicit GeVector2( const GeVector2<U>& other );
    /// @}

    /// @name Access
    /// One component, or all of them; any value is allowed.
    /// @{
    T getX() const;
    T getY() const;
    void setX( T x );
    void setY( T y );
    void set( T x, T y );
    /// Component 0 or 1; any other index is undefined.
    T operator[]( int index ) const;
    /// The same, to be assigned.
    T& operator[]( int index );
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: components compared in order x, y; -0 equals 0, NaN equals nothing. != is
    /// the exact negation of ==.
    /// @{
    bool operator==( const GeVector2<T>& other ) const;
    bool operator!=( const GeVector2<T>& other ) const;
    bool isEqualExact( const GeVector2<T>& other ) const;
    /// Each component within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual. Not for int.
    template <class U = T, class = Detail::IfFloating<T, U>>
    bool isEqual( const GeVector2<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// Component by component, in T. Division is one reciprocal and two multiplications, and not for int. The assigning
    /// forms return this vector.
    /// @{
    GeVector2<T> operator+( const GeVector2<T>& other ) const;
    GeVector2<T> operator-( const GeVector2<T>& other ) const;
    GeVector2<T> operator-() const;
    GeVector2<T>& operator+=( const GeVector2<T>& other );
    GeVector2<T>& operator-=( const GeVector2<T>& other );
    GeVector2<T> operator*( T factor ) const;
    GeVector2<T>& operator*=( T factor );
    template <class U = T, class = Detail::IfFloating<T, U>>
    GeVector2<T> operator/( T divisor ) const;
    template <class U = T, class = Detail::IfFloating<T, U>>
    GeVector2<T>& operator/=( T divisor );
    /// @}

    /// @name Queries
    /// @{

    /// x1 x2 + y1 y2.
    T dot( const GeVector2<T>& other ) const;
    /// x1 y2 - y1 x2: twice the area of the triangle of the two, positive when `other` lies counter-clockwise.
    T cross( const GeVector2<T>& other ) const;
    /// (-y, x): a quarter turn counter-clockwise.
    GeVector2<T> computePerpendicular() const;

    /// The square root of lengthSquared(). Not for int.
    template <class U = T, class = Detail::IfFloating<T, U>>
    T length() const;
    /// x^2 + y^2.
    T lengthSquared() const;
    /// |x| + |y|.
    T computeAbsSum() const;
    /// The larger of |x| and |y|.
    T computeMaxAbs() const;

    /// Component by component the smaller of the two: b where b < a, else a.
    static GeVector2<T> computeMin( const GeVector2<T>& a, const GeVector2<T>& b );
    /// Component by component the larger of the two: b where a < b, else a.
    static GeVector2<T> computeMax( const GeVector2<T>& a, const GeVector2<T>& b );

    /// The angle between two directions of any length, in radians, 0 to pi, without a sense of rotation; 0 when either
    /// vector is zero. Not for int.
    template <class U = T, class = Detail::IfFloating<T, U>>
    T computeAngle( const GeVector2<T>& other ) const;
    /// @}

    /// @name Normalisation
    /// @{

    /// Divides the vector by its length and returns the length that it had. A vector of length 0 stays unchanged.
    /// Works over the same range of components as GeVector3::normalize. Not for int.
    template <class U = T, class = Detail::IfFloating<T, U>>
    T normalize();
    /// This direction as a unit vector; reports "len > 0" for a zero vector and for NaN. Not for int.
    template <class U = T, class = Detail::IfFloating<T, U>>
    GeUnitVector2<T> computeUnit() const;
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
    T _v[2];
};

/// The same as v * factor.
template <class T>
GeVector2<T> operator*( T factor, const GeVector2<T>& v );
/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeVector2<T>& v );
/// Reads the text form, as read() does.
template <class T>
std::istream& operator>>( std::istream& is, GeVector2<T>& v );

} // namespace Zq

// The bodies come before anything that instantiates the class: GCC inlines only what was inline by then.
#include "geVector2.inline"

#include "gePoint2.h"
#include "geUnitVector2.h"

namespace Zq
{

extern template class GeVector2<int>;
extern template class GeVector2<float>;
extern template class GeVector2<double>;

static_assert( sizeof( GeVector2<int> ) == 2 * sizeof( int ) && std::is_trivially_copyable_v<GeVector2<int>> );
static_assert( sizeof( GeVector2<float> ) == 2 * sizeof( float ) && std::is_trivially_copyable_v<GeVector2<float>> );
static_assert( sizeof( GeVector2<double> ) == 2 * sizeof( double ) && std::is_trivially_copyable_v<GeVector2<double>> );

} // namespace Zq

#endif
