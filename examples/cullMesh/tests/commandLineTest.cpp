// cullMesh as a user meets it: run as a program, judged by its exit code, its output and the files that it leaves.

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <png.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <regex>
#include <set>
#include <sstream>

namespace
{

namespace fs = std::filesystem;

struct Result
{
    int exitCode;
    std::string output;
    std::string errors;
};

std::string readFile( const fs::path& path )
{
    std::ifstream stream( path, std::ios::binary );
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

// Every test works in an empty folder of its own.
class CullMesh : public testing::Test
{
protected:
    void SetUp() override
    {
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        _folder = fs::temp_directory_path() / ( "cullMesh-" + name + "-" + std::to_string( std::random_device{}() ) );
        fs::create_directories( _folder / "work" );
    }

    void TearDown() override { fs::remove_all( _folder ); }

    Result run( const std::string& arguments, fs::path output = {} ) const
    {
        output = output.empty() ? _folder / "out" : output;
        const std::string command = "cd '" + getWorkFolder().string() + "' && '" CULL_MESH_PROGRAM "' " + arguments +
            " > '" + output.string() + "' 2> '" + ( _folder / "err" ).string() + "'";
        const int status = std::system( command.c_str() ); // NOLINT(cert-env33-c): it is what a user does
        return {
            WEXITSTATUS( status ), output == _folder / "out" ? readFile( output ) : "", readFile( _folder / "err" ) };
    }

    void expectRefused( const std::string& arguments ) const
    {
        const std::set<fs::path> before = listFiles();
        const Result result = run( arguments );
        EXPECT_EQ( result.exitCode, 2 ) << arguments;
        EXPECT_EQ( result.output, "" ) << arguments;
        EXPECT_EQ( std::count( result.errors.begin(), result.errors.end(), '\n' ), 1 ) << arguments << result.errors;
        EXPECT_EQ( result.errors.rfind( "cullMesh: ", 0 ), 0U ) << arguments << result.errors;
        EXPECT_EQ( result.errors.find( "assertion" ), std::string::npos ) << arguments << result.errors;
        EXPECT_EQ( listFiles(), before ) << arguments;
    }

    fs::path getWorkFolder() const { return _folder / "work"; }

    void write( const std::string& name, const std::string& text ) const
    {
        std::ofstream( getWorkFolder() / name, std::ios::binary ) << text;
    }

    std::set<fs::path> listFiles() const
    {
        return { fs::directory_iterator( getWorkFolder() ), fs::directory_iterator() };
    }

private:
    fs::path _folder;
};

// The number of different colours in a picture, which must be 1280 x 960.
std::size_t countColors( const fs::path& path )
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_NE( png_image_begin_read_from_file( &image, path.c_str() ), 0 ) << path;
    EXPECT_EQ( image.width, 1280U );
    EXPECT_EQ( image.height, 960U );
    image.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> bytes( PNG_IMAGE_SIZE( image ) );
    EXPECT_NE( png_image_finish_read( &image, nullptr, bytes.data(), 0, nullptr ), 0 ) << path;
    std::set<std::uint32_t> colors;
    for ( std::size_t i = 0; i + 2 < bytes.size(); i += 3 )
    {
        colors.insert( bytes[i] * 65536U + bytes[i + 1] * 256U + bytes[i + 2] );
    }
    return colors.size();
}

// "65,280" -> 65280
std::size_t parseGrouped( std::string text )
{
    text.erase( std::remove( text.begin(), text.end(), ',' ), text.end() );
    return std::stoul( text );
}

constexpr const char* TETRAHEDRON = "v 0 0 0\nv 2 0 0\nv 0 2 0\nv 0 0 2\n"
                                    "f 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n";

} // namespace

TEST_F( CullMesh, DrawsTheTeapotAndFindsNoViolation )
{
    const Result result = run( "--teapot-segments 16" );
    EXPECT_EQ( result.exitCode, 0 ) << result.errors;
    EXPECT_EQ( result.errors, "" );
    EXPECT_NE( result.output.find( ": 0 violations" ), std::string::npos ) << result.output;
    EXPECT_EQ( listFiles().size(), 2U );
    EXPECT_GT( countColors( getWorkFolder() / "cullMesh-view.png" ), 500U );
    EXPECT_GT( countColors( getWorkFolder() / "cullMesh-scene.png" ), 500U );
}

TEST_F( CullMesh, TellsProgramsWhatItTellsPeople )
{
    const Result result = run( "--json report.json --no-pictures" );
    ASSERT_EQ( result.exitCode, 0 ) << result.errors;
    EXPECT_EQ( listFiles().size(), 1U );
    const nlohmann::json json = nlohmann::json::parse( readFile( getWorkFolder() / "report.json" ) );
    const nlohmann::json& verdicts = json["verdicts"];

    for ( const auto& [label, key] :
        std::vector<std::pair<std::string, std::string>>{ { "outside", "outside" }, { "behind", "behind" },
            { "visible", "visible" }, { "  cone not usable", "visibleConeNotUsable" }, { "total", "total" } } )
    {
        std::smatch row;
        ASSERT_TRUE( std::regex_search(
            result.output, row, std::regex( "\n  " + label + " +([0-9,]+) +([0-9,]+) +[0-9.]+ %" ) ) )
            << label << result.output;
        EXPECT_EQ( verdicts[key]["clusters"], parseGrouped( row[1] ) );
        EXPECT_EQ( verdicts[key]["triangles"], parseGrouped( row[2] ) );
    }
    for ( const std::string unit : { "clusters", "triangles" } )
    {
        EXPECT_EQ( verdicts["outside"][unit].get<int>() + verdicts["behind"][unit].get<int>() +
                verdicts["visible"][unit].get<int>(),
            verdicts["total"][unit].get<int>() );
        EXPECT_GT( verdicts["outside"][unit], 0 );
        EXPECT_GT( verdicts["behind"][unit], 0 );
    }
    EXPECT_EQ( json["mesh"]["triangles"], 65280 );
    EXPECT_EQ( json["clusters"]["count"], 1024 );
    EXPECT_LE( json["shareCulled"], json["shareSparable"] );
    EXPECT_EQ( json["violations"]["behind"], 0 );
    EXPECT_EQ( json["violations"]["outside"], 0 );
    EXPECT_GT( json["nanosecondsPerCluster"]["boxTest"], 0 );
    EXPECT_GT( json["nanosecondsPerCluster"]["coneTest"], 0 );
}

TEST_F( CullMesh, CullsHalfOfAllTrianglesAroundTheTeapot )
{
    ASSERT_EQ( run( "--orbit 162 --json orbit.json" ).exitCode, 0 );
    const nlohmann::json json = nlohmann::json::parse( readFile( getWorkFolder() / "orbit.json" ) );
    EXPECT_GE( json["shareCulled"], 0.5 );
    EXPECT_EQ( json["cameras"].size(), 162U );
    EXPECT_EQ( json["verdicts"]["total"]["triangles"], 162 * 65280 );
}

TEST_F( CullMesh, StaysRightFromAnyPlace )
{
    for ( const std::string camera : { "--eye 0.1,0.1,0.1 --target 1,0,0", "--eye 0,0,3 --target 0,0,0",
              "--eye 0,0,-1 --target 0,0,0 --aspect 0.05", "--eye 5,0,0 --target 9,0,0", "--eye -900,3,5 --fov 0.1",
              "--near 0.0001 --far 10000", "--fov 179", "--orbit 60 --distance 0.2,0.9,1.01 --near 0.001 --far 100",
              "--orbit 30 --cluster-size 1", "--cluster-size 1000000" } )
    {
        for ( const std::string depth : { "minus-one-to-one", "zero-to-one", "reversed", "reversed-infinite" } )
        {
            if ( depth != "reversed-infinite" || camera.find( "--far" ) == std::string::npos )
            {
                std::string arguments = "--teapot-segments 8 --no-pictures --depth " + depth;
                arguments.append( " " ).append( camera );
                const Result result = run( arguments );
                EXPECT_EQ( result.exitCode, 0 ) << arguments << result.output << result.errors;
            }
        }
    }
}

TEST_F( CullMesh, TakesTheAspectAsHelpPrintsIt )
{
    ASSERT_EQ( run( "--teapot-segments 2 --no-pictures --aspect 4/3 --json ratio.json" ).exitCode, 0 );
    ASSERT_EQ( run( "--teapot-segments 2 --no-pictures --json default.json" ).exitCode, 0 );
    const auto readView = [&]( const std::string& name )
    { return nlohmann::json::parse( readFile( getWorkFolder() / name ) )["view"]; };
    EXPECT_EQ( readView( "ratio.json" ), readView( "default.json" ) );
}

TEST_F( CullMesh, CullsTheSameWhateverDepthIsCalled )
{
    ASSERT_EQ( run( "--orbit 20 --json default.json" ).exitCode, 0 );
    const auto readJson = [&]( const std::string& name )
    { return nlohmann::json::parse( readFile( getWorkFolder() / name ) ); };
    const nlohmann::json reference = readJson( "default.json" );
    EXPECT_EQ( reference["view"]["depth"], "minus-one-to-one" );
    for ( const std::string depth : { "zero-to-one", "reversed", "reversed-infinite" } )
    {
        ASSERT_EQ( run( "--orbit 20 --json other.json --depth " + depth ).exitCode, 0 ) << depth;
        const nlohmann::json json = readJson( "other.json" );
        EXPECT_EQ( json["view"]["depth"], depth );
        EXPECT_EQ( json["verdicts"], reference["verdicts"] ) << depth;
        EXPECT_EQ( json["cameras"][0]["far"].is_null(), depth == "reversed-infinite" ) << depth;
    }
    EXPECT_EQ( run( "--teapot-segments 8 --depth reversed-infinite" ).exitCode, 0 );
    EXPECT_TRUE( fs::exists( getWorkFolder() / "cullMesh-scene.png" ) );
}

TEST_F( CullMesh, PrintsTheReportForProgramsWhenAskedTo )
{
    const Result result = run( "--teapot-segments 2 --json -" );
    EXPECT_EQ( result.exitCode, 0 );
    EXPECT_EQ( nlohmann::json::parse( result.output, nullptr, false )["violations"]["behind"], 0 ) << result.output;
    EXPECT_NE( result.errors.find( ": 0 violations" ), std::string::npos ) << result.errors;
    EXPECT_FALSE( fs::exists( getWorkFolder() / "-" ) );
    EXPECT_EQ( run( "--teapot-segments 2 --no-pictures --json -", "/dev/full" ).exitCode, 2 );
}

TEST_F( CullMesh, CountsOneAsOne )
{
    const Result result = run( "--teapot-segments 2 --no-pictures --cluster-size 1" );
    EXPECT_NE( result.output.find( "clusters of at most 1 triangle;" ), std::string::npos ) << result.output;
    EXPECT_NE( run( "--teapot-segments 2 --orbit 1" ).output.find( "\n1 eye around" ), std::string::npos );
}

TEST_F( CullMesh, TellsItsVersion )
{
    const Result result = run( "--version" );
    EXPECT_EQ( result.exitCode, 0 );
    EXPECT_EQ( result.output, "cullMesh " CULL_MESH_VERSION "\n" );
    EXPECT_TRUE( listFiles().empty() );
}

TEST_F( CullMesh, RefusesBadArguments )
{
    for ( const std::string arguments :
        { "--bogus", "extra", "--up x", "--up", "--up y", "--up z", "--fov", "--fov abc", "--fov nan", "--fov 0",
            "--fov 180", "--fov -5", "--fov 30x", "--fov ''", "--fov ' 30'", "--aspect 0", "--aspect inf",
            "--aspect 4/", "--aspect /3", "--aspect 4/0", "--aspect 4/3/2", "--aspect 100/2", "--aspect -4/-3",
            "--aspect nan/1", "--cluster-size 0", "--cluster-size -1", "--cluster-size 1.5", "--teapot-segments 0",
            "--teapot-segments 1000000", "--near 3 --far 2", "--near 2 --far 2", "--far 0.5", "--near 0", "--near -1",
            "--eye 1,2", "--eye 1,2,3,4", "--eye 1,,2", "--eye 1,2,", "--eye nan,0,0", "--eye 1e39,0,0",
            "--eye 1,1,1 --target 1,1,1", "--eye 0,0,0 --target 1e-30,0,0", "--orbit 0", "--orbit 9 --eye 1,1,1",
            "--distance 3", "--orbit 9 --distance 0", "--orbit 9 --distance 1,,2", "--mesh x.obj --teapot-segments 4",
            "--mesh ''", "--json ''", "--depth", "--depth ''", "--depth 01", "--depth Reversed",
            "--depth reversed-infinite --far 5", "--fov 'a\nb'" } )
    {
        expectRefused( arguments );
    }
}

TEST_F( CullMesh, WritesNothingWhereOneOutputCannotBeWritten )
{
    write( "file", "" );
    for ( const std::string arguments : { "--out missing", "--out file", "--json missing/report.json", "--json .",
              "--json /dev/full", "--view missing/view.png", "--view same.png --scene same.png",
              "--view both --json ./both", "--view /dev/full --json report.json" } )
    {
        expectRefused( "--teapot-segments 2 " + arguments );
    }
    EXPECT_EQ( run( "--teapot-segments 2 --no-pictures", "/dev/full" ).exitCode, 2 );
}

TEST_F( CullMesh, ReplacesAFileThatALinkLeadsTo )
{
    write( "old.json", "old" );
    fs::create_symlink( "old.json", getWorkFolder() / "link.json" );
    EXPECT_EQ( run( "--teapot-segments 2 --no-pictures --json link.json" ).exitCode, 0 );
    EXPECT_TRUE( fs::is_symlink( getWorkFolder() / "link.json" ) );
    EXPECT_EQ( readFile( getWorkFolder() / "old.json" ).front(), '{' );
}

#if CULL_MESH_HAS_ASSIMP

TEST_F( CullMesh, ReadsAMeshAndSaysWhatItDropped )
{
    // a point given twice, a face that uses a point twice, one without area, and a quadrangle
    write( "solid.obj",
        std::string( TETRAHEDRON ) +
            "v 2 0 0\nv 1 0 0\nv 5 5 0\nv 7 5 0\nv 7 7 0\nv 5 7 0\n"
            "f 1 5 3\nf 2 2 4\nf 1 6 2\nf 7 8 9 10\n" );
    ASSERT_EQ( run( "--mesh solid.obj --up z --json solid.json --no-pictures" ).exitCode, 0 );
    const nlohmann::json mesh = nlohmann::json::parse( readFile( getWorkFolder() / "solid.json" ) )["mesh"];
    EXPECT_EQ( mesh["triangles"], 7 );
    EXPECT_EQ( mesh["trianglesDropped"], 2 );
    EXPECT_EQ( mesh["points"], 8 );
    EXPECT_EQ( mesh["pointsWelded"], 0 ); // what the reader copied for each face is no point of the mesh
    EXPECT_EQ( mesh["center"], nlohmann::json( { 3.5, 3.5, 1 } ) );
}

TEST_F( CullMesh, RefusesBadMeshes )
{
    write( "nan.obj", "v 0 0 0\nv 1 0 0\nv 0 nan 0\nf 1 2 3\n" );
    write( "infinite.obj", "v 0 0 0\nv 1 0 0\nv 0 inf 0\nf 1 2 3\n" );
    write( "huge.obj", "v 0 0 0\nv 1 0 0\nv 0 1e300 0\nf 1 2 3\n" );
    write( "empty.obj", "" );
    write( "points.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\n" );
    write( "line.obj", "v 0 0 0\nv 1 0 0\nl 1 2\n" );
    write( "flat.obj", "v 0 0 0\nv 1 0 0\nv 2 0 0\nf 1 2 3\nf 1 1 2\n" );
    write( "index.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 9\n" );
    write( "text.obj", "this is no mesh\n" );
    write( "text.unknown", "this is no mesh\n" );
    for ( const fs::path& path : listFiles() )
    {
        expectRefused( "--json report.json --mesh " + path.filename().string() );
    }
    expectRefused( "--mesh missing.obj" );
    expectRefused( "--mesh ." );
}

#else

TEST_F( CullMesh, SaysThatItCannotReadMeshes )
{
    write( "solid.obj", TETRAHEDRON );
    expectRefused( "--mesh solid.obj" );
}

#endif
