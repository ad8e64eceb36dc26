#include "camera.h"

#include <zq/primitives/geUnitVector3.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace CullMesh
{

using namespace Zq;

template <class T>
GeAffineMatrix3<T> makeView( const Camera& camera )
{
    const GePoint3<T> eye( camera.eye );
    const GeUnitVector3<T> back( eye - GePoint3<T>( camera.target ) );

    // Looking straight up or down, y takes the part of the upward direction.
    const GeVector3<T> z( 0, 0, 1 );
    const GeVector3<T> y( 0, 1, 0 );
    const bool isSteep = z.cross( back ).length() < static_cast<T>( 1e-3 );
    const GeUnitVector3<T> right( ( isSteep ? y : z ).cross( back ) );
    const GeUnitVector3<T> up( back.cross( right ) );

    // The rows are the camera's axes: a vector's components along them are its coordinates in camera space.
    const GeLinearMatrix3<T> rotation( right, up, back );
    return GeAffineMatrix3<T>( rotation, -( rotation * GeVector3<T>( eye ) ) );
}

template GeAffineMatrix3<float> makeView<float>( const Camera& );
template GeAffineMatrix3<double> makeView<double>( const Camera& );

void fitClipPlanes( Camera& camera, const std::vector<GePoint3<float>>& points )
{
    constexpr float MIN_NEAR = 0.01F;
    const GeAffineMatrix3<float> view = makeView<float>( camera );
    float nearest = std::numeric_limits<float>::max();
    float farthest = 0;
    for ( const GePoint3<float>& point : points )
    {
        const float depth = -( view * point ).getZ();
        nearest = std::min( nearest, depth );
        farthest = std::max( farthest, depth );
    }
    camera.nearDistance = std::max( 0.99F * nearest, MIN_NEAR );
    camera.farDistance = std::max( 1.01F * farthest, 2 * MIN_NEAR );
}

std::vector<GePoint3<float>> makeOrbit( std::size_t nbEyes, const std::vector<float>& distances )
{
    // A spiral with equal steps in z turned by the golden angle each (R. Swinbank and R. J. Purser, Fibonacci grids:
    // a novel approach to global modelling, 2006).
    constexpr double GOLDEN_ANGLE = 2.399963229728653;
    std::vector<GePoint3<float>> eyes;
    eyes.reserve( nbEyes );
    for ( std::size_t i = 0; i < nbEyes; ++i )
    {
        const auto step = static_cast<double>( i );
        const auto radius = static_cast<double>( distances[i % distances.size()] );
        const double z = 1 - ( 2 * step + 1 ) / static_cast<double>( nbEyes );
        const double across = std::sqrt( 1 - z * z );
        const GePoint3<double> eye( radius * across * std::cos( GOLDEN_ANGLE * step ),
            radius * across * std::sin( GOLDEN_ANGLE * step ), radius * z );
        eyes.emplace_back( eye );
    }
    return eyes;
}

} // namespace CullMesh
