#include "support/collectingTraceManager.h"
#include "support/prelude.h"

#include <zq/primitives/geCameraBuilder.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geRotation3.h>

namespace
{

ZQ_TWIN_SUITE( Frustum );

/// A perspective of a random shape that looks in a random direction from a random place, multiplied in double.
template <class T>
GeProjectiveMatrix3<T> randomCamera( Random& random )
{
    const GeUnitVector3<double> back = random.direction<double>();
    const GeLinearMatrix3<double> turn = GeRotation3<double>::aim( back, random.vector<double>( 1 ), 2, 1, true );
    const double nearDistance = random.uniform<double>( 0.5, 2 ),
                 farDistance = nearDistance * random.uniform( 4.0, 20.0 );
    const double angle = random.uniform( 0.6, 2.2 ), aspect = random.uniform( 0.5, 2.0 );
    const auto camera = GeCameraBuilder<double>::makePerspective( angle, nearDistance, farDistance, aspect ) *
        GeAffineMatrix3<double>( turn, random.vector<double>( 5 ) );
    GeProjectiveMatrix3<T> rounded;
    for ( int i = 0; i < 16; ++i )
        rounded( i / 4, i % 4 ) = static_cast<T>( camera( i / 4, i % 4 ) );
    return rounded;
}

/// Signed distance of a point to one of the planes by its clip inequality, w +- x >= 0 and so on, offset included:
/// another construction than that of the frustum.
template <class T>
double clipDistance( const GeProjectiveMatrix3<T>& m, int plane, const GePoint3<T>& p )
{
    long double value = 0, squares = 0;
    for ( int c = 0; c < 4; ++c )
    {
        const long double element = static_cast<long double>( m( 3, c ) ) + ( plane % 2 ? -1 : 1 ) * m( plane / 2, c );
        value += element * ( c < 3 ? p[c] : T( 1 ) );
        squares += c < 3 ? element * element : 0;
    }
    return static_cast<double>( value / std::sqrt( squares ) );
}

// By the corners of the boxes in clip space. Planes are good to three digits of float: the corners of the frustum come
// through an inverse, and through a division by their w.
ZQ_TWIN_TEST( Frustum, AgreesWithTheClipInequalities )
{
    const double bound = 20000 * double( epsilon<T> ), threshold = double( -0.0001F );
    Random random( 2 );
    for ( const auto i : random.runs( 5000 ) )
    {
        const GeProjectiveMatrix3<T> camera = randomCamera<T>( random );
        const GeFrustum<T> frustum( camera );
        const GePoint3<T> p = random.point<T>( 10 );
        const GeAlignedBox3<T> box( p, p + random.vector<T>( T( i % 4 * 2 ) ) );
        bool isBeyondOne = false, isWithinAll = true, isClose = false;
        for ( int plane = 0; plane < 6; ++plane )
        {
            EXPECT_NEAR( frustum.getPlane( plane ).computeValue( p ), clipDistance( camera, plane, p ), bound );
            int nbBeyond = 0;
            for ( int corner = 0; corner < 8; ++corner )
            {
                const double distance = clipDistance( camera, plane, box.getCorner( corner ) ) - threshold;
                nbBeyond += distance < 0;
                isClose = isClose || std::fabs( distance ) < bound;
            }
            isBeyondOne = isBeyondOne || nbBeyond == 8;
            isWithinAll = isWithinAll && nbBeyond == 0;
        }
        const auto within = isWithinAll ? frustum.FRUSTUM_INSIDE : frustum.FRUSTUM_INTERSECT;
        EXPECT_TRUE( isClose || frustum.classify( box ) == ( isBeyondOne ? frustum.FRUSTUM_OUTSIDE : within ) ) << box;
    }
}

// Three planes go through one corner each side. Where it is the image of a direction it lies at infinity, and their
// offsets are NaN, which rejects nothing, while the other three planes still work.
ZQ_TWIN_TEST( Frustum, ACornerAtInfinityLeavesThreePlanes )
{
    for ( const T side : { T( -1 ), T( 1 ) } )
    {
        GeProjectiveMatrix3<T> bent;
        bent( 3, 0 ) = bent( 3, 1 ) = side / 4;
        bent( 3, 2 ) = side / 2;
        const GeFrustum<T> frustum( bent );
        for ( int plane = 0; plane < 6; ++plane )
            EXPECT_EQ( std::isnan( frustum.getPlane( plane ).getOffset() ), ( plane % 2 == 1 ) == ( side > 0 ) );
        const GePoint3<T> there( side * 100, side * 100, side * 100 ), back( side * -100, 0, 0 );
        EXPECT_EQ( frustum.classify( there ), frustum.FRUSTUM_INSIDE );
        EXPECT_EQ( frustum.classify( GeAlignedBox3<T>( there ) ), frustum.FRUSTUM_INTERSECT );
        EXPECT_EQ( frustum.classify( GeAlignedBox3<T>( back ) ), frustum.FRUSTUM_OUTSIDE );
    }
}

ZQ_TWIN_TEST( Frustum, TracesItsConstructionAndAnswersForNothing )
{
    // from 0 to 2 on every axis
    const double rows[4][4] = { { 1, 0, 0, -1 }, { 0, 1, 0, -1 }, { 0, 0, 1, -1 }, { 0, 0, 0, 1 } };
    const GeProjectiveMatrix3<T> m( rows, false );
    ZqTest::CollectingTraceManager traces( "GeFrustum" );
    const GeFrustum<T> silent( m );
    traces.level->setEnabled( true );
    const GeFrustum<T> frustum( m );
    // one past the last passes the check and reads nothing
    EXPECT_EQ( frustum.getPlane( 6 ), GeNormalizedPlane3<T>() );
    EXPECT_EQ( frustum.classify( GeAlignedBox3<T>() ), frustum.FRUSTUM_INSIDE );

    std::ostringstream expected;
    expected << " imapping: \n"
             << m.computeInverse() << "\n tmapping: \n"
             << m.computeTranspose()
             << "\nhiminp = (0, 0, 0, 1)\nhimaxp = (2, 2, 2, 1)\niminp = (0, 0, 0)\nimaxp = (2, 2, 2)\n"
             << "htleftp  = (1, 0, 0, 0)\nhtrightp = (-1, 0, 0, 2)\n";
    EXPECT_EQ( traces.takeText( "src/primitives/geFrustum.imp" ), expected.str() );
}

} // namespace
