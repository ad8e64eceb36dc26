#ifndef ZQ_FIGURES_DRAWING_SOLID_H
#define ZQ_FIGURES_DRAWING_SOLID_H

#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/gePlane3.h>
#include <zq/primitives/geShaft.h>

#include <vector>

namespace Figures
{

/// Corners in order, counter-clockwise seen from outside.
using Polygon = std::vector<Zq::GePoint3<float>>;

/// The surface of a solid, as plane polygons.
struct Solid
{
    std::vector<Polygon> faces;
};

Solid makeBox( const Zq::GeAlignedBox3<float>& box );

/// What is left of a convex solid where the plane's value is negative; no faces if nothing is.
Solid cut( const Solid& solid, const Zq::GePlane3<float>& plane );

/// The extent box, cut by all planes of the shaft.
Solid makeShaftSolid( const Zq::GeShaft& shaft );

/// The volume inside the six planes; it must lie within 100 of the origin.
Solid makeFrustumSolid( const Zq::GeFrustum<float>& frustum );

/// A truncated cone about an axis of length 1: a disc about `bottom`, another one `height` further along the axis.
/// A radius may be 0.
Solid makeTruncatedCone( const Zq::GePoint3<float>& bottom, const Zq::GeVector3<float>& axis, float bottomRadius,
    float topRadius, float height );

/// Two directions of length 1 that are square to a direction and to each other: u, v, axis are right-handed.
void makeFrame( const Zq::GeVector3<float>& axis, Zq::GeVector3<float>& u, Zq::GeVector3<float>& v );

} // namespace Figures

#endif
