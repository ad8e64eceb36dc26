// Lengths and angles of vectors of the plane and of space. What they do number by number is held, bit for bit, against the
// list of tools/bits.

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
    expectLengthsAnglesAndReflections<T, GeVector2<T>, GeUnitVector2<T>>();
    expectLengthsAnglesAndReflections<T, GeVector3<T>, GeUnitVector3<T>>();
}

} // namespace
