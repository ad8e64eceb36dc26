#ifndef ZQ_PRIMITIVES_UNARYFUNCTOR_H
#define ZQ_PRIMITIVES_UNARYFUNCTOR_H

#include "forward.h"

#include <cstddef>

// std::unary_function left the standard with C++17, but not every standard library. <functional> is its home and costs a
// client 14,000 lines; GNU's library has it beside std::less, which <set> needs as a default.
#if defined( __GLIBCXX__ )
#    include <set>
#    define ZQ_HAS_UNARY_FUNCTION 1
#elif ( defined( _HAS_AUTO_PTR_ETC ) && _HAS_AUTO_PTR_ETC ) ||                                                         \
    ( defined( _LIBCPP_VERSION ) && defined( _LIBCPP_ENABLE_CXX17_REMOVED_UNARY_BINARY_FUNCTION ) )
#    include <functional>
#    define ZQ_HAS_UNARY_FUNCTION 1
#else
#    define ZQ_HAS_UNARY_FUNCTION 0
#endif

namespace Zq
{

namespace Detail
{

// Where the standard library has no std::unary_function, an equivalent empty base with the same two member types takes its
// place. The deprecation is silenced here and nowhere else.
#if ZQ_HAS_UNARY_FUNCTION

#    if defined( __GNUC__ )
#        pragma GCC diagnostic push
#        pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#    endif
template <class Arg, class Result>
struct ZQ_TEMPLATE_API UnaryFunctorBase : public std::unary_function<Arg, Result>
{
};
#    if defined( __GNUC__ )
#        pragma GCC diagnostic pop
#    endif

#else

template <class Arg, class Result>
struct ZQ_TEMPLATE_API UnaryFunctorBase
{
    using argument_type = Arg;
    using result_type = Result;
};

#endif
#undef ZQ_HAS_UNARY_FUNCTION

} // namespace Detail

/// The callback through which builders are fed and through which the library hands values to client code.
/// A bool result says whether the caller is to go on: false ends the enumeration that calls the functor.
/// A functor passed to the library is borrowed for the length of the call. Derive from it:
///
///     struct Counter : Zq::UnaryFunctor<Zq::GePoint3<float>, bool>
///     {
///         int n = 0;
///         bool operator()( const Zq::GePoint3<float>& ) override { return ++n < 100; }
///     };
template <class Arg, class Result>
class ZQ_TEMPLATE_API UnaryFunctor : public Detail::UnaryFunctorBase<Arg, Result>
{
public:
    /// @name Slots
    /// The order of these two is part of the binary interface.
    /// @{

    /// Functors are deleted through this class, too.
    virtual ~UnaryFunctor();
    /// Takes one value; what the result means is up to the caller, but for bool: false says stop.
    virtual Result operator()( const Arg& argument ) = 0;
    /// @}

    /// @name Construction
    /// There is nothing to set up or to copy here.
    /// @{
    UnaryFunctor() = default;
    UnaryFunctor( const UnaryFunctor& ) = default;
    UnaryFunctor& operator=( const UnaryFunctor& ) = default;
    /// @}
};

template <class Arg, class Result>
inline UnaryFunctor<Arg, Result>::~UnaryFunctor() = default;

extern template class UnaryFunctor<GePoint3<float>, bool>;
extern template class UnaryFunctor<GePoint3<double>, bool>;
extern template class UnaryFunctor<GeUnitVector3<float>, void>;
extern template class UnaryFunctor<GeVector3<float>, void>;

} // namespace Zq

#endif
