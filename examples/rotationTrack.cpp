// How does a camera turn smoothly through key rotations?

#include "example.h"

#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geRotation3.h>
#include <zq/primitives/geUnitVector3.h>

#include <iostream>

using namespace Zq;

using Rotation = GeQuaternion3<double>;

// Carries camera axes to world axes: the camera looks along -z, so its z axis points back from the target.
static Rotation aim( const GePoint3<double>& eye, const GePoint3<double>& target )
{
    const GeVector3<double> up( 0, 1, 0 );
    return Rotation( GeRotation3<double>::aim( GeUnitVector3<double>( eye - target ), up, 2, 1, false ) );
}

// With this control quaternion the curve's direction at the key is the mean of the arcs that come and go (K. Shoemake,
// Quaternion Calculus and Fast Animation, 1987): key exp( -( log( key^-1 next ) + log( key^-1 previous ) ) / 4 ).
static Rotation makeControl( const Rotation& previous, const Rotation& key, const Rotation& next )
{
    const Rotation inverse = key.computeInverse();
    const Rotation arcs = Rotation::log( inverse * next ) + Rotation::log( inverse * previous );
    const GeVector3<double> v = GeVector3<double>( arcs.getX(), arcs.getY(), arcs.getZ() ) * -0.25;
    return key * Rotation::makeRotation( v, 2 * v.length() );
}

static void answer()
{
    const GePoint3<double> eye( 0, 0, 5 );
    Rotation keys[4] = {
        aim( eye, { -4, 0, 0 } ), aim( eye, { 0, 2, 0 } ), aim( eye, { 1, 0, 0 } ), aim( eye, { 6, 0, 2 } ) };
    for ( int i = 1; i < 4; ++i )
    {
        // q and -q are one rotation: take the one that is nearer to the key before
        if ( !Rotation::isShortestGreatCircle( keys[i - 1], keys[i] ) )
        {
            keys[i] = -keys[i];
        }
    }
    // between keys 1 and 2, with their neighbours
    const Rotation controls[2] = { makeControl( keys[0], keys[1], keys[2] ), makeControl( keys[1], keys[2], keys[3] ) };
    for ( const double t : { 0.0, 0.25, 0.5, 0.75, 1.0 } )
    {
        const Rotation slerp = Rotation::slerp( keys[1], keys[2], t, 0 );
        const Rotation squad = Rotation::squad( keys[1], controls[0], controls[1], keys[2], t );
        const GeVector3<double> forwards( 0, 0, -1 );
        std::cout << "t = " << t << ": slerp looks along " << slerp * forwards << ", squad along " << squad * forwards
                  << '\n';
    }
}

int main( int argc, char** argv )
{
    return Examples::runExample(
        argc, argv, "rotationTrack", "How does a camera turn smoothly through key rotations?", answer );
}
