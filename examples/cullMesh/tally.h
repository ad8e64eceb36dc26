#ifndef ZQ_EXAMPLES_CULLMESH_TALLY_H
#define ZQ_EXAMPLES_CULLMESH_TALLY_H

#include "culling.h"

namespace CullMesh
{

/// Clusters and the triangles in them.
struct Count
{
    std::size_t clusters = 0;
    std::size_t triangles = 0;

    void add( const Cluster& cluster );
};

/// Counts of verdicts, of one camera or summed over many.
struct Tally
{
    Count outside;
    Count behind;
    Count visible;
    Count visibleWithoutCone; // those of the visible clusters whose cone is not usable

    void add( const std::vector<Cluster>& clusters, const std::vector<Verdict>& verdicts );
    Count computeTotal() const;
    /// Triangles not to be drawn, of all: 0 to 1.
    double computeShareCulled() const;
};

} // namespace CullMesh

#endif
