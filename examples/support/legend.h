#ifndef ZQ_EXAMPLES_SUPPORT_LEGEND_H
#define ZQ_EXAMPLES_SUPPORT_LEGEND_H

#include "canvas.h"

#include <string>
#include <vector>

namespace Examples
{

/// A title and a line below it at the top left of a picture.
void drawCaption( Canvas& canvas, const std::string& title, const std::string& subtitle );

struct LegendRow
{
    Color color;
    std::string label;
    std::vector<std::string> values; // one for each heading
};

/// A table of what the colours mean at the bottom left of a picture; the values are aligned to the right.
void drawLegend( Canvas& canvas, const std::vector<std::string>& headings, const std::vector<LegendRow>& rows );

} // namespace Examples

#endif
