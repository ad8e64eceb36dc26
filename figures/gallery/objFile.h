#ifndef ZQ_FIGURES_GALLERY_OBJFILE_H
#define ZQ_FIGURES_GALLERY_OBJFILE_H

#include "solid.h"

#include <zq/primitives/geLineFaceBuilder.h>

#include <sstream>
#include <string>

namespace Figures
{

/// Writes the faces that it receives in the Wavefront OBJ format. Holes are not supported: a face has one contour.
class ObjFile final : public Zq::GeLineFaceBuilder<float>
{
public:
    ObjFile();

    /// The faces that follow belong to a named object.
    void beginObject( const std::string& name );
    /// An object made of the faces of a solid.
    void addSolid( const std::string& name, const Solid& solid );

    void beginFace() override;
    void beginContour( const Zq::GePoint3<float>& start ) override;
    void addLine( const Zq::GePoint3<float>& end ) override;
    void endContour() override;
    void endFace() override;

    std::string getText() const;

private:
    std::ostringstream _text;
    std::ostringstream _face;
    std::size_t _nbVertices = 0;
};

} // namespace Figures

#endif
