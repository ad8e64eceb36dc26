#ifndef ZQ_PRIMITIVES_GEQUATERNION3_H
#define ZQ_PRIMITIVES_GEQUATERNION3_H

#include "export.h"
#include "forward.h"
#include "geLinearMatrix3.h"
#include "gePoint3.h"
#include "geRotation3.h"
#include "geVector3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A quaternion, the rotation of 3D space that is cheap to combine and to interpolate. For float and double.
///
/// Four components in the order x, y, z, w: the vector part first, the scalar part last. The rotation by an angle
/// about a unit axis u is (u sin(angle / 2), cos(angle / 2)), counter-clockwise for an eye that u points at. q and -q
/// are the same rotation. In a product the right factor acts first, as with matrices: (a * b) * v = a * (b * v).
///
/// Nothing keeps a quaternion at unit length. Turning vectors and points and the conversion to a matrix divide the
/// length out, so that every quaternion but zero is a pure rotation there, and zero is the identity.
/// The thresholds of the interpolation functions and the half turns of the aim functions are single-precision numbers
/// in both twins. Angles are radians.
///
/// Text form: "[(0, 0, 0), 1]", the vector part in parentheses, then w, in the number format of the stream.
template <class T>
class ZQ_PRIMITIVES_API GeQuaternion3
{
public:
    /// The 24 ways to make a rotation of three angles a1, a2, a3 about coordinate axes. The axes are named in the order
    /// of the angles. STATIC: the axes stay where they are; EULER_XYZ_STATIC turns about X by a1, then about Y by a2,
    /// then about Z by a3, and is the matrix product Z(a3) Y(a2) X(a1). ROTATING: each turn is about an axis that the
    /// turns before it have moved; EULER_XYZ_ROTATING is X(a1) Y(a2) Z(a3). docs/eulerConventions.md has all products.
    ///
    /// A value packs, from the low bit: the inner axis in four bits (0, 1, 2 = X, Y, Z); parity (1: the second axis
    /// precedes the inner one in the cycle X, Y, Z); repetition (1: the third axis is the first again); frame
    /// (1: rotating). The inner axis is the axis of a1 for static and of a3 for rotating conventions.
    enum EulerConvention : int
    {
        EULER_XYZ_STATIC = 0,
        EULER_YZX_STATIC = 1,
        EULER_ZXY_STATIC = 2,
        EULER_XZY_STATIC = 16,
        EULER_YXZ_STATIC = 17,
        EULER_ZYX_STATIC = 18,
        EULER_XYX_STATIC = 32,
        EULER_YZY_STATIC = 33,
        EULER_ZXZ_STATIC = 34,
        EULER_XZX_STATIC = 48,
        EULER_YXY_STATIC = 49,
        EULER_ZYZ_STATIC = 50,
        EULER_ZYX_ROTATING = 64,
        EULER_XZY_ROTATING = 65,
        EULER_YXZ_ROTATING = 66,
        EULER_YZX_ROTATING = 80,
        EULER_ZXY_ROTATING = 81,
        EULER_XYZ_ROTATING = 82,
        EULER_XYX_ROTATING = 96,
        EULER_YZY_ROTATING = 97,
        EULER_ZXZ_ROTATING = 98,
        EULER_XZX_ROTATING = 112,
        EULER_YXY_ROTATING = 113,
        EULER_ZYZ_ROTATING = 114
    };

    /// @name Construction
    /// @{

    /// The identity (0, 0, 0, 1).
    GeQuaternion3();
    /// From components, stored as they are.
    GeQuaternion3( T x, T y, T z, T w );
    /// Converts each component to T.
    template <class U>
    explicit GeQuaternion3( const GeQuaternion3<U>& other );
    /// The rotation that a matrix holds; see setMatrix().
    explicit GeQuaternion3( const GeRotation3<T>& rotation );
    /// The same of a matrix that is a rotation; reports "s != 0" for one so far from it that a root is 0.
    explicit GeQuaternion3( const GeLinearMatrix3<T>& matrix );
    /// The rotation by an angle about an axis of any length but 0, right-handed. An axis of length 0 gives
    /// (0, 0, 0, cos(angle / 2)), which is the identity once its length is divided out.
    static GeQuaternion3<T> makeRotation( const GeVector3<T>& axis, T angle );
    /// The rotation of three angles: see setEuler(), below. Any angles are allowed.
    static GeQuaternion3<T> makeEuler( EulerConvention c, T a1, T a2, T a3 );
    /// @}

    /// @name Access
    /// One component; any value is allowed.
    /// @{
    T getX() const;
    T getY() const;
    T getZ() const;
    T getW() const;
    void setX( T x );
    void setY( T y );
    void setZ( T z );
    void setW( T w );
    /// @}

    /// @name Comparison
    /// == and isEqualExact() are the same: components compared in order x, y, z, w; -0 equals 0, NaN equals nothing. q
    /// and -q differ here although they are one rotation. != is the exact negation of ==.
    /// @{
    bool operator==( const GeQuaternion3<T>& other ) const;
    bool operator!=( const GeQuaternion3<T>& other ) const;
    bool isEqualExact( const GeQuaternion3<T>& other ) const;
    /// Each component within the tolerance, strictly: |a - b| < tolerance.
    bool isEqual( const GeQuaternion3<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// Component by component, but for the product of two quaternions. The assigning forms return this quaternion.
    /// @{
    GeQuaternion3<T> operator+( const GeQuaternion3<T>& other ) const;
    GeQuaternion3<T> operator-( const GeQuaternion3<T>& other ) const;
    GeQuaternion3<T> operator-() const;
    GeQuaternion3<T> operator*( T factor ) const;
    GeQuaternion3<T>& operator+=( const GeQuaternion3<T>& other );
    GeQuaternion3<T>& operator-=( const GeQuaternion3<T>& other );
    GeQuaternion3<T>& operator*=( T factor );
    /// The Hamilton product: the rotation `other`, followed by this one.
    GeQuaternion3<T> operator*( const GeQuaternion3<T>& other ) const;
    /// Becomes the Hamilton product of this and `other`.
    GeQuaternion3<T>& operator*=( const GeQuaternion3<T>& other );
    /// @}

    /// @name Queries
    /// @{

    /// x1 x2 + y1 y2 + z1 z2 + w1 w2, summed from left to right. For unit quaternions the cosine of half the angle
    /// between the rotations, negative when one of the two has to change its sign to be the nearer one.
    T dot( const GeQuaternion3<T>& other ) const;
    /// The *squared* length x^2 + y^2 + z^2 + w^2, whatever the name suggests.
    T getMagnitude() const;
    /// @}

    /// @name Normalisation and inverse
    /// @{

    /// Divides by the length: one reciprocal, four multiplications. A squared length of exactly 0 changes nothing.
    void normalize();
    /// (-x, -y, -z, w): the inverse of a unit quaternion.
    GeQuaternion3<T> computeConjugate() const;
    /// The conjugate divided by the squared length; an unchanged copy when that is exactly 0.
    GeQuaternion3<T> computeInverse() const;
    /// @}

    /// @name Turning
    /// Turns a vector, or a point about the origin. A quaternion of any length but 0 turns without scaling; zero leaves
    /// everything where it is.
    /// @{
    GeVector3<T> operator*( const GeVector3<T>& v ) const;
    GePoint3<T> operator*( const GePoint3<T>& p ) const;
    /// The same for a direction, which stays one: normalised again, so that no chain of turns takes it off unit length.
    /// Reports "len > 0" (src/primitives/geVector3.inline, line 496) where nothing or NaN is left of it: the zero vector
    /// of the default constructor.
    GeUnitVector3<T> turn( const GeUnitVector3<T>& direction ) const;
    /// @}

    /// @name Conversion
    /// @{

    /// The axis, of unit length, and the angle, in [0, 2 pi]. makeRotation() makes the same quaternion of them, its sign
    /// included, at unit length. Where the vector part is zero, or so small that its square is, the axis is (1, 0, 0).
    void getAxisAngle( GeVector3<T>& axis, T& angle ) const;

    /// Takes a rotation matrix; m44 is the element (3, 3) of the homogeneous matrix that m is the block of, 1 for a
    /// plain rotation. Reports "s != 0" when m is so far from a rotation that the root it divides by is 0, and after
    /// that "m44 != 0"; the quaternion is unchanged in both cases. The root of a negative number makes NaN.
    void setMatrix( const GeLinearMatrix3<T>& m, T m44 = T( 1 ) );
    /// The rotation matrix, which acts on column vectors.
    void getMatrix( GeLinearMatrix3<T>& m ) const;
    /// The same block; the rest is that of the identity.
    void getMatrix( GeAffineMatrix3<T>& m ) const;
    /// The same block; the rest is that of the identity.
    void getMatrix( GeProjectiveMatrix3<T>& m ) const;
    /// The same by value.
    GeLinearMatrix3<T> getMatrix() const;
    /// The matrix of getMatrix() as a rotation.
    GeRotation3<T> getRotation() const;
    /// @}

    /// @name Euler angles
    /// @{

    /// Packs a convention. The three flags must be 0 or 1; reports "0 <= innerAxis && innerAxis <= 2".
    static EulerConvention makeEulerConvention( int innerAxis, int parity, int repetition, int frame );
    /// Unpacks a convention: i is the inner axis, j the middle one and k the remaining one, which is also the axis of
    /// the outer angle unless i is repeated. Reports "0 <= i && i <= 2" for a value whose low four bits are above 2, as
    /// every function does that takes a convention; higher bits than the flags are ignored.
    static void decodeEulerConvention(
        EulerConvention c, int& i, int& j, int& k, int& parity, int& repetition, int& frame );
    /// The quaternion of three angles, through double precision; any angles are allowed. Its sign follows the half
    /// angles: a1 and a1 + 2 pi give opposite quaternions.
    void setEuler( EulerConvention c, T a1, T a2, T a3 );
    /// The angles of this rotation, by way of its matrix: see matrixToEuler().
    void getEuler( EulerConvention c, T& a1, T& a2, T& a3 ) const;
    /// The rotation matrix of three angles. Sines, cosines and their products are formed in double for float and in
    /// long double for double, so that each element is off by hardly more than its own rounding.
    static void eulerToMatrix( GeLinearMatrix3<T>& m, EulerConvention c, T a1, T a2, T a3 );
    /// The angles of a rotation matrix. The outer two are in [-pi, pi]; the middle one is in [-pi/2, pi/2] for three
    /// different axes, and with repetition in [0, pi] for even and in [-pi, 0] for odd parity.
    ///
    /// Where the sine (with repetition) or cosine (without) of the middle angle is at most 0.0016, the outer two axes
    /// count as one: a3 of a static and a1 of a rotating convention comes back 0 and the other one carries both turns.
    /// The rotation that they make then differs from m by up to 0.0032 in an element, and only by rounding at the pole.
    static void matrixToEuler( const GeLinearMatrix3<T>& m, EulerConvention c, T& a1, T& a2, T& a3 );
    /// @}

    /// @name Aiming
    /// @{

    /// Becomes the shortest rotation that carries v into the plane (parallel to it: its offset plays no part). For v
    /// along the normal, within the default tolerance of FloatUtil::isEqual on the cosine, that is a quarter turn about
    /// some perpendicular of the normal. A zero v or a zero normal changes nothing.
    void aim( const GeVector3<T>& v, const GePlane3<T>& plane );
    /// Becomes the shortest rotation that carries the direction of `from` to that of `to`; their lengths play no part.
    /// Reports "prodNorms != 0" when one of them is zero. The cosine of the angle is compared with 1 and -1 within the
    /// default tolerance: directions closer than 1.4e-3 (double: 4.5e-4) give the identity, and as nearly opposite ones
    /// a half turn about some perpendicular of `from`, whose w is -4.4e-8 instead of 0.
    void aim( const GeVector3<T>& from, const GeVector3<T>& to );
    /// @}

    /// @name Interpolation
    /// @{

    /// For the unit quaternion along q = (v, w): (v sin(a) / a, cos(a)) with a the length of v. The scale of q plays no
    /// part, and so exp( log( q ) ) is *not* q: log gives a pure vector, whose length exp divides out. Undo log() with
    /// (v sin(a) / a, cos(a)) of the unscaled vector. Reports "a > 0" when the vector part is zero.
    static GeQuaternion3<T> exp( const GeQuaternion3<T>& q );
    /// For the unit quaternion along q = (u sin(a), cos(a)): (u a, 0), with a from 0 to pi. From |w| = 0.999999 on the
    /// result is (u sin(a), 0), also near w = -1, where a is close to pi.
    static GeQuaternion3<T> log( const GeQuaternion3<T>& q );
    /// (1 - t) q1 + t q2, component by component, not normalised; exact at t = 0 and t = 1.
    static GeQuaternion3<T> lerp( const GeQuaternion3<T>& q1, const GeQuaternion3<T>& q2, T t );
    /// From unit q1 at t = 0 to unit q2 at t = 1 along the great arc through both, at constant speed, any t allowed
    /// (Shoemake, Animating Rotation with Quaternion Curves, SIGGRAPH 1985). The shorter way is taken: where the dot
    /// product is negative, the end is -q2. Each spin adds half a turn of arc, which is a whole turn of the rotation.
    /// Fractions of a spin do not end at q2. Not normalised. Quaternions whose dot product is beyond +-0.999999 (the
    /// rotations are closer than 2.8e-3) are blended linearly, and there spin is ignored.
    static GeQuaternion3<T> slerp( const GeQuaternion3<T>& q1, const GeQuaternion3<T>& q2, T t, T spin = T( 0 ) );
    /// Meant to compute the control quaternions a and b of squad() around the key q1. It *never returns*: a non-zero q1
    /// reports "h2uinv.getMagnitude() == 0" and a zero one "a > 0". examples/aimAndInterpolate computes them.
    static void computeIntermediates( const GeQuaternion3<T>& q0, const GeQuaternion3<T>& q1,
        const GeQuaternion3<T>& q2, GeQuaternion3<T>& a, GeQuaternion3<T>& b );
    /// Spherical quadrangle interpolation: from p at t = 0 to q at t = 1, drawn towards the control quaternions a and b
    /// between (Shoemake, Quaternion Calculus and Fast Animation, 1987). Three slerps, each by its shorter way: give
    /// neighbouring keys signs for which their dot product is not negative.
    static GeQuaternion3<T> squad( const GeQuaternion3<T>& p, const GeQuaternion3<T>& a, const GeQuaternion3<T>& b,
        const GeQuaternion3<T>& q, T t );
    /// Whether the two are at most a right angle apart in four dimensions, so that slerp() keeps their signs.
    static bool isShortestGreatCircle( const GeQuaternion3<T>& q1, const GeQuaternion3<T>& q2 );
    /// (q1 + q2) divided by its *squared* length: along the bisector, but of length 1 / |q1 + q2|. Normalise it to
    /// have a rotation. A sum whose squared length is 0 is returned as it is.
    static GeQuaternion3<T> bisect( const GeQuaternion3<T>& q1, const GeQuaternion3<T>& q2 );
    /// p mirrored about the unit quaternion q: as far beyond q as p is before it.
    static GeQuaternion3<T> doub( const GeQuaternion3<T>& p, const GeQuaternion3<T>& q );
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form; no line end.
    std::ostream& dump( std::ostream& os ) const;
    /// Reads the text form; white space is accepted before every item. On any failure the quaternion is unchanged and
    /// failbit is set; the characters that were consumed are gone.
    std::istream& read( std::istream& is );
    /// @}

private:
    T _x;
    T _y;
    T _z;
    T _w;
};

/// The same as q * factor.
template <class T>
GeQuaternion3<T> operator*( T factor, const GeQuaternion3<T>& q );
/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeQuaternion3<T>& q );
/// Reads the text form, as read() does.
template <class T>
std::istream& operator>>( std::istream& is, GeQuaternion3<T>& q );

} // namespace Zq

#include "geQuaternion3.inline"

namespace Zq
{

extern template class GeQuaternion3<float>;
extern template class GeQuaternion3<double>;

static_assert(
    sizeof( GeQuaternion3<float> ) == 4 * sizeof( float ) && std::is_trivially_copyable_v<GeQuaternion3<float>> );
static_assert(
    sizeof( GeQuaternion3<double> ) == 4 * sizeof( double ) && std::is_trivially_copyable_v<GeQuaternion3<double>> );

} // namespace Zq

#endif
