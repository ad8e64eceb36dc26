#include "objFile.h"

#include <limits>
#include <locale>

namespace Figures
{

using namespace Zq;

ObjFile::ObjFile()
{
    _text.imbue( std::locale::classic() );
    _face.imbue( std::locale::classic() );
    _text.precision( std::numeric_limits<float>::max_digits10 );
    _text << "# made by gallery; z is up\n";
}

void ObjFile::beginObject( const std::string& name )
{
    _text << "o " << name << '\n';
}

void ObjFile::addSolid( const std::string& name, const Solid& solid )
{
    beginObject( name );
    for ( const Polygon& polygon : solid.faces )
    {
        beginFace();
        beginContour( polygon.front() );
        for ( std::size_t i = 1; i < polygon.size(); ++i )
        {
            addLine( polygon[i] );
        }
        endContour();
        endFace();
    }
}

void ObjFile::beginFace()
{
    _face.str( "f" );
    _face.seekp( 0, std::ios_base::end );
}

void ObjFile::beginContour( const GePoint3<float>& start )
{
    addLine( start );
}

void ObjFile::addLine( const GePoint3<float>& end )
{
    _text << "v " << end.getX() << ' ' << end.getY() << ' ' << end.getZ() << '\n';
    _face << ' ' << ++_nbVertices;
}

void ObjFile::endContour()
{
}

void ObjFile::endFace()
{
    _text << _face.str() << '\n';
}

std::string ObjFile::getText() const
{
    return _text.str();
}

} // namespace Figures
