// A city of a million boxes from above: what views keep of it, and what others lose.

#include "pictures.h"

#include "manyObjectsPictures.h"

namespace Figures
{

static Canvas drawCity( Canvas ( *draw )( const std::vector<ManyObjects::Box>&, float ) )
{
    constexpr std::size_t COUNT = 1000000;
    constexpr unsigned SEED = 1;
    return draw( ManyObjects::makeCity( COUNT, SEED ), ManyObjects::computeSide( COUNT ) );
}

Canvas drawCityViewsPicture()
{
    return drawCity( ManyObjects::drawViews );
}

Canvas drawCityStereoPicture()
{
    return drawCity( ManyObjects::drawStereo );
}

Canvas drawCityDeepPicture()
{
    return drawCity( ManyObjects::drawDeep );
}

} // namespace Figures
