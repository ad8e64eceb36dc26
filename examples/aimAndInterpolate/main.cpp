// aimAndInterpolate: a camera is aimed at its keys, and its rotation is interpolated between them.
//
// The page to copy from is rotationTrack.h with rotationTrack.cpp: aiming, slerp, and squad with its control quaternions.

#include "commandLine.h"
#include "options.h"
#include "outputFiles.h"
#include "picture.h"
#include "pngEncoder.h"
#include "scene.h"

#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace AimAndInterpolate
{

namespace
{

struct NamedConvention
{
    Rotation::EulerConvention convention;
    const char* name;
    const char* meaning;
};

constexpr NamedConvention CONVENTIONS[] = {
    { Rotation::EULER_XYZ_STATIC, "EULER_XYZ_STATIC", "about the world's x, then y, then z" },
    { Rotation::EULER_YXZ_ROTATING, "EULER_YXZ_ROTATING", "yaw, pitch and roll" },
    { Rotation::EULER_ZXZ_ROTATING, "EULER_ZXZ_ROTATING", "z, the moved x, the moved z" },
};

std::string formatAngles( const Rotation& rotation, Rotation::EulerConvention convention )
{
    constexpr double DEGREES = 57.29577951308232;
    double angles[3];
    rotation.getEuler( convention, angles[0], angles[1], angles[2] );
    std::ostringstream text;
    text << std::fixed << std::setprecision( 2 );
    for ( const double angle : angles )
    {
        // adding 0 makes 0 of -0
        text << std::setw( 9 ) << std::round( angle * DEGREES * 100 ) / 100 + 0.0;
    }
    return text.str();
}

void printKeys( const Scene& scene, const RotationTrack& track )
{
    std::cout << "Euler angles of the keys in degrees\n";
    for ( const NamedConvention& named : CONVENTIONS )
    {
        std::cout << "  " << std::left << std::setw( 20 ) << named.name << named.meaning << '\n' << std::right;
    }
    std::cout << "\nkey";
    for ( const NamedConvention& named : CONVENTIONS )
    {
        std::cout << "  " << std::setw( 27 ) << named.name;
    }
    std::cout << '\n';
    for ( std::size_t i = 0; i < scene.keys.size(); ++i )
    {
        std::cout << std::setw( 3 ) << i + 1;
        for ( const NamedConvention& named : CONVENTIONS )
        {
            std::cout << "  " << formatAngles( track.slerp( static_cast<double>( i ) ), named.convention );
        }
        std::cout << '\n';
    }
}

int run( const Options& options )
{
    Examples::checkWritable( options.pictureFile );
    const Scene scene = makeScene();
    const RotationTrack track = makeTrack( scene );
    const Examples::Canvas picture = drawPicture( scene, track, options.nbSteps, options.nbSpins );
    Examples::writeAll( { { options.pictureFile, Examples::encodePng( picture ) } } );

    printKeys( scene, track );
    std::cout << "\nwrote " << options.pictureFile.string() << '\n';
    return 0;
}

} // namespace

} // namespace AimAndInterpolate

int main( int argc, char** argv )
{
    using namespace AimAndInterpolate;
    return Examples::runProgram( "aimAndInterpolate",
        [&]
        {
            const std::optional<Options> options = parseOptions( argc, argv );
            return options ? run( *options ) : 0;
        } );
}
