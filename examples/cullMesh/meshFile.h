#ifndef ZQ_EXAMPLES_CULLMESH_MESHFILE_H
#define ZQ_EXAMPLES_CULLMESH_MESHFILE_H

#include "mesh.h"

namespace CullMesh
{

/// The triangles of a file in any format that assimp reads; polygons are cut, lines, points, normals and texture
/// coordinates left out. Vertices of a part with one position are one point. Throws Examples::BadInput when the file cannot be read or assimp was not there at build time.
RawMesh loadMesh( const std::string& path );

} // namespace CullMesh

#endif
