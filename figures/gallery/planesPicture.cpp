// A plane fitted to a polygon: on which side a point lies and how far away, and where a ray meets it.

#include "pictures.h"

#include "drawing.h"
#include "legend.h"
#include "numberText.h"
#include "scene.h"

#include <zq/primitives/gePlane3Builder.h>

#include <cmath>

namespace Figures
{

using namespace Examples;
using namespace Zq;

namespace
{

using Plane = GeNormalizedPlane3<float>;

// The corners of a polygon that is not quite plane, counter-clockwise from above.
Polygon makePolygon()
{
    constexpr int NB_CORNERS = 7;
    Polygon polygon;
    for ( int i = 0; i < NB_CORNERS; ++i )
    {
        const float angle = 6.2831853F * static_cast<float>( i ) / NB_CORNERS;
        const float x = 1.5F * std::cos( angle );
        const float y = 1.2F * std::sin( angle );
        polygon.emplace_back( x, y, 1 + 0.35F * x + 0.12F * y + ( i % 2 == 0 ? 0.13F : -0.13F ) );
    }
    return polygon;
}

Plane fit( const Polygon& polygon )
{
    GePlane3Builder<float> builder;
    for ( const GePoint3<float>& corner : polygon )
    {
        builder.addPoint( corner );
    }
    return builder.getPlane();
}

GePoint3<float> dropOn( const Plane& plane, const GePoint3<float>& point )
{
    return point - plane.getNormal() * plane.computeValue( point );
}

// A piece of the plane around a point of it.
Solid makeSheet( const Plane& plane, const GePoint3<float>& middle )
{
    const GeVector3<float> normal = plane.getNormal();
    GeVector3<float> u( 1, 0, 0 );
    u -= normal * normal.dot( u );
    u.normalize();
    const GeVector3<float> v = normal.cross( u );
    const auto corner = [&]( float x, float y ) { return middle + u * x + v * y; };
    return { { { corner( -2.6F, -1.9F ), corner( 2.6F, -1.9F ), corner( 2.6F, 1.9F ), corner( -2.6F, 1.9F ) } } };
}

Solid makeCube( const GePoint3<float>& center, float size )
{
    const GeVector3<float> half( size / 2, size / 2, size / 2 );
    return makeBox( { center - half, center + half } );
}

std::string makeSignedText( float number )
{
    return ( number > 0 ? "+" : "" ) + makeDecimalText( static_cast<double>( number ), 2 );
}

} // namespace

Canvas drawPlanesPicture()
{
    const Palette& palette = getPalette();
    const Polygon polygon = makePolygon();
    const Plane plane = fit( polygon );
    const GePoint3<float> middle = dropOn( plane, { 0, 0, 1 } );

    const GePoint3<float> points[] = { { -1.9F, -1.0F, 1.75F }, { -1.2F, 1.5F, 2.2F }, { 1.9F, 0.9F, 2.6F },
        { -1.2F, -1.3F, -0.35F }, { 0.5F, -1.55F, 0.2F }, { 2.2F, -1.1F, 0.75F } };
    const GePoint3<float> origin( -2.5F, 0.3F, 3.2F );
    const GeVector3<float> direction( 2.0F, -0.2F, -1.2F );
    float t = 0;
    const bool isMet = plane.intersectRay( origin, direction, t );

    Canvas picture = makeBackground( 1024, 860 );
    Scene scene( picture, { 0, 96, 1024, 620 }, { { -2.6F, -9.5F, 4.6F }, { 0.05F, 0, 1.12F }, 0.48F, 1, 1, 40 } );
    for ( const GePoint3<float>& point : points )
    {
        const bool isPositive = plane.computeValue( point ) > 0;
        const GePoint3<float> foot = dropOn( plane, point );
        scene.drawLine( point, foot, 1.8, palette.ink, 0.35 );
        scene.drawBall( foot, 0.035F, palette.ink );
        if ( isPositive )
        {
            scene.drawBall( point, 0.1F, palette.inside );
        }
        else
        {
            scene.drawSolid( makeCube( point, 0.18F ), palette.overlap );
        }
    }
    for ( const GePoint3<float>& corner : polygon )
    {
        scene.drawBall( corner, 0.06F, palette.ink );
    }
    scene.drawArrow( middle, middle + plane.getNormal() * 1.15F, 0.028F, palette.ink );
    scene.drawLine( origin, origin + direction * t, 3, palette.away, 0.5 );
    scene.drawBall( origin, 0.07F, palette.away );
    scene.drawBall( origin + direction * t, 0.07F, palette.away );
    const Solid sheet = makeSheet( plane, middle );
    scene.drawGlass( sheet, palette.volume, 0.32F );
    scene.drawRim( sheet.faces.front(), 1.8, palette.edge, 0.5 );
    scene.drawRim( polygon, 2, palette.ink, 0.45 );
    scene.drawDashes( origin + direction * t, origin + direction * ( t + 0.75F ), 0.09F, 2.4, palette.away, 0.6 );
    scene.finish( picture );

    for ( const GePoint3<float>& point : points )
    {
        const Spot spot = scene.computeSpot( point );
        const float value = plane.computeValue( point );
        drawLines( picture, spot.x + 16, spot.y + ( value > 0 ? -6.0F : 22.0F ), { makeSignedText( value ) },
            palette.ink, 13 );
    }
    drawCaption( picture, "A plane and its sides",
        "GePlane3Builder fits it to the polygon's corners; it faces whoever sees them counter-clockwise" );
    const Spot tip = scene.computeSpot( middle + plane.getNormal() * 1.15F );
    drawCallout( picture, tip, tip.x - 20, 170, { "the normal: the positive side" } );
    const Spot start = scene.computeSpot( origin );
    drawCallout( picture, start, 60, 160, { "origin" } );
    const Spot hit = scene.computeSpot( origin + direction * t );
    drawCallout( picture, hit, 480, 690,
        { isMet ? "intersectRay: t = " + makeDecimalText( static_cast<double>( t ), 3 ) : "parallel" } );
    drawLegend( picture, 28, 860 - 28, {},
        { { palette.inside, "computeValue is positive: the distance, on the side of the normal", {}, Mark::BALL },
            { palette.overlap, "negative: the distance behind the plane", {} },
            { palette.ink, "the polygon, not quite plane; its plane passes through the mean of the corners", {},
                Mark::LINE } } );
    return picture;
}

} // namespace Figures
