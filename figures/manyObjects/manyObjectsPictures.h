#ifndef ZQ_FIGURES_MANYOBJECTS_MANYOBJECTSPICTURES_H
#define ZQ_FIGURES_MANYOBJECTS_MANYOBJECTSPICTURES_H

#include "canvas.h"
#include "city.h"

namespace ManyObjects
{

/// Maps of a city of that side, at one moment of the flight each.

/// What each view keeps.
Figures::Canvas drawViews( const std::vector<Box>& city, float side );
/// What two usual ways to merge the views of both eyes lose.
Figures::Canvas drawStereo( const std::vector<Box>& city, float side );
/// What a frustum in single precision loses where the far plane is far away.
Figures::Canvas drawDeep( const std::vector<Box>& city, float side );

} // namespace ManyObjects

#endif
