#ifndef ZQ_FIGURES_DRAWING_RASTER_H
#define ZQ_FIGURES_DRAWING_RASTER_H

#include "canvas.h"

#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/gePoint3.h>
#include <zq/primitives/geVector3.h>

#include <array>
#include <functional>
#include <vector>

namespace Figures
{

/// A corner of a triangle: where it lands in clip space (before the division by w; the near plane is z = -w, the far
/// plane z = w) and what is interpolated to the samples.
struct RasterVertex
{
    Zq::GeHomogeneousCoord3<double> clip;
    Zq::GePoint3<float> position;
    Zq::GeVector3<float> normal;
};

/// The part of a picture, in pixels, that clip space is mapped to.
struct Viewport
{
    double x;
    double y;
    double width;
    double height;
};

/// A depth-buffered picture with SUPERSAMPLING squared samples a pixel, drawn by a program alone. Opaque
/// surfaces are drawn first, then lines, which show through what hides them, and transparent surfaces.
class Raster
{
public:
    using Shader = std::function<Color( const Zq::GePoint3<float>& position, const Zq::GeVector3<float>& normal )>;

    /// Starts from a picture of the background, which also sets the size.
    Raster( const Canvas& background, const Viewport& viewport );

    /// Both sides are drawn. The shader is asked for each visible sample; the normal that it gets has no fixed length.
    /// With an opacity below 1 the colour is mixed over what is behind, and hides nothing that is drawn later.
    void drawTriangle( const std::array<RasterVertex, 3>& triangle, const Shader& shader, float opacity = 1 );

    /// `width` in pixels. Where a surface is in front, the line covers it with the opacity `hiddenOpacity`, 0 to 1.
    void drawLine( const Zq::GeHomogeneousCoord3<double>& begin, const Zq::GeHomogeneousCoord3<double>& end,
        double width, const Color& color, double hiddenOpacity );

    /// Where on the picture a point lands, in pixels; it must be in front of the near plane.
    Spot computeSpot( const Zq::GeHomogeneousCoord3<double>& clip ) const;

    /// The pixels as averages of their samples.
    Canvas resolve() const;

    static constexpr int SUPERSAMPLING = 3;

private:
    // x and y in samples, z the depth in [-1, 1], w that of clip space
    struct ScreenPoint
    {
        double x;
        double y;
        double z;
        double w;
    };

    ScreenPoint project( const Zq::GeHomogeneousCoord3<double>& clip ) const;
    // visit( sample, weights ) for every sample in a triangle; samples on a common edge belong to one triangle
    template <class Visitor>
    void visitSamples( std::array<ScreenPoint, 3> corners, Visitor visit ) const;
    void shadeTriangle( const std::array<RasterVertex, 3>& triangle, const Shader& shader, float opacity );

    int _width;  // in samples
    int _height; // in samples
    Viewport _viewport;
    std::vector<Color> _colors;
    std::vector<float> _depths;
};

} // namespace Figures

#endif
