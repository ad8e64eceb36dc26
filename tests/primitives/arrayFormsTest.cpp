#include "support/numbers.h"
#include "support/random.h"
#include "support/scalars.h"

#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geShaft.h>
#include <zq/primitives/kernels.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <type_traits>

// Every level of instructions that this machine has gives, bit for bit, what the plain rule gives element by element.
// ZQ_TEST_ELEMENTS asks for more elements per form and level than the usual slice. The arrays are as long as their
// count on the heap, so that the sanitizers see every byte that is touched too much.

using namespace Zq;
using ZqTest::numbersOf;
using ZqTest::Random;

namespace
{

std::size_t nbElements()
{
    const char* const wanted = std::getenv( "ZQ_TEST_ELEMENTS" );
    return wanted ? static_cast<std::size_t>( std::atoll( wanted ) ) : 20000;
}

/// Numbers of which many are equal, at a threshold, or no numbers at all.
template <class T>
T oddNumber( Random& random )
{
    const T odd[] = { T( 0 ), -T( 0 ), T( 1 ), T( -1 ), T( 0.5 ), T( -0.0001F ), T( 1 ) - T( 0.0001F ),
        std::nextafter( T( -0.0001F ), T( 0 ) ), std::numeric_limits<T>::denorm_min(),
        -std::numeric_limits<T>::denorm_min(), ( std::numeric_limits<T>::max )(), ZqTest::infinity<T>,
        -ZqTest::infinity<T>, ZqTest::nan<T> };
    const int kind = random.index( 40 );
    if ( kind < 14 )
        return odd[kind];
    return kind < 27 ? T( random.index( 9 ) - 4 ) / T( 2 ) : random.uniform( T( -2 ), T( 2 ) );
}

/// One in four records consists of odd numbers; the others are ordinary, so that all verdicts come up.
template <class Record, class T>
Record makeRecord( Random& random )
{
    constexpr std::size_t n = sizeof( Record ) / sizeof( T );
    T numbers[n];
    const bool isOdd = random.index( 4 ) == 0;
    for ( std::size_t i = 0; i < n; ++i )
        numbers[i] = isOdd ? oddNumber<T>( random ) : random.uniform( T( -2 ), T( 2 ) );
    if ( !isOdd && n == 6 && random.index( 8 ) != 0 ) // mostly boxes that are not inverted
        for ( std::size_t i = 0; i < n; i += 2 )
            numbers[i + 1] = numbers[i] + std::abs( numbers[i + 1] ) * T( 0.5 );
    Record record;
    std::memcpy( static_cast<void*>( &record ), numbers, sizeof numbers );
    return record;
}

template <class T>
bool isSameBits( const T& a, const T& b )
{
    return std::memcmp( &a, &b, sizeof a ) == 0 || ( a != a && b != b ); // any NaN for a NaN
}

template <class T, class Record>
bool isSameRecord( const Record& a, const Record& b )
{
    const auto x = numbersOf<T>( a );
    const auto y = numbersOf<T>( b );
    for ( std::size_t i = 0; i < x.size(); ++i )
        if ( !isSameBits( x[i], y[i] ) )
            return false;
    return true;
}

/// Runs an array form over runs of 0 to some hundreds of elements; compare( element, result ) judges each.
template <class T, class Record, class Result, class Form, class Compare>
void runForm( Random& random, std::size_t total, const Form& form, const Compare& compare )
{
    for ( std::size_t done = 0; done < total; )
    {
        const std::size_t count = static_cast<std::size_t>( random.index( random.index( 4 ) == 0 ? 400 : 70 ) );
        const std::unique_ptr<Record[]> records( new Record[count] );
        const std::unique_ptr<Result[]> results( new Result[count] );
        for ( std::size_t i = 0; i < count; ++i )
            records[i] = makeRecord<Record, T>( random );
        form( records.get(), count, results.get() );
        for ( std::size_t i = 0; i < count; ++i )
            ASSERT_TRUE( compare( records[i], results[i] ) ) << "element " << i << " of " << count;
        done += count + 1;
    }
}

template <class T, class Kernels, class Check>
void forEachLevel( const Kernels* ( *find )( Detail::KernelLevel ), const Check& check )
{
    int nbChecked = 0;
    for ( int level = 0; level < Detail::NB_KERNEL_LEVELS; ++level )
    {
        if ( const Kernels* kernels = find( static_cast<Detail::KernelLevel>( level ) ) )
        {
            SCOPED_TRACE( testing::Message() << "level " << level );
            ASSERT_LE( level, Detail::getKernelLevel() );
            Random random( 7 );
            check( *kernels, random );
            ++nbChecked;
        }
    }
    EXPECT_EQ( nbChecked, Detail::getKernelLevel() + 1 );
}

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

TYPED_TEST( ArrayForms, Frustum )
{
    using T = TypeParam;
    using Box = GeAlignedBox3<T>;
    using Point = GePoint3<T>;
    forEachLevel<T, Detail::GeKernels<T>>( Detail::findGeKernels<T>,
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

TYPED_TEST( ArrayForms, Boxes )
{
    using T = TypeParam;
    using Box = GeAlignedBox3<T>;
    using Point = GePoint3<T>;
    forEachLevel<T, Detail::GeKernels<T>>( Detail::findGeKernels<T>,
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
                    { return isSameRecord<T>( range, other.intersectLine( origin, direction ) ); } );

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
                        ASSERT_TRUE( isSameRecord<T>( grown, expected ) ) << grown << " for " << expected;
                    },
                    []( const Point&, unsigned char ) { return true; } );
            }
        } );
}

TYPED_TEST( ArrayForms, Matrices )
{
    using T = TypeParam;
    using Point = GePoint3<T>;
    using Vector = GeVector3<T>;
    using Coord = GeHomogeneousCoord3<T>;
    forEachLevel<T, Detail::GeKernels<T>>( Detail::findGeKernels<T>,
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
                    [&]( const Point& p, const Point& result ) { return isSameRecord<T>( result, a * p ); } );
                runForm<T, Vector, Vector>(
                    random, nbElements() / 20,
                    [&]( const Vector* vectors, std::size_t count, Vector* results )
                    {
                        std::memcpy( static_cast<void*>( results ), vectors, count * sizeof( Vector ) );
                        kernels.transformVectors( columns.data(), results, count, results ); // in place
                    },
                    [&]( const Vector& v, const Vector& result ) { return isSameRecord<T>( result, a * v ); } );
                runForm<T, Coord, Coord>(
                    random, nbElements() / 20,
                    [&]( const Coord* coords, std::size_t count, Coord* results )
                    { kernels.transformCoords( columns.data(), coords, count, results ); },
                    [&]( const Coord& h, const Coord& result ) { return isSameRecord<T>( result, m * h ); } );
                runForm<T, Vector, Coord>(
                    random, nbElements() / 20,
                    [&]( const Vector* vectors, std::size_t count, Coord* results )
                    { kernels.projectVectors( columns.data(), vectors, count, results ); },
                    [&]( const Vector& v, const Coord& result ) { return isSameRecord<T>( result, m * v ); } );
            }
        } );
}

TEST( ArrayFormsSingle, CullingCones )
{
    using Cones = GeCullingCones;
    forEachLevel<float, Detail::GeSingleKernels>( Detail::findGeSingleKernels,
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
    forEachLevel<float, Detail::GeSingleKernels>( Detail::findGeSingleKernels,
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
