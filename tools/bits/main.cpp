// Runs every operation of the library on seeded inputs and prints a hash of the results per group of operations: two
// builds whose lines are equal give the same bits.
//
//     zqBits [--inputs N] [--group PREFIX] [--lines] [--check FILE] [--list]

#include "results.h"

#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>

namespace
{

using namespace ZqBits;

const char usage[] = "usage: zqBits [--inputs N] [--group PREFIX] [--lines] [--check FILE] [--list]\n"
                     "  --inputs N      runs of each group, 10000 if not given\n"
                     "  --group PREFIX  only groups whose names begin so\n"
                     "  --lines         the lines of reports count, too\n"
                     "  --check FILE    holds the lines against those of a file that name the same groups\n"
                     "  --list          prints the names of the groups\n";

struct Options
{
    unsigned long long nbInputs = 10000;
    std::string prefix;
    std::string file;
    bool isWithLines = false;
    bool isList = false;
};

bool parse( int argc, char** argv, Options& options )
{
    for ( int i = 1; i < argc; ++i )
    {
        const std::string option = argv[i];
        const bool hasValue = i + 1 < argc;
        if ( option == "--lines" )
            options.isWithLines = true;
        else if ( option == "--list" )
            options.isList = true;
        else if ( hasValue && option == "--group" )
            options.prefix = argv[++i];
        else if ( hasValue && option == "--check" )
            options.file = argv[++i];
        else if ( hasValue && option == "--inputs" )
        {
            const std::string digits = argv[++i];
            if ( digits.empty() || digits.size() > 15 || digits.find_first_not_of( "0123456789" ) != std::string::npos )
                return false;
            options.nbInputs = std::stoull( digits );
        }
        else
            return false;
    }
    return true;
}

/// The seed of a group is a hash of its name (FNV-1a), so that a new group changes no other one.
std::uint64_t makeSeed( const std::string& name )
{
    std::uint64_t hash = 0xCBF29CE484222325U;
    for ( const char each : name )
        hash = ( hash ^ static_cast<unsigned char>( each ) ) * 0x100000001B3U;
    return hash;
}

std::string run( const Group& group, const Options& options )
{
    Results results( options.isWithLines );
    const std::uint64_t seed = makeSeed( group.name );
    for ( unsigned long long i = 0; i < options.nbInputs; ++i )
    {
        Inputs inputs( seed, i );
        group.run( inputs, results );
    }
    std::ostringstream line;
    line << std::left << std::setw( 32 ) << group.name << std::right << std::hex << std::setfill( '0' )
         << std::setw( 16 ) << results.getHash() << std::dec << "  " << results.getCount();
    return line.str();
}

} // namespace

int main( int argc, char** argv )
{
    Options options;
    if ( !parse( argc, argv, options ) )
    {
        std::cerr << usage;
        return 2;
    }
    std::map<std::string, std::string> expected;
    std::ifstream file( options.file );
    for ( std::string line; std::getline( file, line ); )
        expected[line.substr( 0, line.find( ' ' ) )] = line;
    if ( !options.file.empty() && expected.empty() )
    {
        std::cerr << "zqBits: nothing to read in " << options.file << '\n';
        return 2;
    }

    bool isEqual = true;
    std::size_t nbKnown = 0;
    for ( const auto& groups : { getValueGroups(), getQueryGroups(), getColorGroups(), getTextGroups() } )
    {
        for ( const Group& group : groups )
        {
            if ( std::string( group.name ).rfind( options.prefix, 0 ) != 0 )
                continue;
            const std::string line = options.isList ? group.name : run( group, options );
            std::cout << line << std::endl;
            const auto known = expected.find( group.name );
            nbKnown += known != expected.end();
            if ( known == expected.end() || known->second == line )
                continue;
            std::cout << "expected:\n" << known->second << std::endl;
            isEqual = false;
        }
    }
    if ( options.prefix.empty() && nbKnown != expected.size() )
    {
        std::cout << "expected: " << expected.size() << " groups, of which there are " << nbKnown << std::endl;
        isEqual = false;
    }
    return isEqual ? EXIT_SUCCESS : EXIT_FAILURE;
}
