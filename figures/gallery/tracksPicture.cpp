// A camera's flight with slerp and with squad, and what lerp, slerp, spins and squad do to one direction and to the
// speed of turning.

#include "pictures.h"

#include "drawing.h"
#include "flight.h"
#include "scene.h"
#include "text.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace Figures
{

using namespace Zq;
using AimAndInterpolate::Flight;
using AimAndInterpolate::Rotation;
using AimAndInterpolate::RotationTrack;

namespace
{

using Motion = std::function<Rotation( double time )>;

constexpr int WIDTH = 1600;
constexpr int HEIGHT = 1240;
constexpr int MARGIN = 28;
constexpr int GAP = 16;
constexpr int NB_STEPS = 8; // between one key and the next
const GeVector3<float> Y_UP( 0, 1, 0 );

// A motion to be drawn, from time 0 to `end`.
struct Curve
{
    std::string name;
    Motion motion;
    Color color;
    double end;
    bool isDashed = false;
};

// What part of a turn two neighbouring rotations are apart, over a short time, in radians per unit of time.
double computeSpeed( const Curve& curve, double time )
{
    constexpr double STEP = 1e-3;
    const double from = std::clamp( time - STEP / 2, 0.0, curve.end - STEP );
    Rotation a = curve.motion( from );
    Rotation b = curve.motion( from + STEP );
    a.normalize();
    b.normalize();
    const Rotation turn = b * a.computeConjugate();
    const GeVector3<double> axis( turn.getX(), turn.getY(), turn.getZ() );
    return 2 * std::asin( std::min( 1.0, axis.length() ) ) / STEP;
}

std::vector<double> makeTimes( double end, int nbSteps )
{
    std::vector<double> times;
    for ( int i = 0; i <= nbSteps; ++i )
    {
        times.push_back( end * i / nbSteps );
    }
    return times;
}

bool isKeyTime( double time )
{
    return std::abs( time - std::round( time ) ) < 1e-9;
}

// Whole, or in dashes.
void drawCurve(
    Scene& scene, const std::vector<GePoint3<float>>& points, const Curve& curve, double width, double hiddenOpacity )
{
    constexpr float DASH = 0.07F;
    float way = 0;
    for ( std::size_t i = 1; i < points.size(); ++i )
    {
        way += ( points[i] - points[i - 1] ).length();
        if ( !curve.isDashed || std::fmod( way, 2 * DASH ) < DASH )
        {
            scene.drawLine( points[i - 1], points[i], width, curve.color, hiddenOpacity );
        }
    }
}

// The flight ----------------------------------------------------------------------------------------------------------

void drawFlight( Canvas& canvas, const Area& area, const Flight& flight, const Curve& curve, const std::string& title )
{
    constexpr double SIGHT = 1.5; // how far along the line of sight the coloured curve runs
    const Palette& palette = getPalette();
    drawPlate( canvas, area );
    const Area inner = { area.x + 4, area.y + 70, area.width - 8, area.height - 78 };
    Scene scene( canvas, inner, { { 0.4F, 7.0F, 12.2F }, { 0, 0.75F, 0.9F }, 0.445F, 1, 0.1F, 100, Y_UP } );

    for ( const AimAndInterpolate::Ball& ball : flight.balls )
    {
        scene.drawBall( GePoint3<float>( ball.center ), static_cast<float>( ball.radius ), palette.clay );
    }
    for ( int i = -6; i <= 6; ++i )
    {
        const auto at = static_cast<float>( i );
        scene.drawLine( { at, 0, -3 }, { at, 0, 4 }, 1, palette.rule, 0 );
        if ( i >= -3 && i <= 4 )
        {
            scene.drawLine( { -6, 0, at }, { 6, 0, at }, 1, palette.rule, 0 );
        }
    }

    const auto sightAt = [&]( double time ) {
        return GePoint3<float>( computeEye( flight, time ) + curve.motion( time ) * GeVector3<double>( 0, 0, -SIGHT ) );
    };
    std::vector<GePoint3<float>> path;
    std::vector<GePoint3<float>> sight;
    for ( const double time : makeTimes( curve.end, 400 ) )
    {
        path.emplace_back( computeEye( flight, time ) );
        sight.push_back( sightAt( time ) );
    }
    for ( const AimAndInterpolate::Key& key : flight.keys )
    {
        const GePoint3<float> eye( key.eye );
        scene.drawLine( eye, { eye.getX(), 0, eye.getZ() }, 1.2, palette.rule, 0.15 );
        scene.drawLine( eye, GePoint3<float>( flight.balls[key.ball].center ), 1, palette.paleInk, 0 );
    }
    scene.drawLine( path, 2.2, palette.ink, 0.15 );
    for ( const double time : makeTimes( curve.end, NB_STEPS * static_cast<int>( curve.end ) ) )
    {
        const GePoint3<double> eye = computeEye( flight, time );
        const Rotation rotation = curve.motion( time );
        scene.drawLine( GePoint3<float>( eye ), sightAt( time ), 0.8, mix( palette.white, curve.color, 0.6F ), 0.1 );
        const bool isKey = isKeyTime( time );
        const double size = isKey ? 0.55 : 0.25;
        const GeVector3<double> axes[] = { { size, 0, 0 }, { 0, size, 0 }, { 0, 0, size } };
        for ( int i = 0; i < 3; ++i )
        {
            scene.drawLine( GePoint3<float>( eye ), GePoint3<float>( eye + rotation * axes[i] ), isKey ? 4 : 1.6,
                palette.axes[i], 0.3 );
        }
    }
    scene.drawLine( sight, 3.6, curve.color, 0.35 );
    scene.finish( canvas );

    for ( std::size_t i = 0; i < flight.keys.size(); ++i )
    {
        const auto time = static_cast<double>( i );
        const Spot end = scene.computeSpot( sightAt( time ) );
        canvas.fillDisc( end.x, end.y, 6, palette.ink );
        canvas.fillDisc( end.x, end.y, 4, palette.white );
        const GePoint3<double>& eye = flight.keys[i].eye;
        const Spot spot = scene.computeSpot( GePoint3<float>( eye ) );
        drawText( canvas, spot.x - 5, spot.y + 30, 13, std::to_string( i + 1 ), palette.ink, 1.3F );
        if ( i == 1 ) // where nothing is in the way
        {
            const char* const names[] = { "x", "y", "z" };
            const GeVector3<double> axes[] = { { 0.72, 0, 0 }, { 0, 0.72, 0 }, { 0, 0, 0.72 } };
            for ( int axis = 0; axis < 3; ++axis )
            {
                const Spot tip = scene.computeSpot( GePoint3<float>( eye + curve.motion( time ) * axes[axis] ) );
                drawText( canvas, tip.x - 4, tip.y + 5, 11, names[axis], palette.axes[axis], 1.4F );
            }
        }
    }
    drawHeading( canvas, static_cast<float>( area.x + 18 ), static_cast<float>( area.y + 34 ), title,
        "five keys, each aimed at a ball; the axes of the camera, and the end of its line of sight" );
}

// The globes ----------------------------------------------------------------------------------------------------------

// The same scale for every plot, so that they can be compared.
void drawPlot( Canvas& canvas, const Area& area, const std::vector<Curve>& curves )
{
    constexpr double LIMIT = 10; // radians per unit of time
    const Palette& palette = getPalette();
    const auto left = static_cast<float>( area.x );
    const auto right = static_cast<float>( area.x + area.width );
    const auto bottom = static_cast<float>( area.y + area.height );
    const auto heightOf = [&]( double speed ) { return bottom - static_cast<float>( area.height * speed / LIMIT ); };
    for ( const int speed : { 0, 2, 4, 6, 8, 10 } )
    {
        const float y = heightOf( speed );
        drawStroke( canvas, { left, y }, { right, y }, 1, speed == 0 ? palette.paleInk : palette.rule );
        const std::string label = std::to_string( speed );
        drawText( canvas, left - 8 - measureText( label, 10 ), y + 5, 10, label, palette.paleInk );
    }
    for ( const Curve& curve : curves )
    {
        std::vector<Spot> points;
        for ( const double time : makeTimes( curve.end, 600 ) )
        {
            points.push_back( { left + static_cast<float>( area.width * time / curve.end ),
                heightOf( computeSpeed( curve, time ) ) } );
        }
        if ( curve.isDashed )
        {
            drawDashes( canvas, points, 2.8F, curve.color, 9, 6 );
        }
        else
        {
            drawPolyline( canvas, points, 2.8F, curve.color );
        }
    }
    drawText( canvas, left - 20, static_cast<float>( area.y ) - 14, 11, "speed of turning, radians per unit of time",
        palette.paleInk );
    // a mark at every whole time, with the number of the key or the time
    for ( int i = 0; i <= static_cast<int>( curves[0].end ); ++i )
    {
        const float x = left + static_cast<float>( area.width * i / curves[0].end );
        drawStroke( canvas, { x, bottom }, { x, bottom + 5 }, 1.2F, palette.paleInk );
        const std::string label = curves[0].end > 1 ? "key " + std::to_string( i + 1 ) : "t = " + std::to_string( i );
        const float shift = i == 0 ? 0 : i < curves[0].end ? 0.5F : 1;
        drawText( canvas, x - shift * measureText( label, 10 ), bottom + 21, 10, label, palette.paleInk );
    }
}

struct Globe
{
    std::string title;
    std::string subtitle;
    std::vector<Curve> curves;
    GeVector3<double> direction; // whose way is drawn
    GePoint3<float> eye;         // of the picture
    double growth;               // of the radius over the time, so that turns do not cover one another
    int nbMarks;                 // steps of equal time
    bool hasKeys;
};

void drawGraticule( Scene& scene )
{
    constexpr float STEP = 3.14159265F / 12;
    for ( int i = 0; i < 12; ++i )
    {
        const float turn = STEP * static_cast<float>( i );
        std::vector<GePoint3<float>> meridian;
        std::vector<GePoint3<float>> parallel;
        for ( int j = 0; j <= 96; ++j )
        {
            const float angle = STEP / 4 * static_cast<float>( j );
            meridian.emplace_back(
                std::sin( angle ) * std::cos( turn ), std::cos( angle ), std::sin( angle ) * std::sin( turn ) );
            parallel.emplace_back(
                std::sin( turn ) * std::cos( angle ), std::cos( turn ), std::sin( turn ) * std::sin( angle ) );
        }
        scene.drawLine( meridian, 0.8, getPalette().rule, 0 );
        scene.drawLine( parallel, 0.8, getPalette().rule, 0 );
    }
}

void drawGlobe( Canvas& canvas, const Area& area, const Globe& globe )
{
    const Palette& palette = getPalette();
    drawPlate( canvas, area );
    const int size = area.width - 64;
    Scene scene( canvas, { area.x + 32, area.y + 72, size, size }, { globe.eye, {}, 0.35F, 1, 0.1F, 100, Y_UP } );
    scene.drawBall( {}, 0.992F, makeColor( 0xF4F6F8 ), 0.15F );
    drawGraticule( scene );
    const auto computePoint = [&]( const Curve& curve, double time )
    {
        return GePoint3<float>(
            GePoint3<double>() + curve.motion( time ) * globe.direction * ( 1.008 + globe.growth * time / curve.end ) );
    };
    for ( const Curve& curve : globe.curves )
    {
        std::vector<GePoint3<float>> points;
        for ( const double time : makeTimes( curve.end, 600 ) )
        {
            points.push_back( computePoint( curve, time ) );
        }
        drawCurve( scene, points, curve, 3.2, 0.25 );
    }
    scene.finish( canvas );

    for ( const Curve& curve : globe.curves )
    {
        for ( const double time : makeTimes( curve.end, globe.nbMarks ) )
        {
            const GePoint3<float> point = computePoint( curve, time );
            if ( scene.isFacing( point, GeVector3<float>( point ) ) )
            {
                const Spot spot = scene.computeSpot( point );
                const bool isKey = globe.hasKeys && isKeyTime( time );
                canvas.fillDisc( spot.x, spot.y, isKey ? 7.5F : 4.5F, isKey ? palette.ink : curve.color );
                canvas.fillDisc( spot.x, spot.y, isKey ? 5 : 2, palette.white );
                if ( isKey )
                {
                    drawText( canvas, spot.x + 11, spot.y - 7, 11, std::to_string( std::lround( time ) + 1 ),
                        palette.ink, 1.2F );
                }
            }
        }
    }
    const auto left = static_cast<float>( area.x + 18 );
    drawHeading( canvas, left, static_cast<float>( area.y + 34 ), globe.title, globe.subtitle );
    // what the lines are, each with a piece of it
    float x = left;
    const auto y = static_cast<float>( area.y + 72 + size + 22 );
    for ( const Curve& curve : globe.curves )
    {
        drawDashes( canvas, { { x, y - 5 }, { x + 26, y - 5 } }, 3, curve.color, curve.isDashed ? 7.0F : 30.0F, 3 );
        drawText( canvas, x + 34, y, 12, curve.name, palette.ink );
        x += 34 + measureText( curve.name, 12 ) + 24;
    }
    drawPlot( canvas, { area.x + 44, area.y + 72 + size + 72, area.width - 68, 150 }, globe.curves );
}

} // namespace

Canvas drawTracksPicture()
{
    const Palette& palette = getPalette();
    const Flight flight = AimAndInterpolate::makeFlight();
    const RotationTrack track = makeTrack( flight );
    Canvas canvas = makeBackground( WIDTH, HEIGHT );
    drawCaption( canvas, "Ways from one rotation to the next", "dots and axes lie at equal steps of time" );

    const Curve slerpFlight = {
        "slerp", [&]( double t ) { return track.slerp( t ); }, palette.series[0], track.getEnd() };
    const Curve squadFlight = {
        "squad", [&]( double t ) { return track.squad( t ); }, palette.series[1], track.getEnd(), true };
    const int top = 104;
    const int flightWidth = ( WIDTH - 2 * MARGIN - GAP ) / 2;
    const int flightHeight = 440;
    drawFlight( canvas, { MARGIN, top, flightWidth, flightHeight }, flight, slerpFlight,
        "slerp from key to key turns abruptly at the keys" );
    drawFlight( canvas, { MARGIN + flightWidth + GAP, top, flightWidth, flightHeight }, flight, squadFlight,
        "squad passes the keys smoothly" );

    const Rotation from = Rotation::makeRotation( { 1, 0.2, 0.1 }, 0.3 );
    const Rotation to = Rotation::makeRotation( { 0.25, 1, -0.1 }, 2.9 ) * from;
    // the direction that is before the eye half way
    const GePoint3<float> eye( 2.0F, 2.6F, 6.0F );
    const GeVector3<double> direction =
        Rotation::slerp( from, to, 0.5, 0 ).computeInverse() * GeVector3<double>( 0.35, 0.1, 0.9 ).computeUnit();
    const auto spinning = [=]( int nbSpins )
    { return [=]( double t ) { return Rotation::slerp( from, to, t, nbSpins ); }; };
    const Curve lerp = { "lerp", [=]( double t ) { return Rotation::lerp( from, to, t ); }, palette.series[2], 1 };
    const Curve slerp = { "slerp", spinning( 0 ), palette.series[0], 1 };
    const Curve noSpin = { "0 spins", spinning( 0 ), palette.series[0], 1 };
    const Curve oneSpin = { "1 spin", spinning( 1 ), palette.series[3], 1, true };

    const Globe globes[] = {
        { "lerp", "a straight blend: slow at the ends", { lerp }, direction, eye, 0, 2 * NB_STEPS, false },
        { "slerp", "equal steps are equal turns", { slerp }, direction, eye, 0, 2 * NB_STEPS, false },
        { "slerp with spins", "each adds a whole turn on the way", { noSpin, oneSpin }, direction, eye, 0.2, NB_STEPS,
            false },
        { "slerp and squad", "the line of sight of the flights above", { slerpFlight, squadFlight }, { 0, 0, -1 },
            { -1.4F, 1.2F, -6.4F }, 0, static_cast<int>( track.getEnd() ), true },
    };
    const int globeTop = top + flightHeight + GAP;
    const int globeWidth = ( WIDTH - 2 * MARGIN - 3 * GAP ) / 4;
    for ( int i = 0; i < 4; ++i )
    {
        drawGlobe( canvas, { MARGIN + i * ( globeWidth + GAP ), globeTop, globeWidth, HEIGHT - globeTop - MARGIN },
            globes[i] );
    }
    return canvas;
}

} // namespace Figures
