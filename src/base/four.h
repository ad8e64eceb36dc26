#ifndef ZQ_BASE_FOUR_H
#define ZQ_BASE_FOUR_H

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace Zq
{

/// What the hot paths of the value classes are written in where the compiler does not find it by itself. Internal to the
/// library.
namespace Detail
{

/// a or b without a jump, which a condition may become: for choices that no processor can predict.
template <class T>
inline T select( bool condition, T a, T b )
{
    using Bits = std::conditional_t<sizeof( T ) == sizeof( std::uint32_t ), std::uint32_t, std::uint64_t>;
    Bits x;
    Bits y;
    std::memcpy( &x, &a, sizeof x );
    std::memcpy( &y, &b, sizeof y );
    const Bits mask = Bits( 0 ) - Bits( condition );
    x = ( x & mask ) | ( y & ~mask );
    std::memcpy( &a, &x, sizeof a );
    return a;
}

/// Whether Four<T> is a vector of four in one register, on whose lanes + - * / < and ?: work as on scalars.
template <class T>
inline constexpr bool hasFour = false;

template <class T>
struct FourOf;

#if defined( __GNUC__ )

template <>
inline constexpr bool hasFour<float> = true;

template <>
struct FourOf<float>
{
    // NOLINTBEGIN(modernize-use-using): an alias loses the attributes
    typedef float Type __attribute__( ( vector_size( 16 ) ) );
    typedef float Unaligned __attribute__( ( vector_size( 16 ), aligned( 4 ), may_alias ) );
    // NOLINTEND(modernize-use-using)
};

#endif

template <class T>
using Four = typename FourOf<T>::Type;

/// From four scalars in a row, at any address.
template <class T>
inline Four<T> loadFour( const void* scalars )
{
    return *static_cast<const typename FourOf<T>::Unaligned*>( scalars );
}

template <class T>
inline Four<T> spreadFour( T x )
{
    return Four<T>{ x, x, x, x };
}

} // namespace Detail

} // namespace Zq

#endif
