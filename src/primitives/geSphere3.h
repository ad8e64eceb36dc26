#ifndef ZQ_PRIMITIVES_GESPHERE3_H
#define ZQ_PRIMITIVES_GESPHERE3_H

#include "geVector3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A sphere: a centre and a radius. For float and double.
///
/// The radius is not checked. The queries square it, so a negative one is met like its absolute value; only the
/// closest point then lies on the far side.
///
/// Text form: "GeSphere {(0, 0, 0), 1} ", with a blank at the end, in the number format and locale of the stream.
template <class T>
class ZQ_PRIMITIVES_API GeSphere3
{
public:
    /// @name Construction
    /// @{

    /// Radius 0 at the origin.
    GeSphere3();
    /// From a centre and a radius, stored as they are.
    GeSphere3( const GePoint3<T>& center, T radius );
    /// @}

    /// @name Access
    /// @{

    /// The centre.
    const GePoint3<T>& getCenter() const;
    /// The radius, with the sign that it was given.
    T getRadius() const;
    /// @}

    /// @name Comparison
    /// @{

    /// The same as isEqualExact().
    bool operator==( const GeSphere3<T>& other ) const;
    /// The exact negation of ==.
    bool operator!=( const GeSphere3<T>& other ) const;
    /// Centre and radius equal; -0 equals 0, NaN equals nothing.
    bool isEqualExact( const GeSphere3<T>& other ) const;
    /// Each coordinate of the centre and the radius within their tolerances, strictly; see FloatUtil::isEqual.
    bool isEqual( const GeSphere3<T>& other, T centreTolerance, T radiusTolerance ) const;
    /// @}

    /// @name Queries
    /// @{

    /// Where the line origin + t * direction enters (t0) and leaves (t1) the sphere: t0 <= t1, and the whole line
    /// counts, so that both are negative for a sphere behind the origin. The direction need not have unit length; t is
    /// measured in its lengths. A line that misses is answered with false, and t0 and t1 stay as they were.
    ///
    /// What decides is the discriminant, which scales with the squared length of the direction times the squared size
    /// of the sphere: below -0.0001 is a miss. A line that misses by less counts as a hit, but its roots are NaN, the
    /// square roots of a negative number. Callers who follow tangents test t0 == t0.
    ///
    /// A direction counts as zero when its squared length is 0 within the default tolerance of FloatUtil::isEqual.
    /// The equation then loses its square, and t0 and t1 both are the root of what is left; without one (the dot
    /// product of direction and origin - centre is 0, too) the answer is false. NaN input gives true with NaN roots.
    bool intersectRay( const GePoint3<T>& origin, const GeVector3<T>& direction, T& t0, T& t1 ) const;

    /// The point of the sphere closest to the ray from origin along direction, which must have unit length for that.
    /// False, with `closest` as it was, when the origin lies strictly inside the sphere or the centre behind the
    /// origin. For a ray that meets the sphere it is the point above the middle of its way through; when the ray runs
    /// through the very centre, no point is closest and the answer is the centre.
    bool getClosestPoint( const GePoint3<T>& origin, const GeVector3<T>& direction, GePoint3<T>& closest ) const;
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
    GePoint3<T> _center;
    T _radius;
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeSphere3<T>& sphere );

} // namespace Zq

#include "geSphere3.inline"

namespace Zq
{

extern template class GeSphere3<float>;
extern template class GeSphere3<double>;

static_assert( sizeof( GeSphere3<float> ) == 4 * sizeof( float ) && std::is_trivially_copyable_v<GeSphere3<float>> );
static_assert( sizeof( GeSphere3<double> ) == 4 * sizeof( double ) && std::is_trivially_copyable_v<GeSphere3<double>> );

} // namespace Zq

#endif
