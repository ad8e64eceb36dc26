#include "meshPainter.h"

namespace CullMesh
{

using namespace Zq;

MeshPainter::MeshPainter( const Mesh& mesh ) : _mesh( mesh )
{
    // The normal at a point is the sum of the area vectors around it: large triangles count for more.
    std::vector<GeVector3<double>> normals( mesh.points.size() );
    for ( const Triangle& triangle : mesh.triangles )
    {
        const GeVector3<double> areaVector = computeAreaVector( mesh, triangle );
        for ( const std::uint32_t corner : triangle )
        {
            normals[corner] += areaVector;
        }
    }
    _corners.reserve( mesh.points.size() );
    for ( std::size_t i = 0; i < mesh.points.size(); ++i )
    {
        normals[i].normalize();
        _corners.push_back( { mesh.points[i], GeVector3<float>( normals[i] ) } );
    }
}

void MeshPainter::paint(
    Figures::Scene& scene, const Cluster& cluster, const Figures::Color& color, float gloss, bool hasBackFaces ) const
{
    const GePoint3<double> eye( scene.getEye() );
    const TriangleRange& range = cluster.triangles;
    for ( std::size_t i = range.first; i < range.first + range.count; ++i )
    {
        const Triangle& triangle = _mesh.triangles[i];
        const GeVector3<double> toEye = eye - GePoint3<double>( _mesh.points[triangle[0]] );
        if ( hasBackFaces || toEye.dot( computeAreaVector( _mesh, triangle ) ) > 0 )
        {
            scene.drawTriangle( { _corners[triangle[0]], _corners[triangle[1]], _corners[triangle[2]] }, color, gloss );
        }
    }
}

} // namespace CullMesh
