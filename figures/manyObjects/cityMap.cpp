#include "cityMap.h"

#include "numberText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ManyObjects
{

using namespace Figures;
using namespace Zq;

namespace
{

// What rectangles cover of each pixel, and the sum of their colours.
struct Layer
{
    explicit Layer( const Area& area )
        : width( area.width ), height( area.height ),
          weights( static_cast<std::size_t>( area.width ) * static_cast<std::size_t>( area.height ) ),
          sums( weights.size() )
    {
    }

    std::size_t index( int x, int y ) const
    {
        return static_cast<std::size_t>( y ) * static_cast<std::size_t>( width ) + static_cast<std::size_t>( x );
    }

    void add( const Spot& upperLeft, const Spot& lowerRight, const Color& color )
    {
        const int lastX = std::min( static_cast<int>( std::ceil( lowerRight.x ) ), width );
        const int lastY = std::min( static_cast<int>( std::ceil( lowerRight.y ) ), height );
        for ( int y = std::max( static_cast<int>( upperLeft.y ), 0 ); y < lastY; ++y )
        {
            const float tall = std::min( lowerRight.y, static_cast<float>( y + 1 ) ) -
                std::max( upperLeft.y, static_cast<float>( y ) );
            for ( int x = std::max( static_cast<int>( upperLeft.x ), 0 ); x < lastX; ++x )
            {
                const float wide = std::min( lowerRight.x, static_cast<float>( x + 1 ) ) -
                    std::max( upperLeft.x, static_cast<float>( x ) );
                weights[index( x, y )] += wide * tall;
                sums[index( x, y )] = sums[index( x, y )] + color * ( wide * tall );
            }
        }
    }

    // Each weight becomes the mean of those up to `reach` pixels away along x and y.
    void blur( int reach )
    {
        for ( const bool isAlongX : { true, false } )
        {
            const std::vector<float> before = weights;
            for ( int y = 0; y < height; ++y )
            {
                for ( int x = 0; x < width; ++x )
                {
                    float sum = 0;
                    for ( int step = -reach; step <= reach; ++step )
                    {
                        sum += before[index( isAlongX ? std::clamp( x + step, 0, width - 1 ) : x,
                            isAlongX ? y : std::clamp( y + step, 0, height - 1 ) )];
                    }
                    weights[index( x, y )] = sum / static_cast<float>( 2 * reach + 1 );
                }
            }
        }
    }

    int width;
    int height;
    std::vector<float> weights;
    std::vector<Color> sums;
};

} // namespace

CityMap::CityMap( const Area& area, const GePoint3<float>& centre, float side )
    : _area( area ), _centre( centre ), _scale( static_cast<float>( area.width ) / side )
{
}

// In pixels of the area.
Spot CityMap::computeSpot( const GePoint3<float>& point ) const
{
    return { static_cast<float>( _area.width ) / 2 + ( point.getX() - _centre.getX() ) * _scale,
        static_cast<float>( _area.height ) / 2 - ( point.getY() - _centre.getY() ) * _scale };
}

void CityMap::drawCity(
    Canvas& picture, const std::vector<Box>& city, const Verdicts& verdicts, const std::vector<Color>& colors ) const
{
    constexpr float SMALL = 0.5F;            // pixels per metre
    constexpr float HALF_LOT = 8;            // metres
    constexpr float HOUSES = 0.4F;           // the share of the ground below houses with streets between them, about
    constexpr int REACH = 4;                 // pixels: more than from street to street
    constexpr float STOREYS[] = { 20, 200 }; // metres, from the brightest to the darkest
    const bool isSmall = _scale < SMALL;
    Layer color( _area );
    Layer cover( _area );
    for ( std::size_t i = 0; i < city.size(); ++i )
    {
        const GePoint3<float> low = city[i].getCorner( 0 );
        const GePoint3<float> high = city[i].getCorner( 7 );
        const float darkness = std::clamp( ( high.getZ() - STOREYS[0] ) / ( STOREYS[1] - STOREYS[0] ), 0.0F, 1.0F );
        const Color tint = mix( colors[verdicts[i]], getPalette().ink, 0.5F * darkness );
        const Spot upperLeft = computeSpot( { low.getX(), high.getY(), 0 } );
        const Spot lowerRight = computeSpot( { high.getX(), low.getY(), 0 } );
        cover.add( upperLeft, lowerRight, {} );
        const float margin = HALF_LOT * _scale;
        const Spot middle = { ( upperLeft.x + lowerRight.x ) / 2, ( upperLeft.y + lowerRight.y ) / 2 };
        color.add( isSmall ? Spot{ middle.x - margin, middle.y - margin } : upperLeft,
            isSmall ? Spot{ middle.x + margin, middle.y + margin } : lowerRight, tint );
    }
    if ( isSmall )
    {
        cover.blur( REACH );
    }
    Canvas part( _area.width, _area.height, makeColor( 0xE6E3DA ) );
    for ( int y = 0; y < _area.height; ++y )
    {
        for ( int x = 0; x < _area.width; ++x )
        {
            const std::size_t pixel = color.index( x, y );
            if ( color.weights[pixel] > 0 )
            {
                part.blend( x, y, color.sums[pixel] * ( 1 / color.weights[pixel] ),
                    std::min( cover.weights[pixel] / ( isSmall ? HOUSES : 1 ), 1.0F ) );
            }
        }
    }
    picture.paste( part, _area.x, _area.y );
}

template <class Action>
void CityMap::drawWithin( Canvas& picture, Action action ) const
{
    Canvas part = picture.cutOut( _area );
    action( part );
    picture.paste( part, _area.x, _area.y );
}

void CityMap::drawEye( Canvas& picture, const Camera& camera ) const
{
    const Palette& palette = getPalette();
    drawWithin( picture,
        [&]( Canvas& part )
        {
            const Spot eye = computeSpot( camera.eye );
            const Spot target = computeSpot( camera.target );
            const float length = std::hypot( target.x - eye.x, target.y - eye.y );
            const Spot tip = { eye.x + 34 * ( target.x - eye.x ) / length, eye.y + 34 * ( target.y - eye.y ) / length };
            drawStroke( part, eye, tip, 7, palette.white );
            part.fillDisc( eye.x, eye.y, 9, palette.white );
            drawArrow( part, eye, tip, 2.4F, palette.ink );
            part.fillDisc( eye.x, eye.y, 7, palette.ink );
            part.fillDisc( eye.x, eye.y, 3, palette.white );
        } );
}

void CityMap::drawPath( Canvas& picture, float citySide ) const
{
    drawWithin( picture,
        [&]( Canvas& part )
        {
            std::vector<Spot> path;
            for ( int i = 0; i <= 200; ++i )
            {
                path.push_back( computeSpot( makeCamera( citySide, i / 200.0 ).eye ) );
            }
            drawPolyline( part, path, 3, getPalette().white, 0.6F );
            drawDashes( part, path, 1.4F, getPalette().ink, 7, 6 );
        } );
}

void CityMap::drawScale( Canvas& picture ) const
{
    float metres = 1;
    for ( const float longer : { 10.0F, 20.0F, 50.0F, 100.0F, 200.0F, 500.0F, 1000.0F, 2000.0F, 5000.0F } )
    {
        metres = longer * _scale < 0.2F * static_cast<float>( _area.width ) ? longer : metres;
    }
    drawWithin( picture,
        [&]( Canvas& part )
        {
            const float length = metres * _scale;
            const auto right = static_cast<float>( _area.width - 14 );
            const auto bottom = static_cast<float>( _area.height - 14 );
            part.fillRoundedRectangle( right - length - 8, bottom - 32, length + 16, 40, 6, getPalette().white, 0.85F );
            drawCentred( part, right - length / 2, bottom - 10, 11,
                Examples::makeGroupedText( static_cast<std::size_t>( metres ) ) + " m", getPalette().ink );
            drawStroke( part, { right - length, bottom }, { right, bottom }, 2, getPalette().ink );
        } );
}

void CityMap::drawNote( Canvas& picture, const std::vector<Box>& city, const Verdicts& verdicts, unsigned char kind,
    const std::vector<std::string>& lines ) const
{
    // the middle of all, then of those to the left of it: of one part where there are two
    GePoint3<float> middle( std::numeric_limits<float>::infinity(), 0, 0 );
    for ( int pass = 0; pass < 2; ++pass )
    {
        GeVector3<double> sum;
        double count = 0;
        for ( std::size_t i = 0; i < city.size(); ++i )
        {
            const GePoint3<float> corner = city[i].getCorner( 0 );
            if ( verdicts[i] == kind && corner.getX() <= middle.getX() )
            {
                sum += GeVector3<double>( GePoint3<double>( corner ) );
                ++count;
            }
        }
        if ( count == 0 )
        {
            return;
        }
        middle = GePoint3<float>( GePoint3<double>( sum / count ) );
    }
    float nearest = std::numeric_limits<float>::infinity();
    Spot target = {};
    for ( std::size_t i = 0; i < city.size(); ++i )
    {
        const float distance = ( city[i].getCorner( 0 ) - middle ).length();
        if ( verdicts[i] == kind && distance < nearest )
        {
            nearest = distance;
            target = computeSpot( city[i].getCorner( 0 ) );
        }
    }
    drawWithin( picture,
        [&]( Canvas& part )
        {
            drawCallout( part, target, std::clamp( target.x - 120, 24.0F, static_cast<float>( _area.width ) - 260 ),
                std::clamp( target.y - 110, 34.0F, static_cast<float>( _area.height ) - 80 ), lines );
        } );
}

std::vector<std::string> countVerdicts( const Verdicts& verdicts, std::size_t nbKinds )
{
    std::vector<std::string> counts;
    for ( std::size_t kind = 0; kind < nbKinds; ++kind )
    {
        counts.push_back( Examples::makeGroupedText(
            static_cast<std::size_t>( std::count( verdicts.begin(), verdicts.end(), kind ) ) ) );
    }
    return counts;
}

Area makePanel( int index, int nbPanels )
{
    constexpr int MARGIN = 28;
    constexpr int GAP = 22;
    constexpr int TOP = 170;
    const int size = nbPanels == 3 ? 500 : 761;
    return { MARGIN + index * ( size + GAP ), TOP, size, size };
}

} // namespace ManyObjects
