#include "picture.h"

#include "legend.h"
#include "text.h"
#include "view3D.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace AimAndInterpolate
{

using namespace Examples;
using namespace Zq;

namespace
{

using Motion = std::function<Rotation( double time )>;

constexpr int WIDTH = 1600;
constexpr int HEIGHT = 1130;
constexpr int MARGIN = 28;
constexpr int GAP = 16;

struct Palette
{
    Color ink = makeColor( 0x22303C );
    Color paleInk = makeColor( 0x5C6B78 );
    Color line = makeColor( 0xC3CCD4 );
    Color lerp = makeColor( 0xD9603B );
    Color slerp = makeColor( 0x2F6DB5 );
    Color squad = makeColor( 0x2A8F68 );
    Color spins[4] = { makeColor( 0x2F6DB5 ), makeColor( 0xE0A030 ), makeColor( 0xA23E8C ), makeColor( 0x5DAE8B ) };
    Color axes[3] = { makeColor( 0xCF3F4F ), makeColor( 0x3FA34D ), makeColor( 0x3D6FD6 ) };
    Color balls[3] = { makeColor( 0xE07A5F ), makeColor( 0xE9C46A ), makeColor( 0x7C93B2 ) };
    Color globe = makeColor( 0xF4F6F8 );
};

const Palette& getPalette()
{
    static const Palette palette;
    return palette;
}

// A motion to be drawn, from time 0 to `end`.
struct Curve
{
    Motion motion;
    Color color;
    double end;
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

void drawTitle( Canvas& canvas, const Area& area, const std::string& title, const std::string& subtitle )
{
    const auto x = static_cast<float>( area.x + 18 );
    const auto y = static_cast<float>( area.y );
    drawText( canvas, x, y + 34, 15, title, getPalette().ink, 1.15F );
    drawText( canvas, x, y + 58, 11.5F, subtitle, getPalette().paleInk );
}

void drawPanel( Canvas& canvas, const Area& area )
{
    canvas.fillRoundedRectangle( static_cast<float>( area.x ), static_cast<float>( area.y ),
        static_cast<float>( area.width ), static_cast<float>( area.height ), 12, makeColor( 0xFFFFFF ), 0.6F );
}

// The flight ----------------------------------------------------------------------------------------------------------

void drawAxes( View3D& view, const GePoint3<double>& origin, const Rotation& rotation, double size, double width )
{
    const GeVector3<double> axes[] = { { size, 0, 0 }, { 0, size, 0 }, { 0, 0, size } };
    for ( int i = 0; i < 3; ++i )
    {
        view.drawLine( { origin, origin + rotation * axes[i] }, width, getPalette().axes[i], 0.3 );
    }
}

void drawFlight(
    Canvas& canvas, const Area& area, const Scene& scene, const Curve& curve, const std::string& title, int nbSteps )
{
    constexpr double SIGHT = 1.5; // how far along the line of sight the coloured curve runs
    const Palette& palette = getPalette();
    drawPanel( canvas, area );
    const Area inner = { area.x, area.y + 50, area.width, area.height - 58 };
    View3D view( canvas, inner, { 0.6, 8.2, 12.0 }, { 0.1, 0.75, 0.9 }, 0.47 );

    for ( std::size_t i = 0; i < scene.balls.size(); ++i )
    {
        view.drawBall( scene.balls[i].center, scene.balls[i].radius, palette.balls[i % 3], 0.3F );
    }
    for ( int i = -6; i <= 6; ++i )
    {
        view.drawLine( { { double( i ), 0, -3 }, { double( i ), 0, 4 } }, 1, palette.line, 0 );
        if ( i >= -3 && i <= 4 )
        {
            view.drawLine( { { -6, 0, double( i ) }, { 6, 0, double( i ) } }, 1, palette.line, 0 );
        }
    }

    std::vector<GePoint3<double>> path;
    std::vector<GePoint3<double>> sight;
    for ( const double time : makeTimes( curve.end, 400 ) )
    {
        path.push_back( computeEye( scene, time ) );
        sight.push_back( path.back() + curve.motion( time ) * GeVector3<double>( 0, 0, -SIGHT ) );
    }
    for ( const Key& key : scene.keys )
    {
        view.drawLine( { key.eye, { key.eye.getX(), 0, key.eye.getZ() } }, 1.2, palette.line );
        view.drawLine( { key.eye, scene.balls[key.ball].center }, 1, palette.paleInk, 0 );
    }
    view.drawLine( path, 2.2, palette.ink );
    for ( const double time : makeTimes( curve.end, nbSteps * static_cast<int>( curve.end ) ) )
    {
        const GePoint3<double> eye = computeEye( scene, time );
        const Rotation rotation = curve.motion( time );
        view.drawLine( { eye, eye + rotation * GeVector3<double>( 0, 0, -SIGHT ) }, 1, curve.color, 0.2 );
        const bool isKey = std::abs( time - std::round( time ) ) < 1e-9;
        drawAxes( view, eye, rotation, isKey ? 0.55 : 0.3, isKey ? 4 : 2 );
    }
    view.drawLine( sight, 3.6, curve.color, 0.35 );
    view.finish();

    for ( std::size_t i = 0; i < scene.keys.size(); ++i )
    {
        const Pixel end =
            view.computePixel( scene.keys[i].eye + curve.motion( double( i ) ) * GeVector3<double>( 0, 0, -SIGHT ) );
        canvas.fillDisc( end[0], end[1], 6, palette.ink );
        canvas.fillDisc( end[0], end[1], 4, palette.globe );
        const Pixel eye = view.computePixel( scene.keys[i].eye );
        drawText( canvas, eye[0] - 4, eye[1] + 24, 12, std::to_string( i + 1 ), palette.ink, 1.2F );
    }
    drawTitle(
        canvas, area, title, "five keys, each aimed at a ball; axes of the camera, and the end of its line of sight" );
}

// The globes ----------------------------------------------------------------------------------------------------------

void drawPlot( Canvas& canvas, const Area& area, const std::vector<Curve>& curves, double limit )
{
    const Palette& palette = getPalette();
    const auto left = static_cast<float>( area.x );
    const auto right = static_cast<float>( area.x + area.width );
    const auto bottom = static_cast<float>( area.y + area.height );
    for ( const Curve& curve : curves )
    {
        std::vector<Pixel> points;
        for ( const double time : makeTimes( curve.end, 600 ) )
        {
            const double height = area.height * computeSpeed( curve, time ) / limit;
            points.push_back(
                { left + static_cast<float>( area.width * time / curve.end ), bottom - static_cast<float>( height ) } );
        }
        fillBelow( canvas, points, bottom, curve.color, 0.13F );
        drawPolyline( canvas, points, 2.4F, curve.color );
    }
    drawPolyline( canvas, { { left, bottom }, { right, bottom } }, 1.2F, palette.paleInk );
    drawText( canvas, left, static_cast<float>( area.y ) - 10, 10, "speed of turning", palette.paleInk );
    // a mark at every whole time, with the number of the key or the time
    for ( int i = 0; i <= static_cast<int>( curves[0].end ); ++i )
    {
        const float x = left + static_cast<float>( area.width * i / curves[0].end );
        drawPolyline( canvas, { { x, bottom }, { x, bottom + 5 } }, 1.2F, palette.paleInk );
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
    std::vector<std::string> names; // of the curves; none when there is nothing to tell apart
    GeVector3<double> direction;    // whose way is drawn
    GePoint3<double> eye;           // of the picture
    double growth = 0;              // of the radius over the time, so that turns do not cover one another
    int nbMarks;                    // steps of equal time
    bool hasKeys = false;
    double limit; // of the plot, radians per unit of time
};

void drawGlobe( Canvas& canvas, const Area& area, const Globe& globe )
{
    const Palette& palette = getPalette();
    drawPanel( canvas, area );
    const int size = area.width - 40;
    View3D view( canvas, { area.x + 20, area.y + 66, size, size }, globe.eye, {}, 0.35 );
    view.drawBall( {}, 0.992, palette.globe, 0.15F );
    constexpr double STEP = 3.14159265358979 / 12;
    for ( int i = 0; i < 12; ++i )
    {
        std::vector<GePoint3<double>> meridian;
        std::vector<GePoint3<double>> parallel;
        const double radius = std::sin( i * STEP );
        for ( const double angle : makeTimes( 24 * STEP, 96 ) )
        {
            meridian.emplace_back(
                std::sin( angle ) * std::cos( i * STEP ), std::cos( angle ), std::sin( angle ) * std::sin( i * STEP ) );
            parallel.emplace_back( radius * std::cos( angle ), std::cos( i * STEP ), radius * std::sin( angle ) );
        }
        view.drawLine( meridian, 0.8, palette.line, 0 );
        view.drawLine( parallel, 0.8, palette.line, 0 );
    }
    const auto computePoint = [&]( const Curve& curve, double time ) {
        return GePoint3<double>() +
            curve.motion( time ) * globe.direction * ( 1.008 + globe.growth * time / curve.end );
    };
    for ( const Curve& curve : globe.curves )
    {
        std::vector<GePoint3<double>> points;
        for ( const double time : makeTimes( curve.end, 600 ) )
        {
            points.push_back( computePoint( curve, time ) );
        }
        view.drawLine( points, 3.2, curve.color, 0.25 );
    }
    view.finish();

    for ( const Curve& curve : globe.curves )
    {
        for ( const double time : makeTimes( curve.end, globe.nbMarks ) )
        {
            const GePoint3<double> point = computePoint( curve, time );
            if ( view.isFacing( point, point - GePoint3<double>() ) )
            {
                const Pixel pixel = view.computePixel( point );
                const bool isKey = globe.hasKeys && std::abs( time - std::round( time ) ) < 1e-9;
                canvas.fillDisc( pixel[0], pixel[1], isKey ? 7.5F : 4.5F, isKey ? palette.ink : curve.color );
                canvas.fillDisc( pixel[0], pixel[1], isKey ? 5 : 2, palette.globe );
                if ( isKey )
                {
                    drawText( canvas, pixel[0] + 11, pixel[1] - 7, 11, std::to_string( std::lround( time ) + 1 ),
                        palette.ink, 1.2F );
                }
            }
        }
    }
    drawTitle( canvas, area, globe.title, globe.subtitle );
    const Area plot = { area.x + 24, area.y + 66 + size + 34, area.width - 48, 70 };
    drawPlot( canvas, plot, globe.curves, globe.limit );
    auto x = static_cast<float>( plot.x + plot.width );
    for ( std::size_t i = globe.names.size(); i-- > 0; )
    {
        x -= measureText( globe.names[i], 10 );
        drawText( canvas, x, static_cast<float>( plot.y - 6 ), 10, globe.names[i], globe.curves[i].color, 1.3F );
        x -= 14;
    }
}

} // namespace

Canvas drawPicture( const Scene& scene, const RotationTrack& track, int nbSteps, int nbSpins )
{
    const Palette& palette = getPalette();
    Canvas canvas( WIDTH, HEIGHT );
    canvas.fillVerticalGradient( makeColor( 0xF6F4EF ), makeColor( 0xDDE3E9 ) );
    drawCaption( canvas, "Ways from one rotation to the next",
        "dots and axes lie at equal steps of time; red, green and blue are the x, y and z axes of the camera" );

    const Curve slerpFlight = { [&]( double t ) { return track.slerp( t ); }, palette.slerp, track.getEnd() };
    const Curve squadFlight = { [&]( double t ) { return track.squad( t ); }, palette.squad, track.getEnd() };
    const int top = 104;
    const int flightWidth = ( WIDTH - 2 * MARGIN - GAP ) / 2;
    const int flightHeight = 452;
    drawFlight( canvas, { MARGIN, top, flightWidth, flightHeight }, scene, slerpFlight,
        "slerp from key to key turns abruptly", nbSteps );
    drawFlight( canvas, { MARGIN + flightWidth + GAP, top, flightWidth, flightHeight }, scene, squadFlight,
        "squad passes the keys smoothly", nbSteps );

    const Rotation from = Rotation::makeRotation( { 1, 0.2, 0.1 }, 0.3 );
    const Rotation to = Rotation::makeRotation( { 0.25, 1, -0.1 }, 2.9 ) * from;
    // the direction that is before the eye half way
    const GePoint3<double> eye( 2.0, 2.6, 6.0 );
    const GeVector3<double> direction =
        Rotation::slerp( from, to, 0.5, 0 ).computeInverse() * GeVector3<double>( 0.35, 0.1, 0.9 ).computeUnit();
    const Curve lerp = { [&]( double t ) { return Rotation::lerp( from, to, t ); }, palette.lerp, 1 };
    std::vector<Curve> spins;
    std::vector<std::string> spinNames;
    for ( int spin = 0; spin <= nbSpins; ++spin )
    {
        spins.push_back(
            { [&, spin]( double t ) { return Rotation::slerp( from, to, t, spin ); }, palette.spins[spin], 1 } );
        spinNames.push_back( std::to_string( spin ) );
    }
    spinNames[0] += nbSpins == 0 ? " spins" : "";
    if ( nbSpins > 0 )
    {
        spinNames.back() += nbSpins == 1 ? " spin" : " spins";
    }

    const Globe globes[] = {
        { "lerp", "a straight blend: slow at the ends", { lerp }, {}, direction, eye, 0, 2 * nbSteps, false, 4 },
        { "slerp", "equal steps are equal turns", { spins[0] }, {}, direction, eye, 0, 2 * nbSteps, false, 4 },
        { "slerp with spins", "each adds one whole turn on the way", spins, spinNames, direction, eye, 0.2, nbSteps,
            false, 2.9 + 6.3 * std::max( nbSpins, 1 ) },
        { "slerp and squad", "the line of sight of the flight above", { slerpFlight, squadFlight },
            { "slerp", "squad" }, { 0, 0, -1 }, { -1.4, 1.2, -6.4 }, 0, static_cast<int>( track.getEnd() ), true, 3 },
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

} // namespace AimAndInterpolate
