#include "support/prelude.h"

#include <zq/primitives/geIcosahedron.h>

#include <map>
#include <random>

namespace
{

using Vector = GeVector3<float>;
using Triangle = std::array<Vector, 3>;

static_assert( !std::is_default_constructible_v<GeIcosahedron> );

Vector vertexOf( int i )
{
    Vector v;
    GeIcosahedron::getVertex( i, v );
    return v;
}

Triangle faceOf( int i )
{
    Triangle face;
    GeIcosahedron::getFace( i, face[0], face[1], face[2] );
    return face;
}

TEST( Icosahedron, VerticesAreTheNearestFloatsOfTheGoldenRectangles )
{
    const long double phi = ( 1 + std::sqrt( 5.0L ) ) / 2, size = std::sqrt( 1 + phi * phi );
    const auto a = static_cast<float>( 1 / size ), b = static_cast<float>( phi / size );
    EXPECT_EQ( GeIcosahedron::getNbVertices(), 12 );
    for ( int i = 0; i < 12; ++i )
    {
        const float odd = i % 2 ? -1.0F : 1.0F, high = i % 4 >= 2 ? -1.0F : 1.0F;
        const Vector expected[] = { { -odd * a, 0, high * b }, { 0, high * b, odd * a }, { odd * b, high * a, 0 } };
        EXPECT_EQ( vertexOf( i ), expected[i / 4] ) << i;
    }
}

TEST( Icosahedron, EdgesAreAllPairsOfNeighboursInTextOrder )
{
    std::map<std::string, std::pair<int, int>> neighbours;
    for ( int i = 0; i < 12; ++i )
        for ( int j = i + 1; j < 12; ++j )
            if ( vertexOf( i ).dot( vertexOf( j ) ) > 0 )
                neighbours[std::to_string( i ) + ' ' + std::to_string( j )] = { i, j };
    ASSERT_EQ( neighbours.size(), std::size_t( GeIcosahedron::getNbEdges() ) );
    int edge = 0;
    for ( const auto& [text, pair] : neighbours )
    {
        Vector first, second;
        GeIcosahedron::getEdge( edge++, first, second );
        EXPECT_TRUE( first == vertexOf( pair.first ) && second == vertexOf( pair.second ) ) << text;
    }
}

TEST( Icosahedron, FacesCloseTheSurfaceAndFaceInwards )
{
    std::string order;
    std::set<std::string> directed;
    for ( int i = 0; i < GeIcosahedron::getNbFaces(); ++i )
    {
        const Triangle face = faceOf( i );
        std::string text;
        for ( const Vector& corner : face )
            for ( int k = 0; k < 12; ++k )
                if ( vertexOf( k ) == corner )
                    text += "0123456789AB"[k];
        order += text;
        directed.insert( { text.substr( 0, 2 ), text.substr( 1, 2 ), { text[2], text[0] } } );
        EXPECT_LT( ( face[1] - face[0] ).cross( face[2] - face[0] ).dot( face[0] ), -0.5F ) << i;
    }
    EXPECT_EQ( order, "0410949544584818A183A5385232737A376A7B6B0601661A90B9B292572B" );
    EXPECT_EQ( directed.size(), 60U ); // every edge once in each direction
    for ( const std::string& edge : directed )
        EXPECT_TRUE( directed.count( { edge[1], edge[0] } ) ) << edge;
}

/// Eighths from 0 to 1, written down.
struct Dice final : RnRng<float>
{
    float operator()() override { return numbers.emplace_back( static_cast<float>( engine() % 9 ) / 8 ); }
    std::mt19937 engine;
    std::vector<float> numbers;
};

struct Collector final : UnaryFunctor<Vector, void>
{
    void operator()( const Vector& v ) override { samples.push_back( v ); }
    std::vector<Vector> samples;
};

/// One of the four triangles of a flat triangle.
Triangle getQuarter( const Triangle& t, unsigned int which )
{
    const auto& [p, q, r] = t;
    const Vector pq = ( p + q ) * 0.5F, qr = ( q + r ) * 0.5F, rp = ( r + p ) * 0.5F;
    const Triangle quarters[4] = { { p, pq, rp }, { pq, q, qr }, { rp, qr, r }, { qr, rp, pq } };
    return quarters[which];
}

TEST( SphereSampling, EveryRequestIsSharedEquallyTriangleByTriangle )
{
    for ( unsigned int request = 0; request <= 2000; ++request )
    {
        // of m = request / 20 written to the base 4, the leading digit is kept: so many samples for each triangle
        unsigned int nbTriangles = 1;
        while ( nbTriangles * 4 <= request / 20 )
            nbTriangles *= 4;
        const unsigned int digit = request / 20 / nbTriangles;
        Dice dice;
        Collector collector;
        const std::size_t count = GeIcosahedron::getStratifiedSamples( request, collector, dice );
        ASSERT_EQ( count, 20 * digit * nbTriangles ) << request;
        ASSERT_TRUE( collector.samples.size() == count && dice.numbers.size() == 2 * count ) << request;
        for ( std::size_t i = 0; i < count; ++i )
        {
            const auto index = static_cast<unsigned int>( i ) / digit;
            Triangle t = faceOf( static_cast<int>( index / nbTriangles ) );
            for ( unsigned int size = nbTriangles / 4; size > 0; size /= 4 )
                t = getQuarter( t, index / size % 4 );
            float u = dice.numbers[2 * i], v = dice.numbers[2 * i + 1];
            if ( u + v > 1 ) // a sum of 1 is not folded back
            {
                u = 1 - u;
                v = 1 - v;
            }
            Vector expected = t[0] * u + t[1] * v + t[2] * ( 1 - u - v );
            expected.normalize();
            ASSERT_TRUE( collector.samples[i].isEqual( expected, 1e-6F ) ) << request << ' ' << i;
        }
    }
}

} // namespace
