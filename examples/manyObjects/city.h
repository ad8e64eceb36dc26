#ifndef ZQ_EXAMPLES_MANYOBJECTS_CITY_H
#define ZQ_EXAMPLES_MANYOBJECTS_CITY_H

#include "camera.h"

#include <zq/primitives/geAlignedBox.h>

#include <vector>

namespace ManyObjects
{

using Examples::Camera;
using Box = Zq::GeAlignedBox3<float>;

/// The city's extent along x and y, in metres.
float computeSide( std::size_t nbBoxes );

/// Houses on lots, cars in the streets and boats on a river, around the origin and row by row; towers in the middle. The
/// same for the same count and seed, on every machine.
std::vector<Box> makeCity( std::size_t nbBoxes, unsigned seed );

/// The camera of a flight over the city along a figure of eight, at a moment from 0 to 1. It sees from 0.5 to 2,000 m,
/// with depth from 0 to 1.
Camera makeCamera( float side, double moment );

} // namespace ManyObjects

#endif
