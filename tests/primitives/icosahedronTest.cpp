#include "support/prelude.h"

#include <zq/primitives/geIcosahedron.h>

namespace
{

using Vector = GeVector3<float>;
using Triangle = std::array<Vector, 3>;

Triangle faceOf( int i )
{
    Triangle face;
    GeIcosahedron::getFace( i, face[0], face[1], face[2] );
    return face;
}

int indexOf( const Vector& corner )
{
    Vector v;
    for ( int i = 0; i < 12; ++i )
    {
        GeIcosahedron::getVertex( i, v );
        if ( v == corner )
            return i;
    }
    return -1;
}

TEST( Icosahedron, VerticesAreTheNearestFloatsOfTheGoldenRectangles )
{
    const long double phi = ( 1 + std::sqrt( 5.0L ) ) / 2, size = std::sqrt( 1 + phi * phi );
    const auto a = static_cast<float>( 1 / size ), b = static_cast<float>( phi / size );
    for ( int i = 0; i < GeIcosahedron::getNbVertices(); ++i )
    {
        const float odd = i % 2 ? -1.0F : 1.0F, high = i % 4 >= 2 ? -1.0F : 1.0F;
        const Vector expected[] = { { -odd * a, 0, high * b }, { 0, high * b, odd * a }, { odd * b, high * a, 0 } };
        EXPECT_EQ( indexOf( expected[i / 4] ), i );
    }
}

// Edges come in the order of their text, "0 1", "0 10", "0 3"; faces are seen clockwise from outside.
TEST( Icosahedron, EdgesAndFacesAreInOrder )
{
    std::string edges, faces;
    const auto letterOf = []( const Vector& corner ) { return static_cast<char>( 'a' + indexOf( corner ) ); };
    for ( int i = 0; i < GeIcosahedron::getNbEdges(); ++i )
    {
        Vector first, second;
        GeIcosahedron::getEdge( i, first, second );
        edges += { letterOf( first ), letterOf( second ) };
    }
    for ( int i = 0; i < GeIcosahedron::getNbFaces(); ++i )
        for ( const Vector& corner : faceOf( i ) )
            faces += letterOf( corner );
    EXPECT_EQ( edges, "abalaeagajbkbebgbiclcdcfchcjdkdfdhdiefeiejfifjgkglghhkhlikjl" );
    EXPECT_EQ( faces, "aebajejfeefieibikbidkfdifcdchdhkdhgkhlglagabggbkjaljlcjcfhcl" );
}

/// Rolls the quarters from 0 to 1, over and over, and collects the samples that are made of them.
struct Recorder final : RnRng<float>, UnaryFunctor<Vector, void>
{
    float operator()() override { return static_cast<float>( nbRolls++ % 5 ) / 4; }
    void operator()( const Vector& v ) override { samples.push_back( v ); }
    std::size_t nbRolls = 0;
    std::vector<Vector> samples;
};

/// For each sample the triangle that it is placed in.
void addTriangles( std::vector<Triangle>& triangles, const Triangle& t, std::size_t nbSamples )
{
    const auto& [p, q, r] = t;
    const Vector pq = ( p + q ) * 0.5F, qr = ( q + r ) * 0.5F, rp = ( r + p ) * 0.5F;
    if ( nbSamples < 4 )
        triangles.insert( triangles.end(), nbSamples, t );
    else
        for ( const Triangle& quarter : { Triangle{ p, pq, rp }, { pq, q, qr }, { rp, qr, r }, { qr, rp, pq } } )
            addTriangles( triangles, quarter, nbSamples / 4 );
}

TEST( SphereSampling, EveryRequestIsSharedEquallyTriangleByTriangle )
{
    for ( unsigned int request = 0; request <= 2000; ++request )
    {
        std::vector<Triangle> triangles;
        for ( int i = 0; i < 20; ++i )
            addTriangles( triangles, faceOf( i ), request / 20 );
        Recorder recorder;
        const std::size_t count = GeIcosahedron::getStratifiedSamples( request, recorder, recorder );
        ASSERT_EQ( count, triangles.size() ) << request;
        ASSERT_EQ( count, recorder.samples.size() ) << request;
        for ( std::size_t i = 0; i < count; ++i )
        {
            float u = static_cast<float>( 2 * i % 5 ) / 4, v = static_cast<float>( ( 2 * i + 1 ) % 5 ) / 4;
            if ( u + v > 1 ) // a sum of 1 is not folded back
                std::tie( u, v ) = std::pair( 1 - u, 1 - v );
            const auto& [p, q, r] = triangles[i];
            const Vector expected = p * u + q * v + r * ( 1 - u - v );
            ASSERT_CLOSE( recorder.samples[i], expected.computeUnit(), 1e-6F ) << request << ' ' << i;
        }
    }
}

} // namespace
