// Boxes and spheres against a view volume, whose verdicts are proved, and a tree over boxes. The frustum that the
// library has, and what users of vector libraries write, stand beside it.

#include "rows.h"
#include "scene.h"

#include <zq/interop/threadTaskRunner.h>
#include <zq/primitives/geAlignedBoxTree.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geViewVolume.h>

#ifdef ZQ_BENCHMARK_PEERS
#    include <Eigen/Geometry>
#    include <glm/glm.hpp>
#endif

namespace ZqBench
{

namespace
{

using Box = Zq::GeAlignedBox3<float>;
using Point = Zq::GePoint3<float>;
using Sphere = Zq::GeSphere3<float>;
using Volume = Zq::GeViewVolume<float>;
using Tree = Zq::GeAlignedBoxTree<float>;

constexpr std::size_t SMALL = 100000;
constexpr std::size_t MANY = std::size_t( 1 ) << 20;

Volume makeVolume()
{
    return { makeClipMatrix(), Zq::GeDepthRange::MINUS_ONE_TO_ONE };
}

std::vector<Box> makeBoxes( std::size_t count )
{
    return makeBoxesAbout( makeVolume(), Volume::VIEW_OUTSIDE, count );
}

std::vector<Sphere> makeSpheres( std::size_t count )
{
    Random random( 2 );
    const Volume volume = makeVolume();
    const auto make = [&]
    {
        const Point center = makePoint( random );
        return Sphere( center, makeLength( random, 0.1F, 30.0F ) );
    };
    return makeBalanced(
        count, 3, random, make, [&]( const Sphere& s ) { return volume.classify( s ) - Volume::VIEW_OUTSIDE; } );
}

/// A town of blocks on a square of about ten kilometres, its buildings in random order.
std::vector<Box> makeTown( std::size_t count )
{
    Random random( 3 );
    const auto width = static_cast<std::size_t>( std::sqrt( static_cast<double>( count ) ) );
    std::vector<Box> town;
    town.reserve( count );
    for ( std::size_t i = 0; i < count; ++i )
    {
        const std::size_t row = i / width;
        const float x = static_cast<float>( i % width ) * 10 + random.uniform( 0.0F, 2.0F );
        const float y = static_cast<float>( row ) * 10 + random.uniform( 0.0F, 2.0F );
        const float height = makeLength( random, 2, 100 );
        town.emplace_back( Point( x, y, 0 ), Point( x + 7, y + 7, height ) );
    }
    shuffle( town, random );
    return town;
}

/// From 60 metres above the town; a tenth of it is in view.
Volume makeTownView()
{
    Zq::GeLinearMatrix3<float> upright;
    Zq::GeQuaternion3<float>::makeRotation( { 1, 0, 0 }, 1.5F ).getMatrix( upright );
    Zq::GeLinearMatrix3<float> turned;
    Zq::GeQuaternion3<float>::makeRotation( { 0, 0, 1 }, -0.8F ).getMatrix( turned );
    const Zq::GeAffineMatrix3<float> toWorld( turned * upright, { 1500, 1500, 60 } );
    return { Zq::GeCameraBuilder<float>::makePerspective( 0.8F, 1, 4600, 16.0F / 9.0F ) * toWorld.computeInverse(),
        Zq::GeDepthRange::MINUS_ONE_TO_ONE };
}

constexpr auto getBoxes = getShared<Box, makeBoxes>;
constexpr auto getSpheres = getShared<Sphere, makeSpheres>;
constexpr auto getTown = getShared<Box, makeTown>;

const Tree& getTownTree()
{
    static const Tree* const tree = []
    {
        Tree* const built = new Tree; // kept to the end of the program
        built->build( getTown( MANY ).data(), MANY );
        return built;
    }();
    return *tree;
}

Zq::TaskRunner* getTwoThreads()
{
    static Zq::TaskRunner* const runner = new Zq::ThreadTaskRunner( 2 ); // likewise
    return runner;
}

void addOwnRows()
{
    const Volume volume = makeVolume();
    const Zq::GeFrustum<float> frustum( makeClipMatrix() );
    const auto classify = [=]( const auto& item ) { return static_cast<unsigned char>( volume.classify( item ) ); };
    const auto classifyAll = [=]( const auto* items, std::size_t count, unsigned char* verdicts )
    { volume.classify( items, count, verdicts ); };
    addSingles( { "viewBox", "ours", SMALL }, getBoxes, classify );
    addSingles( { "viewBox", "frustum", SMALL }, getBoxes,
        [=]( const Box& box ) { return static_cast<unsigned char>( frustum.classify( box ) ); } );
    addSingles( { "viewSphere", "ours", SMALL }, getSpheres, classify );
    addArray<unsigned char>( { "viewBoxArray", "ours", SMALL }, getBoxes, classifyAll );
    addArray<unsigned char>( { "viewBoxArray", "frustum", SMALL }, getBoxes,
        [=]( const Box* boxes, std::size_t count, unsigned char* verdicts )
        { frustum.classify( boxes, count, verdicts ); } );
    addArray<unsigned char>( { "viewSphereArray", "ours", SMALL }, getSpheres, classifyAll );
    addFloor( "viewBoxArray", SMALL, getBoxes );
    addFloor( "viewSphereArray", SMALL, getSpheres );
}

void addTreeRows()
{
    const Volume view = makeTownView();
    addArray<unsigned char>( { "treeClassify", "ours", MANY }, getTown,
        [=]( const Box*, std::size_t, unsigned char* verdicts ) { getTownTree().classify( view, verdicts ); } );
    addArray<unsigned char>( { "treeClassify", "twoThreads", MANY }, getTown,
        [=]( const Box*, std::size_t, unsigned char* verdicts )
        { getTownTree().classify( view, verdicts, getTwoThreads() ); } );
    addArray<unsigned char>( { "treeClassify", "flat", MANY }, getTown,
        [=]( const Box* boxes, std::size_t count, unsigned char* verdicts )
        { view.classify( boxes, count, verdicts ); } );

    const auto indices = std::make_shared<std::vector<std::uint32_t>>( MANY );
    addReduction( { "treeNotOutside", "ours", MANY }, getTown,
        [=]( const Box*, std::size_t ) { return getTownTree().findNotOutside( view, indices->data() ); } );
    addReduction( { "treeNotOutside", "flat", MANY }, getTown,
        [=]( const Box* boxes, std::size_t count ) { return view.findNotOutside( boxes, count, indices->data() ); } );

    for ( const bool hasThreads : { false, true } )
    {
        const char* const contender = hasThreads ? "twoThreads" : "ours";
        Zq::TaskRunner* const runner = hasThreads ? getTwoThreads() : nullptr;
        const auto tree = std::make_shared<Tree>();
        addReduction( { "treeBuild", contender, MANY }, getTown,
            [=]( const Box* boxes, std::size_t count )
            {
                tree->build( boxes, count, runner );
                return tree->getNbBoxes();
            } );
        addReduction( { "treeRefit", contender, MANY }, getTown,
            [=]( const Box* boxes, std::size_t count )
            {
                if ( tree->getNbBoxes() != count )
                    tree->build( boxes, count, runner );
                tree->refit( boxes, count, runner );
                return tree->getNbBoxes();
            } );
    }
}

#ifdef ZQ_BENCHMARK_PEERS

/// Unit planes, the form that users of vector libraries write; what they call outside is not proved.
struct Planes
{
    float numbers[6][4];

    Planes()
    {
        const Zq::GeFrustum<float> frustum( makeClipMatrix() );
        for ( int i = 0; i < 6; ++i )
        {
            const Zq::GeNormalizedPlane3<float> plane = frustum.getPlane( i );
            for ( int axis = 0; axis < 3; ++axis )
                numbers[i][axis] = plane.getNormal()[axis];
            numbers[i][3] = plane.getOffset();
        }
    }
};

struct GlmSphere
{
    glm::vec3 center;
    float radius;
};

struct GlmPlanes : Planes
{
    unsigned char operator()( const GlmSphere& sphere ) const
    {
        bool isOutside = false;
        bool crosses = false;
        for ( const auto& p : numbers )
        {
            const float distance = glm::dot( glm::vec3( p[0], p[1], p[2] ), sphere.center ) + p[3];
            isOutside |= distance < -sphere.radius;
            crosses |= distance < sphere.radius;
        }
        return isOutside ? 1 : crosses ? 3 : 2;
    }
};

struct GlmEarlyOut : Planes
{
    unsigned char operator()( const GlmSphere& sphere ) const
    {
        unsigned char answer = 2;
        for ( const auto& p : numbers )
        {
            const float distance = glm::dot( glm::vec3( p[0], p[1], p[2] ), sphere.center ) + p[3];
            if ( distance < -sphere.radius )
                return 1;
            if ( distance < sphere.radius )
                answer = 3;
        }
        return answer;
    }
};

/// All planes at once, filled up to eight by planes that reject nothing.
struct EigenPlanes
{
    using Eight = Eigen::Array<float, 8, 1>;

    Eight rows[4] = { Eight::Zero(), Eight::Zero(), Eight::Zero(), Eight::Constant( 1e30F ) };

    EigenPlanes()
    {
        const Planes planes;
        for ( int row = 0; row < 4; ++row )
            for ( int i = 0; i < 6; ++i )
                rows[row][i] = planes.numbers[i][row];
    }

    unsigned char operator()( const Eigen::Vector4f& sphere ) const
    {
        const float least = ( rows[0] * sphere.x() + rows[1] * sphere.y() + rows[2] * sphere.z() + rows[3] ).minCoeff();
        return least < -sphere.w() ? 1 : least < sphere.w() ? 3 : 2;
    }
};

void addPeerRows()
{
    const auto glmSpheres = makeConverted( getSpheres,
        []( const Sphere& s ) {
            return GlmSphere{ convertTriple<glm::vec3>( s.getCenter() ), s.getRadius() };
        } );
    const auto eigenSpheres = makeConverted( getSpheres,
        []( const Sphere& s )
        {
            const Point& c = s.getCenter();
            return Eigen::Vector4f( c.getX(), c.getY(), c.getZ(), s.getRadius() );
        } );
    const auto addBoth = [&]( const char* contender, const auto& makeItems, const auto& operation )
    {
        addSingles( { "viewSphere", contender, SMALL }, makeItems, operation );
        addLoop( { "viewSphereArray", contender, SMALL }, makeItems, operation );
    };
    addBoth( "glm", glmSpheres, GlmEarlyOut() );
    addBoth( "glmBranchless", glmSpheres, GlmPlanes() );
    addBoth( "eigen", eigenSpheres, EigenPlanes() );
}

#endif

} // namespace

void addViewRows()
{
    addOwnRows();
    addTreeRows();
#ifdef ZQ_BENCHMARK_PEERS
    addPeerRows();
#endif
}

} // namespace ZqBench
