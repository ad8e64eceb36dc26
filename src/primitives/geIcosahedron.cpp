#include "geIcosahedron.h"

namespace Zq
{

namespace
{

// 1 and the golden ratio phi, both divided by sqrt( 1 + phi^2 ): the nearest floats
constexpr float A = 0.525731087F;
constexpr float B = 0.850650787F;

using Vector = GeVector3<float>;
using Functor = UnaryFunctor<GeVector3<float>, void>;

/// Passes up to `nbSamples` directions through the flat triangle to the functor; returns how many.
unsigned int sampleTriangle(
    const Vector& p, const Vector& q, const Vector& r, unsigned int nbSamples, Functor& functor, RnRng<float>& rng )
{
    if ( nbSamples >= 4 )
    {
        // not projected to the sphere: all four have the same size
        const Vector pq = ( p + q ) * 0.5F;
        const Vector qr = ( q + r ) * 0.5F;
        const Vector rp = ( r + p ) * 0.5F;
        const unsigned int quarter = nbSamples / 4;
        sampleTriangle( p, pq, rp, quarter, functor, rng );
        sampleTriangle( pq, q, qr, quarter, functor, rng );
        sampleTriangle( rp, qr, r, quarter, functor, rng );
        return 4 * sampleTriangle( qr, rp, pq, quarter, functor, rng );
    }
    for ( unsigned int i = 0; i < nbSamples; ++i )
    {
        // two statements: the order of the calls is part of the result
        float u = rng();
        float v = rng();
        if ( u + v > 1 )
        {
            u = 1 - u;
            v = 1 - v;
        }
        const float w = 1 - u - v;
        Vector sample = p * u + q * v + r * w;
        sample.normalize();
        functor( sample );
    }
    return nbSamples;
}

} // namespace

// clang-format off

const float GeIcosahedron::_vertices[NB_VERTICES][3] = {
    { -A, 0, B }, { A, 0, B }, { -A, 0, -B }, { A, 0, -B },
    { 0, B, A }, { 0, B, -A }, { 0, -B, A }, { 0, -B, -A },
    { B, A, 0 }, { -B, A, 0 }, { B, -A, 0 }, { -B, -A, 0 }
};

// ordered by the decimal text of the indices: 11 comes before 4
const int GeIcosahedron::_edgeIndex[NB_EDGES][2] = {
    { 0, 1 }, { 0, 11 }, { 0, 4 }, { 0, 6 }, { 0, 9 },
    { 1, 10 }, { 1, 4 }, { 1, 6 }, { 1, 8 },
    { 2, 11 }, { 2, 3 }, { 2, 5 }, { 2, 7 }, { 2, 9 },
    { 3, 10 }, { 3, 5 }, { 3, 7 }, { 3, 8 },
    { 4, 5 }, { 4, 8 }, { 4, 9 },
    { 5, 8 }, { 5, 9 },
    { 6, 10 }, { 6, 11 }, { 6, 7 },
    { 7, 10 }, { 7, 11 },
    { 8, 10 },
    { 9, 11 }
};

const int GeIcosahedron::_faceIndex[NB_FACES][3] = {
    { 0, 4, 1 }, { 0, 9, 4 }, { 9, 5, 4 }, { 4, 5, 8 }, { 4, 8, 1 },
    { 8, 10, 1 }, { 8, 3, 10 }, { 5, 3, 8 }, { 5, 2, 3 }, { 2, 7, 3 },
    { 7, 10, 3 }, { 7, 6, 10 }, { 7, 11, 6 }, { 11, 0, 6 }, { 0, 1, 6 },
    { 6, 1, 10 }, { 9, 0, 11 }, { 9, 11, 2 }, { 9, 2, 5 }, { 7, 2, 11 }
};

// clang-format on

unsigned int GeIcosahedron::getStratifiedSamples(
    unsigned int nbSamples, UnaryFunctor<GeVector3<float>, void>& functor, RnRng<float>& rng )
{
    const unsigned int nbPerFace = nbSamples / NB_FACES;
    unsigned int total = 0;
    for ( int i = 0; i < NB_FACES; ++i )
    {
        Vector p;
        Vector q;
        Vector r;
        getFace( i, p, q, r );
        total += sampleTriangle( p, q, r, nbPerFace, functor, rng );
    }
    return total;
}

} // namespace Zq
