// Vectors, points and unit vectors, of the plane and of space.

#include "support/prelude.h"

#include <zq/primitives/geVector2.h>

namespace
{

template <class S>
struct Plane
{
    using T = S;
    using Vector = GeVector2<T>;
    using Point = GePoint2<T>;
    using Unit = GeUnitVector2<T>;
    using Wide = GeVector2<double>;
    static constexpr int n = 2;
};

template <class S>
struct Space
{
    using T = S;
    using Vector = GeVector3<T>;
    using Point = GePoint3<T>;
    using Unit = GeUnitVector3<T>;
    using Wide = GeVector3<double>;
    static constexpr int n = 3;
};

template <class Kind>
class Vectors : public ::testing::Test
{
protected:
    typename Kind::Vector makeVector( double size )
    {
        typename Kind::Vector v;
        for ( int axis = 0; axis < Kind::n; ++axis )
            v[axis] = static_cast<typename Kind::T>( random.uniform( -size, size ) );
        return v;
    }
    Random random{ 1 };
};
using Kinds = ::testing::Types<Plane<float>, Plane<double>, Space<float>, Space<double>>;
struct KindNames
{
    template <class Kind>
    static std::string GetName( int index )
    {
        return ( index < 2 ? "plane_" : "space_" ) + ZqTest::ScalarNames::GetName<typename Kind::T>( 0 );
    }
};
TYPED_TEST_SUITE( Vectors, Kinds, KindNames );

TYPED_TEST( Vectors, OperationsTakeEachComponentInTheirStatedOrder )
{
    using T = typename TypeParam::T;
    using Vector = typename TypeParam::Vector;
    using Point = typename TypeParam::Point;
    using Unit = typename TypeParam::Unit;
    for ( int i = 0; i < 1000; ++i )
    {
        const Vector a = this->makeVector( 10 ), b = this->makeVector( 10 );
        const Point p( a ), q( b );
        const T factor = T( this->random.uniform( 1.0, 50.0 ) ), reciprocal = 1 / factor;
        T dot = 0, sum = 0, largest = 0;
        for ( int axis = 0; axis < TypeParam::n; ++axis )
        {
            const T x = a[axis], y = b[axis];
            EXPECT_TRUE( ( a + b )[axis] == x + y && ( a - b )[axis] == x - y && ( -a )[axis] == -x );
            EXPECT_TRUE( ( a * factor )[axis] == x * factor && ( a / factor )[axis] == x * reciprocal );
            EXPECT_EQ( Vector::computeMin( a, b )[axis], std::min( x, y ) );
            EXPECT_EQ( Vector::computeMax( a, b )[axis], std::max( x, y ) );
            dot += x * y;
            sum += std::fabs( x );
            largest = std::max( largest, std::fabs( x ) );
        }
        EXPECT_TRUE( a.dot( b ) == dot && a.computeAbsSum() == sum && a.computeMaxAbs() == largest );
        EXPECT_EQ( a.length(), std::sqrt( a.dot( a ) ) );
        EXPECT_TRUE( ( Vector( a ) += b ) == a + b && ( Vector( a ) -= b ) == a - b && factor * a == a * factor );
        EXPECT_TRUE( ( Vector( a ) *= factor ) == a * factor && ( Vector( a ) /= factor ) == a / factor );
        // points follow their vectors
        EXPECT_TRUE( p + b == Point( a + b ) && p - b == Point( a - b ) && p - q == a - b );
        EXPECT_TRUE( ( Point( p ) += b ) == p + b && ( Point( p ) -= b ) == p - b );
        EXPECT_EQ( Point::computeMin( p, q ), Point( Vector::computeMin( a, b ) ) );
        EXPECT_EQ( Point::computeMax( p, q ), Point( Vector::computeMax( a, b ) ) );
    }
    typename TypeParam::Wide wide;
    wide[1] = 0.1;
    EXPECT_EQ( Vector( wide )[1], T( 0.1 ) );
    static_assert( !std::is_convertible_v<Point, Vector> && !std::is_convertible_v<Vector, Point> );
    static_assert( !std::is_convertible_v<Vector, Unit> && std::is_convertible_v<Unit, Vector> );
}

TYPED_TEST( Vectors, NormalizationHoldsUnitLengthOverTheWorkingRange )
{
    using T = typename TypeParam::T;
    using Vector = typename TypeParam::Vector;
    using Unit = typename TypeParam::Unit;
    for ( int i = 0; i < 20000; ++i )
    {
        const T scale = static_cast<T>( std::pow( 10.0, this->random.uniform( -18.0, 18.0 ) ) );
        const Vector direction = this->makeVector( 1 );
        Vector v = direction * scale;
        const T before = v.length();
        EXPECT_EQ( v.normalize(), before );
        EXPECT_TRUE( ( v * direction.length() ).isEqual( direction, 8 * epsilon<T> ) );
        EXPECT_EQ( Vector( Unit( direction * scale ) ), v ); // which passes the unit-length check
    }
    Vector v;
    EXPECT_TRUE( v.normalize() == 0 && v == Vector() && Unit().length() == 0 );
    // the squared length overflows: stored as zero, and no report
    v[0] = v[1] = std::numeric_limits<T>::max() / 2;
    EXPECT_EQ( Unit( v ).length(), T( 0 ) );
    v[0] = ZqTest::nan<T>;
    EXPECT_EQ( ZqTest::catchReport( [&] { Unit{ v }; } ).text, "len > 0" );
}

TYPED_TEST( Vectors, AnglesAndReflections )
{
    using T = typename TypeParam::T;
    using Vector = typename TypeParam::Vector;
    using Unit = typename TypeParam::Unit;
    for ( int i = 0; i < 2000; ++i )
    {
        const Vector a = this->makeVector( 5 ), b = this->makeVector( 5 );
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
        EXPECT_TRUE( a.computeAngle( Vector() ) == 0 && Vector().computeAngle( a ) == 0 );
    }
}

TYPED_TEST( Vectors, CrossProductsTurnCounterClockwise )
{
    using T = typename TypeParam::T;
    for ( int i = 0; i < 500; ++i )
    {
        const auto a = this->makeVector( 10 ), b = this->makeVector( 10 );
        if constexpr ( TypeParam::n == 2 )
        {
            const T x = a[0], y = a[1];
            EXPECT_EQ( a.cross( b ), x * b[1] - y * b[0] );
            EXPECT_EQ( a.computePerpendicular(), ( GeVector2<T>( -y, x ) ) );
            EXPECT_EQ( a.computeUnit().computePerpendicular(), a.computePerpendicular().computeUnit() );
        }
        else
            for ( int axis = 0; axis < 3; ++axis )
            {
                const int next = ( axis + 1 ) % 3, last = ( axis + 2 ) % 3;
                EXPECT_EQ( a.cross( b )[axis], a[next] * b[last] - a[last] * b[next] );
            }
    }
}

template <class V, class = void>
struct HasLength : std::false_type
{
};
template <class V>
struct HasLength<V, std::void_t<decltype( std::declval<V>().length() )>> : std::true_type
{
};

TEST( VectorsOfInt, ArithmeticIsExactAndNothingTakesARoot )
{
    static_assert( HasLength<GeVector2<float>>::value && !HasLength<GeVector2<int>>::value );
    Random random( 20 );
    for ( int i = 0; i < 200; ++i )
    {
        const GeVector2<int> v( random.index( 201 ) - 100, random.index( 201 ) - 100 );
        const GeVector2<int> w( random.index( 201 ) - 100, random.index( 201 ) - 100 );
        EXPECT_EQ( v.computePerpendicular().dot( w ), v.cross( w ) );
        EXPECT_EQ( v.dot( w ) * v.dot( w ) + v.cross( w ) * v.cross( w ), v.lengthSquared() * w.lengthSquared() );
        EXPECT_EQ( ( v + w ).lengthSquared() - ( v - w ).lengthSquared(), 4 * v.dot( w ) );
        EXPECT_EQ( GeVector2<int>::computeMin( v, w ) + GeVector2<int>::computeMax( v, w ), v * 3 - 2 * v + w );
        EXPECT_EQ( v.computeAbsSum() - v.computeMaxAbs(), std::min( std::abs( v[0] ), std::abs( v[1] ) ) );
    }
    EXPECT_EQ( ( GeVector2<int>( GeVector2<double>( 2.9, -2.9 ) ) ), ( GeVector2<int>( 2, -2 ) ) );
}

} // namespace
