#include "tally.h"

namespace CullMesh
{

void Count::add( const Cluster& cluster )
{
    ++clusters;
    triangles += cluster.triangles.count;
}

void Tally::add( const std::vector<Cluster>& clusters, const std::vector<Verdict>& verdicts )
{
    for ( std::size_t i = 0; i < clusters.size(); ++i )
    {
        switch ( verdicts[i] )
        {
        case Verdict::OUTSIDE:
            outside.add( clusters[i] );
            break;
        case Verdict::BEHIND:
            behind.add( clusters[i] );
            break;
        case Verdict::VISIBLE:
            visible.add( clusters[i] );
            if ( !clusters[i].isConeUsable )
            {
                visibleWithoutCone.add( clusters[i] );
            }
            break;
        }
    }
}

Count Tally::computeTotal() const
{
    return { outside.clusters + behind.clusters + visible.clusters,
        outside.triangles + behind.triangles + visible.triangles };
}

double Tally::computeShareCulled() const
{
    return static_cast<double>( outside.triangles + behind.triangles ) /
        static_cast<double>( computeTotal().triangles );
}

} // namespace CullMesh
