// cullMesh: from a camera, which clusters of a mesh need not be drawn?
//
// The page to copy from is culling.h, with clusters.cpp for the bounds and support/camera.h for the matrices. What
// draws is in figures/cullMesh.

#include "commandLine.h"
#include "cullMeshPictures.h"
#include "meshFile.h"
#include "options.h"
#include "outputFiles.h"
#include "pngFile.h"
#include "progressLine.h"
#include "report.h"
#include "teapot.h"
#include "timing.h"

#include <iostream>

namespace CullMesh
{

namespace
{

Mesh makeMesh( const Options& options, Report& report )
{
    const Stopwatch making;
    RawMesh raw = options.meshFile.empty() ? makeTeapot( options.teapotSegments ) : loadMesh( options.meshFile );
    if ( options.isYUp )
    {
        turnUp( raw );
    }
    report.timing.making = making.getSeconds();

    const Stopwatch preparation;
    Mesh mesh = prepareMesh( raw, report.preparation );
    report.timing.preparation = preparation.getSeconds();
    report.meshName = raw.name;
    report.nbPoints = mesh.points.size();
    report.nbTriangles = mesh.triangles.size();
    return mesh;
}

std::vector<Cluster> splitAndBound( Mesh& mesh, const Options& options, Report& report )
{
    const Stopwatch splitting;
    const std::vector<TriangleRange> ranges = splitIntoRanges( mesh, options.clusterSize );
    report.timing.splitting = splitting.getSeconds();

    const Stopwatch bounding;
    std::vector<Cluster> clusters = makeClusters( mesh, ranges );
    report.timing.bounding = bounding.getSeconds();
    report.nbClusters = clusters.size();
    report.clusterSize = options.clusterSize;
    for ( const Cluster& cluster : clusters )
    {
        if ( !cluster.isConeUsable )
        {
            report.withoutCone.add( cluster );
        }
    }
    return clusters;
}

// The verdicts of every camera, counted and checked; those of the last one stay in `verdicts`.
void cull( const Mesh& mesh, const std::vector<Cluster>& clusters, Culler& culler, Report& report,
    std::vector<Verdict>& verdicts )
{
    Examples::ProgressLine progress( "culling for eye", report.cameras.size() );
    for ( std::size_t i = 0; i < report.cameras.size(); ++i )
    {
        progress.show( i );
        const Camera& camera = report.cameras[i];
        const Stopwatch culling;
        const Zq::GeViewVolume<float> volume( makeClipMatrix<float>( camera ), camera.range );
        culler.judge( volume, camera.eye, verdicts );
        report.timing.culling += culling.getSeconds() / static_cast<double>( report.cameras.size() );

        report.tally.add( clusters, verdicts );
        report.check.add( mesh, clusters, camera, verdicts );
    }
}

int run( const Options& options )
{
    for ( const std::filesystem::path& path : options.getOutputs() )
    {
        Examples::checkWritable( path );
    }
    Report report;
    Mesh mesh = makeMesh( options, report );
    const std::vector<Cluster> clusters = splitAndBound( mesh, options, report );
    report.cameras = makeCameras( options, mesh.points );
    std::vector<Verdict> verdicts;
    Culler culler( clusters );
    cull( mesh, clusters, culler, report, verdicts );
    measureTests( culler, report.cameras.front(), report.timing );

    std::vector<Examples::OutputFile> files;
    if ( options.hasPictures )
    {
        const Shot shot = { mesh, clusters, report.cameras.front(), verdicts, report.tally };
        files.push_back( { options.viewFile, Figures::encodePng( drawView( shot ) ) } );
        files.push_back( { options.sceneFile, Figures::encodePng( drawScene( shot ) ) } );
    }
    if ( !options.jsonFile.empty() && !options.isJsonPrinted() )
    {
        files.push_back( { options.jsonFile, makeJson( options, report ) } );
    }
    Examples::writeAll( files );

    if ( options.isJsonPrinted() )
    {
        std::cout << makeJson( options, report );
    }
    std::ostream& people = options.isJsonPrinted() ? std::cerr : std::cout;
    printReport( people, options, report );
    for ( const Examples::OutputFile& file : files )
    {
        people << "  wrote " << file.path.string() << '\n';
    }
    return report.check.computeViolations() == 0 ? 0 : 1;
}

} // namespace

} // namespace CullMesh

int main( int argc, char** argv )
{
    using namespace CullMesh;
    return Examples::runProgram( "cullMesh",
        [&]
        {
            const std::optional<Options> options = parseOptions( argc, argv );
            return options ? run( *options ) : 0;
        } );
}
