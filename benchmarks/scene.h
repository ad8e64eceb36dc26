#ifndef ZQ_BENCHMARKS_SCENE_H
#define ZQ_BENCHMARKS_SCENE_H

#include "inputs.h"

#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geCameraBuilder.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geQuaternion3.h>

/// One camera and what lies about it: what is asked in sight of a frustum, and of a view volume.
namespace ZqBench
{

constexpr float FIELD_OF_VIEW = 1.0F;
constexpr float NEAR_DISTANCE = 1.0F;
constexpr float FAR_DISTANCE = 100.0F;
constexpr float ASPECT = 4.0F / 3.0F;

/// A camera that stands and looks askew, so that no plane is parallel to an axis.
inline Zq::GeAffineMatrix3<float> makeCameraToWorld()
{
    Zq::GeLinearMatrix3<float> rotation;
    Zq::GeQuaternion3<float>::makeRotation( { 1.0F, 2.0F, -0.5F }, 0.7F ).getMatrix( rotation );
    return { rotation, { 10.0F, -4.0F, 7.0F } };
}

/// From the world to clip coordinates, depth from -1 to 1.
inline Zq::GeProjectiveMatrix3<float> makeClipMatrix()
{
    return Zq::GeCameraBuilder<float>::makePerspective( FIELD_OF_VIEW, NEAR_DISTANCE, FAR_DISTANCE, ASPECT ) *
        makeCameraToWorld().computeInverse();
}

/// Somewhere in a block around what the camera sees.
inline Zq::GePoint3<float> makePoint( Random& random )
{
    const float x = random.uniform( -75.0F, 75.0F );
    const float y = random.uniform( -60.0F, 60.0F );
    const float z = random.uniform( -105.0F, 5.0F );
    return makeCameraToWorld() * Zq::GePoint3<float>( x, y, z );
}

/// As many boxes outside of a volume, inside, and crossing it; its verdicts are three numbers in a row, outside the first.
template <class Volume>
std::vector<Zq::GeAlignedBox3<float>> makeBoxesAbout( const Volume& volume, int outside, std::size_t count )
{
    Random random( 1 );
    const auto make = [&]
    {
        const Zq::GePoint3<float> center = makePoint( random );
        const float x = makeLength( random, 0.1F, 30.0F );
        const float y = makeLength( random, 0.1F, 30.0F );
        const float z = makeLength( random, 0.1F, 30.0F );
        const Zq::GeVector3<float> half( x, y, z );
        return Zq::GeAlignedBox3<float>( center - half, center + half );
    };
    return makeBalanced( count, 3, random, make, [&]( const auto& box ) { return volume.classify( box ) - outside; } );
}

} // namespace ZqBench

#endif
