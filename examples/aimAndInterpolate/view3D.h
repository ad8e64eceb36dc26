#ifndef ZQ_EXAMPLES_AIMANDINTERPOLATE_VIEW3D_H
#define ZQ_EXAMPLES_AIMANDINTERPOLATE_VIEW3D_H

#include "polyline.h"
#include "raster.h"
#include "rotationTrack.h"

#include <zq/primitives/geProjectiveMatrix3.h>

namespace AimAndInterpolate
{

/// A rectangle of a picture, in pixels.
struct Area
{
    int x;
    int y;
    int width;
    int height;
};

/// A part of a picture that shows the world from a place, drawn with depth. Balls first, then lines, then finish(), then
/// marks.
class View3D
{
public:
    /// `fieldOfView` from bottom to top, in radians.
    View3D( Examples::Canvas& picture, const Area& area, const Zq::GePoint3<double>& eye,
        const Zq::GePoint3<double>& target, double fieldOfView );

    void drawBall( const Zq::GePoint3<double>& center, double radius, const Examples::Color& color, float gloss );
    /// A chain of lines, drawn whole where nothing is in front and with `hiddenOpacity` elsewhere.
    void drawLine( const std::vector<Zq::GePoint3<double>>& points, double width, const Examples::Color& color,
        double hiddenOpacity = 0.15 );
    /// Puts what was drawn into the picture.
    void finish();
    /// Where a point is in the picture.
    Examples::Pixel computePixel( const Zq::GePoint3<double>& point ) const;
    bool isFacing( const Zq::GePoint3<double>& point, const Zq::GeVector3<double>& normal ) const;

private:
    Zq::GeHomogeneousCoord3<double> project( const Zq::GePoint3<double>& point ) const;

    Examples::Canvas& _picture;
    Area _area;
    Zq::GePoint3<double> _eye;
    Rotation _rotation;
    Zq::GeProjectiveMatrix3<double> _toClip;
    Examples::Raster _raster;
};

} // namespace AimAndInterpolate

#endif
