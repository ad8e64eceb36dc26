#ifndef ZQ_PRIMITIVES_GEALIGNEDBOXBUILDER_H
#define ZQ_PRIMITIVES_GEALIGNEDBOXBUILDER_H

#include "geAlignedBox.h"
#include "unaryFunctor.h"

namespace Zq
{

/// Grows a box point by point. It is a functor, so whatever enumerates points can feed it: a mesh, or the corners of
/// another box. Copies carry the box along. One thread at a time.
class ZQ_PRIMITIVES_API GeAlignedBoxBuilder : public UnaryFunctor<GePoint3<float>, bool>
{
public:
    /// @name Construction
    /// @{

    /// Begins with the canonical empty box.
    GeAlignedBoxBuilder();
    /// Copies the box.
    GeAlignedBoxBuilder( const GeAlignedBoxBuilder& ) = default;
    /// Takes over the box.
    GeAlignedBoxBuilder& operator=( const GeAlignedBoxBuilder& ) = default;
    /// Nothing is to be given back.
    ~GeAlignedBoxBuilder() override;
    /// @}

    /// @name Feeding
    /// @{

    /// Extends the box by a point; a NaN coordinate is passed over. Always true: every point is welcome.
    bool operator()( const GePoint3<float>& point ) override;

    /// Begins anew with the canonical empty box.
    void reset();
    /// @}

    /// @name Queries
    /// @{

    /// The box of all points so far, the canonical empty box when there were none.
    GeAlignedBox3<float> getBox() const;
    /// @}

private:
    GeAlignedBox3<float> _box;
};

} // namespace Zq

#include "geAlignedBoxBuilder.inline"

#endif
