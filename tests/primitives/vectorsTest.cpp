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

/// Each component by itself; sums in the stated order.
template <class T, class Vector>
void expectComponents()
{
    constexpr int n = sizeof( Vector ) / sizeof( T );
    Random random( 1 );
    for ( const auto i : random.runs( 1000 ) )
    {
        const Vector a = makeVector<Vector, T>( random, 10 ), b = makeVector<Vector, T>( random, 10 );
        const Vector least = Vector::computeMin( a, b ), most = Vector::computeMax( a, b );
        const T factor = random.uniform<T>( 1, 50 );
        T dot = 0, sum = 0, largest = 0;
        for ( int axis = 0; axis < n; ++axis )
        {
            const T x = a[axis], y = b[axis];
            EXPECT_EQ( ( a + b )[axis], x + y );
            EXPECT_EQ( ( a - b )[axis], x - y );
            EXPECT_EQ( ( -a )[axis], -x );
            EXPECT_EQ( ( a * factor )[axis], x * factor );
            EXPECT_EQ( ( a / factor )[axis], x * ( 1 / factor ) );
            EXPECT_EQ( least[axis], std::min( x, y ) );
            EXPECT_EQ( most[axis], std::max( x, y ) );
            dot += x * y;
            sum += std::fabs( x );
            largest = std::max( largest, std::fabs( x ) );
            const int next = ( axis + 1 ) % n, last = ( axis + 2 ) % n;
            if constexpr ( n == 3 )
            {
                EXPECT_EQ( a.cross( b )[axis], a[next] * b[last] - a[last] * b[next] );
            }
        }
        EXPECT_EQ( a.dot( b ), dot );
        EXPECT_EQ( a.computeAbsSum(), sum );
        EXPECT_EQ( a.computeMaxAbs(), largest );
        EXPECT_EQ( a.length(), std::sqrt( a.dot( a ) ) );
    }
}

/// Assigning forms, and points, by the operations above.
template <class T, class Vector, class Point>
void expectOtherForms()
{
    Random random( 3 );
    for ( const auto i : random.runs( 200 ) )
    {
        const Vector a = makeVector<Vector, T>( random, 10 ), b = makeVector<Vector, T>( random, 10 );
        const Point p( a ), q( b );
        const T factor = random.uniform<T>( 1, 50 );
        EXPECT_EQ( Vector( a ) += b, a + b );
        EXPECT_EQ( Vector( a ) -= b, a - b );
        EXPECT_EQ( factor * a, a * factor );
        EXPECT_EQ( Vector( a ) *= factor, a * factor );
        EXPECT_EQ( Vector( a ) /= factor, a / factor );
        EXPECT_EQ( p + b, Point( a + b ) );
        EXPECT_EQ( p - b, Point( a - b ) );
        EXPECT_EQ( p - q, a - b );
        EXPECT_EQ( Point( p ) += b, p + b );
        EXPECT_EQ( Point( p ) -= b, p - b );
        EXPECT_EQ( Point::computeMin( p, q ), Point( Vector::computeMin( a, b ) ) );
        EXPECT_EQ( Point::computeMax( p, q ), Point( Vector::computeMax( a, b ) ) );
    }
}

template <class T, class Vector, class Unit>
void expectLengthsAnglesAndReflections()
{
    Random random( 2 );
    for ( const auto i : random.runs( 5000 ) )
    {
        // over the working range
        const Vector a = makeVector<Vector, T>( random, 1 ), b = makeVector<Vector, T>( random, 5 );
        const T scale = static_cast<T>( std::pow( 10.0, random.uniform( -18.0, 18.0 ) ) );
        Vector direction = a * scale;
        const T length = direction.length();
        EXPECT_EQ( direction.normalize(), length );
        EXPECT_CLOSE( direction * a.length(), a, 8 * epsilon<T> );
        EXPECT_EQ( Vector( Unit( a * scale ) ), direction ); // which passes the unit-length check

        const Unit u( a ), v( b );
        // through the half-angle tangent: another route than the arc cosine
        const double expected = 2 * std::atan2( double( ( u - v ).length() ), double( ( u + v ).length() ) );
        const double bound = 40 * double( epsilon<T> ) / std::max( 1e-2, std::sin( expected ) );
        EXPECT_NEAR( double( a.computeAngle( b ) ), expected, bound );
        EXPECT_NEAR( double( u.computeAngle( v ) ), expected, bound );
        // a dot product of rounded unit vectors beyond 1 must not make a NaN
        EXPECT_GE( u.computeAngle( u ), 0 );
        EXPECT_LE( u.computeAngle( -u ), T( 3.1415927410125732 ) );
        T cosine = 0;
        const Vector mirrored = u.computeReflection( v, cosine );
        EXPECT_EQ( cosine, u.dot( v ) );
        EXPECT_CLOSE( mirrored + u, v * ( 2 * cosine ), 8 * epsilon<T> );
    }
    Vector v;
    EXPECT_EQ( v.normalize(), 0 );
    EXPECT_EQ( v, Vector() );
    EXPECT_EQ( Unit().length(), 0 );
    const Vector other = makeVector<Vector, T>( random, 1 );
    EXPECT_EQ( other.computeAngle( v ), 0 );
    EXPECT_EQ( v.computeAngle( other ), 0 );
    // the squared length overflows: stored as zero, and no report
    v[0] = v[1] = std::numeric_limits<T>::max() / 2;
    EXPECT_EQ( Unit( v ).length(), T( 0 ) );
    v[0] = ZqTest::nan<T>;
    EXPECT_EQ( ZqTest::catchReport( [&] { Unit{ v }; } ).text, "len > 0" );
}

ZQ_TWIN_SUITE( Vectors );

/// Which of a positive and a negative zero is the smaller one: neither, and the first is taken.
template <class T, class Value>
void expectFirstOfEqualZeros()
{
    const auto makeZeros = []( T zero )
    {
        Value value;
        for ( std::size_t i = 0; i < sizeof( Value ) / sizeof( T ); ++i )
            value[int( i )] = zero;
        return value;
    };
    for ( const T first : { T( 0 ), -T( 0 ) } )
        for ( const Value& found : { Value::computeMin( makeZeros( first ), makeZeros( -first ) ),
                  Value::computeMax( makeZeros( first ), makeZeros( -first ) ) } )
            for ( const T number : ZqTest::numbersOf<T>( found ) )
                EXPECT_EQ( std::signbit( number ), std::signbit( first ) );
}

ZQ_TWIN_TEST( Vectors, OfEqualZerosTheFirstIsTaken )
{
    expectFirstOfEqualZeros<T, GeVector2<T>>();
    expectFirstOfEqualZeros<T, GeVector3<T>>();
    expectFirstOfEqualZeros<T, GePoint2<T>>();
    expectFirstOfEqualZeros<T, GePoint3<T>>();
}

ZQ_TWIN_TEST( Vectors, OfThePlaneAndOfSpace )
{
    expectComponents<T, GeVector2<T>>();
    expectComponents<T, GeVector3<T>>();
    expectOtherForms<T, GeVector2<T>, GePoint2<T>>();
    expectOtherForms<T, GeVector3<T>, GePoint3<T>>();
    expectLengthsAnglesAndReflections<T, GeVector2<T>, GeUnitVector2<T>>();
    expectLengthsAnglesAndReflections<T, GeVector3<T>, GeUnitVector3<T>>();
}

TEST( VectorsOfInt, ArithmeticIsExact )
{
    using Vector = GeVector2<int>;
    const Vector v( 3, -5 ), w( -7, -2 );
    EXPECT_EQ( v.dot( w ), -11 );
    EXPECT_EQ( v.cross( w ), -41 );
    EXPECT_EQ( v * 3 - 2 * v, v );
    EXPECT_EQ( v.computeAbsSum(), 8 );
    EXPECT_EQ( Vector( GeVector2<double>( 2.9, -2.9 ) ), Vector( 2, -2 ) );
    EXPECT_EQ( GeUnitVector2<double>( 3, -5 ).computePerpendicular(), GeUnitVector2<double>( 5, 3 ) );
}

} // namespace
