#ifndef ZQ_PRIMITIVES_GEALIGNEDBOX_H
#define ZQ_PRIMITIVES_GEALIGNEDBOX_H

#include "../base/interval.h"
#include "geVector3.h"

#include <cstddef>
#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// An axis-aligned box: one closed interval per axis, x, y, z. For float and double.
///
/// Axis 0, 1, 2 is x, y, z. Corners have a 3-bit index: bit value 1 selects the upper bound of x, 2 of y, 4 of z.
/// A box is empty when all three of its intervals are inverted (max < min); the canonical empty box has each from the
/// largest finite value down to its negative, so that extending it by a point gives the box of that point. A box that
/// is inverted on one or two axes is not empty, yet contains no point. Boxes are used as they are: nothing checks for
/// inverted bounds, and NaN follows the comparisons stated. Queries come in pairs: the plain name counts the
/// boundary, the suffix Exclude leaves it out.
///
/// Text form: "( X=[ 0, 1 ], Y=[ 0, 1 ], Z=[ 0, 1 ] )", with the number format and locale of the stream.
template <class T>
class ZQ_PRIMITIVES_API GeAlignedBox3
{
public:
    /// @name Construction
    /// @{

    /// The canonical empty box.
    GeAlignedBox3();
    /// From intervals, stored as they are, inverted or not.
    GeAlignedBox3( Interval<T> x, Interval<T> y, Interval<T> z );
    /// The box of a single point.
    explicit GeAlignedBox3( const GePoint3<T>& point );
    /// The smallest box that holds both points, in either order.
    GeAlignedBox3( const GePoint3<T>& p, const GePoint3<T>& q );
    /// @}

    /// @name Access
    /// @{

    /// The interval of axis 0, 1 or 2; any other is undefined.
    Interval<T> getInterval( int axis ) const;
    /// Replaces the interval of axis 0, 1 or 2 as it is given; any other is undefined.
    void setInterval( int axis, const Interval<T>& interval );
    /// (min + max) * 0.5 on each axis; overflows where the sum does.
    GePoint3<T> getCenter() const;
    /// max - min on each axis, negative where the interval is inverted.
    GeVector3<T> getSize() const;
    /// The product of the three sizes, (z y) x.
    T getVolume() const;
    /// The corner of a 3-bit index; higher bits are ignored.
    GePoint3<T> getCorner( int index ) const;
    /// The corner with the smallest n . p: the upper bound where the component of the normal is < 0, else the lower.
    GePoint3<T> getNearCorner( const GeVector3<T>& normal ) const;
    /// The corner with the largest n . p: the upper bound where the component of the normal is > 0, else the lower.
    /// A zero component takes the lower bound here and in getNearCorner().
    GePoint3<T> getFarCorner( const GeVector3<T>& normal ) const;
    /// Passes the eight corners to the functor, in the Gray code order 0, 1, 3, 7, 5, 4, 6, 2, in which neighbours
    /// differ in one coordinate. Stops when the functor answers false. A functor may change the box; the corners are
    /// those that it had before the first call.
    void enumerateCorners( UnaryFunctor<GePoint3<T>, bool>& functor ) const;
    /// @}

    /// @name Growth
    /// @{

    /// Whether every interval has max < min.
    bool isEmpty() const;
    /// Grows bound by bound to hold a point; returns this box. A NaN coordinate changes nothing.
    GeAlignedBox3<T>& extend( const GePoint3<T>& point );
    /// Grows bound by bound to hold another box; returns this box. A NaN bound changes nothing.
    GeAlignedBox3<T>& extend( const GeAlignedBox3<T>& other );
    /// Grows to hold all of the points, as if one after the other: where zeros of both signs are smallest or largest, the
    /// first is kept.
    GeAlignedBox3<T>& extend( const GePoint3<T>* points, std::size_t count );
    /// @}

    /// @name Comparison
    /// @{

    /// All six bounds equal; -0 equals 0, NaN equals nothing.
    bool isEqualExact( const GeAlignedBox3<T>& other ) const;
    /// All six bounds within the tolerance, strictly; see FloatUtil::isEqual.
    bool isEqual( const GeAlignedBox3<T>& other, T tolerance ) const;
    /// @}

    /// @name Queries
    /// @{

    /// min <= p <= max on every axis.
    bool contains( const GePoint3<T>& point ) const;
    /// min < p < max on every axis.
    bool containsExclude( const GePoint3<T>& point ) const;
    /// min <= other.min and other.max <= max on every axis; a box contains itself.
    bool contains( const GeAlignedBox3<T>& other ) const;
    /// The same with <.
    bool containsExclude( const GeAlignedBox3<T>& other ) const;

    /// What this box is relative to the other, both closed: CONTAIN when this one contains the other, INSIDE when the
    /// other contains it (equal boxes too), OUTSIDE when they have no point in common, else OVERLAP. Boxes that share
    /// a face, an edge or a corner overlap. The axes must agree: a box that is inside on one axis and contains on
    /// another overlaps, and so does a box that equals the other on one axis and contains it on the rest, because
    /// equal intervals are INSIDE.
    typename Interval<T>::Containment classify( const GeAlignedBox3<T>& other ) const;
    /// The same, both open: boxes that only touch are OUTSIDE.
    typename Interval<T>::Containment classifyExclude( const GeAlignedBox3<T>& other ) const;
    /// classify() for arrays, and much faster: verdict i, a byte with the value of the enumerator, is what this box is to
    /// others[i]. Any count, also 0; no alignment is asked for. The verdicts must not lie within the boxes.
    void classify( const GeAlignedBox3<T>* others, std::size_t count, unsigned char* verdicts ) const;
    /// classifyExclude() for arrays, in the same way.
    void classifyExclude( const GeAlignedBox3<T>* others, std::size_t count, unsigned char* verdicts ) const;

    /// Offsets from a point to the nearest and to the farthest point of the box, box point minus p, each axis by
    /// itself. At or beyond a bound the offset to it is the smaller one; strictly inside, the smaller is 0 and the
    /// larger goes to the farther bound (to the upper one when both are equally far).
    void computeMinMaxDistanceVectors( const GePoint3<T>& point, GeVector3<T>& minDist, GeVector3<T>& maxDist ) const;

    /// The range of t for which origin + t * direction lies in the box, over the whole line, negative t included.
    /// Empty (max < min) where the line misses. An axis with a zero direction sets no limit, or, when the origin lies
    /// outside the bounds of that axis, makes the result the canonical empty interval; with a zero direction
    /// throughout, the result is either that or everything finite. Touching the boundary counts.
    /// Source: T. Kay and J. Kajiya, Ray Tracing Complex Scenes, 1986 (slabs).
    Interval<T> intersectLine( const GePoint3<T>& origin, const GeVector3<T>& direction ) const;
    /// One line and many boxes: ranges[i] is what boxes[i].intersectLine( origin, direction ) gives. The ranges must not
    /// lie within the boxes.
    static void intersectLine( const GeAlignedBox3<T>* boxes, std::size_t count, const GePoint3<T>& origin,
        const GeVector3<T>& direction, Interval<T>* ranges );
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
    /// intersectLine() axis by axis, for any direction.
    Interval<T> intersectSlabs( const GePoint3<T>& origin, const GeVector3<T>& direction ) const;

    Interval<T> _intervals[3];
};

/// The same as isEqualExact().
template <class T>
bool operator==( const GeAlignedBox3<T>& a, const GeAlignedBox3<T>& b );
/// The exact negation of ==.
template <class T>
bool operator!=( const GeAlignedBox3<T>& a, const GeAlignedBox3<T>& b );
/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeAlignedBox3<T>& box );

} // namespace Zq

#include "geAlignedBox.inline"

namespace Zq
{

extern template class GeAlignedBox3<float>;
extern template class GeAlignedBox3<double>;

static_assert(
    sizeof( GeAlignedBox3<float> ) == 6 * sizeof( float ) && std::is_trivially_copyable_v<GeAlignedBox3<float>> );
static_assert(
    sizeof( GeAlignedBox3<double> ) == 6 * sizeof( double ) && std::is_trivially_copyable_v<GeAlignedBox3<double>> );

} // namespace Zq

#endif
