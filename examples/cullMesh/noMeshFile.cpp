#include "meshFile.h"

#include "badInput.h"

namespace CullMesh
{

// Stands in for meshFile.cpp where assimp is missing.
RawMesh loadMesh( const std::string& )
{
    throw Examples::BadInput( "--mesh: built without assimp; install libassimp-dev and build again" );
}

} // namespace CullMesh
