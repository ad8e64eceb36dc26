#include "planeMap.h"

#include "drawing.h"

namespace Figures
{

using namespace Zq;

GePoint3<double> PlaneMap::pointAt( double column, double row ) const
{
    return { x + ( column - area.x ) / scale, 0, -( depth + ( area.y + area.height - row ) / scale ) };
}

Spot PlaneMap::spotOf( const GePoint3<double>& point ) const
{
    return { static_cast<float>( area.x + ( point.getX() - x ) * scale ),
        static_cast<float>( area.y + area.height + ( point.getZ() + depth ) * scale ) };
}

void PlaneMap::fill( Canvas& canvas, const Paint& paint ) const
{
    for ( int row = area.y; row < area.y + area.height; ++row )
    {
        for ( int column = area.x; column < area.x + area.width; ++column )
        {
            Color sum;
            for ( const double dx : { 0.25, 0.75 } )
            {
                for ( const double dy : { 0.25, 0.75 } )
                {
                    sum = sum + paint( pointAt( column + dx, row + dy ), column, row ) * 0.25F;
                }
            }
            canvas.setPixel( column, row, sum );
        }
    }
}

void PlaneMap::drawLine( Canvas& canvas, const GePoint3<double>& begin, const GePoint3<double>& end, float width,
    const Color& color, bool isDashed ) const
{
    const auto shift = [this]( const Spot& spot ) -> Spot {
        return { spot.x - static_cast<float>( area.x ), spot.y - static_cast<float>( area.y ) };
    };
    Canvas part = canvas.cutOut( area );
    const std::vector<Spot> line = { shift( spotOf( begin ) ), shift( spotOf( end ) ) };
    if ( isDashed )
    {
        drawDashes( part, line, width, color, 6, 5 );
    }
    else
    {
        drawPolyline( part, line, width, color );
    }
    canvas.paste( part, area.x, area.y );
}

void PlaneMap::drawFrame( Canvas& canvas ) const
{
    Figures::drawFrame( canvas, area, 1.2F );
}

void drawFrame( Canvas& canvas, const Area& area, float width )
{
    const auto left = static_cast<float>( area.x );
    const auto top = static_cast<float>( area.y );
    const auto right = static_cast<float>( area.x + area.width );
    const auto bottom = static_cast<float>( area.y + area.height );
    drawPolyline( canvas, { { left, top }, { right, top }, { right, bottom }, { left, bottom }, { left, top } }, width,
        getPalette().ink );
}

} // namespace Figures
