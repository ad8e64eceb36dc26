// Reads every include of the project: they point downwards, from layer to layer, and inside libZQprimitives from group
// to group. docs/architecture.md draws the same picture.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace
{

const fs::path ROOT = ZQ_SOURCE_DIR;

/// Which folder may include from which, besides itself. packages.cpp alone knows all of them.
const std::map<std::string, std::set<std::string>> LAYERS = {
    { "base", {} },
    { "resmgt", { "base" } },
    { "color", { "base" } },
    { "primitives", { "base" } },
};

struct Group
{
    std::string name;
    std::set<std::string> members; // file names without extension
    std::set<std::string> uses;    // the groups right below
};

/// The groups of src/primitives and src/color; each may include itself and all below, near or far. A new class takes its
/// place here.
const std::vector<Group> GROUPS = {
    { "frame", { "export", "forward", "kernels", "traceLevels" }, {} },
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

const std::vector<Include>& getLibraryIncludes()
{
    static const std::vector<Include> includes = readIncludes( "src" );
    return includes;
}

const Group* findGroup( const fs::path& file )
{
    const std::string stem = file.stem().string();
    const auto found = std::find_if(
        GROUPS.begin(), GROUPS.end(), [&]( const Group& group ) { return group.members.count( stem ) != 0; } );
    return found == GROUPS.end() ? nullptr : &*found;
}

bool mayUse( const Group& upper, const std::string& lower )
{
    if ( upper.name == lower )
        return true;
    return std::any_of( upper.uses.begin(), upper.uses.end(),
        [&]( const std::string& used )
        {
            const auto group = std::find_if(
                GROUPS.begin(), GROUPS.end(), [&]( const Group& candidate ) { return candidate.name == used; } );
            return group != GROUPS.end() && mayUse( *group, lower );
        } );
}

TEST( Layers, FoldersOnlyIncludeFoldersBelow )
{
    std::set<std::string> seen;
    for ( const Include& include : getLibraryIncludes() )
    {
        if ( !include.isQuoted )
            continue;
        const fs::path to = include.resolve();
        ASSERT_TRUE( fs::exists( ROOT / to ) ) << include.describe();
        const std::string layer = std::next( include.from.begin() )->string();
        const std::string below = std::next( to.begin() )->string();
        const auto found = LAYERS.find( layer );
        ASSERT_NE( found, LAYERS.end() ) << include.from << ": an unknown layer";
        seen.insert( layer );
        EXPECT_TRUE( layer == below || found->second.count( below ) != 0 ||
            include.from == fs::path( "src/primitives/packages.cpp" ) )
            << include.describe() << ", which is not below";
    }
    EXPECT_TRUE( seen.count( "base" ) && seen.count( "resmgt" ) && seen.count( "primitives" ) );
}

TEST( Layers, ClassesOnlyIncludeClassesBelow )
{
    std::size_t nbChecked = 0;
    for ( const Include& include : getLibraryIncludes() )
    {
        const fs::path to = include.resolve();
        const std::string layer = std::next( include.from.begin() )->string();
        const bool isOutside = layer == "base" || layer == "resmgt" || include.from.stem() == "packages";
        if ( !include.isQuoted || isOutside || to.parent_path() != include.from.parent_path() )
            continue;
        const Group* const upper = findGroup( include.from );
        const Group* const lower = findGroup( to );
        ASSERT_NE( upper, nullptr ) << include.from << " needs a place in the table of groups";
        ASSERT_NE( lower, nullptr ) << to << " needs a place in the table of groups";
        EXPECT_TRUE( mayUse( *upper, lower->name ) )
            << include.describe() << ": " << upper->name << " use " << lower->name;
        ++nbChecked;
    }
    EXPECT_GT( nbChecked, 50U );
}

TEST( Layers, TheTableOfGroupsHasAnOrder )
{
    std::set<std::string> members;
    for ( const Group& upper : GROUPS )
    {
        for ( const std::string& member : upper.members )
            EXPECT_TRUE( members.insert( member ).second ) << member << " stands in two groups";
        for ( const Group& lower : GROUPS )
        {
            if ( &upper != &lower )
            {
                EXPECT_FALSE( mayUse( upper, lower.name ) && mayUse( lower, upper.name ) ) << upper.name << lower.name;
            }
        }
    }
}

TEST( Layers, TheLibraryIncludesByTheHousesRules )
{
    const std::regex own( R"(zq/.*|.*primitives/.*|.*base/.*|.*resmgt/.*|.*color/.*)" );
    for ( const Include& include : getLibraryIncludes() )
    {
        EXPECT_NE( include.given, "iostream" ) << include.from << ": builds objects at load";
        if ( !include.isQuoted )
        {
            EXPECT_FALSE( std::regex_match( include.given, own ) ) << include.describe() << ": use a relative path";
        }
        const std::string extension = include.from.extension().string();
        if ( extension == ".inline" || extension == ".imp" )
        {
            fs::path header = include.from;
            EXPECT_NE( include.resolve(), header.replace_extension( ".h" ) )
                << include.describe() << ": a fragment is included, it does not include its header";
        }
    }
}

TEST( Layers, OthersUsePublicHeadersOnly )
{
    const std::set<std::string> internal = {
        "zq/base/laneTargets.h", "zq/base/registry.h", "zq/primitives/traceLevels.h" };
    const std::regex source( R"(.*\b(src|base|resmgt|color|primitives)/.*\.(h|imp|inline|cpp))" );
    std::size_t nbChecked = 0;
    for ( const char* folder : { "tests", "examples", "benchmarks" } )
    {
        for ( const Include& include : readIncludes( folder ) )
        {
            if ( include.isQuoted )
            {
                EXPECT_FALSE( std::regex_match( include.given, source ) ) << include.describe();
            }
            else if ( include.given.rfind( "zq/", 0 ) == 0 )
            {
                EXPECT_EQ( fs::path( include.given ).extension(), ".h" ) << include.describe();
                EXPECT_EQ( internal.count( include.given ), 0U ) << include.describe();
                ++nbChecked;
            }
        }
    }
    EXPECT_GT( nbChecked, 20U );
}

} // namespace
