#ifndef ZQ_EXAMPLES_CULLMESH_VIEWPOINTS_H
#define ZQ_EXAMPLES_CULLMESH_VIEWPOINTS_H

#include "camera.h"

#include <vector>

namespace CullMesh
{

using Examples::Camera;
using Examples::makeClipMatrix;
using Examples::makeView;

/// Sets the clip planes snugly in front of and behind the points; where the eye is among them, the near plane stays a
/// little in front of the eye.
void fitClipPlanes( Camera& camera, const std::vector<Zq::GePoint3<float>>& points );

/// Viewpoints spread evenly over the directions from the origin, their distances taken from the list in turn.
std::vector<Zq::GePoint3<float>> makeOrbit( std::size_t nbEyes, const std::vector<float>& distances );

} // namespace CullMesh

#endif
