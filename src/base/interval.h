#ifndef ZQ_BASE_INTERVAL_H
#define ZQ_BASE_INTERVAL_H

#include "forward.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// The closed range [min, max] of a scalar, for float and double.
///
/// An interval with max < min is empty. Every operation uses exactly the comparisons that it states, so a NaN bound
/// makes each of them false: then isEmpty() is false and isNotEmpty() true, hasVolume() false, and nothing is contained.
/// Operations come in pairs: the plain name counts the boundaries, the name with the suffix Exclude does not.
///
/// Text form: "[ 0, 1 ]", lower bound first; empty intervals alike.
template <class T>
class ZQ_BASE_API Interval
{
public:
    /// How one interval, or box, lies relative to another.
    enum Containment
    {
        OUTSIDE = 0, ///< they do not overlap
        INSIDE = 1,  ///< this one lies inside the other
        OVERLAP = 2, ///< they overlap partly
        CONTAIN = 3  ///< this one contains the other
    };

    /// @name Construction
    /// @{

    /// Leaves both bounds uninitialised; see makeEmpty().
    Interval() = default;
    /// From bounds, stored as they are.
    Interval( T lower, T upper );

    /// The canonical empty interval: from the largest finite value down to its negative. extend() of it by x is [x, x].
    static Interval<T> makeEmpty();
    /// @}

    /// @name Measures
    /// @{

    /// max - min; negative for an empty interval.
    T getLength() const;
    /// max < min.
    bool isEmpty() const;
    /// not ( max < min ); the complement of isEmpty(), also for NaN.
    bool isNotEmpty() const;
    /// max > min.
    bool hasVolume() const;
    /// @}

    /// @name Growth
    /// @{

    /// Grows to hold x; returns this interval.
    Interval<T>& extend( T x );
    /// Grows bound by bound to hold the other; the canonical empty interval changes nothing. Returns this interval.
    Interval<T>& extend( const Interval<T>& other );
    /// A copy, grown to hold x.
    Interval<T> extended( T x ) const;
    /// Shrinks to what both hold; empty when they are apart. Returns this interval.
    Interval<T>& intersect( const Interval<T>& other );
    /// @}

    /// @name Queries
    /// @{

    /// min <= x <= max.
    bool contains( T x ) const;
    /// min < x < max.
    bool containsExclude( T x ) const;
    /// min <= other.min and other.max <= max.
    bool contains( const Interval<T>& other ) const;
    /// min < other.min and other.max < max.
    bool containsExclude( const Interval<T>& other ) const;

    /// This interval relative to the other, as closed ranges: touching counts as OVERLAP, equal intervals are INSIDE.
    Containment classify( const Interval<T>& other ) const;
    /// The same as open ranges: touching is OUTSIDE. Equal intervals are INSIDE here too.
    Containment classifyExclude( const Interval<T>& other ) const;
    /// @}

    /// @name Comparison
    /// @{

    /// Both bounds equal; -0 equals 0, NaN equals nothing.
    bool isEqualExact( const Interval<T>& other ) const;
    /// Both bounds within the tolerance, strictly; see FloatUtil::isEqual.
    bool isEqual( const Interval<T>& other, T tolerance ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form; no line end.
    std::ostream& dump( std::ostream& os ) const;
    /// @}

    /// @name Bounds
    /// @{
    T min; ///< the lower bound
    T max; ///< the upper bound
    /// @}

    /// @name Tables
    /// @{

    /// What classify() answers, indexed by the three-bit code of its comparisons.
    static const Containment _inclContMap[8];
    /// The same of classifyExclude().
    static const Containment _exclContMap[8];
    /// @}
};

/// The same as isEqualExact().
template <class T>
bool operator==( const Interval<T>& a, const Interval<T>& b );
/// The exact negation of ==.
template <class T>
bool operator!=( const Interval<T>& a, const Interval<T>& b );
/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const Interval<T>& interval );

} // namespace Zq

#include "interval.inline"

namespace Zq
{

extern template class Interval<float>;
extern template class Interval<double>;

static_assert( sizeof( Interval<float> ) == 2 * sizeof( float ) && std::is_trivially_copyable_v<Interval<float>> );
static_assert( sizeof( Interval<double> ) == 2 * sizeof( double ) && std::is_trivially_copyable_v<Interval<double>> );

} // namespace Zq

#endif
