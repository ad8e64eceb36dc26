#include "legend.h"

#include "text.h"

#include <algorithm>

namespace Examples
{

namespace
{

constexpr float MARGIN = 28;
constexpr float SIZE = 12; // of the letters
constexpr float ROW_HEIGHT = 30;
constexpr float SWATCH = 18;
constexpr float GAP = 22;
constexpr float PADDING = 16;

const Color& getInk()
{
    static const Color ink = makeColor( 0x22303C );
    return ink;
}

const Color& getPaleInk()
{
    static const Color ink = makeColor( 0x5C6B78 );
    return ink;
}

} // namespace

void drawCaption( Canvas& canvas, const std::string& title, const std::string& subtitle )
{
    drawText( canvas, MARGIN, MARGIN + 22, 22, title, getInk(), 1.2F );
    drawText( canvas, MARGIN, MARGIN + 54, 13, subtitle, getPaleInk() );
}

void drawLegend( Canvas& canvas, const std::vector<std::string>& headings, const std::vector<LegendRow>& rows )
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
    const float top = static_cast<float>( canvas.getHeight() ) - MARGIN - height;
    canvas.fillRoundedRectangle( MARGIN, top, width, height, 10, makeColor( 0xFFFFFF ), 0.82F );

    const auto drawValues = [&]( const std::vector<std::string>& values, float baseline, const Color& color )
    {
        float right = MARGIN + PADDING + SWATCH + GAP / 2 + labelWidth;
        for ( std::size_t i = 0; i < values.size(); ++i )
        {
            right += GAP + columnWidths[i];
            drawText( canvas, right - measureText( values[i], SIZE ), baseline, SIZE, values[i], color );
        }
    };
    float baseline = top + PADDING + SIZE;
    if ( !headings.empty() )
    {
        drawValues( headings, baseline, getPaleInk() );
        baseline += ROW_HEIGHT;
    }
    for ( const LegendRow& row : rows )
    {
        const float left = MARGIN + PADDING;
        canvas.fillRoundedRectangle( left, baseline - ( SIZE + SWATCH ) / 2, SWATCH, SWATCH, 4, row.color, 1 );
        drawText( canvas, left + SWATCH + GAP / 2, baseline, SIZE, row.label, getInk() );
        drawValues( row.values, baseline, getInk() );
        baseline += ROW_HEIGHT;
    }
}

} // namespace Examples
