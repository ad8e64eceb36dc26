#include "support/bits.h"
#include "support/report.h"

#include <zq/interop/threadTaskRunner.h>
#include <zq/primitives/geAlignedBoxTree.h>

#include <stdexcept>

namespace
{

using ZqTest::infinity;
using ZqTest::nan;

ZQ_TWIN_SUITE( AlignedBoxTree );

/// A camera at the origin that looks along -z, from 1 to 50 deep.
template <class T>
GeViewVolume<T> makeView()
{
    GeProjectiveMatrix3<T> matrix;
    matrix( 2, 2 ) = T( -50.0 / 49.0 );
    matrix( 2, 3 ) = T( -50.0 / 49.0 );
    matrix( 3, 2 ) = -1;
    matrix( 3, 3 ) = 0;
    return GeViewVolume<T>( matrix, GeDepthRange::ZERO_TO_ONE );
}

enum Scene
{
    SPREAD,    // over a block
    CLUSTERED, // in heaps of very different sizes
    EQUAL,     // all the same
    ODD,       // inverted, NaN, infinite and huge ones among others
    ALL_ODD,   // nothing for a node
    NB_SCENES
};

template <class T>
std::vector<GeAlignedBox3<T>> makeScene( Random& random, Scene scene, std::size_t count )
{
    std::vector<GeAlignedBox3<T>> boxes;
    for ( std::size_t i = 0; i < count; ++i )
    {
        const GePoint3<T> center = random.point( T( 60 ) );
        const T half = random.uniform( T( 0 ), T( 2 ) );
        const GeVector3<T> size( half, half / 2, half );
        GeAlignedBox3<T> box( center - size, center + size );
        if ( scene == CLUSTERED )
        {
            const T scale = std::pow( T( 10 ), T( -random.index( 12 ) ) );
            const T place = scale * T( random.index( 3 ) );
            box = GeAlignedBox3<T>( GePoint3<T>( place + scale * center[0] / 500, scale * center[1] / 500, -3 ) );
        }
        if ( scene == EQUAL )
            box = GeAlignedBox3<T>( GePoint3<T>( -1, -1, -5 ), GePoint3<T>( 1, 1, -4 ) );
        if ( scene == ALL_ODD || ( scene == ODD && random.index( 4 ) == 0 ) )
        {
            const auto odd = ZqTest::anyNumber<T>( random, 1 );
            const int axis = random.index( 3 );
            box.setInterval( axis, random.index( 2 ) == 0 ? Interval<T>( 3, -3 ) : Interval<T>( -1, odd ) );
            if ( scene == ALL_ODD )
                box.setInterval(
                    ( axis + 1 ) % 3, Interval<T>( random.index( 2 ) == 0 ? -infinity<T> : nan<T>, T( 4 ) ) );
        }
        boxes.push_back( box );
    }
    return boxes;
}

/// Every query gives what asking box by box gives.
template <class T>
void expectAsFlat( Random& random, const GeAlignedBoxTree<T>& tree, const std::vector<GeAlignedBox3<T>>& boxes,
    TaskRunner* runner = nullptr )
{
    using Box = GeAlignedBox3<T>;
    const std::size_t count = boxes.size();
    ASSERT_EQ( tree.getNbBoxes(), count );
    const auto view = makeView<T>();
    const GeViewVolume<T> parts[] = { view.computePart( T( -0.1 ), T( 0.2 ), T( -0.3 ), T( 0.1 ), 0, 1 ),
        view.computePart( T( 0.1 ), T( 0.3 ), T( -0.5 ), T( 0 ), 0, 1 ) };
    const GeViewVolume<T> views[] = { view, parts[0], GeViewVolume<T>::makeUnion( parts, 2 ),
        GeViewVolume<T>::makeUnion( nullptr, 0 ),
        GeViewVolume<T>( GeProjectiveMatrix3<T>(), GeDepthRange::ONE_TO_ZERO ) };
    std::vector<std::uint32_t> indices( count ), expected;
    const auto expectIndices = [&]( std::size_t found, const auto& meets )
    {
        expected.clear();
        for ( std::size_t i = 0; i < count; ++i )
            if ( meets( boxes[i] ) )
                expected.push_back( static_cast<std::uint32_t>( i ) );
        indices.resize( found );
        EXPECT_EQ( indices, expected );
        indices.resize( count );
    };
    for ( const GeViewVolume<T>& volume : views )
    {
        std::vector<unsigned char> verdicts( count ), flat( count );
        tree.classify( volume, verdicts.data(), runner );
        volume.classify( boxes.data(), count, flat.data() );
        EXPECT_EQ( verdicts, flat );
        expectIndices( tree.findNotOutside( volume, indices.data(), runner ),
            [&]( const Box& box ) { return volume.classify( box ) != GeViewVolume<T>::VIEW_OUTSIDE; } );
    }
    for ( const auto run : random.runs( 8 ) )
    {
        GePoint3<T> p = run == 0 && count != 0 ? boxes[count / 2].getCorner( 0 ) : random.point( T( 70 ) );
        GeVector3<T> d = random.vector( T( 1 ) );
        d[2] = run == 1 ? std::numeric_limits<T>::denorm_min() : run == 2 ? T( 0 ) : d[2];
        d[0] = run == 3 ? nan<T> : run == 4 ? infinity<T> : d[0];
        p[1] = run == 5 ? infinity<T> : p[1];
        const Interval<T> ray( 0, run == 6 ? T( 40 ) : std::numeric_limits<T>::max() );
        expectIndices( tree.findAlongLine( p, d, ray, indices.data() ),
            [&]( const Box& box ) { return box.intersectLine( p, d ).intersect( ray ).isNotEmpty(); } );
        const Box around( p, p + d * T( 20 ) );
        expectIndices( tree.findOverlapping( around, indices.data() ),
            [&]( const Box& box ) { return around.classify( box ) != Interval<T>::OUTSIDE; } );

        constexpr std::uint32_t none = 0xFFFFFFFF;
        std::uint32_t nearest = none;
        T least = infinity<T>, distance = -1;
        for ( auto i = static_cast<std::uint32_t>( count ); i-- > 0; ) // the first of equally near ones
        {
            const auto b = ZqTest::numbersOf<T>( boxes[i] );
            GeVector3<T> low, high;
            boxes[i].computeMinMaxDistanceVectors( p, low, high );
            const T square = ( low[0] * low[0] + low[1] * low[1] ) + low[2] * low[2];
            if ( b[0] <= b[1] && b[2] <= b[3] && b[4] <= b[5] && square <= least && p.isEqualExact( p ) ) // not NaN
            {
                nearest = i;
                least = square;
            }
        }
        std::uint32_t index = none;
        EXPECT_EQ( tree.findNearest( p, index, distance ), nearest != none );
        EXPECT_EQ( index, nearest );
        EXPECT_EQ( distance, nearest == none ? T( -1 ) : least );
    }
}

ZQ_TWIN_TEST( AlignedBoxTree, AnswersAsTheSingleCalls )
{
    Random random( 1 );
    for ( int scene = 0; scene < NB_SCENES; ++scene )
        for ( const std::size_t count : std::initializer_list<std::size_t>{ 0, 1, 2, 16, 17, 33, 257, 3000, 5000 } )
        {
            SCOPED_TRACE( testing::Message() << "scene " << scene << ", " << count << " boxes" );
            const auto boxes = makeScene<T>( random, static_cast<Scene>( scene ), count );
            GeAlignedBoxTree<T> tree;
            tree.build( boxes.data(), count );
            expectAsFlat( random, tree, boxes );
        }
}

// The infinite direction times nothing is no limit, for some of the boxes: a node of others must not hide them.
ZQ_TWIN_TEST( AlignedBoxTree, FollowsInfiniteLines )
{
    const T largest = std::numeric_limits<T>::max();
    std::vector<GeAlignedBox3<T>> boxes;
    for ( int i = 0; i < 32; ++i )
    {
        const T x = i < 15 ? -largest : largest * T( 0.9 );
        boxes.emplace_back( GePoint3<T>( x, -2, 0 ), GePoint3<T>( x, -1, 0 ) );
    }
    GeAlignedBoxTree<T> tree;
    tree.build( boxes.data(), boxes.size() );
    std::uint32_t indices[32];
    EXPECT_EQ( tree.findAlongLine( GePoint3<T>( -largest, 0, 0 ), { infinity<T>, 1, 0 }, { -9, 9 }, indices ), 17U );
}

ZQ_TWIN_TEST( AlignedBoxTree, TakesMovedBoxes )
{
    Random random( 2 );
    GeAlignedBoxTree<T> tree;
    const auto before = makeScene<T>( random, ODD, 700 );
    tree.build( before.data(), 700 );
    for ( const Scene scene : { SPREAD, ODD, ALL_ODD, SPREAD } )
    {
        const auto boxes = makeScene<T>( random, scene, 700 );
        tree.refit( boxes.data(), 700 );
        expectAsFlat( random, tree, boxes );
    }
    GeAlignedBoxTree<T> other = std::move( tree );
    EXPECT_EQ( tree.getNbBoxes(), 0U ); // NOLINT(bugprone-use-after-move)
    expectAsFlat( random, tree, {} );
    EXPECT_EQ( other.getNbBoxes(), 700U );
}

/// Runs tasks from the last to the first, and throws in one of its runs.
class Backwards : public TaskRunner
{
public:
    void run( std::size_t count, void ( *task )( void*, std::size_t ), void* context ) override
    {
        if ( nbRunsLeft-- == 0 )
            throw std::runtime_error( "no threads" );
        while ( count-- > 0 )
            task( context, count );
    }
    int nbRunsLeft = 1000;
};

ZQ_TWIN_TEST( AlignedBoxTree, DoesNotDependOnThreads )
{
    Random random( 3 );
    const std::size_t count = 70000;
    const auto boxes = makeScene<T>( random, ODD, count );
    Backwards backwards;
    ThreadTaskRunner threads( 4 );
    for ( TaskRunner* runner : { static_cast<TaskRunner*>( &backwards ), static_cast<TaskRunner*>( &threads ) } )
    {
        GeAlignedBoxTree<T> tree;
        tree.build( boxes.data(), count, runner );
        expectAsFlat( random, tree, boxes, runner );
        tree.refit( boxes.data(), count, runner );
        expectAsFlat( random, tree, boxes, runner );
    }
}

ZQ_TWIN_TEST( AlignedBoxTree, OutlivesRunnersThatFail )
{
    Random random( 4 );
    const auto boxes = makeScene<T>( random, SPREAD, 40000 );
    const auto few = makeScene<T>( random, SPREAD, 40 );
    GeAlignedBoxTree<T> tree;
    for ( int nbRuns = 0; nbRuns < 5; ++nbRuns )
    {
        tree.build( few.data(), few.size() );
        Backwards runner;
        runner.nbRunsLeft = nbRuns;
        EXPECT_THROW( tree.build( boxes.data(), boxes.size(), &runner ), std::runtime_error );
        expectAsFlat( random, tree, few );
    }
    tree.build( boxes.data(), boxes.size() );
    Backwards runner;
    runner.nbRunsLeft = 0;
    EXPECT_THROW( tree.refit( boxes.data(), boxes.size(), &runner ), std::runtime_error );
    EXPECT_EQ( tree.getNbBoxes(), 0U );
}

} // namespace
