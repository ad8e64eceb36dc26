#ifndef ZQ_TESTS_BITS_PLAINRULES_H
#define ZQ_TESTS_BITS_PLAINRULES_H

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

/// The rules of the library step by step in scalar C++, with the jumps and early exits that they offer: opponents of the
/// library in the benchmarks, and what the tests compare its fast ways with, bit by bit. So the sums have their order.
///
/// Values are arrays of their numbers in the order of the library: x, y, z and w; x.min, x.max, y.min, ... z.max of a
/// box; a center and a radius; a normal and an offset; the rows of a linear matrix; red, green, blue; hue, saturation,
/// value.
namespace ZqPlain
{

template <class T>
using Three = std::array<T, 3>;
template <class T>
using Four = std::array<T, 4>;
template <class T>
using Box = std::array<T, 6>;

// ---- frusta: 1 outside, 2 inside, 3 crossing ----

/// Six planes, as they are.
template <class T>
using Frustum = std::array<Four<T>, 6>;

template <class T>
unsigned char classifyPoint( const Frustum<T>& planes, const Three<T>& point )
{
    for ( const auto& [x, y, z, d] : planes )
        if ( ( ( x * point[0] + z * point[2] ) + y * point[1] ) + d < T( -0.0001F ) )
            return 1;
    return 2;
}

/// The corner that is deepest in decides about outside, the opposite one about crossing.
template <class T>
unsigned char classifyBox( const Frustum<T>& planes, const Box<T>& box )
{
    const auto& [xMin, xMax, yMin, yMax, zMin, zMax] = box;
    unsigned char answer = 2;
    for ( const auto& [x, y, z, d] : planes )
    {
        const T low = ( y * ( y > 0 ? yMin : yMax ) + x * ( x > 0 ? xMin : xMax ) ) + z * ( z > 0 ? zMin : zMax );
        if ( low + d >= T( -0.0001F ) )
            continue;
        const T high = ( y * ( y > 0 ? yMax : yMin ) + z * ( z > 0 ? zMax : zMin ) ) + x * ( x > 0 ? xMax : xMin );
        if ( high + d < T( -0.0001F ) )
            return 1;
        answer = 3;
    }
    return answer;
}

// ---- lines ----

/// The slabs of a box one after the other: the range of t, which is inverted where the line misses.
template <class T>
std::array<T, 2> intersectBox( const Box<T>& box, const Three<T>& origin, const Three<T>& direction )
{
    constexpr T largest = ( std::numeric_limits<T>::max )();
    T from = -largest, to = largest;
    for ( std::size_t axis = 0; axis < 3; ++axis )
    {
        const T o = origin[axis], d = direction[axis], lower = box[2 * axis], upper = box[2 * axis + 1];
        if ( d == 0 )
        {
            if ( o < lower || o > upper )
                return { largest, -largest };
            continue;
        }
        const T inverse = T( 1 ) / d;
        T t1 = ( lower - o ) * inverse;
        T t2 = ( upper - o ) * inverse;
        if ( d < 0 )
            std::swap( t1, t2 );
        if ( from < t1 )
            from = t1;
        if ( t2 < to )
            to = t2;
    }
    return { from, to };
}

template <class T>
bool isZero( T x )
{
    return std::fabs( x ) < ( sizeof( T ) == sizeof( float ) ? static_cast<T>( 1e-6F ) : static_cast<T>( 1e-7 ) );
}

/// Both roots of the quadratic, in order, for directions of any length; false where there are none.
template <class T>
bool intersectSphere( const Four<T>& sphere, const Three<T>& origin, const Three<T>& direction, T& t0, T& t1 )
{
    const auto& [dx, dy, dz] = direction;
    const T x = origin[0] - sphere[0], y = origin[1] - sphere[1], z = origin[2] - sphere[2];
    const T a = dx * dx + dy * dy + dz * dz;
    const T b = ( y * dy + x * dx ) + z * dz;
    const T c = ( x * x + y * y + z * z ) - sphere[3] * sphere[3];
    if ( isZero( a ) )
    {
        if ( isZero( b ) )
            return false;
        t0 = t1 = c / b * T( -0.5 );
        return true;
    }
    const T discriminant = b * b - c * a;
    if ( discriminant < T( -0.0001F ) )
        return false;
    const T root = std::sqrt( discriminant ), inverse = T( 1 ) / a;
    t0 = ( root - b ) * inverse;
    t1 = ( -b - root ) * inverse;
    if ( t1 < t0 )
        std::swap( t0, t1 );
    return true;
}

/// A plane whose normal has unit length; false for a parallel line.
template <class T>
bool intersectPlane( const Four<T>& plane, const Three<T>& origin, const Three<T>& direction, T& t )
{
    const auto& [x, y, z, d] = plane;
    const T slope = ( direction[1] * y + direction[2] * z ) + direction[0] * x;
    if ( isZero( slope ) )
        return false;
    t = ( ( origin[1] * y + origin[2] * z ) + origin[0] * x + d ) * ( T( -1 ) / slope );
    return true;
}

// ---- rotations ----

template <class T>
Four<T> multiplyQuaternions( const Four<T>& a, const Four<T>& b )
{
    const auto& [ax, ay, az, aw] = a;
    const auto& [bx, by, bz, bw] = b;
    return { aw * bx + ax * bw + ay * bz - az * by, aw * by + ay * bw + az * bx - ax * bz,
        aw * bz + az * bw + ax * by - ay * bx, aw * bw - ax * bx - ay * by - az * bz };
}

template <class T>
Four<T> slerp( const Four<T>& a, const Four<T>& b, T t, T spin )
{
    constexpr T threshold = static_cast<T>( 0.999999F );
    T cosine = a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3];
    const bool isFlipped = cosine < 0;
    if ( isFlipped )
        cosine = -cosine;
    T fromA = T( 1 ) - t, fromB = t;
    if ( !( cosine < -threshold || cosine > threshold ) )
    {
        const T omega = std::acos( cosine );
        const T phi =
            static_cast<T>( static_cast<double>( spin ) * 3.141592653589793 + static_cast<double>( omega ) ) * t;
        const T inverse = T( 1 ) / std::sin( omega );
        fromA = std::sin( omega - phi ) * inverse;
        fromB = std::sin( phi ) * inverse;
    }
    if ( isFlipped )
        fromB = -fromB;
    return { a[0] * fromA + b[0] * fromB, a[1] * fromA + b[1] * fromB, a[2] * fromA + b[2] * fromB,
        a[3] * fromA + b[3] * fromB };
}

/// The angles of a matrix about the axes i, j and k, or i, j and i again where i is repeated. If j comes before i in the
/// cycle x, y, z, they have the other sign; if the frame rotates, they come in the other order.
template <class T>
Three<T> extractAngles(
    const std::array<T, 9>& matrix, int i, int j, int k, bool isOdd, bool isRepeated, bool isRotating )
{
    const auto m = [&]( int row, int column )
    { return matrix[3 * static_cast<std::size_t>( row ) + static_cast<std::size_t>( column )]; };
    const T x = isRepeated ? m( i, j ) : m( i, i ), y = isRepeated ? m( i, k ) : m( j, i );
    const T root = std::sqrt( x * x + y * y );
    Three<T> angles{};
    if ( root > static_cast<T>( 0.0016F ) )
    {
        angles[0] = isRepeated ? std::atan2( m( i, j ), m( i, k ) ) : std::atan2( m( k, j ), m( k, k ) );
        angles[2] = isRepeated ? std::atan2( m( j, i ), -m( k, i ) ) : std::atan2( m( j, i ), m( i, i ) );
    }
    else
        angles[0] = std::atan2( -m( j, k ), m( j, j ) );
    angles[1] = isRepeated ? std::atan2( root, m( i, i ) ) : std::atan2( -m( k, i ), root );
    if ( isOdd )
        angles = { -angles[0], -angles[1], -angles[2] };
    if ( isRotating )
        std::swap( angles[0], angles[2] );
    return angles;
}

// ---- matrices ----

template <class T, int size>
struct Matrix
{
    T m[std::size_t( size )][std::size_t( size )];
};

template <class T, int size>
Matrix<T, size> multiplyMatrices( const Matrix<T, size>& a, const Matrix<T, size>& b )
{
    Matrix<T, size> product;
    for ( int i = 0; i < size; ++i )
    {
        for ( int j = 0; j < size; ++j )
        {
            T sum = a.m[i][0] * b.m[0][j];
            for ( int k = 1; k < size; ++k )
                sum += a.m[i][k] * b.m[k][j];
            product.m[i][j] = sum;
        }
    }
    return product;
}

// ---- colours ----

template <class T>
Three<T> convertToHsv( const Three<T>& rgb )
{
    const auto& [r, g, b] = rgb;
    const T largest = ( std::max )( ( std::max )( r, g ), b );
    const T smallest = ( std::min )( ( std::min )( r, g ), b );
    if ( r == largest && g == largest && b == largest )
        return { 0, 0, largest };
    const T delta = largest - smallest;
    T sixths = delta; // NaN where no component is the largest
    if ( r == largest )
        sixths = ( largest - b ) / delta - ( largest - g ) / delta;
    else if ( g == largest )
        sixths = T( 2 ) + ( largest - r ) / delta - ( largest - b ) / delta;
    else if ( b == largest )
        sixths = T( 4 ) + ( largest - g ) / delta - ( largest - r ) / delta;
    if ( sixths < 0 )
        sixths += T( 6 );
    return { sixths * T( 60 ), delta / largest, largest };
}

/// Turn by turn where turns are rounded, but for twice, four times ... as many at once as long as each takes off the same.
template <class T>
T turnHue( T hue )
{
    if ( hue >= 0 && hue < 360 )
        return hue;
    T size = std::abs( hue );
    while ( size >= std::ldexp( T( 1 ), std::numeric_limits<T>::digits + 3 ) && size - 360 < size )
    {
        size -= 360; // a tie between two places is gone after one turn
        const T end = std::ldexp( T( 1 ), std::ilogb( size ) ) + 1024;
        T way = size - ( size - 360 );
        while ( size - 2 * way > end )
            way *= 2;
        if ( size - way > end )
            size -= way;
    }
    T turned = std::fmod( hue < 0 ? -size : size, T( 360 ) );
    if ( turned < 0 )
        turned += 360;
    return turned >= 360 ? turned - 360 : turned;
}

template <class T>
Three<T> convertToRgb( const Three<T>& hsv )
{
    const auto& [hue, s, v] = hsv;
    if ( s <= 0 )
        return { v, v, v };
    if ( !std::isfinite( hue ) )
    {
        constexpr T nan = std::numeric_limits<T>::quiet_NaN();
        return { nan, nan, nan };
    }
    const T turned = turnHue( hue );
    const T sixths = static_cast<T>( static_cast<double>( turned ) * 0.016666666666666666 );
    const int sector = static_cast<int>( sixths );
    const T f = sixths - static_cast<T>( sector );
    const T p = ( T( 1 ) - s ) * v;
    const T q = ( T( 1 ) - s * f ) * v;
    const T t = ( T( 1 ) - s * ( T( 1 ) - f ) ) * v;
    switch ( sector )
    {
    case 0:
        return { v, t, p };
    case 1:
        return { q, v, p };
    case 2:
        return { p, v, t };
    case 3:
        return { p, q, v };
    case 4:
        return { t, p, v };
    default:
        return { v, p, q };
    }
}

} // namespace ZqPlain

#endif
