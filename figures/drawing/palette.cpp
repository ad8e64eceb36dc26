#include "palette.h"

namespace Figures
{

const Palette& getPalette()
{
    static const Palette palette;
    return palette;
}

} // namespace Figures
