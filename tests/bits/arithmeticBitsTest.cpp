// The fast ways of single values against the plain rule, as bits. Records are those of makeRecord().

#include "plainRules.h"
#include "support/bits.h"
#include "support/matrixReference.h"

#include <zq/base/lu/luDecomposition.h>
#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geNormalizedPlane3.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geSphere3.h>

using namespace ZqTest;

namespace
{

ZQ_TWIN_SUITE( ArithmeticBits );

constexpr int REPEATS = 40000;

ZQ_TWIN_TEST( ArithmeticBits, quaternions )
{
    using Quaternion = GeQuaternion3<T>;
    const auto makePair = makeRecords<T, Quaternion, Quaternion>;
    expectSameBits<T>( REPEATS, makePair, std::multiplies<>(), onNumbers<T>( ZqPlain::multiplyQuaternions<T> ) );

    const auto makeBlend = [&]( Random& random )
    {
        auto [a, b] = makePair( random );
        a.normalize();
        b.normalize();
        const T factors[] = { T( 1 ), T( -1 ), T( 0.999999F ) };
        if ( random.index( 4 ) == 0 )
            a = Quaternion();
        if ( random.index( 8 ) == 0 )
            b = a * factors[random.index( 3 )];
        return std::tuple{ a, b, random.uniform( T( -1 ), T( 2 ) ), T( random.index( 3 ) - 1 ) };
    };
    expectSameBits<T>( REPEATS, makeBlend, Quaternion::slerp,
        []( const Quaternion& a, const Quaternion& b, T t, T spin )
        { return ZqPlain::slerp( numbersOf<T>( a ), numbersOf<T>( b ), t, spin ); } );

    for ( int convention = 0; convention < 24; ++convention )
    {
        int i, j, k, isOdd, isRepeated, isRotating;
        const auto code =
            Quaternion::makeEulerConvention( convention % 3, convention / 3 % 2, convention / 6 % 2, convention / 12 );
        Quaternion::decodeEulerConvention( code, i, j, k, isOdd, isRepeated, isRotating );
        expectSameBits<T>(
            REPEATS / 10, makeRecords<T, GeLinearMatrix3<T>>,
            [&]( const GeLinearMatrix3<T>& m )
            {
                ZqPlain::Three<T> angles;
                Quaternion::matrixToEuler( m, code, angles[0], angles[1], angles[2] );
                return angles;
            },
            [&]( const GeLinearMatrix3<T>& m )
            { return ZqPlain::extractAngles( numbersOf<T>( m ), i, j, k, isOdd, isRepeated, isRotating ); } );
    }
}

ZQ_TWIN_TEST( ArithmeticBits, matrixProducts )
{
    using Linear = GeLinearMatrix3<T>;
    using Projective = GeProjectiveMatrix3<T>;
    const auto multiplyRows = []( const Linear& a, const Linear& b )
    { return ZqPlain::multiplyMatrices( copyAs<ZqPlain::Matrix<T, 3>>( a ), copyAs<ZqPlain::Matrix<T, 3>>( b ) ); };
    const auto multiplyColumns = []( const Projective& a, const Projective& b )
    { return ZqPlain::multiplyMatrices( copyAs<ZqPlain::Matrix<T, 4>>( b ), copyAs<ZqPlain::Matrix<T, 4>>( a ) ); };
    expectSameBits<T>( REPEATS, makeRecords<T, Linear, Linear>, std::multiplies<>(), multiplyRows );
    expectSameBits<T>( REPEATS, makeRecords<T, Projective, Projective>, std::multiplies<>(), multiplyColumns );
}

template <class T, int size>
struct Inversion
{
    ZqTest::Rows<T, size> inverse;
    T determinant;
};

/// The rows of the matrices differ in size: pivots tie, are about as small as what counts as zero, or overflow.
template <class T, int size, class Matrix>
void expectSameInverse()
{
    const auto make = []( Random& random )
    {
        const T scales[] = { T( 1 ), T( 1 ), T( 1e-6F ), T( 1e-7 ), T( 3e-13 ), std::numeric_limits<T>::max() / 4 };
        const auto numbers = makeRecord<T, ZqTest::Rows<T, 4>>( random );
        const int nbScales = random.index( 6 ) + 1;
        Matrix m;
        for ( int r = 0; r < size; ++r )
        {
            const T scale = scales[random.index( nbScales )];
            for ( int c = 0; c < size; ++c )
                m( r, c ) = numbers( r, c ) * scale;
        }
        return std::make_tuple( m );
    };
    const auto invert = []( const Matrix& m )
    {
        Matrix inverse;
        T determinant = T( 7 );
        m.computeInverseAndDeterminant( inverse, determinant );
        return Inversion<T, size>{ toRows<T, size>( inverse ), determinant };
    };
    const auto decompose = []( const Matrix& m )
    {
        Matrix inverse;
        T determinant = T( 7 );
        Detail::LuDecomposition<T, static_cast<std::size_t>( size )> lu;
        if ( lu.decompose( m ) )
        {
            lu.writeInverse( inverse );
            determinant = lu.computeDeterminant();
        }
        return Inversion<T, size>{ toRows<T, size>( inverse ), determinant };
    };
    expectSameBits<T>( REPEATS, make, invert, decompose );
}

ZQ_TWIN_TEST( ArithmeticBits, inverses )
{
    expectSameInverse<T, 3, GeLinearMatrix3<T>>();
    expectSameInverse<T, 3, GeAffineMatrix3<T>>();
    expectSameInverse<T, 4, GeProjectiveMatrix3<T>>();
}

/// What an intersection answers, and the one or two numbers that it may set.
template <class T, class Intersect>
auto withRoots( const Intersect& intersect )
{
    return [=]( const auto&... arguments )
    {
        T t0 = 5, t1 = 6;
        bool hits;
        if constexpr ( std::is_invocable_v<Intersect, decltype( arguments )..., T&> )
            hits = std::invoke( intersect, arguments..., t0 );
        else
            hits = std::invoke( intersect, arguments..., t0, t1 );
        return std::array<T, 3>{ T( hits ), t0, t1 };
    };
}

ZQ_TWIN_TEST( ArithmeticBits, lines )
{
    using Box = GeAlignedBox3<T>;
    using Plane = GePlane3<T>;
    using Sphere = GeSphere3<T>;
    using UnitPlane = GeNormalizedPlane3<T>;
    using Point = GePoint3<T>;
    using Vector = GeVector3<T>;
    const auto clip = []( const Box& box, const Point& o, const Vector& d ) { return box.intersectLine( o, d ); };
    const auto meet = onNumbers<T>( withRoots<T>( ZqPlain::intersectPlane<T> ) );
    const auto meetUnit = [&]( const Plane& plane, const Point& o, const Vector& d )
    {
        Vector normal = plane.getNormal();
        normal.normalize();
        return meet( Plane( normal, plane.getOffset() ), o, d );
    };
    expectSameBits<T>( REPEATS, makeRecords<T, Box, Point, Vector>, clip, onNumbers<T>( ZqPlain::intersectBox<T> ) );
    expectSameBits<T>( REPEATS, makeRecords<T, Sphere, Point, Vector>, withRoots<T>( &Sphere::intersectRay ),
        onNumbers<T>( withRoots<T>( ZqPlain::intersectSphere<T> ) ) );
    expectSameBits<T>(
        REPEATS, makeRecords<T, UnitPlane, Point, Vector>, withRoots<T>( &UnitPlane::intersectRay ), meet );
    expectSameBits<T>( REPEATS, makeRecords<T, Plane, Point, Vector>, withRoots<T>( &Plane::intersectRay ), meetUnit );
}

} // namespace
