#include "support/cameras.h"
#include "support/prelude.h"

#include <zq/primitives/geViewport.h>

namespace
{

ZQ_TWIN_SUITE( Viewport );

using ZqTest::Number;
using ZqTest::ranges;

/// A camera of any kind, moved and turned, with an image.
template <class T>
struct Studio
{
    Studio( Random& random, int run )
        : lens( random ), view( ZqTest::makeView( random, T( 100 ) ) ), range( ranges[run % 3] ),
          width( 1 + random.index( 4000 ) ), height( 1 + random.index( 3000 ) ),
          rows( run % 2 ? GeImageRows::FROM_PLUS_ONE : GeImageRows::FROM_MINUS_ONE )
    {
        using Builder = GeProjectionBuilder<T>;
        projection = run % 7 == 6 ? lens.makeOrthographic( range ) : lens.makePerspective( range );
        if ( run % 7 == 5 )
            projection = Builder::makeOblique(
                projection, { { T( 0.2 ), T( 0.1 ), -1 }, T( -1.5 ) * lens.nearDistance }, range );
        if ( run % 5 == 4 )
            projection = Builder::makeYDown( projection );
    }
    GeViewport<T> makeViewport() const { return { projection, view, width, height, rows }; }

    ZqTest::Lens<T> lens;
    GeAffineMatrix3<T> view;
    GeDepthRange range;
    int width, height;
    GeImageRows rows;
    GeProjectiveMatrix3<T> projection;
};

/// The exact answer nearly: what three linear equations of the matrices' elements say, by Cramer's rule.
template <class T>
std::array<Number, 3> unprojectByEquations( const Studio<T>& studio, const GePoint3<T>& image )
{
    const Number y = 2 * Number( image.getY() ) / studio.height - 1;
    const Number clip[3] = { 2 * Number( image.getX() ) / studio.width - 1,
        studio.rows == GeImageRows::FROM_PLUS_ONE ? -y : y, image.getZ() };
    Number m[4][4], e[3][4];
    for ( int row = 0; row < 4; ++row )
        for ( int column = 0; column < 4; ++column )
        {
            m[row][column] = 0;
            for ( int k = 0; k < 4; ++k )
                m[row][column] += Number( studio.projection( row, k ) ) * studio.view( k, column );
        }
    for ( int row = 0; row < 3; ++row )
        for ( int column = 0; column < 4; ++column )
            e[row][column] = m[row][column] - clip[row] * m[3][column];
    const auto det = [&e]( int a, int b, int c )
    {
        return e[0][a] * ( e[1][b] * e[2][c] - e[1][c] * e[2][b] ) -
            e[0][b] * ( e[1][a] * e[2][c] - e[1][c] * e[2][a] ) + e[0][c] * ( e[1][a] * e[2][b] - e[1][b] * e[2][a] );
    };
    const Number d = -det( 0, 1, 2 );
    return { det( 3, 1, 2 ) / d, det( 0, 3, 2 ) / d, det( 0, 1, 3 ) / d };
}

ZQ_TWIN_TEST( Viewport, UnprojectIsWithinOneUnitInTheLastPlaceOfFloat )
{
    Random random( 321 );
    int nbPoints = 0;
    for ( const auto run : random.runs( 3000 ) )
    {
        const Studio<T> studio( random, run );
        const GePoint3<T> image( random.uniform<T>( 0, T( studio.width ) ), random.uniform<T>( 0, T( studio.height ) ),
            studio.range == GeDepthRange::ONE_TO_ZERO ? std::pow( T( 10 ), random.uniform<T>( -6, 0 ) )
                                                      : 1 - std::pow( T( 10 ), random.uniform<T>( -6, 0 ) ) );
        GePoint3<T> point;
        if ( !studio.makeViewport().unproject( image, point ) )
            continue;
        ++nbPoints;
        const auto expected = unprojectByEquations( studio, image );
        Number largest = studio.view.getTranslation().computeMaxAbs();
        for ( const Number coordinate : expected )
            largest = std::max( largest, std::fabs( coordinate ) );
        const T size = T( largest ), unit = size - std::nextafter( size, T( 0 ) );
        // in double the reference itself is good to some 1e-13
        const Number bound = sizeof( T ) == sizeof( float ) ? Number( unit ) : largest * Number( 1e-12 );
        for ( int axis = 0; axis < 3; ++axis )
            EXPECT_LE( std::fabs( point[axis] - expected[static_cast<std::size_t>( axis )] ), bound );
    }
    EXPECT_GT( nbPoints, 2500 );
}

// Through the centre, t before the camera; in double back to the pixel, in float as far as the point is good
ZQ_TWIN_TEST( Viewport, RaysThroughPixelsMeetTheirCentres )
{
    Random random( 322 );
    for ( const auto run : random.runs( 500 ) )
    {
        const Studio<T> studio( random, run );
        const GeViewport<T> viewport = studio.makeViewport();
        const int column = random.index( studio.width ), row = random.index( studio.height );
        GePoint3<T> origin, image;
        GeVector3<T> direction;
        viewport.computePixelRay( column, row, origin, direction );
        for ( const T t : { T( 1 ), T( 100 ) } )
        {
            const GePoint3<T> point = origin + direction * t;
            EXPECT_NEAR( double( ( studio.view * point ).getZ() ), double( -t ), 2000 * double( epsilon<T> ) );
            ASSERT_TRUE( viewport.project( point, image ) );
            const double tolerance = 1e6 * double( epsilon<T> );
            EXPECT_NEAR( double( image.getX() ), column + 0.5, tolerance );
            EXPECT_NEAR( double( image.getY() ), row + 0.5, tolerance );
        }
        const T x = T( column ) + T( 0.5 ), y = T( row ) + T( 0.5 );
        GePoint3<T> sameOrigin;
        GeVector3<T> sameDirection;
        viewport.computeRay( x, y, sameOrigin, sameDirection );
        EXPECT_EQ( sameDirection, direction );
        EXPECT_EQ( sameOrigin, origin );
    }
}

ZQ_TWIN_TEST( Viewport, WhatIsNotBeforeTheEyeIsToldAndNothingWritten )
{
    const T infinity = ZqTest::infinity<T>, nan = ZqTest::nan<T>;
    const GePoint3<T> before( 1, 2, 3 );
    for ( const GeDepthRange range : ranges )
    {
        const GeViewport<T> viewport(
            GeProjectionBuilder<T>::makePerspectiveFromVerticalAngle( 1, 1, 1, infinity, range ), GeAffineMatrix3<T>(),
            10, 10, GeImageRows::FROM_PLUS_ONE );
        GePoint3<T> result = before;
        for ( const GePoint3<T>& p :
            { GePoint3<T>( 0, 0, 1 ), GePoint3<T>(), GePoint3<T>( 0, 0, nan ), GePoint3<T>( nan, 0, -1 ) } )
            EXPECT_FALSE( viewport.project( p, result ) ) << p;
        const bool isReversed = range == GeDepthRange::ONE_TO_ZERO;
        // infinitely far, and beyond that
        for ( const T depth : { isReversed ? T( 0 ) : T( 1 ), isReversed ? T( -1 ) : T( 2 ), nan, infinity } )
            EXPECT_FALSE( viewport.unproject( { 5, 5, depth }, result ) ) << depth;
        EXPECT_EQ( result, before );
        EXPECT_TRUE( viewport.unproject( { 5, 5, T( 0.5 ) }, result ) );
    }
}

} // namespace
