// aimAndInterpolate: a camera is aimed at its keys, and its rotation is interpolated between them.
//
// The page to copy from is rotationTrack.h with rotationTrack.cpp: aiming, slerp, and squad with its control quaternions.

#include "example.h"
#include "flight.h"

#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace AimAndInterpolate
{

using namespace Zq;

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

void printKeys( const Flight& flight, const RotationTrack& track )
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
    for ( std::size_t i = 0; i < flight.keys.size(); ++i )
    {
        std::cout << std::setw( 3 ) << i + 1;
        for ( const NamedConvention& named : CONVENTIONS )
        {
            std::cout << "  " << formatAngles( track.slerp( static_cast<double>( i ) ), named.convention );
        }
        std::cout << '\n';
    }
}

// How fast the camera turns at a time, in degrees per unit of time: by how much over a short while.
double computeSpeed( Rotation ( RotationTrack::*motion )( double ) const, const RotationTrack& track, double time )
{
    constexpr double DEGREES = 57.29577951308232;
    constexpr double STEP = 1e-4;
    const Rotation turn = ( track.*motion )( time + STEP ) * ( track.*motion )( time ).computeInverse();
    GeVector3<double> axis;
    double angle = 0;
    ( turn.getW() < 0 ? -turn : turn ).getAxisAngle( axis, angle );
    return DEGREES * angle / STEP;
}

void printSpeeds( const RotationTrack& track )
{
    std::cout << "\nspeed of turning in degrees per unit of time; the keys are at 0, 1, 2, ...\n"
              << " time  slerp  squad\n"
              << std::fixed;
    constexpr int NB_STEPS = 4; // between one key and the next
    for ( int i = 0; i < NB_STEPS * static_cast<int>( track.getEnd() ); ++i )
    {
        const double time = static_cast<double>( i ) / NB_STEPS;
        std::cout << std::setprecision( 2 ) << std::setw( 5 ) << time << std::setprecision( 0 ) << std::setw( 7 )
                  << computeSpeed( &RotationTrack::slerp, track, time ) << std::setw( 7 )
                  << computeSpeed( &RotationTrack::squad, track, time ) << '\n';
    }
}

} // namespace

static void answer()
{
    const Flight flight = makeFlight();
    const RotationTrack track = makeTrack( flight );
    printKeys( flight, track );
    printSpeeds( track );
}

} // namespace AimAndInterpolate

int main( int argc, char** argv )
{
    return Examples::runExample( argc, argv, "aimAndInterpolate",
        "How does a camera turn that is aimed at a few keys? Prints the keys as Euler angles, and how fast slerp and\n"
        "squad turn between them.",
        AimAndInterpolate::answer );
}
