#ifndef ZQ_EXAMPLES_CULLMESH_TIMING_H
#define ZQ_EXAMPLES_CULLMESH_TIMING_H

#include "culling.h"
#include "viewpoints.h"

#include <chrono>

namespace CullMesh
{

/// Seconds since it was made.
class Stopwatch
{
public:
    double getSeconds() const
    {
        return std::chrono::duration<double>( std::chrono::steady_clock::now() - _start ).count();
    }

private:
    std::chrono::steady_clock::time_point _start = std::chrono::steady_clock::now();
};

/// Seconds, for the whole mesh.
struct Timing
{
    double making = 0;      // tessellating the teapot, or loading the file
    double preparation = 0; // scaling, welding
    double splitting = 0;
    double bounding = 0;
    double culling = 0; // all verdicts for one eye
    double boxTests = 0;
    double coneTests = 0;
};

/// Fills in boxTests and coneTests: one question each about all clusters.
void measureTests( Culler& culler, const Camera& camera, Timing& timing );

} // namespace CullMesh

#endif
