// Lines against spheres and planes; those against boxes are in boxes.cpp.

#include "../tests/bits/plainRules.h"
#include "inputs.h"
#include "rows.h"

#include <zq/primitives/geNormalizedPlane3.h>
#include <zq/primitives/geSphere3.h>

#ifdef ZQ_BENCHMARK_PEERS
#    define GLM_ENABLE_EXPERIMENTAL
#    include <Eigen/Geometry>
#    include <Imath/ImathLine.h>
#    include <Imath/ImathPlane.h>
#    include <Imath/ImathSphere.h>
#    include <glm/glm.hpp>
#    include <glm/gtx/intersect.hpp>
#endif

namespace ZqBench
{

namespace
{

using Plane = Zq::GeNormalizedPlane3<float>;
using Point = Zq::GePoint3<float>;
using Sphere = Zq::GeSphere3<float>;
using Vector = Zq::GeVector3<float>;

struct SphereAndRay
{
    Sphere sphere;
    Point origin;
    Vector direction;
};

struct PlaneAndRay
{
    Plane plane;
    Point origin;
    Vector direction;
};

/// Where a ray enters and leaves; both 0 when it misses.
struct Roots
{
    float first;
    float second;
};

/// Half of the rays meet their sphere.
std::vector<SphereAndRay> makeSpheres( std::size_t count )
{
    Random random( 10 );
    const auto make = [&]
    {
        const Sphere sphere( random.point( 50.0F ), random.uniform( 5.0F, 40.0F ) );
        const Point origin = random.point( 100.0F );
        const Vector aim = random.point( 60.0F ) - origin;
        return SphereAndRay{ sphere, origin, aim.computeUnit() };
    };
    return makeBalanced( count, 2, random, make,
        []( const SphereAndRay& pair )
        {
            float first;
            float second;
            return pair.sphere.intersectRay( pair.origin, pair.direction, first, second ) ? 1 : 0;
        } );
}

std::vector<PlaneAndRay> makePlanes( std::size_t count )
{
    Random random( 11 );
    std::vector<PlaneAndRay> pairs;
    while ( pairs.size() < count )
    {
        const Zq::GeUnitVector3<float> normal = random.direction<float>();
        const float offset = random.uniform( -20.0F, 20.0F );
        const Point origin = random.point( 50.0F );
        const Zq::GeUnitVector3<float> direction = random.direction<float>();
        if ( std::fabs( normal.dot( direction ) ) > 0.02F ) // where rounding would decide, peers differ
            pairs.push_back( { Plane( normal, offset ), origin, direction } );
    }
    return pairs;
}

constexpr auto getSpheres = getShared<SphereAndRay, makeSpheres>;
constexpr auto getPlanes = getShared<PlaneAndRay, makePlanes>;

/// A sphere or a plane, and a line.
struct PlainPair
{
    ZqPlain::Four<float> thing;
    ZqPlain::Three<float> origin;
    ZqPlain::Three<float> direction;
};

PlainPair makePlainSphere( const SphereAndRay& pair )
{
    return { numbersOf<float>( pair.sphere ), numbersOf<float>( pair.origin ), numbersOf<float>( pair.direction ) };
}

PlainPair makePlainPlane( const PlaneAndRay& pair )
{
    return { numbersOf<float>( pair.plane ), numbersOf<float>( pair.origin ), numbersOf<float>( pair.direction ) };
}

void addOwnRows()
{
    addSingles( { "raySphere", "ours", BRANCHY_COUNT }, getSpheres,
        []( const SphereAndRay& pair )
        {
            Roots roots{ 0, 0 };
            pair.sphere.intersectRay( pair.origin, pair.direction, roots.first, roots.second );
            return roots;
        } );
    addSingles( { "raySphere", "plain", BRANCHY_COUNT }, makeConverted( getSpheres, makePlainSphere ),
        []( const PlainPair& pair )
        {
            Roots roots{ 0, 0 };
            ZqPlain::intersectSphere( pair.thing, pair.origin, pair.direction, roots.first, roots.second );
            return roots;
        } );

    addSingles( { "rayPlane", "ours", BRANCHY_COUNT }, getPlanes,
        []( const PlaneAndRay& pair )
        {
            float t = 0;
            pair.plane.intersectRay( pair.origin, pair.direction, t );
            return t;
        } );
    addSingles( { "rayPlane", "plain", BRANCHY_COUNT }, makeConverted( getPlanes, makePlainPlane ),
        []( const PlainPair& pair )
        {
            float t = 0;
            ZqPlain::intersectPlane( pair.thing, pair.origin, pair.direction, t );
            return t;
        } );
}

#ifdef ZQ_BENCHMARK_PEERS

struct GlmSphere
{
    glm::vec3 center;
    float radius;
    glm::vec3 origin;
    glm::vec3 direction;
};

struct GlmPlane
{
    glm::vec3 point;
    glm::vec3 normal;
    glm::vec3 origin;
    glm::vec3 direction;
};

struct EigenSphere
{
    Eigen::Vector3f center;
    float radius;
    Eigen::Vector3f origin;
    Eigen::Vector3f direction;
};

struct EigenPlane
{
    Eigen::Hyperplane<float, 3> plane;
    Eigen::ParametrizedLine<float, 3> line;
};

struct ImathSphere
{
    Imath::Sphere3f sphere;
    Imath::Line3f line;
};

struct ImathPlane
{
    Imath::Plane3f plane;
    Imath::Line3f line;
};

Imath::Line3f makeImathLine( const Point& origin, const Vector& direction )
{
    Imath::Line3f line;
    line.pos = convertTriple<Imath::V3f>( origin );
    line.dir = convertTriple<Imath::V3f>( direction );
    return line;
}

/// The quadratic in the terms of a vector library, for directions of any length, as ours takes them.
template <class Pair, class Dot>
Roots intersectAny( const Pair& pair, Dot dotProduct )
{
    const auto m = decltype( pair.origin )( pair.origin - pair.center );
    const float a = dotProduct( pair.direction, pair.direction );
    const float b = dotProduct( m, pair.direction );
    const float c = dotProduct( m, m ) - pair.radius * pair.radius;
    const float discriminant = b * b - a * c;
    if ( discriminant < 0 )
        return { 0, 0 };
    const float root = std::sqrt( discriminant );
    const float inverse = 1 / a;
    return { ( -b - root ) * inverse, ( -b + root ) * inverse };
}

void addPeerRows()
{
    const auto glmSpheres = makeConverted( getSpheres,
        []( const SphereAndRay& pair )
        {
            return GlmSphere{ convertTriple<glm::vec3>( pair.sphere.getCenter() ), pair.sphere.getRadius(),
                convertTriple<glm::vec3>( pair.origin ), convertTriple<glm::vec3>( pair.direction ) };
        } );
    const auto glmDot = []( const glm::vec3& a, const glm::vec3& b ) { return glm::dot( a, b ); };
    addSingles( { "raySphere", "glm", BRANCHY_COUNT }, glmSpheres,
        [=]( const GlmSphere& pair ) { return intersectAny( pair, glmDot ); } );
    // the peers' own tests give one root, so they are not compared
    addSingles( { "raySphere", "glmOneRoot", BRANCHY_COUNT, Compare::NOTHING }, glmSpheres,
        []( const GlmSphere& pair )
        {
            float t = 0;
            glm::intersectRaySphere( pair.origin, pair.direction, pair.center, pair.radius * pair.radius, t );
            return t;
        } );
    const auto eigenSpheres = makeConverted( getSpheres,
        []( const SphereAndRay& pair )
        {
            return EigenSphere{ convertTriple<Eigen::Vector3f>( pair.sphere.getCenter() ), pair.sphere.getRadius(),
                convertTriple<Eigen::Vector3f>( pair.origin ), convertTriple<Eigen::Vector3f>( pair.direction ) };
        } );
    const auto eigenDot = []( const Eigen::Vector3f& a, const Eigen::Vector3f& b ) { return a.dot( b ); };
    addSingles( { "raySphere", "eigen", BRANCHY_COUNT }, eigenSpheres,
        [=]( const EigenSphere& pair ) { return intersectAny( pair, eigenDot ); } );
    const auto imathSpheres = makeConverted( getSpheres,
        []( const SphereAndRay& pair )
        {
            const Imath::V3f center = convertTriple<Imath::V3f>( pair.sphere.getCenter() );
            return ImathSphere{
                Imath::Sphere3f( center, pair.sphere.getRadius() ), makeImathLine( pair.origin, pair.direction ) };
        } );
    addSingles( { "raySphere", "imathOneRoot", BRANCHY_COUNT, Compare::NOTHING }, imathSpheres,
        []( const ImathSphere& pair )
        {
            float t = 0;
            pair.sphere.intersectT( pair.line, t );
            return t;
        } );

    const auto glmPlanes = makeConverted( getPlanes,
        []( const PlaneAndRay& pair )
        {
            const glm::vec3 normal = convertTriple<glm::vec3>( pair.plane.getNormal() );
            return GlmPlane{ normal * -pair.plane.getOffset(), normal, convertTriple<glm::vec3>( pair.origin ),
                convertTriple<glm::vec3>( pair.direction ) };
        } );
    // this test leaves out what is behind the origin
    addSingles( { "rayPlane", "glm", BRANCHY_COUNT, Compare::NOTHING }, glmPlanes,
        []( const GlmPlane& pair )
        {
            float t = 0;
            glm::intersectRayPlane( pair.origin, pair.direction, pair.point, pair.normal, t );
            return t;
        } );
    const auto eigenPlanes = makeConverted( getPlanes,
        []( const PlaneAndRay& pair )
        {
            return EigenPlane{ Eigen::Hyperplane<float, 3>(
                                   convertTriple<Eigen::Vector3f>( pair.plane.getNormal() ), pair.plane.getOffset() ),
                Eigen::ParametrizedLine<float, 3>(
                    convertTriple<Eigen::Vector3f>( pair.origin ), convertTriple<Eigen::Vector3f>( pair.direction ) ) };
        } );
    addSingles( { "rayPlane", "eigen", BRANCHY_COUNT }, eigenPlanes,
        []( const EigenPlane& pair ) { return pair.line.intersectionParameter( pair.plane ); } );
    const auto imathPlanes = makeConverted( getPlanes,
        []( const PlaneAndRay& pair )
        {
            const Imath::V3f normal = convertTriple<Imath::V3f>( pair.plane.getNormal() );
            return ImathPlane{
                Imath::Plane3f( normal, -pair.plane.getOffset() ), makeImathLine( pair.origin, pair.direction ) };
        } );
    addSingles( { "rayPlane", "imath", BRANCHY_COUNT }, imathPlanes,
        []( const ImathPlane& pair )
        {
            float t = 0;
            pair.plane.intersectT( pair.line, t );
            return t;
        } );
}

#endif

} // namespace

void addIntersectionRows()
{
    addOwnRows();
#ifdef ZQ_BENCHMARK_PEERS
    addPeerRows();
#endif
}

} // namespace ZqBench
