// Boxes against the shaft between two boxes. No peer has one.

#include "inputs.h"
#include "rows.h"

#include <zq/primitives/geShaft.h>

namespace ZqBench
{

namespace
{

using Box = Zq::GeAlignedBox3<float>;
using Containment = Zq::Interval<float>::Containment;
using Plane = Zq::GePlane3<float>;
using Point = Zq::GePoint3<float>;
using Vector = Zq::GeVector3<float>;

constexpr std::size_t COUNT = 100000;

Zq::GeShaft makeShaft()
{
    return { Box( Point( 0, 0, 0 ), Point( 10, 12, 9 ) ), Box( Point( 40, 20, -15 ), Point( 55, 30, -2 ) ) };
}

std::vector<Box> makeBoxes( std::size_t count )
{
    Random random( 5 );
    const Zq::GeShaft shaft = makeShaft();
    const auto make = [&]
    {
        const Point center = Point( 27, 15, -3 ) +
            Vector( random.uniform( -35.0F, 35.0F ), random.uniform( -22.0F, 22.0F ), random.uniform( -20.0F, 20.0F ) );
        const float x = makeLength( random, 0.1F, 8.0F );
        const float y = makeLength( random, 0.1F, 8.0F );
        const float z = makeLength( random, 0.1F, 8.0F );
        const Vector half( x, y, z );
        return Box( center - half, center + half );
    };
    // outside, inside, overlap: the first three; a box of this size never contains the shaft
    return makeBalanced( count, 3, random, make, [&]( const Box& box ) { return shaft.overlaps( box ); } );
}

constexpr auto getBoxes = getShared<Box, makeBoxes>;

/// The rule step by step, with every early exit that it offers.
template <bool isExclude>
struct PlainShaft
{
    Box extent;
    Box references[2];
    Plane planes[Zq::GeShaft::NB_MAX_PLANES];
    unsigned short nbPlanes = 0;

    PlainShaft()
    {
        const Zq::GeShaft shaft = makeShaft();
        extent = shaft.getExtentBox();
        references[0] = shaft.getRefBox1();
        references[1] = shaft.getRefBox2();
        const Plane* const first = shaft.getPlaneSet( nbPlanes );
        std::copy( first, first + nbPlanes, planes );
    }

    static Containment classify( const Box& a, const Box& b )
    {
        return isExclude ? a.classifyExclude( b ) : a.classify( b );
    }

    static bool isBeyond( float value ) { return isExclude ? value > 0 : value >= 0; }

    unsigned char operator()( const Box& box ) const
    {
        using I = Zq::Interval<float>;
        const Containment whole = classify( extent, box );
        if ( whole == I::OUTSIDE )
            return I::OUTSIDE;
        if ( whole == I::INSIDE )
            return I::CONTAIN;
        for ( const Box& reference : references )
        {
            const Containment part = classify( reference, box );
            if ( part == I::INSIDE || part == I::OVERLAP )
                return I::OVERLAP;
            if ( part == I::CONTAIN && whole == I::CONTAIN )
                return I::INSIDE;
        }
        unsigned char answer = whole == I::CONTAIN ? I::INSIDE : I::OVERLAP;
        for ( int i = 0; i < nbPlanes; ++i )
        {
            const Plane& plane = planes[i];
            if ( isBeyond( plane.computeValue( box.getNearCorner( plane.getNormal() ) ) ) )
                return I::OUTSIDE;
            if ( answer == I::INSIDE && isBeyond( plane.computeValue( box.getFarCorner( plane.getNormal() ) ) ) )
                answer = I::OVERLAP;
        }
        return answer;
    }
};

} // namespace

void addShaftRows()
{
    const Zq::GeShaft shaft = makeShaft();
    addSingles( { "shaftBox", "ours", COUNT }, getBoxes,
        [=]( const Box& box ) { return static_cast<unsigned char>( shaft.overlaps( box ) ); } );
    addArray<unsigned char>( { "shaftBoxArray", "ours", COUNT }, getBoxes,
        [=]( const Box* boxes, std::size_t count, unsigned char* verdicts )
        { shaft.overlaps( boxes, count, verdicts ); } );
    addArray<unsigned char>( { "shaftBoxExcludeArray", "ours", COUNT }, getBoxes,
        [=]( const Box* boxes, std::size_t count, unsigned char* verdicts )
        { shaft.overlapsExclude( boxes, count, verdicts ); } );
    addSingles( { "shaftBox", "plain", COUNT }, getBoxes, PlainShaft<false>() );
    addLoop( { "shaftBoxArray", "plain", COUNT }, getBoxes, PlainShaft<false>() );
    addLoop( { "shaftBoxExcludeArray", "plain", COUNT }, getBoxes, PlainShaft<true>() );
    addFloor( "shaftBoxArray", COUNT, getBoxes );
    addFloor( "shaftBoxExcludeArray", COUNT, getBoxes );
}

} // namespace ZqBench
