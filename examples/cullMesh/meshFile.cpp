#include "meshFile.h"

#include "badInput.h"

#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <map>

namespace CullMesh
{

namespace
{

std::string makeFirstLine( const std::string& text )
{
    return text.substr( 0, text.find_first_of( "\r\n" ) );
}

// The number of each vertex's point. The reader gives every face vertices of its own, so one point comes as often as
// there are faces around it: such copies become one again, and are none of the mesh's points.
std::vector<std::uint32_t> addPoints( RawMesh& raw, const aiMesh& part )
{
    std::map<std::array<float, 3>, std::uint32_t> known;
    std::vector<std::uint32_t> numbers;
    for ( unsigned i = 0; i < part.mNumVertices; ++i )
    {
        const aiVector3D& vertex = part.mVertices[i];
        auto number = static_cast<std::uint32_t>( raw.points.size() );
        if ( std::isfinite( vertex.x ) && std::isfinite( vertex.y ) && std::isfinite( vertex.z ) )
        {
            number = known.emplace( std::array<float, 3>{ vertex.x, vertex.y, vertex.z }, number ).first->second;
        }
        if ( number == raw.points.size() )
        {
            raw.points.emplace_back( Zq::GePoint3<float>( vertex.x, vertex.y, vertex.z ) );
        }
        numbers.push_back( number );
    }
    return numbers;
}

void append( RawMesh& raw, const aiMesh& part )
{
    const std::vector<std::uint32_t> numbers = addPoints( raw, part );
    for ( unsigned i = 0; i < part.mNumFaces; ++i )
    {
        const aiFace& face = part.mFaces[i];
        if ( face.mNumIndices == 3 )
        {
            raw.triangles.push_back(
                { numbers[face.mIndices[0]], numbers[face.mIndices[1]], numbers[face.mIndices[2]] } );
        }
    }
}

} // namespace

RawMesh loadMesh( const std::string& path )
{
    std::error_code error;
    if ( !std::filesystem::is_regular_file( path, error ) )
    {
        throw Examples::BadInput( "cannot read '" + path + "'" );
    }
    if ( std::filesystem::file_size( path, error ) == 0 )
    {
        throw Examples::BadInput( "'" + path + "' is empty" );
    }

    Assimp::Importer importer;
    importer.SetPropertyInteger( AI_CONFIG_PP_SBP_REMOVE, aiPrimitiveType_POINT | aiPrimitiveType_LINE );
    importer.SetPropertyInteger( AI_CONFIG_PP_RVC_FLAGS,
        aiComponent_NORMALS | aiComponent_TANGENTS_AND_BITANGENTS | aiComponent_COLORS | aiComponent_TEXCOORDS |
            aiComponent_BONEWEIGHTS | aiComponent_ANIMATIONS | aiComponent_TEXTURES | aiComponent_LIGHTS |
            aiComponent_CAMERAS | aiComponent_MATERIALS );
    // the parts of a scene are moved to their places
    const aiScene* const scene = importer.ReadFile( path,
        aiProcess_Triangulate | aiProcess_SortByPType | aiProcess_RemoveComponent | aiProcess_PreTransformVertices );
    if ( scene == nullptr )
    {
        throw Examples::BadInput(
            "cannot read triangles from '" + path + "': " + makeFirstLine( importer.GetErrorString() ) );
    }
    RawMesh raw;
    raw.name = path;
    for ( unsigned i = 0; i < scene->mNumMeshes; ++i )
    {
        append( raw, *scene->mMeshes[i] );
    }
    return raw;
}

} // namespace CullMesh
