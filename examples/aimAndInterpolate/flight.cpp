#include "flight.h"

#include <algorithm>

namespace AimAndInterpolate
{

using namespace Zq;

Flight makeFlight()
{
    Flight flight;
    flight.balls = { { { -3.4, 0.5, -1.0 }, 0.5 }, { { 0.2, 2.0, -2.0 }, 0.4 }, { { 3.6, 0.6, -0.8 }, 0.6 } };
    flight.keys = { { { -4.8, 1.6, 2.4 }, 0, 0 }, { { -2.5, 0.8, 3.2 }, 1, 0.35 }, { { 0.0, 2.0, 2.6 }, 2, 0 },
        { { 2.5, 1.2, 3.2 }, 0, -0.6 }, { { 4.8, 0.9, 2.0 }, 1, 0 } };
    return flight;
}

RotationTrack makeTrack( const Flight& flight )
{
    std::vector<Rotation> rotations;
    for ( const Key& key : flight.keys )
    {
        // the right factor acts first: the camera rolls about its own z axis, and then it is aimed
        const Rotation roll = Rotation::makeRotation( { 0, 0, 1 }, key.roll );
        rotations.push_back( aimCamera( key.eye, flight.balls[key.ball].center ) * roll );
    }
    return RotationTrack( rotations );
}

GePoint3<double> computeEye( const Flight& flight, double time )
{
    const std::size_t nbKeys = flight.keys.size();
    const auto i = static_cast<std::size_t>( std::clamp( time, 0.0, static_cast<double>( nbKeys - 2 ) ) );
    const double t = time - static_cast<double>( i );
    // a cubic with half the way from the key before to the key after as the speed at each key (Catmull and Rom, A Class
    // of Local Interpolating Splines, 1974); an end counts as its own neighbour
    const GePoint3<double>& before = flight.keys[i > 0 ? i - 1 : 0].eye;
    const GePoint3<double>& from = flight.keys[i].eye;
    const GePoint3<double>& to = flight.keys[i + 1].eye;
    const GePoint3<double>& after = flight.keys[std::min( i + 2, nbKeys - 1 )].eye;
    const GeVector3<double> way = to - from;
    const GeVector3<double> begin = ( to - before ) * 0.5;
    const GeVector3<double> end = ( after - from ) * 0.5;
    return from + begin * t + ( way * 3 - begin * 2 - end ) * ( t * t ) + ( begin + end - way * 2 ) * ( t * t * t );
}

} // namespace AimAndInterpolate
