#ifndef ZQ_EXAMPLES_AIMANDINTERPOLATE_PICTURE_H
#define ZQ_EXAMPLES_AIMANDINTERPOLATE_PICTURE_H

#include "canvas.h"
#include "scene.h"

namespace AimAndInterpolate
{

/// The camera's flight with slerp and with squad, and below it what lerp, slerp, spins and squad do to one direction and
/// to the speed of turning. `nbSteps` of equal length lie between two keys.
Examples::Canvas drawPicture( const Scene& scene, const RotationTrack& track, int nbSteps, int nbSpins );

} // namespace AimAndInterpolate

#endif
