#ifndef ZQ_EXAMPLES_CULLMESH_CULLING_H
#define ZQ_EXAMPLES_CULLMESH_CULLING_H

#include "clusters.h"

#include <zq/primitives/geFrustum.h>

namespace CullMesh
{

enum class Verdict
{
    OUTSIDE, // the box lies outside the frustum: not in the picture
    BEHIND,  // every face is seen from the back
    VISIBLE  // to be drawn
};

/// Whether a cluster need not be drawn: two questions to the library. The frustum is that of projection * view. It is
/// one in double precision, because in single precision it is only good while far / near stays below about 1,000.
inline Verdict judge( const Cluster& cluster, const Zq::GeFrustum<double>& frustum, const Zq::GePoint3<float>& eye )
{
    if ( frustum.classify( cluster.box ) == Zq::GeFrustum<double>::FRUSTUM_OUTSIDE )
    {
        return Verdict::OUTSIDE;
    }
    if ( cluster.isConeUsable && cluster.cones.isBehind( eye ) )
    {
        return Verdict::BEHIND;
    }
    return Verdict::VISIBLE;
}

/// The verdicts on all clusters, in their order, replace what is in `verdicts`.
inline void judgeAll( const std::vector<Cluster>& clusters, const Zq::GeFrustum<double>& frustum,
    const Zq::GePoint3<float>& eye, std::vector<Verdict>& verdicts )
{
    verdicts.clear();
    for ( const Cluster& cluster : clusters )
    {
        verdicts.push_back( judge( cluster, frustum, eye ) );
    }
}

} // namespace CullMesh

#endif
