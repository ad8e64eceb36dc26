#ifndef ZQ_PRIMITIVES_GELINEFACEBUILDER_H
#define ZQ_PRIMITIVES_GELINEFACEBUILDER_H

#include "export.h"
#include "geVector3.h"

namespace Zq
{

/// Receives faces that are bounded by straight lines. For float and double; the library implements none.
///
/// A face is a sequence of calls: beginFace(); for each of its contours beginContour(), any number of addLine() and
/// endContour(); endFace(). A contour is closed: if its last point is not its start, a line back to the start is meant.
/// Which contours are holes, and what their sense of rotation says, is for the two sides to agree on.
template <class T>
class ZQ_PRIMITIVES_API GeLineFaceBuilder
{
public:
    /// @name Slots
    /// The order of the virtual functions is part of the binary interface.
    /// @{

    /// Receivers are deleted through this class, too.
    virtual ~GeLineFaceBuilder();
    /// The first call of a face.
    virtual void beginFace() = 0;
    /// A contour begins at a point.
    virtual void beginContour( const GePoint3<T>& start ) = 0;
    /// A line from the point before.
    virtual void addLine( const GePoint3<T>& end ) = 0;
    /// The contour is complete.
    virtual void endContour() = 0;
    /// The last call of a face.
    virtual void endFace() = 0;
    /// @}

    /// @name Construction
    /// There is nothing to set up or to copy here.
    /// @{
    GeLineFaceBuilder() = default;
    GeLineFaceBuilder( const GeLineFaceBuilder& ) = default;
    GeLineFaceBuilder& operator=( const GeLineFaceBuilder& ) = default;
    /// @}
};

template <class T>
inline GeLineFaceBuilder<T>::~GeLineFaceBuilder() = default;

extern template class GeLineFaceBuilder<float>;
extern template class GeLineFaceBuilder<double>;

} // namespace Zq

#endif
