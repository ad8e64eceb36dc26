#include "clusters.h"

#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geUnitVector3.h>

#include <algorithm>

namespace CullMesh
{

namespace
{

using Zq::GePoint3;
using Zq::GeVector3;

constexpr std::size_t NB_COORDINATES = 6;

// How much the direction of a triangle counts against its place.
constexpr double NORMAL_WEIGHT = 0.25;

/// A triangle as a point in six dimensions: its centre, in units of the longest side of the mesh, and its normal.
struct Item
{
    std::array<float, NB_COORDINATES> coordinates;
    std::uint32_t triangle;
};

using Items = std::vector<Item>;

double computeLongestSide( const Mesh& mesh )
{
    Zq::GeAlignedBox3<float> box( mesh.points.front() );
    for ( const GePoint3<float>& point : mesh.points )
    {
        box.extend( point );
    }
    return static_cast<double>( box.getSize().computeMaxAbs() );
}

Items makeItems( const Mesh& mesh )
{
    const double unit = 1 / computeLongestSide( mesh );
    Items items;
    items.reserve( mesh.triangles.size() );
    for ( std::uint32_t i = 0; i < mesh.triangles.size(); ++i )
    {
        const Triangle& triangle = mesh.triangles[i];
        GeVector3<double> center;
        for ( const std::uint32_t corner : triangle )
        {
            center += GeVector3<double>( GePoint3<double>( mesh.points[corner] ) ) * ( unit / 3 );
        }
        const GeVector3<double> direction = computeAreaVector( mesh, triangle ).computeUnit() * NORMAL_WEIGHT;
        const GeVector3<float> place( center );
        const GeVector3<float> facing( direction );
        items.push_back(
            { { place.getX(), place.getY(), place.getZ(), facing.getX(), facing.getY(), facing.getZ() }, i } );
    }
    return items;
}

std::size_t findWidestCoordinate( Items::const_iterator begin, Items::const_iterator end )
{
    std::array<float, NB_COORDINATES> low = begin->coordinates;
    std::array<float, NB_COORDINATES> high = begin->coordinates;
    for ( auto item = begin; item != end; ++item )
    {
        for ( std::size_t i = 0; i < NB_COORDINATES; ++i )
        {
            low[i] = std::min( low[i], item->coordinates[i] );
            high[i] = std::max( high[i], item->coordinates[i] );
        }
    }
    std::size_t widest = 0;
    for ( std::size_t i = 1; i < NB_COORDINATES; ++i )
    {
        widest = high[i] - low[i] > high[widest] - low[widest] ? i : widest;
    }
    return widest;
}

} // namespace

std::vector<TriangleRange> splitIntoRanges( Mesh& mesh, std::size_t maxTriangles )
{
    Items items = makeItems( mesh );
    std::vector<TriangleRange> ranges;
    std::vector<TriangleRange> open = { { 0, items.size() } };
    while ( !open.empty() )
    {
        const TriangleRange range = open.back();
        open.pop_back();
        const auto begin = items.begin() + static_cast<std::ptrdiff_t>( range.first );
        const auto end = begin + static_cast<std::ptrdiff_t>( range.count );
        if ( range.count <= maxTriangles )
        {
            ranges.push_back( range );
            continue;
        }
        const std::size_t widest = findWidestCoordinate( begin, end );
        const std::size_t half = range.count / 2;
        // equal coordinates are told apart by the triangle's number: the halves are the same with every library
        std::nth_element( begin, begin + static_cast<std::ptrdiff_t>( half ), end,
            [widest]( const Item& a, const Item& b )
            {
                return a.coordinates[widest] != b.coordinates[widest] ? a.coordinates[widest] < b.coordinates[widest]
                                                                      : a.triangle < b.triangle;
            } );
        open.push_back( { range.first + half, range.count - half } );
        open.push_back( { range.first, half } );
    }

    std::vector<Triangle> sorted;
    sorted.reserve( items.size() );
    for ( const TriangleRange& range : ranges )
    {
        const auto begin = items.begin() + static_cast<std::ptrdiff_t>( range.first );
        std::sort( begin, begin + static_cast<std::ptrdiff_t>( range.count ),
            []( const Item& a, const Item& b ) { return a.triangle < b.triangle; } );
        for ( auto item = begin; item != begin + static_cast<std::ptrdiff_t>( range.count ); ++item )
        {
            sorted.push_back( mesh.triangles[item->triangle] );
        }
    }
    mesh.triangles = std::move( sorted );
    return ranges;
}

} // namespace CullMesh
