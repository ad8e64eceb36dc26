#include "support/cameras.h"
#include "support/prelude.h"

#include <zq/primitives/geCascadeBuilder.h>

namespace
{

ZQ_TWIN_SUITE( CascadeBuilder );

using ZqTest::makeView;
using ZqTest::ranges;

/// Where a point is in the map, in texels from the corner, as the hardware would find it in T; the depth from 0 to 1.
template <class Cascade, class T>
GePoint3<T> computePlace( const Cascade& cascade, const GePoint3<T>& point, int resolution, GeDepthRange range )
{
    const GePoint3<T> p = cascade.view * point;
    const auto clip = cascade.projection * GeHomogeneousCoord3<T>( p.getX(), p.getY(), p.getZ(), 1 );
    const T half = T( resolution ) / 2, z = clip.getZ();
    const T depth = range == GeDepthRange::MINUS_ONE_TO_ONE ? ( z + 1 ) / 2
        : range == GeDepthRange::ZERO_TO_ONE                ? z
                                                            : 1 - z;
    return { ( clip.getX() + 1 ) * half, ( clip.getY() + 1 ) * half, depth };
}

template <class T>
std::array<GePoint3<T>, 8> computeCorners( const GeAffineMatrix3<T>& view, T tangent, T aspect, T near, T far )
{
    std::array<GePoint3<T>, 8> corners;
    const GeAffineMatrix3<T> toWorld = view.computeInverse();
    for ( int i = 0; i < 8; ++i )
    {
        const T t = i & 4 ? far : near, x = i & 1 ? tangent * aspect : -tangent * aspect,
                y = i & 2 ? tangent : -tangent;
        corners[static_cast<std::size_t>( i )] = toWorld * GePoint3<T>( x * t, y * t, -t );
    }
    return corners;
}

ZQ_TWIN_TEST( CascadeBuilder, HoldsTheSliceAndItsCastersWithAMargin )
{
    Random random( 331 );
    for ( const auto run : random.runs( 600 ) )
    {
        const T angle = random.uniform<T>( T( 0.2 ), 2 ), aspect = random.uniform<T>( T( 0.5 ), 2 );
        const T near = random.uniform<T>( T( 0.1 ), 5 ), far = near + random.uniform<T>( 1, 100 );
        const int resolution = run % 2 ? 1024 : 5 + random.index( 2000 );
        const T casters = run % 5 == 0 ? T( 0 ) : random.uniform<T>( 0, 100 );
        const GeVector3<T> light = random.direction<T>();
        const GeDepthRange range = ranges[run % 3];
        const GeCascadeBuilder<T> builder( light, resolution, casters, range );
        const auto lens = GeProjectionBuilder<T>::makePerspectiveFromVerticalAngle( angle, aspect, 1, 2, range );
        const GeAffineMatrix3<T> view = makeView( random, T( 500 ) );
        const auto corners = computeCorners( view, T( std::tan( double( angle ) / 2 ) ), aspect, near, far );
        const T diameter = GeCascadeBuilder<T>::computeDiameter( corners.data(), 8 );
        for ( const auto& cascade :
            { builder.fitSlice( lens, view, near, far ), builder.fitPoints( corners.data(), 8, diameter ) } )
        {
            EXPECT_NEAR( double( cascade.texelSize ), double( diameter ) / ( resolution - 2 ),
                1e4 * double( epsilon<T> * cascade.texelSize ) );
            const T extent = cascade.texelSize * T( resolution ) + casters;
            for ( const auto& corner : corners )
            {
                const GePoint3<T> place = computePlace( cascade, corner, resolution, range );
                for ( int axis = 0; axis < 2; ++axis )
                {
                    EXPECT_GE( place[axis], T( 0.25 ) );
                    EXPECT_LE( place[axis], T( resolution ) - T( 0.25 ) );
                }
                // a quarter of a texel in depth, too, and before that what throws the shadow
                const T margin = cascade.texelSize / extent / 4;
                EXPECT_GE( computePlace( cascade, corner - light * casters, resolution, range )[2], margin );
                EXPECT_LE( place[2], 1 - margin );
            }
        }
    }
}

// The camera goes and turns: a point of the world keeps its place within a texel, and the step of depth
ZQ_TWIN_TEST( CascadeBuilder, TheGridStaysInTheWorldWhenTheCameraMoves )
{
    const int resolution = 2048;
    Random random( 332 );
    for ( const auto run : random.runs( 30 ) )
    {
        const GeDepthRange range = ranges[run % 3];
        const GeUnitVector3<T> light = random.direction<T>();
        const GeCascadeBuilder<T> builder( light, resolution, 50, range );
        const auto lens =
            GeProjectionBuilder<T>::makePerspectiveFromTangents( -1, T( 0.8 ), T( -0.7 ), T( 0.6 ), 1, 2, range );
        const GePoint3<T> point = random.point<T>( 20 );
        const auto first = builder.fitSlice( lens, makeView( random, T( 20 ) ), 1, 30 );
        EXPECT_EQ( first.view, GeViewBuilder<T>::makeViewAlong( {}, light, { 0, 1, 0 } ) );
        const GePoint3<T> place = computePlace( first, point, resolution, range );
        const double texels = double( first.texelSize * resolution + 50 ) / double( first.texelSize ); // in depth
        for ( int step = 0; step < 20; ++step )
        {
            const auto cascade = builder.fitSlice( lens, makeView( random, T( 20 ) ), 1, 30 );
            EXPECT_EQ( cascade.view, first.view );
            EXPECT_EQ( cascade.texelSize, first.texelSize );
            for ( int axis = 0; axis < 3; ++axis )
                EXPECT_EQ( cascade.projection( axis, axis ), first.projection( axis, axis ) );
            const GeVector3<T> moved = computePlace( cascade, point, resolution, range ) - place;
            const double tolerance = 2e4 * double( epsilon<T> );
            for ( const double texel : { double( moved[0] ), double( moved[1] ), double( moved[2] ) * texels } )
                EXPECT_NEAR( texel, std::round( texel ), tolerance );
        }
    }
}

} // namespace
