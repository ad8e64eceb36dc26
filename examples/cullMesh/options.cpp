#include "options.h"

#include "badInput.h"
#include "commandLine.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <limits>
#include <sstream>

namespace CullMesh
{

namespace
{

using Zq::GePoint3;

constexpr double MAX_OPTION = 1000;

constexpr Depth DEPTHS[] = {
    { "minus-one-to-one", Zq::GeDepthRange::MINUS_ONE_TO_ONE, true },
    { "zero-to-one", Zq::GeDepthRange::ZERO_TO_ONE, true },
    { "reversed", Zq::GeDepthRange::ONE_TO_ZERO, true },
    { "reversed-infinite", Zq::GeDepthRange::ONE_TO_ZERO, false },
};

std::vector<float> parseList( const std::string& option, const std::string& text, double lowest, double highest )
{
    std::vector<float> numbers;
    std::size_t begin = 0;
    while ( begin <= text.size() )
    {
        const std::size_t end = std::min( text.find( ',', begin ), text.size() );
        numbers.push_back(
            static_cast<float>( Examples::parseNumber( option, text.substr( begin, end - begin ), lowest, highest ) ) );
        begin = end + 1;
    }
    return numbers;
}

GePoint3<float> parsePoint( const std::string& option, const std::string& text )
{
    const std::vector<float> numbers = parseList( option, text, -MAX_OPTION, MAX_OPTION );
    if ( numbers.size() != 3 )
    {
        throw Examples::BadInput( option + ": '" + text + "' is not three numbers x,y,z" );
    }
    return { numbers[0], numbers[1], numbers[2] };
}

// A number, or two with a slash between them.
float parseRatio( const std::string& option, const std::string& text, double lowest, double highest )
{
    const std::size_t slash = text.find( '/' );
    if ( slash == std::string::npos )
    {
        return static_cast<float>( Examples::parseNumber( option, text, lowest, highest ) );
    }
    const double above = Examples::parseNumber( option, text.substr( 0, slash ), 1e-6, 1e6 );
    const double below = Examples::parseNumber( option, text.substr( slash + 1 ), 1e-6, 1e6 );
    if ( !( above / below >= lowest && above / below <= highest ) )
    {
        std::ostringstream complaint;
        complaint << option << ": '" << text << "' is not a ratio from " << lowest << " to " << highest;
        throw Examples::BadInput( complaint.str() );
    }
    return static_cast<float>( above / below );
}

// Options whose values are read by our own rules, so that every complaint is of one form.
class Parser
{
public:
    explicit Parser( CLI::App& app ) : _app( app ) {}

    template <class Number, class Target>
    CLI::Option* addNumber(
        const std::string& name, Target& target, Number lowest, Number highest, const std::string& help )
    {
        return add( name, "NUMBER", help,
            [=, &target]( const std::string& text )
            { target = static_cast<Target>( Examples::parseNumber( name, text, lowest, highest ) ); } );
    }

    CLI::Option* addDistance( const std::string& name, std::optional<float>& target, const std::string& help )
    {
        return add( name, "NUMBER", help,
            [name, &target]( const std::string& text )
            { target = static_cast<float>( Examples::parseNumber( name, text, 1e-4, 1e4 ) ); } );
    }

    CLI::Option* addRatio(
        const std::string& name, float& target, double lowest, double highest, const std::string& help )
    {
        return add( name, "RATIO", help,
            [=, &target]( const std::string& text ) { target = parseRatio( name, text, lowest, highest ); } );
    }

    CLI::Option* addList(
        const std::string& name, std::vector<float>& target, double lowest, double highest, const std::string& help )
    {
        return add( name, "R[,R...]", help,
            [=, &target]( const std::string& text ) { target = parseList( name, text, lowest, highest ); } );
    }

    CLI::Option* addPoint( const std::string& name, GePoint3<float>& target, const std::string& help )
    {
        return add(
            name, "X,Y,Z", help, [name, &target]( const std::string& text ) { target = parsePoint( name, text ); } );
    }

    CLI::Option* addAxis( const std::string& name, bool& isY, const std::string& help )
    {
        return add( name, "AXIS", help,
            [name, &isY]( const std::string& text )
            {
                if ( text != "y" && text != "z" )
                {
                    throw Examples::BadInput( name + ": '" + text + "' is neither y nor z" );
                }
                isY = text == "y";
            } );
    }

    CLI::Option* addDepth( const std::string& name, Depth& target, const std::string& help )
    {
        return add( name, "RANGE", help,
            [name, &target]( const std::string& text )
            {
                const auto* const depth = std::find_if( std::begin( DEPTHS ), std::end( DEPTHS ),
                    [&text]( const Depth& candidate ) { return text == candidate.word; } );
                if ( depth == std::end( DEPTHS ) )
                {
                    throw Examples::BadInput( name + ": '" + text +
                        "' is none of minus-one-to-one, zero-to-one, reversed, reversed-infinite" );
                }
                target = *depth;
            } );
    }

    template <class Text>
    CLI::Option* addText( const std::string& name, const std::string& type, Text& target, const std::string& help )
    {
        return add( name, type, help,
            [name, &target]( const std::string& text )
            {
                if ( text.empty() )
                {
                    throw Examples::BadInput( name + ": expected a name" );
                }
                target = text;
            } );
    }

private:
    template <class Reader>
    CLI::Option* add( const std::string& name, const std::string& type, const std::string& help, Reader read )
    {
        return _app.add_option_function<std::string>( name, read, help )->type_name( type );
    }

    CLI::App& _app;
};

} // namespace

std::optional<Options> parseOptions( int argc, const char* const* argv )
{
    CLI::App app( "Cuts a mesh into clusters and says which of them a camera need not draw: outside its view, or\n"
                  "facing away. The mesh is moved to the origin and scaled to radius 1; z is up.",
        "cullMesh" );
    Options options;
    std::filesystem::path folder = ".";
    std::string viewName = "cullMesh-view.png";
    std::string sceneName = "cullMesh-scene.png";
    bool hasNoPictures = false;

    Parser parser( app );
    CLI::Option* const segments = parser.addNumber<unsigned>( "--teapot-segments", options.teapotSegments, 1, 256,
        "The teapot's segments along a patch side [32; 91 make 529,256 triangles]" );
    CLI::Option* const mesh =
        parser.addText( "--mesh", "FILE", options.meshFile, "Another mesh, in any format that assimp reads" )
            ->excludes( segments );
    parser.addAxis( "--up", options.isYUp, "The axis that points up in the mesh of --mesh, y or z [z]" )->needs( mesh );
    parser.addNumber<std::size_t>(
        "--cluster-size", options.clusterSize, 1, 1000000, "The most triangles that a cluster may have [64]" );

    CLI::Option* const eye = parser.addPoint( "--eye", options.eye, "Where the camera stands [1.2,-1.9,0.45]" );
    CLI::Option* const target = parser.addPoint( "--target", options.target, "What it looks at [-0.3,0,0.05]" );
    parser.addNumber<double>(
        "--fov", options.fieldOfViewDegrees, 0.1, 179, "The angle of view from bottom to top, in degrees [30]" );
    parser.addRatio( "--aspect", options.aspect, 0.05, 20, "Width / height of the view, as in 1.5 or 3/2 [4/3]" );
    parser.addDistance( "--near", options.nearDistance, "The near clip plane [fitted to the mesh]" );
    parser.addDistance( "--far", options.farDistance, "The far clip plane [fitted to the mesh]" );

    parser.addDepth( "--depth", options.depth,
        "Depth from the near to the far clip plane: minus-one-to-one, zero-to-one, reversed (from one\n"
        "to zero), or reversed-infinite, which has no far plane [minus-one-to-one]" );

    CLI::Option* const orbit = parser.addNumber<std::size_t>( "--orbit", options.nbOrbitEyes, 1, 1000000,
        "Totals over so many eyes around the mesh, looking at its centre; no pictures" );
    orbit->excludes( eye )->excludes( target );
    parser
        .addList( "--distance", options.orbitDistances, 0.001, MAX_OPTION,
            "How far the eyes of --orbit are from its centre, in turn [1.25,2.5,6]" )
        ->needs( orbit );

    parser.addText( "--out", "DIR", folder, "Where the pictures go [.]" );
    parser.addText( "--view", "NAME", viewName, "The picture from the camera [cullMesh-view.png]" );
    parser.addText( "--scene", "NAME", sceneName, "The picture from outside [cullMesh-scene.png]" );
    app.add_flag( "--no-pictures", hasNoPictures, "Draw nothing" );
    parser.addText( "--json", "FILE", options.jsonFile,
        "The report for programs; - is the standard output, and the one for people goes to stderr" );

    if ( !Examples::parseCommandLine( app, argc, argv ) )
    {
        return std::nullopt;
    }
    options.hasPictures = !hasNoPictures && options.nbOrbitEyes == 0;
    options.viewFile = folder / viewName;
    options.sceneFile = folder / sceneName;
    constexpr float SAME = 1e-6F;
    if ( ( options.eye - options.target ).length() < SAME )
    {
        throw Examples::BadInput( "--eye and --target are the same point" );
    }
    if ( options.farDistance && !options.depth.hasFarPlane )
    {
        throw Examples::BadInput( "--far: there is no far plane with --depth " + std::string( options.depth.word ) );
    }
    if ( options.viewFile == options.sceneFile || options.jsonFile == options.viewFile ||
        options.jsonFile == options.sceneFile )
    {
        throw Examples::BadInput( "two outputs have the same name" );
    }
    return options;
}

std::vector<std::filesystem::path> Options::getOutputs() const
{
    std::vector<std::filesystem::path> outputs;
    if ( hasPictures )
    {
        outputs = { viewFile, sceneFile };
    }
    if ( !jsonFile.empty() && !isJsonPrinted() )
    {
        outputs.push_back( jsonFile );
    }
    return outputs;
}

std::vector<Camera> makeCameras( const Options& options, const std::vector<GePoint3<float>>& points )
{
    constexpr float DEGREE = 0.017453292F;
    const bool isOrbit = options.nbOrbitEyes > 0;
    const GePoint3<float> target = isOrbit ? GePoint3<float>() : options.target;
    std::vector<Camera> cameras;
    for ( const GePoint3<float>& eye : isOrbit ? makeOrbit( options.nbOrbitEyes, options.orbitDistances )
                                               : std::vector<GePoint3<float>>{ options.eye } )
    {
        Camera camera{ eye, target, options.fieldOfViewDegrees * DEGREE, options.aspect, 0, 0 };
        fitClipPlanes( camera, points );
        camera.nearDistance = options.nearDistance.value_or( camera.nearDistance );
        camera.farDistance = options.depth.hasFarPlane ? options.farDistance.value_or( camera.farDistance )
                                                       : std::numeric_limits<float>::infinity();
        camera.range = options.depth.range;
        if ( !( camera.nearDistance < camera.farDistance ) )
        {
            std::ostringstream complaint;
            complaint << "near " << camera.nearDistance << " is not less than far " << camera.farDistance;
            throw Examples::BadInput( complaint.str() );
        }
        cameras.push_back( camera );
    }
    return cameras;
}

} // namespace CullMesh
