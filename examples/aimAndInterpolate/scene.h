#ifndef ZQ_EXAMPLES_AIMANDINTERPOLATE_SCENE_H
#define ZQ_EXAMPLES_AIMANDINTERPOLATE_SCENE_H

#include "rotationTrack.h"

#include <zq/primitives/gePoint3.h>

#include <vector>

namespace AimAndInterpolate
{

/// A ball that a camera may look at.
struct Ball
{
    Zq::GePoint3<double> center;
    double radius;
};

/// Where the camera stands at a key, and what it looks at.
struct Key
{
    Zq::GePoint3<double> eye;
    std::size_t ball;
    double roll; // about the line of sight, in radians; positive turns the picture clockwise
};

/// A camera flight past three balls.
struct Scene
{
    std::vector<Ball> balls;
    std::vector<Key> keys;
};

Scene makeScene();

RotationTrack makeTrack( const Scene& scene );

/// The camera's place on a smooth curve through the eyes of the keys, at the times of RotationTrack.
Zq::GePoint3<double> computeEye( const Scene& scene, double time );

} // namespace AimAndInterpolate

#endif
