#include "legend.h"

#include "palette.h"
#include "polyline.h"
#include "text.h"

#include <algorithm>

namespace Figures
{

namespace
{

constexpr float SIZE = 12; // of the letters
constexpr float ROW_HEIGHT = 28;
constexpr float SWATCH = 18;
constexpr float GAP = 22;
constexpr float PADDING = 16;

void drawMark( Canvas& canvas, float left, float top, const LegendRow& row )
{
    const float middle = top + SWATCH / 2;
    const Spot begin = { left, middle };
    const Spot end = { left + SWATCH, middle };
    switch ( row.mark )
    {
    case Mark::SURFACE:
        canvas.fillRoundedRectangle( left, top, SWATCH, SWATCH, 4, row.color, 1 );
        break;
    case Mark::STRIPES:
        canvas.fillRoundedRectangle( left, top, SWATCH, SWATCH, 0, row.color, 1 );
        for ( int x = 0; x < static_cast<int>( SWATCH ); ++x )
        {
            for ( int y = 0; y < static_cast<int>( SWATCH ); ++y )
            {
                const float isSecond = ( x + y ) % 9 < 5 ? 1.0F : 0.0F;
                canvas.blend( static_cast<int>( left ) + x, static_cast<int>( top ) + y, row.second, isSecond );
            }
        }
        break;
    case Mark::LINE:
        drawStroke( canvas, begin, end, 2, row.color );
        break;
    case Mark::THICK_LINE:
        drawStroke( canvas, begin, end, 5, row.color );
        break;
    case Mark::DASHES:
        drawDashes( canvas, { begin, end }, 2, row.color, 5, 4 );
        break;
    case Mark::BALL:
    case Mark::RING:
        canvas.fillDisc( left + SWATCH / 2, middle, 6, row.color );
        if ( row.mark == Mark::RING )
        {
            canvas.fillDisc( left + SWATCH / 2, middle, 3, getPalette().white );
        }
        break;
    }
}

} // namespace

void drawLegend( Canvas& canvas, float x, float bottom, const std::vector<std::string>& headings,
    const std::vector<LegendRow>& rows )
{
    float labelWidth = 0;
    std::vector<float> columnWidths;
    columnWidths.reserve( headings.size() );
    for ( const std::string& heading : headings )
    {
        columnWidths.push_back( measureText( heading, SIZE ) );
    }
    for ( const LegendRow& row : rows )
    {
        labelWidth = std::max( labelWidth, measureText( row.label, SIZE ) );
        for ( std::size_t i = 0; i < headings.size(); ++i )
        {
            columnWidths[i] = std::max( columnWidths[i], measureText( row.values[i], SIZE ) );
        }
    }
    float width = 2 * PADDING + SWATCH + GAP / 2 + labelWidth;
    for ( const float columnWidth : columnWidths )
    {
        width += GAP + columnWidth;
    }
    const std::size_t nbLines = rows.size() + ( headings.empty() ? 0 : 1 );
    const float height = 2 * PADDING + ROW_HEIGHT * static_cast<float>( nbLines ) - ( ROW_HEIGHT - SIZE );
    const float top = bottom - height;
    canvas.fillRoundedRectangle( x, top, width, height, 10, getPalette().white, 0.85F );

    const auto drawValues = [&]( const std::vector<std::string>& values, float baseline, const Color& color )
    {
        float right = x + PADDING + SWATCH + GAP / 2 + labelWidth;
        for ( std::size_t i = 0; i < values.size(); ++i )
        {
            right += GAP + columnWidths[i];
            drawText( canvas, right - measureText( values[i], SIZE ), baseline, SIZE, values[i], color );
        }
    };
    float baseline = top + PADDING + SIZE;
    if ( !headings.empty() )
    {
        drawValues( headings, baseline, getPalette().paleInk );
        baseline += ROW_HEIGHT;
    }
    for ( const LegendRow& row : rows )
    {
        const float left = x + PADDING;
        drawMark( canvas, left, baseline - ( SIZE + SWATCH ) / 2, row );
        drawText( canvas, left + SWATCH + GAP / 2, baseline, SIZE, row.label, getPalette().ink );
        drawValues( row.values, baseline, getPalette().ink );
        baseline += ROW_HEIGHT;
    }
}

} // namespace Figures
