#include "options.h"

#include "badInput.h"
#include "commandLine.h"

#include <CLI/CLI.hpp>

namespace AimAndInterpolate
{

std::optional<Options> parseOptions( int argc, const char* const* argv )
{
    CLI::App app( "Aims a camera at a few keys and interpolates its rotation between them: prints the keys as Euler\n"
                  "angles and draws what lerp, slerp, spins and squad do.",
        "aimAndInterpolate" );
    Options options;
    const auto addInteger = [&app](
                                const std::string& name, int& target, int lowest, int highest, const std::string& help )
    {
        const auto read = [=, &target]( const std::string& text )
        { target = Examples::parseNumber( name, text, lowest, highest ); };
        app.add_option_function<std::string>( name, read, help )->type_name( "NUMBER" );
    };
    addInteger( "--steps", options.nbSteps, 1, 32, "The steps in time from one key to the next [8]" );
    addInteger( "--spins", options.nbSpins, 0, 3, "The most spins that are drawn [2]" );
    std::string file;
    CLI::Option* const out =
        app.add_option( "--out", file, "The picture [aimAndInterpolate.png]" )->type_name( "FILE" );

    if ( !Examples::parseCommandLine( app, argc, argv ) )
    {
        return std::nullopt;
    }
    if ( out->count() > 0 )
    {
        options.pictureFile = file;
    }
    if ( options.pictureFile.empty() )
    {
        throw Examples::BadInput( "--out: expected a name" );
    }
    return options;
}

} // namespace AimAndInterpolate
