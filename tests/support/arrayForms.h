#ifndef ZQ_TESTS_SUPPORT_ARRAYFORMS_H
#define ZQ_TESTS_SUPPORT_ARRAYFORMS_H

#include "bits.h"

#include <zq/base/kernelLevel.h>

#include <memory>

namespace ZqTest
{

// Array forms: every level of instructions that this machine has gives, bit for bit, what the plain rule gives element by
// element. The wide run is that of bits.h. The arrays are as long as their count on the heap, so that the sanitizers see
// every byte that is touched too much.

/// One in four records consists of odd numbers, at thresholds and without end, one in four of a lattice, where much is
/// equal; the others are ordinary. Boxes are mostly not inverted, so that all verdicts come up.
template <class Record, class T>
Record makeRecord( Random& random )
{
    constexpr std::size_t n = sizeof( Record ) / sizeof( T );
    const T limits[] = { T( -0.0001F ), T( 1 ) - T( 0.0001F ), std::nextafter( T( -0.0001F ), T( 0 ) ), infinity<T>,
        -infinity<T>, nan<T>, -T( 0 ) };
    T numbers[n];
    const int kind = random.index( 4 );
    for ( T& number : numbers )
    {
        if ( kind == 0 )
            number = random.index( 3 ) == 0 ? limits[random.index( 7 )] : anyNumber<T>( random );
        else
            number = kind == 1 ? T( random.index( 9 ) - 4 ) / T( 2 ) : random.uniform( T( -2 ), T( 2 ) );
    }
    if ( kind != 0 && n == 6 && random.index( 8 ) != 0 )
        for ( std::size_t i = 0; i < n; i += 2 )
            numbers[i + 1] = numbers[i] + std::abs( numbers[i + 1] ) * T( 0.5 );
    Record record;
    std::memcpy( static_cast<void*>( &record ), numbers, sizeof numbers );
    return record;
}

/// Runs an array form over arrays of 0 to some hundreds of records, `total` in all, each made by make( random ); plain(
/// record ) tells what its result has to be. Returns how often each verdict came up, where results are verdicts.
template <class T, class Result, class Make, class Form, class Plain>
std::array<int, 4> compareForm( Random& random, int total, const Make& make, const Form& form, const Plain& plain )
{
    using Record = decltype( make( random ) );
    std::array<int, 4> verdicts{};
    while ( total > 0 )
    {
        const std::size_t count = static_cast<std::size_t>( random.index( random.index( 4 ) == 0 ? 400 : 70 ) );
        const std::unique_ptr<Record[]> records( new Record[count] );
        const std::unique_ptr<Result[]> results( new Result[count] );
        std::generate_n( records.get(), count, [&] { return make( random ); } );
        form( records.get(), count, results.get() );
        for ( std::size_t i = 0; i < count; ++i )
        {
            const Result expected = static_cast<Result>( plain( records[i] ) );
            if constexpr ( sizeof( Result ) == 1 )
                EXPECT_EQ( int( results[i] ), int( expected ) ) << i << " of " << count;
            else
                EXPECT_TRUE( isSame<T>( results[i], expected ) ) << i << " of " << count;
            if constexpr ( sizeof( Result ) == 1 )
                ++verdicts[results[i] % 4];
        }
        total -= static_cast<int>( count ) + 1;
    }
    return verdicts;
}

/// The same with records of the usual kind.
template <class T, class Record, class Result, class Form, class Plain>
std::array<int, 4> compareForm( Random& random, int total, const Form& form, const Plain& plain )
{
    return compareForm<T, Result>( random, total, makeRecord<Record, T>, form, plain );
}

template <class Kernels, class Check>
void forEachLevel( const Kernels* ( *find )( Zq::Detail::KernelLevel ), const Check& check )
{
    int nbChecked = 0;
    for ( int level = 0; level < Zq::Detail::NB_KERNEL_LEVELS; ++level )
    {
        const Kernels* const kernels = find( static_cast<Zq::Detail::KernelLevel>( level ) );
        ASSERT_EQ( kernels != nullptr, level <= Zq::Detail::getKernelLevel() );
        if ( kernels == nullptr )
            continue;
        SCOPED_TRACE( testing::Message() << "level " << level );
        Random random( wideSeed() );
        check( *kernels, random );
        ++nbChecked;
    }
    EXPECT_GE( nbChecked, 1 );
}

} // namespace ZqTest

#endif
