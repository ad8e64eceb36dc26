#ifndef ZQ_PRIMITIVES_FORWARD_H
#define ZQ_PRIMITIVES_FORWARD_H

#include "../base/export.h"
#include "export.h"

/// Declarations of every geometry class, for headers that only name them. Visibility belongs to the first
/// declaration: clang hides a specialisation that was named before it was given.

namespace Zq
{

template <class T>
class ZQ_PRIMITIVES_API GeAffineMatrix3;
template <class T>
class ZQ_PRIMITIVES_API GeAlignedBox3;
template <class T>
class ZQ_PRIMITIVES_API GeAlignedBoxTree;
template <int axis, class T>
class ZQ_PRIMITIVES_API GeAxisRotation3;
template <class T>
class ZQ_PRIMITIVES_API GeBezier3FaceBuilder;
template <class T>
class ZQ_PRIMITIVES_API GeCameraBuilder;
template <class T>
class ZQ_PRIMITIVES_API GeCascadeBuilder;
template <class T>
class ZQ_PRIMITIVES_API GeDecomposition3;
template <class T>
class ZQ_PRIMITIVES_API GeFrustum;
template <class T>
class ZQ_PRIMITIVES_API GeHomogeneousCoord3;
template <class T>
class ZQ_PRIMITIVES_API GeLineFaceBuilder;
template <class T>
class ZQ_PRIMITIVES_API GeLinearMatrix3;
template <class T>
class ZQ_PRIMITIVES_API GeNormalizedPlane3;
template <class T>
class ZQ_PRIMITIVES_API GePlane3;
template <class T>
class ZQ_PRIMITIVES_API GePlane3Builder;
template <class T>
class ZQ_PRIMITIVES_API GePoint2;
template <class T>
class ZQ_PRIMITIVES_API GePoint3;
template <class T>
class ZQ_PRIMITIVES_API GeProjectionBuilder;
template <class T>
class ZQ_PRIMITIVES_API GeProjectiveMatrix3;
template <class T>
class ZQ_PRIMITIVES_API GeQuaternion3;
template <class T>
class ZQ_PRIMITIVES_API GeRotation3;
template <class T>
class ZQ_PRIMITIVES_API GeScale3;
template <class T>
class ZQ_PRIMITIVES_API GeSphere3;
template <class T>
class ZQ_PRIMITIVES_API GeTranslation3;
template <class T>
class ZQ_PRIMITIVES_API GeUnitVector2;
template <class T>
class ZQ_PRIMITIVES_API GeUnitVector3;
template <class T>
class ZQ_PRIMITIVES_API GeVector2;
template <class T>
class ZQ_PRIMITIVES_API GeVector2Utils;
template <class T>
class ZQ_PRIMITIVES_API GeVector3;
template <class T>
class ZQ_PRIMITIVES_API GeViewBuilder;
template <class T>
class ZQ_PRIMITIVES_API GeViewport;
template <class T>
class ZQ_PRIMITIVES_API GeViewVolume;
template <class T>
class ZQ_PRIMITIVES_API GeXAxisRotation3;
template <class T>
class ZQ_PRIMITIVES_API GeYAxisRotation3;
template <class T>
class ZQ_PRIMITIVES_API GeZAxisRotation3;
template <class T>
class ZQ_TEMPLATE_API RnRng;
template <class Arg, class Result>
class ZQ_TEMPLATE_API UnaryFunctor;

class ZQ_PRIMITIVES_API GeAlignedBoxBuilder;
class ZQ_PRIMITIVES_API GeAnchoredCone;
class ZQ_PRIMITIVES_API GeAnchoredConeBuilder;
class ZQ_PRIMITIVES_API GeCullingCones;
class ZQ_PRIMITIVES_API GeFloatingCone;
class ZQ_PRIMITIVES_API GeFloatingConeBuilder;
class ZQ_PRIMITIVES_API GeIcosahedron;
class ZQ_PRIMITIVES_API GeShaft;
class ZQ_PRIMITIVES_API GeTolerances;

} // namespace Zq

#endif
