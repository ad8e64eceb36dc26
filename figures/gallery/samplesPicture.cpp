// Directions on the sphere: spread evenly by the icosahedron's sampler, and plain random ones.

#include "pictures.h"

#include "drawing.h"
#include "mersenneRng.h"
#include "numberText.h"
#include "text.h"

#include <zq/primitives/geIcosahedron.h>

#include <algorithm>
#include <cmath>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

using Directions = std::vector<GeVector3<float>>;

struct Collector final : UnaryFunctor<GeVector3<float>, void>
{
    void operator()( const GeVector3<float>& direction ) override { directions.push_back( direction ); }
    Directions directions;
};

Directions makeStratified( unsigned int count, RnRng<float>& rng )
{
    Collector collector;
    GeIcosahedron::getStratifiedSamples( count, collector, rng );
    return collector.directions;
}

// Uniform on the sphere: by Archimedes, z is uniform.
Directions makeRandom( std::size_t count, RnRng<float>& rng )
{
    constexpr float TURN = 6.2831853F;
    Directions directions;
    for ( std::size_t i = 0; i < count; ++i )
    {
        const float z = 2 * rng() - 1;
        const float angle = TURN * rng();
        const float across = std::sqrt( std::max( 1 - z * z, 0.0F ) );
        directions.emplace_back( across * std::cos( angle ), across * std::sin( angle ), z );
    }
    return directions;
}

// The largest difference between the share of directions in a cap of the sphere and the share of its area, over the
// caps about many axes: the discrepancy. For an axis, the worst cap ends at one of the directions.
double computeDiscrepancy( const Directions& directions )
{
    constexpr int NB_AXES = 80;
    MersenneRng rng( 1 );
    const auto count = static_cast<double>( directions.size() );
    double worst = 0;
    std::vector<float> heights( directions.size() );
    for ( const GeVector3<float>& axis : makeRandom( NB_AXES, rng ) )
    {
        std::transform( directions.begin(), directions.end(), heights.begin(),
            [&]( const GeVector3<float>& direction ) { return axis.dot( direction ); } );
        std::sort( heights.begin(), heights.end() );
        for ( std::size_t i = 0; i < heights.size(); ++i )
        {
            const double area = ( 1 + static_cast<double>( heights[i] ) ) / 2; // of the cap below
            const auto rank = static_cast<double>( i );
            worst = std::max( { worst, area - rank / count, ( rank + 1 ) / count - area } );
        }
    }
    return worst;
}

struct Globe
{
    float x;
    float y;
    float radius;
};

// From the front; x to the right, z up.
bool project( const Globe& globe, const GeVector3<float>& direction, Spot& spot )
{
    const GeVector3<float> right( 0.883F, 0.469F, 0 );
    const GeVector3<float> back( 0.437F, -0.823F, 0.363F );
    const GeVector3<float> up = back.cross( right );
    spot = { globe.x + globe.radius * right.dot( direction ), globe.y - globe.radius * up.dot( direction ) };
    return back.dot( direction ) > 0;
}

void drawGlobe( Canvas& canvas, const Globe& globe )
{
    // a little light from the upper left
    for ( int y = static_cast<int>( globe.y - globe.radius ) - 1; y <= static_cast<int>( globe.y + globe.radius ) + 1;
          ++y )
    {
        for ( int x = static_cast<int>( globe.x - globe.radius ) - 1;
              x <= static_cast<int>( globe.x + globe.radius ) + 1; ++x )
        {
            const float dx = ( static_cast<float>( x ) + 0.5F - globe.x ) / globe.radius;
            const float dy = ( static_cast<float>( y ) + 0.5F - globe.y ) / globe.radius;
            const float distance = std::hypot( dx, dy );
            const float depth = std::sqrt( std::max( 1 - distance * distance, 0.0F ) );
            const float light = std::clamp( -0.35F * dx - 0.5F * dy + 0.75F * depth, 0.0F, 1.0F );
            canvas.blend( x, y, mix( makeColor( 0xB9C6D2 ), makeColor( 0xFDFCFA ), light ),
                std::clamp( ( 1 - distance ) * globe.radius + 0.5F, 0.0F, 1.0F ) );
        }
    }
}

void drawDirections( Canvas& canvas, const Globe& globe, const Directions& directions, const Color& color )
{
    for ( const GeVector3<float>& direction : directions )
    {
        Spot spot{};
        if ( project( globe, direction, spot ) )
        {
            canvas.fillDisc( spot.x, spot.y, 2.6F, color );
        }
    }
}

// The edges of the triangles that the sampler fills, drawn on the sphere as it cuts the flat faces.
void drawTriangle( Canvas& canvas, const Globe& globe, const GeVector3<float>& p, const GeVector3<float>& q,
    const GeVector3<float>& r, int nbCuts )
{
    if ( nbCuts > 0 )
    {
        const GeVector3<float> pq = ( p + q ) * 0.5F;
        const GeVector3<float> qr = ( q + r ) * 0.5F;
        const GeVector3<float> rp = ( r + p ) * 0.5F;
        drawTriangle( canvas, globe, p, pq, rp, nbCuts - 1 );
        drawTriangle( canvas, globe, pq, q, qr, nbCuts - 1 );
        drawTriangle( canvas, globe, rp, qr, r, nbCuts - 1 );
        drawTriangle( canvas, globe, qr, rp, pq, nbCuts - 1 );
        return;
    }
    constexpr int NB_STEPS = 6;
    const auto edge = [&]( const GeVector3<float>& a, const GeVector3<float>& b )
    {
        Spot before{};
        bool wasVisible = false;
        for ( int i = 0; i <= NB_STEPS; ++i )
        {
            GeVector3<float> point = a + ( b - a ) * ( static_cast<float>( i ) / NB_STEPS );
            point.normalize();
            Spot spot{};
            const bool isVisible = project( globe, point, spot );
            if ( wasVisible && isVisible )
            {
                drawStroke( canvas, before, spot, 1, makeColor( 0x8FA6BA ) );
            }
            before = spot;
            wasVisible = isVisible;
        }
    };
    edge( p, q );
    edge( q, r );
    edge( r, p );
}

// Discrepancy over the number of directions, both on logarithmic scales.
void drawChart( Canvas& canvas, float left, float top, float width, float height )
{
    const Palette& palette = getPalette();
    constexpr double FIRST = 20;
    constexpr double LAST = 20480;
    constexpr double HIGHEST = 0.5;
    constexpr double LOWEST = 0.002;
    const auto spotOf = [&]( double count, double discrepancy ) -> Spot
    {
        return { left + width * static_cast<float>( std::log( count / FIRST ) / std::log( LAST / FIRST ) ),
            top + height * static_cast<float>( std::log( HIGHEST / discrepancy ) / std::log( HIGHEST / LOWEST ) ) };
    };
    for ( const double discrepancy : { 0.1, 0.01 } )
    {
        const Spot begin = spotOf( FIRST, discrepancy );
        drawStroke( canvas, begin, spotOf( LAST, discrepancy ), 1, makeColor( 0xB9C3CC ) );
        drawText( canvas, begin.x - 46, begin.y + 5, 11, makeDecimalText( discrepancy, discrepancy < 0.05 ? 2 : 1 ),
            palette.paleInk );
    }
    drawStroke( canvas, { left, top + height }, { left + width, top + height }, 1.4F, palette.paleInk );
    drawStroke( canvas, { left, top }, { left, top + height }, 1.4F, palette.paleInk );

    Spot before[2] = {};
    for ( unsigned int count = 20; count <= 20480; count *= 4 )
    {
        // the mean of a few tries each
        constexpr unsigned int NB_TRIES = 4;
        double means[2] = {};
        for ( unsigned int seed = 1; seed <= NB_TRIES; ++seed )
        {
            MersenneRng rng( seed );
            const Directions stratified = makeStratified( count, rng );
            means[0] += computeDiscrepancy( makeRandom( stratified.size(), rng ) ) / NB_TRIES;
            means[1] += computeDiscrepancy( stratified ) / NB_TRIES;
        }
        for ( int i = 0; i < 2; ++i )
        {
            const Spot spot = spotOf( count, means[i] );
            const Color& color = i == 0 ? palette.series[1] : palette.series[0];
            if ( count > 20 )
            {
                drawStroke( canvas, before[i], spot, 2.4F, color );
            }
            canvas.fillDisc( spot.x, spot.y, 4.5F, color );
            before[i] = spot;
        }
        const std::string label = makeGroupedText( count );
        drawText( canvas, before[0].x - measureText( label, 11 ) / 2, top + height + 22, 11, label, palette.paleInk );
        if ( count == 320 )
        {
            drawText( canvas, before[0].x + 8, before[0].y - 14, 12, "random", palette.series[1] );
            drawText( canvas, before[1].x - 50, before[1].y + 26, 12, "stratified", palette.series[0] );
        }
    }
}

} // namespace

Canvas drawSamplesPicture()
{
    constexpr unsigned int REQUEST = 1280; // 64 to a face: three cuts, one direction in each of the 64 triangles
    const Palette& palette = getPalette();
    MersenneRng rng( 3 );
    const Directions stratified = makeStratified( REQUEST, rng );
    const Directions random = makeRandom( stratified.size(), rng );

    Canvas picture = makeBackground( 1024, 930 );
    const Globe left{ 266, 320, 205 };
    const Globe right{ 758, 320, 205 };
    drawGlobe( picture, left );
    drawGlobe( picture, right );
    for ( int i = 0; i < GeIcosahedron::getNbFaces(); ++i )
    {
        GeVector3<float> p;
        GeVector3<float> q;
        GeVector3<float> r;
        GeIcosahedron::getFace( i, p, q, r );
        drawTriangle( picture, left, p, q, r, 3 );
    }
    drawDirections( picture, left, stratified, mix( palette.series[0], palette.ink, 0.25F ) );
    drawDirections( picture, right, random, mix( palette.series[1], palette.ink, 0.25F ) );

    const std::string count = makeGroupedText( stratified.size() );
    const auto figure = []( const Directions& directions )
    { return "discrepancy " + makeDecimalText( computeDiscrepancy( directions ), 4 ); };
    drawCentred( picture, left.x, 562, 14, count + " stratified: one in each triangle", palette.ink );
    drawCentred( picture, left.x, 588, 13, figure( stratified ), palette.series[0] );
    drawCentred( picture, right.x, 562, 14, count + " plain random", palette.ink );
    drawCentred( picture, right.x, 588, 13, figure( random ), palette.series[1] );
    drawChart( picture, 110, 640, 780, 190 );
    drawLines( picture, 110, 890,
        { "Over the number of directions. Discrepancy: the largest error of the share of directions in a cap of the "
          "sphere.",
            "The triangles are equal on the flat faces, not on the sphere: with many directions that error is what "
            "remains." },
        palette.paleInk, 11 );

    drawText( picture, 28, 50, 22, "Directions all around", palette.ink, 1.2F );
    drawText( picture, 28, 82, 13,
        "as many in every triangle of a finely cut icosahedron, or thrown anywhere: clumps and holes",
        palette.paleInk );
    return picture;
}

} // namespace Figures
