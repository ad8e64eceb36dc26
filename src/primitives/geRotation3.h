#ifndef ZQ_PRIMITIVES_GEROTATION3_H
#define ZQ_PRIMITIVES_GEROTATION3_H

#include "geAffineMatrix3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A rotation of 3D space, held as an orthonormal, right-handed matrix in the element order of GeLinearMatrix3. For
/// float and double.
///
/// It converts to GeLinearMatrix3 and can be passed wherever one is read. The product of two rotations is a rotation,
/// products with other matrices are plain matrices. Orthonormality is a matter of construction: nothing renews it, so
/// that long chains of products drift as rounding adds up.
///
/// Text form: the three lines of GeLinearMatrix3.
template <class T>
class ZQ_PRIMITIVES_API GeRotation3
{
public:
    /// @name Construction
    /// @{

    /// The identity.
    GeRotation3();
    /// Trusts that the matrix is a rotation; nothing is checked.
    explicit GeRotation3( const GeLinearMatrix3<T>& matrix );

    /// The rotation by an angle in radians about an axis of any length, right-handed: a positive angle turns
    /// counter-clockwise for an eye that the axis points at. A zero axis gives the identity. After O. Rodrigues, Des lois
    /// geometriques qui regissent les deplacements d'un systeme solide, 1840.
    static GeRotation3<T> makeRotation( const GeVector3<T>& axis, T angle );
    /// @}

    /// @name Frames
    /// The three builders below make a right-handed frame of three basis vectors. Axes are numbered 0, 1, 2 for x, y, z.
    /// asRows true: basis vector i is row i, and the rotation carries the basis to the coordinate axes, as a view does
    /// whose z axis is the direction from its target back to the eye.
    /// asRows false: basis vector i is column i, and the rotation carries the coordinate axes to the basis, as the
    /// placing of an object does. The two are transposes of each other.
    ///
    /// Each reports a violated precondition with src/primitives/geRotation3.imp and the text quoted. "len > 0" is about
    /// a basis vector of length 0 or NaN; one whose squared length leaves the range of T fails the check of trusted
    /// unit vectors, "FloatUtil::isEqual( length(), static_cast<T>(1.0) )" (src/primitives/geVector3.inline, line 525).
    /// Whatever is not reported is orthonormal within the default tolerance of FloatUtil::isEqual.
    /// @{

    /// Basis vector `aimAxis` is the direction, the other two are chosen; the choice jumps where another component of
    /// the direction becomes its smallest. A zero direction counts as (0, 0, -1).
    /// Reports "aimAxis >= 0 && aimAxis <= 2".
    static GeRotation3<T> aim( const GeUnitVector3<T>& direction, int aimAxis, bool asRows );

    /// Basis vector `aimAxis` is the direction, basis vector `planeAxis` lies in the plane of direction and up, on the
    /// side of up. `up` may have any length whose square T can hold; where it is zero (or its square is) or parallel to
    /// the direction, basis vector `planeAxis` is chosen. A zero direction counts as (0, 0, -1).
    /// Reports, in this order, "aimAxis >= 0 && aimAxis <= 2", "planeAxis >= 0 && planeAxis <= 2" and
    /// "aimAxis != planeAxis".
    static GeRotation3<T> aim(
        const GeUnitVector3<T>& direction, const GeVector3<T>& up, int aimAxis, int planeAxis, bool asRows );

    /// Basis vector `aimAxis` is the normal of a polygon, which an eye on that side sees counter-clockwise; basis vector
    /// `planeAxis` follows its longest edge, the first one of several. The polygon may be concave and need not be quite
    /// planar: the normal is that of M. Newell's method, after I. Sutherland, R. Sproull and R. Schumacker, A
    /// Characterization of Ten Hidden-Surface Algorithms, 1974.
    /// Reports "nbPoints >= 3", then "points != 0", then "len > 0" for a polygon without area, then what the builder
    /// from a direction and up reports of the axes.
    static GeRotation3<T> aim( int nbPoints, const GePoint3<T>* points, int aimAxis, int planeAxis, bool asRows );
    /// @}

    /// @name Conversion
    /// @{

    /// The rotation as the matrix that it holds, without a copy.
    operator const GeLinearMatrix3<T>&() const; // NOLINT(google-explicit-constructor): a rotation is a matrix
    /// The same by name.
    const GeLinearMatrix3<T>& getMatrix() const;
    /// @}

    /// @name Access
    /// @{

    /// Rows and columns 0 to 2; any other index is undefined.
    T operator()( int row, int column ) const;
    /// @}

    /// @name Comparison
    /// As for GeLinearMatrix3: == and isEqualExact() compare exactly, isEqual() takes each element within the
    /// tolerance, strictly. != is the exact negation of ==.
    /// @{
    bool operator==( const GeRotation3<T>& other ) const;
    bool operator!=( const GeRotation3<T>& other ) const;
    bool isEqualExact( const GeRotation3<T>& other ) const;
    bool isEqual( const GeRotation3<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// This times the operand, which acts first. For all other products, on either side, those of a GeLinearMatrix3
    /// serve.
    /// @{
    GeRotation3<T> operator*( const GeRotation3<T>& other ) const;
    GeRotation3<T>& operator*=( const GeRotation3<T>& other );
    GeLinearMatrix3<T> operator*( const GeLinearMatrix3<T>& m ) const;
    GeAffineMatrix3<T> operator*( const GeAffineMatrix3<T>& m ) const;
    GeVector3<T> operator*( const GeVector3<T>& v ) const;
    /// Turns the point about the origin.
    GePoint3<T> operator*( const GePoint3<T>& p ) const;
    /// The same for a direction, which stays one: normalised again, so that no chain of turns takes it off unit length.
    /// Reports "len > 0" (src/primitives/geVector3.inline, line 496) where nothing or NaN is left of it: the zero vector
    /// of the default constructor, or a matrix that is no rotation.
    GeUnitVector3<T> turn( const GeUnitVector3<T>& direction ) const;
    /// @}

    /// @name Queries
    /// @{

    /// The transpose.
    GeRotation3<T> computeInverse() const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form, three lines.
    std::ostream& dump( std::ostream& os ) const;
    /// @}

private:
    GeLinearMatrix3<T> _matrix;
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeRotation3<T>& r );

} // namespace Zq

#include "geRotation3.inline"

namespace Zq
{

extern template class GeRotation3<float>;
extern template class GeRotation3<double>;

static_assert(
    sizeof( GeRotation3<float> ) == 9 * sizeof( float ) && std::is_trivially_copyable_v<GeRotation3<float>> );
static_assert(
    sizeof( GeRotation3<double> ) == 9 * sizeof( double ) && std::is_trivially_copyable_v<GeRotation3<double>> );

} // namespace Zq

#endif
