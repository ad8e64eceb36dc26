#ifndef ZQ_FIGURES_DRAWING_PNGFILE_H
#define ZQ_FIGURES_DRAWING_PNGFILE_H

#include "canvas.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Figures
{

/// The bytes of a PNG file in true colour, as small as the format gets without loss.
std::string encodePng( const Canvas& canvas );

/// A picture as it is stored: rows from top to bottom, three bytes (sRGB) a pixel.
struct Rgb8
{
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;
};

/// Throws Examples::BadInput, which names the file, when that is no PNG file.
Rgb8 readPng( const std::string& path );

} // namespace Figures

#endif
