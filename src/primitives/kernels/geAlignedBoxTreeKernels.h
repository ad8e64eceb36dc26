#ifndef ZQ_PRIMITIVES_KERNELS_GEALIGNEDBOXTREEKERNELS_H
#define ZQ_PRIMITIVES_KERNELS_GEALIGNEDBOXTREEKERNELS_H

#include "../../base/lanes/kernelLevel.h"
#include "../export.h"
#include "../geAlignedBoxTree.h"
#include "geViewVolumeKernels.h"

#include <cstddef>
#include <cstdint>

namespace Zq
{

namespace Detail
{

/// The number of the lowest bit that is set; one is.
inline std::uint32_t findLowestBit( std::uint64_t bits )
{
#if defined( __GNUC__ )
    return static_cast<std::uint32_t>( __builtin_ctzll( bits ) );
#else
    std::uint32_t i = 0;
    while ( ( bits >> i & 1 ) == 0 )
        ++i;
    return i;
#endif
}

/// The levels of a tree. The boxes of level 0 are those of the array, in the order of the tree; box i of the next level
/// holds boxes 16 i to 16 i + 15 of this one. The last level has one block. Bounds in a block are numbers and finite.
template <class T>
struct BoxTreeLevels
{
    const BoxBlock<T>* levels[BOX_TREE_MAX_LEVELS];
    int count;
    std::size_t nbBoxes;
    const std::uint32_t* order; // which box of the array stands where
};

/// A line, and the part of it that counts.
template <class T>
struct BoxTreeLine
{
    T origin[3];
    T direction[3];
    Interval<T> range;
};

/// What was found nearest so far.
template <class T>
struct BoxTreeNearest
{
    T squaredDistance;
    std::uint32_t index;

    /// Of boxes that are equally near the first in the array counts.
    void take( T distance, std::uint32_t box )
    {
        if ( distance < squaredDistance || ( distance == squaredDistance && box < index ) )
        {
            squaredDistance = distance;
            index = box;
        }
    }
};

/// The queries of GeAlignedBoxTree at one level of instructions, as findKernels() gives them. Bit i of `bits` is that
/// of box i of the array. Internal: the tests reach each level through it.
template <class T>
struct ZQ_PRIMITIVES_API GeAlignedBoxTreeKernels
{
    /// What lies below a block that is not outside; other verdicts stay.
    void ( *classify )( const BoxTreeLevels<T>& tree, const VolumePlanes<T>& volume, int level, std::size_t block,
        unsigned char* verdicts );
    void ( *findNotOutside )( const BoxTreeLevels<T>& tree, const VolumePlanes<T>& volume, std::uint32_t* bits );
    void ( *findAlongLine )( const BoxTreeLevels<T>& tree, const BoxTreeLine<T>& line, std::uint32_t* bits );
    void ( *findOverlapping )( const BoxTreeLevels<T>& tree, const T ( &bounds )[6], std::uint32_t* bits );
    void ( *findNearest )( const BoxTreeLevels<T>& tree, const T ( &point )[3], BoxTreeNearest<T>& nearest );

    static const GeAlignedBoxTreeKernels* const byLevel[NB_KERNEL_LEVELS];
};

extern template struct GeAlignedBoxTreeKernels<float>;
extern template struct GeAlignedBoxTreeKernels<double>;

} // namespace Detail

} // namespace Zq

#endif
