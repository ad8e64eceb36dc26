#include "example.h"

#include "commandLine.h"

#include <CLI/CLI.hpp>

namespace Examples
{

int runExample( int argc, const char* const* argv, const char* name, const char* question, void ( *answer )() )
{
    return runProgram( name,
        [&]
        {
            CLI::App app( question, name );
            if ( parseCommandLine( app, argc, argv ) )
            {
                answer();
            }
            return 0;
        } );
}

} // namespace Examples
