#ifndef ZQ_PRIMITIVES_GENORMALIZEDPLANE3_H
#define ZQ_PRIMITIVES_GENORMALIZEDPLANE3_H

#include "gePlane3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A plane whose normal (a, b, c) has length 1, so that its value at a point, a x + b y + c z + d, is the signed
/// distance: positive on the side to which the normal points. For float and double.
///
/// Constructors normalise what is given: the normal and d are divided by the normal's length, which leaves the plane
/// where it is. A NaN normal is stored as NaN, and a length that overflows leaves a zero normal; see
/// GeVector3::normalize for the working range.
///
/// Text form: that of GePlane3.
template <class T>
class ZQ_PRIMITIVES_API GeNormalizedPlane3
{
public:
    /// @name Construction
    /// @{

    /// The plane z = 0, facing up: (0, 0, 1), 0.
    GeNormalizedPlane3();
    /// From numbers, normalised. Reports "len != 0" (src/primitives/geNormalizedPlane3.inline) for a normal of length 0.
    GeNormalizedPlane3( T a, T b, T c, T d );
    /// From a normal of any length but 0, with the same report.
    GeNormalizedPlane3( const GeVector3<T>& normal, T d );
    /// From a plane of any normal but 0, with the same report.
    explicit GeNormalizedPlane3( const GePlane3<T>& plane );
    /// Stores both as they are; d is a distance already.
    GeNormalizedPlane3( const GeUnitVector3<T>& normal, T d );
    /// @}

    /// @name Access
    /// @{

    /// (a, b, c).
    const GeVector3<T>& getNormal() const;
    /// d.
    T getOffset() const;
    /// Turns the plane to face the other way.
    void flip();
    /// @}

    /// @name Comparison
    /// @{

    /// The same as isEqualExact().
    bool operator==( const GeNormalizedPlane3<T>& other ) const;
    /// The exact negation of ==.
    bool operator!=( const GeNormalizedPlane3<T>& other ) const;
    /// a, b, c and d equal; a flipped plane differs. -0 equals 0, NaN equals nothing.
    bool isEqualExact( const GeNormalizedPlane3<T>& other ) const;
    /// a, b, c and d each within the tolerance, strictly; see FloatUtil::isEqual.
    bool isEqual( const GeNormalizedPlane3<T>& other, T tolerance ) const;
    /// @}

    /// @name Queries
    /// @{

    /// The signed distance of a point: a x + b y + c z + d, summed from left to right.
    T computeValue( const GePoint3<T>& point ) const;

    /// Where the line origin + t * direction meets the plane. Any sign of t counts: a plane behind the origin gives
    /// true and a negative t. False, and t unchanged, when the line is parallel: when the change of distance for t = 1,
    /// the dot product of normal and direction, is 0 within the default tolerance of FloatUtil::isEqual. That makes a
    /// very short direction parallel too, so give directions a length near 1. NaN is not parallel; t becomes NaN.
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
    friend class GePlane3Builder<T>;

    // For a normal that was normalised by the caller, who checked its length.
    struct Unchecked
    {
    };
    GeNormalizedPlane3( const GeVector3<T>& normal, T d, Unchecked );

    GePlane3<T> _plane;
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeNormalizedPlane3<T>& plane );

} // namespace Zq

#include "geNormalizedPlane3.inline"

namespace Zq
{

extern template class GeNormalizedPlane3<float>;
extern template class GeNormalizedPlane3<double>;

static_assert( sizeof( GeNormalizedPlane3<float> ) == 4 * sizeof( float ) &&
    std::is_trivially_copyable_v<GeNormalizedPlane3<float>> );
static_assert( sizeof( GeNormalizedPlane3<double> ) == 4 * sizeof( double ) &&
    std::is_trivially_copyable_v<GeNormalizedPlane3<double>> );

} // namespace Zq

#endif
