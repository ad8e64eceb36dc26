#include "commandLine.h"

#include "badInput.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <iostream>
#include <sstream>
#include <type_traits>

namespace Examples
{

bool parseCommandLine( CLI::App& app, int argc, const char* const* argv )
{
    app.set_version_flag( "--version", app.get_name() + " " ZQ_VERSION, "Print the version and exit" );
    try
    {
        app.parse( argc, argv );
    }
    catch ( const CLI::CallForHelp& )
    {
        std::cout << app.help();
        return false;
    }
    catch ( const CLI::CallForVersion& version )
    {
        std::cout << version.what() << '\n';
        return false;
    }
    catch ( const CLI::ParseError& error )
    {
        throw BadInput( error.what() );
    }
    return true;
}

template <class Number>
Number parseNumber( const std::string& option, const std::string& text, Number lowest, Number highest )
{
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars( text.data(), end, number );
    // written so that NaN is refused
    if ( error != std::errc() || rest != end || !( number >= lowest && number <= highest ) )
    {
        std::ostringstream complaint;
        complaint << option << ": '" << text << "' is not a "
                  << ( std::is_integral_v<Number> ? "whole number" : "number" ) << " from " << lowest << " to "
                  << highest;
        throw BadInput( complaint.str() );
    }
    return number;
}

template double parseNumber( const std::string&, const std::string&, double, double );
template int parseNumber( const std::string&, const std::string&, int, int );
template unsigned parseNumber( const std::string&, const std::string&, unsigned, unsigned );
template unsigned long parseNumber( const std::string&, const std::string&, unsigned long, unsigned long );
template unsigned long long parseNumber(
    const std::string&, const std::string&, unsigned long long, unsigned long long );

int runProgram( const char* name, const std::function<int()>& run )
{
    try
    {
        const int code = run();
        if ( !std::cout.flush() )
        {
            throw BadInput( "cannot write to the standard output" );
        }
        return code;
    }
    catch ( const std::exception& error )
    {
        // names of files and options may hold line ends
        std::string reason = error.what();
        std::replace_if(
            reason.begin(), reason.end(), []( char character ) { return character == '\n' || character == '\r'; },
            ' ' );
        std::cerr << name << ": " << reason << '\n';
        return 2;
    }
}

} // namespace Examples
