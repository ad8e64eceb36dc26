#ifndef ZQ_TESTS_SUPPORT_EXACTVECTOR_H
#define ZQ_TESTS_SUPPORT_EXACTVECTOR_H

#include <zq/primitives/geVector3.h>

#include <cmath>

namespace ZqTest
{

/// Vectors in long double: what single precision is measured against.
struct Exact
{
    long double x, y, z;
};

/// Of a vector, point or unit vector of any scalar.
template <class V>
Exact widen( const V& v )
{
    return { v.getX(), v.getY(), v.getZ() };
}

inline long double dot( const Exact& a, const Exact& b )
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Exact cross( const Exact& a, const Exact& b )
{
    return { a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x };
}

inline Exact combine( long double s, const Exact& a, long double t, const Exact& b )
{
    return { s * a.x + t * b.x, s * a.y + t * b.y, s * a.z + t * b.z };
}

inline Exact difference( const Exact& a, const Exact& b )
{
    return combine( 1, a, -1, b );
}

inline long double length( const Exact& a )
{
    return std::sqrt( dot( a, a ) );
}

inline Exact normalized( const Exact& a )
{
    return combine( 1 / length( a ), a, 0, a );
}

/// From the half-angle tangent, which is exact for small angles too.
inline long double angleBetween( const Exact& a, const Exact& b )
{
    const Exact u = normalized( a );
    const Exact v = normalized( b );
    return 2 * std::atan2( length( combine( 1, u, -1, v ) ), length( combine( 1, u, 1, v ) ) );
}

} // namespace ZqTest

#endif
