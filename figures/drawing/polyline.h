#ifndef ZQ_FIGURES_DRAWING_POLYLINE_H
#define ZQ_FIGURES_DRAWING_POLYLINE_H

#include "canvas.h"

#include <vector>

namespace Figures
{

/// A chain of straight lines with round joints and ends. Where it crosses itself it covers once.
void drawPolyline(
    Canvas& canvas, const std::vector<Spot>& points, float width, const Color& color, float opacity = 1 );

/// The same in dashes and gaps of the given lengths in pixels.
void drawDashes(
    Canvas& canvas, const std::vector<Spot>& points, float width, const Color& color, float dash, float gap );

/// One straight line.
void drawStroke( Canvas& canvas, const Spot& begin, const Spot& end, float width, const Color& color );

/// The area between a chain of points of ascending x and the horizontal line at `baseline` below it.
void fillBelow( Canvas& canvas, const std::vector<Spot>& points, float baseline, const Color& color, float opacity );

} // namespace Figures

#endif
