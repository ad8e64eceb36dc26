#ifndef ZQ_FIGURES_GALLERY_PICTURES_H
#define ZQ_FIGURES_GALLERY_PICTURES_H

#include "canvas.h"
#include "objFile.h"

namespace Figures
{

/// The pictures of the documents, each drawn with the answers of the classes that it shows. Some add their solids to a
/// file.

Canvas drawShaftPicture( ObjFile& file );
Canvas drawFrustumPicture( ObjFile& file );
Canvas drawSlackPicture();
Canvas drawViewVolumesPicture();
Canvas drawConesPicture( ObjFile& file );
Canvas drawSamplesPicture();
Canvas drawColorsPicture();
Canvas drawClippingPicture();
Canvas drawPlanesPicture();
Canvas drawSpheresPicture();
Canvas drawRotationsPicture();
Canvas drawTracksPicture();
/// Those of examples/manyObjects, for its own city.
Canvas drawCityViewsPicture();
Canvas drawCityStereoPicture();
Canvas drawCityDeepPicture();
/// That of examples/cullMesh, for its own camera and mesh.
Canvas drawCullMeshPicture();

} // namespace Figures

#endif
