#ifndef ZQ_PRIMITIVES_GEHOMOGENEOUSCOORD3_H
#define ZQ_PRIMITIVES_GEHOMOGENEOUSCOORD3_H

#include "export.h"
#include "forward.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A homogeneous coordinate x, y, z, w: a point for w = 1, a direction for w = 0. For float and double.
///
/// It is what a projective matrix transforms. The arithmetic treats the four components alike. Division by w is left to
/// the caller, who decides what a w of 0 means.
///
/// Text form: "(1, 2, 3, 1)", with the number format and locale of the stream.
template <class T>
class ZQ_PRIMITIVES_API GeHomogeneousCoord3
{
public:
    /// @name Construction
    /// @{

    /// All four components 0.
    GeHomogeneousCoord3();
    /// From components, stored as they are.
    GeHomogeneousCoord3( T x, T y, T z, T w );
    /// @}

    /// @name Access
    /// One component; any value is allowed.
    /// @{
    T getX() const;
    T getY() const;
    T getZ() const;
    T getW() const;
    void setX( T x );
    void setY( T y );
    void setZ( T z );
    void setW( T w );
    /// All four components 0, w included.
    void setZero();
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: components compared as they stand, so that multiples of each other differ.
    /// -0 equals 0, NaN equals nothing. != is the exact negation of ==.
    /// @{
    bool operator==( const GeHomogeneousCoord3<T>& other ) const;
    bool operator!=( const GeHomogeneousCoord3<T>& other ) const;
    bool isEqualExact( const GeHomogeneousCoord3<T>& other ) const;
    /// Each component within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const GeHomogeneousCoord3<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// Component by component, w included, in T. Division is one reciprocal and four multiplications. The assigning
    /// forms return this coordinate.
    /// @{
    GeHomogeneousCoord3<T> operator+( const GeHomogeneousCoord3<T>& other ) const;
    GeHomogeneousCoord3<T> operator-( const GeHomogeneousCoord3<T>& other ) const;
    GeHomogeneousCoord3<T> operator-() const;
    GeHomogeneousCoord3<T>& operator+=( const GeHomogeneousCoord3<T>& other );
    GeHomogeneousCoord3<T>& operator-=( const GeHomogeneousCoord3<T>& other );
    GeHomogeneousCoord3<T> operator*( T factor ) const;
    GeHomogeneousCoord3<T>& operator*=( T factor );
    GeHomogeneousCoord3<T> operator/( T divisor ) const;
    GeHomogeneousCoord3<T>& operator/=( T divisor );
    /// @}

    /// @name Products
    /// What the 4x4 form of the matrix makes of the coordinate; its bottom row is left out of the sums, so that w is
    /// copied. A rotation is a linear matrix here, too.
    /// @{
    friend GeHomogeneousCoord3<T> operator*( const GeLinearMatrix3<T>& m, const GeHomogeneousCoord3<T>& h )
    {
        const GeVector3<T> v = m * GeVector3<T>( h._x, h._y, h._z );
        return GeHomogeneousCoord3( v.getX(), v.getY(), v.getZ(), h._w );
    }
    friend GeHomogeneousCoord3<T> operator*( const GeAffineMatrix3<T>& m, const GeHomogeneousCoord3<T>& h )
    {
        const GeVector3<T> v = m * GeVector3<T>( h._x, h._y, h._z ) + m.getTranslation() * h._w;
        return GeHomogeneousCoord3( v.getX(), v.getY(), v.getZ(), h._w );
    }
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
    T _x;
    T _y;
    T _z;
    T _w;
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeHomogeneousCoord3<T>& h );

} // namespace Zq

#include "geHomogeneousCoord3.inline"

namespace Zq
{

extern template class GeHomogeneousCoord3<float>;
extern template class GeHomogeneousCoord3<double>;

static_assert( sizeof( GeHomogeneousCoord3<float> ) == 4 * sizeof( float ) &&
    std::is_trivially_copyable_v<GeHomogeneousCoord3<float>> );
static_assert( sizeof( GeHomogeneousCoord3<double> ) == 4 * sizeof( double ) &&
    std::is_trivially_copyable_v<GeHomogeneousCoord3<double>> );

} // namespace Zq

#endif
