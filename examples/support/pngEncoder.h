#ifndef ZQ_EXAMPLES_SUPPORT_PNGENCODER_H
#define ZQ_EXAMPLES_SUPPORT_PNGENCODER_H

#include "canvas.h"

#include <string>

namespace Examples
{

/// The bytes of a PNG file, 8 bits a channel. Throws std::runtime_error when libpng refuses.
std::string encodePng( const Canvas& canvas );

} // namespace Examples

#endif
