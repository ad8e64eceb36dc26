#ifndef ZQ_EXAMPLES_AIMANDINTERPOLATE_FLIGHT_H
#define ZQ_EXAMPLES_AIMANDINTERPOLATE_FLIGHT_H

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
struct Flight
{
    std::vector<Ball> balls;
    std::vector<Key> keys;
};

Flight makeFlight();

RotationTrack makeTrack( const Flight& flight );

/// The camera's place on a smooth curve through the eyes of the keys, at the times of RotationTrack.
Zq::GePoint3<double> computeEye( const Flight& flight, double time );

} // namespace AimAndInterpolate

#endif
