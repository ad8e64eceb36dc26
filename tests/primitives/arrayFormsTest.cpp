#include "support/arrayForms.h"

#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geShaft.h>
#include <zq/primitives/kernels.h>

#include <memory>

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
    const Interval<T> x = box.getInterval( 0 );
    const Interval<T> y = box.getInterval( 1 );
    const Interval<T> z = box.getInterval( 2 );
    int answer = 2;
    for ( int i = 0; i < 6; ++i )
    {
        const T n[] = { planes[0][i], planes[1][i], planes[2][i] };
        const T low[] = { n[0] > 0 ? x.min : x.max, n[1] > 0 ? y.min : y.max, n[2] > 0 ? z.min : z.max };
        const T high[] = { n[0] > 0 ? x.max : x.min, n[1] > 0 ? y.max : y.min, n[2] > 0 ? z.max : z.min };
        if ( ( ( low[1] * n[1] + low[0] * n[0] ) + low[2] * n[2] ) + planes[3][i] >= T( -0.0001F ) )
            continue;
        if ( ( ( high[1] * n[1] + high[2] * n[2] ) + high[0] * n[0] ) + planes[3][i] < T( -0.0001F ) )
            return 1;
        answer = 3;
    }
    return answer;
}

/// Planes like those of a camera in the middle of the boxes; at times their numbers are odd.
template <class T>
void makePlanes( Random& random, Planes<T>& planes )
{
    for ( int i = 0; i < 6; ++i )
    {
        const GeUnitVector3<T> n = random.direction<T>();
        const bool isOdd = random.index( 6 ) == 0;
        for ( int axis = 0; axis < 3; ++axis )
            planes[axis][i] = isOdd ? oddNumber<T>( random ) : n[axis];
        planes[3][i] = isOdd ? oddNumber<T>( random ) : random.uniform( T( 0 ), T( 2 ) );
    }
}

ZQ_TWIN_SUITE( ArrayForms );

ZQ_TWIN_TEST( ArrayForms, Frustum )
{
    using Box = GeAlignedBox3<T>;
    using Point = GePoint3<T>;
    forEachLevel<Detail::GeKernels<T>>( Detail::findGeKernels<T>,
        []( const Detail::GeKernels<T>& kernels, Random& random )
        {
            int counts[4] = {};
            for ( int run = 0; run < 20; ++run )
            {
                Planes<T> planes;
                makePlanes( random, planes );
                GeFrustum<T> frustum( ( GeProjectiveMatrix3<T>() ) ); // with planes that no camera has
                static_assert( sizeof frustum == sizeof planes );
                std::memcpy( static_cast<void*>( &frustum ), planes, sizeof planes );
                runForm<T, Point, unsigned char>(
                    random, nbElements() / 20,
                    [&]( const Point* points, std::size_t count, unsigned char* verdicts )
                    { kernels.classifyPoints( planes, points, count, verdicts ); },
                    [&]( const Point& point, int verdict )
                    { return verdict == classifyPlainly( planes, point ) && verdict == frustum.classify( point ); } );
                runForm<T, Box, unsigned char>(
                    random, nbElements() / 20,
                    [&]( const Box* boxes, std::size_t count, unsigned char* verdicts )
                    {
                        kernels.classifyBoxes( planes, boxes, count, verdicts );
                        const std::unique_ptr<std::uint32_t[]> indices( new std::uint32_t[count] );
                        const std::size_t found = kernels.findNotOutside( planes, boxes, count, indices.get() );
                        std::size_t expected = 0;
                        for ( std::uint32_t i = 0; i < count; ++i )
                        {
                            if ( verdicts[i] != 1 )
                            {
                                ASSERT_EQ( indices[expected++], i );
                            }
                        }
                        ASSERT_EQ( found, expected );
                    },
                    [&]( const Box& box, int verdict )
                    {
                        ++counts[verdict];
                        return verdict == classifyPlainly( planes, box ) && verdict == frustum.classify( box );
                    } );
            }
            for ( int verdict = 1; verdict <= 3; ++verdict )
                EXPECT_GT( counts[verdict], 300 ) << verdict;
        } );
}

ZQ_TWIN_TEST( ArrayForms, Boxes )
{
    using Box = GeAlignedBox3<T>;
    using Point = GePoint3<T>;
    forEachLevel<Detail::GeKernels<T>>( Detail::findGeKernels<T>,
        []( const Detail::GeKernels<T>& kernels, Random& random )
        {
            for ( int run = 0; run < 50; ++run )
            {
                const Box box = makeRecord<Box, T>( random );
                runForm<T, Box, unsigned char>(
                    random, nbElements() / 50,
                    [&]( const Box* others, std::size_t count, unsigned char* verdicts )
                    { kernels.classify( box, others, count, verdicts ); },
                    [&]( const Box& other, int verdict ) { return verdict == box.classify( other ); } );
                runForm<T, Box, unsigned char>(
                    random, nbElements() / 50,
                    [&]( const Box* others, std::size_t count, unsigned char* verdicts )
                    { kernels.classifyExclude( box, others, count, verdicts ); },
                    [&]( const Box& other, int verdict ) { return verdict == box.classifyExclude( other ); } );

                const Point origin = makeRecord<Point, T>( random );
                const GeVector3<T> direction = makeRecord<GeVector3<T>, T>( random );
                runForm<T, Box, Interval<T>>(
                    random, nbElements() / 50,
                    [&]( const Box* boxes, std::size_t count, Interval<T>* ranges )
                    { kernels.intersectLine( boxes, count, origin, direction, ranges ); },
                    [&]( const Box& other, const Interval<T>& range )
                    { return isSame<T>( range, other.intersectLine( origin, direction ) ); } );

                // runs of points, some with hardly anything but zeros of both signs
                const bool isFlat = run % 3 == 0;
                runForm<T, Point, unsigned char>(
                    random, nbElements() / 50,
                    [&]( Point* points, std::size_t count, unsigned char* )
                    {
                        Box expected = run % 5 == 0 ? Box() : box;
                        Box grown = expected;
                        for ( std::size_t i = 0; i < count; ++i )
                        {
                            if ( isFlat && points[i].getX() > 0 )
                                points[i] = Point( -T( 0 ), T( random.index( 2 ) ) * T( -0.0 ), T( 0 ) );
                            expected.extend( points[i] );
                        }
                        T bounds[6];
                        std::memcpy( bounds, &grown, sizeof bounds );
                        kernels.extend( bounds, points, count );
                        std::memcpy( static_cast<void*>( &grown ), bounds, sizeof bounds );
                        ASSERT_TRUE( isSame<T>( grown, expected ) ) << grown << " for " << expected;
                    },
                    []( const Point&, unsigned char ) { return true; } );
            }
        } );
}

ZQ_TWIN_TEST( ArrayForms, Matrices )
{
    using Point = GePoint3<T>;
    using Vector = GeVector3<T>;
    using Coord = GeHomogeneousCoord3<T>;
    forEachLevel<Detail::GeKernels<T>>( Detail::findGeKernels<T>,
        []( const Detail::GeKernels<T>& kernels, Random& random )
        {
            for ( int run = 0; run < 20; ++run )
            {
                GeProjectiveMatrix3<T> m;
                GeAffineMatrix3<T> a;
                for ( int i = 0; i < 16; ++i )
                {
                    const T x = run < 15 ? random.uniform( T( -2 ), T( 2 ) ) : oddNumber<T>( random );
                    m( i / 4, i % 4 ) = x;
                    if ( i < 12 )
                        a( i / 4, i % 4 ) = x;
                }
                const auto columns = numbersOf<T>( m );
                runForm<T, Point, Point>(
                    random, nbElements() / 20,
                    [&]( const Point* points, std::size_t count, Point* results )
                    { kernels.transformPoints( columns.data(), points, count, results ); },
                    [&]( const Point& p, const Point& result ) { return isSame<T>( result, a * p ); } );
                runForm<T, Vector, Vector>(
                    random, nbElements() / 20,
                    [&]( const Vector* vectors, std::size_t count, Vector* results )
                    {
                        std::memcpy( static_cast<void*>( results ), vectors, count * sizeof( Vector ) );
                        kernels.transformVectors( columns.data(), results, count, results ); // in place
                    },
                    [&]( const Vector& v, const Vector& result ) { return isSame<T>( result, a * v ); } );
                runForm<T, Coord, Coord>(
                    random, nbElements() / 20,
                    [&]( const Coord* coords, std::size_t count, Coord* results )
                    { kernels.transformCoords( columns.data(), coords, count, results ); },
                    [&]( const Coord& h, const Coord& result ) { return isSame<T>( result, m * h ); } );
                runForm<T, Vector, Coord>(
                    random, nbElements() / 20,
                    [&]( const Vector* vectors, std::size_t count, Coord* results )
                    { kernels.projectVectors( columns.data(), vectors, count, results ); },
                    [&]( const Vector& v, const Coord& result ) { return isSame<T>( result, m * v ); } );
            }
        } );
}

TEST( ArrayFormsSingle, CullingCones )
{
    using Cones = GeCullingCones;
    forEachLevel<Detail::GeSingleKernels>( Detail::findGeSingleKernels,
        []( const Detail::GeSingleKernels& kernels, Random& random )
        {
            int nbHit = 0;
            for ( int run = 0; run < 20; ++run )
            {
                const GePoint3<float> eye = makeRecord<GePoint3<float>, float>( random );
                const auto moveSomeTips = [&]( Cones* cones, std::size_t count )
                {
                    for ( std::size_t i = 0; i < count; i += 5 )
                        cones[i] = Cones( cones[i].getFloatingCone(), eye, static_cast<float>( i % 2 ) );
                };
                runForm<float, Cones, unsigned char>(
                    random, nbElements() / 20,
                    [&]( Cones* cones, std::size_t count, unsigned char* verdicts )
                    {
                        moveSomeTips( cones, count );
                        kernels.isBehind( cones, count, eye, verdicts );
                    },
                    [&]( const Cones& cone, int verdict )
                    {
                        nbHit += verdict;
                        return verdict == static_cast<int>( cone.isBehind( eye ) );
                    } );
                runForm<float, Cones, unsigned char>(
                    random, nbElements() / 20,
                    [&]( Cones* cones, std::size_t count, unsigned char* verdicts )
                    {
                        moveSomeTips( cones, count );
                        kernels.isInFront( cones, count, eye, verdicts );
                    },
                    [&]( const Cones& cone, int verdict )
                    { return verdict == static_cast<int>( cone.isInFront( eye ) ); } );
            }
            EXPECT_GT( nbHit, 1000 );
        } );
}

TEST( ArrayFormsSingle, Shaft )
{
    using Box = GeAlignedBox3<float>;
    forEachLevel<Detail::GeSingleKernels>( Detail::findGeSingleKernels,
        []( const Detail::GeSingleKernels& kernels, Random& random )
        {
            int counts[4] = {};
            for ( int run = 0; run < 50; ++run )
            {
                // corners on a lattice: faces agree, planes are met exactly
                const auto latticeBox = [&]
                {
                    const auto coordinate = [&] { return static_cast<float>( random.index( 9 ) - 4 ) / 2.0F; };
                    const GePoint3<float> p( coordinate(), coordinate(), coordinate() );
                    return Box( p, GePoint3<float>( coordinate(), coordinate(), coordinate() ) );
                };
                const Box around( GePoint3<float>( -3.0F, -3.0F, -3.0F ), GePoint3<float>( 3.0F, 3.0F, 3.0F ) );
                const GeShaft shaft = run == 0 ? GeShaft()
                    : run % 7 == 0 ? GeShaft( makeRecord<Box, float>( random ), makeRecord<Box, float>( random ) )
                                   : GeShaft( latticeBox(), latticeBox() );
                runForm<float, Box, unsigned char>(
                    random, nbElements() / 50,
                    [&]( Box* boxes, std::size_t count, unsigned char* verdicts )
                    {
                        for ( std::size_t i = 0; i < count; i += 3 )
                            boxes[i] = i % 5 == 0 ? around : latticeBox();
                        kernels.overlaps( shaft, boxes, count, verdicts );
                    },
                    [&]( const Box& box, int verdict )
                    {
                        ++counts[verdict];
                        return verdict == shaft.overlaps( box );
                    } );
                runForm<float, Box, unsigned char>(
                    random, nbElements() / 50,
                    [&]( Box* boxes, std::size_t count, unsigned char* verdicts )
                    {
                        for ( std::size_t i = 0; i < count; i += 3 )
                            boxes[i] = i % 5 == 0 ? around : latticeBox();
                        kernels.overlapsExclude( shaft, boxes, count, verdicts );
                    },
                    [&]( const Box& box, int verdict ) { return verdict == shaft.overlapsExclude( box ); } );
            }
            for ( const int count : counts )
                EXPECT_GT( count, 100 );
        } );
}

} // namespace
