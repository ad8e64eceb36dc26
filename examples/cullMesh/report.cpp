#include "report.h"

#include "numberText.h"

#include <nlohmann/json.hpp>

#include <iomanip>
#include <ostream>

namespace CullMesh
{

namespace
{

using Examples::makeCountText;
using Examples::makeDecimalText;
using Examples::makeGroupedText;
using Json = nlohmann::ordered_json;

double computePer( double seconds, std::size_t count )
{
    return count > 0 ? seconds * 1e9 / static_cast<double>( count ) : 0;
}

double computeShare( const Count& count, const Tally& tally )
{
    return static_cast<double>( count.triangles ) / static_cast<double>( tally.computeTotal().triangles );
}

// The share of triangles that face away or are out of view, looked at one by one.
double computeSparable( const Report& report )
{
    return 1 -
        static_cast<double>( report.check.needed ) / static_cast<double>( report.tally.computeTotal().triangles );
}

void printRow( std::ostream& os, const std::string& label, const Count& count, const Tally& tally )
{
    os << "  " << std::left << std::setw( 26 ) << label << std::right << std::setw( 12 )
       << makeGroupedText( count.clusters ) << std::setw( 15 ) << makeGroupedText( count.triangles ) << std::setw( 10 )
       << makeDecimalText( 100 * computeShare( count, tally ), 1 ) << " %\n";
}

void printMesh( std::ostream& os, const Report& report )
{
    const Preparation& preparation = report.preparation;
    os << report.meshName << ": " << makeCountText( report.nbTriangles, "triangle" ) << ", "
       << makeCountText( report.nbPoints, "point" ) << '\n'
       << "  " << makeCountText( preparation.nbTrianglesDropped, "triangle" ) << " without area dropped, "
       << makeCountText( preparation.nbPointsWelded, "point" ) << " welded\n"
       << "  scaled by " << preparation.scale << " about " << preparation.center << " to radius 1 about the origin\n"
       << "  " << makeCountText( report.nbClusters, "cluster" ) << " of at most "
       << makeCountText( report.clusterSize, "triangle" ) << "; the cone of "
       << makeGroupedText( report.withoutCone.clusters ) << " is not usable\n";
}

void printCamera( std::ostream& os, const Options& options, const Report& report )
{
    const Camera& camera = report.cameras.front();
    if ( options.nbOrbitEyes == 0 )
    {
        os << "one eye at " << camera.eye << " looks at " << camera.target << '\n';
    }
    else
    {
        os << makeCountText( options.nbOrbitEyes, "eye" ) << " around the origin, at distances in turn";
        for ( const float distance : options.orbitDistances )
        {
            os << ' ' << distance;
        }
        os << '\n';
    }
    os << "  " << options.fieldOfViewDegrees << " degrees high, aspect " << camera.aspect << ", depth "
       << options.depth.word;
    if ( options.nbOrbitEyes == 0 )
    {
        os << ", near " << camera.nearDistance;
        if ( options.depth.hasFarPlane )
        {
            os << ", far " << camera.farDistance;
        }
    }
    os << '\n';
}

Json makeJson( const Count& count )
{
    return { { "clusters", count.clusters }, { "triangles", count.triangles } };
}

Json makeJson( const Zq::GePoint3<double>& point )
{
    return { point.getX(), point.getY(), point.getZ() };
}

Json makeJson( const Camera& camera )
{
    // a far plane at infinity becomes null
    return { { "eye", makeJson( Zq::GePoint3<double>( camera.eye ) ) },
        { "target", makeJson( Zq::GePoint3<double>( camera.target ) ) }, { "near", camera.nearDistance },
        { "far", camera.farDistance } };
}

} // namespace

void printReport( std::ostream& os, const Options& options, const Report& report )
{
    printMesh( os, report );
    printCamera( os, options, report );

    const Tally& tally = report.tally;
    os << "\n  " << std::left << std::setw( 26 ) << "verdict" << std::right << std::setw( 12 ) << "clusters"
       << std::setw( 15 ) << "triangles" << std::setw( 12 ) << "share\n";
    printRow( os, "outside", tally.outside, tally );
    printRow( os, "behind", tally.behind, tally );
    printRow( os, "visible", tally.visible, tally );
    printRow( os, "  cone not usable", tally.visibleWithoutCone, tally );
    printRow( os, "total", tally.computeTotal(), tally );
    os << "\n  culled: " << makeDecimalText( 100 * tally.computeShareCulled(), 1 ) << " % of all triangles, of the "
       << makeDecimalText( 100 * computeSparable( report ), 1 ) << " % that face away or lie out of view\n";

    const Timing& timing = report.timing;
    os << "  nanoseconds per cluster: "
       << makeDecimalText( computePer( timing.splitting + timing.bounding, report.nbClusters ), 0 ) << " for building, "
       << makeDecimalText( computePer( timing.boxTests, report.nbClusters ), 1 ) << " for the box test, "
       << makeDecimalText( computePer( timing.coneTests, report.nbClusters ), 1 ) << " for the cone test\n"
       << "  seconds: " << makeDecimalText( timing.making + timing.preparation, 3 ) << " to make the mesh; "
       << makeDecimalText( timing.splitting, 3 ) << " to split it, " << makeDecimalText( timing.bounding, 3 )
       << " to bound the clusters, " << makeDecimalText( timing.culling, 6 ) << " to cull them for one eye\n"
       << "  self-check in double precision: " << makeCountText( report.check.computeViolations(), "violation" )
       << '\n';
}

std::string makeJson( const Options& options, const Report& report )
{
    const Preparation& preparation = report.preparation;
    const Tally& tally = report.tally;
    const Timing& timing = report.timing;
    Json json;
    json["mesh"] = { { "name", report.meshName }, { "triangles", report.nbTriangles }, { "points", report.nbPoints },
        { "trianglesDropped", preparation.nbTrianglesDropped }, { "pointsWelded", preparation.nbPointsWelded },
        { "center", makeJson( preparation.center ) }, { "scale", preparation.scale } };
    json["clusters"] = { { "count", report.nbClusters }, { "maxTriangles", report.clusterSize },
        { "coneNotUsable", report.withoutCone.clusters } };
    json["view"] = {
        { "fov", options.fieldOfViewDegrees }, { "aspect", options.aspect }, { "depth", options.depth.word } };
    json["cameras"] = Json::array();
    for ( const Camera& camera : report.cameras )
    {
        json["cameras"].push_back( makeJson( camera ) );
    }
    json["verdicts"] = { { "outside", makeJson( tally.outside ) }, { "behind", makeJson( tally.behind ) },
        { "visible", makeJson( tally.visible ) }, { "visibleConeNotUsable", makeJson( tally.visibleWithoutCone ) },
        { "total", makeJson( tally.computeTotal() ) } };
    json["shareCulled"] = tally.computeShareCulled();
    json["shareSparable"] = computeSparable( report );
    json["nanosecondsPerCluster"] = {
        { "building", computePer( timing.splitting + timing.bounding, report.nbClusters ) },
        { "boxTest", computePer( timing.boxTests, report.nbClusters ) },
        { "coneTest", computePer( timing.coneTests, report.nbClusters ) } };
    json["seconds"] = { { "mesh", timing.making + timing.preparation }, { "splitting", timing.splitting },
        { "bounding", timing.bounding }, { "culling", timing.culling } };
    json["violations"] = { { "behind", report.check.behindButTurned }, { "outside", report.check.outsideButIn } };
    // names of files may hold any bytes
    return json.dump( 2, ' ', false, Json::error_handler_t::replace ) + '\n';
}

} // namespace CullMesh
