#ifndef ZQ_PRIMITIVES_GEPOINT2_H
#define ZQ_PRIMITIVES_GEPOINT2_H

#include "geVector2.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A position in the plane: two coordinates x, y and nothing else. For int, float and double.
///
/// A point plus or minus a vector is a point, the difference of two points a vector. The text form is that of
/// GeVector2; nothing in it tells the two apart.
template <class T>
class ZQ_PRIMITIVES_API GePoint2
{
public:
    /// @name Construction
    /// @{

    /// The origin.
    GePoint2();
    /// From coordinates, stored as they are.
    GePoint2( T x, T y );
    /// The origin moved by a vector.
    explicit GePoint2( const GeVector2<T>& vector );
    /// Converts each coordinate to T, as GeVector2 does.
    template <class U>
    explicit GePoint2( const GePoint2<U>& other );
    /// @}

    /// @name Access
    /// One coordinate, or all of them; any value is allowed.
    /// @{
    T getX() const;
    T getY() const;
    void setX( T x );
    void setY( T y );
    void set( T x, T y );
    /// Coordinate 0 or 1; any other index is undefined.
    T operator[]( int index ) const;
    /// The same, to be assigned.
    T& operator[]( int index );
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: coordinates compared in order x, y; -0 equals 0, NaN equals nothing. != is
    /// the exact negation of ==.
    /// @{
    bool operator==( const GePoint2<T>& other ) const;
    bool operator!=( const GePoint2<T>& other ) const;
    bool isEqualExact( const GePoint2<T>& other ) const;
    /// Each coordinate within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual. Not for int.
    template <class U = T, class = Detail::IfFloating<T, U>>
    bool isEqual( const GePoint2<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// Coordinate by coordinate, in T: a point moved by a vector, or the vector from `other` to this point. The
    /// assigning forms return this point.
    /// @{
    GePoint2<T> operator+( const GeVector2<T>& vector ) const;
    GePoint2<T> operator-( const GeVector2<T>& vector ) const;
    GeVector2<T> operator-( const GePoint2<T>& other ) const;
    GePoint2<T>& operator+=( const GeVector2<T>& vector );
    GePoint2<T>& operator-=( const GeVector2<T>& vector );
    /// @}

    /// @name Queries
    /// @{

    /// Coordinate by coordinate the smaller of the two: b where b < a, else a.
    static GePoint2<T> computeMin( const GePoint2<T>& a, const GePoint2<T>& b );
    /// Coordinate by coordinate the larger of the two: b where a < b, else a.
    static GePoint2<T> computeMax( const GePoint2<T>& a, const GePoint2<T>& b );
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form; no line end.
    std::ostream& dump( std::ostream& os ) const;
    /// Reads the text form, as GeVector2::read does.
    std::istream& read( std::istream& is );
    /// @}

private:
    T _v[2];
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GePoint2<T>& p );
/// Reads the text form, as read() does.
template <class T>
std::istream& operator>>( std::istream& is, GePoint2<T>& p );

} // namespace Zq

#include "gePoint2.inline"

namespace Zq
{

extern template class GePoint2<int>;
extern template class GePoint2<float>;
extern template class GePoint2<double>;

static_assert( sizeof( GePoint2<int> ) == 2 * sizeof( int ) && std::is_trivially_copyable_v<GePoint2<int>> );
static_assert( sizeof( GePoint2<float> ) == 2 * sizeof( float ) && std::is_trivially_copyable_v<GePoint2<float>> );
static_assert( sizeof( GePoint2<double> ) == 2 * sizeof( double ) && std::is_trivially_copyable_v<GePoint2<double>> );

} // namespace Zq

#endif
