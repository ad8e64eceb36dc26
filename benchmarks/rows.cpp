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
    const auto [entry, isFirst] =
        firsts.try_emplace( { row.operation, row.count }, First{ row.contender, std::move( answers ) } );
    const First& first = entry->second;
    if ( isFirst || first.contender == row.contender )
        return {};

    const std::size_t count = ( std::min )( first.answers.size(), answers.size() );
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

std::uint64_t readBytes( const void* bytes, std::size_t size )
{
    // lanes enough for several vectors of any width in flight
    constexpr std::size_t nbLanes = 32;
    constexpr std::size_t blockSize = nbLanes * sizeof( std::uint64_t );
    const auto* next = static_cast<const unsigned char*>( bytes );
    std::uint64_t lanes[nbLanes] = {};
    for ( ; size >= blockSize; size -= blockSize, next += blockSize )
    {
        std::uint64_t words[nbLanes];
        std::memcpy( words, next, blockSize );
        for ( std::size_t i = 0; i < nbLanes; ++i )
            lanes[i] ^= words[i];
    }
    std::uint64_t all = 0;
    for ( const std::uint64_t lane : lanes )
        all ^= lane;
    return all;
}

} // namespace ZqBench
