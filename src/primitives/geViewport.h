#ifndef ZQ_PRIMITIVES_GEVIEWPORT_H
#define ZQ_PRIMITIVES_GEVIEWPORT_H

#include "geProjectiveMatrix3.h"

#include <type_traits>

namespace Zq
{

/// Which clip space y the edge of the image has that y = 0 is on, the upper edge of row 0.
enum class GeImageRows
{
    FROM_PLUS_ONE, ///< images from top to bottom: Direct3D, Metal and WebGPU; also what most image files and windows mean
    FROM_MINUS_ONE ///< OpenGL, whose row 0 is the bottom one; Vulkan, whose clip space y points down
};

/// A camera and the image that it draws: from points to pixels and back. For float and double.
///
/// x counts pixels from the left edge of the image, y from the edge that GeImageRows names. Pixel (column, row) covers
/// the square from (column, row) to (column + 1, row + 1), and its centre is exactly (column + 0.5, row + 0.5): clip
/// space x there is (2 column + 1 - width) / width, rounded once, and opposite pixels have opposite numbers. Depth
/// is z / w, in the range of the projection.
///
/// The matrices are taken for the numbers that they are, and all is worked out in double. There is no inverse of the 4x4
/// matrix, which would cancel at large ratios of far and near: the projection is solved by its own few elements. In
/// float, at far / near of 1e6, moved and turned eyes, the error was at most one unit in the last place of the largest
/// coordinate of the point and the eye, in double 1e-12 of it (tests/primitives/viewportTest.cpp, against long double);
/// depth itself is as coarse as T and the range make it.
template <class T>
class ZQ_PRIMITIVES_API GeViewport
{
public:
    /// @name Construction
    /// @{

    /// A projection of GeProjectionBuilder or GeCameraBuilder, oblique ones and y down included, the matrix from the world to
    /// the camera, and the size of the image. Reports, from src/primitives/geViewport.imp, "width > 0 && height > 0",
    /// "isProjection( projection )" for a matrix of another shape or not finite, "isFinite( view )"; and "nonSingular"
    /// (src/base/matrix3x3Imp, line 126) for a view without inverse.
    GeViewport( const GeProjectiveMatrix3<T>& projection, const GeAffineMatrix3<T>& view, int width, int height,
        GeImageRows rows );

    /// @}

    /// @name Queries
    /// @{

    /// Where a point is drawn: x and y in pixels, z the depth. False, and nothing written, when the point is not before
    /// the eye of a perspective (w > 0), or the result does not fit T. What is outside the image or the depth range is
    /// not held back. A buffer of OpenGL holds ( z + 1 ) / 2 in its default range.
    bool project( const GePoint3<T>& point, GePoint3<T>& image ) const;

    /// The point that is drawn at x and y in pixels with the depth z. False, and nothing written, when no point before
    /// the eye of a perspective has that depth, or it is infinitely far, or the result does not fit T.
    bool unproject( const GePoint3<T>& image, GePoint3<T>& point ) const;

    /// All points that are drawn at x and y, in pixels: origin + t direction lies t before the camera, measured along
    /// the view. For a perspective the origin is the eye. The direction is not of unit length.
    void computeRay( T x, T y, GePoint3<T>& origin, GeVector3<T>& direction ) const;
    /// The same through the centre of a pixel.
    void computePixelRay( int column, int row, GePoint3<T>& origin, GeVector3<T>& direction ) const;
    /// @}

private:
    /// From pixels to clip space.
    double computeClip( int axis, double coordinate ) const;
    void computeImageRay( const double ( &place )[2], GePoint3<T>& origin, GeVector3<T>& direction ) const;

    GeProjectiveMatrix3<double> _projection;
    GeAffineMatrix3<double> _view;
    GeLinearMatrix3<double> _inverse; // of the linear block of the view
    int _size[2];
    GeImageRows _rows;
};

extern template class GeViewport<float>;
extern template class GeViewport<double>;

static_assert( std::is_trivially_copyable_v<GeViewport<float>> );
static_assert( std::is_trivially_copyable_v<GeViewport<double>> );

} // namespace Zq

#endif
