#ifndef ZQ_TESTS_SUPPORT_BITS_H
#define ZQ_TESTS_SUPPORT_BITS_H

#include "prelude.h"

namespace ZqTest
{

/// The seed of a test that compares a fast path with the plain rule: always the same in a single run, while in
/// --gtest_shuffle --gtest_repeat=1000, the wide run, each repetition has a seed of its own.
inline unsigned wideSeed()
{
    return ::testing::GTEST_FLAG( shuffle )
        ? 2U + static_cast<unsigned>( ::testing::UnitTest::GetInstance()->random_seed() )
        : 1U;
}

/// Every kind of number: small integers, which tie and cancel, ordinary ones, any magnitude, and the odd ones.
template <class T>
T anyNumber( Random& random )
{
    using Limits = std::numeric_limits<T>;
    constexpr T odd[] = { T( 0 ), -T( 0 ), nan<T>, -nan<T>, infinity<T>, -infinity<T>, Limits::max(), Limits::lowest(),
        Limits::min(), Limits::denorm_min(), -Limits::denorm_min(), Limits::min() / 4, T( 1e-6 ), T( 1e-7 ) };
    const int kind = random.index( 32 );
    if ( kind == 0 )
        return odd[random.index( sizeof odd / sizeof *odd )];
    if ( kind < 4 )
        return std::ldexp(
            random.uniform<T>( T( -1 ), T( 1 ) ), random.index( 2 * Limits::max_exponent ) - Limits::max_exponent );
    if ( kind < 12 )
        return T( random.index( 7 ) - 3 );
    return random.uniform<T>( T( -100 ), T( 100 ) );
}

/// Whether two values consist of the same bits; all NaN are one.
template <class T, class Value>
bool isSame( const Value& a, const Value& b )
{
    const auto x = numbersOf<T>( a ), y = numbersOf<T>( b );
    return std::equal( x.begin(), x.end(), y.begin(),
        []( const T& p, const T& q )
        { return std::memcmp( &p, &q, sizeof p ) == 0 || ( std::isnan( p ) && std::isnan( q ) ); } );
}

} // namespace ZqTest

#endif
