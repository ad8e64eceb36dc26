#include "rotationTrack.h"

#include <zq/primitives/geRotation3.h>

#include <algorithm>

namespace AimAndInterpolate
{

using namespace Zq;

Rotation aimCamera( const GePoint3<double>& eye, const GePoint3<double>& target )
{
    // The camera looks along -z, so its z axis points back from the target. y lies in the plane of z and "up", and as
    // columns the basis is what the coordinate axes are carried to.
    const GeUnitVector3<double> back( eye - target );
    const GeVector3<double> up( 0, 1, 0 );
    return Rotation( GeRotation3<double>::aim( back, up, 2, 1, false ) );
}

namespace
{

// exp of (v, 0), which is what GeQuaternion3::log() makes: (v sin(a) / a, cos(a)), a the length of v. It is the
// rotation by 2 a about v. (GeQuaternion3::exp() divides the length out first, so it does not undo log().)
Rotation expOfVector( const Rotation& q )
{
    const GeVector3<double> v( q.getX(), q.getY(), q.getZ() );
    return Rotation::makeRotation( v, 2 * v.length() );
}

// The control quaternion of a key: q exp( -( log( q^-1 next ) + log( q^-1 previous ) ) / 4 ). With it the curve's
// direction at the key is the mean of the arcs that come and go (Shoemake, Quaternion Calculus and Fast Animation, 1987).
// GeQuaternion3::computeIntermediates() reports for every key and cannot be used for it.
Rotation computeControl( const Rotation& previous, const Rotation& key, const Rotation& next )
{
    const Rotation inverse = key.computeInverse();
    const Rotation arcs = Rotation::log( inverse * next ) + Rotation::log( inverse * previous );
    return key * expOfVector( arcs * -0.25 );
}

} // namespace

RotationTrack::RotationTrack( std::vector<Rotation> keys ) : _keys( std::move( keys ) )
{
    // q and -q are one rotation. With a sign that is the nearer one to the key before, no slerp has to change it: slerp
    // ends where the next one begins, and the controls lie on the same side.
    for ( std::size_t i = 1; i < _keys.size(); ++i )
    {
        if ( !Rotation::isShortestGreatCircle( _keys[i - 1], _keys[i] ) )
        {
            _keys[i] = -_keys[i];
        }
    }
    _controls = _keys;
    for ( std::size_t i = 1; i + 1 < _keys.size(); ++i )
    {
        _controls[i] = computeControl( _keys[i - 1], _keys[i], _keys[i + 1] );
    }
}

double RotationTrack::getEnd() const
{
    return static_cast<double>( _keys.size() - 1 );
}

std::size_t RotationTrack::findSegment( double time ) const
{
    return static_cast<std::size_t>( std::clamp( time, 0.0, getEnd() - 1 ) );
}

Rotation RotationTrack::slerp( double time ) const
{
    const std::size_t i = findSegment( time );
    return Rotation::slerp( _keys[i], _keys[i + 1], time - static_cast<double>( i ), 0 );
}

Rotation RotationTrack::squad( double time ) const
{
    const std::size_t i = findSegment( time );
    return Rotation::squad( _keys[i], _controls[i], _controls[i + 1], _keys[i + 1], time - static_cast<double>( i ) );
}

} // namespace AimAndInterpolate
