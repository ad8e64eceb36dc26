// The front door's picture: what its default camera need not draw, and that nothing is missing.

#include "pictures.h"

#include "cullMeshPictures.h"
#include "culling.h"
#include "options.h"
#include "teapot.h"

namespace Figures
{

Canvas drawCullMeshPicture()
{
    using namespace CullMesh;
    const char* const noArguments[] = { "cullMesh" };
    const Options options = *parseOptions( 1, noArguments );
    Preparation preparation;
    Mesh mesh = prepareMesh( makeTeapot( options.teapotSegments ), preparation );
    const std::vector<Cluster> clusters = makeClusters( mesh, splitIntoRanges( mesh, options.clusterSize ) );
    const Camera camera = makeCameras( options, mesh.points ).front();
    std::vector<Verdict> verdicts;
    const Zq::GeViewVolume<float> volume( makeClipMatrix<float>( camera ), camera.range );
    Culler( clusters ).judge( volume, camera.eye, verdicts );
    Tally tally;
    tally.add( clusters, verdicts );
    return drawSides( { mesh, clusters, camera, verdicts, tally } );
}

} // namespace Figures
