// Products and intersections against the plain rule, as bits.

#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geLinearMatrix3.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geSphere3.h>

#include "support/bits.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <utility>

using namespace Zq;
using ZqTest::isSame;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( ArithmeticBits );

constexpr int REPEATS = 40000;

template <class Value, class T>
Value makeAny( Random& random )
{
    T numbers[sizeof( Value ) / sizeof( T )];
    const bool isOrdinary = random.index( 4 ) != 0;
    for ( T& number : numbers )
        number = isOrdinary ? random.uniform<T>( T( -10 ), T( 10 ) ) : ZqTest::anyNumber<T>( random );
    Value value;
    static_assert( sizeof value == sizeof numbers );
    std::memcpy( static_cast<void*>( &value ), numbers, sizeof value );
    return value;
}

TYPED_TEST( ArithmeticBits, quaternionProduct )
{
    using T = TypeParam;
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < REPEATS; ++n )
    {
        const auto a = makeAny<GeQuaternion3<T>, T>( random );
        const auto b = makeAny<GeQuaternion3<T>, T>( random );
        const T ax = a.getX(), ay = a.getY(), az = a.getZ(), aw = a.getW();
        const T bx = b.getX(), by = b.getY(), bz = b.getZ(), bw = b.getW();
        const GeQuaternion3<T> plain( aw * bx + ax * bw + ay * bz - az * by, aw * by + ay * bw + az * bx - ax * bz,
            aw * bz + az * bw + ax * by - ay * bx, aw * bw - ax * bx - ay * by - az * bz );
        ASSERT_TRUE( isSame<T>( a * b, plain ) ) << a << b;
    }
}

TYPED_TEST( ArithmeticBits, slerp )
{
    using T = TypeParam;
    using Quaternion = GeQuaternion3<T>;
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < REPEATS; ++n )
    {
        auto a = makeAny<Quaternion, T>( random ), b = makeAny<Quaternion, T>( random );
        a.normalize();
        b.normalize();
        if ( random.index( 8 ) == 0 )
            b = random.index( 2 ) == 0 ? a : -a;
        const T t = random.uniform<T>( T( -1 ), T( 2 ) ), spin = T( random.index( 3 ) - 1 );
        T cosine = a.dot( b ), scale0 = T( 1 ) - t, scale1 = t;
        const bool flip = cosine < T( 0 );
        if ( flip )
            cosine = -cosine;
        constexpr T threshold = static_cast<T>( 0.999999F );
        if ( !( cosine < -threshold || cosine > threshold ) )
        {
            const T omega = std::acos( cosine );
            const T phi =
                static_cast<T>( static_cast<double>( spin ) * 3.141592653589793 + static_cast<double>( omega ) ) * t;
            const T inverseSine = T( 1 ) / std::sin( omega );
            scale0 = std::sin( omega - phi ) * inverseSine;
            scale1 = std::sin( phi ) * inverseSine;
        }
        const Quaternion plain = a * scale0 + b * ( flip ? -scale1 : scale1 );
        ASSERT_TRUE( isSame<T>( Quaternion::slerp( a, b, t, spin ), plain ) ) << a << b << t << ' ' << spin;
    }
}

template <class Matrix, int size, class T>
void expectSameProduct( Random& random )
{
    const auto a = makeAny<Matrix, T>( random );
    const auto b = makeAny<Matrix, T>( random );
    Matrix plain;
    for ( int r = 0; r < size; ++r )
    {
        for ( int c = 0; c < size; ++c )
        {
            T sum = a( r, 0 ) * b( 0, c );
            for ( int k = 1; k < size; ++k )
                sum += a( r, k ) * b( k, c );
            plain( r, c ) = sum;
        }
    }
    ASSERT_TRUE( isSame<T>( a * b, plain ) ) << a << b;
    Matrix square = a;
    square *= square;
    ASSERT_TRUE( isSame<T>( square, a * Matrix( a ) ) ) << a;
}

TYPED_TEST( ArithmeticBits, matrixProducts )
{
    using T = TypeParam;
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < REPEATS && !this->HasFatalFailure(); ++n )
    {
        expectSameProduct<GeLinearMatrix3<T>, 3, T>( random );
        expectSameProduct<GeProjectiveMatrix3<T>, 4, T>( random );
    }
}

template <class T>
struct Ray
{
    GePoint3<T> origin;
    GeVector3<T> direction;
};

/// With zero and tiny components of the direction among the others.
template <class T>
Ray<T> makeRay( Random& random )
{
    auto ray = makeAny<Ray<T>, T>( random );
    if ( random.index( 8 ) == 0 )
        ray.direction[random.index( 3 )] = T( random.index( 2 ) ) * -T( 0 );
    if ( random.index( 8 ) == 0 )
        ray.direction *= std::numeric_limits<T>::min();
    return ray;
}

template <class T>
std::array<Interval<T>, 3> makeBounds( const GeAlignedBox3<T>& box )
{
    std::array<Interval<T>, 3> bounds;
    std::memcpy( static_cast<void*>( bounds.data() ), &box, sizeof bounds );
    return bounds;
}

template <class T>
Interval<T> intersectPlain( const GeAlignedBox3<T>& box, const Ray<T>& ray )
{
    const auto bounds = makeBounds( box );
    const T largest = std::numeric_limits<T>::max();
    Interval<T> range( -largest, largest );
    for ( int axis = 0; axis < 3; ++axis )
    {
        const T o = ray.origin[axis], d = ray.direction[axis];
        const Interval<T> slab = bounds[static_cast<std::size_t>( axis )];
        if ( d == 0 )
        {
            if ( o < slab.min || o > slab.max )
                return Interval<T>( largest, -largest );
            continue;
        }
        T t1 = ( slab.min - o ) * ( T( 1 ) / d );
        T t2 = ( slab.max - o ) * ( T( 1 ) / d );
        if ( !( d > 0 ) )
            std::swap( t1, t2 );
        if ( range.min < t1 )
            range.min = t1;
        if ( t2 < range.max )
            range.max = t2;
    }
    return range;
}

TYPED_TEST( ArithmeticBits, boxLine )
{
    using T = TypeParam;
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < REPEATS; ++n )
    {
        const auto box = makeAny<GeAlignedBox3<T>, T>( random ); // half of the axes inverted
        const Ray<T> ray = makeRay<T>( random );
        const Interval<T> range = box.intersectLine( ray.origin, ray.direction );
        ASSERT_TRUE( isSame<T>( range, intersectPlain( box, ray ) ) ) << box << ray.origin << ray.direction;
    }
}

/// Both roots, and whether there are any.
template <class T>
struct Roots
{
    T hits, t0, t1;
};

template <class T>
Roots<T> intersectPlain( const GeSphere3<T>& sphere, const Ray<T>& ray )
{
    const GeVector3<T> m = ray.origin - sphere.getCenter();
    const GeVector3<T>& d = ray.direction;
    const T r = sphere.getRadius();
    const T b = ( m.getY() * d.getY() + m.getX() * d.getX() ) + m.getZ() * d.getZ();
    const T c = m.dot( m ), a = d.dot( d );
    T first, second;
    if ( FloatUtil::isEqual( a, T( 0 ) ) )
    {
        if ( FloatUtil::isEqual( b, T( 0 ) ) )
            return { 0, 5, 6 };
        first = second = ( c - r * r ) / b * T( -0.5 );
    }
    else
    {
        const T discriminant = b * b - ( c - r * r ) * a;
        if ( discriminant < static_cast<T>( -0.0001F ) )
            return { 0, 5, 6 };
        first = ( std::sqrt( discriminant ) - b ) * ( T( 1 ) / a );
        second = ( -b - std::sqrt( discriminant ) ) * ( T( 1 ) / a );
    }
    if ( second < first )
        std::swap( first, second );
    return { 1, first, second };
}

TYPED_TEST( ArithmeticBits, raySphere )
{
    using T = TypeParam;
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < REPEATS; ++n )
    {
        const auto sphere = makeAny<GeSphere3<T>, T>( random );
        const Ray<T> ray = makeRay<T>( random );
        Roots<T> roots{ 0, 5, 6 };
        roots.hits = sphere.intersectRay( ray.origin, ray.direction, roots.t0, roots.t1 ) ? T( 1 ) : T( 0 );
        ASSERT_TRUE( isSame<T>( roots, intersectPlain( sphere, ray ) ) ) << sphere << ray.origin << ray.direction;
    }
}

} // namespace
