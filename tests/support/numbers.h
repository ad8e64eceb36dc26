#ifndef ZQ_TESTS_SUPPORT_NUMBERS_H
#define ZQ_TESTS_SUPPORT_NUMBERS_H

#include <array>
#include <cstddef>
#include <cstring>

namespace ZqTest
{

/// The numbers that a value consists of, in the order of its memory.
template <class T, class Value>
auto numbersOf( const Value& value )
{
    std::array<T, sizeof( Value ) / sizeof( T )> numbers{}; // NOLINT(bugprone-sizeof-expression): T alone is one
    static_assert( sizeof numbers == sizeof value );
    std::memcpy( numbers.data(), &value, sizeof value );
    return numbers;
}

/// The value with one of its numbers changed.
template <class T, class Value>
Value withChange( Value value, std::size_t index, T amount )
{
    auto numbers = numbersOf<T>( value );
    numbers[index] += amount;
    std::memcpy( static_cast<void*>( &value ), numbers.data(), sizeof value );
    return value;
}

} // namespace ZqTest

#endif
