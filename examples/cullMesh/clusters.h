#ifndef ZQ_EXAMPLES_CULLMESH_CLUSTERS_H
#define ZQ_EXAMPLES_CULLMESH_CLUSTERS_H

#include "mesh.h"

#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geCullingCones.h>

namespace CullMesh
{

/// Consecutive triangles of a mesh.
struct TriangleRange
{
    std::size_t first;
    std::size_t count;
};

/// A patch of surface with its bounds: what the verdicts of culling.h need.
struct Cluster
{
    TriangleRange triangles;
    Zq::GeAlignedBox3<float> box;
    Zq::GeCullingCones cones;
    bool isConeUsable; // whether `cones` may be asked
};

/// Sorts the triangles of the mesh into ranges of at most `maxTriangles`, each a patch whose triangles are close
/// together and face similar ways: the range is halved at the median of the coordinate in which it is widest, until
/// it is small enough. The result depends on the mesh alone.
std::vector<TriangleRange> splitIntoRanges( Mesh& mesh, std::size_t maxTriangles );

/// The bounds of each range.
std::vector<Cluster> makeClusters( const Mesh& mesh, const std::vector<TriangleRange>& ranges );

} // namespace CullMesh

#endif
