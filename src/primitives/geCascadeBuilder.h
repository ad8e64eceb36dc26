#ifndef ZQ_PRIMITIVES_GECASCADEBUILDER_H
#define ZQ_PRIMITIVES_GECASCADEBUILDER_H

#include "geDepthRange.h"
#include "geProjectiveMatrix3.h"

#include <cstddef>

namespace Zq
{

/// Orthographic views of a light that shines along one direction, each fitted to a part of what a camera sees: the
/// cascades of a shadow map. For float and double.
///
/// The views do not swim: while light, resolution and camera lens stay the same, so do the size of a texel and the
/// direction of the grid, and a view moves by whole texels, in depth, too. A point of the world keeps its fraction of a
/// texel and its distance from the next step of depth, wherever the camera goes and turns; up to the rounding of the point
/// itself times the matrix, that is some epsilon of T times its coordinates. To that end the view is that of a camera at the
/// origin of the world, and the place of the cascade is in the projection.
///
/// A cascade is a square of `resolution` texels, 2 more than the diameter of what it holds: that part of the volume is
/// inside with at least 1/4 of a texel to spare on each side, as long as its coordinates are below 2^16 texels for float
/// (2^45 for double). A camera with y up sees the world's y, or z where the light falls along y, upwards in it.
///
/// Source of the fixed size and the steps: M. Valient, Stable Rendering of Cascaded Shadow Maps, in ShaderX6, 2008; here
/// the diameter is that of the part itself, which is at most that of its sphere.
/// All reports come from src/primitives/geCascadeBuilder.imp:
/// "isRepresentable( rows )" when the part is so small or large that an element of its matrix does not fit T.
template <class T>
class ZQ_PRIMITIVES_API GeCascadeBuilder
{
public:
    /// What draws one part of a volume from the light.
    struct Cascade
    {
        GeAffineMatrix3<T> view;           ///< the same for all cascades of a light
        GeProjectiveMatrix3<T> projection; ///< orthographic, in the range that the constructor was given
        T texelSize;                       ///< in units of the world, across and in depth
    };

    /// @name Construction
    /// @{

    /// The light shines along `direction`, of any length. `casterDistance` is how far before the part, against the
    /// light, something may stand that throws shadow into it. Reports "isDirection( direction )" for a zero vector or
    /// one that is not finite, "resolution >= 4 && resolution <= 65536",
    /// "casterDistance >= 0 && isFinite( casterDistance )".
    GeCascadeBuilder( const GeVector3<T>& direction, int resolution, T casterDistance, GeDepthRange range );

    /// @}

    /// @name Queries
    /// @{

    /// The part of a camera's volume between two distances from the camera, along its view. The projection is one of
    /// GeProjectionBuilder or GeCameraBuilder, whose own distances and depth range do not matter, the view a rotation
    /// and a translation. Reports "isProjection( projection )" for another shape, "isFinite( view )", "nonSingular"
    /// (src/base/matrix3x3Imp, line 126), "nearDistance >= 0 && nearDistance < farDistance && isFinite( farDistance )",
    /// "isHeld( points )" for a view that enlarges.
    Cascade fitSlice(
        const GeProjectiveMatrix3<T>& projection, const GeAffineMatrix3<T>& view, T nearDistance, T farDistance ) const;

    /// Around points, such as eight corners. For a steady view give the same diameter always, at least as large as any
    /// distance of two of the points: what computeDiameter() gave for one place of the camera, and some more, since it
    /// varies with rounding. Reports "count > 0", "isFinite( points )", "diameter > 0 && isFinite( diameter )",
    /// "isHeld( points )" when they are farther apart along an axis of the grid, by more than a quarter of a texel.
    Cascade fitPoints( const GePoint3<T>* points, std::size_t count, T diameter ) const;

    /// The largest distance between two points; 0 for less than two. Squares of large coordinates overflow to infinity.
    static T computeDiameter( const GePoint3<T>* points, std::size_t count );
    /// @}

private:
    /// Around what lies between two corners, right, up and along the light.
    Cascade fit( const GePoint3<double>& low, const GePoint3<double>& high, double diameter ) const;
    /// To the right, up and along the light, by the rows of the view as they are.
    GePoint3<double> computeInLight( const GePoint3<double>& point ) const;

    GeAffineMatrix3<T> _view;
    double _casterDistance;
    int _resolution;
    GeDepthRange _range;
};

extern template class GeCascadeBuilder<float>;
extern template class GeCascadeBuilder<double>;

} // namespace Zq

#endif
