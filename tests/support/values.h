#ifndef ZQ_TESTS_SUPPORT_VALUES_H
#define ZQ_TESTS_SUPPORT_VALUES_H

#include "numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <sstream>
#include <string>
#include <type_traits>

namespace ZqTest
{

/// The scalar of a value: that of the twins, float for the classes without one.
template <class Value>
struct ScalarOf
{
    using Type = float;
};
template <template <class> class Twin, class T>
struct ScalarOf<Twin<T>>
{
    using Type = T;
};

template <class Value, class = void>
inline constexpr bool isPrintable = false;
template <class Value>
inline constexpr bool
    isPrintable<Value, std::void_t<decltype( std::declval<std::ostream&>() << std::declval<const Value&>() )>> = true;

/// As <<, with all digits, or else the numbers.
template <class Value>
void print( std::ostream& os, const Value& value )
{
    using T = typename ScalarOf<Value>::Type;
    const std::streamsize before = os.precision( std::numeric_limits<T>::max_digits10 );
    if constexpr ( isPrintable<Value> )
        os << value;
    else
        for ( const T number : numbersOf<T>( value ) )
            os << number << ' ';
    os.precision( before );
}

/// Whether a.isEqual( b, tolerances ); if not, which numbers differ, and by how much.
template <class A, class B, class... Tolerances>
::testing::AssertionResult isClose( const A& a, const B& b, const Tolerances&... tolerances )
{
    if ( a.isEqual( b, tolerances... ) )
        return ::testing::AssertionSuccess();
    using T = typename ScalarOf<A>::Type;
    std::ostringstream text;
    text.precision( std::numeric_limits<T>::max_digits10 );
    print( text, a );
    text << " and ";
    print( text, b );
    const auto x = numbersOf<T>( a ), y = numbersOf<T>( static_cast<const A&>( b ) );
    for ( std::size_t i = 0; i < x.size(); ++i )
        if ( x[i] != y[i] )
            text << "\nnumber " << i << ": " << x[i] << " and " << y[i] << " are " << std::fabs( x[i] - y[i] )
                 << " apart";
    text << "; tolerance";
    ( ( text << ' ' << tolerances ), ... );
    return ::testing::AssertionFailure() << text.str();
}

} // namespace ZqTest

namespace Zq
{

/// How GoogleTest prints the twins.
template <template <class> class Twin, class T, class = std::enable_if_t<std::is_arithmetic_v<T>>>
void PrintTo( const Twin<T>& value, std::ostream* os )
{
    ZqTest::print( *os, value );
}

} // namespace Zq

/// Expects that a.isEqual( b, tolerance ), or with more tolerances where the class has them.
#define EXPECT_CLOSE( a, ... ) EXPECT_TRUE( ::ZqTest::isClose( a, __VA_ARGS__ ) )
#define ASSERT_CLOSE( a, ... ) ASSERT_TRUE( ::ZqTest::isClose( a, __VA_ARGS__ ) )

#endif
