#include <zq/primitives/geIcosahedron.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

using namespace Zq;

namespace
{

using Vector = GeVector3<float>;

struct Triangle
{
    Vector corner[3];
};

Vector vertexOf( int i )
{
    Vector v;
    GeIcosahedron::getVertex( i, v );
    return v;
}

Triangle faceOf( int i )
{
    Triangle face;
    GeIcosahedron::getFace( i, face.corner[0], face.corner[1], face.corner[2] );
    return face;
}

int indexOf( const Vector& v )
{
    int i = 0;
    while ( vertexOf( i ) != v )
        ++i;
    return i;
}

TEST( Icosahedron, VerticesAreTheNearestFloatsOfTheGoldenRectangles )
{
    const long double phi = ( 1 + std::sqrt( 5.0L ) ) / 2, size = std::sqrt( 1 + phi * phi );
    const auto a = static_cast<float>( 1 / size ), b = static_cast<float>( phi / size );
    for ( int i = 0; i < GeIcosahedron::getNbVertices(); ++i )
    {
        const float odd = i % 2 ? -1.0F : 1.0F, high = i % 4 >= 2 ? -1.0F : 1.0F;
        const Vector expected = i < 4 ? Vector( -odd * a, 0, high * b )
            : i < 8                   ? Vector( 0, high * b, odd * a )
                                      : Vector( odd * b, high * a, 0 );
        EXPECT_EQ( vertexOf( i ), expected ) << i;
    }
    EXPECT_EQ( GeIcosahedron::getNbVertices(), 12 );
}

TEST( Icosahedron, EdgesAreAllPairsOfNeighboursInTextOrder )
{
    std::map<std::string, std::pair<int, int>> neighbours;
    for ( int i = 0; i < 12; ++i )
        for ( int j = i + 1; j < 12; ++j )
            if ( std::fabs( vertexOf( i ).dot( vertexOf( j ) ) - 1 / std::sqrt( 5.0F ) ) < 1e-5F )
                neighbours[std::to_string( i ) + ' ' + std::to_string( j )] = { i, j };
    ASSERT_EQ( neighbours.size(), std::size_t( GeIcosahedron::getNbEdges() ) );
    int edge = 0;
    for ( const auto& [text, pair] : neighbours )
    {
        Vector first, second;
        GeIcosahedron::getEdge( edge++, first, second );
        EXPECT_EQ( first, vertexOf( pair.first ) ) << text;
        EXPECT_EQ( second, vertexOf( pair.second ) ) << text;
    }
}

TEST( Icosahedron, FacesCloseTheSurfaceAndFaceInwards )
{
    std::string order;
    std::set<std::pair<int, int>> directed;
    for ( int i = 0; i < GeIcosahedron::getNbFaces(); ++i )
    {
        const Triangle face = faceOf( i );
        int index[3];
        for ( int k = 0; k < 3; ++k )
            order += "0123456789AB"[index[k] = indexOf( face.corner[k] )];
        for ( int k = 0; k < 3; ++k )
        {
            EXPECT_TRUE( directed.emplace( index[k], index[( k + 1 ) % 3] ).second ) << i;
            EXPECT_NEAR( face.corner[k].dot( face.corner[( k + 1 ) % 3] ), 1 / std::sqrt( 5.0F ), 1e-5F );
        }
        const Vector normal = ( face.corner[1] - face.corner[0] ).cross( face.corner[2] - face.corner[0] );
        EXPECT_LT( normal.dot( face.corner[0] ), -0.5F ) << i;
    }
    // every edge once in each direction
    EXPECT_EQ( directed.size(), 60U );
    for ( const auto& [from, to] : directed )
        EXPECT_TRUE( directed.count( { to, from } ) );
    EXPECT_EQ( order, "0410949544584818A183A5385232737A376A7B6B0601661A90B9B292572B" );
}

static_assert( !std::is_default_constructible_v<GeIcosahedron> );

/// Repeats a given sequence of numbers and counts.
struct Sequence final : RnRng<float>
{
    explicit Sequence( std::vector<float> v ) : values( std::move( v ) ) {}
    float operator()() override { return values[calls++ % values.size()]; }

    std::vector<float> values;
    std::size_t calls = 0;
};

struct Dice final : RnRng<float>
{
    float operator()() override { return static_cast<float>( engine() >> 8 ) / 16777216.0F; }
    std::mt19937 engine;
};

struct Collector final : UnaryFunctor<Vector, void>
{
    void operator()( const Vector& v ) override { samples.push_back( v ); }
    std::vector<Vector> samples;
};

std::vector<Vector> sample( unsigned int nbSamples, RnRng<float>& rng )
{
    Collector collector;
    const unsigned int count = GeIcosahedron::getStratifiedSamples( nbSamples, collector, rng );
    EXPECT_EQ( count, collector.samples.size() );
    return collector.samples;
}

TEST( SphereSampling, EveryRequestIsRoundedDownToEqualShares )
{
    for ( unsigned int request = 0; request <= 2000; ++request )
    {
        // of m = request / 20 written to the base 4, the leading digit is kept
        unsigned int power = 1;
        const unsigned int m = request / 20;
        while ( power * 4 <= m )
            power *= 4;
        Sequence rng( { 0.5F, 0.25F } );
        const std::vector<Vector> samples = sample( request, rng );
        ASSERT_EQ( samples.size(), 20 * ( m / power * power ) ) << request;
        ASSERT_EQ( rng.calls, 2 * samples.size() ) << request;
    }
}

/// Which of the four triangles of the subdivision holds the direction, or 4 when it is on none.
int findQuarter( const Triangle& t, const Vector& direction, Triangle& quarter )
{
    const auto &p = t.corner[0], &q = t.corner[1], &r = t.corner[2];
    const Vector pq = ( p + q ) * 0.5F, qr = ( q + r ) * 0.5F, rp = ( r + p ) * 0.5F;
    const Triangle quarters[4] = { { { p, pq, rp } }, { { pq, q, qr } }, { { rp, qr, r } }, { { qr, rp, pq } } };
    for ( int i = 0; i < 4; ++i )
    {
        quarter = quarters[i];
        float side = 0;
        for ( int k = 0; k < 3; ++k )
            side = std::max( side, quarter.corner[k].cross( quarter.corner[( k + 1 ) % 3] ).dot( direction ) );
        if ( side < 1e-6F )
            return i;
    }
    return 4;
}

TEST( SphereSampling, SamplesComeTriangleByTriangle )
{
    Dice dice;
    for ( unsigned int perTriangle = 1; perTriangle <= 3; ++perTriangle )
    {
        // 20 faces, each cut twice
        const std::vector<Vector> samples = sample( 20 * 16 * perTriangle, dice );
        ASSERT_EQ( samples.size(), 20 * 16 * perTriangle );
        for ( unsigned int i = 0; i < samples.size(); ++i )
        {
            EXPECT_NEAR( samples[i].length(), 1, 1e-6F );
            const unsigned int triangle = i / perTriangle;
            Triangle t = faceOf( static_cast<int>( triangle / 16 ) ), inner;
            EXPECT_EQ( findQuarter( t, samples[i], inner ), int( triangle / 4 % 4 ) ) << i;
            t = inner;
            EXPECT_EQ( findQuarter( t, samples[i], inner ), int( triangle % 4 ) ) << i;
        }
    }
}

TEST( SphereSampling, WeightsFollowTheGenerator )
{
    struct Case
    {
        std::vector<float> numbers;
        float p, q, r;
    };
    for ( const Case& c : std::vector<Case>{
              { { 0 }, 0, 0, 1 },
              { { 0.125F, 0.5F }, 0.125F, 0.5F, 0.375F }, // u before v
              { { 0.25F, 0.75F }, 0.25F, 0.75F, 0 },      // a sum of 1 is not folded back
              { { 0.75F }, 0.25F, 0.25F, 0.5F },
              { { 1, 0.25F }, 0, 0.75F, 0.25F },
              { { 1 }, 0, 0, 1 },
          } )
    {
        Sequence rng( c.numbers );
        const std::vector<Vector> samples = sample( 39, rng );
        ASSERT_EQ( samples.size(), 20U );
        for ( int i = 0; i < 20; ++i )
        {
            const Triangle t = faceOf( i );
            Vector expected = t.corner[0] * c.p + t.corner[1] * c.q + t.corner[2] * c.r;
            expected.normalize();
            EXPECT_EQ( samples[std::size_t( i )], expected ) << i;
        }
    }
}

TEST( SphereSampling, MidpointsStayOnTheFlatFace )
{
    // third corners of the third-level triangles, seen from outside: a projected midpoint would move them
    Sequence rng( { 0 } );
    const std::vector<Vector> samples = sample( 320, rng );
    const Triangle t = faceOf( 0 );
    const Vector rp = ( t.corner[2] + t.corner[0] ) * 0.5F;
    Vector expected = ( rp + t.corner[0] ) * 0.5F;
    expected.normalize();
    EXPECT_TRUE( samples[0].isEqual( expected, 1e-6F ) );
}

} // namespace
