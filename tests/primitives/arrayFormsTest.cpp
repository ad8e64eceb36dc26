#include "support/arrayForms.h"

#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geShaft.h>
#include <zq/primitives/kernels.h>

using namespace ZqTest;

namespace
{

// The rules of the frustum, plainly. The class itself works on several planes at once.

template <class T>
using Planes = Detail::FrustumPlanes<T>;

template <class T>
int classifyPlainly( const Planes<T>& planes, const GePoint3<T>& p )
{
    for ( int i = 0; i < 6; ++i )
        if ( ( ( planes[0][i] * p.getX() + planes[2][i] * p.getZ() ) + planes[1][i] * p.getY() ) + planes[3][i] <
            T( -0.0001F ) )
            return 1;
    return 2;
}

template <class T>
int classifyPlainly( const Planes<T>& planes, const GeAlignedBox3<T>& box )
{
    int answer = 2;
    for ( int i = 0; i < 6; ++i )
    {
        T low[3], high[3]; // the products along the axes
        for ( int axis = 0; axis < 3; ++axis )
        {
            const T n = planes[axis][i];
            const Interval<T> slab = box.getInterval( axis );
            low[axis] = n * ( n > 0 ? slab.min : slab.max );
            high[axis] = n * ( n > 0 ? slab.max : slab.min );
        }
        if ( ( ( low[1] + low[0] ) + low[2] ) + planes[3][i] >= T( -0.0001F ) )
            continue;
        if ( ( ( high[1] + high[2] ) + high[0] ) + planes[3][i] < T( -0.0001F ) )
            return 1;
        answer = 3;
    }
    return answer;
}

/// Planes like those of a camera in the middle of the boxes, at times with odd numbers. Or one that meets the near or the
/// far corner of a box just at the threshold, so that the order of the sums tells, and five that are far away.
template <class T>
void makePlanes( Random& random, const GeAlignedBox3<T>* box, Planes<T>& planes )
{
    const bool isFar = random.index( 2 ) == 0;
    for ( int i = 0; i < 6; ++i )
    {
        const GeUnitVector3<T> normal = random.direction<T>();
        const bool isOdd = box == nullptr && random.index( 6 ) == 0;
        T dot = 0;
        for ( int axis = 0; axis < 3; ++axis )
        {
            planes[axis][i] = isOdd ? anyNumber<T>( random ) : normal[axis];
            if ( box != nullptr )
            {
                const Interval<T> slab = box->getInterval( axis );
                dot += normal[axis] * ( ( normal[axis] > 0 ) == isFar ? slab.max : slab.min );
            }
        }
        planes[3][i] = isOdd ? anyNumber<T>( random )
            : box == nullptr ? random.uniform( T( 0 ), T( 2 ) )
            : i == 3         ? T( -0.0001F ) - dot
                             : T( 100 );
    }
}

ZQ_TWIN_SUITE( ArrayForms );

ZQ_TWIN_TEST( ArrayForms, Frustum )
{
    using Box = GeAlignedBox3<T>;
    using Point = GePoint3<T>;
    const auto check = []( const Detail::GeKernels<T>& kernels, Random& random )
    {
        std::array<int, 4> seen{};
        for ( int run = 0; run < 400; ++run )
        {
            const auto tested = makeRecord<Box, T>( random );
            const auto makeBox = [&]( Random& )
            { return random.index( 2 ) == 0 ? makeRecord<Box, T>( random ) : tested; };
            const auto makePoint = [&]( Random& ) { return makeBox( random ).getCorner( random.index( 8 ) ); };
            Planes<T> planes;
            makePlanes( random, run % 2 == 0 ? &tested : nullptr, planes );
            GeFrustum<T> frustum( ( GeProjectiveMatrix3<T>() ) ); // with planes that no camera has
            static_assert( sizeof frustum == sizeof planes );
            std::memcpy( static_cast<void*>( &frustum ), planes, sizeof planes );
            compareForm<T, unsigned char>(
                random, 50, makePoint, [&]( auto... items ) { kernels.classifyPoints( planes, items... ); },
                [&]( const Point& point )
                {
                    const int verdict = classifyPlainly( planes, point );
                    EXPECT_EQ( frustum.classify( point ), verdict );
                    return verdict;
                } );
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
            const auto verdicts = compareForm<T, unsigned char>( random, 50, makeBox, classifyAndFind,
                [&]( const Box& box )
                {
                    const int verdict = classifyPlainly( planes, box );
                    EXPECT_EQ( frustum.classify( box ), verdict );
                    return verdict;
                } );
            std::transform( seen.begin(), seen.end(), verdicts.begin(), seen.begin(), std::plus<>() );
        }
        EXPECT_GT( *std::min_element( seen.begin() + 1, seen.end() ), 300 );
    };
    forEachLevel<Detail::GeKernels<T>>( Detail::findGeKernels<T>, check );
}

ZQ_TWIN_TEST( ArrayForms, Boxes )
{
    using Box = GeAlignedBox3<T>;
    using Point = GePoint3<T>;
    const auto check = []( const Detail::GeKernels<T>& kernels, Random& random )
    {
        for ( int run = 0; run < 50; ++run )
        {
            const Box box = makeRecord<Box, T>( random );
            compareForm<T, Box, unsigned char>(
                random, 400, [&]( auto... items ) { kernels.classify( box, items... ); },
                [&]( const Box& other ) { return box.classify( other ); } );
            compareForm<T, Box, unsigned char>(
                random, 400, [&]( auto... items ) { kernels.classifyExclude( box, items... ); },
                [&]( const Box& other ) { return box.classifyExclude( other ); } );
            const Point origin = makeRecord<Point, T>( random );
            const auto direction = makeRecord<GeVector3<T>, T>( random );
            compareForm<T, Box, Interval<T>>(
                random, 400,
                [&]( const Box* boxes, std::size_t count, Interval<T>* ranges )
                { kernels.intersectLine( boxes, count, origin, direction, ranges ); },
                [&]( const Box& other ) { return other.intersectLine( origin, direction ); } );

            // points, in one of three runs mostly zeros of both signs
            for ( int i = 0; i < 8; ++i )
            {
                const std::size_t count = static_cast<std::size_t>( random.index( 70 ) );
                const std::unique_ptr<Point[]> points( new Point[count] );
                Box expected = run % 3 == 0 ? Box() : box;
                T bounds[6];
                std::memcpy( bounds, &expected, sizeof bounds );
                for ( Point* p = points.get(); p != points.get() + count; ++p )
                {
                    *p = makeRecord<Point, T>( random );
                    if ( run % 3 == 0 )
                    {
                        // the last coordinates of half of them lie beyond, on one side
                        const T z = random.index( 2 ) == 0 ? T( run % 2 ? 1 : -1 ) : std::copysign( T( 0 ), p->getZ() );
                        *p = Point( std::copysign( T( 0 ), p->getX() ), T( 0 ), z );
                    }
                    expected.extend( *p );
                }
                kernels.extend( bounds, points.get(), count );
                EXPECT_TRUE( isSame<T>( numbersOf<T>( bounds ), numbersOf<T>( expected ) ) ) << expected;
            }
        }
    };
    forEachLevel<Detail::GeKernels<T>>( Detail::findGeKernels<T>, check );
}

ZQ_TWIN_TEST( ArrayForms, Matrices )
{
    using Point = GePoint3<T>;
    using Vector = GeVector3<T>;
    using Coord = GeHomogeneousCoord3<T>;
    const auto check = []( const Detail::GeKernels<T>& kernels, Random& random )
    {
        for ( int run = 0; run < 20; ++run )
        {
            const auto m = makeRecord<GeProjectiveMatrix3<T>, T>( random );
            GeAffineMatrix3<T> a;
            for ( int i = 0; i < 12; ++i )
                a( i / 4, i % 4 ) = m( i / 4, i % 4 );
            const auto numbers = numbersOf<T>( m );
            const T* const columns = numbers.data();
            compareForm<T, Point, Point>(
                random, 1000, [&]( auto... items ) { kernels.transformPoints( columns, items... ); },
                [&]( const Point& p ) { return a * p; } );
            compareForm<T, Vector, Vector>(
                random, 1000,
                [&]( const Vector* vectors, std::size_t count, Vector* results )
                {
                    std::copy( vectors, vectors + count, results );
                    kernels.transformVectors( columns, results, count, results ); // in place
                },
                [&]( const Vector& v ) { return a * v; } );
            compareForm<T, Coord, Coord>(
                random, 1000, [&]( auto... items ) { kernels.transformCoords( columns, items... ); },
                [&]( const Coord& h ) { return m * h; } );
            compareForm<T, Vector, Coord>(
                random, 1000, [&]( auto... items ) { kernels.projectVectors( columns, items... ); },
                [&]( const Vector& v ) { return m * v; } );
        }
    };
    forEachLevel<Detail::GeKernels<T>>( Detail::findGeKernels<T>, check );
}

TEST( ArrayFormsSingle, CullingCones )
{
    using Cones = GeCullingCones;
    const auto check = []( const Detail::GeSingleKernels& kernels, Random& random )
    {
        std::array<int, 4> seen{};
        for ( int run = 0; run < 20; ++run )
        {
            const auto eye = makeRecord<GePoint3<float>, float>( random );
            const auto makeCones = [&]( Random& ) // some have their tip at the eye
            {
                const auto cones = makeRecord<Cones, float>( random );
                return random.index( 5 ) != 0 ? cones : Cones( cones.getFloatingCone(), eye, float( run % 2 ) );
            };
            const auto verdicts = compareForm<float, unsigned char>(
                random, 1000, makeCones,
                [&]( const Cones* cones, std::size_t count, unsigned char* answers )
                { kernels.isBehind( cones, count, eye, answers ); },
                [&]( const Cones& cones ) { return cones.isBehind( eye ); } );
            std::transform( seen.begin(), seen.end(), verdicts.begin(), seen.begin(), std::plus<>() );
            compareForm<float, unsigned char>(
                random, 1000, makeCones,
                [&]( const Cones* cones, std::size_t count, unsigned char* answers )
                { kernels.isInFront( cones, count, eye, answers ); },
                [&]( const Cones& cones ) { return cones.isInFront( eye ); } );
        }
        EXPECT_GT( std::min( seen[0], seen[1] ), 1000 );
    };
    forEachLevel<Detail::GeSingleKernels>( Detail::findGeSingleKernels, check );
}

TEST( ArrayFormsSingle, Shaft )
{
    using Box = GeAlignedBox3<float>;
    const auto check = []( const Detail::GeSingleKernels& kernels, Random& random )
    {
        // some boxes are around everything; single points are not widened, so that planes are met exactly
        const auto makeBox = [&]( Random& )
        {
            const Box around( GePoint3<float>( -3, -3, -3 ), GePoint3<float>( 3, 3, 3 ) );
            return random.index( 15 ) == 0 ? around : makeRecord<Box, float>( random );
        };
        const auto makePoint = [&]
        {
            const auto coordinate = [&] { return float( random.index( 5 ) - 2 ); };
            const float x = coordinate(), y = coordinate();
            return Box( GePoint3<float>( x, y, coordinate() ) );
        };
        std::array<int, 4> seen{};
        for ( int run = 0; run < 50; ++run )
        {
            const Box first = run % 2 ? makePoint() : makeBox( random );
            const GeShaft shaft = run == 0 ? GeShaft() : GeShaft( first, run % 2 ? makePoint() : makeBox( random ) );
            const auto verdicts = compareForm<float, unsigned char>(
                random, 400, makeBox, [&]( auto... items ) { kernels.overlaps( shaft, items... ); },
                [&]( const Box& box ) { return shaft.overlaps( box ); } );
            std::transform( seen.begin(), seen.end(), verdicts.begin(), seen.begin(), std::plus<>() );
            compareForm<float, unsigned char>(
                random, 400, makeBox, [&]( auto... items ) { kernels.overlapsExclude( shaft, items... ); },
                [&]( const Box& box ) { return shaft.overlapsExclude( box ); } );
        }
        EXPECT_GT( *std::min_element( seen.begin(), seen.end() ), 30 );
    };
    forEachLevel<Detail::GeSingleKernels>( Detail::findGeSingleKernels, check );
}

} // namespace
