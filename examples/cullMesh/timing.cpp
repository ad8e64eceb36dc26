#include "timing.h"

#include <zq/primitives/geFrustum.h>

#include <algorithm>

namespace CullMesh
{

namespace
{

using Zq::GeCullingCones;

// The quickest of the runs that fit into a twentieth of a second: the one that other work disturbed least. The action
// returns a count, which is kept so that the compiler cannot do without the action.
template <class Action>
double measureSeconds( Action action )
{
    const Stopwatch total;
    [[maybe_unused]] volatile std::ptrdiff_t sink = 0;
    double quickest = 1;
    do
    {
        const Stopwatch run;
        sink = action();
        quickest = std::min( quickest, run.getSeconds() );
    } while ( total.getSeconds() < 0.05 );
    return quickest;
}

} // namespace

void measureTests( const std::vector<Cluster>& clusters, const Camera& camera, Timing& timing )
{
    const Zq::GeFrustum<double> frustum( makeClipMatrix<double>( camera ) );
    const auto isOutside = [&frustum]( const Cluster& cluster )
    { return frustum.classify( cluster.box ) == Zq::GeFrustum<double>::FRUSTUM_OUTSIDE; };
    timing.boxTests = measureSeconds( [&] { return std::count_if( clusters.begin(), clusters.end(), isOutside ); } );

    std::vector<GeCullingCones> cones;
    for ( const Cluster& cluster : clusters )
    {
        if ( cluster.isConeUsable )
        {
            cones.push_back( cluster.cones );
        }
    }
    const auto isBehind = [&camera]( const GeCullingCones& tested ) { return tested.isBehind( camera.eye ); };
    timing.nbConeTests = cones.size();
    timing.coneTests = measureSeconds( [&] { return std::count_if( cones.begin(), cones.end(), isBehind ); } );
}

} // namespace CullMesh
