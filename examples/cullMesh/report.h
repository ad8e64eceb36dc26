#ifndef ZQ_EXAMPLES_CULLMESH_REPORT_H
#define ZQ_EXAMPLES_CULLMESH_REPORT_H

#include "options.h"
#include "selfCheck.h"
#include "tally.h"
#include "timing.h"

#include <iosfwd>

namespace CullMesh
{

/// Everything that a run found out.
struct Report
{
    std::string meshName;
    Preparation preparation;
    std::size_t nbPoints = 0;
    std::size_t nbTriangles = 0;
    std::size_t nbClusters = 0;
    std::size_t clusterSize = 0;
    Count withoutCone; // clusters of the mesh whose cone is not usable
    std::vector<Camera> cameras;
    Tally tally; // over all cameras
    SelfCheck check;
    Timing timing;
};

/// For people; ends with a line end.
void printReport( std::ostream& os, const Options& options, const Report& report );

/// The same for programs: a JSON object.
std::string makeJson( const Options& options, const Report& report );

} // namespace CullMesh

#endif
