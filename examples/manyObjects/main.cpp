// manyObjects: a flight over a city of a million boxes. Which of them need not be drawn, and how long does it take to know?
//
// The page to copy from is views.cpp for the views, and flight.cpp for the questions: find() is all of it.

#include "badInput.h"
#include "commandLine.h"
#include "flight.h"
#include "manyObjectsPictures.h"
#include "numberText.h"
#include "outputFiles.h"
#include "pngFile.h"
#include "progressLine.h"

#include <zq/interop/threadTaskRunner.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <optional>
#include <thread>

namespace ManyObjects
{

namespace
{

using namespace Examples;

struct Options
{
    std::size_t nbBoxes = 1000000;
    std::size_t nbFrames = 600;
    unsigned nbThreads = std::max( std::thread::hardware_concurrency(), 1U );
    unsigned seed = 1;
    std::string folder = ".";
    bool hasNoPictures = false;
};

// Nothing if help was asked for.
std::optional<Options> parseOptions( int argc, const char* const* argv )
{
    CLI::App app(
        "Flies over a city of boxes and asks in every frame which of them need not be drawn: the plain array, a\n"
        "tree, and a tree with threads, for three kinds of view. Ends with code 1 if the answers differ.",
        "manyObjects" );
    Options options;
    const auto addNumber =
        [&app]( const std::string& name, auto& target, unsigned lowest, unsigned highest, const std::string& help )
    {
        app.add_option_function<std::string>(
               name, [=, &target]( const std::string& text ) { target = parseNumber( name, text, lowest, highest ); },
               help )
            ->type_name( "NUMBER" );
    };
    addNumber( "--count", options.nbBoxes, 1, 10000000, "Boxes in the city [1000000]" );
    addNumber( "--frames", options.nbFrames, 1, 100000, "Frames of the flight [600]" );
    addNumber( "--threads", options.nbThreads, 1, 256, "Threads for the tree [as many as the machine has]" );
    addNumber( "--seed", options.seed, 0, 0xFFFFFFFF, "Of the random numbers that the city is made of [1]" );
    app.add_option( "--out", options.folder, "Where the pictures go, an existing folder [.]" )->type_name( "DIR" );
    app.add_flag( "--no-pictures", options.hasNoPictures, "Draw nothing" );
    if ( !parseCommandLine( app, argc, argv ) )
    {
        return std::nullopt;
    }
    if ( options.folder.empty() )
    {
        throw BadInput( "--out: expected a name" );
    }
    return options;
}

std::string makeMilliseconds( double seconds, int nbDecimals )
{
    return makeDecimalText( 1000 * seconds, nbDecimals );
}

void printTable( const Options& options, const Flight& flight )
{
    const std::string threads = makeCountText( options.nbThreads, "thread" );
    std::cout
        << "a city of " << makeGroupedText( options.nbBoxes ) << ( options.nbBoxes == 1 ? " box, " : " boxes, " )
        << makeCountText( options.nbFrames, "frame" ) << "\nthe tree is built in "
        << makeMilliseconds( flight.getSecondsToBuild(), 1 ) << " ms, with " << threads << " in "
        << makeMilliseconds( flight.getSecondsToBuildWithThreads(), 1 ) << " ms\n\n"
        << "                                         ms per frame, median         boxes kept per frame   verdicts\n"
        << "  view                                array       tree " << std::setw( 10 ) << threads
        << "         mean       share     differ\n";
    for ( const Row& row : flight.getRows() )
    {
        const auto nbAsked = static_cast<double>( options.nbFrames * options.nbBoxes * row.nbViews );
        std::cout << "  " << std::left << std::setw( 33 ) << row.name << std::right;
        for ( const Way way : { FLAT, TREE, TREE_THREADS } )
        {
            std::cout << std::setw( way == FLAT ? 8 : 11 ) << makeMilliseconds( row.computeMedian( way ), 3 );
        }
        std::cout << std::setw( 13 ) << makeGroupedText( row.nbKept / options.nbFrames ) << std::setw( 10 )
                  << makeDecimalText( 100 * static_cast<double>( row.nbKept ) / nbAsked, 1 ) << " %" << std::setw( 11 )
                  << makeGroupedText( row.nbDifferent ) << '\n';
    }
    std::cout << "\n  of what one eye sees, the view of both loses " << makeGroupedText( flight.getNbLost() ) << '\n';
}

int run( const Options& options )
{
    const std::filesystem::path folder = options.folder;
    const std::filesystem::path files[] = {
        folder / "manyObjects-views.png", folder / "manyObjects-stereo.png", folder / "manyObjects-deep.png" };
    if ( !options.hasNoPictures )
    {
        std::for_each( std::begin( files ), std::end( files ), checkWritable );
    }
    const std::vector<Box> city = makeCity( options.nbBoxes, options.seed );
    const float side = computeSide( options.nbBoxes );
    Zq::ThreadTaskRunner runner( options.nbThreads );
    Flight flight( city, runner );
    {
        ProgressLine progress( "culling for frame", options.nbFrames );
        for ( std::size_t i = 0; i < options.nbFrames; ++i )
        {
            progress.show( i );
            flight.addFrame( makeCamera( side, static_cast<double>( i ) / static_cast<double>( options.nbFrames ) ) );
        }
    }
    printTable( options, flight );
    if ( !options.hasNoPictures )
    {
        writeAll( { { files[0], Figures::encodePng( drawViews( city, side ) ) },
            { files[1], Figures::encodePng( drawStereo( city, side ) ) },
            { files[2], Figures::encodePng( drawDeep( city, side ) ) } } );
        for ( const std::filesystem::path& file : files )
        {
            std::cout << "  wrote " << file.string() << '\n';
        }
    }
    bool isSound = flight.getNbLost() == 0;
    for ( const Row& row : flight.getRows() )
    {
        isSound = isSound && row.nbDifferent == 0;
    }
    return isSound ? 0 : 1;
}

} // namespace

} // namespace ManyObjects

int main( int argc, char** argv )
{
    return Examples::runProgram( "manyObjects",
        [&]
        {
            const std::optional<ManyObjects::Options> options = ManyObjects::parseOptions( argc, argv );
            return options ? ManyObjects::run( *options ) : 0;
        } );
}
