// Asks view volumes of every family of cameras for verdicts, as many as are wanted, and holds each that claims something
// against the exact inequalities of the matrix:
//
//     zq_view_verdicts [VERDICTS [SEED]]        (default: 1000000 1)
//
// Half of the verdicts are float, half double, spread over all families and ratios of far to near from 10 to 10^9; the
// boxes touch sides, edges and corners of the volume, or miss them by some units in the last place. Fails when a verdict is
// not true.

#include "support/viewReference.h"

#include <atomic>
#include <charconv>
#include <iomanip>
#include <iostream>
#include <thread>

namespace
{

constexpr int NB_RATIOS = 9;
constexpr long long MOST = 1000000000000; // more than a day

/// What came out for the cameras of a family.
struct Tally
{
    long long outside = 0, inside = 0, intersect = 0, falseOutside = 0, falseInside = 0;

    void operator+=( const Tally& other )
    {
        outside += other.outside;
        inside += other.inside;
        intersect += other.intersect;
        falseOutside += other.falseOutside;
        falseInside += other.falseInside;
    }
};

/// The same box, each bound some units in the last place away from where it was.
template <class T>
GeAlignedBox3<T> jitter( Random& random, const GeAlignedBox3<T>& box )
{
    GeAlignedBox3<T> moved;
    for ( int axis = 0; axis < 3; ++axis )
    {
        const Interval<T> old = box.getInterval( axis );
        const T unit = epsilon<T> * std::max( std::fabs( old.min ), std::fabs( old.max ) );
        const T a = old.min + unit * static_cast<T>( random.index( 17 ) - 8 );
        const T b = old.max + unit * static_cast<T>( random.index( 17 ) - 8 );
        moved.setInterval( axis, Interval<T>( std::min( a, b ), std::max( a, b ) ) );
    }
    return moved;
}

/// One camera, and 64 boxes about each of 16 places.
template <class T>
Tally askCamera( Random& random, int family, int power )
{
    constexpr std::size_t NB_PLACES = 16, NB_BOXES = 64;
    const ZqTest::Camera camera = ZqTest::makeCamera( random, family, std::pow( 10.0L, power ) );
    const GeProjectiveMatrix3<T> matrix = camera.round<T>();
    const GeViewVolume<T> volume( matrix, camera.range );
    const ZqTest::ExactView<T> exact( matrix, camera.range );

    std::vector<GeAlignedBox3<T>> boxes;
    for ( std::size_t place = 0; place < NB_PLACES; ++place )
    {
        boxes.push_back( ZqTest::makeBoxNear<T>( random, camera ) );
        const GeAlignedBox3<T> first = boxes.back();
        for ( std::size_t i = 1; i < NB_BOXES; ++i )
            boxes.push_back( jitter( random, first ) );
    }
    std::vector<unsigned char> verdicts( boxes.size() ), planes( boxes.size() );
    volume.classify( boxes.data(), boxes.size(), verdicts.data(), planes.data() );

    Tally tally;
    for ( std::size_t i = 0; i < boxes.size(); ++i )
        if ( verdicts[i] == volume.VIEW_OUTSIDE )
        {
            ++tally.outside;
            tally.falseOutside += exact.largestSign( volume.getSide( planes[i] ), boxes[i] ) >= 0;
        }
        else if ( verdicts[i] == volume.VIEW_INSIDE )
        {
            ++tally.inside;
            tally.falseInside += !exact.isWithinAll( boxes[i] );
        }
        else
            ++tally.intersect;
    return tally;
}

bool parseNumber( const char* text, long long& number )
{
    const std::string_view whole( text );
    const auto [end, error] = std::from_chars( whole.data(), whole.data() + whole.size(), number );
    return error == std::errc() && end == whole.data() + whole.size() && number >= 1 && number <= MOST;
}

} // namespace

int main( int argc, char** argv )
{
    long long wanted = 1000000, seed = 1;
    if ( argc > 3 || ( argc > 1 && !parseNumber( argv[1], wanted ) ) || ( argc > 2 && !parseNumber( argv[2], seed ) ) )
    {
        std::cerr << "zq_view_verdicts: give a number of verdicts and a seed, both from 1 to 10^12\n";
        return 2;
    }

    // Each task is one camera of either scalar for all families and ratios; it has a seed of its own, so that the answer
    // does not depend on the number of threads.
    constexpr long long NB_PER_TASK = 2LL * 16 * 64 * ZqTest::NB_FAMILIES * NB_RATIOS;
    const long long nbTasks = ( wanted + NB_PER_TASK - 1 ) / NB_PER_TASK;
    std::atomic<long long> next = 0;
    std::vector<std::array<Tally, ZqTest::NB_FAMILIES>> tallies( std::max( 1U, std::thread::hardware_concurrency() ) );
    std::vector<std::thread> threads;
    for ( auto& tally : tallies )
        threads.emplace_back(
            [&]
            {
                for ( long long task = next++; task < nbTasks; task = next++ )
                {
                    Random random( static_cast<unsigned>( seed * 1000003 + task ) );
                    for ( int family = 0; family < ZqTest::NB_FAMILIES; ++family )
                        for ( int power = 1; power <= NB_RATIOS; ++power )
                        {
                            tally[std::size_t( family )] += askCamera<float>( random, family, power );
                            tally[std::size_t( family )] += askCamera<double>( random, family, power );
                        }
                }
            } );
    for ( std::thread& thread : threads )
        thread.join();

    Tally all;
    std::cout << "family        outside         inside      intersect  false outside   false inside\n";
    const auto print = []( const std::string& name, const Tally& t )
    {
        std::cout << std::setw( 6 ) << name;
        for ( const long long number : { t.outside, t.inside, t.intersect, t.falseOutside, t.falseInside } )
            std::cout << std::setw( 15 ) << number;
        std::cout << '\n';
    };
    for ( std::size_t family = 0; family < ZqTest::NB_FAMILIES; ++family )
    {
        Tally sum;
        for ( const auto& tally : tallies )
            sum += tally[family];
        print( std::to_string( family ), sum );
        all += sum;
    }
    print( "all", all );
    if ( all.falseOutside + all.falseInside > 0 )
    {
        std::cerr << "zq_view_verdicts: verdicts that are not true\n";
        return 1;
    }
    return 0;
}
