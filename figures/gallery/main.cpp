// gallery: draws what the shapes of the library are, with the library's own answers.

#include "pictures.h"

#include "badInput.h"
#include "commandLine.h"
#include "outputFiles.h"
#include "pngFile.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <optional>

namespace Figures
{

namespace
{

using Examples::OutputFile;

struct Options
{
    std::string folder = ".";
    bool hasObjects = true;
    std::string only;      // the one picture to be drawn; empty: all
    std::string reference; // a folder whose pictures are compared with those that are drawn; empty: none
    bool isWriting = true;
};

// Nothing if help was asked for.
std::optional<Options> parseOptions( int argc, const char* const* argv )
{
    CLI::App app(
        "Draws the shapes of the library with the library's own answers: the pictures of the documents (PNG),\n"
        "and the solids among them for other viewers (OBJ).",
        "gallery" );
    Options options;
    bool hasPicturesOnly = false;
    CLI::Option* const out =
        app.add_option( "--out", options.folder, "Where the files go, an existing folder [.]" )->type_name( "DIR" );
    app.add_flag( "--pictures", hasPicturesOnly, "No OBJ files" );
    app.add_option( "--compare", options.reference,
           "End with code 1 if the pictures in the folder are not what is drawn; writes nothing without --out" )
        ->type_name( "DIR" );
    app.add_option( "--only", options.only, "One picture, without the extension" )->type_name( "NAME" );
    if ( !Examples::parseCommandLine( app, argc, argv ) )
    {
        return std::nullopt;
    }
    if ( options.folder.empty() )
    {
        throw Examples::BadInput( "--out: expected a name" );
    }
    options.hasObjects = !hasPicturesOnly && options.only.empty();
    options.isWriting = out->count() > 0 || options.reference.empty();
    return options;
}

// Whether a stored picture is the drawn one. Compilers and C libraries may round a colour or an edge differently: a few
// pixels may be off by much, the others by no more than can be seen.
bool isCurrent( const std::filesystem::path& path, const Canvas& drawn )
{
    constexpr int SEEN = 4;            // in a byte of a channel
    constexpr std::size_t RARE = 2000; // one pixel in so many
    const Rgb8 stored = readPng( path.string() );
    if ( stored.width != drawn.getWidth() || stored.height != drawn.getHeight() )
    {
        return false;
    }
    const std::vector<std::uint8_t> bytes = drawn.makeRgb8();
    std::size_t nbOff = 0;
    for ( std::size_t i = 0; i < bytes.size(); ++i )
    {
        nbOff += std::abs( int{ bytes[i] } - int{ stored.bytes[i] } ) > SEEN ? 1U : 0U;
    }
    return nbOff * RARE <= bytes.size();
}

int run( const Options& options )
{
    ObjFile shaft;
    ObjFile frustum;
    ObjFile cones;
    const std::pair<const char*, std::function<Canvas()>> pictures[] = {
        { "cullMesh.png", drawCullMeshPicture },
        { "frustum.png", [&] { return drawFrustumPicture( frustum ); } },
        { "slack.png", drawSlackPicture },
        { "viewVolumes.png", drawViewVolumesPicture },
        { "cityViews.png", drawCityViewsPicture },
        { "cityStereo.png", drawCityStereoPicture },
        { "cityDeep.png", drawCityDeepPicture },
        { "cones.png", [&] { return drawConesPicture( cones ); } },
        { "shaft.png", [&] { return drawShaftPicture( shaft ); } },
        { "planes.png", drawPlanesPicture },
        { "spheres.png", drawSpheresPicture },
        { "clipping.png", drawClippingPicture },
        { "rotations.png", drawRotationsPicture },
        { "tracks.png", drawTracksPicture },
        { "samples.png", drawSamplesPicture },
        { "colors.png", drawColorsPicture },
    };
    const std::filesystem::path folder = options.folder;
    const auto isWanted = [&]( const std::string& name )
    { return options.only.empty() || options.only + ".png" == name; };
    bool isAny = false;
    for ( const auto& picture : pictures )
    {
        isAny = isAny || isWanted( picture.first );
        if ( options.isWriting && isWanted( picture.first ) )
        {
            Examples::checkWritable( folder / picture.first );
        }
    }
    if ( !isAny )
    {
        throw Examples::BadInput( "--only: there is no picture '" + options.only + "'" );
    }
    std::vector<std::pair<std::string, Canvas>> drawn;
    for ( const auto& [name, draw] : pictures )
    {
        if ( isWanted( name ) )
        {
            drawn.emplace_back( name, draw() );
        }
    }
    std::vector<OutputFile> files;
    if ( options.isWriting )
    {
        for ( const auto& [name, canvas] : drawn )
        {
            files.push_back( { folder / name, encodePng( canvas ) } );
        }
        if ( options.hasObjects )
        {
            files.push_back( { folder / "shaft.obj", shaft.getText() } );
            files.push_back( { folder / "frustum.obj", frustum.getText() } );
            files.push_back( { folder / "cones.obj", cones.getText() } );
        }
        Examples::writeAll( files );
    }
    for ( const OutputFile& file : files )
    {
        std::cout << "wrote " << file.path.string() << '\n';
    }
    int code = 0;
    for ( const auto& [name, canvas] : drawn )
    {
        if ( !options.reference.empty() && !isCurrent( std::filesystem::path( options.reference ) / name, canvas ) )
        {
            std::cout << name << " is not what is drawn now\n";
            code = 1;
        }
    }
    return code;
}

} // namespace

} // namespace Figures

int main( int argc, char** argv )
{
    return Examples::runProgram( "gallery",
        [&]
        {
            const std::optional<Figures::Options> options = Figures::parseOptions( argc, argv );
            return options ? Figures::run( *options ) : 0;
        } );
}
