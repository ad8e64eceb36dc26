// Lines and a sphere: where each enters and leaves, and how near those come that miss.

#include "pictures.h"

#include "drawing.h"
#include "legend.h"
#include "numberText.h"
#include "scene.h"

#include <zq/primitives/geSphere3.h>

#include <algorithm>
#include <cmath>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

struct Ray
{
    GePoint3<float> origin;
    GeVector3<float> direction;
    float end; // of what is drawn
};

std::string makeText( float number )
{
    return makeDecimalText( static_cast<double>( number ), 2 );
}

} // namespace

Canvas drawSpheresPicture()
{
    const Palette& palette = getPalette();
    const GeSphere3<float> sphere( { 0, 0, 0 }, 1 );
    // through, behind its origin, and past; unit directions, so that t is a length
    const Ray rays[] = { { { -2.6F, -0.4F, 0.75F }, GeVector3<float>( 1, 0.02F, -0.18F ).computeUnit(), 5 },
        { { 1.75F, -0.5F, -0.85F }, GeVector3<float>( 1, -0.05F, -0.22F ).computeUnit(), 1.1F },
        { { -2.6F, -0.7F, 1.35F }, GeVector3<float>( 1, 0.04F, 0.05F ).computeUnit(), 5 } };

    Canvas picture = makeBackground( 1024, 860 );
    Scene scene( picture, { 0, 96, 1024, 620 }, { { -0.4F, -9, 1.6F }, { 0.1F, 0, 0.1F }, 0.42F, 1, 1, 30 } );
    // a graticule, as lines only: what is inside has to be seen
    const Polygon equator = makeTruncatedCone( { 0, 0, 0 }, { 0, 0, 1 }, 1, 1, 0 ).faces.back();
    scene.drawGlass( Solid{ { equator } }, palette.volume, 0.15F );
    for ( int i = -2; i <= 2; ++i )
    {
        const float z = 0.4F * static_cast<float>( i );
        const float across = std::sqrt( 1 - z * z );
        scene.drawRim( makeTruncatedCone( { 0, 0, z }, { 0, 0, 1 }, across, across, 0 ).faces.back(),
            i == 0 ? 1.8 : 0.9, palette.edge, 0.5 );
    }
    for ( int i = 0; i < 6; ++i )
    {
        const float turn = 3.14159265F / 6 * static_cast<float>( i );
        const GeVector3<float> axis( std::cos( turn ), std::sin( turn ), 0 );
        scene.drawRim( makeTruncatedCone( { 0, 0, 0 }, axis, 1, 1, 0 ).faces.back(), 0.9, palette.edge, 0.5 );
    }
    scene.drawBall( sphere.getCenter(), 0.045F, palette.ink );
    for ( const Ray& ray : rays )
    {
        const auto pointAt = [&]( float t ) { return ray.origin + ray.direction * t; };
        float t0 = 0;
        float t1 = 0;
        GePoint3<float> closest;
        scene.drawBall( ray.origin, 0.06F, palette.ink );
        scene.drawArrow( pointAt( ray.end - 0.3F ), pointAt( ray.end ), 0.012F, palette.ink );
        if ( !sphere.intersectRay( ray.origin, ray.direction, t0, t1 ) )
        {
            scene.drawLine( ray.origin, pointAt( ray.end ), 2.2, palette.ink, 1 );
            sphere.getClosestPoint( ray.origin, ray.direction, closest );
            const float along = ( sphere.getCenter() - ray.origin ).dot( ray.direction );
            scene.drawDashes( closest, pointAt( along ), 0.05F, 2, palette.away, 1 );
            scene.drawBall( closest, 0.06F, palette.away );
            continue;
        }
        const float first = std::min( t0, 0.0F );
        if ( first < 0 )
        {
            scene.drawDashes( ray.origin, pointAt( t1 ), 0.08F, 2, palette.ink, 1 );
            scene.drawDashes( pointAt( t0 ), pointAt( t0 - 0.5F ), 0.08F, 2, palette.ink, 1 );
        }
        else
        {
            scene.drawLine( ray.origin, pointAt( t0 ), 2.2, palette.ink, 1 );
        }
        scene.drawLine( first < 0 ? ray.origin : pointAt( t1 ), pointAt( ray.end ), 2.2, palette.ink, 1 );
        scene.drawLine( pointAt( t0 ), pointAt( t1 ), 6, palette.overlap, 1 );
        scene.drawBall( pointAt( t0 ), 0.06F, palette.inside );
        const GeVector3<float> half( 0.055F, 0.055F, 0.055F );
        scene.drawSolid( makeBox( { pointAt( t1 ) - half, pointAt( t1 ) + half } ), palette.inside );
    }
    scene.finish( picture );

    const auto spotAt = [&]( const Ray& ray, float t ) { return scene.computeSpot( ray.origin + ray.direction * t ); };
    float t0 = 0;
    float t1 = 0;
    sphere.intersectRay( rays[0].origin, rays[0].direction, t0, t1 );
    drawCallout( picture, spotAt( rays[0], 0 ), 40, 258, { "the origin: t = 0" } );
    drawCallout( picture, spotAt( rays[0], t0 ), 150, 430, { "enters: t0 = " + makeText( t0 ) } );
    drawCallout( picture, spotAt( rays[0], t1 ), 800, 330, { "leaves: t1 = " + makeText( t1 ) } );
    sphere.intersectRay( rays[1].origin, rays[1].direction, t0, t1 );
    drawCallout( picture, spotAt( rays[1], 0 ), 650, 690,
        { "a sphere behind the origin:", "t0 = " + makeText( t0 ) + ", t1 = " + makeText( t1 ) } );
    GePoint3<float> closest;
    sphere.getClosestPoint( rays[2].origin, rays[2].direction, closest );
    drawCallout( picture, scene.computeSpot( closest ), 580, 236, { "a miss: getClosestPoint" } );
    drawCaption( picture, "Lines and a sphere",
        "intersectRay meets the whole line, behind its origin too; t is in lengths of the direction" );
    drawLegend( picture, 28, 860 - 28, {},
        { { palette.overlap, "inside the sphere, from where the line enters (ball) to where it leaves (cube)", {},
              Mark::THICK_LINE },
            { palette.ink, "the line behind its origin, at negative t", {}, Mark::DASHES },
            { palette.away, "the point of the sphere that is closest to a ray that misses", {}, Mark::BALL } } );
    return picture;
}

} // namespace Figures
