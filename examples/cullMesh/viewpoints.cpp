#include "viewpoints.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace CullMesh
{

using namespace Zq;

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
