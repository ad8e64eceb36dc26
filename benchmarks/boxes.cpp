// Boxes: grown over points, against each other, and cut by a line.

#include "../tests/bits/plainRules.h"
#include "inputs.h"
#include "rows.h"

#include <zq/primitives/geAlignedBox.h>

#include <limits>

#ifdef ZQ_BENCHMARK_PEERS
#    include <BulletCollision/BroadphaseCollision/btDbvt.h>
#    include <Eigen/Geometry>
#    include <Imath/ImathBox.h>
#    include <Imath/ImathBoxAlgo.h>
#    include <LinearMath/btAabbUtil2.h>
#    include <cglm/cglm.h>
#    include <glm/glm.hpp>
#endif

namespace ZqBench
{

namespace
{

using Box = Zq::GeAlignedBox3<float>;
using Interval = Zq::Interval<float>;
using Point = Zq::GePoint3<float>;
using Vector = Zq::GeVector3<float>;

constexpr std::size_t SMALL = 100000;
constexpr std::size_t LARGE = 1000000;

std::vector<Point> makePoints( std::size_t count )
{
    Random random( 6 );
    std::vector<Point> points;
    for ( std::size_t i = 0; i < count; ++i )
        points.push_back( random.point( 100.0F ) );
    return points;
}

const Box REFERENCE( Point( -20, -15, -25 ), Point( 25, 20, 15 ) );

Box makeBox( Random& random, float reach )
{
    const Point center = random.point( reach );
    const float x = makeLength( random, 0.5F, 60.0F );
    const float y = makeLength( random, 0.5F, 60.0F );
    const float z = makeLength( random, 0.5F, 60.0F );
    const Vector half( x, y, z );
    return { center - half, center + half };
}

/// Outside of the reference box, around it, overlapping it, inside it: a quarter each.
std::vector<Box> makeBoxes( std::size_t count )
{
    Random random( 7 );
    return makeBalanced(
        count, 4, random, [&] { return makeBox( random, 60.0F ); },
        []( const Box& box ) { return REFERENCE.classify( box ); } );
}

struct Line
{
    Point origin;
    Vector direction;
};

const Line LINE{ Point( -90, -40, -70 ), Vector( 0.9F, 0.4F, 0.6F ) };

/// Half of them are met by the line.
std::vector<Box> makeTargets( std::size_t count )
{
    Random random( 8 );
    return makeBalanced(
        count, 2, random, [&] { return makeBox( random, 100.0F ); },
        []( const Box& box ) { return box.intersectLine( LINE.origin, LINE.direction ).isEmpty() ? 1 : 0; } );
}

struct BoxAndLine
{
    Box box;
    Line line;
};

/// Half of the lines meet their box.
std::vector<BoxAndLine> makePairs( std::size_t count )
{
    Random random( 9 );
    const auto make = [&]
    {
        const Box box = makeBox( random, 100.0F );
        const Point origin = random.point( 200.0F );
        const Vector aim = random.point( 100.0F ) - origin;
        return BoxAndLine{ box, { origin, aim.computeUnit() } };
    };
    return makeBalanced( count, 2, random, make,
        []( const BoxAndLine& pair )
        { return pair.box.intersectLine( pair.line.origin, pair.line.direction ).isEmpty() ? 1 : 0; } );
}

constexpr auto getPoints = getShared<Point, makePoints>;
constexpr auto getBoxes = getShared<Box, makeBoxes>;
constexpr auto getTargets = getShared<Box, makeTargets>;
constexpr auto getPairs = getShared<BoxAndLine, makePairs>;

/// Lower and upper corner, as most people store a box.
struct PlainBox
{
    float lower[3];
    float upper[3];
};

PlainBox makePlainBox( const Box& box )
{
    const Point lower = box.getCorner( 0 );
    const Point upper = box.getCorner( 7 );
    return { { lower.getX(), lower.getY(), lower.getZ() }, { upper.getX(), upper.getY(), upper.getZ() } };
}

PlainBox growPlain( const Point* points, std::size_t count )
{
    constexpr float largest = ( std::numeric_limits<float>::max )();
    PlainBox box{ { largest, largest, largest }, { -largest, -largest, -largest } };
    for ( std::size_t i = 0; i < count; ++i )
    {
        for ( int axis = 0; axis < 3; ++axis )
        {
            const float x = points[i][axis];
            if ( x < box.lower[axis] )
                box.lower[axis] = x;
            if ( box.upper[axis] < x )
                box.upper[axis] = x;
        }
    }
    return box;
}

/// What the reference box is to another: 0 outside, 1 inside, 2 overlap, 3 contain. With open boxes only true overlaps
/// count.
template <bool isExclude>
struct PlainClassify
{
    PlainBox reference = makePlainBox( REFERENCE );

    unsigned char operator()( const PlainBox& other ) const
    {
        bool isWithin = true;
        bool covers = true;
        for ( int axis = 0; axis < 3; ++axis )
        {
            const float lower = reference.lower[axis];
            const float upper = reference.upper[axis];
            if ( isExclude ? !( lower < other.upper[axis] && upper > other.lower[axis] )
                           : !( lower <= other.upper[axis] && upper >= other.lower[axis] ) )
                return Interval::OUTSIDE;
            isWithin = isWithin && lower >= other.lower[axis] && upper <= other.upper[axis];
            covers = covers && lower <= other.lower[axis] && upper >= other.upper[axis];
        }
        return isWithin ? Interval::INSIDE : covers ? Interval::CONTAIN : Interval::OVERLAP;
    }
};

struct PlainPair
{
    ZqPlain::Box<float> box;
    ZqPlain::Three<float> origin;
    ZqPlain::Three<float> direction;
};

PlainPair makePlainPair( const BoxAndLine& pair )
{
    return {
        numbersOf<float>( pair.box ), numbersOf<float>( pair.line.origin ), numbersOf<float>( pair.line.direction ) };
}

void addOwnRows()
{
    for ( const std::size_t count : { SMALL, LARGE } )
    {
        addReduction( { "boxGrowArray", "ours", count }, getPoints,
            []( const Point* points, std::size_t nbPoints ) { return Box().extend( points, nbPoints ); } );
        addReduction( { "boxGrowArray", "plain", count }, getPoints, growPlain );
        addFloor( "boxGrowArray", count, getPoints );
    }

    const auto plainBoxes = makeConverted( getBoxes, makePlainBox );
    addSingles( { "boxClassify", "ours", SMALL }, getBoxes,
        []( const Box& other ) { return static_cast<unsigned char>( REFERENCE.classify( other ) ); } );
    addArray<unsigned char>( { "boxClassifyArray", "ours", SMALL }, getBoxes,
        []( const Box* others, std::size_t count, unsigned char* verdicts )
        { REFERENCE.classify( others, count, verdicts ); } );
    addArray<unsigned char>( { "boxClassifyExcludeArray", "ours", SMALL }, getBoxes,
        []( const Box* others, std::size_t count, unsigned char* verdicts )
        { REFERENCE.classifyExclude( others, count, verdicts ); } );
    addSingles( { "boxClassify", "plain", SMALL }, plainBoxes, PlainClassify<false>() );
    addLoop( { "boxClassifyArray", "plain", SMALL }, plainBoxes, PlainClassify<false>() );
    addLoop( { "boxClassifyExcludeArray", "plain", SMALL }, plainBoxes, PlainClassify<true>() );
    addFloor( "boxClassifyArray", SMALL, getBoxes );
    addFloor( "boxClassifyExcludeArray", SMALL, getBoxes );

    addSingles( { "boxLine", "ours", BRANCHY_COUNT }, getPairs,
        []( const BoxAndLine& pair ) { return pair.box.intersectLine( pair.line.origin, pair.line.direction ); } );
    addSingles( { "boxLine", "plain", BRANCHY_COUNT }, makeConverted( getPairs, makePlainPair ),
        []( const PlainPair& pair ) { return ZqPlain::intersectBox( pair.box, pair.origin, pair.direction ); } );
    addArray<Interval>( { "boxLineArray", "ours", SMALL }, getTargets,
        []( const Box* boxes, std::size_t count, Interval* ranges )
        { Box::intersectLine( boxes, count, LINE.origin, LINE.direction, ranges ); } );
    addLoop( { "boxLineArray", "plain", SMALL }, makeConverted( getTargets, numbersOf<float, Box> ),
        [origin = numbersOf<float>( LINE.origin ), direction = numbersOf<float>( LINE.direction )](
            const ZqPlain::Box<float>& box ) { return ZqPlain::intersectBox( box, origin, direction ); } );
    addFloor( "boxLineArray", SMALL, getTargets );
}

#ifdef ZQ_BENCHMARK_PEERS

struct GlmBox
{
    glm::vec3 lower;
    glm::vec3 upper;
};

template <class Corner, class Converted>
Converted convertBox( const Box& box )
{
    return Converted{ convertTriple<Corner>( box.getCorner( 0 ) ), convertTriple<Corner>( box.getCorner( 7 ) ) };
}

struct CglmBox
{
    vec3 bounds[2];

    /// For C that knows no const.
    vec3* getBounds() const { return const_cast<CglmBox*>( this )->bounds; }
};

void addGrowRows( std::size_t count )
{
    addReduction( { "boxGrowArray", "glm", count }, makeConverted( getPoints, convertTriple<glm::vec3, Point> ),
        []( const glm::vec3* points, std::size_t nbPoints )
        {
            GlmBox box{ glm::vec3( ( std::numeric_limits<float>::max )() ),
                glm::vec3( -( std::numeric_limits<float>::max )() ) };
            for ( std::size_t i = 0; i < nbPoints; ++i )
            {
                box.lower = glm::min( box.lower, points[i] );
                box.upper = glm::max( box.upper, points[i] );
            }
            return box;
        } );
    const auto eigenPoints = makeConverted( getPoints, convertTriple<Eigen::Vector3f, Point> );
    addReduction( { "boxGrowArray", "eigen", count }, eigenPoints,
        []( const Eigen::Vector3f* points, std::size_t nbPoints )
        {
            Eigen::AlignedBox3f box;
            for ( std::size_t i = 0; i < nbPoints; ++i )
                box.extend( points[i] );
            return box;
        } );
    addReduction( { "boxGrowArray", "eigenMap", count }, eigenPoints,
        []( const Eigen::Vector3f* points, std::size_t nbPoints )
        {
            const Eigen::Map<const Eigen::Matrix3Xf> all( points->data(), 3, static_cast<Eigen::Index>( nbPoints ) );
            return Eigen::AlignedBox3f( all.rowwise().minCoeff(), all.rowwise().maxCoeff() );
        } );
    addReduction( { "boxGrowArray", "imath", count }, makeConverted( getPoints, convertTriple<Imath::V3f, Point> ),
        []( const Imath::V3f* points, std::size_t nbPoints )
        {
            Imath::Box3f box;
            for ( std::size_t i = 0; i < nbPoints; ++i )
                box.extendBy( points[i] );
            return box;
        } );
    addReduction( { "boxGrowArray", "bullet", count, Compare::NOTHING },
        makeConverted( getPoints, convertTriple<btVector3, Point> ),
        []( const btVector3* points, std::size_t nbPoints )
        {
            btVector3 lower = points[0];
            btVector3 upper = points[0];
            for ( std::size_t i = 1; i < nbPoints; ++i )
            {
                lower.setMin( points[i] );
                upper.setMax( points[i] );
            }
            return btDbvtVolume::FromMM( lower, upper );
        } );
}

/// Three questions make four answers.
template <class Meets, class Covers, class Other>
unsigned char ask( Meets meets, Covers covers, const Other& reference, const Other& other )
{
    if ( !meets( reference, other ) )
        return Interval::OUTSIDE;
    if ( covers( other, reference ) )
        return Interval::INSIDE;
    return covers( reference, other ) ? Interval::CONTAIN : Interval::OVERLAP;
}

template <class MakeItems, class Operation>
void addClassifyRows( const std::string& contender, MakeItems makeItems, Operation operation )
{
    addSingles( { "boxClassify", contender, SMALL }, makeItems, operation );
    addLoop( { "boxClassifyArray", contender, SMALL }, makeItems, operation );
}

void addClassifyRows()
{
    addClassifyRows( "eigen", makeConverted( getBoxes, convertBox<Eigen::Vector3f, Eigen::AlignedBox3f> ),
        [reference = convertBox<Eigen::Vector3f, Eigen::AlignedBox3f>( REFERENCE )]( const Eigen::AlignedBox3f& other )
        {
            using EigenBox = Eigen::AlignedBox3f;
            return ask( []( const EigenBox& a, const EigenBox& b ) { return a.intersects( b ); },
                []( const EigenBox& a, const EigenBox& b ) { return a.contains( b ); }, reference, other );
        } );
    addClassifyRows( "bullet",
        makeConverted( getBoxes,
            []( const Box& box )
            {
                return btDbvtVolume::FromMM(
                    convertTriple<btVector3>( box.getCorner( 0 ) ), convertTriple<btVector3>( box.getCorner( 7 ) ) );
            } ),
        [reference = btDbvtVolume::FromMM( convertTriple<btVector3>( REFERENCE.getCorner( 0 ) ),
             convertTriple<btVector3>( REFERENCE.getCorner( 7 ) ) )]( const btDbvtVolume& other )
        {
            return ask( []( const btDbvtVolume& a, const btDbvtVolume& b ) { return Intersect( a, b ); },
                []( const btDbvtVolume& a, const btDbvtVolume& b ) { return a.Contain( b ); }, reference, other );
        } );
    const auto convert = []( const Box& box )
    {
        const PlainBox plain = makePlainBox( box );
        CglmBox converted;
        std::memcpy( &converted, &plain, sizeof converted );
        return converted;
    };
    addClassifyRows( "cglm", makeConverted( getBoxes, convert ),
        [reference = convert( REFERENCE )]( const CglmBox& other )
        {
            return ask( []( const CglmBox& a, const CglmBox& b )
                { return glm_aabb_aabb( a.getBounds(), b.getBounds() ); },
                []( const CglmBox& a, const CglmBox& b ) { return glm_aabb_contains( a.getBounds(), b.getBounds() ); },
                reference, other );
        } );
}

/// What the peers' own tests answer: whether, and from where on, the line is in the box.
struct Hit
{
    float from;
    unsigned int isHit;
};

struct GlmPair
{
    GlmBox box;
    glm::vec3 origin;
    glm::vec3 direction;
};

struct PlainRange
{
    float from;
    float to;
};

/// The slabs as users of vector libraries write them; a direction along an axis takes its answer from infinities.
PlainRange intersectGlm( const GlmBox& box, const glm::vec3& origin, const glm::vec3& inverse )
{
    const glm::vec3 t1 = ( box.lower - origin ) * inverse;
    const glm::vec3 t2 = ( box.upper - origin ) * inverse;
    const glm::vec3 from = glm::min( t1, t2 );
    const glm::vec3 to = glm::max( t1, t2 );
    return { glm::max( glm::max( from.x, from.y ), from.z ), glm::min( glm::min( to.x, to.y ), to.z ) };
}

struct EigenPair
{
    Eigen::AlignedBox3f box;
    Eigen::Vector3f origin;
    Eigen::Vector3f direction;
};

PlainRange intersectEigen(
    const Eigen::AlignedBox3f& box, const Eigen::Vector3f& origin, const Eigen::Vector3f& inverse )
{
    const Eigen::Array3f t1 = ( box.min() - origin ).cwiseProduct( inverse );
    const Eigen::Array3f t2 = ( box.max() - origin ).cwiseProduct( inverse );
    return { t1.min( t2 ).maxCoeff(), t1.max( t2 ).minCoeff() };
}

struct ImathPair
{
    Imath::Box3f box;
    Imath::Line3f line;
};

struct BulletBox
{
    btVector3 bounds[2];
};

struct BulletPair
{
    BulletBox box;
    btVector3 origin;
    btVector3 direction;
};

Hit intersectBullet( const BulletBox& box, const btVector3& origin, const btVector3& inverse )
{
    constexpr float largest = ( std::numeric_limits<float>::max )();
    const unsigned int signs[3] = { inverse.x() < 0, inverse.y() < 0, inverse.z() < 0 };
    Hit hit;
    hit.isHit = btRayAabb2( origin, inverse, signs, box.bounds, hit.from, -largest, largest );
    return hit;
}

btVector3 invert( const btVector3& direction )
{
    return { 1 / direction.x(), 1 / direction.y(), 1 / direction.z() };
}

void addLineRows()
{
    const auto glmPairs = makeConverted( getPairs,
        []( const BoxAndLine& pair )
        {
            return GlmPair{ convertBox<glm::vec3, GlmBox>( pair.box ), convertTriple<glm::vec3>( pair.line.origin ),
                convertTriple<glm::vec3>( pair.line.direction ) };
        } );
    addSingles( { "boxLine", "glm", BRANCHY_COUNT }, glmPairs,
        []( const GlmPair& pair ) { return intersectGlm( pair.box, pair.origin, 1.0F / pair.direction ); } );
    addLoop( { "boxLineArray", "glm", SMALL }, makeConverted( getTargets, convertBox<glm::vec3, GlmBox> ),
        [origin = convertTriple<glm::vec3>( LINE.origin ), inverse = 1.0F / convertTriple<glm::vec3>( LINE.direction )](
            const GlmBox& box ) { return intersectGlm( box, origin, inverse ); } );

    using EigenBox = Eigen::AlignedBox3f;
    const auto eigenPairs = makeConverted( getPairs,
        []( const BoxAndLine& pair )
        {
            return EigenPair{ convertBox<Eigen::Vector3f, EigenBox>( pair.box ),
                convertTriple<Eigen::Vector3f>( pair.line.origin ),
                convertTriple<Eigen::Vector3f>( pair.line.direction ) };
        } );
    addSingles( { "boxLine", "eigen", BRANCHY_COUNT }, eigenPairs,
        []( const EigenPair& pair )
        { return intersectEigen( pair.box, pair.origin, pair.direction.cwiseInverse() ); } );
    addLoop( { "boxLineArray", "eigen", SMALL }, makeConverted( getTargets, convertBox<Eigen::Vector3f, EigenBox> ),
        [origin = convertTriple<Eigen::Vector3f>( LINE.origin ),
            inverse = Eigen::Vector3f( convertTriple<Eigen::Vector3f>( LINE.direction ).cwiseInverse() )](
            const EigenBox& box ) { return intersectEigen( box, origin, inverse ); } );

    const auto imathPairs = makeConverted( getPairs,
        []( const BoxAndLine& pair )
        {
            ImathPair converted;
            converted.box = convertBox<Imath::V3f, Imath::Box3f>( pair.box );
            converted.line.pos = convertTriple<Imath::V3f>( pair.line.origin );
            converted.line.dir = convertTriple<Imath::V3f>( pair.line.direction );
            return converted;
        } );
    addSingles( { "boxLine", "imath", BRANCHY_COUNT, Compare::NOTHING }, imathPairs,
        []( const ImathPair& pair )
        {
            std::pair<Imath::V3f, Imath::V3f> points;
            return Imath::findEntryAndExitPoints( pair.line, pair.box, points.first, points.second )
                ? points
                : std::pair<Imath::V3f, Imath::V3f>();
        } );

    const auto convertBullet = []( const Box& box )
    {
        return BulletBox{
            { convertTriple<btVector3>( box.getCorner( 0 ) ), convertTriple<btVector3>( box.getCorner( 7 ) ) } };
    };
    const auto bulletPairs = makeConverted( getPairs,
        [=]( const BoxAndLine& pair )
        {
            return BulletPair{ convertBullet( pair.box ), convertTriple<btVector3>( pair.line.origin ),
                convertTriple<btVector3>( pair.line.direction ) };
        } );
    addSingles( { "boxLine", "bullet", BRANCHY_COUNT, Compare::NOTHING }, bulletPairs,
        []( const BulletPair& pair ) { return intersectBullet( pair.box, pair.origin, invert( pair.direction ) ); } );
    addLoop( { "boxLineArray", "bullet", SMALL, Compare::NOTHING }, makeConverted( getTargets, convertBullet ),
        [origin = convertTriple<btVector3>( LINE.origin ),
            inverse = invert( convertTriple<btVector3>( LINE.direction ) )]( const BulletBox& box )
        { return intersectBullet( box, origin, inverse ); } );
}

void addPeerRows()
{
    addGrowRows( SMALL );
    addGrowRows( LARGE );
    addClassifyRows();
    addLineRows();
}

#endif

} // namespace

void addBoxRows()
{
    addOwnRows();
#ifdef ZQ_BENCHMARK_PEERS
    addPeerRows();
#endif
}

} // namespace ZqBench
