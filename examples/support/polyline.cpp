#include "polyline.h"

#include <algorithm>
#include <cmath>

namespace Examples
{

namespace
{

float computeDistance( float x, float y, const Pixel& a, const Pixel& b )
{
    const float dx = b[0] - a[0];
    const float dy = b[1] - a[1];
    const float lengthSquared = dx * dx + dy * dy;
    const float along = ( x - a[0] ) * dx + ( y - a[1] ) * dy;
    const float t = lengthSquared > 0 ? std::clamp( along / lengthSquared, 0.0F, 1.0F ) : 0.0F;
    return std::hypot( x - a[0] - t * dx, y - a[1] - t * dy );
}

// The pixels from the first to behind the last that the range touches, within 0 and size.
struct Span
{
    Span( float low, float high, int size )
        : first( static_cast<int>( std::clamp( std::floor( low ), 0.0F, static_cast<float>( size ) ) ) ),
          last( static_cast<int>( std::clamp( std::ceil( high ), 0.0F, static_cast<float>( size ) ) ) )
    {
    }
    int first;
    int last;
};

} // namespace

void drawPolyline( Canvas& canvas, const std::vector<Pixel>& points, float width, const Color& color, float opacity )
{
    const auto columns = static_cast<std::size_t>( canvas.getWidth() );
    std::vector<float> coverage( columns * static_cast<std::size_t>( canvas.getHeight() ) );
    const float reach = width / 2 + 1;
    for ( std::size_t i = 1; i < points.size(); ++i )
    {
        const Pixel& a = points[i - 1];
        const Pixel& b = points[i];
        const Span xs( std::min( a[0], b[0] ) - reach, std::max( a[0], b[0] ) + reach, canvas.getWidth() );
        const Span ys( std::min( a[1], b[1] ) - reach, std::max( a[1], b[1] ) + reach, canvas.getHeight() );
        for ( int y = ys.first; y < ys.last; ++y )
        {
            for ( int x = xs.first; x < xs.last; ++x )
            {
                const float distance =
                    computeDistance( static_cast<float>( x ) + 0.5F, static_cast<float>( y ) + 0.5F, a, b );
                float& covered = coverage[static_cast<std::size_t>( y ) * columns + static_cast<std::size_t>( x )];
                covered = std::max( covered, std::clamp( width / 2 + 0.5F - distance, 0.0F, 1.0F ) );
            }
        }
    }
    for ( std::size_t i = 0; i < coverage.size(); ++i )
    {
        canvas.blend( static_cast<int>( i % columns ), static_cast<int>( i / columns ), color, coverage[i] * opacity );
    }
}

void fillBelow( Canvas& canvas, const std::vector<Pixel>& points, float baseline, const Color& color, float opacity )
{
    for ( std::size_t i = 1; i < points.size(); ++i )
    {
        const Pixel& a = points[i - 1];
        const Pixel& b = points[i];
        const Span xs( a[0], b[0], canvas.getWidth() );
        for ( int x = xs.first; x < xs.last; ++x )
        {
            // the part of the pixel's column between the two points, and the line's height in its middle
            const float left = std::max( a[0], static_cast<float>( x ) );
            const float right = std::min( b[0], static_cast<float>( x + 1 ) );
            const float top = a[1] + ( b[1] - a[1] ) * ( ( left + right ) / 2 - a[0] ) / ( b[0] - a[0] );
            const Span ys( top, baseline, canvas.getHeight() );
            for ( int y = ys.first; y < ys.last; ++y )
            {
                const float upper = std::max( top, static_cast<float>( y ) );
                const float lower = std::min( baseline, static_cast<float>( y + 1 ) );
                canvas.blend( x, y, color, opacity * std::max( right - left, 0.0F ) * std::max( lower - upper, 0.0F ) );
            }
        }
    }
}

} // namespace Examples
