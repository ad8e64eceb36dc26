// Array forms against the plain rule or the call for a single value, at each level of instructions, as bits.

#include "levels.h"
#include "plainRules.h"

#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geShaft.h>
#include <zq/primitives/kernels/geAffineMatrix3Kernels.h>
#include <zq/primitives/kernels/geAlignedBoxKernels.h>
#include <zq/primitives/kernels/geCullingConesKernels.h>
#include <zq/primitives/kernels/geFrustumKernels.h>
#include <zq/primitives/kernels/geProjectiveMatrix3Kernels.h>
#include <zq/primitives/kernels/geShaftKernels.h>

using namespace ZqTest;

namespace
{

/// Planes like those of a camera in the middle of the boxes, at times with odd numbers. Or one that meets the near or the
/// far corner of a box just at the threshold, so that the order of the sums tells, and five that are far away.
template <class T>
ZqPlain::Frustum<T> makePlanes( Random& random, const GeAlignedBox3<T>* box )
{
    ZqPlain::Frustum<T> planes;
    for ( auto& plane : planes )
    {
        const GeUnitVector3<T> n = random.direction<T>();
        plane = { n.getX(), n.getY(), n.getZ(), box == nullptr ? random.uniform( T( 0 ), T( 2 ) ) : T( 100 ) };
        if ( box == nullptr && random.index( 6 ) == 0 )
            plane = makeRecord<T, ZqPlain::Four<T>>( random );
        if ( box == nullptr || &plane != &planes[3] )
            continue;
        const GePoint3<T> corner = random.index( 2 ) == 0 ? box->getFarCorner( n ) : box->getNearCorner( n );
        plane[3] = T( -0.0001F ) - n.dot( corner - GePoint3<T>() );
    }
    return planes;
}

ZQ_TWIN_SUITE( ArrayForms );

ZQ_TWIN_TEST( ArrayForms, Frustum )
{
    using Box = GeAlignedBox3<T>;
    Verdicts seen{};
    const auto check = [&]( const auto& kernels, Random& random, int run )
    {
        const auto tested = makeRecord<T, Box>( random );
        const auto makeBox = [&]( Random& ) { return random.index( 2 ) == 0 ? makeRecord<T, Box>( random ) : tested; };
        const auto makePoint = [&]( Random& ) { return makeBox( random ).getCorner( random.index( 8 ) ); };
        const auto plain = makePlanes( random, run % 2 == 0 ? &tested : nullptr );
        Detail::FrustumPlanes<T> planes;
        for ( std::size_t i = 0; i < 24; ++i )
            planes[i % 4][i / 4] = plain[i / 4][i % 4];
        GeFrustum<T> frustum( ( GeProjectiveMatrix3<T>() ) ); // with planes that no camera has
        static_assert( sizeof frustum == sizeof planes );
        std::memcpy( static_cast<void*>( &frustum ), planes, sizeof planes );

        const auto expectVerdict = [&]( const auto& item, int verdict )
        {
            EXPECT_EQ( frustum.classify( item ), verdict );
            return verdict;
        };
        expectSameArray<T>(
            random, 50, makePoint, [&]( auto... items ) { kernels.classifyPoints( planes, items... ); },
            [&]( const GePoint3<T>& p )
            { return expectVerdict( p, ZqPlain::classifyPoint( plain, numbersOf<T>( p ) ) ); } );
        const auto classifyAndFind = [&]( const Box* items, std::size_t count, unsigned char* verdicts )
        {
            kernels.classifyBoxes( planes, items, count, verdicts );
            std::vector<std::uint32_t> indices( count ), expected;
            indices.resize( kernels.findNotOutside( planes, items, count, indices.data() ) );
            for ( std::uint32_t i = 0; i < count; ++i )
                if ( verdicts[i] != 1 )
                    expected.push_back( i );
            EXPECT_EQ( indices, expected );
        };
        expectSameArray<T>(
            random, 50, makeBox, classifyAndFind,
            [&]( const Box& box ) { return expectVerdict( box, ZqPlain::classifyBox( plain, numbersOf<T>( box ) ) ); },
            &seen );
    };
    forEachLevel<Detail::GeFrustumKernels<T>>( 400, check );
    EXPECT_GT( *std::min_element( seen.begin() + 1, seen.end() ), 300 );
}

ZQ_TWIN_TEST( ArrayForms, Boxes )
{
    using Box = GeAlignedBox3<T>;
    using Point = GePoint3<T>;
    const auto check = []( const auto& kernels, Random& random, int run )
    {
        const auto compare = [&]( const auto& form, const auto& plain )
        { expectSameArray<T>( random, 400, makeRecord<T, Box>, form, plain ); };
        const auto box = makeRecord<T, Box>( random );
        compare( [&]( auto... items ) { kernels.classify( box, items... ); },
            [&]( const Box& other ) { return box.classify( other ); } );
        compare( [&]( auto... items ) { kernels.classifyExclude( box, items... ); },
            [&]( const Box& other ) { return box.classifyExclude( other ); } );
        const auto origin = makeRecord<T, Point>( random );
        const auto direction = makeRecord<T, GeVector3<T>>( random );
        compare( [&]( const Box* boxes, std::size_t count, Interval<T>* ranges )
            { kernels.intersectLine( boxes, count, origin, direction, ranges ); },
            [&]( const Box& other ) { return other.intersectLine( origin, direction ); } );

        // grown over points, in one of three runs mostly zeros of both signs; the last coordinates of half of these lie
        // beyond, on one side
        const auto makePoint = [&]
        {
            const auto p = makeRecord<T, Point>( random );
            const T z = random.index( 2 ) == 0 ? T( run % 2 ? 1 : -1 ) : std::copysign( T( 0 ), p.getZ() );
            return run % 3 != 0 ? p : Point( std::copysign( T( 0 ), p.getX() ), T( 0 ), z );
        };
        for ( int i = 0; i < 8; ++i )
        {
            const std::size_t count = static_cast<std::size_t>( random.index( 70 ) );
            const std::unique_ptr<Point[]> points( new Point[count] );
            std::generate_n( points.get(), count, makePoint );
            Box grown = run % 3 == 0 ? Box() : box;
            T bounds[6];
            std::memcpy( bounds, &grown, sizeof bounds );
            kernels.extend( bounds, points.get(), count );
            std::for_each( points.get(), points.get() + count, [&]( const Point& p ) { grown.extend( p ); } );
            EXPECT_TRUE( isSame<T>( bounds, grown ) ) << grown;
        }
    };
    forEachLevel<Detail::GeAlignedBoxKernels<T>>( 50, check );
}

ZQ_TWIN_TEST( ArrayForms, AffineMatrices )
{
    using Point = GePoint3<T>;
    using Vector = GeVector3<T>;
    const auto check = []( const auto& kernels, Random& random, int )
    {
        auto columns = numbersOf<T>( makeRecord<T, GeProjectiveMatrix3<T>>( random ) );
        GeAffineMatrix3<T> a;
        for ( int i = 0; i < 12; ++i )
            a( i / 4, i % 4 ) = columns[std::size_t( i / 4 ) + std::size_t( i % 4 ) * 4];
        expectSameArray<T>(
            random, 1000, makeRecord<T, Point>,
            [&]( auto... items ) { kernels.transformPoints( columns.data(), items... ); },
            [&]( const Point& p ) { return a * p; } );
        const auto transformInPlace = [&]( const Vector* vectors, std::size_t count, Vector* results )
        {
            std::copy( vectors, vectors + count, results );
            kernels.transformVectors( columns.data(), results, count, results );
        };
        expectSameArray<T>(
            random, 1000, makeRecord<T, Vector>, transformInPlace, [&]( const Vector& v ) { return a * v; } );
    };
    forEachLevel<Detail::GeAffineMatrix3Kernels<T>>( 20, check );
}

ZQ_TWIN_TEST( ArrayForms, ProjectiveMatrices )
{
    using Vector = GeVector3<T>;
    using Coord = GeHomogeneousCoord3<T>;
    const auto check = []( const auto& kernels, Random& random, int )
    {
        const auto m = makeRecord<T, GeProjectiveMatrix3<T>>( random );
        const auto columns = numbersOf<T>( m );
        expectSameArray<T>(
            random, 1000, makeRecord<T, Coord>,
            [&]( auto... items ) { kernels.transformCoords( columns.data(), items... ); },
            [&]( const Coord& h ) { return m * h; } );
        expectSameArray<T>(
            random, 1000, makeRecord<T, Vector>,
            [&]( auto... items ) { kernels.projectVectors( columns.data(), items... ); },
            [&]( const Vector& v ) { return m * v; } );
    };
    forEachLevel<Detail::GeProjectiveMatrix3Kernels<T>>( 20, check );
}

TEST( ArrayFormsSingle, CullingCones )
{
    using Cones = GeCullingCones;
    std::array<Verdicts, 4> seen{};
    const auto check = [&]( const auto& kernels, Random& random, int run )
    {
        const auto eye = makeRecord<float, GePoint3<float>>( random );
        const auto direction = makeRecord<float, GeVector3<float>>( random );
        auto eyes = makeRecord<float, GeAlignedBox3<float>>( random );
        if ( run % 4 == 1 )
            eyes = GeAlignedBox3<float>( eye );
        const auto makeCones = [&]( Random& ) // some have their tip at the eye or at a corner of all eyes
        {
            const auto cones = makeRecord<float, Cones>( random );
            const int kind = random.index( 8 );
            const auto tip = kind == 0 ? eye : eyes.getCorner( kind );
            return random.index( 3 ) != 0 ? cones : Cones( cones.getFloatingCone(), tip, float( run % 2 ) );
        };
        const auto compare = [&]( const auto& kernel, const auto& argument, const auto& plain, Verdicts& verdicts )
        {
            const auto form = [&]( const Cones* cones, std::size_t count, unsigned char* answers )
            { kernel( cones, count, argument, answers ); };
            expectSameArray<float>( random, 1000, makeCones, form, plain, &verdicts );
        };
        compare(
            kernels.isBehind, eye, [&]( const Cones& cones ) { return cones.isBehind( eye ); }, seen[0] );
        compare(
            kernels.isInFront, eye, [&]( const Cones& cones ) { return cones.isInFront( eye ); }, seen[1] );
        compare(
            kernels.isBehindBox, eyes, [&]( const Cones& cones ) { return cones.isBehind( eyes ); }, seen[2] );
        compare(
            kernels.isBehindDirection, direction,
            [&]( const Cones& cones ) { return cones.isBehindDirection( direction ); }, seen[3] );
    };
    forEachLevel<Detail::GeCullingConesKernels>( 20, check );
    for ( const Verdicts& verdicts : seen )
        EXPECT_GT( std::min( verdicts[0], verdicts[1] ), 1000 );
}

TEST( ArrayFormsSingle, Shaft )
{
    using Box = GeAlignedBox3<float>;
    Verdicts seen{};
    const auto check = [&]( const auto& kernels, Random& random, int run )
    {
        // some boxes are around everything; single points are not widened, so that planes are met exactly
        const auto makeBox = [&]( Random& )
        {
            const Box around( GePoint3<float>( -3, -3, -3 ), GePoint3<float>( 3, 3, 3 ) );
            return random.index( 15 ) == 0 ? around : makeRecord<float, Box>( random );
        };
        const auto makeEnd = [&]
        {
            const auto coordinate = [&] { return float( random.index( 5 ) - 2 ); };
            const float x = coordinate(), y = coordinate();
            return run % 2 == 0 ? makeBox( random ) : Box( GePoint3<float>( x, y, coordinate() ) );
        };
        const Box first = makeEnd();
        const GeShaft shaft = run == 0 ? GeShaft() : GeShaft( first, makeEnd() );
        expectSameArray<float>(
            random, 400, makeBox, [&]( auto... items ) { kernels.overlaps( shaft, items... ); },
            [&]( const Box& box ) { return shaft.overlaps( box ); }, &seen );
        expectSameArray<float>(
            random, 400, makeBox, [&]( auto... items ) { kernels.overlapsExclude( shaft, items... ); },
            [&]( const Box& box ) { return shaft.overlapsExclude( box ); } );
    };
    forEachLevel<Detail::GeShaftKernels>( 50, check );
    EXPECT_GT( *std::min_element( seen.begin(), seen.end() ), 100 );
}

} // namespace
