#ifndef ZQ_FIGURES_DRAWING_DRAWING_H
#define ZQ_FIGURES_DRAWING_DRAWING_H

#include "canvas.h"
#include "palette.h"
#include "polyline.h"

#include <string>
#include <vector>

namespace Figures
{

/// An empty picture with the background that all of them have.
Canvas makeBackground( int width, int height );

/// The title and a line below it at the top left of a picture.
void drawCaption( Canvas& canvas, const std::string& title, const std::string& subtitle );
/// The heading of a part of a picture and a line below it; y is the baseline of the first.
void drawHeading( Canvas& canvas, float x, float y, const std::string& title, const std::string& subtitle );
/// A bright plate with round corners for a part of a picture.
void drawPlate( Canvas& canvas, const Area& area );

/// Lines of small text below each other; y is the first baseline.
void drawLines(
    Canvas& canvas, float x, float y, const std::vector<std::string>& lines, const Color& color, float size = 12 );
/// A line of text about x.
void drawCentred( Canvas& canvas, float x, float y, float size, const std::string& text, const Color& color );
/// Lines of text with a thin line from their left or right end to what they are about.
void drawCallout( Canvas& canvas, Spot target, float x, float y, const std::vector<std::string>& lines );
/// An arrow of one width with an open head.
void drawArrow( Canvas& canvas, Spot begin, Spot end, float width, const Color& color );

} // namespace Figures

#endif
