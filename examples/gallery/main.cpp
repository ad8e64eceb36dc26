// gallery: draws what the shapes of the library are, with the library's own answers.

#include "pictures.h"

#include "commandLine.h"
#include "outputFiles.h"
#include "pngEncoder.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <functional>
#include <iostream>
#include <optional>

namespace Gallery
{

namespace
{

using Examples::OutputFile;

// The folder for the pictures; nothing if help was asked for.
std::optional<std::filesystem::path> parseOptions( int argc, const char* const* argv )
{
    CLI::App app( "Draws the shapes of the library with the library's own answers: six pictures (PNG), and the solids\n"
                  "among them for other viewers (OBJ).",
        "gallery" );
    std::string folder = ".";
    app.add_option( "--out", folder, "Where the files go, an existing folder [.]" )->type_name( "DIR" );
    if ( !Examples::parseCommandLine( app, argc, argv ) )
    {
        return std::nullopt;
    }
    return folder;
}

void run( const std::filesystem::path& folder )
{
    ObjFile shaft;
    ObjFile frustum;
    ObjFile cones;
    const std::pair<const char*, std::function<Examples::Canvas()>> pictures[] = {
        { "shaft.png", [&] { return drawShaftPicture( shaft ); } },
        { "frustum.png", [&] { return drawFrustumPicture( frustum ); } },
        { "cones.png", [&] { return drawConesPicture( cones ); } },
        { "samples.png", drawSamplesPicture },
        { "colors.png", drawColorsPicture },
        { "clipping.png", drawClippingPicture },
    };
    for ( const auto& picture : pictures )
    {
        Examples::checkWritable( folder / picture.first );
    }

    std::vector<OutputFile> files;
    for ( const auto& [name, draw] : pictures )
    {
        files.push_back( { folder / name, Examples::encodePng( draw() ) } );
    }
    files.push_back( { folder / "shaft.obj", shaft.getText() } );
    files.push_back( { folder / "frustum.obj", frustum.getText() } );
    files.push_back( { folder / "cones.obj", cones.getText() } );
    Examples::writeAll( files );
    for ( const OutputFile& file : files )
    {
        std::cout << "wrote " << file.path.string() << '\n';
    }
}

} // namespace

} // namespace Gallery

int main( int argc, char** argv )
{
    return Examples::runProgram( "gallery",
        [&]
        {
            if ( const std::optional<std::filesystem::path> folder = Gallery::parseOptions( argc, argv ) )
            {
                Gallery::run( *folder );
            }
            return 0;
        } );
}
