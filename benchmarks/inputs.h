#ifndef ZQ_BENCHMARKS_INPUTS_H
#define ZQ_BENCHMARKS_INPUTS_H

#include "support/numbers.h"
#include "support/random.h"

#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

/// What all contenders of an operation get: the same seeded values, in random order.
namespace ZqBench
{

using ZqTest::numbersOf;
using ZqTest::Random;

/// Random order, the same on every machine.
template <class Item>
void shuffle( std::vector<Item>& items, Random& random )
{
    for ( std::size_t i = items.size(); i > 1; --i )
        std::swap( items[i - 1], items[static_cast<std::size_t>( random.index( static_cast<int>( i ) ) )] );
}

/// As many items of each class as of every other, in random order: make() makes a candidate, classify( candidate )
/// says to which of the classes 0 to nbClasses - 1 it belongs.
template <class Make, class Classify>
auto makeBalanced( std::size_t count, std::size_t nbClasses, Random& random, Make make, Classify classify )
{
    std::vector<decltype( make() )> items;
    items.reserve( count );
    std::vector<std::size_t> room( nbClasses, count / nbClasses );
    room[0] += count % nbClasses;
    while ( items.size() < count )
    {
        const auto candidate = make();
        std::size_t& left = room[static_cast<std::size_t>( classify( candidate ) )];
        if ( left > 0 )
        {
            --left;
            items.push_back( candidate );
        }
    }
    shuffle( items, random );
    return items;
}

/// A length between lower and upper, small ones as frequent as large ones.
inline float makeLength( Random& random, float lower, float upper )
{
    return lower * std::pow( upper / lower, random.uniform( 0.0F, 1.0F ) );
}

/// The x, y and z of a point or a vector in the type of another library.
template <class Other, class Own>
Other convertTriple( const Own& own )
{
    return Other( own.getX(), own.getY(), own.getZ() );
}

/// Makes each input once, however many contenders ask for it: get( count ) is made by make( count ).
template <class Item, std::vector<Item> ( *make )( std::size_t )>
const std::vector<Item>& getShared( std::size_t count )
{
    static std::vector<std::pair<std::size_t, std::vector<Item>*>> made;
    for ( const auto& [size, items] : made )
        if ( size == count )
            return *items;
    made.emplace_back( count, new std::vector<Item>( make( count ) ) ); // kept to the end of the program
    return *made.back().second;
}

} // namespace ZqBench

#endif
