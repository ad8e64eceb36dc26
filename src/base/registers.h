#ifndef ZQ_BASE_REGISTERS_H
#define ZQ_BASE_REGISTERS_H

#include <cstdint>
#include <cstring>
#include <type_traits>

#define ZQ_HAS_VECTOR_TYPES 0
#if defined( __has_attribute )
#    if __has_attribute( vector_size ) && __has_attribute( may_alias )
#        undef ZQ_HAS_VECTOR_TYPES
#        define ZQ_HAS_VECTOR_TYPES 1
#    endif
#endif

namespace Zq
{

/// What the inlined bodies of the value classes are written in where the compiler does not find it by itself: several
/// scalars in one register, and a choice without a jump. It is installed because those bodies are, and an implementation
/// detail all the same: it may change with any version, and nothing outside the library should use it.
///
/// On a register + - * / and unary - work lane by lane as on scalars, with the same rounding, NaN and signs of zero, and
/// [i] is lane i. A comparison makes a mask, integers of which each is -1 where it holds, else 0; a comparison with NaN
/// does not hold, and -0 equals 0. mask ? a : b takes each lane as it is.
namespace Detail
{

/// a where the condition holds, else b, without the jump that a conditional may become: for choices that no processor can
/// predict. The bits as they are, NaN and the sign of zero included.
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

/// Whether the compiler has registers of several T; without them the classes use scalars, with the same bits.
inline constexpr bool hasRegisters = ZQ_HAS_VECTOR_TYPES;

template <class T, int nbLanes>
struct RegisterOf;
#if ZQ_HAS_VECTOR_TYPES
template <class T, int nbLanes>
struct RegisterOf
{
    // NOLINTBEGIN(modernize-use-using): an alias loses the attributes
    typedef T Type __attribute__( ( vector_size( nbLanes * sizeof( T ) ) ) );
    typedef T Unaligned __attribute__( ( vector_size( nbLanes * sizeof( T ) ), aligned( sizeof( T ) ), may_alias ) );
    // NOLINTEND(modernize-use-using)
};
#endif

/// nbLanes of T in one register: two or four, of 32 bytes at most.
template <class T, int nbLanes>
using Register = typename RegisterOf<T, nbLanes>::Type;

template <class T>
using Four = Register<T, 4>;

/// Whether every processor has a register of four T.
template <class T>
inline constexpr bool hasFour = hasRegisters && sizeof( T ) == 4;

// What the program is compiled for, which can differ between its units: whatever depends on it is told by template
// arguments, so that no unit gets the functions of another.
#if defined( __AVX__ )
constexpr bool HAS_AVX = true;
#else
constexpr bool HAS_AVX = false;
#endif

/// The most lanes that a register has, up to four.
template <class T>
constexpr int LANE_COUNT = HAS_AVX ? 4 : 16 / int( sizeof( T ) );

/// From scalars in a row, at any address.
template <class T, int nbLanes>
inline Register<T, nbLanes> loadRegister( const void* scalars )
{
    return *static_cast<const typename RegisterOf<T, nbLanes>::Unaligned*>( scalars );
}

/// x on all lanes, as it is.
template <int nbLanes, class T>
inline Register<T, nbLanes> broadcast( T x )
{
    if constexpr ( nbLanes == 4 )
        return Register<T, 4>{ x, x, x, x };
    else
        return Register<T, 2>{ x, x };
}

/// Four scalars in a row that are going to be broadcast one by one, as [0] to [3]. AVX does so while it loads them; without
/// it floats are shuffled out of one register.
template <bool hasAvx, class T>
inline auto loadFactors( const T* scalars )
{
    if constexpr ( hasFour<T> && !hasAvx )
        return loadRegister<T, 4>( scalars );
    else
        return scalars;
}

} // namespace Detail

} // namespace Zq

#endif
