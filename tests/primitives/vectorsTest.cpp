// Vectors, points and unit vectors, of the plane and of space.

#include "support/prelude.h"

#include <zq/primitives/geVector2.h>

namespace
{

template <class Vector, class T>
Vector makeVector( Random& random, T size )
{
    Vector v;
    for ( std::size_t axis = 0; axis < sizeof( Vector ) / sizeof( T ); ++axis )
        v[int( axis )] = random.uniform( -size, size );
    return v;
}

/// Each component, in the stated order.
template <class T, class Vector, class Point>
void expectOperations()
{
    constexpr int n = sizeof( Vector ) / sizeof( T );
    Random random( 1 );
    for ( int i = 0; i < 1000; ++i )
    {
        const Vector a = makeVector<Vector, T>( random, 10 ), b = makeVector<Vector, T>( random, 10 );
        const Vector least = Vector::computeMin( a, b ), most = Vector::computeMax( a, b );
        const Point p( a ), q( b );
        const T factor = random.uniform<T>( 1, 50 );
        T dot = 0, sum = 0, largest = 0;
        for ( int axis = 0; axis < n; ++axis )
        {
            const T x = a[axis], y = b[axis];
            EXPECT_TRUE( ( a + b )[axis] == x + y && ( a - b )[axis] == x - y && ( -a )[axis] == -x );
            EXPECT_TRUE( ( a * factor )[axis] == x * factor && ( a / factor )[axis] == x * ( 1 / factor ) );
            EXPECT_TRUE( least[axis] == std::min( x, y ) && most[axis] == std::max( x, y ) );
            dot += x * y;
            sum += std::fabs( x );
            largest = std::max( largest, std::fabs( x ) );
            const int next = ( axis + 1 ) % n, last = ( axis + 2 ) % n;
            if constexpr ( n == 3 )
            {
                EXPECT_EQ( a.cross( b )[axis], a[next] * b[last] - a[last] * b[next] );
            }
        }
        EXPECT_TRUE( a.dot( b ) == dot && a.computeAbsSum() == sum && a.computeMaxAbs() == largest );
        EXPECT_EQ( a.length(), std::sqrt( a.dot( a ) ) );
        EXPECT_TRUE( ( Vector( a ) += b ) == a + b && ( Vector( a ) -= b ) == a - b && factor * a == a * factor );
        EXPECT_TRUE( ( Vector( a ) *= factor ) == a * factor && ( Vector( a ) /= factor ) == a / factor );
        EXPECT_TRUE( p + b == Point( a + b ) && p - b == Point( a - b ) && p - q == a - b );
        EXPECT_TRUE( ( Point( p ) += b ) == p + b && ( Point( p ) -= b ) == p - b );
        EXPECT_TRUE( Point::computeMin( p, q ) == Point( least ) && Point::computeMax( p, q ) == Point( most ) );
    }
}

template <class T, class Vector, class Unit>
void expectLengthsAnglesAndReflections()
{
    Random random( 2 );
    for ( int i = 0; i < 5000; ++i )
    {
        // over the working range
        const Vector a = makeVector<Vector, T>( random, 1 ), b = makeVector<Vector, T>( random, 5 );
        const T scale = static_cast<T>( std::pow( 10.0, random.uniform( -18.0, 18.0 ) ) );
        Vector direction = a * scale;
        const T length = direction.length();
        EXPECT_EQ( direction.normalize(), length );
        EXPECT_TRUE( ( direction * a.length() ).isEqual( a, 8 * epsilon<T> ) );
        EXPECT_EQ( Vector( Unit( a * scale ) ), direction ); // which passes the unit-length check

        const Unit u( a ), v( b );
        // through the half-angle tangent: another route than the arc cosine
        const double expected = 2 * std::atan2( double( ( u - v ).length() ), double( ( u + v ).length() ) );
        const double bound = 40 * double( epsilon<T> ) / std::max( 1e-2, std::sin( expected ) );
        EXPECT_NEAR( double( a.computeAngle( b ) ), expected, bound );
        EXPECT_NEAR( double( u.computeAngle( v ) ), expected, bound );
        // a dot product of rounded unit vectors beyond 1 must not make a NaN
        EXPECT_TRUE( u.computeAngle( u ) >= 0 && u.computeAngle( -u ) <= T( 3.1415927410125732 ) );
        T cosine = 0;
        const Vector mirrored = u.computeReflection( v, cosine );
        EXPECT_EQ( cosine, u.dot( v ) );
        EXPECT_TRUE( ( mirrored + u ).isEqual( v * ( 2 * cosine ), 8 * epsilon<T> ) );
    }
    Vector v;
    EXPECT_TRUE( v.normalize() == 0 && v == Vector() && Unit().length() == 0 );
    const Vector other = makeVector<Vector, T>( random, 1 );
    EXPECT_TRUE( other.computeAngle( v ) == 0 && v.computeAngle( other ) == 0 );
    // the squared length overflows: stored as zero, and no report
    v[0] = v[1] = std::numeric_limits<T>::max() / 2;
    EXPECT_EQ( Unit( v ).length(), T( 0 ) );
    v[0] = ZqTest::nan<T>;
    EXPECT_EQ( ZqTest::catchReport( [&] { Unit{ v }; } ).text, "len > 0" );
    static_assert( !std::is_convertible_v<Vector, Unit> && std::is_convertible_v<Unit, Vector> );
}

ZQ_TWIN_SUITE( Vectors );

ZQ_TWIN_TEST( Vectors, OfThePlaneAndOfSpace )
{
    expectOperations<T, GeVector2<T>, GePoint2<T>>();
    expectOperations<T, GeVector3<T>, GePoint3<T>>();
    expectLengthsAnglesAndReflections<T, GeVector2<T>, GeUnitVector2<T>>();
    expectLengthsAnglesAndReflections<T, GeVector3<T>, GeUnitVector3<T>>();
}

TEST( VectorsOfInt, ArithmeticIsExact )
{
    using Vector = GeVector2<int>;
    const Vector v( 3, -5 ), w( -7, -2 );
    EXPECT_TRUE( v.dot( w ) == -11 && v.cross( w ) == -41 && v.computePerpendicular() == Vector( 5, 3 ) );
    EXPECT_TRUE( Vector::computeMin( v, w ) == Vector( -7, -5 ) && Vector::computeMax( v, w ) == Vector( 3, -2 ) );
    EXPECT_TRUE( v * 3 - 2 * v == v && v.computeAbsSum() == 8 && v.computeMaxAbs() == 5 );
    EXPECT_EQ( Vector( GeVector2<double>( 2.9, -2.9 ) ), Vector( 2, -2 ) );
    EXPECT_EQ( GeUnitVector2<double>( 3, -5 ).computePerpendicular(), GeUnitVector2<double>( 5, 3 ) );
}

} // namespace
