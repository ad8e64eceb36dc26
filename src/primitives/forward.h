#ifndef ZQ_PRIMITIVES_FORWARD_H
#define ZQ_PRIMITIVES_FORWARD_H

/// Declarations of every geometry class, for headers that only name them.

namespace Zq
{

template <class T>
class GeAffineMatrix3;
template <class T>
class GeAlignedBox3;
template <class T>
class GeBezier3FaceBuilder;
template <class T>
class GeCameraBuilder;
template <class T>
class GeFrustum;
template <class T>
class GeHomogeneousCoord3;
template <class T>
class GeLineFaceBuilder;
template <class T>
class GeLinearMatrix3;
template <class T>
class GeNormalizedPlane3;
template <class T>
class GePlane3;
template <class T>
class GePlane3Builder;
template <class T>
class GePoint3;
template <class T>
class GeProjectiveMatrix3;
template <class T>
class GeUnitVector3;
template <class T>
class GeVector3;
template <class Arg, class Result>
class UnaryFunctor;

class GeAlignedBoxBuilder;
class GeAnchoredCone;
class GeAnchoredConeBuilder;
class GeCullingCones;
class GeFloatingCone;
class GeFloatingConeBuilder;

} // namespace Zq

#endif
