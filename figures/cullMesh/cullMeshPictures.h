#ifndef ZQ_FIGURES_CULLMESH_CULLMESHPICTURES_H
#define ZQ_FIGURES_CULLMESH_CULLMESHPICTURES_H

#include "canvas.h"
#include "legend.h"
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
Figures::Canvas drawView( const Shot& shot );

/// The camera, what it sees and the mesh from outside, each cluster in the colour of its verdict.
Figures::Canvas drawScene( const Shot& shot );

/// Both side by side, with the number of pixels that change when the culled clusters are drawn, too.
Figures::Canvas drawSides( const Shot& shot );

// The parts of these pictures: the view, from the visible clusters or from all; the scene with its labels; its legend.
void addView( Figures::Canvas& picture, const Figures::Area& area, const Shot& shot, bool hasCulled );
void addScene( Figures::Canvas& picture, const Figures::Area& area, const Shot& shot );
std::vector<Figures::LegendRow> makeLegend( const Shot& shot );

} // namespace CullMesh

#endif
