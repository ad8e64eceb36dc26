#include "teapot.h"

namespace CullMesh
{

namespace
{

using Point = Zq::GePoint3<double>;
using Vector = Zq::GeVector3<double>;

constexpr std::size_t NB_PATCHES = 32;

// The control points, patch by patch, row by row: x, y, z.
constexpr double PATCHES[NB_PATCHES][4][4][3] = {
#include "teapotPatches.inc"
};

using Weights = std::array<double, 4>;

// The Bernstein weights at i / n. They are mirrored exactly when i becomes n - i: patches that run along a common edge
// in opposite directions then agree on its points, and can be welded.
Weights makeWeights( unsigned i, unsigned n )
{
    const double t = static_cast<double>( i ) / n;
    const double s = static_cast<double>( n - i ) / n;
    return { s * s * s, s * s * t * 3, t * t * s * 3, t * t * t };
}

template <class Value>
Value combine( const Weights& weights, const std::array<Value, 4>& values )
{
    return ( values[0] * weights[0] + values[3] * weights[3] ) + ( values[1] * weights[1] + values[2] * weights[2] );
}

Point computePoint( const double ( &patch )[4][4][3], const Weights& u, const Weights& v )
{
    std::array<Vector, 4> column;
    for ( std::size_t row = 0; row < 4; ++row )
    {
        std::array<Vector, 4> controls;
        for ( std::size_t i = 0; i < 4; ++i )
        {
            const double( &control )[3] = patch[row][i];
            controls[i].set( control[0], control[1], control[2] );
        }
        column[row] = combine( v, controls );
    }
    return Point( combine( u, column ) );
}

} // namespace

RawMesh makeTeapot( unsigned nbSegments )
{
    RawMesh raw;
    raw.name = "the teapot";
    const std::size_t nbQuadrangles = NB_PATCHES * nbSegments * nbSegments;
    raw.points.reserve( nbQuadrangles + 2 * NB_PATCHES * nbSegments + NB_PATCHES );
    raw.triangles.reserve( 2 * nbQuadrangles );
    for ( const auto& patch : PATCHES )
    {
        const auto firstPoint = static_cast<std::uint32_t>( raw.points.size() );
        for ( unsigned i = 0; i <= nbSegments; ++i )
        {
            for ( unsigned j = 0; j <= nbSegments; ++j )
            {
                raw.points.push_back(
                    computePoint( patch, makeWeights( i, nbSegments ), makeWeights( j, nbSegments ) ) );
            }
        }
        for ( unsigned i = 0; i < nbSegments; ++i )
        {
            for ( unsigned j = 0; j < nbSegments; ++j )
            {
                // a b     b follows a along v, c follows a along u; u x v points into the pot,
                // c d     so the corners run from v to u
                const std::uint32_t a = firstPoint + i * ( nbSegments + 1 ) + j;
                const std::uint32_t b = a + 1;
                const std::uint32_t c = a + nbSegments + 1;
                const std::uint32_t d = c + 1;
                raw.triangles.push_back( { a, b, d } );
                raw.triangles.push_back( { a, d, c } );
            }
        }
    }
    return raw;
}

} // namespace CullMesh
