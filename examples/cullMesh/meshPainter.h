#ifndef ZQ_EXAMPLES_CULLMESH_MESHPAINTER_H
#define ZQ_EXAMPLES_CULLMESH_MESHPAINTER_H

#include "clusters.h"
#include "light.h"
#include "raster.h"
#include "viewpoints.h"

namespace CullMesh
{

Zq::GeHomogeneousCoord3<double> transform(
    const Zq::GeProjectiveMatrix3<double>& clipMatrix, const Zq::GePoint3<double>& point );

/// Draws clusters of a mesh as a camera sees them, with normals that are smooth across the triangles.
class MeshPainter
{
public:
    MeshPainter( const Mesh& mesh, const Camera& camera );

    /// Both sides, or the front faces only.
    void paint( Examples::Raster& raster, const Cluster& cluster, const Examples::Color& color, float gloss,
        bool hasBackFaces ) const;

private:
    const Mesh& _mesh;
    Zq::GePoint3<double> _eye;
    Examples::Studio _studio;
    std::vector<Examples::RasterVertex> _vertices; // one for each point of the mesh
};

} // namespace CullMesh

#endif
