#ifndef ZQ_PRIMITIVES_GEPLANE3_H
#define ZQ_PRIMITIVES_GEPLANE3_H

#include "geVector3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A plane with a normal (a, b, c) of any length and an offset d. For float and double.
///
/// The value of the plane at a point p is a x + b y + c z + d; the plane is where it is 0, and the normal points to
/// the side where it is positive. Nothing is normalised or checked: a zero normal is stored like any other. Where the
/// value has to be a distance, use GeNormalizedPlane3.
///
/// Text form: "[a, b, c, d]", as in "[1, 0, 0, -1]", with the number format and locale of the stream.
template <class T>
class ZQ_PRIMITIVES_API GePlane3
{
public:
    /// @name Construction
    /// @{

    /// The plane z = 0, facing up: (0, 0, 1), 0.
    GePlane3();
    /// From numbers, stored as they are.
    GePlane3( T a, T b, T c, T d );
    /// From a normal and d, stored as they are.
    GePlane3( const GeVector3<T>& normal, T d );
    /// @}

    /// @name Access
    /// @{

    /// (a, b, c).
    const GeVector3<T>& getNormal() const;
    /// d.
    T getOffset() const;
    /// @}

    /// @name Comparison
    /// @{

    /// The same as isEqualExact().
    bool operator==( const GePlane3<T>& other ) const;
    /// The exact negation of ==.
    bool operator!=( const GePlane3<T>& other ) const;
    /// a, b, c and d equal; multiples of a plane differ from it. -0 equals 0, NaN equals nothing.
    bool isEqualExact( const GePlane3<T>& other ) const;
    /// a, b, c and d each within the tolerance, strictly; see FloatUtil::isEqual.
    bool isEqual( const GePlane3<T>& other, T tolerance ) const;
    /// @}

    /// @name Queries
    /// @{

    /// a x + b y + c z + d, summed from left to right.
    T computeValue( const GePoint3<T>& point ) const;

    /// Where the line origin + t * direction meets the plane with the unit normal (a, b, c) / |(a, b, c)| and the
    /// offset d as it stands. The offset is not scaled along with the normal, on purpose: t belongs to this plane only
    /// when the normal has unit length. For (2, 0, 0, -2), the plane x = 1, and the x axis t is 2. Make a
    /// GeNormalizedPlane3 of the plane to get 1.
    /// Otherwise as GeNormalizedPlane3::intersectRay; a zero normal is parallel to everything.
    bool intersectRay( const GePoint3<T>& origin, const GeVector3<T>& direction, T& t ) const;
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
    GeVector3<T> _normal;
    T _d;
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GePlane3<T>& plane );

} // namespace Zq

#include "gePlane3.inline"

namespace Zq
{

extern template class GePlane3<float>;
extern template class GePlane3<double>;

static_assert( sizeof( GePlane3<float> ) == 4 * sizeof( float ) && std::is_trivially_copyable_v<GePlane3<float>> );
static_assert( sizeof( GePlane3<double> ) == 4 * sizeof( double ) && std::is_trivially_copyable_v<GePlane3<double>> );

} // namespace Zq

#endif
