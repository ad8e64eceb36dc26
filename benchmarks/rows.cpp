#include "rows.h"

#include <map>
#include <utility>

namespace ZqBench
{

namespace
{

bool haveAgreed = true;

bool isClose( double a, double b )
{
    return std::fabs( a - b ) <= 2e-3 * ( std::max )( 1.0, std::fabs( a ) );
}

} // namespace

std::string findDisagreement( const Row& row, std::vector<double> answers )
{
    if ( row.compare == Compare::MAGNITUDE )
        for ( double& answer : answers )
            answer = std::fabs( answer );

    struct First
    {
        std::string contender;
        std::vector<double> answers;
    };
    static std::map<std::pair<std::string, std::size_t>, First> firsts;
    First& first = firsts[{ row.operation, row.count }];
    if ( first.contender.empty() )
    {
        first = { row.contender, std::move( answers ) };
        return {};
    }

    if ( answers.size() != first.answers.size() )
    {
        haveAgreed = false;
        return "not as many answers as " + first.contender;
    }
    const std::size_t count = answers.size();
    std::size_t differing = 0;
    for ( std::size_t i = 0; i < count; ++i )
        if ( !isClose( first.answers[i], answers[i] ) )
            ++differing;
    if ( differing * 200 <= count )
        return {};
    haveAgreed = false;
    return std::to_string( differing ) + " of " + std::to_string( count ) + " answers differ from " + first.contender;
}

bool haveAllAgreed()
{
    return haveAgreed;
}

// For the widest vectors of the processor, whatever the program is compiled for: a floor that kernels chosen at run time
// go below is none.
#if defined( __x86_64__ )
__attribute__( ( target_clones( "default", "avx2" ) ) )
#endif
std::uint64_t
readBytes( const void* bytes, std::size_t size )
{
    using Words [[gnu::vector_size( 32 ), gnu::aligned( 1 ), gnu::may_alias]] = std::uint64_t;
    const auto* next = static_cast<const Words*>( bytes );
    constexpr std::size_t nbSums = 4;
    Words sums[nbSums] = {};
    for ( std::size_t left = size / sizeof( sums ); left > 0; --left, next += nbSums )
    {
        sums[0] ^= next[0];
        sums[1] ^= next[1];
        sums[2] ^= next[2];
        sums[3] ^= next[3];
    }
    sums[0] ^= sums[1] ^ sums[2] ^ sums[3];
    std::uint64_t all = 0;
    for ( std::size_t i = 0; i < sizeof( Words ) / sizeof( std::uint64_t ); ++i )
        all ^= sums[0][i];
    return all;
}

} // namespace ZqBench
