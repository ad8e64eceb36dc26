#ifndef ZQ_FIGURES_DRAWING_LIGHT_H
#define ZQ_FIGURES_DRAWING_LIGHT_H

#include "canvas.h"

#include <zq/primitives/gePoint3.h>
#include <zq/primitives/geUnitVector3.h>

namespace Figures
{

/// A studio: a soft sky from above, a lamp over the viewer's left shoulder and its highlight on a glazed surface.
class Studio
{
public:
    /// `right`, `up` and `back` are the picture's axes in the world, `skyward` is the way to the world's sky.
    Studio( const Zq::GePoint3<float>& eye, const Zq::GeVector3<float>& right, const Zq::GeVector3<float>& up,
        const Zq::GeVector3<float>& back, const Zq::GeVector3<float>& skyward );

    /// The light that a surface of that colour sends to the eye; the normal is turned to the eye and need not have
    /// length 1. `gloss` scales the highlight, 0 to 1.
    Color shade( const Zq::GePoint3<float>& position, const Zq::GeVector3<float>& normal, const Color& surface,
        float gloss ) const;

private:
    Zq::GePoint3<float> _eye;
    Zq::GeUnitVector3<float> _toSky;
    Zq::GeUnitVector3<float> _toLamp;
    Zq::GeUnitVector3<float> _toFill;
};

} // namespace Figures

#endif
