#ifndef ZQ_FIGURES_MANYOBJECTS_CITYMAP_H
#define ZQ_FIGURES_MANYOBJECTS_CITYMAP_H

#include "city.h"
#include "drawing.h"

#include <string>
#include <vector>

namespace ManyObjects
{

/// What is said of a box, by number; each has a colour.
using Verdicts = std::vector<unsigned char>;

/// A square part of the city on a square part of a picture, seen from above: x to the right, y upwards.
class CityMap
{
public:
    CityMap( const Figures::Area& area, const Zq::GePoint3<float>& centre, float side );

    /// The boxes, each in the colour of its verdict, and darker the taller it is. Where they are smaller than a pixel, the
    /// ground between them is left out.
    void drawCity( Figures::Canvas& picture, const std::vector<Box>& city, const Verdicts& verdicts,
        const std::vector<Figures::Color>& colors ) const;
    /// The eye, and the way that it looks.
    void drawEye( Figures::Canvas& picture, const Camera& camera ) const;
    /// The flight's path.
    void drawPath( Figures::Canvas& picture, float citySide ) const;
    /// A round length to compare with, at the lower right corner.
    void drawScale( Figures::Canvas& picture ) const;
    /// A line from some words to the boxes with that verdict; nothing if there is none.
    void drawNote( Figures::Canvas& picture, const std::vector<Box>& city, const Verdicts& verdicts, unsigned char kind,
        const std::vector<std::string>& lines ) const;

private:
    Figures::Spot computeSpot( const Zq::GePoint3<float>& point ) const;
    /// Draws on what the area shows, so that nothing leaves it.
    template <class Action>
    void drawWithin( Figures::Canvas& picture, Action action ) const;

    Figures::Area _area;
    Zq::GePoint3<float> _centre;
    float _scale; // pixels per metre
};

/// How many boxes have each verdict, as text.
std::vector<std::string> countVerdicts( const Verdicts& verdicts, std::size_t nbKinds );

/// The place of a square panel among two or three in a row.
Figures::Area makePanel( int index, int nbPanels );

} // namespace ManyObjects

#endif
