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
    /// The origin.
    GePoint2();
    GePoint2( T x, T y );
    /// The origin moved by a vector.
    explicit GePoint2( const GeVector2<T>& vector );
    /// Converts each coordinate to T, as GeVector2 does.
    template <class U>
    explicit GePoint2( const GePoint2<U>& other );

    T getX() const;
    T getY() const;
    void setX( T x );
    void setY( T y );
    void set( T x, T y );
    /// Coordinate 0 or 1; any other index is undefined.
    T operator[]( int index ) const;
    T& operator[]( int index );

    /// Coordinates compared in order x, y; -0 equals 0, NaN equals nothing. The same as isEqualExact().
    bool operator==( const GePoint2<T>& other ) const;
    bool operator!=( const GePoint2<T>& other ) const;
    bool isEqualExact( const GePoint2<T>& other ) const;
    /// Each coordinate within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual. Not for int.
    template <class U = T, class = Detail::IfFloating<T, U>>
    bool isEqual( const GePoint2<T>& other, T tolerance ) const;

    GePoint2<T> operator+( const GeVector2<T>& vector ) const;
    GePoint2<T> operator-( const GeVector2<T>& vector ) const;
    GeVector2<T> operator-( const GePoint2<T>& other ) const;
    GePoint2<T>& operator+=( const GeVector2<T>& vector );
    GePoint2<T>& operator-=( const GeVector2<T>& vector );

    /// Coordinate by coordinate the smaller (larger) of the two.
    static GePoint2<T> computeMin( const GePoint2<T>& a, const GePoint2<T>& b );
    static GePoint2<T> computeMax( const GePoint2<T>& a, const GePoint2<T>& b );

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form; no line end.
    std::ostream& dump( std::ostream& os ) const;
    /// Reads the text form, as GeVector2::read does.
    std::istream& read( std::istream& is );

private:
    T _v[2];
};

template <class T>
std::ostream& operator<<( std::ostream& os, const GePoint2<T>& p );
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
