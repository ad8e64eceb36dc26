#ifndef ZQ_PRIMITIVES_GEFLOATINGCONEBUILDER_H
#define ZQ_PRIMITIVES_GEFLOATINGCONEBUILDER_H

#include "geFloatingCone.h"
#include "unaryFunctor.h"

#include <vector>

namespace Zq
{

/// Collects directions and makes a floating cone that holds them all. Single precision only.
///
/// Feed the directions one by one, or hand the builder to anything that takes a UnaryFunctor, then call createCone(),
/// which empties the builder for the next set. One thread at a time; copies collect on their own.
class ZQ_PRIMITIVES_API GeFloatingConeBuilder : public UnaryFunctor<GeUnitVector3<float>, void>
{
public:
    /// @name Construction
    /// @{

    /// Empty, with room for so many directions; more are taken as they come.
    explicit GeFloatingConeBuilder( unsigned int capacity = 16 );
    /// Copies the directions.
    GeFloatingConeBuilder( const GeFloatingConeBuilder& ) = default;
    /// Takes over the directions.
    GeFloatingConeBuilder& operator=( const GeFloatingConeBuilder& ) = default;
    /// Gives the directions back.
    ~GeFloatingConeBuilder() override;
    /// @}

    /// @name Feeding
    /// @{

    /// Adds a direction.
    void operator()( const GeUnitVector3<float>& direction ) override;

    /// Forgets all directions; the room stays.
    void reset();
    /// @}

    /// @name Queries
    /// @{

    /// The cone about the collected directions; then forgets them.
    ///
    /// The axis points at the centre of the aligned box of the directions' end points, which is near the best axis but
    /// not the best. The semi-angle is the widest angle between the axis and a direction, in float: the cosine of a
    /// direction on the surface may differ from that of the semi-angle by a few units in the last place of 1.
    ///
    /// The result is the sphere about (0, 0, 1) if there is no direction, and if the box contains the origin, bounds
    /// included: for directions all around, but also for two as far apart as (1, 0, 0) and (0, 1, 0), whose box touches
    /// the origin.
    GeFloatingCone createCone();
    /// @}

private:
    std::vector<GeUnitVector3<float>> _directions;
};

} // namespace Zq

#include "geFloatingConeBuilder.inline"

#endif
