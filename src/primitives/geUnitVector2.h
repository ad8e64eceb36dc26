#ifndef ZQ_PRIMITIVES_GEUNITVECTOR2_H
#define ZQ_PRIMITIVES_GEUNITVECTOR2_H

#include "geUnitVector3.h" // GeTrusted
#include "geVector2.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A direction in the plane: a vector of length 1. For float and double.
///
/// The length is 1 within the default tolerance of FloatUtil::isEqual when the vector is constructed from components;
/// only the default constructor makes an exception, with the zero vector. Operations whose result need not have unit
/// length return a GeVector2. A unit vector converts to a vector implicitly and can be passed wherever one is read.
///
/// Normalisation works over the same range of components as that of GeUnitVector3, with the same results beyond it.
template <class T>
class ZQ_PRIMITIVES_API GeUnitVector2
{
public:
    /// @name Construction
    /// @{

    /// The zero vector, to be assigned later.
    GeUnitVector2();
    /// Normalises. Reports "len > 0" (src/primitives/geVector2.inline) for a zero length and for NaN.
    GeUnitVector2( T x, T y );
    /// Normalises, with the same report.
    explicit GeUnitVector2( const GeVector2<T>& vector );
    /// Stores the components as they are. Reports "FloatUtil::isEqual( length(), static_cast<T>(1.0) )"
    /// (src/primitives/geVector2.inline, line 495; from a vector: line 506) unless they have unit length within the
    /// default tolerance.
    GeUnitVector2( T x, T y, GeTrusted );
    /// The same from a vector.
    GeUnitVector2( const GeVector2<T>& vector, GeTrusted );
    /// @}

    /// @name Conversion
    /// @{

    /// The direction as the vector that it holds, without a copy.
    operator const GeVector2<T>&() const; // NOLINT(google-explicit-constructor): a unit vector is a vector
    /// @}

    /// @name Access
    /// The components; there is no way to set one alone.
    /// @{
    T getX() const;
    T getY() const;
    /// Component 0 or 1; any other index is undefined.
    T operator[]( int index ) const;
    /// @}

    /// @name Comparison
    /// As for GeVector2: == and isEqualExact() compare exactly, isEqual() takes each component within the tolerance,
    /// strictly. != is the exact negation of ==.
    /// @{
    bool operator==( const GeUnitVector2<T>& other ) const;
    bool operator!=( const GeUnitVector2<T>& other ) const;
    bool isEqualExact( const GeUnitVector2<T>& other ) const;
    bool isEqual( const GeUnitVector2<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// As for GeVector2. Only the opposite direction is known to have unit length; everything else is a vector.
    /// @{
    GeUnitVector2<T> operator-() const;
    GeVector2<T> operator+( const GeVector2<T>& other ) const;
    GeVector2<T> operator-( const GeVector2<T>& other ) const;
    GeVector2<T> operator*( T factor ) const;
    /// @}

    /// @name Queries
    /// length(), dot() and cross() are those of GeVector2; the length is worked out, and 1 but for rounding.
    /// @{
    T length() const;
    T dot( const GeVector2<T>& other ) const;
    T cross( const GeVector2<T>& other ) const;
    /// (-y, x): a quarter turn counter-clockwise.
    GeUnitVector2<T> computePerpendicular() const;

    /// Mirrors this direction about a normal: 2 (v . n) n - v. Both point away from the surface. The result is a plain
    /// vector: rounding may take it off unit length. `cosine` receives v . n.
    GeVector2<T> computeReflection( const GeUnitVector2<T>& normal, T& cosine ) const;
    /// The angle between two directions in radians, 0 to pi: the arc cosine of their dot product, limited to [-1, 1].
    T computeAngle( const GeUnitVector2<T>& other ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form of GeVector2; no line end.
    std::ostream& dump( std::ostream& os ) const;
    /// Reads the text form of any vector and normalises it: (3, 4) becomes (0.6, 0.8). A zero vector is read without
    /// complaint and leaves the direction as it was. On failure the direction is unchanged and failbit is set.
    std::istream& read( std::istream& is );
    /// @}

private:
    // For components that are known to be of unit length because they come from a unit vector.
    struct Unchecked
    {
    };
    GeUnitVector2( const GeVector2<T>& vector, Unchecked );

    GeVector2<T> _vector;
};

/// The same as v * factor.
template <class T>
GeVector2<T> operator*( T factor, const GeUnitVector2<T>& v );
/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeUnitVector2<T>& v );
/// Reads the text form, as read() does.
template <class T>
std::istream& operator>>( std::istream& is, GeUnitVector2<T>& v );

} // namespace Zq

#include "geUnitVector2.inline"

namespace Zq
{

extern template class GeUnitVector2<float>;
extern template class GeUnitVector2<double>;

static_assert(
    sizeof( GeUnitVector2<float> ) == 2 * sizeof( float ) && std::is_trivially_copyable_v<GeUnitVector2<float>> );
static_assert(
    sizeof( GeUnitVector2<double> ) == 2 * sizeof( double ) && std::is_trivially_copyable_v<GeUnitVector2<double>> );

} // namespace Zq

#endif
