#include "outputFiles.h"

#include "badInput.h"

#include <fstream>
#include <random>

namespace Examples
{

namespace
{

namespace fs = std::filesystem;

bool isDirectTarget( const fs::path& path )
{
    std::error_code ignored;
    return fs::exists( path, ignored ) && !fs::is_regular_file( path, ignored );
}

// Where a link leads, so that a file is replaced and the link stays.
fs::path resolvePath( const fs::path& path )
{
    std::error_code error;
    const fs::path resolved = fs::weakly_canonical( path, error );
    return error ? path : resolved;
}

// Beside the place, so that the move stays on one disk; the suffix differs from run to run.
fs::path makeTemporaryPath( const fs::path& path )
{
    static const std::string suffix = ".part-" + std::to_string( std::random_device{}() );
    fs::path temporary = resolvePath( path );
    temporary += suffix;
    return temporary;
}

[[noreturn]] void refuse( const fs::path& path )
{
    throw BadInput( "cannot write '" + path.string() + "'" );
}

// The temporary files; those that are still there at the end are removed.
class TemporaryFiles
{
public:
    TemporaryFiles() = default;
    TemporaryFiles( const TemporaryFiles& ) = delete;
    TemporaryFiles& operator=( const TemporaryFiles& ) = delete;
    ~TemporaryFiles()
    {
        for ( const fs::path& path : _paths )
        {
            std::error_code ignored;
            fs::remove( path, ignored );
        }
    }

    void add( const fs::path& path ) { _paths.push_back( path ); }

private:
    std::vector<fs::path> _paths;
};

void writeFile( const fs::path& path, const OutputFile& file )
{
    std::ofstream stream( path, std::ios::binary );
    stream.write( file.bytes.data(), static_cast<std::streamsize>( file.bytes.size() ) );
    stream.close();
    if ( !stream )
    {
        refuse( file.path );
    }
}

} // namespace

void checkWritable( const fs::path& path )
{
    std::error_code ignored;
    if ( path.filename().empty() || fs::is_directory( path, ignored ) )
    {
        refuse( path );
    }
    if ( isDirectTarget( path ) )
    {
        return;
    }
    if ( fs::exists( path, ignored ) && !std::ofstream( path, std::ios::binary | std::ios::app ) )
    {
        refuse( path );
    }
    TemporaryFiles temporaries;
    const fs::path temporary = makeTemporaryPath( path );
    if ( !std::ofstream( temporary, std::ios::binary ) )
    {
        refuse( path );
    }
    temporaries.add( temporary );
}

void writeAll( const std::vector<OutputFile>& files )
{
    TemporaryFiles temporaries;
    for ( const OutputFile& file : files )
    {
        const bool isDirect = isDirectTarget( file.path );
        const fs::path path = isDirect ? file.path : makeTemporaryPath( file.path );
        if ( !isDirect )
        {
            temporaries.add( path );
        }
        writeFile( path, file );
    }
    for ( const OutputFile& file : files )
    {
        if ( !isDirectTarget( file.path ) )
        {
            std::error_code error;
            fs::rename( makeTemporaryPath( file.path ), resolvePath( file.path ), error );
            if ( error )
            {
                refuse( file.path );
            }
        }
    }
}

} // namespace Examples
