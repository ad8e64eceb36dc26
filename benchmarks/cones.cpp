// Culling cones against one eye, and the cone of normals that they are made from.

#include "inputs.h"
#include "rows.h"

#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFloatingConeBuilder.h>

#include <array>

#ifdef ZQ_BENCHMARK_PEERS
#    include <glm/glm.hpp>
#    include <meshoptimizer.h>
#endif

namespace ZqBench
{

namespace
{

using Cones = Zq::GeCullingCones;
using Point = Zq::GePoint3<float>;
using Vector = Zq::GeVector3<float>;
using Unit = Zq::GeUnitVector3<float>;

constexpr std::size_t COUNT = 100000;

const Point EYE( 3.0F, -2.0F, 5.0F );
const Zq::GeAlignedBox3<float> EYES( EYE, Point( 5.0F, 0.0F, 6.0F ) );

/// Half of them are seen from behind by the eye.
std::vector<Cones> makeCones( std::size_t count )
{
    Random random( 3 );
    const auto make = [&]
    {
        const Unit axis = random.direction<float>();
        const float semiAngle = random.uniform( 0.05F, 1.5F );
        const Point apex = random.point( 50.0F );
        return Cones( Zq::GeFloatingCone( axis, semiAngle ), apex, random.uniform( 0.0F, 5.0F ) );
    };
    return makeBalanced( count, 2, random, make, []( const Cones& cones ) { return cones.isBehind( EYE ) ? 1 : 0; } );
}

constexpr auto getCones = getShared<Cones, makeCones>;

Point computeFrontApex( const Cones& cones )
{
    return cones.getBackfacingApex() + cones.getFloatingCone().getAxis() * cones.getFrontfacingOffset();
}

/// The formula with nothing but its numbers.
struct PlainCone
{
    float apex[3];
    float axis[3];
    float cosine;
};

PlainCone makePlainCone( const Point& apex, const Unit& axis, float cosine )
{
    return { { apex.getX(), apex.getY(), apex.getZ() }, { axis.getX(), axis.getY(), axis.getZ() }, cosine };
}

PlainCone makePlainBack( const Cones& cones )
{
    return makePlainCone( cones.getBackfacingApex(), cones.getFloatingCone().getAxis(), cones.getCosBeta() );
}

/// In front of an apex along the axis is behind it along the axis turned around.
PlainCone makePlainFront( const Cones& cones )
{
    return makePlainCone( computeFrontApex( cones ), -cones.getFloatingCone().getAxis(), cones.getCosBeta() );
}

bool isBehindPlain( const PlainCone& cone, const Point& eye )
{
    const float x = cone.apex[0] - eye.getX();
    const float y = cone.apex[1] - eye.getY();
    const float z = cone.apex[2] - eye.getZ();
    const float length = std::sqrt( x * x + y * y + z * z );
    return ( x * cone.axis[0] + y * cone.axis[1] + z * cone.axis[2] ) / length >= cone.cosine;
}

unsigned char isEyeBehindPlain( const PlainCone& cone )
{
    return isBehindPlain( cone, EYE );
}

/// Corner by corner, in float.
unsigned char isBoxBehindPlain( const PlainCone& cone )
{
    for ( int corner = 0; corner < 8; ++corner )
        if ( !isBehindPlain( cone, EYES.getCorner( corner ) ) )
            return 0;
    return 1;
}

template <class MakeBack, class MakeFront, class Operation>
void addOneByOne( const std::string& contender, MakeBack makeBack, MakeFront makeFront, Operation operation )
{
    addSingles( { "coneBehind", contender, COUNT }, makeBack, operation );
    addLoop( { "coneBehindArray", contender, COUNT }, makeBack, operation );
    addSingles( { "coneInFront", contender, COUNT }, makeFront, operation );
    addLoop( { "coneInFrontArray", contender, COUNT }, makeFront, operation );
}

constexpr std::size_t NORMALS_PER_CONE = 64;

/// Normals about a direction, each with a triangle that has it.
struct Patch
{
    std::vector<Unit> normals;
    std::vector<float> corners; // x, y, z of each
    std::vector<unsigned int> indices;
};

Patch makePatch( Random& random )
{
    Patch patch;
    const Vector middle = random.direction<float>();
    for ( std::size_t i = 0; i < NORMALS_PER_CONE; ++i )
    {
        const Unit normal = ( middle * 2.0F + random.direction<float>() ).computeUnit();
        const Vector u = normal.cross( random.direction<float>() );
        const Vector v = normal.cross( u );
        const Point corner = random.point( 1.0F );
        for ( const Point& p : { corner, corner + u, corner + v } )
        {
            patch.indices.push_back( static_cast<unsigned int>( patch.indices.size() ) );
            for ( int axis = 0; axis < 3; ++axis )
                patch.corners.push_back( p[axis] );
        }
        patch.normals.push_back( normal );
    }
    return patch;
}

std::vector<Patch> makePatches( std::size_t count )
{
    Random random( 4 );
    std::vector<Patch> patches;
    for ( std::size_t i = 0; i < count / NORMALS_PER_CONE; ++i )
        patches.push_back( makePatch( random ) );
    return patches;
}

constexpr auto getPatches = getShared<Patch, makePatches>;

/// One builder for all cones, so that its memory is asked for once.
struct ConeMaker
{
    mutable Zq::GeFloatingConeBuilder builder{ NORMALS_PER_CONE };

    Zq::GeFloatingCone operator()( const Patch& patch ) const
    {
        for ( const Unit& normal : patch.normals )
            builder( normal );
        return builder.createCone();
    }
};

Zq::GeFloatingCone makeConePlain( const Patch& patch )
{
    float lower[3];
    float upper[3];
    for ( int axis = 0; axis < 3; ++axis )
        lower[axis] = upper[axis] = patch.normals[0][axis];
    for ( const Unit& normal : patch.normals )
    {
        for ( int axis = 0; axis < 3; ++axis )
        {
            lower[axis] = ( std::min )( lower[axis], normal[axis] );
            upper[axis] = ( std::max )( upper[axis], normal[axis] );
        }
    }
    const Unit center(
        Vector( lower[0] + upper[0], lower[1] + upper[1], lower[2] + upper[2] ) * 0.5F ); // no sphere among the inputs
    float cosine = 1.0F;
    for ( const Unit& normal : patch.normals )
        cosine = ( std::min )( cosine, normal.dot( center ) );
    return { center, std::acos( cosine ) };
}

void addOwnRows()
{
    addSingles( { "coneBehind", "ours", COUNT }, getCones,
        []( const Cones& cones ) { return static_cast<unsigned char>( cones.isBehind( EYE ) ); } );
    addSingles( { "coneInFront", "ours", COUNT }, getCones,
        []( const Cones& cones ) { return static_cast<unsigned char>( cones.isInFront( EYE ) ); } );
    addArray<unsigned char>( { "coneBehindArray", "ours", COUNT }, getCones,
        []( const Cones* cones, std::size_t count, unsigned char* verdicts )
        { Cones::isBehind( cones, count, EYE, verdicts ); } );
    addArray<unsigned char>( { "coneInFrontArray", "ours", COUNT }, getCones,
        []( const Cones* cones, std::size_t count, unsigned char* verdicts )
        { Cones::isInFront( cones, count, EYE, verdicts ); } );
    addArray<unsigned char>( { "coneBehindBoxArray", "ours", COUNT }, getCones,
        []( const Cones* cones, std::size_t count, unsigned char* verdicts )
        { Cones::isBehind( cones, count, EYES, verdicts ); } );
    addLoop( { "coneBehindBoxArray", "plain", COUNT }, makeConverted( getCones, makePlainBack ), isBoxBehindPlain );
    addOneByOne( "plain", makeConverted( getCones, makePlainBack ), makeConverted( getCones, makePlainFront ),
        isEyeBehindPlain );
    addFloor( "coneBehindArray", COUNT, getCones );
    addFloor( "coneInFrontArray", COUNT, getCones );

    addSingles( { "coneFromNormals", "ours", SINGLE_COUNT }, getPatches, ConeMaker() );
    addSingles( { "coneFromNormals", "plain", SINGLE_COUNT }, getPatches, makeConePlain );
}

#ifdef ZQ_BENCHMARK_PEERS

struct GlmCone
{
    glm::vec3 apex;
    glm::vec3 axis;
    float cutoff;
};

GlmCone makeGlmCone( const PlainCone& cone )
{
    return { { cone.apex[0], cone.apex[1], cone.apex[2] }, { cone.axis[0], cone.axis[1], cone.axis[2] }, cone.cosine };
}

/// What meshoptimizer fills in, for its formula.
meshopt_Bounds makeBounds( const PlainCone& cone )
{
    meshopt_Bounds bounds = {};
    std::copy( std::begin( cone.apex ), std::end( cone.apex ), bounds.cone_apex );
    std::copy( std::begin( cone.axis ), std::end( cone.axis ), bounds.cone_axis );
    bounds.cone_cutoff = cone.cosine;
    return bounds;
}

void addPeerRows()
{
    const auto plainBacks = makeConverted( getCones, makePlainBack );
    const auto plainFronts = makeConverted( getCones, makePlainFront );
    // The line that meshoptimizer's header gives for a perspective camera:
    // dot( normalize( cone_apex - camera_position ), cone_axis ) >= cone_cutoff
    addOneByOne( "glm", makeConverted( plainBacks, makeGlmCone ), makeConverted( plainFronts, makeGlmCone ),
        [eye = convertTriple<glm::vec3>( EYE )]( const GlmCone& cone ) -> unsigned char
        { return glm::dot( glm::normalize( cone.apex - eye ), cone.axis ) >= cone.cutoff; } );
    addOneByOne( "meshoptimizer", makeConverted( plainBacks, makeBounds ), makeConverted( plainFronts, makeBounds ),
        [eye = convertTriple<glm::vec3>( EYE )]( const meshopt_Bounds& bounds ) -> unsigned char
        {
            const glm::vec3 apex( bounds.cone_apex[0], bounds.cone_apex[1], bounds.cone_apex[2] );
            const glm::vec3 axis( bounds.cone_axis[0], bounds.cone_axis[1], bounds.cone_axis[2] );
            return glm::dot( glm::normalize( apex - eye ), axis ) >= bounds.cone_cutoff;
        } );
    addSingles( { "coneFromNormals", "meshoptimizer", SINGLE_COUNT, Compare::NOTHING }, getPatches,
        []( const Patch& patch )
        {
            return meshopt_computeClusterBounds( patch.indices.data(), patch.indices.size(), patch.corners.data(),
                patch.corners.size() / 3, 3 * sizeof( float ) );
        } );
}

#endif

} // namespace

void addConeRows()
{
    addOwnRows();
#ifdef ZQ_BENCHMARK_PEERS
    addPeerRows();
#endif
}

} // namespace ZqBench
