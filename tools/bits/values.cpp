// Vectors, matrices, rotations and quaternions.

#include "results.h"

#include <zq/base/floatUtil.h>
#include <zq/primitives/geCameraBuilder.h>
#include <zq/primitives/geCascadeBuilder.h>
#include <zq/primitives/geDecomposition3.h>
#include <zq/primitives/geProjectionBuilder.h>
#include <zq/primitives/geTolerances.h>
#include <zq/primitives/geVector2Utils.h>
#include <zq/primitives/geViewBuilder.h>
#include <zq/primitives/geViewport.h>

namespace ZqBits
{

namespace
{

template <class Value, class T>
void compare( Results& out, const Value& a, const Value& b, T tolerance )
{
    out( a == b, a != b, a.isEqualExact( b ), a.isEqual( b, tolerance ), a.isEqual( a, tolerance ) );
}

template <class T>
void floatUtil( Inputs& in, Results& out )
{
    const T x = in.number<T>(), y = in.number<T>(), tolerance = in.number<T>();
    out( FloatUtil::isEqual( x, y ), FloatUtil::isEqual( x, y, tolerance ), FloatUtil::sqrt( x ), FloatUtil::abs( x ),
        FloatUtil::floor( x ) );
}

template <class T>
void floatUtilLibm( Inputs& in, Results& out )
{
    const T x = in.number<T>(), y = in.number<T>(), cosine = in.uniform( T( 1 ) );
    out( FloatUtil::sin( x ), FloatUtil::cos( x ), FloatUtil::tan( x ), FloatUtil::acos( cosine ), FloatUtil::acos( x ),
        FloatUtil::atan2( y, x ), FloatUtil::pow( x, y ), FloatUtil::pow( FloatUtil::abs( x ), y ) );
}

template <class T>
void interval( Inputs& in, Results& out )
{
    const auto a = in.make<Interval<T>>(), b = in.make<Interval<T>>();
    const T x = in.number<T>();
    compare( out, a, b, x );
    out( Interval<T>::makeEmpty(), Interval<T>( a.min, b.max ), a.getLength(), a.isEmpty(), a.isNotEmpty(),
        a.hasVolume(), a.extended( x ), a.contains( x ), a.containsExclude( x ), a.contains( b ),
        a.containsExclude( b ), a.classify( b ), a.classifyExclude( b ) );
    out.change( a, [&]( auto& i ) { return i.extend( x ); } );
    out.change( a, [&]( auto& i ) { return i.extend( b ); } );
    out.change( a, [&]( auto& i ) { return i.intersect( b ); } );
}

/// What vectors of two and three components share; the scalar may be int.
template <class Vector, class Point, class T>
void vectorsAndPoints( Inputs& in, Results& out, const Vector& a, const Vector& b, T s )
{
    const auto p = in.make<Point>(), q = in.make<Point>();
    out( a == b, a != b, a.isEqualExact( b ), p == q, p != q, p.isEqualExact( q ) );
    out( a + b, a - b, -a, a * s, s * a, a.dot( b ), a.lengthSquared(), a.computeAbsSum(), a.computeMaxAbs(),
        Vector::computeMin( a, b ), Vector::computeMax( a, b ), Vector( p ), a[0], a[1], a.getX(), a.getY() );
    out( p + a, p - a, p - q, Point::computeMin( p, q ), Point::computeMax( p, q ), Point( a ), p[0], p[1] );
    out.change( a, [&]( Vector& v ) { return ( ( v += b ) -= a ) *= s; } );
    out.change( p, [&]( Point& v ) { return ( v += b ) -= a; } );
    out.change( a, [&]( Vector& v ) { v[1] = s; } );
    if constexpr ( std::is_floating_point_v<T> )
    {
        out( a.isEqual( b, s ), p.isEqual( q, s ), a / s, a.length() );
        out.change( a, [&]( Vector& v ) { return v /= s; } );
        out.change( a, []( Vector& v ) { return v.normalize(); } );
        out.call( [&] { return a.computeUnit(); } );
    }
}

template <class T>
void vector2( Inputs& in, Results& out )
{
    using Vector = GeVector2<T>;
    const auto a = in.make<Vector>(), b = in.make<Vector>();
    const T s = in.make<Vector>().getX();
    vectorsAndPoints<Vector, GePoint2<T>>( in, out, a, b, s );
    out( a.cross( b ), a.computePerpendicular(), GeVector2<double>( a ) );
}

template <class T>
void vector3( Inputs& in, Results& out )
{
    using Vector = GeVector3<T>;
    const auto a = in.make<Vector>(), b = in.make<Vector>();
    vectorsAndPoints<Vector, GePoint3<T>>( in, out, a, b, in.number<T>() );
    out( a.cross( b ), a[2], GeVector3<float>( a ), GeVector3<double>( a ), GePoint3<double>( GePoint3<T>( a ) ) );
}

template <class T>
void segments( Inputs& in, Results& out )
{
    const auto p = in.make<GePoint2<T>>(), a = in.make<GePoint2<T>>(), b = in.make<GePoint2<T>>();
    for ( const bool isLine : { false, true } )
        out( GeVector2Utils<T>::distanceSquaredFromPointToLineSegment( p, a, b, isLine ),
            GeVector2Utils<T>::distanceSquaredFromPointToLineSegment( p, a, a, isLine ) );
}

template <class Unit, class Vector, class T>
void units( Inputs& in, Results& out )
{
    const auto a = in.make<Unit>(), b = in.make<Unit>();
    const auto v = in.make<Vector>();
    const T s = in.number<T>();
    compare( out, a, b, s );
    out( -a, a + v, a - v, a * s, s * a, a.length(), a.dot( v ), a.cross( v ), a[1] );
    T cosine = s;
    out.call( [&] { return a.computeReflection( b, cosine ); } );
    out( cosine );
    out.call( [&] { return Unit( v ); } );
}

template <class T>
void unit2( Inputs& in, Results& out )
{
    units<GeUnitVector2<T>, GeVector2<T>, T>( in, out );
    const T x = in.number<T>(), y = in.number<T>();
    const auto unit = in.make<GeUnitVector2<T>>();
    const GeVector2<T> near = unit * ( T( 1 ) + in.uniform( T( 2e-6F ) ) );
    out( unit.computePerpendicular() );
    out.call( [&] { return GeUnitVector2<T>( x, y ); } );
    out.call( [&] { return GeUnitVector2<T>( x, y, GE_TRUSTED ); } );
    out.call( [&] { return GeUnitVector2<T>( near, GE_TRUSTED ); } );
}

template <class T>
void unit3( Inputs& in, Results& out )
{
    units<GeUnitVector3<T>, GeVector3<T>, T>( in, out );
    const T x = in.number<T>(), y = in.number<T>(), z = in.number<T>();
    const auto unit = in.make<GeUnitVector3<T>>();
    const GeVector3<T> near = unit * ( T( 1 ) + in.uniform( T( 2e-6F ) ) );
    out.call( [&] { return GeUnitVector3<T>( x, y, z ); } );
    out.call( [&] { return GeUnitVector3<T>( near.getX(), near.getY(), near.getZ(), GE_TRUSTED ); } );
}

template <class T>
void anglesLibm( Inputs& in, Results& out )
{
    const auto a = in.make<GeVector2<T>>(), b = in.make<GeVector2<T>>();
    const auto c = in.make<GeVector3<T>>(), d = in.make<GeVector3<T>>();
    const auto u = in.make<GeUnitVector2<T>>(), v = in.make<GeUnitVector2<T>>();
    const auto w = in.make<GeUnitVector3<T>>(), x = in.make<GeUnitVector3<T>>();
    out.call( [&] { return a.computeAngle( b ); } );
    out.call( [&] { return c.computeAngle( d ); } );
    out( u.computeAngle( v ), w.computeAngle( x ), w.computeAngle( w ), w.computeAngle( -w ) );
}

void tolerancesLibm( Inputs& in, Results& out )
{
    GeTolerances t;
    const float x = in.number<float>(), y = in.number<float>();
    if ( in.oneIn( 2 ) )
    {
        t.setLengthTolerance( FloatUtil::abs( in.number<float>() ) );
        t.setAngleTolerance( in.uniform( 1.0F ) );
        t.setFractionTolerance( in.uniform( 0.1F ) );
    }
    const auto a = in.make<GeVector3<float>>(), b = in.make<GeVector3<float>>();
    const auto c = in.make<GeVector2<float>>(), d = in.make<GeVector2<float>>();
    const auto h = in.make<GeHomogeneousCoord3<float>>(), i = in.make<GeHomogeneousCoord3<float>>();
    out( t.getLengthTolerance(), t.getAngleTolerance(), t.getFractionTolerance(), t.compareLength( x, y ),
        t.compareLengthSquared( x, y ), t.compareLengthToZero( x ), t.lengthSquaredIsZero( x ), t.compareAngle( x, y ),
        t.compareCosine( x, y ), t.compareCosineToZero( x ), t.cosineIsOne( x ), t.cosineIsMinusOne( x ),
        t.compareFraction( x, y ), t.compareFractionSquared( x, y ), t.sameVector( a, b ), t.sameVector( c, d ),
        t.sameVector( h, i ), t.samePoint( GePoint3<float>( a ), GePoint3<float>( b ) ),
        t.samePoint( GePoint2<float>( c ), GePoint2<float>( d ) ), t.sameVector( a, a ) );
    const float step = in.uniform( 2.0F ) * t.getLengthTolerance(); // about where verdicts change
    out( t.compareLength( x, x + step ), t.compareLengthSquared( x * x, ( x + step ) * ( x + step ) ),
        t.compareAngle( x, x + step ), t.compareCosine( x, x + step ), t.compareFraction( x, x + step ) );
}

template <class T>
void homogeneous( Inputs& in, Results& out )
{
    using Coord = GeHomogeneousCoord3<T>;
    const auto a = in.make<Coord>(), b = in.make<Coord>();
    const T s = in.number<T>();
    compare( out, a, b, s );
    out( a + b, a - b, -a, a * s, a / s );
    out.change( a, [&]( Coord& h ) { return ( ( h += b ) -= a ) *= s; } );
    out.change( a, [&]( Coord& h ) { return h /= s; } );
    out.change( a, []( Coord& h ) { h.setZero(); } );
}

/// Inverse, determinant and comparison of any matrix.
template <class Matrix, class T>
void inverses( Results& out, const Matrix& a, const Matrix& b, T s )
{
    compare( out, a, b, s );
    out( a.computeDeterminant(), a( 1, 2 ), a( 0, 0 ), a * b );
    out.change( a, [&]( Matrix& m ) { return m *= b; } );
    out.change( a, [&]( Matrix& m ) { m( 2, 1 ) = s; } );
    out.call( [&] { return a.computeInverse(); } );
    T determinant = s;
    out.change( b, [&]( Matrix& inverse ) { a.computeInverseAndDeterminant( inverse, determinant ); } );
    out( determinant );
}

template <class T>
void linearMatrix( Inputs& in, Results& out )
{
    const auto a = in.make<GeLinearMatrix3<T>>(), b = in.make<GeLinearMatrix3<T>>();
    const auto v = in.make<GeVector3<T>>();
    inverses( out, a, b, in.number<T>() );
    out( a * v, a * GePoint3<T>( v ), a.mulOnRight( v ), a.computeTranspose(), a.computeAdjoint(), a.isIdentity(),
        GeLinearMatrix3<T>().isIdentity() );
}

template <class T>
void affineMatrix( Inputs& in, Results& out )
{
    using Matrix = GeAffineMatrix3<T>;
    const auto a = in.make<Matrix>(), b = in.make<Matrix>();
    const auto m = in.make<GeLinearMatrix3<T>>();
    const auto v = in.make<GeVector3<T>>();
    inverses( out, a, b, in.number<T>() );
    out( a * m, a * v, a * GePoint3<T>( v ), a.mulOnRight( m ), a.mulOnRight( v ), a.getColumn( 2 ), a.getLinear(),
        a.getTranslation(), Matrix( m ) );
    out.change( a, [&]( Matrix& c ) { return c *= m; } );
    float elements[4][4];
    for ( auto& row : elements )
        for ( float& element : row )
            element = in.number<float>();
    out( Matrix( elements, false ), Matrix( elements, true ), GeProjectiveMatrix3<T>( elements, false ),
        GeProjectiveMatrix3<T>( elements, true ) );
}

template <class T>
void projectiveMatrix( Inputs& in, Results& out )
{
    using Matrix = GeProjectiveMatrix3<T>;
    const auto a = in.make<Matrix>(), b = in.make<Matrix>();
    const auto m = in.make<GeAffineMatrix3<T>>();
    const auto h = in.make<GeHomogeneousCoord3<T>>();
    const auto v = in.make<GeVector3<T>>();
    inverses( out, a, b, in.number<T>() );
    inverses( out, Matrix( m ), Matrix( m.getLinear() ), T( 0 ) );
    out( a * m, a * h, a * v, a.mulOnRight( h ), a.computeTranspose(), a.computeAdjoint(),
        Matrix::computeTranspose( m ), Matrix::computeAdjoint( m ) );
    out.change( a, [&]( Matrix& c ) { return c *= m; } );
}

/// Array and single calls over the same inputs.
template <class T>
void transformArrays( Inputs& in, Results& out )
{
    const auto count = static_cast<std::size_t>( in.index( in.oneIn( 16 ) ? 100 : 20 ) );
    const auto a = in.make<GeAffineMatrix3<T>>();
    const auto m = in.make<GeProjectiveMatrix3<T>>();
    auto vectors = in.makeArray<GeVector3<T>>( count );
    std::vector<GePoint3<T>> points( vectors.begin(), vectors.end() );
    auto coords = in.makeArray<GeHomogeneousCoord3<T>>( count );
    std::vector<GeHomogeneousCoord3<T>> results( count );
    m.transform( vectors.data(), count, results.data() );
    out( results );
    m.transform( coords.data(), count, results.data() );
    out( results );
    a.transform( points.data(), count, points.data() );
    m.transform( coords.data(), count, coords.data() );
    for ( const auto& v : vectors )
        out( a * v, a * GePoint3<T>( v ), m * v );
    a.transform( vectors.data(), count, vectors.data() );
    out( vectors, points, coords );
}

template <class T>
void scaleTranslation( Inputs& in, Results& out )
{
    const auto s = in.make<GeScale3<T>>(), s2 = in.make<GeScale3<T>>();
    const auto t = in.make<GeTranslation3<T>>(), t2 = in.make<GeTranslation3<T>>();
    const auto l = in.make<GeLinearMatrix3<T>>();
    const auto a = in.make<GeAffineMatrix3<T>>();
    const auto p = in.make<GeProjectiveMatrix3<T>>();
    const T tolerance = in.number<T>();
    compare( out, s, s2, tolerance );
    compare( out, t, t2, tolerance );
    out( s * l, s * a, s * p, s.mulOnRight( l ), s.mulOnRight( a ), s.mulOnRight( p ), t * l, t * a, t * p,
        t.mulOnRight( l ), t.mulOnRight( a ), t.mulOnRight( p ) );
    out.change( l, [&]( auto& m ) { return s.mulOnRightAssign( m ); } );
    out.change( a, [&]( auto& m ) { return s.mulOnRightAssign( m ); } );
    out.change( p, [&]( auto& m ) { return s.mulOnRightAssign( m ); } );
    out.change( a, [&]( auto& m ) { return t.mulOnRightAssign( m ); } );
    out.change( p, [&]( auto& m ) { return t.mulOnRightAssign( m ); } );
}

template <class T>
void rotation( Inputs& in, Results& out )
{
    const auto a = in.make<GeRotation3<T>>(), b = in.make<GeRotation3<T>>();
    const auto v = in.make<GeVector3<T>>();
    compare( out, a, b, in.number<T>() );
    out( a * b, a * b.getMatrix(), a * in.make<GeAffineMatrix3<T>>(), a * v, a * GePoint3<T>( v ), a.computeInverse(),
        a( 2, 0 ) );
    out.change( a, [&]( auto& r ) { return r *= b; } );
}

/// The frames; axis numbers that do not exist report.
template <class T>
void rotationAim( Inputs& in, Results& out )
{
    const auto direction = in.make<GeUnitVector3<T>>();
    const GeVector3<T> up = in.oneIn( 8 ) ? direction * T( 3 ) : in.make<GeVector3<T>>();
    const auto points = in.makeArray<GePoint3<T>>( 2 + static_cast<std::size_t>( in.index( 5 ) ) );
    const int aimAxis = in.index( 16 ) % 5 - 1, planeAxis = in.index( 16 ) % 4;
    const bool asRows = in.oneIn( 2 );
    out.call( [&] { return GeRotation3<T>::aim( direction, aimAxis, asRows ); } );
    out.call( [&] { return GeRotation3<T>::aim( direction, up, aimAxis, planeAxis, asRows ); } );
    out.call(
        [&] {
            return GeRotation3<T>::aim( static_cast<int>( points.size() ), points.data(), aimAxis, planeAxis, asRows );
        } );
}

template <class Rotation, class T>
void axisRotation( Inputs& in, Results& out, const Rotation& r )
{
    const auto other = in.make<Rotation>();
    const auto s = in.make<GeScale3<T>>();
    const auto t = in.make<GeTranslation3<T>>();
    const auto l = in.make<GeLinearMatrix3<T>>();
    const auto a = in.make<GeAffineMatrix3<T>>();
    const GeRotation3<T> m( l );
    const auto v = in.make<GeVector3<T>>();
    compare( out, r, other, in.number<T>() );
    out( r.getMatrix(), r * s, r * t, r * l, r * m, r * a, r * v, r * GePoint3<T>( v ), r.mulOnRight( s ),
        r.mulOnRight( t ), r.mulOnRight( l ), r.mulOnRight( m ), r.mulOnRight( a ), r.computeInverse() );
}

template <class T>
void axisRotations( Inputs& in, Results& out )
{
    const auto x = in.make<GeXAxisRotation3<T>>();
    const auto y = in.make<GeYAxisRotation3<T>>();
    const auto z = in.make<GeZAxisRotation3<T>>();
    axisRotation<GeXAxisRotation3<T>, T>( in, out, x );
    axisRotation<GeYAxisRotation3<T>, T>( in, out, y );
    axisRotation<GeZAxisRotation3<T>, T>( in, out, z );
}

/// Every transform times every other one, and what each makes of points, vectors and coordinates.
template <class T>
void products( Inputs& in, Results& out )
{
    const auto t = in.make<GeTranslation3<T>>();
    const auto s = in.make<GeScale3<T>>();
    const auto x = in.make<GeXAxisRotation3<T>>();
    const auto y = in.make<GeYAxisRotation3<T>>();
    const auto z = in.make<GeZAxisRotation3<T>>();
    const auto r = in.make<GeRotation3<T>>();
    const auto l = in.make<GeLinearMatrix3<T>>();
    const auto a = in.make<GeAffineMatrix3<T>>();
    const auto p = in.make<GeProjectiveMatrix3<T>>();
    const auto v = in.make<GeVector3<T>>();
    const auto u = in.make<GeUnitVector3<T>>();
    const auto h = in.make<GeHomogeneousCoord3<T>>();
    const auto multiply = [&]( const auto& left, const auto&... right ) { ( out( left * right ), ... ); };
    const auto multiplyAll = [&]( const auto&... left )
    { ( multiply( left, t, s, x, y, z, r, l, a, p, GePoint3<T>( v ), v, u, h ), ... ); };
    multiplyAll( t, s, x, y, z, r, l, a, p );
    out( GeAffineMatrix3<T>( t, r, s ), s.getMatrix(), t.getMatrix() );
    out.call( [&] { return r.turn( u ); } );
    out.call( [&] { return x.turn( u ); } );
    out.call( [&] { return in.make<GeQuaternion3<T>>().turn( u ); } );
}

template <class T>
void decomposition( Inputs& in, Results& out )
{
    const auto a = in.make<GeAffineMatrix3<T>>();
    out( a.computeNormalMatrix() );
    out.call(
        [&]
        {
            const auto parts = a.computeDecomposition();
            out( parts.getTranslation(), parts.getRotation(), parts.getStretch(), parts.isReflection() );
        } );
}

template <class T>
void makeRotationsLibm( Inputs& in, Results& out )
{
    const auto axis = in.make<GeVector3<T>>();
    const T angle = in.number<T>();
    out( GeXAxisRotation3<T>( angle ), GeYAxisRotation3<T>( angle ), GeZAxisRotation3<T>( angle ),
        GeRotation3<T>::makeRotation( axis, angle ), GeQuaternion3<T>::makeRotation( axis, angle ) );
}

template <class T>
void quaternion( Inputs& in, Results& out )
{
    using Quaternion = GeQuaternion3<T>;
    const auto a = in.make<Quaternion>(), b = in.make<Quaternion>();
    const auto v = in.make<GeVector3<T>>();
    const auto m = in.make<GeLinearMatrix3<T>>();
    const T s = in.number<T>();
    compare( out, a, b, s );
    out( a + b, a - b, -a, a * s, s * a, a * b, a.dot( b ), a.getMagnitude(), a.computeConjugate(), a * v,
        a * GePoint3<T>( v ), Quaternion::lerp( a, b, s ), Quaternion::isShortestGreatCircle( a, b ),
        GeQuaternion3<float>( a ), GeQuaternion3<double>( a ) );
    out.change( a, [&]( auto& q ) { return ( ( q += b ) -= a ) *= s; } );
    out.change( a, [&]( auto& q ) { return q *= b; } );
    out.change( a, []( auto& q ) { q.normalize(); } );
    out.call( [&] { return a.computeInverse(); } );
    out.call( [&] { return Quaternion::bisect( a, b ); } );
    out.call( [&] { return Quaternion::doub( a, b ); } );

    Quaternion unit = a;
    unit.normalize();
    for ( const Quaternion& q : { a, unit } )
    {
        out.call( [&] { return q.getRotation(); } );
        out.change( m, [&]( auto& matrix ) { q.getMatrix( matrix ); } );
        out.change( GeAffineMatrix3<T>( m ), [&]( auto& matrix ) { q.getMatrix( matrix ); } );
        out.change( GeProjectiveMatrix3<T>( m ), [&]( auto& matrix ) { q.getMatrix( matrix ); } );
    }
    out.call( [&] { return Quaternion( unit.getRotation() ); } );
    out.change( b, [&]( auto& q ) { q.setMatrix( m ); } );
    out.change( b, [&]( auto& q ) { q.setMatrix( unit.getRotation().getMatrix(), s ); } );
}

template <class T>
void quaternionLibm( Inputs& in, Results& out )
{
    using Quaternion = GeQuaternion3<T>;
    const auto a = in.make<Quaternion>(), b = in.make<Quaternion>();
    const auto from = in.make<GeVector3<T>>(), to = in.make<GeVector3<T>>();
    const auto plane = in.make<GePlane3<T>>();
    T angle = T( 7 );
    out.change( from, [&]( auto& axis ) { a.getAxisAngle( axis, angle ); } );
    out( angle );
    out.change( b, [&]( auto& q ) { q.aim( from, plane ); } );
    out.change( b, [&]( auto& q ) { q.aim( from, to ); } );
    out.change( b, [&]( auto& q ) { q.aim( from, -from ); } );
    out.call( [&] { return Quaternion::exp( a ); } );
    out.call( [&] { return Quaternion::log( a ); } );
}

template <class T>
void splinesLibm( Inputs& in, Results& out )
{
    using Quaternion = GeQuaternion3<T>;
    auto keys = in.makeArray<Quaternion>( 4 );
    if ( !in.oneIn( 4 ) )
        for ( Quaternion& key : keys )
            key.normalize();
    if ( in.oneIn( 8 ) )
        keys[1] = in.oneIn( 2 ) ? keys[0] : -keys[0];
    const T t = in.oneIn( 4 ) ? in.number<T>() : ( in.uniform( T( 1 ) ) + T( 1 ) ) / T( 2 );
    const T spin = in.oneIn( 2 ) ? T( 0 ) : static_cast<T>( in.index( 5 ) - 2 );
    out.call( [&] { return Quaternion::slerp( keys[0], keys[1], t, spin ); } );
    out.call( [&] { return Quaternion::squad( keys[0], keys[1], keys[2], keys[3], t ); } );
    Quaternion a, b;
    out.call( [&] { Quaternion::computeIntermediates( keys[0], keys[1], keys[2], a, b ); } );
    out( a, b );
}

/// All 24 conventions, and at times numbers that are none.
template <class T>
void eulerLibm( Inputs& in, Results& out )
{
    using Quaternion = GeQuaternion3<T>;
    const int axis = in.oneIn( 32 ) ? 3 : in.index( 3 ), flags = in.index( 8 );
    const auto c = static_cast<typename Quaternion::EulerConvention>( axis + 16 * flags );
    const T a1 = in.number<T>(), a2 = in.number<T>(), a3 = in.number<T>();
    auto q = in.make<Quaternion>();
    out.call( [&] { return Quaternion::makeEulerConvention( axis, flags & 1, flags / 2 & 1, flags / 4 ); } );
    int decoded[6] = {};
    out.call(
        [&] {
            Quaternion::decodeEulerConvention(
                c, decoded[0], decoded[1], decoded[2], decoded[3], decoded[4], decoded[5] );
        } );
    out( std::vector<int>( decoded, decoded + 6 ) );
    out.change( q, [&]( auto& turned ) { turned.setEuler( c, a1, a2, a3 ); } );
    GeLinearMatrix3<T> m;
    out.change( m, [&]( auto& matrix ) { Quaternion::eulerToMatrix( matrix, c, a1, a2, a3 ); } );
    q.normalize();
    GeVector3<T> angles;
    out.call( [&] { q.getEuler( c, angles[0], angles[1], angles[2] ); } );
    out( angles );
    q.getMatrix( m );
    for ( const auto& matrix : { m, in.make<GeLinearMatrix3<T>>() } )
    {
        out.call( [&] { Quaternion::matrixToEuler( matrix, c, angles[0], angles[1], angles[2] ); } );
        out( angles );
    }
}

template <class T>
void cameraLibm( Inputs& in, Results& out )
{
    using Camera = GeCameraBuilder<T>;
    const T angle = in.oneIn( 2 ) ? in.number<T>() : in.uniform( T( 3 ) );
    const T near = in.number<T>(), far = in.number<T>(), aspect = in.number<T>();
    out.call( [&] { return Camera::computeOrthoRadius( angle, near ); } );
    out.call( [&] { return Camera::makePerspective( angle, near, far, aspect ); } );
    out.call( [&] { return Camera::makeOrthographic( angle, near, far, aspect ); } );
    using Projection = GeProjectionBuilder<T>;
    const auto range = static_cast<GeDepthRange>( in.index( 3 ) );
    out.call( [&] { return Projection::makePerspectiveFromVerticalAngle( angle, aspect, near, far, range ); } );
    out.call( [&] { return Projection::makePerspectiveFromHorizontalAngle( angle, aspect, near, far, range ); } );
}

/// Projections, their views, pixels and cascades: mostly of what makes a camera, so that more than reports come out.
template <class T>
void views( Inputs& in, Results& out )
{
    using Projection = GeProjectionBuilder<T>;
    const auto range = static_cast<GeDepthRange>( in.index( 3 ) );
    T v[6];
    for ( T& number : v )
        number = in.number<T>();
    if ( !in.oneIn( 4 ) )
        for ( int i = 0; i < 6; i += 2 )
            if ( v[i] > v[i + 1] )
                std::swap( v[i], v[i + 1] );
    if ( in.oneIn( 2 ) )
        v[4] = FloatUtil::abs( v[4] );
    const auto plane = in.make<GePlane3<T>>();
    GeProjectiveMatrix3<T> lens = Projection::makePerspectiveFromTangents( -1, 2, -1, 1, 1, 100, range );
    for ( const auto make : { Projection::makePerspectiveFromTangents, Projection::makePerspectiveFromNearEdges,
              Projection::makeOrthographicFromEdges } )
    {
        out.call( [&] { lens = make( v[0], v[1], v[2], v[3], v[4], v[5], range ); } );
        out( lens );
    }
    out.call( [&] { return Projection::makeOblique( lens, plane, range ); } );
    out( Projection::makeYDown( lens ) );

    const auto eye = in.make<GePoint3<T>>(), target = in.make<GePoint3<T>>();
    const auto up = in.make<GeVector3<T>>();
    GeAffineMatrix3<T> view;
    out.call( [&] { return GeViewBuilder<T>::makeViewAlong( eye, up, GeVector3<T>( target ) ); } );
    const auto rotation = in.make<GeRotation3<T>>();
    out.call( [&] { return GeViewBuilder<T>::makeView( eye, rotation ); } );
    out.call( [&] { view = GeViewBuilder<T>::makeView( eye, target, up ); } );
    out( view );

    auto image = in.make<GePoint3<T>>(), point = in.make<GePoint3<T>>();
    GePoint3<T> origin;
    GeVector3<T> direction;
    const int column = in.index( 640 ), row = in.index( 480 );
    const auto rows = static_cast<GeImageRows>( in.index( 2 ) );
    out.call(
        [&]
        {
            const GeViewport<T> viewport( lens, view, 640, 480, rows );
            viewport.computePixelRay( column, row, origin, direction );
            out( viewport.unproject( image, point ) );
            out( viewport.project( target, image ) );
        } );
    out( image, point, origin, direction );
    out.call(
        [&]
        {
            const auto cascade = GeCascadeBuilder<T>( up, 64, 10, range ).fitSlice( lens, view, 1, 9 );
            out( cascade.view, cascade.projection, cascade.texelSize );
        } );
}

} // namespace

std::vector<Group> getValueGroups()
{
    return {
        { "floatUtil.float", floatUtil<float> },
        { "floatUtil.double", floatUtil<double> },
        { "floatUtil.float.libm", floatUtilLibm<float> },
        { "floatUtil.double.libm", floatUtilLibm<double> },
        { "interval.float", interval<float> },
        { "interval.double", interval<double> },
        { "vector2.int", vector2<int> },
        { "vector2.float", vector2<float> },
        { "vector2.double", vector2<double> },
        { "vector3.float", vector3<float> },
        { "vector3.double", vector3<double> },
        { "segments.float", segments<float> },
        { "segments.double", segments<double> },
        { "unit2.float", unit2<float> },
        { "unit2.double", unit2<double> },
        { "unit3.float", unit3<float> },
        { "unit3.double", unit3<double> },
        { "angles.float.libm", anglesLibm<float> },
        { "angles.double.libm", anglesLibm<double> },
        { "tolerances.libm", tolerancesLibm },
        { "homogeneous.float", homogeneous<float> },
        { "homogeneous.double", homogeneous<double> },
        { "linearMatrix.float", linearMatrix<float> },
        { "linearMatrix.double", linearMatrix<double> },
        { "affineMatrix.float", affineMatrix<float> },
        { "affineMatrix.double", affineMatrix<double> },
        { "projectiveMatrix.float", projectiveMatrix<float> },
        { "projectiveMatrix.double", projectiveMatrix<double> },
        { "transformArrays.float", transformArrays<float> },
        { "transformArrays.double", transformArrays<double> },
        { "scaleTranslation.float", scaleTranslation<float> },
        { "scaleTranslation.double", scaleTranslation<double> },
        { "products.float", products<float> },
        { "products.double", products<double> },
        { "decomposition.float", decomposition<float> },
        { "decomposition.double", decomposition<double> },
        { "rotation.float", rotation<float> },
        { "rotation.double", rotation<double> },
        { "rotationAim.float", rotationAim<float> },
        { "rotationAim.double", rotationAim<double> },
        { "axisRotations.float", axisRotations<float> },
        { "axisRotations.double", axisRotations<double> },
        { "makeRotations.float.libm", makeRotationsLibm<float> },
        { "makeRotations.double.libm", makeRotationsLibm<double> },
        { "quaternion.float", quaternion<float> },
        { "quaternion.double", quaternion<double> },
        { "quaternion.float.libm", quaternionLibm<float> },
        { "quaternion.double.libm", quaternionLibm<double> },
        { "splines.float.libm", splinesLibm<float> },
        { "splines.double.libm", splinesLibm<double> },
        { "euler.float.libm", eulerLibm<float> },
        { "euler.double.libm", eulerLibm<double> },
        { "views.float", views<float> },
        { "views.double", views<double> },
        { "camera.float.libm", cameraLibm<float> },
        { "camera.double.libm", cameraLibm<double> },
    };
}

} // namespace ZqBits
