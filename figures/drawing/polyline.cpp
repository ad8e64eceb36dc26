#include "polyline.h"

#include <algorithm>
#include <cmath>

namespace Figures
{

namespace
{

float computeDistance( float x, float y, const Spot& a, const Spot& b )
{
    const float dx = b.x - a.x;
    const float dy = b.y - a.y;
    const float lengthSquared = dx * dx + dy * dy;
    const float along = ( x - a.x ) * dx + ( y - a.y ) * dy;
    const float t = lengthSquared > 0 ? std::clamp( along / lengthSquared, 0.0F, 1.0F ) : 0.0F;
    return std::hypot( x - a.x - t * dx, y - a.y - t * dy );
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

void drawPolyline( Canvas& canvas, const std::vector<Spot>& points, float width, const Color& color, float opacity )
{
    if ( points.size() < 2 )
    {
        return;
    }
    const float reach = width / 2 + 1;
    Spot low = points.front();
    Spot high = low;
    for ( const Spot& point : points )
    {
        low = { std::min( low.x, point.x ), std::min( low.y, point.y ) };
        high = { std::max( high.x, point.x ), std::max( high.y, point.y ) };
    }
    const Span columns( low.x - reach, high.x + reach, canvas.getWidth() );
    const Span rows( low.y - reach, high.y + reach, canvas.getHeight() );
    const int stride = columns.last - columns.first;
    std::vector<float> coverage(
        static_cast<std::size_t>( stride ) * static_cast<std::size_t>( rows.last - rows.first ) );
    const auto at = [&]( int x, int y ) -> float&
    {
        return coverage[static_cast<std::size_t>( y - rows.first ) * static_cast<std::size_t>( stride ) +
            static_cast<std::size_t>( x - columns.first )];
    };
    for ( std::size_t i = 1; i < points.size(); ++i )
    {
        const Spot& a = points[i - 1];
        const Spot& b = points[i];
        const Span xs( std::min( a.x, b.x ) - reach, std::max( a.x, b.x ) + reach, canvas.getWidth() );
        const Span ys( std::min( a.y, b.y ) - reach, std::max( a.y, b.y ) + reach, canvas.getHeight() );
        for ( int y = ys.first; y < ys.last; ++y )
        {
            for ( int x = xs.first; x < xs.last; ++x )
            {
                const float distance =
                    computeDistance( static_cast<float>( x ) + 0.5F, static_cast<float>( y ) + 0.5F, a, b );
                at( x, y ) = std::max( at( x, y ), std::clamp( width / 2 + 0.5F - distance, 0.0F, 1.0F ) );
            }
        }
    }
    for ( int y = rows.first; y < rows.last; ++y )
    {
        for ( int x = columns.first; x < columns.last; ++x )
        {
            canvas.blend( x, y, color, at( x, y ) * opacity );
        }
    }
}

void drawDashes(
    Canvas& canvas, const std::vector<Spot>& points, float width, const Color& color, float dash, float gap )
{
    // `left` pixels of the dash or of the gap are still to come
    bool isDash = true;
    float left = dash;
    std::vector<Spot> chain;
    for ( std::size_t i = 0; i < points.size(); ++i )
    {
        const Spot from = points[i > 0 ? i - 1 : 0];
        const Spot to = points[i];
        const float length = std::hypot( to.x - from.x, to.y - from.y );
        float done = 0;
        while ( length - done > left )
        {
            done += left;
            const Spot turn = {
                from.x + ( to.x - from.x ) * done / length, from.y + ( to.y - from.y ) * done / length };
            if ( isDash )
            {
                chain.push_back( turn );
                drawPolyline( canvas, chain, width, color );
            }
            chain.assign( 1, turn );
            isDash = !isDash;
            left = isDash ? dash : gap;
        }
        left -= length - done;
        if ( isDash )
        {
            chain.push_back( to );
        }
    }
    if ( isDash )
    {
        drawPolyline( canvas, chain, width, color );
    }
}

void drawStroke( Canvas& canvas, const Spot& begin, const Spot& end, float width, const Color& color )
{
    drawPolyline( canvas, { begin, end }, width, color );
}

void fillBelow( Canvas& canvas, const std::vector<Spot>& points, float baseline, const Color& color, float opacity )
{
    for ( std::size_t i = 1; i < points.size(); ++i )
    {
        const Spot& a = points[i - 1];
        const Spot& b = points[i];
        const Span xs( a.x, b.x, canvas.getWidth() );
        for ( int x = xs.first; x < xs.last; ++x )
        {
            // the part of the pixel's column between the two points, and the line's height in its middle
            const float left = std::max( a.x, static_cast<float>( x ) );
            const float right = std::min( b.x, static_cast<float>( x + 1 ) );
            const float top = a.y + ( b.y - a.y ) * ( ( left + right ) / 2 - a.x ) / ( b.x - a.x );
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

} // namespace Figures
