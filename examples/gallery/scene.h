#ifndef ZQ_EXAMPLES_GALLERY_SCENE_H
#define ZQ_EXAMPLES_GALLERY_SCENE_H

#include "camera.h"
#include "light.h"
#include "raster.h"
#include "solid.h"

#include <functional>

namespace Gallery
{

/// Where something lands on a picture, in pixels.
struct Spot
{
    float x;
    float y;
};

/// A part of a picture with a camera that looks at solids: opaque ones first, then glass, from back to front, and lines
/// in between. Lines are drawn over what hides them with a lower opacity.
class Scene
{
public:
    /// The colour of a surface at a place.
    using Paint = std::function<Examples::Color( const Zq::GePoint3<float>& )>;

    /// The viewport gets the camera's aspect.
    Scene( const Examples::Canvas& background, const Examples::Viewport& viewport, Examples::Camera camera );

    void drawSolid( const Solid& solid, const Examples::Color& color, float gloss = 0 );
    void drawSolid( const Solid& solid, const Paint& paint, float gloss = 0 );
    /// As it is, whatever the light.
    void drawFlat( const Solid& solid, const Paint& paint );
    /// The faces that look away first, then the others, each mixed over what is behind.
    void drawGlass( const Solid& solid, const Examples::Color& color, float opacity );
    void drawEdges( const Solid& solid, double width, const Examples::Color& color, double hiddenOpacity );
    void drawLine( const Zq::GePoint3<float>& begin, const Zq::GePoint3<float>& end, double width,
        const Examples::Color& color, double hiddenOpacity );
    /// A line with a head; the head is as long as a part of the whole.
    void drawArrow( const Zq::GePoint3<float>& begin, const Zq::GePoint3<float>& end, float thickness,
        const Examples::Color& color );
    void drawBall( const Zq::GePoint3<float>& center, float radius, const Examples::Color& color );

    Spot computeSpot( const Zq::GePoint3<float>& point ) const;
    const Zq::GePoint3<float>& getEye() const { return _camera.eye; }

    Examples::Canvas resolve() const { return _raster.resolve(); }

private:
    Zq::GeHomogeneousCoord3<double> transform( const Zq::GePoint3<float>& point ) const;
    void drawPolygon( const Polygon& polygon, const Examples::Raster::Shader& shader, float opacity );

    Examples::Camera _camera;
    Zq::GeProjectiveMatrix3<double> _clipMatrix;
    Examples::Studio _studio;
    Examples::Raster _raster;
};

} // namespace Gallery

#endif
