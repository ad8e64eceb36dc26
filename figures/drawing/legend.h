#ifndef ZQ_FIGURES_DRAWING_LEGEND_H
#define ZQ_FIGURES_DRAWING_LEGEND_H

#include "canvas.h"

#include <string>
#include <vector>

namespace Figures
{

/// What stands before a label: the colour as it is seen in the picture.
enum class Mark
{
    SURFACE,
    STRIPES, // of two colours
    LINE,
    THICK_LINE,
    DASHES,
    BALL,
    RING // a disc with a hole
};

struct LegendRow
{
    Color color;
    std::string label;
    std::vector<std::string> values = {}; // one for each heading
    Mark mark = Mark::SURFACE;
    Color second = {}; // of the stripes
};

/// A table of what the colours mean, its lower left corner at (x, bottom); the values are aligned to the right.
void drawLegend( Canvas& canvas, float x, float bottom, const std::vector<std::string>& headings,
    const std::vector<LegendRow>& rows );

} // namespace Figures

#endif
