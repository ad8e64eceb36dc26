#include "support/bits.h"
#include "support/viewReference.h"

#if defined( __SSE2__ )
#    include <xmmintrin.h>
#endif

namespace
{

using ZqTest::Camera;
using ZqTest::ExactView;
using ZqTest::makeBoxNear;
using ZqTest::makeCamera;
using ZqTest::NB_FAMILIES;

ZQ_TWIN_SUITE( ViewVolume );

/// A pair of eyes that look along -z, 0.064 apart, each turned outwards by the angle; depth from 0 to 1, from 0.1 on. The
/// head may stand and look elsewhere; then the place of each eye is rounded, by so much of it.
std::array<Camera, 2> makeEyes(
    double angle, double offCentre, double farDistance, Random* head = nullptr, double rounding = 0 )
{
    std::array<Camera, 2> eyes;
    ZqTest::MatrixRows pose = { { { 1, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, 1, 0 }, { 0, 0, 0, 1 } } };
    if ( head != nullptr )
    {
        const GeLinearMatrix3<double> turn =
            GeRotation3<double>::aim( head->direction<double>(), head->vector<double>( 1 ), 2, 1, true );
        for ( int i = 0; i < 12; ++i )
            pose[std::size_t( i / 4 )][std::size_t( i % 4 )] =
                i % 4 == 3 ? head->uniform( -20.0, 20.0 ) : turn( i / 4, i % 4 );
    }
    for ( std::size_t eye = 0; eye < 2; ++eye )
    {
        const long double side = eye == 0 ? -1 : 1, c = std::cos( angle ), s = side * std::sin( angle );
        ZqTest::MatrixRows projection = {};
        projection[0] = { 0.9L, 0, side * offCentre, 0 };
        projection[1] = { 0, 0.8L, offCentre / 2, 0 };
        ZqTest::setDepth( projection, GeDepthRange::ZERO_TO_ONE, 0.1L, farDistance, -1 );
        ZqTest::MatrixRows view = {
            { { c, 0, s, -c * side * 0.032L }, { 0, 1, 0, 0 }, { -s, 0, c, s * side * 0.032L }, { 0, 0, 0, 1 } } };
        view = ZqTest::multiply( view, pose );
        for ( std::size_t i = 0; i < 3 && head != nullptr; ++i )
            view[i][3] *= 1 + rounding * head->uniform( -1.0, 1.0 );
        eyes[eye] = { ZqTest::multiply( projection, view ), GeDepthRange::ZERO_TO_ONE };
    }
    return eyes;
}

template <class T>
constexpr auto OUTSIDE = GeViewVolume<T>::VIEW_OUTSIDE;
template <class T>
constexpr auto INSIDE = GeViewVolume<T>::VIEW_INSIDE;
template <class T>
constexpr auto INTERSECT = GeViewVolume<T>::VIEW_INTERSECT;

template <class T>
T magnitudeOf( const GeAlignedBox3<T>& box )
{
    T largest = 0;
    for ( int axis = 0; axis < 3; ++axis )
        largest =
            std::max( { largest, std::fabs( box.getInterval( axis ).min ), std::fabs( box.getInterval( axis ).max ) } );
    return largest;
}

/// Larger on every side, or smaller, by some units in the last place of the magnitude, or of the largest coordinate.
template <class T>
GeAlignedBox3<T> grow( const GeAlignedBox3<T>& box, T units, T magnitude = 0 )
{
    const T margin = units * epsilon<T> * std::max( magnitude, magnitudeOf( box ) );
    GeAlignedBox3<T> grown;
    for ( int axis = 0; axis < 3; ++axis )
        grown.setInterval( axis, { box.getInterval( axis ).min - margin, box.getInterval( axis ).max + margin } );
    return grown;
}

/// For every family and every ratio of far to near from 10 to 10^9: test( random, camera, its rounded matrix, ratio ).
template <class T, class Test>
void forEachCamera( unsigned seed, int count, const Test& test )
{
    Random random( ZqTest::wideSeed() * 100 + seed );
    for ( int family = 0; family < NB_FAMILIES; ++family )
        for ( int power = 1; power <= 9; ++power )
            for ( int i = 0; i < count; ++i )
            {
                const Camera camera = makeCamera( random, family, std::pow( 10.0L, power ) );
                SCOPED_TRACE( "family " + std::to_string( family ) + ", ratio 10^" + std::to_string( power ) );
                test( random, camera, camera.round<T>() );
                if ( ::testing::Test::HasFailure() )
                    return;
            }
}

// What is proved is true, for every camera; and the zone without a verdict is only some roundings wide: a box that is
// beyond one side, or within all, still when it is larger by a few of them, gets its verdict.
ZQ_TWIN_TEST( ViewVolume, VerdictsAreTrueByExactRationalsAndFewAreWithheld )
{
    ZqTest::Verdicts seen = {};
    forEachCamera<T>( 1, 6,
        [&seen]( Random& random, const Camera& camera, const GeProjectiveMatrix3<T>& m )
        {
            const GeViewVolume<T> volume( m, camera.range );
            const ExactView<T> exact( m, camera.range );
            for ( int i = 0; i < 25; ++i )
            {
                const GeAlignedBox3<T> box = makeBoxNear<T>( random, camera );
                const auto verdict = volume.classify( box );
                ++seen[verdict];
                GeAlignedBox3<T> within = box;
                const Interval<T> whole = box.getInterval( i % 3 );
                within.setInterval( i % 3, { whole.min, whole.min + ( whole.max - whole.min ) / 2 } );
                EXPECT_TRUE( verdict == INTERSECT<T> || volume.classify( within ) == verdict ) << box;
                const int witness = volume.findSeparatingPlane( box );
                EXPECT_EQ( verdict == OUTSIDE<T>, witness >= 0 ) << box;
                if ( witness >= 0 )
                {
                    EXPECT_LT( exact.largestSign( volume.getSide( witness ), box ), 0 ) << box;
                }
                EXPECT_TRUE( verdict != INSIDE<T> || exact.isWithinAll( box ) ) << box;
                EXPECT_TRUE( verdict == OUTSIDE<T> || !exact.isBeyondOne( grow( box, T( 8 ) ) ) ) << box;
                EXPECT_TRUE( verdict == INSIDE<T> || !exact.isWithinAll( grow( box, T( 8 ) ) ) ) << box;
            }
        } );
    for ( const auto verdict : { OUTSIDE<T>, INSIDE<T>, INTERSECT<T> } )
        EXPECT_GT( seen[verdict], 1000 );
}

ZQ_TWIN_TEST( ViewVolume, SpheresAreTrueByExactRationals )
{
    ZqTest::Verdicts seen = {};
    forEachCamera<T>( 2, 3,
        [&seen]( Random& random, const Camera& camera, const GeProjectiveMatrix3<T>& m )
        {
            const GeViewVolume<T> volume( m, camera.range );
            const bool isWhole = camera.range == GeDepthRange::MINUS_ONE_TO_ONE;
            for ( int i = 0; i < 10; ++i )
            {
                const GePoint3<T> c = makeBoxNear<T>( random, camera ).getCorner( 0 );
                T radius = magnitudeOf( GeAlignedBox3<T>( c ) ) * random.uniform( T( -1 ), T( 1 ) );
                // mostly one that nearly touches a side
                mpq_class least;
                for ( int side = 0; side < 6; ++side )
                {
                    mpq_class value, squares;
                    for ( int k = 0; k < 4; ++k )
                    {
                        const mpq_class row( m( side / 2, k ) ), w( m( 3, k ) );
                        const bool isUpper =
                            ( side % 2 == 1 ) != ( side >= 4 && camera.range == GeDepthRange::ONE_TO_ZERO );
                        const mpq_class n = isUpper ? mpq_class( w - row )
                            : side < 4 || isWhole   ? mpq_class( w + row )
                                                    : row;
                        value += n * ( k < 3 ? mpq_class( c[k] ) : mpq_class( 1 ) );
                        squares += k < 3 ? mpq_class( n * n ) : mpq_class( 0 );
                    }
                    if ( squares == 0 )
                        continue;
                    if ( side == i % 6 )
                        radius = static_cast<T>( std::fabs( value.get_d() ) / std::sqrt( squares.get_d() ) ) *
                            ( random.index( 2 ) ? 1 + epsilon<T> * T( random.index( 9 ) - 4 )
                                                : random.uniform( T( 0.1 ), T( 1.5 ) ) );
                    // in lengths of the normal, with its sign, squared
                    const mpq_class distance = value * abs( value ) / squares;
                    if ( side == 0 || distance < least )
                        least = distance;
                }
                if ( !std::isfinite( radius ) )
                    continue;
                const auto verdict = volume.classify( GeSphere3<T>( c, radius ) );
                ++seen[verdict];
                const mpq_class square = mpq_class( radius ) * mpq_class( radius );
                EXPECT_TRUE( verdict != OUTSIDE<T> || least < -square ) << c << radius;
                EXPECT_TRUE( verdict != INSIDE<T> || least >= square ) << c << radius;
                EXPECT_EQ( volume.classify( GeSphere3<T>( c, -radius ) ), verdict );
            }
        } );
    for ( const auto verdict : { OUTSIDE<T>, INSIDE<T>, INTERSECT<T> } )
        EXPECT_GT( seen[verdict], 50 );
}

// The worst case of the bound: products, sums and coefficients whose roundings all go one way. A point whose exact
// value is above 0 is never outside, although its rounded one is far below; nor is it inside where all signs are
// changed. What is found reaches beyond half the bound, and, for coefficients that were rounded, beyond all of the
// rest.
ZQ_TWIN_TEST( ViewVolume, TheBoundIsNeededAndNotTwiceTheWorstCase )
{
    const T eps = epsilon<T>;
    const int half = std::numeric_limits<T>::digits / 2;
    Random random( 3 );
    double worst[2] = {};
    for ( const auto i : random.runs( 300000 ) )
    {
        // 1 + j eps times 1 + k eps loses j k eps^2, nearly half of eps; two of them have an odd sum in units of eps
        T n[3], p[3];
        for ( int axis = 0; axis < 3; ++axis )
        {
            n[axis] = 1 + eps * T( ( 1 << ( half - 1 ) ) + random.index( 1 << ( half - 2 ) ) );
            p[axis] = 1 + eps * std::floor( T( 0.49 ) / ( n[axis] - 1 ) + T( random.index( 2 ) ) );
        }
        const bool isRounded = i % 2; // z is w - n p, so that w - z, the far plane, gets coefficients that are
        n[2] /= isRounded ? 4 : 64;   // small, to end up between two numbers when the offset is added
        const T computed[2] = { n[0] * p[0] + n[1] * p[1], n[2] * p[2] };
        const T d = -( computed[0] + computed[1] ) + eps * T( 2 * random.index( 8 ) - 2 );
        const T value = computed[0] + ( computed[1] + d );
        mpq_class exact( d );
        double rows[4][4] = { {}, {}, { 0, 0, 0, 4 }, { 0, 0, 0, 4 + double( d ) } };
        for ( int axis = 0; axis < 3; ++axis )
        {
            rows[2][axis] = -double( n[axis] );
            rows[3][axis] = isRounded ? double( eps * T( 0.49 ) * n[axis] ) : 0;
            exact += ( mpq_class( n[axis] ) + mpq_class( static_cast<T>( rows[3][axis] ) ) ) * mpq_class( p[axis] );
        }
        if ( exact <= 0 || value >= 0 )
            continue;
        const double reach = double( std::max( { p[0], p[1], p[2] } ) );
        const double bound =
            double( eps ) / 2 * ( 2 * double( n[0] + n[1] + n[2] ) * reach + std::fabs( double( d ) ) );
        worst[isRounded] = std::max( worst[isRounded], -double( value ) / bound );
        const GeViewVolume<T> volume( GeProjectiveMatrix3<T>( rows, false ), GeDepthRange::ZERO_TO_ONE );
        ASSERT_NE( volume.classify( GePoint3<T>( p[0], p[1], p[2] ) ), OUTSIDE<T> );
        for ( int column = 0; column < 4 && !isRounded; ++column )
            rows[2][column] = -( rows[3][column] - rows[2][column] );
        const GeViewVolume<T> opposite( GeProjectiveMatrix3<T>( rows, false ), GeDepthRange::ZERO_TO_ONE );
        ASSERT_TRUE( isRounded || opposite.classify( GePoint3<T>( p[0], p[1], p[2] ) ) != INSIDE<T> );
    }
    EXPECT_GT( worst[0], 0.6 );
    EXPECT_GT( worst[1], 1.1 );
}

// The same for a box with its placement. All that is rounded lies just above a power of two, where most is lost.
ZQ_TWIN_TEST( ViewVolume, TheBoundOfPlacedBoxesIsNeededAndNotTwiceTheWorstCase )
{
    const T eps = epsilon<T>;
    Random random( 12 );
    const auto above = [&]( T x )
    { return x * ( 1 + random.uniform( T( 0 ), T( 0.05 ) ) + eps * T( random.index( 64 ) ) ); };
    double worst = 0;
    for ( const auto i : random.runs( 50000 ) )
    {
        const T n[3] = { above( 1 ), eps * above( 1 ), eps * above( 1 ) };
        GeAffineMatrix3<T> placement;
        T turned[3], size = 0;
        for ( int column = 0; column < 3; ++column )
        {
            placement( 0, column ) = column < 2 ? above( 1 ) : -above( 2 );
            size += std::fabs( placement( 0, column ) );
            for ( const int row : { 1, 2 } )
                placement( row, column ) = random.uniform( T( -1 ), T( 1 ) );
            turned[column] =
                ( n[0] * placement( 0, column ) + n[1] * placement( 1, column ) ) + n[2] * placement( 2, column );
        }
        GePoint3<T> p( above( 1 ), above( 1 ), 0 );
        const T flat = turned[0] * p[0] + turned[1] * p[1];
        p[2] = -flat / turned[2];
        // the offset makes the exact value 0, and a little more
        mpq_class exact;
        for ( int k = 0; k < 9; ++k )
            exact += mpq_class( n[k / 3] ) * mpq_class( placement( k / 3, k % 3 ) ) * mpq_class( p[k % 3] );
        const T d = static_cast<T>( -exact.get_d() ) + eps * eps;
        const T value = flat + ( turned[2] * p[2] + d );
        worst = std::max( worst,
            -double( value ) /
                ( 2.5 * double( eps * ( n[0] + n[1] + n[2] ) * size * std::max( { p[0], p[1], p[2] } ) ) ) );
        const double sign = i % 2 ? 1 : -1;
        const double rows[4][4] = { {}, {}, { sign * n[0], sign * n[1], sign * n[2], sign * d }, { 0, 0, 0, 1 } };
        const GeViewVolume<T> volume( GeProjectiveMatrix3<T>( rows, false ), GeDepthRange::ZERO_TO_ONE );
        ASSERT_NE( volume.classify( GeAlignedBox3<T>( p ), placement ), sign > 0 ? OUTSIDE<T> : INSIDE<T> );
    }
    EXPECT_GT( worst, 0.55 );
}

/// A placement with its elements rounded: turned, sheared, mirrored, of any size.
template <class T>
GeAffineMatrix3<T> makePlacement( Random& random, T distance )
{
    GeAffineMatrix3<T> m;
    const T size = std::pow( T( 10 ), random.uniform( T( -3 ), T( 2 ) ) );
    for ( int row = 0; row < 3; ++row )
        for ( int column = 0; column < 4; ++column )
            m( row, column ) = random.uniform( T( -1 ), T( 1 ) ) * ( column < 3 ? size : distance );
    return m;
}

/// The rows of the matrix times the placement cannot be written in T: values of the sides at the corners, exactly.
template <class T>
std::array<std::pair<int, int>, 6> findSigns( const GeProjectiveMatrix3<T>& m, GeDepthRange range,
    const GeAlignedBox3<T>& box, const GeAffineMatrix3<T>& toWorld )
{
    std::array<std::pair<int, int>, 6> signs; // smallest, largest
    signs.fill( { 1, -1 } );
    for ( int corner = 0; corner < 8; ++corner )
    {
        const GePoint3<T> p = box.getCorner( corner );
        mpq_class world[4] = { 0, 0, 0, 1 }, clip[4];
        for ( int row = 0; row < 3; ++row )
            for ( int column = 0; column < 4; ++column )
                world[row] +=
                    mpq_class( toWorld( row, column ) ) * ( column < 3 ? mpq_class( p[column] ) : mpq_class( 1 ) );
        for ( int row = 0; row < 4; ++row )
            for ( int column = 0; column < 4; ++column )
                clip[row] += mpq_class( m( row, column ) ) * world[column];
        mpq_class depth[2] = {
            range == GeDepthRange::MINUS_ONE_TO_ONE ? mpq_class( clip[3] + clip[2] ) : clip[2], clip[3] - clip[2] };
        if ( range == GeDepthRange::ONE_TO_ZERO )
            std::swap( depth[0], depth[1] );
        const mpq_class values[6] = {
            clip[3] + clip[0], clip[3] - clip[0], clip[3] + clip[1], clip[3] - clip[1], depth[0], depth[1] };
        for ( std::size_t side = 0; side < 6; ++side )
        {
            signs[side].first = std::min( signs[side].first, sgn( values[side] ) );
            signs[side].second = std::max( signs[side].second, sgn( values[side] ) );
        }
    }
    return signs;
}

// Oriented boxes: the box with its placement, and the volume taken to the space of the box.
ZQ_TWIN_TEST( ViewVolume, PlacedBoxesAreTrueByExactRationals )
{
    ZqTest::Verdicts seen[2] = {};
    forEachCamera<T>( 4, 3,
        [&seen]( Random& random, const Camera& camera, const GeProjectiveMatrix3<T>& m )
        {
            const GeViewVolume<T> volume( m, camera.range );
            GeAffineMatrix3<T> toWorld = makePlacement( random, T( 0 ) );
            const GeViewVolume<T> turned = volume.computeTransformed( toWorld );
            for ( int i = 0; i < 10; ++i )
            {
                // its corner 7 comes to lie near a side
                const GePoint3<T> corner = random.point<T>( 1 );
                GeAlignedBox3<T> box( corner, corner - random.vector<T>( random.index( 3 ) == 0 ? T( 0 ) : T( 1 ) ) );
                const GePoint3<T> target = makeBoxNear<T>( random, camera ).getCorner( 0 );
                const GeVector3<T> offset = target - toWorld * corner;
                GeAffineMatrix3<T> placed = toWorld;
                for ( int row = 0; row < 3 && i % 2; ++row )
                    placed( row, 3 ) = offset[row];
                const auto signs = findSigns( m, camera.range, box, placed );
                const bool isBeyond =
                    std::any_of( signs.begin(), signs.end(), []( auto sign ) { return sign.second < 0; } );
                const bool isWithin =
                    std::all_of( signs.begin(), signs.end(), []( auto sign ) { return sign.first >= 0; } );
                const auto verdict = volume.classify( box, placed );
                const auto other = ( i % 2 ? volume.computeTransformed( placed ) : turned ).classify( box );
                ++seen[0][verdict];
                ++seen[1][other];
                for ( const auto answer : { verdict, other } )
                {
                    EXPECT_TRUE( answer != OUTSIDE<T> || isBeyond ) << box << placed;
                    EXPECT_TRUE( answer != INSIDE<T> || isWithin ) << box << placed;
                }
            }
        } );
    for ( const auto& kind : seen )
        for ( const auto verdict : { OUTSIDE<T>, INSIDE<T>, INTERSECT<T> } )
            EXPECT_GT( kind[verdict], 100 );
}

// Parts between any bounds, and tight verdicts: outside is without a common point, and a box that is apart from the
// volume by more than roundings is outside.
ZQ_TWIN_TEST( ViewVolume, PartsAndTightVerdictsAreTrueByExactRationals )
{
    int nbTight = 0;
    forEachCamera<T>( 5, 1,
        [&nbTight]( Random& random, const Camera& camera, const GeProjectiveMatrix3<T>& m )
        {
            std::array<T, 6> bounds;
            for ( std::size_t i = 0; i < 6; i += 2 )
            {
                T a = random.uniform( T( -1 ), T( 1 ) ), b = random.uniform( T( -1 ), T( 1 ) );
                if ( i == 4 && random.index( 4 ) != 0 ) // slices far away, where the rows of depth and weight cancel
                {
                    a = 1 - std::pow( T( 10 ), random.uniform( T( -6 ), T( 0 ) ) );
                    b = 1 - std::pow( T( 10 ), random.uniform( T( -6 ), T( 0 ) ) );
                }
                bounds[i] = std::min( a, b );
                bounds[i + 1] = std::max( a, b );
            }
            const auto part = GeViewVolume<T>( m, camera.range )
                                  .computePart( bounds[0], bounds[1], bounds[2], bounds[3], bounds[4], bounds[5] );
            const ExactView<T> exact( m, camera.range, bounds );
            Camera zoomed = camera; // maps the part to the cube, about
            for ( std::size_t row = 0; row < 3; ++row )
                for ( std::size_t i = 0; i < 4; ++i )
                    zoomed.rows[row][i] =
                        ( 2 * camera.rows[row][i] - ( bounds[2 * row + 1] + bounds[2 * row] ) * camera.rows[3][i] ) /
                        ( bounds[2 * row + 1] - bounds[2 * row] );
            zoomed.range = GeDepthRange::MINUS_ONE_TO_ONE;
            for ( int i = 0; i < 20; ++i )
            {
                const GeAlignedBox3<T> box = makeBoxNear<T>( random, zoomed );
                const auto verdict = part.classify( box ), tight = part.classifyTight( box );
                EXPECT_TRUE( verdict != OUTSIDE<T> || exact.isBeyondOne( box ) ) << box;
                EXPECT_TRUE( verdict != INSIDE<T> || exact.isWithinAll( box ) ) << box;
                EXPECT_TRUE( tight == verdict || verdict == INTERSECT<T> ) << box;
                if ( tight == OUTSIDE<T> && verdict == INTERSECT<T> )
                {
                    EXPECT_FALSE( exact.hasCommonPoint( box ) ) << box;
                    ++nbTight;
                }
                else if ( tight == INTERSECT<T> )
                {
                    EXPECT_TRUE( exact.hasCommonPoint( grow( box, T( 1024 ) ) ) ) << box;
                }
            }
        } );
    EXPECT_GT( nbTight, 0 );
}

// Swept by a box of offsets: what is outside is so for every one of them, and what is beyond by more than roundings is
// outside.
ZQ_TWIN_TEST( ViewVolume, SweptVolumesHoldTheVolumeOfEveryEye )
{
    int nbOutside = 0;
    forEachCamera<T>( 6, 3,
        [&nbOutside]( Random& random, const Camera& camera, const GeProjectiveMatrix3<T>& m )
        {
            const GeViewVolume<T> volume( m, camera.range );
            const ExactView<T> exact( m, camera.range );
            for ( int i = 0; i < 20; ++i )
            {
                // near a side as it is seen from one corner of the offsets
                const GeAlignedBox3<T> near = makeBoxNear<T>( random, camera );
                GePoint3<T> from = random.point<T>( magnitudeOf( near ) );
                GeVector3<T> to = random.vector<T>( random.index( 4 ) ? magnitudeOf( near ) : T( 0 ) );
                if ( i % 4 ==
                    3 ) // or the eye comes so that the place is the origin: what the offset lost is all there is
                {
                    from = GePoint3<T>() - ( near.getCorner( i % 8 ) - GePoint3<T>() );
                    to = GeVector3<T>( 0, 0, 0 );
                }
                const GeAlignedBox3<T> offsets( from, from + to );
                const GeVector3<T> offset( offsets.getCorner( i % 8 ) - GePoint3<T>() );
                const GeAlignedBox3<T> box( near.getCorner( 0 ) + offset, near.getCorner( 7 ) + offset );
                const GeViewVolume<T> swept = volume.computeSwept( offsets );
                const int witness = swept.findSeparatingPlane( box );
                nbOutside += witness >= 0;
                EXPECT_TRUE( witness < 0 || exact.largestSweptSign( swept.getSide( witness ), box, offsets ) < 0 )
                    << box;
                const GeAlignedBox3<T> grown = grow( box, T( 64 ), magnitudeOf( near ) );
                for ( int side = 0; side < 6; ++side )
                    EXPECT_TRUE( witness >= 0 || exact.largestSweptSign( side, grown, offsets ) >= 0 )
                        << box << offsets;
            }
        } );
    EXPECT_GT( nbOutside, 300 );
    const GeViewVolume<T> volume( makeEyes( 0, 0, 10 )[0].round<T>(), GeDepthRange::ZERO_TO_ONE );
    EXPECT_EQ( volume.computeSwept( GeAlignedBox3<T>( GePoint3<T>() ) ), volume );
}

// Boxes of half size 1 to 200 around a volume 100 deep: everything without a common point is outside.
ZQ_TWIN_TEST( ViewVolume, TightVerdictsKeepNothingThatIsOutside )
{
    const Camera camera = makeEyes( 0.3, 0, 100 )[0];
    const GeProjectiveMatrix3<T> m = camera.round<T>();
    const GeViewVolume<T> volume( m, camera.range );
    const ExactView<T> exact( m, camera.range );
    Random random( ZqTest::wideSeed() + 7 );
    int nbKeptByPlanes = 0;
    for ( const auto i : random.runs( 400 ) )
    {
        const GePoint3<T> center = random.point<T>( 300 );
        GeVector3<T> half;
        for ( int axis = 0; axis < 3; ++axis )
            half[axis] = std::pow( T( 200 ), random.uniform( T( 0 ), T( 1 ) ) );
        const GeAlignedBox3<T> box( center - half, center + half );
        const bool isOutside = !exact.hasCommonPoint( box );
        EXPECT_EQ( volume.classifyTight( box ) == OUTSIDE<T>, isOutside ) << box;
        nbKeptByPlanes += isOutside && volume.classify( box ) != OUTSIDE<T>;
    }
    EXPECT_GT( nbKeptByPlanes, 10 );
}

// A large box that faces a corner of the volume: three planes together say that they are apart.
ZQ_TWIN_TEST( ViewVolume, TightVerdictsSeeBoxesBeyondACorner )
{
    Random random( ZqTest::wideSeed() + 10 );
    int nbKeptByPlanes = 0;
    for ( const auto i : random.runs( 200 ) )
    {
        const Camera camera = makeCamera( random, i % 2 ? 1 : 7, 30 );
        const GeViewVolume<T> volume( camera.round<T>(), camera.range );
        GeHomogeneousCoord3<T> corners[8];
        ASSERT_TRUE( volume.computeCorners( corners ) );
        GeAlignedBox3<T> bounds;
        for ( const GeHomogeneousCoord3<T>& c : corners )
            bounds.extend( GePoint3<T>( c.getX(), c.getY(), c.getZ() ) );
        const T size = magnitudeOf( bounds );
        for ( int axis = 0; axis < 3; ++axis )
        {
            GeAlignedBox3<T> box = grow( bounds, T( 0.2 ) / epsilon<T> );
            const T face = bounds.getInterval( axis ).max;
            box.setInterval( axis, { face + size / 1000, face + size } );
            nbKeptByPlanes += volume.classify( box ) != OUTSIDE<T>;
            EXPECT_EQ( volume.classifyTight( box ), OUTSIDE<T> ) << box;
            box.setInterval( axis, { face - size / 1000, face + size } );
            EXPECT_EQ( volume.classifyTight( box ), INTERSECT<T> ) << box;
        }
    }
    EXPECT_GT( nbKeptByPlanes, 100 );
}

/// What two views say together.
template <class T>
int combine( int a, int b )
{
    return a == OUTSIDE<T> && b == OUTSIDE<T> ? OUTSIDE<T>
        : a == INSIDE<T> || b == INSIDE<T>    ? INSIDE<T>
                                              : INTERSECT<T>;
}

/// The largest value of a plane in the box, by the coefficients that everybody gets, is below 0.
template <class T>
bool isBeyond( const GePlane3<T>& plane, const GeAlignedBox3<T>& box )
{
    const GePoint3<T> p = box.getFarCorner( plane.getNormal() );
    mpq_class value( plane.getOffset() );
    for ( int axis = 0; axis < 3; ++axis )
        value += mpq_class( plane.getNormal()[axis] ) * mpq_class( p[axis] );
    return value < 0;
}

// Two eyes as head-sets have them, parallel or 5 to 15 degrees apart, with symmetric and other images, finite and
// infinite, at home or anywhere: what the union says is true of both eyes, by exact rationals; its witnesses hold; and
// of what neither eye sees it keeps next to nothing.
ZQ_TWIN_TEST( ViewVolume, UnionsHoldBothEyesAndNothingElse )
{
    ZqTest::Verdicts seen = {};
    int nbShared = 0;
    Random random( 9 ), wide( ZqTest::wideSeed() + 8 );
    for ( const double farDistance : { 100.0, 1e6, double( ZqTest::infinity<float> ) } )
        for ( const double degrees : { 0.0, 5.0, -10.0, 10.0, 15.0 } )
            for ( const int kind : { 0, 1, 2 } )
            {
                SCOPED_TRACE( std::to_string( farDistance ) + " far, " + std::to_string( degrees ) + " degrees, kind " +
                    std::to_string( kind ) );
                const std::array<Camera, 2> eyes = makeEyes( degrees / 2 * 3.14159265358979 / 180, kind ? 0.24 : 0,
                    farDistance, kind == 2 ? &wide : nullptr, double( epsilon<T> ) );
                const GeProjectiveMatrix3<T> matrices[2] = { eyes[0].round<T>(), eyes[1].round<T>() };
                const GeViewVolume<T> views[2] = { { matrices[0], eyes[0].range }, { matrices[1], eyes[1].range } };
                const ExactView<T> exact[2] = { { matrices[0], eyes[0].range }, { matrices[1], eyes[1].range } };
                const GeViewVolume<T> both = GeViewVolume<T>::makeUnion( views, 2 );
                // what both have in common is kept once, also where it was rounded twice
                const int nbOfEye = std::isinf( farDistance ) ? 5 : 6;
                EXPECT_TRUE( kind == 2 || both.getNbPlanes() == ( degrees == 0 ? nbOfEye + 2 : 2 * nbOfEye ) );
                nbShared += kind == 2 && both.getNbPlanes() == nbOfEye + 2;
                GePoint3<T> place;
                int nbKept = 0, nbOutside = 0;
                for ( const auto i : random.runs( 1500 ) )
                {
                    const bool isAnywhere = i % 2 != 0;
                    GeAlignedBox3<T> box = makeBoxNear<T>( wide, eyes[std::size_t( i / 2 % 2 )] );
                    if ( isAnywhere )
                    {
                        const GePoint3<T> center = place + random.vector<T>( 100 );
                        const GeVector3<T> half( 1, 1, random.uniform( T( 0 ), T( 3 ) ) );
                        box = GeAlignedBox3<T>( center - half, center + half );
                    }
                    else if ( magnitudeOf( box ) < 50 )
                        place = box.getCorner( 0 ); // wherever the head is
                    const int verdict = both.classify( box ), witness = both.findSeparatingPlane( box );
                    ++seen[std::size_t( verdict )];
                    EXPECT_TRUE(
                        verdict != OUTSIDE<T> || ( exact[0].isBeyondOne( box ) && exact[1].isBeyondOne( box ) ) )
                        << box;
                    EXPECT_TRUE( verdict != INSIDE<T> || exact[0].isWithinAll( box ) || exact[1].isWithinAll( box ) )
                        << box;
                    EXPECT_EQ( verdict == OUTSIDE<T>, witness >= 0 ) << box;
                    if ( witness >= 0 )
                    {
                        const int a = witness % both.NB_MAX_PLANES, b = witness / both.NB_MAX_PLANES;
                        EXPECT_TRUE( isBeyond( both.getPlane( a ), box ) ) << box;
                        EXPECT_TRUE( b == 0 || isBeyond( both.getPlane( b ), box ) ) << box;
                        EXPECT_EQ( both.getView( a ), b == 0 ? -1 : 0 );
                        EXPECT_EQ( both.getView( b == 0 ? a : b ), b == 0 ? -1 : 1 );
                    }
                    if ( isAnywhere && views[0].classifyTight( box ) == OUTSIDE<T> &&
                        views[1].classifyTight( box ) == OUTSIDE<T> )
                    {
                        ++nbOutside;
                        nbKept += verdict != OUTSIDE<T>;
                        EXPECT_EQ( both.classifyTight( box ), OUTSIDE<T> ) << box;
                    }
                }
                EXPECT_GT( nbOutside, 300 );
                EXPECT_LE( nbKept, nbOutside / 200 );
            }
    EXPECT_GT( nbShared, 0 );
    for ( const auto verdict : { OUTSIDE<T>, INSIDE<T>, INTERSECT<T> } )
        EXPECT_GT( seen[verdict], 1000 );
}

// Whatever is asked of the union of two, and of what is made of it, is what both say together, to the last bit where
// planes are shared that are equal.
ZQ_TWIN_TEST( ViewVolume, UnionsSayWhatTheirViewsSay )
{
    ZqTest::Verdicts seen = {};
    for ( const double degrees : { 0.0, 10.0 } )
    {
        const std::array<Camera, 2> eyes = makeEyes( degrees / 2 * 3.14159265358979 / 180, 0.24, 100 );
        const GeViewVolume<T> views[2] = {
            { eyes[0].round<T>(), eyes[0].range }, { eyes[1].round<T>(), eyes[1].range } };
        Random random( 13 );
        for ( const auto i : random.runs( 400 ) )
        {
            GeAffineMatrix3<T> placement = makePlacement( random, T( 1 ) );
            for ( int column = 0; column < 4 && i % 40 == 7;
                  ++column ) // singular: then planes may hold everywhere, or nowhere
                placement( 2, column ) = placement( 1, column ) = column < 3 ? 0 : T( -5 );
            const GePoint3<T> from = random.point<T>( 5 );
            const GeAlignedBox3<T> offsets( from, from + random.vector<T>( 1 ) );
            const auto make = [&]( const GeViewVolume<T>& volume ) {
                return i % 3 == 0 ? volume
                    : i % 3 == 1  ? volume.computeSwept( offsets )
                                  : volume.computeTransformed( placement );
            };
            const GeViewVolume<T> made[2] = { make( views[0] ), make( views[1] ) };
            const GeViewVolume<T> both = make( GeViewVolume<T>::makeUnion( views, 2 ) );
            EXPECT_EQ( both, GeViewVolume<T>::makeUnion( made, 2 ) );
            const GePoint3<T> p = random.point<T>( 10 );
            const GeAlignedBox3<T> box( p, p + random.vector<T>( random.uniform( T( 0 ), T( 9 ) ) ) );
            const GeSphere3<T> sphere( p, random.uniform( T( -2 ), T( 2 ) ) );
            const auto check = [&]( const auto& classify )
            {
                const int verdict = classify( both );
                ++seen[std::size_t( verdict )];
                EXPECT_EQ( verdict, combine<T>( classify( made[0] ), classify( made[1] ) ) ) << box << placement;
            };
            check( [&]( const auto& volume ) { return volume.classify( p ); } );
            check( [&]( const auto& volume ) { return volume.classify( box ); } );
            check( [&]( const auto& volume ) { return volume.classify( sphere ); } );
            check( [&]( const auto& volume ) { return volume.classify( box, placement ); } );
            check( [&]( const auto& volume ) { return volume.classifyTight( box ); } );
            using Other = std::conditional_t<std::is_same_v<T, float>, double, float>;
            const GePoint3<Other> q = { Other( p[0] ), Other( p[1] ), Other( p[2] ) };
            const GeAlignedBox3<Other> other( q );
            check(
                [&]( const auto& volume )
                {
                    unsigned char verdict = 0;
                    volume.classify( &other, 1, &verdict );
                    return int( verdict );
                } );
        }
    }
    for ( const auto verdict : { OUTSIDE<T>, INSIDE<T>, INTERSECT<T> } )
        EXPECT_GT( seen[verdict], 100 );
}

// Two matrices that differ by roundings alone share planes, and what these say is true of both.
ZQ_TWIN_TEST( ViewVolume, PlanesThatAreSharedAreTrueOfBothViews )
{
    ZqTest::Verdicts seen = {};
    int nbShared = 0;
    forEachCamera<T>( 15, 4,
        [&]( Random& random, const Camera& camera, const GeProjectiveMatrix3<T>& m )
        {
            GeProjectiveMatrix3<T> other = m;
            for ( int k = 0; k < 16; ++k )
                other( k / 4, k % 4 ) += other( k / 4, k % 4 ) * epsilon<T> * T( random.index( 5 ) - 2 );
            const GeViewVolume<T> views[2] = { { m, camera.range }, { other, camera.range } };
            const ExactView<T> exact[2] = { { m, camera.range }, { other, camera.range } };
            const GeViewVolume<T> both = GeViewVolume<T>::makeUnion( views, 2 );
            nbShared += views[0].getNbPlanes() + views[1].getNbPlanes() - both.getNbPlanes();
            for ( int i = 0; i < 30; ++i )
            {
                const GeAlignedBox3<T> box = makeBoxNear<T>( random, camera );
                const auto verdict = both.classify( box );
                ++seen[verdict];
                const bool isBeyondBoth = exact[0].isBeyondOne( box ) && exact[1].isBeyondOne( box );
                EXPECT_TRUE( verdict != OUTSIDE<T> || isBeyondBoth ) << box;
                EXPECT_TRUE( verdict != INSIDE<T> || exact[0].isWithinAll( box ) || exact[1].isWithinAll( box ) )
                    << box;
            }
        } );
    EXPECT_GT( nbShared, 500 );
    for ( const auto verdict : { OUTSIDE<T>, INSIDE<T>, INTERSECT<T> } )
        EXPECT_GT( seen[verdict], 1000 );
}

// More than two views have a hull, which holds every corner of each. Where these are very wide, sides and far plane are
// nearly parallel: a plane of the hull is the sum of large multiples of theirs, errors included. The hull of ordinary
// ones that look nearly the same way keeps little else.
ZQ_TWIN_TEST( ViewVolume, HullsHoldAllViewsAndLittleElse )
{
    Random random( ZqTest::wideSeed() + 14 );
    int nbWithin = 0;
    for ( const auto run : random.runs( 160 ) )
    {
        const bool isWide = run != 0;
        const double angle = isWide ? random.uniform( 0.1, 1.0 ) : 0.04;
        Random head = random;
        const double farDistance = run % 4 == 1 ? 1 : 100; // the place of the head counts, or directions do
        const std::array<Camera, 2> eyes = makeEyes( angle, 0.1, farDistance, isWide ? &head : nullptr );
        head = random;
        std::vector<Camera> cameras = {
            eyes[0], eyes[1], makeEyes( 0, 0.1, farDistance, isWide ? &head : nullptr )[0] };
        std::vector<GeViewVolume<T>> views;
        for ( Camera& camera : cameras )
        {
            for ( std::size_t k = 0; k < 8 && isWide; ++k )
                camera.rows[k / 4][k % 4] /= 30;
            views.emplace_back( camera.round<T>(), camera.range );
        }
        const GeViewVolume<T> hull = GeViewVolume<T>::makeUnion( views.data(), 3 );
        // and all swept to where one corner is the origin, so that what the offsets have lost is all there is
        GeHomogeneousCoord3<T> corners[8];
        ASSERT_TRUE( views[0].computeCorners( corners ) );
        const GePoint3<T> place( corners[run % 8].getX(), corners[run % 8].getY(), corners[run % 8].getZ() );
        std::vector<GeViewVolume<T>> moved;
        for ( const GeViewVolume<T>& view : views )
            moved.push_back( view.computeSwept( GeAlignedBox3<T>( GePoint3<T>() + ( GePoint3<T>() - place ) ) ) );
        const GeViewVolume<T> movedHull = GeViewVolume<T>::makeUnion( moved.data(), 3 );
        for ( std::size_t view = 0; view < 3; ++view )
        {
            const ExactView<T> exact( cameras[view].round<T>(), cameras[view].range );
            ASSERT_TRUE( views[view].computeCorners( corners ) );
            for ( const auto i : random.runs( 400 ) )
            {
                GePoint3<T> p( corners[i % 8].getX(), corners[i % 8].getY(), corners[i % 8].getZ() );
                for ( int axis = 0; axis < 3; ++axis )
                    p[axis] *= 1 + epsilon<T> * T( random.index( 5 ) - 2 );
                if ( !exact.isWithinAll( GeAlignedBox3<T>( p ) ) )
                    continue;
                ++nbWithin;
                EXPECT_NE( hull.classify( p ), OUTSIDE<T> ) << p;
                if ( view == 0 && i % 8 == run % 8 )
                {
                    EXPECT_NE( movedHull.classify( GePoint3<T>() + ( p - place ) ), OUTSIDE<T> ) << p;
                }
            }
        }
        int nbOutside = 0, nbKept = 0;
        for ( int i = 0; i < 2000 && !isWide; ++i )
        {
            const GePoint3<T> p = random.point<T>( 100 );
            const bool isOutside = std::all_of(
                views.begin(), views.end(), [&p]( const auto& view ) { return view.classify( p ) == OUTSIDE<T>; } );
            nbOutside += isOutside;
            nbKept += isOutside && hull.classify( p ) != OUTSIDE<T>;
        }
        EXPECT_LE( nbKept, nbOutside / 50 );
    }
    EXPECT_GT( nbWithin, 3000 );
}

ZQ_TWIN_TEST( ViewVolume, UnionsOfEverythingAndNothing )
{
    const GeViewVolume<T> empty = GeViewVolume<T>::makeUnion( nullptr, 0 );
    EXPECT_TRUE( empty.isEmpty() );
    const GeAlignedBox3<T> box( GePoint3<T>( -1, -1, -3 ), GePoint3<T>( 1, 1, -2 ) );
    EXPECT_EQ( empty.classify( box ), OUTSIDE<T> );
    EXPECT_EQ( empty.getPlane( 0 ), GePlane3<T>( 0, 0, 0, T( -0.125 ) ) );

    // the six faces of a cube, infinitely deep: no plane has them all on one side
    std::vector<GeViewVolume<T>> faces;
    for ( int face = 0; face < 6; ++face )
    {
        double rows[4][4] = {};
        const int axis = face / 2;
        rows[0][( axis + 1 ) % 3] = rows[1][( axis + 2 ) % 3] = 1;
        rows[2][3] = 0.1;
        rows[3][axis] = face % 2 ? -1 : 1;
        faces.emplace_back( GeProjectiveMatrix3<T>( rows, false ), GeDepthRange::ONE_TO_ZERO );
        EXPECT_EQ( faces.back().getNbPlanes(), 5 );
    }
    EXPECT_EQ( GeViewVolume<T>::makeUnion( faces.data(), 6 ).getNbPlanes(), 0 );
    // the union of two is the two, whatever is empty or there already adds nothing, and everything is everything
    const GeViewVolume<T> pair = GeViewVolume<T>::makeUnion( faces.data(), 2 );
    EXPECT_EQ( pair.getNbPlanes(), 10 );
    const GeViewVolume<T> again[3] = { faces[1], empty, pair };
    const GeViewVolume<T> swapped[2] = { faces[1], faces[0] };
    EXPECT_EQ( GeViewVolume<T>::makeUnion( again, 3 ), GeViewVolume<T>::makeUnion( swapped, 2 ) );
    EXPECT_NE( GeViewVolume<T>::makeUnion( swapped, 2 ), pair );
    const GeViewVolume<T> more[2] = { pair, faces[3] };
    const GeViewVolume<T> three[3] = { faces[0], faces[1], faces[3] };
    EXPECT_EQ( GeViewVolume<T>::makeUnion( more, 2 ), GeViewVolume<T>::makeUnion( three, 3 ) );
    const double zeros[4][4] = {};
    const GeViewVolume<T> all[2] = {
        faces[0], GeViewVolume<T>( GeProjectiveMatrix3<T>( zeros, false ), GeDepthRange::ZERO_TO_ONE ) };
    EXPECT_EQ( GeViewVolume<T>::makeUnion( all, 2 ), all[1] );
    std::ostringstream text;
    text << GeViewVolume<T>::makeUnion( more, 1 );
    EXPECT_EQ( text.str().substr( 0, 50 ), "\nplane( 0, view 0 ) = [0.125, 0.125, 0, 0]\nplane( " );

    // a union with itself is as good as the volume
    const GeViewVolume<T> some[3] = { empty, faces[0], faces[0] };
    const GeViewVolume<T> same = GeViewVolume<T>::makeUnion( some, 3 );
    Random random( 9 );
    for ( const auto i : random.runs( 300 ) )
    {
        const GePoint3<T> p = random.point<T>( 4 );
        EXPECT_EQ( same.classify( p ), faces[0].classify( p ) ) << p;
    }
}

ZQ_TWIN_TEST( ViewVolume, CornersAreWhereTheMatrixPutsThem )
{
    for ( const double farDistance : { 50.0, double( ZqTest::infinity<float> ) } )
    {
        const Camera camera = makeEyes( 0.2, 0.1, farDistance )[1];
        const GeProjectiveMatrix3<T> m = camera.round<T>();
        const GeViewVolume<T> volume( m, camera.range );
        GeHomogeneousCoord3<T> corners[8];
        ASSERT_TRUE( volume.computeCorners( corners ) );
        for ( int i = 0; i < 8; ++i )
        {
            const GeHomogeneousCoord3<T> clip = m * corners[i];
            EXPECT_EQ( corners[i].getW(), i < 4 || farDistance == 50 ? T( 1 ) : T( 0 ) );
            EXPECT_GT( clip.getW(), 0 );
            const T tolerance = 2000 * epsilon<T>;
            EXPECT_NEAR( clip.getX() / clip.getW(), i & 1 ? 1 : -1, tolerance );
            EXPECT_NEAR( clip.getY() / clip.getW(), i & 2 ? 1 : -1, tolerance );
            EXPECT_NEAR( clip.getZ() / clip.getW(), i & 4 ? 1 : 0, tolerance );
        }
    }
    // each edge once, along its own axis
    std::set<std::pair<int, int>> edges;
    for ( int edge = 0; edge < 12; ++edge )
    {
        int from = 0, to = 0;
        GeViewVolume<T>::getEdge( edge, from, to );
        EXPECT_EQ( to - from, 1 << edge / 4 );
        EXPECT_EQ( from & to, from );
        EXPECT_LT( to, 8 );
        edges.insert( { from, to } );
    }
    EXPECT_EQ( edges.size(), 12U );
    GeHomogeneousCoord3<T> corners[8];
    EXPECT_FALSE( GeViewVolume<T>::makeUnion( nullptr, 0 ).computeCorners( corners ) );
}

// Around the smallest normal number, with denormal numbers and, where the processor can do without them, with 0 in
// their place.
ZQ_TWIN_TEST( ViewVolume, UnderflowIsWithinTheBound )
{
    using Limits = std::numeric_limits<T>;
    Random random( ZqTest::wideSeed() + 11 );
    int nbDecided = 0;
    for ( const auto i : random.runs( 20000 ) )
    {
        // z alone bounds anything; its plane goes through the origin, or nearly
        GeProjectiveMatrix3<T> m;
        for ( int element = 0; element < 12; ++element )
            m( element / 4, element % 4 ) = element < 8 ? T( 0 ) : random.uniform( T( -1 ), T( 1 ) );
        m( 2, 3 ) = random.index( 2 ) ? T( 0 ) : Limits::min() * random.uniform( T( -9 ), T( 9 ) );
        const GeViewVolume<T> volume( m, GeDepthRange::ZERO_TO_ONE );
        const ExactView<T> exact( m, GeDepthRange::ZERO_TO_ONE );
        GePoint3<T> p[2];
        for ( GePoint3<T>& point : p )
            for ( int axis = 0; axis < 3; ++axis )
                point[axis] = random.uniform( T( -1 ), T( 1 ) ) *
                    std::ldexp( Limits::min(), random.index( 12 ) - ( random.index( 2 ) ? 8 : 0 ) );
        const GeAlignedBox3<T> box( p[0], p[random.index( 2 )] );
        const GeSphere3<T> sphere( p[0], 0 );
        typename GeViewVolume<T>::Classification verdicts[6];
        for ( int mode = 0; mode < 2; ++mode )
        {
#if defined( __SSE2__ )
            const unsigned before = _mm_getcsr();
            _mm_setcsr( mode ? before | 0x8040U : before ); // flush to zero, denormals are zero
#endif
            verdicts[3 * mode] = volume.classify( box );
            verdicts[3 * mode + 1] = volume.classifyTight( box );
            verdicts[3 * mode + 2] = volume.classify( box, GeAffineMatrix3<T>() );
            const auto ofSphere = volume.classify( sphere );
#if defined( __SSE2__ )
            _mm_setcsr( before );
#endif
            EXPECT_TRUE( ofSphere != OUTSIDE<T> || exact.isBeyondOne( GeAlignedBox3<T>( p[0] ) ) ) << p[0];
            EXPECT_TRUE( ofSphere != INSIDE<T> || exact.isWithinAll( GeAlignedBox3<T>( p[0] ) ) ) << p[0];
        }
        for ( const auto verdict : verdicts )
        {
            nbDecided += verdict != INTERSECT<T>;
            EXPECT_TRUE( verdict != OUTSIDE<T> || exact.isBeyondOne( box ) ) << box;
            EXPECT_TRUE( verdict != INSIDE<T> || exact.isWithinAll( box ) ) << box;
        }
    }
    EXPECT_GT( nbDecided, 1000 );
}

ZQ_TWIN_TEST( ViewVolume, DegenerateInputsHaveTheStatedVerdicts )
{
    using Limits = std::numeric_limits<T>;
    const T nan = ZqTest::nan<T>, infinite = ZqTest::infinity<T>, tiny = Limits::denorm_min(), largest = Limits::max();
    const auto boxOf = []( T lower, T upper ) {
        return GeAlignedBox3<T>(
            Interval<T>( lower, upper ), Interval<T>( lower, upper ), Interval<T>( lower, upper ) );
    };
    const GeViewVolume<T> cube( GeProjectiveMatrix3<T>(), GeDepthRange::MINUS_ONE_TO_ONE );
    EXPECT_EQ( cube.getNbPlanes(), 6 );
    EXPECT_EQ( cube.classify( boxOf( -1, 1 ) ), INTERSECT<T> ); // touches its sides
    EXPECT_EQ( cube.classify( boxOf( T( -0.9 ), T( 0.9 ) ) ), INSIDE<T> );
    EXPECT_EQ( cube.classify( boxOf( -tiny, tiny ) ), INSIDE<T> );
    EXPECT_EQ( cube.classify( boxOf( T( 1.1 ), 100 ) ), OUTSIDE<T> );
    EXPECT_EQ( cube.classify( boxOf( T( 1.1 ), largest ) ), INTERSECT<T> ); // too large to tell
    EXPECT_EQ( cube.classify( boxOf( -largest, largest ) ), INTERSECT<T> );
    EXPECT_EQ( cube.classifyTight( boxOf( -largest, largest ) ), INTERSECT<T> );
    EXPECT_EQ( cube.classify( boxOf( 2, infinite ) ), INTERSECT<T> );
    EXPECT_EQ( cube.classify( boxOf( infinite, infinite ) ), INTERSECT<T> );
    EXPECT_EQ( cube.classify( GeSphere3<T>( GePoint3<T>( 3, 0, 0 ), infinite ) ), INTERSECT<T> );
    EXPECT_EQ( cube.classify( GeSphere3<T>( GePoint3<T>( 3, nan, 0 ), 1 ) ), INTERSECT<T> );
    EXPECT_EQ( cube.classify( GeSphere3<T>( GePoint3<T>( 3, 0, 0 ), nan ) ), INTERSECT<T> );
    EXPECT_EQ( cube.classify( GeAlignedBox3<T>() ), OUTSIDE<T> );
    EXPECT_EQ( cube.findSeparatingPlane( GeAlignedBox3<T>() ), -1 );
    for ( int axis = 0; axis < 3; ++axis )
        for ( const bool isLower : { true, false } )
        {
            // far beyond on the other axes, and inverted or unknown on one
            GeAlignedBox3<T> box = boxOf( 5, 6 );
            box.setInterval( axis, isLower ? Interval<T>( 9, 8 ) : Interval<T>( 0, -tiny ) );
            EXPECT_EQ( cube.classify( box ), OUTSIDE<T> );
            EXPECT_EQ( cube.classify( box, GeAffineMatrix3<T>() ), OUTSIDE<T> );
            box.setInterval( axis, isLower ? Interval<T>( nan, 6 ) : Interval<T>( 5, nan ) );
            EXPECT_EQ( cube.classify( box ), INTERSECT<T> );
            EXPECT_EQ( cube.classifyTight( box ), INTERSECT<T> );
            EXPECT_EQ( cube.classify( box, GeAffineMatrix3<T>() ), INTERSECT<T> );
            EXPECT_EQ( cube.findSeparatingPlane( box ), -1 );
        }
    for ( int element = 0; element < 12; ++element )
        for ( const T odd : { nan, infinite, largest } )
        {
            GeAffineMatrix3<T> placement;
            placement( element / 4, element % 4 ) = odd;
            EXPECT_NE( cube.classify( boxOf( T( -0.5 ), T( 0.5 ) ), placement ), INSIDE<T> );
            EXPECT_TRUE( odd == largest || cube.classify( boxOf( 5, 6 ), placement ) == INTERSECT<T> );
        }

    std::ostringstream text;
    text << cube.computePart( 0, 1, 0, 1, 0, 1 );
    EXPECT_EQ( text.str(),
        "\nplane( 0 ) = [0.125, 0, 0, 0]\nplane( 1 ) = [-0.125, 0, 0, 0.125]"
        "\nplane( 2 ) = [0, 0.125, 0, 0]\nplane( 3 ) = [0, -0.125, 0, 0.125]"
        "\nplane( 4 ) = [0, 0, 0.125, 0]\nplane( 5 ) = [0, 0, -0.125, 0.125]" );

    // nothing is bounded by zeros; nothing is within 0 >= 1, whatever the other rows say; a matrix of no rank has a
    // volume
    const double zeros[4][4] = {};
    const GeViewVolume<T> all( GeProjectiveMatrix3<T>( zeros, false ), GeDepthRange::ZERO_TO_ONE );
    EXPECT_EQ( all.getNbPlanes(), 0 );
    EXPECT_EQ( all.classify( boxOf( -largest, largest ) ), INSIDE<T> );
    EXPECT_EQ( all.classify( boxOf( 0, infinite ) ), INTERSECT<T> );
    const double never[4][4] = { { 1, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, 0, -1 }, { 0, 0, 0, 1 } };
    const GeViewVolume<T> none( GeProjectiveMatrix3<T>( never, false ), GeDepthRange::ZERO_TO_ONE );
    EXPECT_TRUE( none.isEmpty() );
    EXPECT_EQ( none.classify( boxOf( -largest, largest ) ), OUTSIDE<T> );
    const double flat[4][4] = { { 1, 0, 0, 0 }, { 1, 0, 0, 0 }, { 1, 0, 0, 0 }, { 0, 0, 0, 1 } };
    const GeViewVolume<T> slab( GeProjectiveMatrix3<T>( flat, false ), GeDepthRange::MINUS_ONE_TO_ONE );
    EXPECT_EQ( slab.classify( GePoint3<T>( 0, largest, -largest ) ), INTERSECT<T> ); // too large to tell
    EXPECT_EQ( slab.classify( GePoint3<T>( 0, 1000, 1000 ) ), INSIDE<T> );
    EXPECT_EQ( slab.classify( GePoint3<T>( 2, 1000, 1000 ) ), OUTSIDE<T> );
}
// Array forms call by call are compared in tests/bits; here is what has no call for one element.
ZQ_TWIN_TEST( ViewVolume, BoxesOfTheOtherScalarAreTakenExactly )
{
    using Other = std::conditional_t<std::is_same_v<T, float>, double, float>;
    ZqTest::Verdicts seen = {};
    forEachCamera<T>( 9, 2,
        [&seen]( Random& random, const Camera& camera, const GeProjectiveMatrix3<T>& m )
        {
            const GeViewVolume<T> volume( m, camera.range );
            GeProjectiveMatrix3<double> inDouble;
            for ( int k = 0; k < 16; ++k )
                inDouble( k / 4, k % 4 ) = double( m( k / 4, k % 4 ) );
            const ExactView<double> exact( inDouble, camera.range );
            std::vector<GeAlignedBox3<Other>> boxes;
            for ( std::size_t i = 0; i < 300; ++i ) // more than go through a buffer at a time
                boxes.push_back( makeBoxNear<Other>( random, camera ) );
            boxes[7].setInterval( 1, Interval<Other>( 1, std::nextafter( Other( 1 ), Other( 0 ) ) ) );
            boxes[8].setInterval( 1, Interval<Other>( 0, ZqTest::nan<Other> ) );
            std::vector<unsigned char> verdicts( boxes.size() ), planes( boxes.size() );
            volume.classify( boxes.data(), boxes.size(), verdicts.data(), planes.data() );
            EXPECT_EQ( verdicts[7], OUTSIDE<T> );
            EXPECT_EQ( verdicts[8], INTERSECT<T> );
            for ( std::size_t i = 9; i < 60; ++i )
            {
                GeAlignedBox3<double> box;
                for ( int axis = 0; axis < 3; ++axis )
                    box.setInterval( axis,
                        { double( boxes[i].getInterval( axis ).min ), double( boxes[i].getInterval( axis ).max ) } );
                ++seen[verdicts[i]];
                EXPECT_EQ( verdicts[i] == OUTSIDE<T>, planes[i] != 0xFF ) << box;
                if ( planes[i] != 0xFF )
                {
                    EXPECT_LT( exact.largestSign( volume.getSide( planes[i] ), box ), 0 ) << box;
                }
                EXPECT_TRUE( verdicts[i] != INSIDE<T> || exact.isWithinAll( box ) ) << box;
            }
            std::vector<std::uint32_t> indices( boxes.size() ), expected;
            indices.resize( volume.findNotOutside( boxes.data(), boxes.size(), indices.data() ) );
            for ( std::uint32_t i = 0; i < verdicts.size(); ++i )
                if ( verdicts[i] != OUTSIDE<T> )
                    expected.push_back( i );
            EXPECT_EQ( indices, expected );
        } );
    for ( const auto verdict : { OUTSIDE<T>, INSIDE<T>, INTERSECT<T> } )
        EXPECT_GT( seen[verdict], 500 );
}

} // namespace
