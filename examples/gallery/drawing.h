#ifndef ZQ_EXAMPLES_GALLERY_DRAWING_H
#define ZQ_EXAMPLES_GALLERY_DRAWING_H

#include "canvas.h"
#include "scene.h"

#include <string>
#include <vector>

namespace Gallery
{

/// The colours that all pictures share.
struct Palette
{
    Examples::Color ink = Examples::makeColor( 0x22303C );
    Examples::Color paleInk = Examples::makeColor( 0x5C6B78 );
    Examples::Color paper = Examples::makeColor( 0xF7F5F0 );
    Examples::Color inside = Examples::makeColor( 0x3FA37C );
    Examples::Color overlap = Examples::makeColor( 0xEDB33C );
    Examples::Color outside = Examples::makeColor( 0x9AA9BA );
    Examples::Color blue = Examples::makeColor( 0x3E7CB1 );
    Examples::Color red = Examples::makeColor( 0xD0573F );
};

const Palette& getPalette();

/// An empty picture with the background that all of them have.
Examples::Canvas makeBackground( int width, int height );

void drawStroke( Examples::Canvas& canvas, Spot begin, Spot end, float width, const Examples::Color& color );
/// Lines of small text below each other; y is the first baseline.
void drawLines( Examples::Canvas& canvas, float x, float y, const std::vector<std::string>& lines,
    const Examples::Color& color, float size = 12 );
/// Lines of text with a thin line from their left or right end to what they are about.
void drawCallout( Examples::Canvas& canvas, Spot target, float x, float y, const std::vector<std::string>& lines );

} // namespace Gallery

#endif
