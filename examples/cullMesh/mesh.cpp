#include "mesh.h"

#include "badInput.h"

#include <zq/primitives/geAlignedBox.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <tuple>

namespace CullMesh
{

namespace
{

using Zq::GePoint3;
using Zq::GeVector3;

// Single precision is what the library's bounds are made of.
constexpr auto MAX_COORDINATE = static_cast<double>( std::numeric_limits<float>::max() );

constexpr std::uint32_t UNUSED = UINT32_MAX;

Zq::GeAlignedBox3<double> computeBox( const RawMesh& raw )
{
    Zq::GeAlignedBox3<double> box( raw.points.front() );
    for ( std::size_t i = 0; i < raw.points.size(); ++i )
    {
        const GePoint3<double>& point = raw.points[i];
        for ( int axis = 0; axis < 3; ++axis )
        {
            // written so that NaN is refused
            if ( !( std::abs( point[axis] ) <= MAX_COORDINATE ) )
            {
                throw Examples::BadInput(
                    raw.name + ": vertex " + std::to_string( i + 1 ) + " is not finite in single precision" );
            }
        }
        box.extend( point );
    }
    return box;
}

// For each point the number it gets when equal positions become one, counted in the order of first use; -0 equals 0.
std::vector<std::uint32_t> weld( std::vector<GePoint3<float>>& points )
{
    const auto key = [&points]( std::uint32_t i )
    { return std::make_tuple( points[i].getX(), points[i].getY(), points[i].getZ(), i ); };
    std::vector<std::uint32_t> order( points.size() );
    std::iota( order.begin(), order.end(), 0U );
    std::sort( order.begin(), order.end(), [&key]( std::uint32_t a, std::uint32_t b ) { return key( a ) < key( b ); } );

    std::vector<std::uint32_t> first( points.size() );
    for ( std::size_t i = 0; i < order.size(); ++i )
    {
        const bool isRepeated = i > 0 && points[order[i]] == points[order[i - 1]];
        first[order[i]] = isRepeated ? first[order[i - 1]] : order[i];
    }
    return first;
}

// Removes the points that no triangle uses.
void compact( Mesh& mesh )
{
    std::vector<std::uint32_t> numbers( mesh.points.size(), UNUSED );
    std::vector<GePoint3<float>> points;
    for ( Triangle& triangle : mesh.triangles )
    {
        for ( std::uint32_t& corner : triangle )
        {
            if ( numbers[corner] == UNUSED )
            {
                numbers[corner] = static_cast<std::uint32_t>( points.size() );
                points.push_back( mesh.points[corner] );
            }
            corner = numbers[corner];
        }
    }
    mesh.points = std::move( points );
}

} // namespace

void turnUp( RawMesh& mesh )
{
    for ( GePoint3<double>& point : mesh.points )
    {
        point = { point.getX(), -point.getZ(), point.getY() };
    }
}

Mesh prepareMesh( const RawMesh& raw, Preparation& report )
{
    if ( raw.triangles.empty() )
    {
        throw Examples::BadInput( raw.name + ": no triangles" );
    }
    report.nbTrianglesRead = raw.triangles.size();
    report.center = computeBox( raw ).getCenter();
    double radius = 0;
    for ( const GePoint3<double>& point : raw.points )
    {
        radius = std::max( radius, ( point - report.center ).length() );
    }
    report.scale = radius > 0 ? 1 / radius : 1;

    Mesh mesh;
    mesh.points.reserve( raw.points.size() );
    for ( const GePoint3<double>& point : raw.points )
    {
        mesh.points.emplace_back( GePoint3<double>( ( point - report.center ) * report.scale ) );
    }
    const std::vector<std::uint32_t> first = weld( mesh.points );
    for ( std::uint32_t i = 0; i < first.size(); ++i )
    {
        report.nbPointsWelded += static_cast<std::size_t>( first[i] != i );
    }
    for ( const Triangle& triangle : raw.triangles )
    {
        const Triangle welded = { first[triangle[0]], first[triangle[1]], first[triangle[2]] };
        if ( computeAreaVector( mesh, welded ) != GeVector3<double>() )
        {
            mesh.triangles.push_back( welded );
        }
    }
    report.nbTrianglesDropped = report.nbTrianglesRead - mesh.triangles.size();
    if ( mesh.triangles.empty() )
    {
        throw Examples::BadInput( raw.name + ": no triangle has an area" );
    }
    compact( mesh );
    return mesh;
}

GeVector3<double> computeAreaVector( const Mesh& mesh, const Triangle& triangle )
{
    const GePoint3<double> a( mesh.points[triangle[0]] );
    const GePoint3<double> b( mesh.points[triangle[1]] );
    const GePoint3<double> c( mesh.points[triangle[2]] );
    return ( b - a ).cross( c - a );
}

} // namespace CullMesh
