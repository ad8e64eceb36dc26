#include "selfCheck.h"

#include <zq/primitives/geHomogeneousCoord3.h>

namespace CullMesh
{

namespace
{

using namespace Zq;

using Clip = GeHomogeneousCoord3<double>;

// A triangle gains at most one corner at each plane.
struct Polygon
{
    std::array<Clip, 9> corners;
    std::size_t size = 0;

    void add( const Clip& corner ) { corners[size++] = corner; }
};

bool isTurnedTo( const Mesh& mesh, const Triangle& triangle, const GePoint3<double>& eye )
{
    const GeVector3<double> toEye = eye - GePoint3<double>( mesh.points[triangle[0]] );
    return toEye.dot( computeAreaVector( mesh, triangle ) ) > 0;
}

// The same elements.
GeProjectiveMatrix3<double> widen( const GeProjectiveMatrix3<float>& matrix )
{
    GeProjectiveMatrix3<double> wide;
    for ( int row = 0; row < 4; ++row )
    {
        for ( int column = 0; column < 4; ++column )
        {
            wide( row, column ) = static_cast<double>( matrix( row, column ) );
        }
    }
    return wide;
}

// Positive inside the clip plane: 0, 1 left and right, 2, 3 bottom and top, 4, 5 smallest and largest depth, whichever of
// the two is near.
double computeClipValue( const Clip& clip, int plane, GeDepthRange range )
{
    if ( plane == 4 && range != GeDepthRange::MINUS_ONE_TO_ONE )
    {
        return clip.getZ();
    }
    const double coordinate = plane < 2 ? clip.getX() : plane < 4 ? clip.getY() : clip.getZ();
    return plane % 2 == 0 ? clip.getW() + coordinate : clip.getW() - coordinate;
}

// What a clip plane leaves of a convex polygon (I. Sutherland and G. Hodgman, Reentrant polygon clipping, 1974).
Polygon cut( const Polygon& polygon, int plane, GeDepthRange range )
{
    Polygon rest;
    for ( std::size_t i = 0; i < polygon.size; ++i )
    {
        const Clip& a = polygon.corners[i];
        const Clip& b = polygon.corners[( i + 1 ) % polygon.size];
        const double valueA = computeClipValue( a, plane, range );
        const double valueB = computeClipValue( b, plane, range );
        if ( valueA > 0 )
        {
            rest.add( a );
        }
        if ( ( valueA > 0 ) != ( valueB > 0 ) )
        {
            rest.add( a + ( b - a ) * ( valueA / ( valueA - valueB ) ) );
        }
    }
    return rest;
}

// Whether any part of the triangle is inside all planes.
bool isInView(
    const Mesh& mesh, const Triangle& triangle, const GeProjectiveMatrix3<double>& clipMatrix, GeDepthRange range )
{
    Polygon polygon;
    for ( const std::uint32_t corner : triangle )
    {
        const GePoint3<float>& point = mesh.points[corner];
        polygon.add( clipMatrix *
            Clip( static_cast<double>( point.getX() ), static_cast<double>( point.getY() ),
                static_cast<double>( point.getZ() ), 1 ) );
    }
    for ( int plane = 0; plane < 6 && polygon.size > 0; ++plane )
    {
        polygon = cut( polygon, plane, range );
    }
    return polygon.size > 0;
}

} // namespace

void SelfCheck::add(
    const Mesh& mesh, const std::vector<Cluster>& clusters, const Camera& camera, const std::vector<Verdict>& verdicts )
{
    const GePoint3<double> eye( camera.eye );
    const GeProjectiveMatrix3<double> clipMatrix = widen( makeClipMatrix<float>( camera ) );
    for ( std::size_t i = 0; i < clusters.size(); ++i )
    {
        const TriangleRange& range = clusters[i].triangles;
        for ( std::size_t j = range.first; j < range.first + range.count; ++j )
        {
            const Triangle& triangle = mesh.triangles[j];
            const bool isTurned = isTurnedTo( mesh, triangle, eye );
            const bool isIn =
                ( isTurned || verdicts[i] == Verdict::OUTSIDE ) && isInView( mesh, triangle, clipMatrix, camera.range );
            behindButTurned += static_cast<std::size_t>( verdicts[i] == Verdict::BEHIND && isTurned );
            outsideButIn += static_cast<std::size_t>( verdicts[i] == Verdict::OUTSIDE && isIn );
            needed += static_cast<std::size_t>( isTurned && isIn );
        }
    }
}

} // namespace CullMesh
