#ifndef ZQ_TESTS_SUPPORT_SCALARS_H
#define ZQ_TESTS_SUPPORT_SCALARS_H

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace ZqTest
{

/// The twins: most suites run for both.
using Scalars = ::testing::Types<float, double>;

struct ScalarNames
{
    template <class T>
    static std::string GetName( int )
    {
        return sizeof( T ) == sizeof( float ) ? "float" : "double";
    }
};

template <class T>
constexpr T epsilon = std::numeric_limits<T>::epsilon();
template <class T>
constexpr T infinity = std::numeric_limits<T>::infinity();
template <class T>
constexpr T nan = std::numeric_limits<T>::quiet_NaN();

} // namespace ZqTest

/// Declares a suite that runs for float and double.
#define ZQ_TWIN_SUITE( Suite )                                                                                         \
    template <class T>                                                                                                 \
    class Suite : public ::testing::Test                                                                               \
    {                                                                                                                  \
    };                                                                                                                 \
    TYPED_TEST_SUITE( Suite, ::ZqTest::Scalars, ::ZqTest::ScalarNames )

/// The head of a test in such a suite; T is the scalar.
#define ZQ_TWIN_TEST( Suite, Name )                                                                                    \
    template <class T>                                                                                                 \
    void test##Suite##Name();                                                                                          \
    TYPED_TEST( Suite, Name )                                                                                          \
    {                                                                                                                  \
        test##Suite##Name<TypeParam>();                                                                                \
    }                                                                                                                  \
    template <class T>                                                                                                 \
    void test##Suite##Name()

#endif
