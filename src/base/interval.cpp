#include "interval.h"

#include "text/textWriter.imp"

namespace Zq
{

// Codes that no two non-empty intervals produce are answered by the comparison bits alone.

template <class T>
const typename Interval<T>::Containment Interval<T>::_inclContMap[8] = {
    OUTSIDE, // 0
    OUTSIDE, // 1: covers, yet does not meet
    OUTSIDE, // 2: apart
    OUTSIDE, // 3
    INSIDE,  // 4: meets, does not reach outside
    INSIDE,  // 5: equal
    OVERLAP, // 6: meets and reaches outside
    CONTAIN  // 7: meets, reaches outside and covers
};

template <class T>
const typename Interval<T>::Containment Interval<T>::_exclContMap[8] = {
    OUTSIDE, // 0
    OUTSIDE, // 1: equal single points
    INSIDE,  // 2: meets, does not reach outside
    INSIDE,  // 3: equal
    OUTSIDE, // 4: apart, or touching
    OUTSIDE, // 5
    OVERLAP, // 6: reaches outside and meets
    CONTAIN  // 7: reaches outside, meets and covers
};

template <class T>
std::ostream& Interval<T>::dump( std::ostream& os ) const
{
    return Detail::dumpText( os, *this );
}

template class Interval<float>;
template class Interval<double>;

} // namespace Zq
