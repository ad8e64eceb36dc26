#ifndef ZQ_EXAMPLES_SUPPORT_POLYLINE_H
#define ZQ_EXAMPLES_SUPPORT_POLYLINE_H

#include "canvas.h"

#include <array>
#include <vector>

namespace Examples
{

/// In pixels, x to the right and y down.
using Pixel = std::array<float, 2>;

/// A chain of straight lines with round joints and ends. Where it crosses itself it covers once.
void drawPolyline(
    Canvas& canvas, const std::vector<Pixel>& points, float width, const Color& color, float opacity = 1 );

/// The area between a chain of points of ascending x and the horizontal line at `baseline` below it.
void fillBelow( Canvas& canvas, const std::vector<Pixel>& points, float baseline, const Color& color, float opacity );

} // namespace Examples

#endif
