#ifndef ZQ_TESTS_SUPPORT_BITS_H
#define ZQ_TESTS_SUPPORT_BITS_H

#include "prelude.h"

#include <memory>

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

/// Every kind of number: small integers, which tie and cancel, ordinary ones, any magnitude, and one in `rarity` odd.
template <class T>
T anyNumber( Random& random, int rarity = 32 )
{
    using Limits = std::numeric_limits<T>;
    const T odd[] = { T( 0 ), -T( 0 ), nan<T>, -nan<T>, infinity<T>, -infinity<T>, Limits::max(), Limits::lowest(),
        Limits::min(), Limits::denorm_min(), -Limits::denorm_min(), Limits::min() / 4, T( 1e-6F ), T( 1e-7 ),
        T( 0.0016F ), T( -0.0001F ), std::nextafter( T( -0.0001F ), T( 0 ) ), T( 1 ) - T( 0.0001F ) };
    if ( random.index( rarity ) == 0 )
        return odd[random.index( std::size( odd ) )];
    const int kind = random.index( 32 );
    if ( kind < 4 )
    {
        // one after the other: compilers evaluate arguments in different orders
        const int exponent = random.index( 2 * Limits::max_exponent ) - Limits::max_exponent;
        return std::ldexp( random.uniform<T>( T( -1 ), T( 1 ) ), exponent );
    }
    return kind < 12 ? T( random.index( 7 ) - 3 ) : random.uniform<T>( T( -100 ), T( 100 ) );
}

/// The same bytes as another type.
template <class To, class From>
To copyAs( const From& from )
{
    To to;
    static_assert( sizeof to == sizeof from );
    std::memcpy( static_cast<void*>( &to ), &from, sizeof to );
    return to;
}

/// One in four records has many odd numbers, one in four lies on a lattice, where much is equal; the others are ordinary.
/// Boxes are mostly not inverted, so that all verdicts come up.
template <class T, class Record>
Record makeRecord( Random& random )
{
    std::array<T, sizeof( Record ) / sizeof( T )> numbers;
    const int kind = random.index( 4 );
    for ( T& number : numbers )
        number = kind == 0 ? anyNumber<T>( random, 3 )
            : kind == 1    ? T( random.index( 9 ) - 4 ) / T( 2 )
                           : random.uniform( T( -2 ), T( 2 ) );
    if ( kind != 0 && numbers.size() == 6 && random.index( 8 ) != 0 )
        for ( std::size_t i = 0; i < numbers.size(); i += 2 )
            numbers[i + 1] = numbers[i] + std::abs( numbers[i + 1] ) * T( 0.5 );
    return copyAs<Record>( numbers );
}

/// Several at once.
template <class T, class... Records>
std::tuple<Records...> makeRecords( Random& random )
{
    return { makeRecord<T, Records>( random )... };
}

/// A rule about the numbers of records, for the records.
template <class T, class Rule>
auto onNumbers( const Rule& rule )
{
    return [=]( const auto&... records ) { return rule( numbersOf<T>( records )... ); };
}

/// Whether two values consist of the same bits; all NaN are one.
template <class T, class Value, class Other>
bool isSame( const Value& a, const Other& b )
{
    const auto x = numbersOf<T>( a ), y = numbersOf<T>( b );
    return std::equal( x.begin(), x.end(), y.begin(), y.end(),
        []( const T& p, const T& q )
        { return std::memcmp( &p, &q, sizeof p ) == 0 || ( std::isnan( p ) && std::isnan( q ) ); } );
}

/// The library's answers to the tuples of arguments that make( random ) gives are those of the plain rule.
template <class T, class Make, class Library, class Plain>
void expectSameBits( int count, const Make& make, const Library& library, const Plain& plain )
{
    Random random( wideSeed() );
    for ( int i = 0; i < count; ++i )
    {
        const auto arguments = make( random );
        const auto answer = std::apply( library, arguments );
        const auto expected = std::apply( plain, arguments );
        ASSERT_TRUE( isSame<T>( answer, expected ) )
            << ::testing::PrintToString( answer ) << " instead of " << ::testing::PrintToString( expected ) << "; "
            << "seed " << wideSeed() << ", run " << i << ": " << ::testing::PrintToString( arguments );
    }
}

/// How often each verdict of an array form came up.
using Verdicts = std::array<int, 4>;

/// Runs an array form over arrays of 0 to some hundreds of records, `total` in all, each made by make( random );
/// plain( record ) tells its result. The arrays are as long as their count on the heap, so that the sanitizers see every
/// byte that is touched too much.
template <class T, class Make, class Form, class Plain>
void expectSameArray(
    Random& random, int total, const Make& make, const Form& form, const Plain& plain, Verdicts* seen = nullptr )
{
    using Record = decltype( make( random ) );
    using Answer = decltype( plain( std::declval<const Record&>() ) );
    using Result = std::conditional_t<std::is_class_v<Answer>, Answer, unsigned char>;
    while ( total > 0 )
    {
        const std::size_t count = static_cast<std::size_t>( random.index( random.index( 4 ) == 0 ? 400 : 70 ) );
        const std::unique_ptr<Record[]> records( new Record[count] );
        const std::unique_ptr<Result[]> results( new Result[count] );
        std::generate_n( records.get(), count, [&] { return make( random ); } );
        form( records.get(), count, results.get() );
        for ( std::size_t i = 0; i < count; ++i )
        {
            const auto expected = static_cast<Result>( plain( records[i] ) );
            if constexpr ( std::is_class_v<Answer> )
                EXPECT_TRUE( isSame<T>( results[i], expected ) )
                    << i << " of " << count << ": " << ::testing::PrintToString( results[i] ) << " instead of "
                    << ::testing::PrintToString( expected ) << " for " << ::testing::PrintToString( records[i] );
            else
            {
                EXPECT_EQ( int( results[i] ), int( expected ) )
                    << i << " of " << count << ": " << ::testing::PrintToString( records[i] );
                if ( seen != nullptr )
                    ++( *seen )[expected % 4];
            }
        }
        total -= static_cast<int>( count ) + 1;
    }
}

} // namespace ZqTest

#endif
