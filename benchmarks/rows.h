#ifndef ZQ_BENCHMARKS_ROWS_H
#define ZQ_BENCHMARKS_ROWS_H

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// The rows of the benchmark program: an operation, who does it, and on how many items. The name of a row is
/// "operation/contender/count"; one iteration goes through all items, so the time per item is the time by the count.
///
/// Before it is timed, a row compares its answers with those of the contenders that came before it. A contender that
/// does something else is reported as an error instead of a time, and the program fails.
namespace ZqBench
{

/// How many different inputs a row of single calls has: the more, the less the branch predictor learns of them, and
/// what it learns flatters every branch. Code that depends on its data by jumps needs more than straight arithmetic.
constexpr std::size_t SINGLE_COUNT = 8192;
constexpr std::size_t BRANCHY_COUNT = 65536;

enum class Compare
{
    SUM,       ///< numbers as they are, anything else by the sum of its components
    MAGNITUDE, ///< the same without its sign: q and -q are one rotation
    NOTHING    ///< the contenders' answers have different forms
};

struct Row
{
    std::string operation;
    std::string contender;
    std::size_t count = SINGLE_COUNT;
    Compare compare = Compare::SUM;
};

/// The sum of an answer's components, which does not depend on the storage order of a matrix. Specialised for types
/// with padding.
template <class Scalar, class Answer>
struct ComponentSum
{
    static double of( const Answer& answer )
    {
        if constexpr ( std::is_arithmetic_v<Answer> || std::is_enum_v<Answer> )
        {
            return static_cast<double>( answer );
        }
        else
        {
            static_assert( sizeof( Answer ) % sizeof( Scalar ) == 0 );
            Scalar components[sizeof( Answer ) / sizeof( Scalar )];
            std::memcpy( components, static_cast<const void*>( &answer ), sizeof( Answer ) );
            double sum = 0;
            for ( const Scalar component : components )
                sum += static_cast<double>( component );
            return sum;
        }
    }
};

/// Compares with the first contender of the same operation and count; a few in a thousand may differ, where rounding
/// decides. Empty when they agree.
std::string findDisagreement( const Row& row, std::vector<double> answers );
/// Whether all comparisons so far have found agreement.
bool haveAllAgreed();

/// Any row at all: makeRun() prepares the inputs and returns what does one pass over them; describe() returns the
/// numbers to compare.
template <class MakeRun, class Describe>
void addRow( const Row& row, MakeRun makeRun, Describe describe )
{
    const std::string name = row.operation + '/' + row.contender + '/' + std::to_string( row.count );
    benchmark::RegisterBenchmark( name.c_str(),
        [=, isCompared = std::make_shared<bool>( false )]( benchmark::State& state )
        {
            auto run = makeRun();
            if ( row.compare != Compare::NOTHING && !*isCompared )
            {
                *isCompared = true;
                const std::string disagreement = findDisagreement( row, describe() );
                if ( !disagreement.empty() )
                    state.SkipWithError( disagreement.c_str() );
            }
            for ( auto _ : state )
                run();
            state.SetItemsProcessed( state.iterations() * static_cast<std::int64_t>( row.count ) );
        } );
}

/// One call after the other: each answer has to exist before the next call begins its own.
/// makeItems( count ) makes the inputs, operation( item ) is what is timed.
template <class Scalar = float, class MakeItems, class Operation>
void addSingles( const Row& row, MakeItems makeItems, Operation operation )
{
    const auto makeRun = [=]
    {
        return [=, items = makeItems( row.count )]
        {
            const auto* const begin = items.data();
            const auto* const end = begin + items.size();
            for ( const auto* item = begin; item != end; ++item )
                benchmark::DoNotOptimize( operation( *item ) );
        };
    };
    const auto describe = [=]
    {
        std::vector<double> answers;
        for ( const auto& item : makeItems( row.count ) )
        {
            const auto answer = operation( item );
            answers.push_back( ComponentSum<Scalar, std::decay_t<decltype( answer )>>::of( answer ) );
        }
        return answers;
    };
    addRow( row, makeRun, describe );
}

/// One call for all: operation( items, count, answers ) is what is timed.
template <class Answer, class Scalar = float, class MakeItems, class Operation>
void addArray( const Row& row, MakeItems makeItems, Operation operation )
{
    const auto makeRun = [=]
    {
        return [=, items = makeItems( row.count ), answers = std::vector<Answer>( row.count )]() mutable
        {
            operation( items.data(), items.size(), answers.data() );
            benchmark::DoNotOptimize( answers.data() );
            benchmark::ClobberMemory();
        };
    };
    const auto describe = [=]
    {
        const auto items = makeItems( row.count );
        std::vector<Answer> answers( row.count );
        operation( items.data(), items.size(), answers.data() );
        std::vector<double> sums;
        sums.reserve( answers.size() );
        for ( const Answer& answer : answers )
            sums.push_back( ComponentSum<Scalar, Answer>::of( answer ) );
        return sums;
    };
    addRow( row, makeRun, describe );
}

/// A contender without an array form: its operation in a loop, which the compiler may turn into what it likes.
template <class Scalar = float, class MakeItems, class Operation>
void addLoop( const Row& row, MakeItems makeItems, Operation operation )
{
    using Item = typename std::decay_t<decltype( makeItems( row.count ) )>::value_type;
    using Answer = std::decay_t<decltype( operation( std::declval<const Item&>() ) )>;
    addArray<Answer, Scalar>( row, makeItems,
        [=]( const Item* items, std::size_t count, Answer* answers )
        {
            for ( std::size_t i = 0; i < count; ++i )
                answers[i] = operation( items[i] );
        } );
}

/// One answer for all items: operation( items, count ) is what is timed.
template <class Scalar = float, class MakeItems, class Operation>
void addReduction( const Row& row, MakeItems makeItems, Operation operation )
{
    const auto makeRun = [=]
    {
        return [=, items = makeItems( row.count )]
        { benchmark::DoNotOptimize( operation( items.data(), items.size() ) ); };
    };
    const auto describe = [=]
    {
        const auto items = makeItems( row.count );
        const auto answer = operation( items.data(), items.size() );
        return std::vector<double>{ ComponentSum<Scalar, std::decay_t<decltype( answer )>>::of( answer ) };
    };
    addRow( row, makeRun, describe );
}

/// Reads bytes as fast as the processor's vectors can, and does nothing with them; what is left over of a block of 128
/// is not read.
std::uint64_t readBytes( const void* bytes, std::size_t size );

/// The floor of an array row, "operation/floor/count": a pass that only reads the same bytes.
template <class MakeItems>
void addFloor( const std::string& operation, std::size_t count, MakeItems makeItems )
{
    using Item = typename std::decay_t<decltype( makeItems( count ) )>::value_type;
    const Row row{ operation, "floor", count, Compare::NOTHING };
    const auto makeRun = [=]
    {
        return [=, items = makeItems( count )]
        { benchmark::DoNotOptimize( readBytes( items.data(), items.size() * sizeof( Item ) ) ); };
    };
    addRow( row, makeRun, [] { return std::vector<double>(); } );
}

/// The inputs of another contender, converted one by one from those that all share.
template <class MakeItems, class Convert>
constexpr auto makeConverted( MakeItems makeItems, Convert convert )
{
    return [=]( std::size_t count )
    {
        const auto& items = makeItems( count );
        std::vector<std::decay_t<decltype( convert( items[0] ) )>> converted;
        converted.reserve( items.size() );
        for ( const auto& item : items )
            converted.push_back( convert( item ) );
        return converted;
    };
}

// One function per subject; main() calls them all.
void addFrustumRows();
void addConeRows();
void addShaftRows();
void addBoxRows();
void addIntersectionRows();
void addMatrixRows();
void addQuaternionRows();
void addColorRows();
void addTextRows();
void addViewRows();

} // namespace ZqBench

#endif
