#ifndef ZQ_PRIMITIVES_RNRNG_H
#define ZQ_PRIMITIVES_RNRNG_H

#include "forward.h"

namespace Zq
{

/// A source of random numbers, as the library asks for them; programs bring their own. For float and double.
/// Derive from it around any generator, for example
///
///     struct Dice : Zq::RnRng<float>
///     {
///         std::mt19937 engine;
///         float operator()() override { return static_cast<float>( engine() >> 8 ) * 0x1p-24F; }
///     };
template <class T>
class ZQ_TEMPLATE_API RnRng
{
public:
    /// @name Slots
    /// The order of these two is part of the binary interface.
    /// @{

    /// The next number, uniform in [0, 1].
    virtual T operator()() = 0;
    /// Generators are deleted through this class, too.
    virtual ~RnRng();
    /// @}

    /// @name Construction
    /// There is nothing to set up or to copy here.
    /// @{
    RnRng() = default;
    RnRng( const RnRng& ) = default;
    RnRng& operator=( const RnRng& ) = default;
    /// @}
};

template <class T>
inline RnRng<T>::~RnRng() = default;

extern template class RnRng<float>;
extern template class RnRng<double>;

} // namespace Zq

#endif
