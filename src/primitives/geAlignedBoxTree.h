#ifndef ZQ_PRIMITIVES_GEALIGNEDBOXTREE_H
#define ZQ_PRIMITIVES_GEALIGNEDBOXTREE_H

#include "../base/taskRunner.h"
#include "geAlignedBox.h"
#include "geViewVolume.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace Zq
{

namespace Detail
{

/// How many boxes a node of a tree has below it, and how many levels then hold every count.
inline constexpr std::size_t BOX_TREE_WIDTH = 16;
inline constexpr int BOX_TREE_MAX_LEVELS = 8;

/// Sixteen boxes: x.min of all, x.max of all, y.min, ... z.max.
template <class T>
struct alignas( 64 ) BoxBlock
{
    T bounds[6][BOX_TREE_WIDTH];
};

template <class T>
struct BoxTreeLevels;

} // namespace Detail

/// A tree over an array of boxes, which answers queries about all of them without looking at each. For float and
/// double.
///
/// What it answers about an array is exactly what calls for the single boxes answer, for every box and every query,
/// rounding included: verdicts of a view volume do not depend on whether there is a tree. That is so because all that
/// is computed for a box is monotone in its bounds: each product, sum and comparison with a number is, and so is their
/// rounding. Where the box around others is proved to be outside, or inside, the same numbers prove it for each of
/// them. docs/views.md has the argument in full. Neither the tree's shape nor the number of threads can be seen in a
/// result.
///
/// The boxes' bounds are copied; the array is not needed after build() and refit(). Boxes may be anything: those that
/// are inverted, NaN or infinite get the answers that the single calls give for them; they stand beside the tree, in a
/// list that every query walks through.
///
/// Indices are those of the array, and ascend wherever several are answered. An array of indices has room for
/// getNbBoxes() of them, whatever is found; those behind the ones returned are left with any value. Queries may run on
/// several threads at a time.
///
/// An operation that takes a TaskRunner spreads its work over that runner's threads; without one it stays on the
/// caller's.
///
/// Sources. Order of the boxes: G. Morton, A Computer Oriented Geodetic Data Base, 1966; T. Karras, Maximizing
/// Parallelism in the Construction of BVHs, Octrees, and k-d Trees, 2012. Planes that a node is within are not asked
/// about below it: U. Assarsson and T. Moeller, Optimized View Frustum Culling Algorithms for Bounding Boxes, 2000.
template <class T>
class ZQ_PRIMITIVES_API GeAlignedBoxTree
{
public:
    /// @name Construction
    /// @{

    /// A tree of no boxes.
    GeAlignedBoxTree();
    /// The tree that was moved from has no boxes.
    GeAlignedBoxTree( GeAlignedBoxTree&& other ) noexcept;
    /// Likewise; the boxes of before are given up.
    GeAlignedBoxTree& operator=( GeAlignedBoxTree&& other ) noexcept;
    /// Gives up the memory.
    ~GeAlignedBoxTree() = default;

    /// Makes the tree of these boxes; the one before is given up. Reports "count <= 0xFFFFFFFF"
    /// (src/primitives/geAlignedBoxTree.imp). The tree stays as it was when memory or a runner fails.
    void build( const GeAlignedBox3<T>* boxes, std::size_t count, TaskRunner* runner = nullptr );
    /// Takes the boxes of the same array after they have moved. Faster than build(), and all answers are
    /// as exact; but what was near when the tree was built stays together, so that queries take longer the farther
    /// boxes have moved from their neighbours. Reports "count == getNbBoxes()" (src/primitives/geAlignedBoxTree.imp).
    /// The tree has no boxes when memory or a runner fails.
    void refit( const GeAlignedBox3<T>* boxes, std::size_t count, TaskRunner* runner = nullptr );

    /// @}

    /// @name Access
    /// @{

    /// The count of the last build().
    std::size_t getNbBoxes() const;
    /// @}

    /// @name Queries
    /// @{

    /// Verdict i, a byte, is volume.classify( box i ), the same as volume.classify( boxes, count, verdicts ) writes.
    void classify( const GeViewVolume<T>& volume, unsigned char* verdicts, TaskRunner* runner = nullptr ) const;
    /// Writes the indices of the boxes that are not VIEW_OUTSIDE and returns their number, as
    /// volume.findNotOutside( boxes, count, indices ) does. With a runner it needs a byte of memory for each box.
    std::size_t findNotOutside(
        const GeViewVolume<T>& volume, std::uint32_t* indices, TaskRunner* runner = nullptr ) const;

    /// The indices of the boxes for which box.intersectLine( origin, direction ), cut to the range of t by
    /// Interval::intersect(), is not empty: [0, 1] is a segment, [0, the largest number] a ray. Returns their number.
    /// A line whose direction has an infinite number is held against every box.
    std::size_t findAlongLine( const GePoint3<T>& origin, const GeVector3<T>& direction, const Interval<T>& range,
        std::uint32_t* indices ) const;
    /// The indices of the boxes for which box.classify( that box ) is not OUTSIDE: boxes that touch count. Returns
    /// their number.
    std::size_t findOverlapping( const GeAlignedBox3<T>& box, std::uint32_t* indices ) const;

    /// The box nearest to a point, by the square of the distance, which is 0 within a box: (x x + y y) + z z of the
    /// first vector that computeMinMaxDistanceVectors() gives. Among equally near ones it is the first of the array.
    /// Boxes that are inverted on any axis, or have a NaN bound, are passed over. False, with both as they were, when
    /// there is no other box, or a coordinate is NaN.
    bool findNearest( const GePoint3<T>& point, std::uint32_t& index, T& squaredDistance ) const;
    /// @}

private:
    /// A box that no node can hold.
    struct Irregular
    {
        std::uint32_t index;
        GeAlignedBox3<T> box;
    };

    void allocate( std::size_t count );
    void sortBoxes( const GeAlignedBox3<T>* boxes, TaskRunner* runner );
    /// Takes the bounds of all boxes, and works out those of the nodes.
    void fill( const GeAlignedBox3<T>* boxes, TaskRunner* runner );
    Detail::BoxTreeLevels<T> getLevels() const;

    std::size_t _nbBoxes;
    std::unique_ptr<std::uint32_t[]> _order;        // which box of the array stands where
    std::unique_ptr<Detail::BoxBlock<T>[]> _blocks; // all levels, the boxes first
    std::vector<Irregular> _irregular;              // in the order of the array
};

} // namespace Zq

#include "geAlignedBoxTree.inline"

namespace Zq
{

extern template class GeAlignedBoxTree<float>;
extern template class GeAlignedBoxTree<double>;

} // namespace Zq

#endif
