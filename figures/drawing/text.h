#ifndef ZQ_FIGURES_DRAWING_TEXT_H
#define ZQ_FIGURES_DRAWING_TEXT_H

#include "canvas.h"

#include <string>

namespace Figures
{

/// The width of a line of text in pixels; `size` is the height of its capitals.
float measureText( const std::string& text, float size );

/// Writes one line in a round-nibbed hand: printable ASCII, an empty box for anything else. (x, y) is the left end of
/// the baseline, `size` the height of the capitals in pixels; `weight` thickens the strokes, 1 is normal.
void drawText(
    Canvas& canvas, float x, float y, float size, const std::string& text, const Color& color, float weight = 1 );

} // namespace Figures

#endif
