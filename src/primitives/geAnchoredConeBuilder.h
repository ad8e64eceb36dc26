#ifndef ZQ_PRIMITIVES_GEANCHOREDCONEBUILDER_H
#define ZQ_PRIMITIVES_GEANCHOREDCONEBUILDER_H

#include "geAnchoredCone.h"
#include "unaryFunctor.h"

#include <vector>

namespace Zq
{

/// Collects points and fits an anchored cone to them, for a given floating cone. Single precision only.
///
/// Feed the points one by one, or hand the builder to anything that takes a UnaryFunctor; call createCone() once; then
/// reset() before the next set. One thread at a time; copies collect on their own.
class ZQ_PRIMITIVES_API GeAnchoredConeBuilder : public UnaryFunctor<GePoint3<float>, bool>
{
public:
    /// @name Construction
    /// @{

    /// Empty, with room for so many points; more are taken as they come.
    explicit GeAnchoredConeBuilder( unsigned int capacity = 16 );
    /// Copies the points.
    GeAnchoredConeBuilder( const GeAnchoredConeBuilder& ) = default;
    /// Takes over the points.
    GeAnchoredConeBuilder& operator=( const GeAnchoredConeBuilder& ) = default;
    /// Gives the points back.
    ~GeAnchoredConeBuilder() override;
    /// @}

    /// @name Feeding
    /// @{

    /// Adds a point; true, always: go on.
    bool operator()( const GePoint3<float>& point ) override;

    /// Forgets all points; the room stays.
    void reset();
    /// @}

    /// @name Queries
    /// @{

    /// The anchored cone of the collected points, with the axis and the semi-angle of a floating cone.
    ///
    /// The bottom disc lies in the plane through the lowest point along the axis, the first of several. A point sticks
    /// out if it lies outside the cone whose apex is the lowest point; its excess is the sideways offset by which it
    /// does. The disc is centred on the middle of the box around the lowest point and all excesses, and reaches to the
    /// farthest excess. The height is that of the highest point.
    ///
    /// Every point that sticks out lies inside the result, up to rounding. The others, the lowest one among them, lie
    /// inside as long as the lowest point does; if the excesses are lopsided, so that the lowest point is farther from
    /// the middle than any excess, some may lie slightly outside. GeCullingCones says what this means for culling.
    ///
    /// Overwrites the first of the collected points with the excesses and does not forget them: call reset() before the
    /// builder is used again. Without it a second call fits a cone to what the first one left.
    ///
    /// Reports, from src/primitives/geAnchoredConeBuilder, and leaves the points as they were:
    /// "bottomIndex != -1" if there is no point, or none with a projection on the axis that is below the largest float;
    /// "len > 0" for an axis of length zero. "bottomIndex < _points.size()" and "nbOutsidePoints <= _points.size()"
    /// guard the inner workings.
    GeAnchoredCone createCone( const GeFloatingCone& cone );
    /// @}

private:
    std::vector<GePoint3<float>> _points;
};

} // namespace Zq

#include "geAnchoredConeBuilder.inline"

#endif
