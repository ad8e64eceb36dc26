#ifndef ZQ_FIGURES_CULLMESH_MESHPAINTER_H
#define ZQ_FIGURES_CULLMESH_MESHPAINTER_H

#include "clusters.h"
#include "scene.h"

namespace CullMesh
{

/// Draws clusters of a mesh with normals that are smooth across the triangles.
class MeshPainter
{
public:
    explicit MeshPainter( const Mesh& mesh );

    /// Both sides, or the front faces only.
    void paint( Figures::Scene& scene, const Cluster& cluster, const Figures::Color& color, float gloss,
        bool hasBackFaces ) const;

private:
    const Mesh& _mesh;
    std::vector<Figures::Scene::Corner> _corners; // one for each point of the mesh
};

} // namespace CullMesh

#endif
