#ifndef ZQ_EXAMPLES_GALLERY_PICTURES_H
#define ZQ_EXAMPLES_GALLERY_PICTURES_H

#include "canvas.h"
#include "objFile.h"

namespace Gallery
{

/// Six pictures, each drawn with the answers of the classes that it shows. Some add their solids to a file.

Examples::Canvas drawShaftPicture( ObjFile& file );
Examples::Canvas drawFrustumPicture( ObjFile& file );
Examples::Canvas drawConesPicture( ObjFile& file );
Examples::Canvas drawSamplesPicture();
Examples::Canvas drawColorsPicture();
Examples::Canvas drawClippingPicture();

} // namespace Gallery

#endif
