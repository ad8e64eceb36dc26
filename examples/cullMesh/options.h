#ifndef ZQ_EXAMPLES_CULLMESH_OPTIONS_H
#define ZQ_EXAMPLES_CULLMESH_OPTIONS_H

#include "viewpoints.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace CullMesh
{

/// What --depth can be.
struct Depth
{
    const char* word;
    Zq::GeDepthRange range;
    bool hasFarPlane;
};

/// What the command line asks for, checked.
struct Options
{
    unsigned teapotSegments = 32;
    std::string meshFile; // empty: the teapot
    bool isYUp = false;   // the axis that points up in the mesh; z otherwise
    std::size_t clusterSize = 64;

    Zq::GePoint3<float> eye{ 1.2F, -1.9F, 0.45F };
    Zq::GePoint3<float> target{ -0.3F, 0, 0.05F };
    float fieldOfViewDegrees = 30;
    float aspect = 4.0F / 3.0F;
    std::optional<float> nearDistance; // none: fitted to the mesh
    std::optional<float> farDistance;
    Depth depth = { "minus-one-to-one", Zq::GeDepthRange::MINUS_ONE_TO_ONE, true };

    std::size_t nbOrbitEyes = 0; // 0: the one eye above
    std::vector<float> orbitDistances{ 1.25F, 2.5F, 6 };

    bool hasPictures = true;
    std::filesystem::path viewFile;
    std::filesystem::path sceneFile;
    std::filesystem::path jsonFile; // empty: none; "-": the standard output

    /// Whether the standard output belongs to the report for programs.
    bool isJsonPrinted() const { return jsonFile == "-"; }

    /// The files to be written.
    std::vector<std::filesystem::path> getOutputs() const;
};

/// Nothing when help was asked for, and printed. Throws Examples::BadInput.
std::optional<Options> parseOptions( int argc, const char* const* argv );

/// The cameras that the options describe: one, or those of the orbit, which look at the origin. Clip planes that were
/// not given are fitted to the points. Throws Examples::BadInput when there is nothing between the clip planes.
std::vector<Camera> makeCameras( const Options& options, const std::vector<Zq::GePoint3<float>>& points );

} // namespace CullMesh

#endif
