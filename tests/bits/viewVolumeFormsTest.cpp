// The array forms of view volumes, and the queries of trees, against the calls for single boxes at each level of
// instructions.

#include "levels.h"

#include <zq/primitives/geViewVolume.h>
#include <zq/primitives/kernels/geAlignedBoxTreeKernels.h>
#include <zq/primitives/kernels/geViewVolumeKernels.h>

using namespace ZqTest;

namespace
{

/// The slab between -2 and 2 on every axis, turned a little; at times with odd numbers, a union, or without planes.
template <class T>
GeViewVolume<T> makeVolume( Random& random, int run )
{
    const auto makeOne = [&]( bool isOdd )
    {
        GeProjectiveMatrix3<T> matrix;
        for ( int i = 0; i < 12; ++i )
        {
            const T odd = anyNumber<T>( random, 4 );
            matrix( i / 4, i % 4 ) = ( i % 5 == 0 ? T( 0.5 ) : T( 0 ) ) + random.uniform( T( -0.1 ), T( 0.1 ) );
            if ( isOdd && random.index( 8 ) == 0 && std::isfinite( odd ) )
                matrix( i / 4, i % 4 ) = odd;
        }
        for ( int i = 0; i < 3; ++i )
            matrix( 3, i ) = random.uniform( T( -0.05 ), T( 0.05 ) );
        return GeViewVolume<T>( matrix, run % 2 ? GeDepthRange::ZERO_TO_ONE : GeDepthRange::MINUS_ONE_TO_ONE );
    };
    if ( run % 25 == 9 ) // everything is inside, but for what is not a number
    {
        GeProjectiveMatrix3<T> zero;
        for ( int i = 0; i < 4; ++i )
            zero( i, i ) = 0;
        return GeViewVolume<T>( zero, GeDepthRange::ZERO_TO_ONE );
    }
    if ( run % 5 != 4 )
        return makeOne( run % 3 == 0 );
    // the planes of two views, of which they share some or none; the hull of three; nothing
    const GeViewVolume<T> whole = makeOne( false );
    const GeViewVolume<T> parts[] = { whole.computePart( -1, T( 0.25 ), -1, T( 0.5 ), 0, 1 ),
        run % 2 ? whole.computePart( T( -0.5 ), 1, -1, 1, 0, 1 ) : makeOne( run % 3 == 0 ), makeOne( false ) };
    return GeViewVolume<T>::makeUnion( parts, run % 25 == 24 ? 0 : run % 25 == 14 ? 3 : 2 );
}

/// What the class hands to its kernels.
template <class T>
Detail::VolumePlanes<T> gatherPlanes( const GeViewVolume<T>& volume )
{
    T rows[9][std::size_t( GeViewVolume<T>::NB_MAX_PLANES )];
    std::memcpy( rows, &volume, sizeof rows );
    Detail::VolumePlanes<T> planes = {};
    for ( int i = 0; i < volume.getNbPlanes(); ++i )
    {
        for ( int kind = volume.getView( i ) + 1; kind < 3; ++kind )
            planes.ends[kind] = i + 1;
        planes.planes[i] = { rows[0][i], rows[1][i], rows[2][i], rows[3][i], rows[4][i], rows[5][i], rows[6][i],
            rows[0][i] > 0 ? 0 : 1, rows[1][i] > 0 ? 2 : 3, rows[2][i] > 0 ? 4 : 5 };
    }
    return planes;
}

/// A bound of the box goes to where the value of a plane is its error, give or take some units in the last place: there
/// the order of the sums tells.
template <class T>
void moveToThreshold( Random& random, const Detail::VolumePlanes<T>& planes, GeAlignedBox3<T>& box )
{
    if ( planes.ends[2] == 0 )
        return;
    const Detail::VolumePlane<T>& p = planes.planes[random.index( planes.ends[2] )];
    const GeVector3<T> n( p.x, p.y, p.z );
    const bool isNear = random.index( 2 ) == 0;
    const GePoint3<T> corner = isNear ? box.getNearCorner( n ) : box.getFarCorner( n );
    const int axis = random.index( 3 );
    const T error = p.errorSlope * T( 4 ) + p.errorConstant;
    const T value = n.dot( corner - GePoint3<T>() ) + p.d + ( isNear ? -error : error );
    T bound = corner[axis] - value / n[axis];
    for ( int i = random.index( 7 ); i > 3; --i )
        bound = std::nextafter( bound, random.index( 2 ) == 0 ? T( 9 ) : T( -9 ) );
    Interval<T> interval = box.getInterval( axis );
    ( ( n[axis] > 0 ) == isNear ? interval.min : interval.max ) = bound;
    box.setInterval( axis, interval );
}

template <class T>
auto boxMaker( const Detail::VolumePlanes<T>& planes )
{
    return [&planes]( Random& random )
    {
        auto box = makeRecord<T, GeAlignedBox3<T>>( random );
        if ( random.index( 2 ) == 0 )
            moveToThreshold( random, planes, box );
        return box;
    };
}

ZQ_TWIN_SUITE( ViewVolumeForms );

ZQ_TWIN_TEST( ViewVolumeForms, EqualSingleCalls )
{
    using Box = GeAlignedBox3<T>;
    Verdicts seen{};
    const auto check = [&]( const auto& kernels, Random& random, int run )
    {
        const GeViewVolume<T> volume = makeVolume<T>( random, run );
        const Detail::VolumePlanes<T> planes = gatherPlanes( volume );
        const auto compare = [&]( const auto& make, const auto& form, const auto& plain )
        {
            expectSameArray<T>(
                random, 60, make, [&]( auto... items ) { form( planes, items... ); }, plain, &seen );
        };
        const auto classify = [&]( const auto& item ) { return volume.classify( item ); };
        const auto makeBox = boxMaker( planes );
        compare( makeBox, kernels.classifyBoxes, classify );
        compare( [&]( Random& ) { return makeBox( random ).getCorner( random.index( 8 ) ); }, kernels.classifyPoints,
            classify );
        compare( makeRecord<T, GeSphere3<T>>, kernels.classifySpheres, classify );
        compare( makeBox, kernels.findSeparatingPlanes,
            [&]( const Box& box ) { return static_cast<unsigned char>( volume.findSeparatingPlane( box ) ); } );
    };
    forEachLevel<Detail::GeViewVolumeKernels<T>>( 300, check );
    EXPECT_GT( *std::min_element( seen.begin() + 1, seen.end() ), 3000 );
}

/// A value that is its error is not proved.
ZQ_TWIN_TEST( ViewVolumeForms, TiesAreNotDecided )
{
    Detail::VolumePlanes<T> planes = {};
    std::fill_n( planes.ends, 3, 1 );
    planes.planes[0] = { 1, 0, 0, 0, 0, T( 0.5 ), 1, 0, 3, 5 };
    const T above = std::nextafter( T( 0.5 ), T( 1 ) );
    const auto check = [&]( const auto& kernels, Random&, int )
    {
        const T lowest[] = { above, T( 0.5 ), -1, -1 };
        const T highest[] = { 1, 1, T( -0.5 ), -above };
        const int expected[] = { 2, 3, 3, 1 };
        for ( int i = 0; i < 4; ++i )
        {
            const GeAlignedBox3<T> box( GePoint3<T>( lowest[i], 0, 0 ), GePoint3<T>( highest[i], 0, 0 ) );
            unsigned char verdict = 0;
            kernels.classifyBoxes( planes, &box, 1, &verdict );
            EXPECT_EQ( int( verdict ), expected[i] ) << box;
        }
    };
    forEachLevel<Detail::GeViewVolumeKernels<T>>( 1, check );
}

/// Levels as a tree has them, of boxes in a given order; those that no node can hold are made inverted.
template <class T>
struct Levels
{
    std::vector<Detail::BoxBlock<T>> blocks[3];
    std::vector<std::uint32_t> order;
    Detail::BoxTreeLevels<T> levels = {};

    explicit Levels( const std::vector<GeAlignedBox3<T>>& boxes )
    {
        for ( std::size_t i = boxes.size(); i-- > 0; )
            order.push_back( static_cast<std::uint32_t>( i ) );
        std::vector<GeAlignedBox3<T>> level;
        for ( const std::uint32_t i : order )
            level.push_back( boxes[i] );
        for ( auto& to : blocks )
        {
            std::vector<GeAlignedBox3<T>> above( level.size() / 16 + ( level.size() % 16 != 0 ) );
            to.resize( above.size() );
            for ( std::size_t i = 0; i < level.size(); ++i )
            {
                above[i / 16].extend( level[i] );
                for ( std::size_t field = 0; field < 6; ++field )
                    to[i / 16].bounds[field][i % 16] = numbersOf<T>( level[i] )[field];
            }
            levels.levels[levels.count++] = to.data();
            if ( level.size() <= 16 )
                break;
            level = above;
        }
        levels.nbBoxes = boxes.size();
        levels.order = order.data();
    }
};

/// Bounds are numbers in order, and finite.
template <class T>
bool isRegular( const GeAlignedBox3<T>& box )
{
    const auto b = numbersOf<T>( box );
    return b[0] <= b[1] && b[2] <= b[3] && b[4] <= b[5] &&
        std::all_of( b.begin(), b.end(), []( T x ) { return std::isfinite( x ); } );
}

/// The bits that find( bits ) sets are those of the boxes for which meets( box ).
template <class Box, class Find, class Meets>
void expectBits( const std::vector<Box>& boxes, const Find& find, const Meets& meets )
{
    std::vector<std::uint32_t> bits( boxes.size() / 32 + 1 );
    find( bits.data() );
    for ( std::size_t i = 0; i < boxes.size(); ++i )
        EXPECT_EQ( ( bits[i / 32] >> i % 32 & 1 ) != 0, meets( boxes[i] ) ) << i << ": " << boxes[i];
}

ZQ_TWIN_TEST( ViewVolumeForms, TreesEqualSingleCalls )
{
    using Box = GeAlignedBox3<T>;
    const auto check = []( const auto& kernels, Random& random, int run )
    {
        const GeViewVolume<T> volume = makeVolume<T>( random, run );
        const Detail::VolumePlanes<T> planes = gatherPlanes( volume );
        std::vector<Box> boxes( 1 + static_cast<std::size_t>( random.index( run % 4 == 0 ? 1000 : 60 ) ) );
        for ( Box& box : boxes )
            do
                box = boxMaker( planes )( random );
            while ( !isRegular( box ) );
        const Levels<T> tree( boxes );
        const auto& levels = tree.levels;

        std::vector<unsigned char> verdicts( boxes.size(), 1 );
        kernels.classify( levels, planes, levels.count - 1, 0, verdicts.data() );
        for ( std::size_t i = 0; i < boxes.size(); ++i )
            EXPECT_EQ( int( verdicts[i] ), int( volume.classify( boxes[i] ) ) ) << i << ": " << boxes[i];
        expectBits(
            boxes, [&]( auto* bits ) { kernels.findNotOutside( levels, planes, bits ); },
            [&]( const Box& box ) { return volume.classify( box ) != 1; } );

        const auto o = makeRecord<T, GePoint3<T>>( random );
        const auto d = makeRecord<T, GeVector3<T>>( random );
        const Interval<T> range( random.uniform( T( -9 ), T( 1 ) ), random.uniform( T( 0 ), T( 9 ) ) );
        const Detail::BoxTreeLine<T> line = { { o[0], o[1], o[2] }, { d[0], d[1], d[2] }, range };
        expectBits(
            boxes, [&]( auto* bits ) { kernels.findAlongLine( levels, line, bits ); },
            [&]( const Box& box ) { return box.intersectLine( o, d ).intersect( range ).isNotEmpty(); } );

        const auto tested = makeRecord<T, Box>( random );
        T bounds[6];
        std::memcpy( bounds, &tested, sizeof bounds );
        expectBits(
            boxes, [&]( auto* bits ) { kernels.findOverlapping( levels, bounds, bits ); },
            [&]( const Box& box ) { return tested.classify( box ) != Interval<T>::OUTSIDE; } );

        const T point[3] = { o[0], o[1], o[2] };
        Detail::BoxTreeNearest<T> nearest = { infinity<T>, 0xFFFFFFFF };
        Detail::BoxTreeNearest<T> expected = nearest;
        for ( std::uint32_t i = 0; i < boxes.size(); ++i )
        {
            GeVector3<T> least, most;
            boxes[i].computeMinMaxDistanceVectors( o, least, most );
            expected.take( ( least[0] * least[0] + least[1] * least[1] ) + least[2] * least[2], i );
        }
        if ( o.isEqualExact( o ) ) // not NaN
        {
            kernels.findNearest( levels, point, nearest );
            EXPECT_EQ( nearest.index, expected.index );
            EXPECT_EQ( nearest.squaredDistance, expected.squaredDistance );
        }
    };
    forEachLevel<Detail::GeAlignedBoxTreeKernels<T>>( 100, check );
}

} // namespace
