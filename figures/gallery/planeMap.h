#ifndef ZQ_FIGURES_GALLERY_PLANEMAP_H
#define ZQ_FIGURES_GALLERY_PLANEMAP_H

#include "canvas.h"

#include <zq/primitives/gePoint3.h>

#include <functional>

namespace Figures
{

/// A map of the plane y = 0: x to the right, the depth -z upwards.
struct PlaneMap
{
    Area area;
    double x; // of the lower left corner
    double depth;
    double scale; // pixels per unit

    Zq::GePoint3<double> pointAt( double column, double row ) const;
    Spot spotOf( const Zq::GePoint3<double>& point ) const;

    /// Each pixel becomes the mean of what four of its points say. The paint gets the pixel as well, for patterns.
    using Paint = std::function<Color( const Zq::GePoint3<double>& point, int column, int row )>;
    void fill( Canvas& canvas, const Paint& paint ) const;

    /// A straight line; nothing outside of the area. With dashes on request.
    void drawLine( Canvas& canvas, const Zq::GePoint3<double>& begin, const Zq::GePoint3<double>& end, float width,
        const Color& color, bool isDashed = false ) const;
    /// Around the area.
    void drawFrame( Canvas& canvas ) const;
};

/// The outline of an area.
void drawFrame( Canvas& canvas, const Area& area, float width );

} // namespace Figures

#endif
