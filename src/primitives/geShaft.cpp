#include "geShaft.h"

#include "../base/text/textWriter.imp"
#include "../base/trace.h"
#include "internal/traceLevels.h"
#include "kernels/geShaftKernels.h"

#include <ostream>
#include <sstream>

namespace Zq
{

namespace
{

using Box = GeAlignedBox3<float>;
using Plane = GePlane3<float>;
using Containment = Interval<float>::Containment;

const Containment OUTSIDE = Interval<float>::OUTSIDE;
const Containment INSIDE = Interval<float>::INSIDE;
const Containment OVERLAP = Interval<float>::OVERLAP;
const Containment CONTAIN = Interval<float>::CONTAIN;

/// Faces that are closer than this are one, and boxes grow by this fraction of their size.
const float TOLERANCE = 0.001F;

const char* const FACE_NAMES[] = { "MIN_X", "MIN_Y", "MIN_Z", "MAX_X", "MAX_Y", "MAX_Z" };

/// Gives a flat box a thickness along its first flat axis; a box without one grows on all axes.
void widen( Box& box )
{
    const GeVector3<float> size = box.getSize();
    const float eps = size.computeMaxAbs() * TOLERANCE;
    const auto widenAxis = [&]( int axis )
    {
        const Interval<float> interval = box.getInterval( axis );
        box.setInterval( axis, { interval.min - eps, interval.max + eps } );
    };
    for ( int axis = 0; axis < 3; ++axis )
    {
        if ( FloatUtil::isEqual( size[axis], 0.0F ) )
        {
            widenAxis( axis );
            return;
        }
    }
    for ( int axis = 0; axis < 3; ++axis )
        widenAxis( axis );
}

// The value of a plane is summed in another order by each query; the orders are part of the results.

float computeValueXZY( const Plane& plane, const GePoint3<float>& p )
{
    const GeVector3<float>& n = plane.getNormal();
    return ( ( n.getX() * p.getX() + n.getZ() * p.getZ() ) + n.getY() * p.getY() ) + plane.getOffset();
}

float computeValueXYZ( const Plane& plane, const GePoint3<float>& p )
{
    const GeVector3<float>& n = plane.getNormal();
    return ( ( n.getX() * p.getX() + n.getY() * p.getY() ) + n.getZ() * p.getZ() ) + plane.getOffset();
}

/// z, y, x and without the offset, as planes are built
float computeDotZYX( const GeVector3<float>& n, const GePoint3<float>& p )
{
    return ( p.getZ() * n.getZ() + p.getY() * n.getY() ) + p.getX() * n.getX();
}

template <bool isExclude>
Containment classify( const Box& a, const Box& b )
{
    return isExclude ? a.classifyExclude( b ) : a.classify( b );
}

/// What a plane's value at a corner says. The conventions cross: closed boxes go with open planes.
template <bool isExclude>
bool isBeyondPlane( float value )
{
    return isExclude ? value > 0 : value >= 0;
}

} // namespace

void GeShaft::initialize( const GeAlignedBox3<float>& box1, const GeAlignedBox3<float>& box2 )
{
    // both are read before either is written: they may be boxes of this shaft
    const Box second = box2;
    _refBox1 = box1;
    _refBox2 = second;
    widen( _refBox1 );
    widen( _refBox2 );

    bool outer1[NB_FACES] = {};
    bool outer2[NB_FACES] = {};
    computeExtentBox( outer1, outer2 );
    traceFaces( outer1, outer2 );

    _nbPlanes = 0;
    for ( int i = 0; i < NB_FACES; ++i )
    {
        for ( int j = 0; j < NB_FACES; ++j )
        {
            if ( outer1[i] && outer2[j] && i % 3 != j % 3 )
                addPlane( i, j );
        }
    }
    Detail::checkNbPlanes( _nbPlanes );
}

void GeShaft::computeExtentBox( bool ( &outer1 )[NB_FACES], bool ( &outer2 )[NB_FACES] )
{
    for ( int axis = 0; axis < 3; ++axis )
    {
        const Interval<float> a = _refBox1.getInterval( axis );
        const Interval<float> b = _refBox2.getInterval( axis );
        Interval<float> extent;
        if ( FloatUtil::isEqual( a.min, b.min, TOLERANCE ) )
            extent.min = b.min < a.min ? b.min : a.min;
        else if ( a.min < b.min )
        {
            outer1[MIN_X + axis] = true;
            extent.min = a.min;
        }
        else
        {
            outer2[MIN_X + axis] = true;
            extent.min = b.min;
        }
        if ( FloatUtil::isEqual( a.max, b.max, TOLERANCE ) )
            extent.max = a.max < b.max ? b.max : a.max;
        else if ( a.max > b.max )
        {
            outer1[MAX_X + axis] = true;
            extent.max = a.max;
        }
        else
        {
            outer2[MAX_X + axis] = true;
            extent.max = b.max;
        }
        _extentBox.setInterval( axis, extent );
    }
}

void GeShaft::traceFaces( const bool ( &outer1 )[NB_FACES], const bool ( &outer2 )[NB_FACES] ) const
{
    const TraceLevel& level = *Detail::shaftTraceLevel;
    ZQ_TRACE( level, Detail::GE_SHAFT_FILE, "" );
    for ( int face = 0; face < NB_FACES; ++face )
        ZQ_TRACE( level, Detail::GE_SHAFT_FILE, "1 " << FACE_NAMES[face] << " =" << outer1[face] );
    ZQ_TRACE( level, Detail::GE_SHAFT_FILE, "" );
    for ( int face = 0; face < NB_FACES; ++face )
        ZQ_TRACE( level, Detail::GE_SHAFT_FILE, "2 " << FACE_NAMES[face] << " =" << outer2[face] );
    ZQ_TRACE( level, Detail::GE_SHAFT_FILE, _extentBox );
    ZQ_TRACE( level, Detail::GE_SHAFT_FILE, "" );
}

// The plane through the edge of _refBox1 where its faces face1 and face2 meet, and the same edge of _refBox2. Both
// edges are parallel to the third axis, and so is the plane.
void GeShaft::addPlane( int face1, int face2 )
{
    const int alpha = face1 % 3;
    const int beta = face2 % 3;
    GePoint3<float> p;
    GeVector3<float> n;
    p[alpha] = Detail::getFaceCoordinate( _refBox1, face1 );
    n[beta] = Detail::getFaceCoordinate( _refBox2, face1 ) - Detail::getFaceCoordinate( _refBox1, face1 );
    p[beta] = Detail::getFaceCoordinate( _refBox1, face2 );
    n[alpha] = Detail::getFaceCoordinate( _refBox1, face2 ) - Detail::getFaceCoordinate( _refBox2, face2 );
    float d = -computeDotZYX( n, p );
    ZQ_TRACE( *Detail::shaftTraceLevel, Detail::GE_SHAFT_FILE, "point=" << p );

    if ( computeDotZYX( n, _refBox1.getCenter() ) + d > 0 )
    {
        n = -n;
        d = -d;
    }
    _planeSet[_nbPlanes] = Plane( n, d );
    ++_nbPlanes;
    ZQ_TRACE( *Detail::shaftTraceLevel, Detail::GE_SHAFT_FILE,
        "Adding plane " << _planeSet[_nbPlanes - 1] << " to plane set." );
}

bool GeShaft::isEqualExact( const GeShaft& other ) const
{
    if ( !( _refBox1.isEqualExact( other._refBox1 ) && _refBox2.isEqualExact( other._refBox2 ) &&
             _extentBox.isEqualExact( other._extentBox ) && _nbPlanes == other._nbPlanes ) )
        return false;
    for ( int i = 0; i < _nbPlanes; ++i )
    {
        if ( !_planeSet[i].isEqualExact( other._planeSet[i] ) )
            return false;
    }
    return true;
}

bool GeShaft::isEqual( const GeShaft& other, float tolerance ) const
{
    if ( !( _refBox1.isEqual( other._refBox1, tolerance ) && _refBox2.isEqual( other._refBox2, tolerance ) &&
             _extentBox.isEqual( other._extentBox, tolerance ) && _nbPlanes == other._nbPlanes ) )
        return false;
    for ( int i = 0; i < _nbPlanes; ++i )
    {
        if ( !_planeSet[i].isEqual( other._planeSet[i], tolerance ) )
            return false;
    }
    return true;
}

bool GeShaft::contains( const GePoint3<float>& point ) const
{
    if ( !_extentBox.contains( point ) )
        return false;
    if ( _refBox1.contains( point ) || _refBox2.contains( point ) )
        return true;
    for ( int i = 0; i < _nbPlanes; ++i )
    {
        if ( !( computeValueXZY( _planeSet[i], point ) < 0 ) )
            return false;
    }
    return true;
}

bool GeShaft::containsExclude( const GePoint3<float>& point ) const
{
    if ( !_extentBox.containsExclude( point ) )
        return false;
    if ( _refBox1.containsExclude( point ) || _refBox2.containsExclude( point ) )
        return true;
    for ( int i = 0; i < _nbPlanes; ++i )
    {
        if ( !( computeValueXZY( _planeSet[i], point ) <= 0 ) )
            return false;
    }
    return true;
}

Interval<float>::Containment GeShaft::overlaps( const GeAlignedBox3<float>& box ) const
{
    return computeOverlap<false>( box );
}

Interval<float>::Containment GeShaft::overlapsExclude( const GeAlignedBox3<float>& box ) const
{
    return computeOverlap<true>( box );
}

void GeShaft::overlaps( const GeAlignedBox3<float>* boxes, std::size_t count, unsigned char* verdicts ) const
{
    Detail::getKernels<Detail::GeShaftKernels>().overlaps( *this, boxes, count, verdicts );
}

void GeShaft::overlapsExclude( const GeAlignedBox3<float>* boxes, std::size_t count, unsigned char* verdicts ) const
{
    Detail::getKernels<Detail::GeShaftKernels>().overlapsExclude( *this, boxes, count, verdicts );
}

// Its twin over lanes: kernels/geShaftKernels.imp.
template <bool isExclude>
Interval<float>::Containment GeShaft::computeOverlap( const GeAlignedBox3<float>& box ) const
{
    const Containment extent = classify<isExclude>( _extentBox, box );
    if ( extent == OUTSIDE )
        return OUTSIDE;
    if ( extent == INSIDE )
        return CONTAIN;
    // A reference box is part of the shaft. Boxes that reach out of the extent box cannot lie inside the shaft, those
    // within a reference box do. What is left is for the planes to decide.
    for ( const Box* refBox : { &_refBox1, &_refBox2 } )
    {
        const Containment ref = classify<isExclude>( *refBox, box );
        if ( ref == INSIDE || ref == OVERLAP )
            return OVERLAP;
        if ( ref == CONTAIN && extent == CONTAIN )
            return INSIDE;
    }

    Containment answer = extent == CONTAIN ? INSIDE : OVERLAP;
    for ( int i = 0; i < _nbPlanes; ++i )
    {
        const Plane& plane = _planeSet[i];
        if ( isBeyondPlane<isExclude>( computeValueXZY( plane, box.getNearCorner( plane.getNormal() ) ) ) )
            return OUTSIDE;
        // once it overlaps, a later plane can still put the box outside
        if ( answer == INSIDE &&
            isBeyondPlane<isExclude>( computeValueXYZ( plane, box.getFarCorner( plane.getNormal() ) ) ) )
            answer = OVERLAP;
    }
    return answer;
}

void GeShaft::dump( std::ostream& os ) const
{
    Detail::dumpLines( os, *this );
}

} // namespace Zq
