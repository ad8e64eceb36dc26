#ifndef ZQ_PRIMITIVES_GEBEZIER3FACEBUILDER_H
#define ZQ_PRIMITIVES_GEBEZIER3FACEBUILDER_H

#include "export.h"
#include "geVector3.h"

namespace Zq
{

/// Receives faces that are bounded by straight lines and cubic Bezier curves. For float and double; the library
/// implements none.
///
/// The calls come as for GeLineFaceBuilder, with addLine() and addBezier3() in any mixture between beginContour() and
/// endContour(). The two classes have no common base: a receiver of lines need not know about curves.
template <class T>
class ZQ_PRIMITIVES_API GeBezier3FaceBuilder
{
public:
    /// @name Slots
    /// The order of the virtual functions is part of the binary interface.
    /// @{

    /// Receivers are deleted through this class, too.
    virtual ~GeBezier3FaceBuilder();
    /// The first call of a face.
    virtual void beginFace() = 0;
    /// A contour begins at a point.
    virtual void beginContour( const GePoint3<T>& start ) = 0;
    /// A line from the point before.
    virtual void addLine( const GePoint3<T>& end ) = 0;
    /// A cubic curve from the point before: it leaves towards the first control point and arrives from the second.
    virtual void addBezier3( const GePoint3<T>& control1, const GePoint3<T>& control2, const GePoint3<T>& end ) = 0;
    /// The contour is complete.
    virtual void endContour() = 0;
    /// The last call of a face.
    virtual void endFace() = 0;
    /// @}

    /// @name Construction
    /// There is nothing to set up or to copy here.
    /// @{
    GeBezier3FaceBuilder() = default;
    GeBezier3FaceBuilder( const GeBezier3FaceBuilder& ) = default;
    GeBezier3FaceBuilder& operator=( const GeBezier3FaceBuilder& ) = default;
    /// @}
};

template <class T>
inline GeBezier3FaceBuilder<T>::~GeBezier3FaceBuilder() = default;

extern template class GeBezier3FaceBuilder<float>;
extern template class GeBezier3FaceBuilder<double>;

} // namespace Zq

#endif
