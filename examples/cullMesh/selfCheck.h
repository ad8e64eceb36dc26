#ifndef ZQ_EXAMPLES_CULLMESH_SELFCHECK_H
#define ZQ_EXAMPLES_CULLMESH_SELFCHECK_H

#include "culling.h"
#include "viewpoints.h"

namespace CullMesh
{

/// Counts of triangles, of one camera or summed over many.
struct SelfCheck
{
    std::size_t behindButTurned = 0; // called behind, but turned to the eye
    std::size_t outsideButIn = 0;    // called outside, but partly inside all clip planes
    std::size_t needed = 0;          // turned to the eye and partly inside all: no culling can spare these

    std::size_t computeViolations() const { return behindButTurned + outsideButIn; }

    /// Looks at the verdicts of a camera triangle by triangle in double precision, without bounds, volume and cones,
    /// and without a tolerance: by what the elements of the camera's clip matrix and its depth range say.
    void add( const Mesh& mesh, const std::vector<Cluster>& clusters, const Camera& camera,
        const std::vector<Verdict>& verdicts );
};

} // namespace CullMesh

#endif
