#ifndef ZQ_EXAMPLES_AIMANDINTERPOLATE_OPTIONS_H
#define ZQ_EXAMPLES_AIMANDINTERPOLATE_OPTIONS_H

#include <filesystem>
#include <optional>

namespace AimAndInterpolate
{

/// What the command line asks for, checked.
struct Options
{
    std::filesystem::path pictureFile = "aimAndInterpolate.png";
    int nbSteps = 8; // between one key and the next
    int nbSpins = 2;
};

/// Nothing when help was asked for, and printed. Throws Examples::BadInput.
std::optional<Options> parseOptions( int argc, const char* const* argv );

} // namespace AimAndInterpolate

#endif
