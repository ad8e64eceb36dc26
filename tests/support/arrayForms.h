#ifndef ZQ_TESTS_SUPPORT_ARRAYFORMS_H
#define ZQ_TESTS_SUPPORT_ARRAYFORMS_H

#include "bits.h"

#include <zq/base/kernelLevel.h>

#include <cstdlib>
#include <memory>

namespace ZqTest
{

// Array forms: every level of instructions that this machine has gives, bit for bit, what the plain rule gives element by element.
// ZQ_TEST_ELEMENTS asks for more elements per form and level than the usual slice. The arrays are as long as their
// count on the heap, so that the sanitizers see every byte that is touched too much.

inline std::size_t nbElements()
{
    const char* const wanted = std::getenv( "ZQ_TEST_ELEMENTS" );
    return wanted ? static_cast<std::size_t>( std::atoll( wanted ) ) : 20000;
}

/// Numbers of which many are equal, at a threshold, or no numbers at all.
template <class T>
T oddNumber( Random& random )
{
    const T odd[] = { T( 0 ), -T( 0 ), T( 1 ), T( -1 ), T( 0.5 ), T( -0.0001F ), T( 1 ) - T( 0.0001F ),
        std::nextafter( T( -0.0001F ), T( 0 ) ), std::numeric_limits<T>::denorm_min(),
        -std::numeric_limits<T>::denorm_min(), ( std::numeric_limits<T>::max )(), infinity<T>, -infinity<T>, nan<T> };
    const int kind = random.index( 40 );
    if ( kind < 14 )
        return odd[kind];
    return kind < 27 ? T( random.index( 9 ) - 4 ) / T( 2 ) : random.uniform( T( -2 ), T( 2 ) );
}

/// One in four records consists of odd numbers; the others are ordinary, so that all verdicts come up.
template <class Record, class T>
Record makeRecord( Random& random )
{
    constexpr std::size_t n = sizeof( Record ) / sizeof( T );
    T numbers[n];
    const bool isOdd = random.index( 4 ) == 0;
    for ( std::size_t i = 0; i < n; ++i )
        numbers[i] = isOdd ? oddNumber<T>( random ) : random.uniform( T( -2 ), T( 2 ) );
    if ( !isOdd && n == 6 && random.index( 8 ) != 0 ) // mostly boxes that are not inverted
        for ( std::size_t i = 0; i < n; i += 2 )
            numbers[i + 1] = numbers[i] + std::abs( numbers[i + 1] ) * T( 0.5 );
    Record record;
    std::memcpy( static_cast<void*>( &record ), numbers, sizeof numbers );
    return record;
}

/// Runs an array form over runs of 0 to some hundreds of elements; compare( element, result ) judges each.
template <class T, class Record, class Result, class Form, class Compare>
void runForm( Random& random, std::size_t total, const Form& form, const Compare& compare )
{
    for ( std::size_t done = 0; done < total; )
    {
        const std::size_t count = static_cast<std::size_t>( random.index( random.index( 4 ) == 0 ? 400 : 70 ) );
        const std::unique_ptr<Record[]> records( new Record[count] );
        const std::unique_ptr<Result[]> results( new Result[count] );
        for ( std::size_t i = 0; i < count; ++i )
            records[i] = makeRecord<Record, T>( random );
        form( records.get(), count, results.get() );
        for ( std::size_t i = 0; i < count; ++i )
            ASSERT_TRUE( compare( records[i], results[i] ) ) << "element " << i << " of " << count;
        done += count + 1;
    }
}

template <class Kernels, class Check>
void forEachLevel( const Kernels* ( *find )( Zq::Detail::KernelLevel ), const Check& check )
{
    int nbChecked = 0;
    for ( int level = 0; level < Zq::Detail::NB_KERNEL_LEVELS; ++level )
    {
        if ( const Kernels* kernels = find( static_cast<Zq::Detail::KernelLevel>( level ) ) )
        {
            SCOPED_TRACE( testing::Message() << "level " << level );
            ASSERT_LE( level, Zq::Detail::getKernelLevel() );
            Random random( 7 );
            check( *kernels, random );
            ++nbChecked;
        }
    }
    EXPECT_EQ( nbChecked, Zq::Detail::getKernelLevel() + 1 );
}

} // namespace ZqTest

#endif
