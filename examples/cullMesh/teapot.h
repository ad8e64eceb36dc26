#ifndef ZQ_EXAMPLES_CULLMESH_TEAPOT_H
#define ZQ_EXAMPLES_CULLMESH_TEAPOT_H

#include "mesh.h"

namespace CullMesh
{

/// The classic teapot (M. Newell, 1975), z up: 32 Bezier patches, each cut into segments x segments quadrangles of two
/// triangles. At the lid's tip and the bottom's middle a row of every patch collapses to a point, so 8 triangles per
/// segment have no area; prepareMesh() drops them: 32 segments make 65,280 triangles.
RawMesh makeTeapot( unsigned nbSegments );

} // namespace CullMesh

#endif
