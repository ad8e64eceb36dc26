#ifndef ZQ_PRIMITIVES_GEPOINT3_H
#define ZQ_PRIMITIVES_GEPOINT3_H

#include "geVector3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A position in 3D space: three coordinates x, y, z and nothing else. For float and double.
///
/// A point plus or minus a vector is a point, the difference of two points a vector. The text form is that of
/// GeVector3; nothing in it tells the two apart.
template <class T>
class ZQ_PRIMITIVES_API GePoint3
{
public:
    /// @name Construction
    /// @{

    /// The origin.
    GePoint3();
    /// From coordinates, stored as they are.
    GePoint3( T x, T y, T z );
    /// The origin moved by a vector.
    explicit GePoint3( const GeVector3<T>& vector );
    /// Converts each coordinate to T.
    template <class U>
    explicit GePoint3( const GePoint3<U>& other );
    /// @}

    /// @name Access
    /// One coordinate, or all of them; any value is allowed.
    /// @{
    T getX() const;
    T getY() const;
    T getZ() const;
    void setX( T x );
    void setY( T y );
    void setZ( T z );
    void set( T x, T y, T z );
    /// Coordinate 0, 1 or 2; any other index is undefined.
    T operator[]( int index ) const;
    /// The same, to be assigned.
    T& operator[]( int index );
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: coordinates compared in order x, y, z; -0 equals 0, NaN equals nothing. !=
    /// is the exact negation of ==.
    /// @{
    bool operator==( const GePoint3<T>& other ) const;
    bool operator!=( const GePoint3<T>& other ) const;
    bool isEqualExact( const GePoint3<T>& other ) const;
    /// Each coordinate within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const GePoint3<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// Coordinate by coordinate, in T: a point moved by a vector, or the vector from `other` to this point. The
    /// assigning forms return this point.
    /// @{
    GePoint3<T> operator+( const GeVector3<T>& vector ) const;
    GePoint3<T> operator-( const GeVector3<T>& vector ) const;
    GeVector3<T> operator-( const GePoint3<T>& other ) const;
    GePoint3<T>& operator+=( const GeVector3<T>& vector );
    GePoint3<T>& operator-=( const GeVector3<T>& vector );
    /// @}

    /// @name Queries
    /// @{

    /// Coordinate by coordinate the smaller of the two: b where b < a, else a.
    static GePoint3<T> computeMin( const GePoint3<T>& a, const GePoint3<T>& b );
    /// Coordinate by coordinate the larger of the two: b where a < b, else a.
    static GePoint3<T> computeMax( const GePoint3<T>& a, const GePoint3<T>& b );
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form; no line end.
    std::ostream& dump( std::ostream& os ) const;
    /// Reads the text form, as GeVector3::read does.
    std::istream& read( std::istream& is );
    /// @}

private:
    T _v[3];
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GePoint3<T>& p );
/// Reads the text form, as read() does.
template <class T>
std::istream& operator>>( std::istream& is, GePoint3<T>& p );

} // namespace Zq

#include "gePoint3.inline"

namespace Zq
{

extern template class GePoint3<float>;
extern template class GePoint3<double>;

static_assert( sizeof( GePoint3<float> ) == 3 * sizeof( float ) && std::is_trivially_copyable_v<GePoint3<float>> );
static_assert( sizeof( GePoint3<double> ) == 3 * sizeof( double ) && std::is_trivially_copyable_v<GePoint3<double>> );

} // namespace Zq

#endif
