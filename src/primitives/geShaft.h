#ifndef ZQ_PRIMITIVES_GESHAFT_H
#define ZQ_PRIMITIVES_GESHAFT_H

#include "geAlignedBox.h"
#include "gePlane3.h"

#include <cstddef>
#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// The region between two aligned boxes: what a straight line from one to the other can pass. It tells cheaply whether
/// a third box may stand in the way, lies wholly in between, or is of no concern. For float.
///
/// The shaft is the intersection of
///
/// - the extent box, the smallest box around both reference boxes, and
/// - up to eight half spaces, whose planes touch both boxes along an edge each. Every plane is parallel to one
///   coordinate axis; its normal points out of the shaft and has any length. Inside, its value is negative.
///
/// The reference boxes are widened a little before they are used, so that the planes do not cut through a flat box:
/// a flat one (an extent of 0 within the default tolerance of FloatUtil::isEqual) by a thousandth of its largest
/// extent, along its first flat axis x, y, z alone; any other by as much on all its six faces. A box that is a single
/// point stays as it is. Faces of the two boxes that agree within 0.001, an absolute length, join without a plane:
/// scale a scene of that size first.
///
/// Queries come in pairs, and the two conventions cross: the plain name takes the boxes closed but the planes open,
/// the suffix Exclude takes the boxes open but the planes closed. A point on a plane, outside both reference boxes,
/// is not contained, but containsExclude() holds for it.
///
/// Boxes are used as they are, inverted or not; NaN follows the comparisons. With the trace level "GeShaft" switched
/// on, initialize() reports its faces and planes.
///
/// Source: E. Haines and J. Wallace, Shaft Culling for Efficient Ray-Cast Radiosity, 1991.
class ZQ_PRIMITIVES_API GeShaft
{
public:
    /// The most planes that a shaft can have.
    enum
    {
        NB_MAX_PLANES = 8
    };

    /// @name Construction
    /// @{

    /// Not initialised: the three boxes are empty and there are no planes. No point is contained, and every box is
    /// OUTSIDE but one that holds all numbers: overlaps() answers CONTAIN where each interval reaches from the lowest
    /// finite number or below to the largest or above, overlapsExclude() where each goes beyond both.
    GeShaft();
    /// The shaft between two boxes, as initialize() builds it.
    GeShaft( const GeAlignedBox3<float>& box1, const GeAlignedBox3<float>& box2 );

    /// Builds the shaft between two boxes, whatever was there before; they may be boxes of this shaft. Reports
    /// "nbPlanes <= 8" if there were more planes than can be.
    void initialize( const GeAlignedBox3<float>& box1, const GeAlignedBox3<float>& box2 );
    /// @}

    /// @name Access
    /// @{

    /// The first box, widened.
    const GeAlignedBox3<float>& getRefBox1() const;
    /// The second box, widened.
    const GeAlignedBox3<float>& getRefBox2() const;
    /// The smallest box around both widened boxes.
    const GeAlignedBox3<float>& getExtentBox() const;
    /// The first of the planes; their number, 0 to 8, goes to `nbPlanes`.
    const GePlane3<float>* getPlaneSet( unsigned short& nbPlanes ) const;
    /// @}

    /// @name Comparison
    /// @{

    /// Boxes, number of planes and planes, slot by slot. The order of the two boxes matters.
    bool isEqualExact( const GeShaft& other ) const;
    /// The same, each bound and each plane component within the tolerance, strictly; see FloatUtil::isEqual.
    bool isEqual( const GeShaft& other, float tolerance ) const;
    /// @}

    /// @name Queries
    /// @{

    /// Whether a point lies in the closed extent box and either in a closed reference box or at a negative value of
    /// every plane.
    bool contains( const GePoint3<float>& point ) const;
    /// Whether a point lies in the open extent box and either in an open reference box or at a value of 0 or less of
    /// every plane.
    bool containsExclude( const GePoint3<float>& point ) const;

    /// How a box lies relative to the shaft: INSIDE it, OUTSIDE of it, OVERLAP; CONTAIN when the box contains the
    /// extent box (sharing faces with it is allowed). Touching a plane from outside is OUTSIDE, from inside OVERLAP.
    ///
    /// OUTSIDE is certain, but for rounding. The answer is careful in the other direction: OVERLAP also stands for a
    /// box near an edge of the shaft that no single plane keeps out, and for one that meets a reference box without
    /// lying inside it.
    Interval<float>::Containment overlaps( const GeAlignedBox3<float>& box ) const;
    /// The same with open boxes and closed planes: a box that touches a plane from outside is OVERLAP, or INSIDE when
    /// it is flat and lies in the plane; one that touches it from inside is INSIDE.
    Interval<float>::Containment overlapsExclude( const GeAlignedBox3<float>& box ) const;
    /// overlaps() for arrays, and much faster: verdict i, a byte with the value of the enumerator, is what the call for
    /// boxes[i] alone answers. Any count, also 0; no alignment is asked for. The verdicts must not lie within the boxes.
    void overlaps( const GeAlignedBox3<float>* boxes, std::size_t count, unsigned char* verdicts ) const;
    /// overlapsExclude() for arrays, in the same way.
    void overlapsExclude( const GeAlignedBox3<float>* boxes, std::size_t count, unsigned char* verdicts ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the two reference boxes, the extent box and the planes, a line each, flushed; for a shaft that was not
    /// initialised the line "Uninitialized shaft". A plane that was turned around shows its zero as -0.
    void dump( std::ostream& os ) const;
    /// @}

private:
    enum Face
    {
        MIN_X,
        MIN_Y,
        MIN_Z,
        MAX_X,
        MAX_Y,
        MAX_Z,
        NB_FACES
    };

    void computeExtentBox( bool ( &outer1 )[NB_FACES], bool ( &outer2 )[NB_FACES] );
    void traceFaces( const bool ( &outer1 )[NB_FACES], const bool ( &outer2 )[NB_FACES] ) const;
    void addPlane( int face1, int face2 );
    template <bool isExclude>
    Interval<float>::Containment computeOverlap( const GeAlignedBox3<float>& box ) const;

    GeAlignedBox3<float> _refBox1;
    GeAlignedBox3<float> _refBox2;
    GeAlignedBox3<float> _extentBox;
    GePlane3<float> _planeSet[NB_MAX_PLANES];
    unsigned short _nbPlanes = 0;
};

/// The same as isEqualExact().
bool operator==( const GeShaft& a, const GeShaft& b );
/// The exact negation of ==.
bool operator!=( const GeShaft& a, const GeShaft& b );
/// The same as a.isEqual( b, tolerance ).
bool isEqual( const GeShaft& a, const GeShaft& b, float tolerance );
/// Writes the text form, as dump() does.
std::ostream& operator<<( std::ostream& os, const GeShaft& shaft );

} // namespace Zq

#include "geShaft.inline"

namespace Zq
{

static_assert( sizeof( GeShaft ) == 3 * sizeof( GeAlignedBox3<float> ) + 8 * sizeof( GePlane3<float> ) + 4 );
static_assert( std::is_trivially_copyable_v<GeShaft> );

} // namespace Zq

#endif
