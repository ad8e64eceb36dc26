#ifndef ZQ_EXAMPLES_MANYOBJECTS_VIEWS_H
#define ZQ_EXAMPLES_MANYOBJECTS_VIEWS_H

#include "camera.h"

#include <zq/primitives/geViewVolume.h>

namespace ManyObjects
{

using Examples::Camera;
using Examples::makeClipMatrix;
using Examples::makeView;
using View = Zq::GeViewVolume<float>;

/// What there is to be culled for in one frame. One view is made per frame; it is then asked about any number of boxes.
struct Views
{
    View single;  // as the camera says
    View endless; // the same with reversed depth and without a far plane
    View left;    // the eyes of a headset, reversed and without a far plane
    View right;
    View both; // holds the two
};

Views makeViews( const Camera& camera );

/// Of an eye of a headset: what its lens shows.
struct Lens
{
    float inwards = 0.9F;    // tangents of the angles from the axis to the edges of the view: to the nose,
    float outwards = 1.3F;   // to the ear,
    float upwards = 1.1F;    // and up and down
    float turn = 0.0872665F; // the axis itself is turned outwards by 5 degrees
    float offset = 0.032F;   // from the middle of the head
};

/// From world space to the clip space of an eye: side -1 is left, 1 right.
Zq::GeProjectiveMatrix3<float> makeEyeMatrix( const Camera& head, const Lens& lens, float side );

} // namespace ManyObjects

#endif
