#ifndef ZQ_PRIMITIVES_GEVECTOR2UTILS_H
#define ZQ_PRIMITIVES_GEVECTOR2UTILS_H

#include "geVector2.h"

namespace Zq
{

/// Measures in the plane. For float and double.
template <class T>
class ZQ_PRIMITIVES_API GeVector2Utils
{
public:
    GeVector2Utils() = delete;

    /// @name Queries
    /// @{

    /// The squared distance from p to the segment between a and b, its ends included, or, with `infiniteLine`, to the
    /// whole line through a and b. Where a and b coincide, or the square of their distance underflows to 0, it is the
    /// squared distance from p to a with either flag.
    ///
    /// Everything is rounded to T. The perpendicular distance comes from the area that p spans with the segment: its
    /// error is of the order of epsilon times the squared distance from p to a, so a far away makes it large. Points
    /// that are not finite follow the arithmetic, without a report.
    static T distanceSquaredFromPointToLineSegment( GePoint2<T> p, GePoint2<T> a, GePoint2<T> b, bool infiniteLine );
    /// @}
};

extern template class GeVector2Utils<float>;
extern template class GeVector2Utils<double>;

} // namespace Zq

#endif
