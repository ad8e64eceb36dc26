#include "clusters.h"

#include <zq/primitives/geAlignedBoxBuilder.h>
#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geFloatingConeBuilder.h>

namespace CullMesh
{

namespace
{

using namespace Zq;

// Culling cones are made for normals within 45 degrees of their axis; beyond, they answer wrongly.
constexpr float MAX_SEMI_ANGLE = 0.78539816F;

// Widens the cone of the normals. In single precision an arc cosine near 0 is good to 0.00035 only; the margin covers
// that and the rounding of the cone test, for flat clusters too.
constexpr float SEMI_ANGLE_MARGIN = 0.001F;

// Whether a viewpoint at the apex sees no face from the front. Then no viewpoint in the cone behind the apex does. It
// holds for the patches of any ordinary surface; faces that hover above their neighbours can break it.
bool isBehindAllFaces( const GePoint3<float>& apex, const Mesh& mesh, const TriangleRange& range )
{
    for ( std::size_t i = range.first; i < range.first + range.count; ++i )
    {
        const Triangle& triangle = mesh.triangles[i];
        const GeVector3<double> toApex = GePoint3<double>( apex ) - GePoint3<double>( mesh.points[triangle[0]] );
        if ( toApex.dot( computeAreaVector( mesh, triangle ) ) > 0 )
        {
            return false;
        }
    }
    return true;
}

// The library's builders, kept from cluster to cluster for the room that they have reserved.
class ClusterBuilder
{
public:
    explicit ClusterBuilder( const Mesh& mesh ) : _mesh( mesh ) {}

    Cluster operator()( const TriangleRange& range )
    {
        collect( range );

        // The normals point outwards: "behind" is where all faces are seen from the back.
        const GeFloatingCone tight = _normals.createCone();
        const GeFloatingCone normals( tight.getAxis(), tight.getSemiAngle() + SEMI_ANGLE_MARGIN );

        Cluster cluster = { range, _box.getBox(), GeCullingCones(), false };
        if ( normals.getSemiAngle() <= MAX_SEMI_ANGLE )
        {
            cluster.cones = GeCullingCones( _points.createCone( normals ) );
            cluster.isConeUsable = isBehindAllFaces( cluster.cones.getBackfacingApex(), _mesh, range );
        }
        return cluster;
    }

private:
    void collect( const TriangleRange& range )
    {
        _box.reset();
        _normals.reset();
        _points.reset();
        for ( std::size_t i = range.first; i < range.first + range.count; ++i )
        {
            const Triangle& triangle = _mesh.triangles[i];
            for ( const std::uint32_t corner : triangle )
            {
                _box( _mesh.points[corner] );
                _points( _mesh.points[corner] );
            }
            const GeVector3<double> normal = computeAreaVector( _mesh, triangle ).computeUnit();
            _normals( GeUnitVector3<float>( GeVector3<float>( normal ) ) );
        }
    }

    const Mesh& _mesh;
    GeAlignedBoxBuilder _box;
    GeFloatingConeBuilder _normals;
    GeAnchoredConeBuilder _points;
};

} // namespace

std::vector<Cluster> makeClusters( const Mesh& mesh, const std::vector<TriangleRange>& ranges )
{
    ClusterBuilder build( mesh );
    std::vector<Cluster> clusters;
    clusters.reserve( ranges.size() );
    for ( const TriangleRange& range : ranges )
    {
        clusters.push_back( build( range ) );
    }
    return clusters;
}

} // namespace CullMesh
