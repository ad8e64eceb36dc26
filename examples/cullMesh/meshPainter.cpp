#include "meshPainter.h"

namespace CullMesh
{

namespace
{

using namespace Zq;

Examples::Studio makeStudio( const Camera& camera )
{
    const GeLinearMatrix3<float> axes = makeView<float>( camera ).getLinear();
    const auto row = [&axes]( int i ) { return GeVector3<float>( axes( i, 0 ), axes( i, 1 ), axes( i, 2 ) ); };
    return { camera.eye, row( 0 ), row( 1 ), row( 2 ) };
}

} // namespace

GeHomogeneousCoord3<double> transform( const GeProjectiveMatrix3<double>& clipMatrix, const GePoint3<double>& point )
{
    return clipMatrix * GeHomogeneousCoord3<double>( point.getX(), point.getY(), point.getZ(), 1 );
}

MeshPainter::MeshPainter( const Mesh& mesh, const Camera& camera )
    : _mesh( mesh ), _eye( camera.eye ), _studio( makeStudio( camera ) )
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
    const GeProjectiveMatrix3<double> clipMatrix = makeClipMatrix<double>( camera );
    _vertices.reserve( mesh.points.size() );
    for ( std::size_t i = 0; i < mesh.points.size(); ++i )
    {
        normals[i].normalize();
        _vertices.push_back( { transform( clipMatrix, GePoint3<double>( mesh.points[i] ) ), mesh.points[i],
            GeVector3<float>( normals[i] ) } );
    }
}

void MeshPainter::paint( Examples::Raster& raster, const Cluster& cluster, const Examples::Color& color, float gloss,
    bool hasBackFaces ) const
{
    const Examples::Raster::Shader shader = [&]( const GePoint3<float>& position, const GeVector3<float>& normal )
    { return _studio.shade( position, normal, color, gloss ); };
    const TriangleRange& range = cluster.triangles;
    for ( std::size_t i = range.first; i < range.first + range.count; ++i )
    {
        const Triangle& triangle = _mesh.triangles[i];
        const GeVector3<double> toEye = _eye - GePoint3<double>( _mesh.points[triangle[0]] );
        if ( hasBackFaces || toEye.dot( computeAreaVector( _mesh, triangle ) ) > 0 )
        {
            raster.drawTriangle( { _vertices[triangle[0]], _vertices[triangle[1]], _vertices[triangle[2]] }, shader );
        }
    }
}

} // namespace CullMesh
