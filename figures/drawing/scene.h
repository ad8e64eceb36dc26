#ifndef ZQ_FIGURES_DRAWING_SCENE_H
#define ZQ_FIGURES_DRAWING_SCENE_H

#include "camera.h"
#include "light.h"
#include "raster.h"
#include "solid.h"

#include <functional>

namespace Figures
{

/// An area of a picture with a camera that looks at solids: opaque ones first, then glass, from back to front, and lines
/// in between. Lines are drawn over what hides them with a lower opacity. Nothing is drawn outside the area.
class Scene
{
public:
    /// The colour of a surface at a place.
    using Paint = std::function<Color( const Zq::GePoint3<float>& )>;

    /// What the picture shows there is the background. The camera gets the area's aspect, and
    /// the depth range of the raster.
    Scene( const Canvas& picture, const Area& area, Examples::Camera camera );

    void drawSolid( const Solid& solid, const Color& color, float gloss = 0 );
    void drawSolid( const Solid& solid, const Paint& paint, float gloss = 0 );
    /// As it is, whatever the light.
    void drawFlat( const Solid& solid, const Paint& paint );
    /// The faces that look away first, then the others, each mixed over what is behind.
    void drawGlass( const Solid& solid, const Color& color, float opacity );
    void drawEdges( const Solid& solid, double width, const Color& color, double hiddenOpacity );
    void drawBall( const Zq::GePoint3<float>& center, float radius, const Color& color, float gloss = 0.3F );
    /// A ball whose colour depends on the place.
    void drawBall( const Zq::GePoint3<float>& center, float radius, const Paint& paint, float gloss );

    /// A corner of a curved surface.
    struct Corner
    {
        Zq::GePoint3<float> position;
        Zq::GeVector3<float> normal; // of any length
    };
    void drawTriangle( const std::array<Corner, 3>& corners, const Color& color, float gloss );

    void drawLine( const Zq::GePoint3<float>& begin, const Zq::GePoint3<float>& end, double width, const Color& color,
        double hiddenOpacity );
    void drawLine(
        const std::vector<Zq::GePoint3<float>>& points, double width, const Color& color, double hiddenOpacity );
    /// Dashes and gaps of that length in the scene.
    void drawDashes( const Zq::GePoint3<float>& begin, const Zq::GePoint3<float>& end, float length, double width,
        const Color& color, double hiddenOpacity );
    /// The outline of a polygon.
    void drawRim( const Polygon& polygon, double width, const Color& color, double hiddenOpacity );
    /// A line with a head; the head is as long as a part of the whole.
    void drawArrow(
        const Zq::GePoint3<float>& begin, const Zq::GePoint3<float>& end, float thickness, const Color& color );

    /// Where a point is on the picture.
    Spot computeSpot( const Zq::GePoint3<float>& point ) const;
    const Zq::GePoint3<float>& getEye() const { return _camera.eye; }
    bool isFacing( const Zq::GePoint3<float>& point, const Zq::GeVector3<float>& normal ) const;

    /// Puts what was drawn into the picture.
    void finish( Canvas& picture ) const { picture.paste( _raster.resolve(), _area.x, _area.y ); }

private:
    Zq::GeHomogeneousCoord3<double> transform( const Zq::GePoint3<float>& point ) const;
    void drawPolygon( const Polygon& polygon, const Raster::Shader& shader, float opacity );

    Area _area;
    Examples::Camera _camera;
    Zq::GeProjectiveMatrix3<double> _clipMatrix;
    Studio _studio;
    Raster _raster;
};

} // namespace Figures

#endif
