#ifndef ZQ_EXAMPLES_CULLMESH_MESH_H
#define ZQ_EXAMPLES_CULLMESH_MESH_H

#include <zq/primitives/gePoint3.h>
#include <zq/primitives/geVector3.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace CullMesh
{

/// Indices of three points, counterclockwise seen from the front.
using Triangle = std::array<std::uint32_t, 3>;

/// Triangles as they come from a file or a formula.
struct RawMesh
{
    std::string name;
    std::vector<Zq::GePoint3<double>> points;
    std::vector<Triangle> triangles;
};

/// Turns a mesh whose y axis points up so that its z axis does.
void turnUp( RawMesh& mesh );

/// Triangles that share their points and have an area.
struct Mesh
{
    std::vector<Zq::GePoint3<float>> points;
    std::vector<Triangle> triangles;
};

/// What prepareMesh() did.
struct Preparation
{
    std::size_t nbTrianglesRead = 0;
    std::size_t nbTrianglesDropped = 0; // a point used twice, or no area
    std::size_t nbPointsWelded = 0;     // points of the raw mesh that had the position of another
    Zq::GePoint3<double> center;        // of the box; moved to the origin
    double scale = 1;                   // applied about the centre, so that the farthest point is at distance 1
};

/// Scales to radius 1 about the box centre, welds equal positions, drops triangles without area and points that no
/// triangle uses. Throws Examples::BadInput on a point that is not finite and when no triangle is left.
Mesh prepareMesh( const RawMesh& raw, Preparation& report );

/// Along the normal of a triangle, as long as twice its area. From float positions a double holds it with a relative
/// error of 1e-15 or so: it is zero where the area is, and its sign can be trusted.
Zq::GeVector3<double> computeAreaVector( const Mesh& mesh, const Triangle& triangle );

} // namespace CullMesh

#endif
