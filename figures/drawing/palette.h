#ifndef ZQ_FIGURES_DRAWING_PALETTE_H
#define ZQ_FIGURES_DRAWING_PALETTE_H

#include "canvas.h"

namespace Figures
{

/// The colours of all pictures. Those that carry a meaning differ in brightness and in blue against yellow, so that they
/// can be told apart without seeing red and green (after M. Okabe and K. Ito, Color Universal Design, 2002); where two
/// of them meet, the pictures name them or give them a pattern as well.
struct Palette
{
    Color ink = makeColor( 0x22303C );
    Color paleInk = makeColor( 0x55636F );
    Color rule = makeColor( 0xC3CCD4 );  // grids and scales
    Color paper = makeColor( 0xF6F5F1 ); // behind everything
    Color white = makeColor( 0xFFFFFF );

    // answers
    Color inside = makeColor( 0x2678B2 );
    Color overlap = makeColor( 0xF0B22E );
    Color outside = makeColor( 0xA9B4BF );
    Color away = makeColor( 0xB8452B );   // turned away, or the odd one out
    Color unsure = makeColor( 0xD684B5 ); // answered with more caution than needed

    // things
    Color volume = makeColor( 0x6FB7E8 ); // glass: frusta, cones
    Color edge = makeColor( 0x20547D );   // of a volume
    Color gold = makeColor( 0xA8802F );   // normals and directions
    Color clay = makeColor( 0xE9D3B0 );   // surfaces without a meaning of their own
    Color axes[3] = { makeColor( 0xCC4B1C ), makeColor( 0x2FA59A ), makeColor( 0x3347A8 ) };
    // members of a series, in order
    Color series[4] = { makeColor( 0x2678B2 ), makeColor( 0xE08A12 ), makeColor( 0x8A3A78 ), makeColor( 0x4FB7AC ) };
};

const Palette& getPalette();

} // namespace Figures

#endif
