#ifndef ZQ_PRIMITIVES_GEUNITVECTOR3_H
#define ZQ_PRIMITIVES_GEUNITVECTOR3_H

#include "geVector3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// Selects the constructors that take components which have unit length already.
enum GeTrusted
{
    GE_TRUSTED
};

/// A direction: a vector of length 1. For float and double.
///
/// The length is 1 within the default tolerance of FloatUtil::isEqual when the vector is constructed from components;
/// only the default constructor makes an exception, with the zero vector. Operations whose result need not have unit
/// length return a GeVector3. A unit vector converts to a vector implicitly and can be passed wherever one is read.
///
/// Normalisation squares the length in T: it works for float components between about 1e-19 and 1.8e19. Above, the
/// squared length overflows and the stored direction is the zero vector, without a report; below, it underflows.
template <class T>
class ZQ_PRIMITIVES_API GeUnitVector3
{
public:
    /// @name Construction
    /// @{

    /// The zero vector, to be assigned later.
    GeUnitVector3();
    /// Normalises. Reports "len > 0" (src/primitives/geVector3.inline, line 496) for a zero length and for NaN.
    GeUnitVector3( T x, T y, T z );
    /// Normalises, with the same report.
    explicit GeUnitVector3( const GeVector3<T>& vector );
    /// Stores the components as they are. Reports "FloatUtil::isEqual( length(), static_cast<T>(1.0) )"
    /// (src/primitives/geVector3.inline, line 525) unless they have unit length within the default tolerance.
    GeUnitVector3( T x, T y, T z, GeTrusted );
    /// @}

    /// @name Conversion
    /// @{

    /// The direction as the vector that it holds, without a copy.
    operator const GeVector3<T>&() const; // NOLINT(google-explicit-constructor): a unit vector is a vector
    /// @}

    /// @name Access
    /// The components; there is no way to set one alone.
    /// @{
    T getX() const;
    T getY() const;
    T getZ() const;
    /// Component 0, 1 or 2; any other index is undefined.
    T operator[]( int index ) const;
    /// @}

    /// @name Comparison
    /// As for GeVector3: == and isEqualExact() compare exactly, isEqual() takes each component within the tolerance,
    /// strictly. != is the exact negation of ==.
    /// @{
    bool operator==( const GeUnitVector3<T>& other ) const;
    bool operator!=( const GeUnitVector3<T>& other ) const;
    bool isEqualExact( const GeUnitVector3<T>& other ) const;
    bool isEqual( const GeUnitVector3<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// As for GeVector3. Only the opposite direction is known to have unit length; everything else is a vector.
    /// @{
    GeUnitVector3<T> operator-() const;
    GeVector3<T> operator+( const GeVector3<T>& other ) const;
    GeVector3<T> operator-( const GeVector3<T>& other ) const;
    GeVector3<T> operator*( T factor ) const;
    /// @}

    /// @name Queries
    /// length(), dot() and cross() are those of GeVector3; the length is worked out, and 1 but for rounding.
    /// @{
    T length() const;
    T dot( const GeVector3<T>& other ) const;
    GeVector3<T> cross( const GeVector3<T>& other ) const;

    /// Mirrors this direction about a normal: 2 (v . n) n - v. Both point away from the surface. The result is a plain
    /// vector: rounding may take it off unit length. `cosine` receives v . n.
    GeVector3<T> computeReflection( const GeUnitVector3<T>& normal, T& cosine ) const;
    /// The angle between two directions in radians, 0 to pi: the arc cosine of their dot product, limited to [-1, 1].
    T computeAngle( const GeUnitVector3<T>& other ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form of GeVector3; no line end.
    std::ostream& dump( std::ostream& os ) const;
    /// Reads the text form of any vector and normalises it: (3, 0, 4) becomes (0.6, 0, 0.8). A zero vector is read
    /// without complaint and leaves the direction as it was. On failure the direction is unchanged and failbit is set.
    std::istream& read( std::istream& is );
    /// @}

private:
    // For components that are known to be of unit length because they come from a unit vector.
    struct Unchecked
    {
    };
    GeUnitVector3( const GeVector3<T>& vector, Unchecked );

    GeVector3<T> _vector;
};

/// The same as v * factor.
template <class T>
GeVector3<T> operator*( T factor, const GeUnitVector3<T>& v );
/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeUnitVector3<T>& v );
/// Reads the text form, as read() does.
template <class T>
std::istream& operator>>( std::istream& is, GeUnitVector3<T>& v );

} // namespace Zq

#include "geUnitVector3.inline"

namespace Zq
{

extern template class GeUnitVector3<float>;
extern template class GeUnitVector3<double>;

static_assert(
    sizeof( GeUnitVector3<float> ) == 3 * sizeof( float ) && std::is_trivially_copyable_v<GeUnitVector3<float>> );
static_assert(
    sizeof( GeUnitVector3<double> ) == 3 * sizeof( double ) && std::is_trivially_copyable_v<GeUnitVector3<double>> );

} // namespace Zq

#endif
