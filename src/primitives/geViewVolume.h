#ifndef ZQ_PRIMITIVES_GEVIEWVOLUME_H
#define ZQ_PRIMITIVES_GEVIEWVOLUME_H

#include "geAlignedBox.h"
#include "geDepthRange.h"
#include "gePlane3.h"
#include "geProjectiveMatrix3.h"
#include "geSphere3.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <type_traits>

namespace Zq
{

namespace Detail
{

template <class T>
struct VolumePlanes;

} // namespace Detail

/// The view volume of any projection, and the classification of points, spheres and boxes against it with answers that
/// are proved: rounding, overflow and underflow included, VIEW_OUTSIDE and VIEW_INSIDE are never wrong. For float and
/// double, in the default rounding mode.
///
/// The volume of a matrix is the set of all points p for which (x, y, z, w) = M (p, 1) satisfies the inequalities
/// below. The elements of M are taken for the exact numbers that they are, whatever they were meant to be.
/// Perspective and orthographic matrices fit, of either handedness, off-centre, with an oblique near plane, an image
/// upside down, an infinite far plane, times any placement of the eye. No inverse is needed: M may be singular.
///
///     side 0  left     w + x >= 0        side 4  near    MINUS_ONE_TO_ONE  w + z >= 0
///     side 1  right    w - x >= 0                        ZERO_TO_ONE           z >= 0
///     side 2  bottom   w + y >= 0                        ONE_TO_ZERO       w - z >= 0
///     side 3  top      w - y >= 0        side 5  far     MINUS_ONE_TO_ONE, ZERO_TO_ONE  w - z >= 0
///                                                        ONE_TO_ZERO           z >= 0
///
/// An inequality whose normal is exactly 0 holds everywhere or nowhere. In the first case it has no plane, as for an
/// infinite far plane; a matrix of zeros has none, and everything is inside. In the second the volume is empty.
///
/// What is VIEW_OUTSIDE lies wholly beyond one plane, what is VIEW_INSIDE within all. VIEW_INTERSECT says neither: it
/// crosses a plane, or lies beyond an edge of the volume but beyond no plane (classifyTight() sees through that), or is
/// so close to a plane that rounding decides. That zone is some units in the last place of the largest coordinate wide,
/// on both sides; a point is VIEW_INTERSECT in it. docs/views.md derives the bound.
///
/// A box that is inverted on any axis (max < min) holds no point and is VIEW_OUTSIDE. Otherwise a NaN or infinite
/// bound makes it VIEW_INTERSECT. The verdicts of classify( box ) are monotone: a box within one that is VIEW_OUTSIDE
/// is so, too, and likewise for VIEW_INSIDE.
///
/// The union of two views keeps the planes of both. VIEW_OUTSIDE then means outside both, wholly beyond a plane of each,
/// and VIEW_INSIDE wholly within one of the two. Other volumes that are made of several, the union of more than two and
/// computeSwept(), are convex and enclose all of them: VIEW_OUTSIDE means outside each, and VIEW_INSIDE within the planes
/// of the enclosing volume, which can be outside each as well.
///
/// Text form: for each plane a line end, then "plane( 0 ) = [a, b, c, d]", or "plane( 0, view 1 ) = [a, b, c, d]" for one
/// that bounds one view of two alone; nothing for a volume without planes.
///
/// Sources. Rows: G. Gribb and K. Hartmann, Fast Extraction of Viewing Frustum Planes, 2001. Certificates of tight
/// verdicts and of unions: J. Farkas, Theorie der einfachen Ungleichungen, 1902.
template <class T>
class ZQ_PRIMITIVES_API GeViewVolume
{
    using OtherScalar = std::conditional_t<std::is_same_v<T, float>, double, float>;

public:
    /// Numbers that loops need.
    enum
    {
        NB_MAX_PLANES = 12, ///< a union has at most as many, a view of one matrix at most six
        NB_SIDES = 6,       ///< left to far, as above
        NB_CORNERS = 8,     ///< of computeCorners()
        NB_EDGES = 12       ///< of getEdge()
    };

    /// What a verdict says; the numbers are those of GeFrustum.
    enum Classification
    {
        VIEW_OUTSIDE = 1,  ///< proved to be wholly outside
        VIEW_INSIDE = 2,   ///< proved to be wholly inside
        VIEW_INTERSECT = 3 ///< neither
    };

    /// @name Construction
    /// @{

    /// Reports "isFinite( matrix )" (src/primitives/geViewVolume.imp) for an element that is NaN or infinite.
    GeViewVolume( const GeProjectiveMatrix3<T>& matrix, GeDepthRange range );

    /// A volume that holds all of the given ones: for two eyes, for the views of one frame. The planes have no sides.
    ///
    /// Of two convex volumes it is the union itself, with the planes of both, those that they share once. Planes that
    /// differ by some roundings alone count as shared. Two views of six planes always fit.
    /// Of more volumes, or planes than NB_MAX_PLANES, it is close to their convex hull, of at most NB_MAX_PLANES planes.
    /// Each is proved to have every volume on its inner side, infinite ones included; where there is no such plane on
    /// any side, as for the six faces of a cube, there are none, and nothing is outside. A union of two counts as the
    /// two. An empty volume adds nothing, and so does one that has all planes of another; the union of none is empty.
    static GeViewVolume makeUnion( const GeViewVolume* views, std::size_t count );

    /// The volume swept by this one when the eye, and all with it, moves by every vector of the box: for one set of
    /// visible objects that serves several frames. Its planes have the same normals. Reports "isFinite( eyeOffsets )"
    /// for bounds that are NaN or infinite, "isOrdered( eyeOffsets )" for a box that is inverted on any axis (both
    /// src/primitives/geViewVolume.imp).
    GeViewVolume computeSwept( const GeAlignedBox3<T>& eyeOffsets ) const;

    /// This volume in the space of a model that is placed in this space by `toWorld`: p is in the result when toWorld p
    /// is in this. Any affine matrix; mirrored and singular ones, too. For many boxes of one model, where
    /// classify( box, toWorld ) would transform the planes for each. Reports "isFinite( toWorld )"
    /// (src/primitives/geViewVolume.imp).
    GeViewVolume computeTransformed( const GeAffineMatrix3<T>& toWorld ) const;

    /// The part of the view between bounds of x / w, y / w and z / w: a tile of the image, a cluster of lights, what
    /// lies below a rectangle of pixels. The bounds count in the units of the matrix, -1 to 1 for x and y, and need
    /// not lie within them; z0 <= z1 also where the depth is reversed, so that there z1 is the near side. A part of a
    /// part is bounded by its own numbers alone. Reports "hasMatrix()" for a volume that does not come from a matrix
    /// directly or by this function, "isFinite( bounds )", and "isOrdered( bounds )" where a lower bound is above the
    /// upper one (all src/primitives/geViewVolume.imp).
    GeViewVolume computePart( T x0, T x1, T y0, T y1, T z0, T z1 ) const;
    /// @}

    /// @name Access
    /// @{

    /// 0 to NB_MAX_PLANES.
    int getNbPlanes() const;
    /// The normal faces inwards; the point or box is beyond where the value is below 0. The length of the normal means
    /// nothing: the coefficients are scaled by a power of two so that the largest of the four lies in [1/8, 1/4). They
    /// are those of the inequality, rounded. An empty volume has the one plane (0, 0, 0, -1/8).
    /// Reports "plane >= 0 && plane < _nbPlanes" (src/primitives/geViewVolume.inline).
    GePlane3<T> getPlane( int plane ) const;
    /// Which side the plane belongs to, 0 to 5 as above; -1 in a union. Ascending. Reports as getPlane().
    int getSide( int plane ) const;
    /// Which of two views the plane bounds alone in their union: 0 or 1; -1 when it bounds all that there is. Ascending
    /// from -1. Reports as getPlane().
    int getView( int plane ) const;
    /// Whether no inequality holds for any point because one holds nowhere. That planes exclude each other is not seen.
    bool isEmpty() const;
    /// Whether computePart() can be asked for.
    bool hasMatrix() const;

    /// The eight corners: bit 1 of the index selects the right side, 2 the top, 4 the far one. Points have w = 1. The
    /// far corners of an infinite volume are directions, of length 1 and with w = 0, that point away from the eye.
    /// Worked out in double and rounded, not proved. False, and nothing written, when a side other than the far one
    /// has no plane, or three planes have no common point.
    bool computeCorners( GeHomogeneousCoord3<T>* corners ) const;
    /// The corners at the ends of edge 0 to 11: 0 to 3 along x, 4 to 7 along y, 8 to 11 from near to far. Others are
    /// undefined.
    static void getEdge( int edge, int& from, int& to );
    /// @}

    /// @name Comparison
    /// @{

    /// All planes and error bounds equal.
    bool isEqualExact( const GeViewVolume& other ) const;
    /// @}

    /// @name Queries
    /// @{

    /// The same as that of the box of the point.
    Classification classify( const GePoint3<T>& point ) const;
    /// The sign of the radius does not matter. VIEW_INTERSECT for NaN and infinite numbers.
    Classification classify( const GeSphere3<T>& sphere ) const;
    /// Source of the two corners: U. Assarsson and T. Moeller, Optimized View Frustum Culling Algorithms for Bounding
    /// Boxes, 2000.
    Classification classify( const GeAlignedBox3<T>& box ) const;
    /// The box, placed in the space of the planes by an affine matrix: an oriented box, or any parallelepiped.
    Classification classify( const GeAlignedBox3<T>& box, const GeAffineMatrix3<T>& toWorld ) const;
    /// The same as classify( box ), but VIEW_OUTSIDE wherever box and volume are apart by more than rounding, beyond
    /// edges and corners, too. About as fast for boxes that classify() decides, slower for the others.
    Classification classifyTight( const GeAlignedBox3<T>& box ) const;

    /// The first plane that the box is proved to be wholly beyond; -1 when there is none. A witness for classify( box
    /// ): it is VIEW_OUTSIDE exactly when the box is inverted or there is such a plane. In the union of two views, where
    /// no plane that bounds both will do, the first of each: a + NB_MAX_PLANES * b for plane a of view 0 and plane b of
    /// view 1, so that what is not below NB_MAX_PLANES stands for two.
    int findSeparatingPlane( const GeAlignedBox3<T>& box ) const;

    /// The same for arrays, and much faster: verdict i, a byte with the value of the enumerator, is what the call for
    /// element i alone answers. Any count, also 0; no alignment is asked for. What is written must not lie within the
    /// input. Where `planes` are asked for, byte i is findSeparatingPlane() of box i, 0xFF for -1: witnesses, by which
    /// others can check a verdict. They cost about as much as the verdicts.
    void classify( const GePoint3<T>* points, std::size_t count, unsigned char* verdicts ) const;
    /// The same for spheres.
    void classify( const GeSphere3<T>* spheres, std::size_t count, unsigned char* verdicts ) const;
    /// The same for boxes.
    void classify( const GeAlignedBox3<T>* boxes, std::size_t count, unsigned char* verdicts,
        unsigned char* planes = nullptr ) const;
    /// Boxes of the other scalar are taken for the exact numbers that they are, and worked out in double. A volume of
    /// float keeps the errors of its planes, but loses those of float arithmetic.
    void classify( const GeAlignedBox3<OtherScalar>* boxes, std::size_t count, unsigned char* verdicts,
        unsigned char* planes = nullptr ) const;

    /// Writes the indices of the elements that are not VIEW_OUTSIDE, in ascending order, and returns their number. The
    /// array takes up to `count` indices; those behind the ones returned are left with any value. Reports
    /// "count <= 0xFFFFFFFF" (src/primitives/geViewVolume.imp).
    std::size_t findNotOutside( const GePoint3<T>* points, std::size_t count, std::uint32_t* indices ) const;
    /// The same for spheres.
    std::size_t findNotOutside( const GeSphere3<T>* spheres, std::size_t count, std::uint32_t* indices ) const;
    /// The same for boxes.
    std::size_t findNotOutside( const GeAlignedBox3<T>* boxes, std::size_t count, std::uint32_t* indices ) const;
    /// The same for boxes of the other scalar, as above.
    std::size_t findNotOutside(
        const GeAlignedBox3<OtherScalar>* boxes, std::size_t count, std::uint32_t* indices ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form.
    void dump( std::ostream& os ) const;
    /// @}

private:
    template <class>
    friend class GeViewVolume;
    template <class>
    friend class GeAlignedBoxTree;

    /// What is stored about each plane.
    enum Row
    {
        NORMAL_X,
        NORMAL_Y,
        NORMAL_Z,
        OFFSET,
        ERROR_SLOPE, // the error of a value is below slope * ( largest coordinate ) + constant
        ERROR_CONSTANT,
        LENGTH,       // at least that of the normal
        NORMAL_ERROR, // of the sum of the normal's components
        OFFSET_ERROR,
        NB_ROWS
    };

    /// Without planes: everything is inside.
    GeViewVolume();
    /// Adds what `coefficients` bound, each off by at most its error, or finds that it bounds nothing.
    void addPlane( int side, const T ( &coefficients )[4], T normalError, T offsetError );
    /// Appends a plane of another volume, without its side.
    void appendPlane( const GeViewVolume& from, int plane );
    /// Appends one plane for one of a and one of b, unless they differ by more than roundings.
    bool appendShared( const GeViewVolume& a, int planeOfA, const GeViewVolume& b, int planeOfB );
    /// The union of two convex volumes; false when it has too many planes.
    static bool join( const GeViewVolume& a, const GeViewVolume& b, GeViewVolume& both );
    /// One of two views, without sides; of any other volume all planes.
    GeViewVolume getVolumeOfView( int view ) const;
    /// Works out the error bound of a plane's values from its coefficients and their errors.
    void setErrors( int plane );
    /// Adds the planes of the matrix between these bounds.
    void addBounds( T x0, T x1, T y0, T y1, T z0, T z1 );

    /// What the verdict makes of the planes; it depends on whether there are two views.
    template <class Verdict>
    Classification classifyBy( Verdict verdict, const GeSphere3<T>& sphere ) const;
    template <class Verdict>
    Classification classifyBy( Verdict verdict, const GeAlignedBox3<T>& box ) const;
    template <class Verdict>
    Classification classifyBy( Verdict verdict, const GeAlignedBox3<T>& box, const GeAffineMatrix3<T>& toWorld ) const;
    // apart from the others, so that volumes of one view pay nothing for it
    template <class... Items>
    [[gnu::noinline]] Classification classifyByTwo( const Items&... items ) const;

    /// This volume with all numbers in double; its values have the errors of double arithmetic.
    GeViewVolume<double> computeInDouble() const;
    /// The planes, one after the other, as the kernels take them.
    void gatherPlanes( Detail::VolumePlanes<T>& gathered ) const;

    T _planes[NB_ROWS][NB_MAX_PLANES]; // by component, so that a register takes several planes; neutral ones at the end
    GeProjectiveMatrix3<T> _matrix;
    GeDepthRange _range;
    int _sides[NB_MAX_PLANES];
    int _nbPlanes;
    int _nbOfView[2]; // how many of the last planes bound the first view of two alone, then the second; both or none
    bool _hasMatrix;
};

/// The same as isEqualExact().
template <class T>
bool operator==( const GeViewVolume<T>& a, const GeViewVolume<T>& b );
/// The exact negation of ==.
template <class T>
bool operator!=( const GeViewVolume<T>& a, const GeViewVolume<T>& b );
/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const GeViewVolume<T>& volume );

} // namespace Zq

#include "geViewVolume.inline"

namespace Zq
{

extern template class GeViewVolume<float>;
extern template class GeViewVolume<double>;

static_assert( std::is_trivially_copyable_v<GeViewVolume<float>> );
static_assert( std::is_trivially_copyable_v<GeViewVolume<double>> );

} // namespace Zq

#endif
