#ifndef ZQ_EXAMPLES_AIMANDINTERPOLATE_ROTATIONTRACK_H
#define ZQ_EXAMPLES_AIMANDINTERPOLATE_ROTATIONTRACK_H

#include <zq/primitives/gePoint3.h>
#include <zq/primitives/geQuaternion3.h>

#include <vector>

namespace AimAndInterpolate
{

/// Carries camera axes to world axes. A camera has x to its right and y up and looks along -z; the world has y up.
using Rotation = Zq::GeQuaternion3<double>;

/// The rotation of a camera that looks from the eye at the target, upright as far as that goes.
Rotation aimCamera( const Zq::GePoint3<double>& eye, const Zq::GePoint3<double>& target );

/// Key rotations at the times 0, 1, 2, ... and everything between them.
class RotationTrack
{
public:
    /// Two unit quaternions or more.
    explicit RotationTrack( std::vector<Rotation> keys );

    /// The time of the last key; the first one has 0.
    double getEnd() const;
    /// From key to key by the shortest turn, at a constant speed that jumps at the keys.
    Rotation slerp( double time ) const;
    /// Through the keys without a jump in speed.
    Rotation squad( double time ) const;

private:
    std::size_t findSegment( double time ) const;

    std::vector<Rotation> _keys;
    std::vector<Rotation> _controls; // one for each key
};

} // namespace AimAndInterpolate

#endif
