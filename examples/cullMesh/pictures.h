#ifndef ZQ_EXAMPLES_CULLMESH_PICTURES_H
#define ZQ_EXAMPLES_CULLMESH_PICTURES_H

#include "canvas.h"
#include "tally.h"
#include "viewpoints.h"

namespace CullMesh
{

constexpr int PICTURE_WIDTH = 1280;
constexpr int PICTURE_HEIGHT = 960;

/// What there is to show of one camera.
struct Shot
{
    const Mesh& mesh;
    const std::vector<Cluster>& clusters;
    const Camera& camera;
    const std::vector<Verdict>& verdicts;
    Tally tally;
};

/// The view from the camera, drawn from the visible clusters alone: the proof that the others were not needed.
Examples::Canvas drawView( const Shot& shot );

/// The camera, its frustum and the mesh from outside, each cluster in the colour of its verdict.
Examples::Canvas drawScene( const Shot& shot );

} // namespace CullMesh

#endif
