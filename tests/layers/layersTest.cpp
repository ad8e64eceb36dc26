// Reads every include of the project: they point downwards, from layer to layer, and inside libZQprimitives from group
// to group. docs/architecture.md draws the same picture.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace
{

const fs::path ROOT = ZQ_SOURCE_DIR;

struct Group
{
    std::string name;
    std::set<std::string> members; // file names without extension
    std::set<std::string> uses;    // the groups right below
};

/// From bottom to top; each may include itself and all below, near or far. A new class takes its place here.
const std::vector<Group> GROUPS = {
    { "base", {}, {} }, // all of the folder
    { "resmgt", {}, { "base" } },
    { "frame", { "export", "forward", "kernels", "traceLevels", "packages" }, { "base" } },
    { "random", { "rnRng" }, { "frame" } },
    { "vectors",
        { "geTupleText", "geVector2", "gePoint2", "geUnitVector2", "geVector2Utils", "geVector3", "gePoint3",
            "geUnitVector3" },
        { "frame" } },
    { "functors", { "unaryFunctor", "geLineFaceBuilder", "geBezier3FaceBuilder" }, { "vectors" } },
    { "matrices",
        { "geMatrixText", "geLinearMatrix3", "geAffineMatrix3", "geProjectiveMatrix3", "geHomogeneousCoord3" },
        { "vectors" } },
    { "tolerances", { "geTolerances" }, { "matrices" } },
    { "cameras", { "geCameraBuilder" }, { "matrices" } },
    { "scales", { "geScale3", "geTranslation3" }, { "matrices" } },
    { "rotations", { "geRotation3", "geAxisRotation3", "geXAxisRotation3", "geYAxisRotation3", "geZAxisRotation3" },
        { "scales" } },
    { "boxes", { "geAlignedBox", "geAlignedBoxBuilder" }, { "functors" } },
    { "planes", { "gePlane3", "geNormalizedPlane3", "gePlane3Builder" }, { "boxes" } },
    { "quaternions", { "geQuaternion3" }, { "rotations", "planes" } },
    { "spheres", { "geSphere3" }, { "boxes" } },
    { "frusta", { "geFrustum" }, { "planes", "matrices" } },
    { "shafts", { "geShaft" }, { "planes" } },
    { "icosahedra", { "geIcosahedron" }, { "spheres", "random" } },
    { "floating cones", { "geFloatingCone", "geFloatingConeBuilder" }, { "boxes" } },
    { "anchored cones", { "geAnchoredCone", "geAnchoredConeBuilder" }, { "floating cones" } },
    { "culling cones", { "geCullingCones" }, { "anchored cones" } },
    { "kernels", { "arrayKernels" }, { "frusta", "shafts", "culling cones" } },
    { "colours", { "coTripleText", "coLuminance", "coRgbColor", "coHsvColor", "coSpectrum" }, { "frame" } },
    { "colour kernels", { "colorKernels" }, { "colours" } },
};

struct Include
{
    fs::path from;     // below the root
    std::string given; // what stands between the quotes or brackets
    bool isQuoted;

    std::string describe() const { return from.string() + " includes " + given; }
    /// The file that a quoted include names, below the root.
    fs::path resolve() const { return ( from.parent_path() / given ).lexically_normal(); }
};

bool isSource( const fs::path& path )
{
    const std::string extension = path.extension().string();
    return extension == ".h" || extension == ".inline" || extension == ".imp" || extension == ".cpp";
}

std::vector<Include> readIncludes( const fs::path& folder )
{
    static const std::regex pattern( R"re(^\s*#\s*include\s*(["<])([^">]+)[">])re" );
    std::vector<Include> includes;
    if ( !fs::exists( ROOT / folder ) )
        return includes;
    for ( const fs::directory_entry& entry : fs::recursive_directory_iterator( ROOT / folder ) )
    {
        if ( !entry.is_regular_file() || !isSource( entry.path() ) )
            continue;
        std::ifstream file( entry.path() );
        std::smatch match;
        for ( std::string line; std::getline( file, line ); )
        {
            if ( std::regex_search( line, match, pattern ) )
                includes.push_back( { fs::relative( entry.path(), ROOT ), match[2], match[1] == "\"" } );
        }
    }
    return includes;
}

std::string getLayer( const fs::path& file )
{
    return std::next( file.begin() )->string();
}

const Group* findGroup( const fs::path& file )
{
    const auto found = std::find_if( GROUPS.begin(), GROUPS.end(),
        [&]( const Group& group ) {
            return group.members.empty() ? group.name == getLayer( file )
                                         : group.members.count( file.stem().string() ) != 0;
        } );
    return found == GROUPS.end() ? nullptr : &*found;
}

bool mayUse( const Group& upper, const Group& lower )
{
    return &upper == &lower ||
        std::any_of( GROUPS.data(), &upper,
            [&]( const Group& group ) { return upper.uses.count( group.name ) != 0 && mayUse( group, lower ); } );
}

TEST( Layers, TheLibraryIncludesWhatIsBelow )
{
    const std::regex own( "(zq|base|resmgt|color|primitives)/.*" );
    const std::set<std::string> fragments = { ".inline", ".imp" };
    const std::vector<Include> includes = readIncludes( "src" );
    EXPECT_GT( includes.size(), 100U );
    for ( const Include& include : includes )
    {
        const fs::path to = include.resolve();
        if ( !include.isQuoted )
        {
            EXPECT_FALSE( std::regex_match( include.given, own ) ) << include.describe() << ": use a relative path";
            EXPECT_NE( include.given, "iostream" ) << include.from << ": builds objects at load";
            continue;
        }
        ASSERT_TRUE( fs::exists( ROOT / to ) ) << include.describe();
        const bool isFragment = fragments.count( include.from.extension().string() ) != 0;
        EXPECT_FALSE( isFragment && to == fs::path( include.from ).replace_extension( ".h" ) )
            << include.describe() << ": a fragment is included, it does not include its header";
        if ( include.from == "src/primitives/packages.cpp" ) // knows all layers
            continue;
        const Group* const upper = findGroup( include.from );
        const Group* const lower = findGroup( to );
        ASSERT_TRUE( upper && lower ) << include.describe() << ": both need a place in the table of groups";
        EXPECT_TRUE( mayUse( *upper, *lower ) ) << include.describe() << ": " << lower->name << " is not below";
        EXPECT_TRUE( getLayer( to ) == getLayer( include.from ) || lower->name == "base" ) << include.describe();
    }
}

TEST( Layers, OthersUsePublicHeadersOnly )
{
    const std::regex fromSource( R"(.*\b(src|base|resmgt|color|primitives)/.*\.(h|imp|inline|cpp))" );
    const std::regex isPublic( R"((?!zq/).*|zq/(?!base/(registry|laneTargets)|primitives/traceLevels).*\.h)" );
    for ( const char* folder : { "tests", "examples", "benchmarks" } )
    {
        for ( const Include& include : readIncludes( folder ) )
        {
            EXPECT_FALSE( include.isQuoted && std::regex_match( include.given, fromSource ) ) << include.describe();
            EXPECT_TRUE( include.isQuoted || std::regex_match( include.given, isPublic ) ) << include.describe();
        }
    }
}

} // namespace
