// Boxes and points against a view frustum, with three answers for boxes: outside, inside, crossing.

#include "../tests/bits/plainRules.h"
#include "rows.h"
#include "scene.h"

#include <zq/primitives/geFrustum.h>

#include <memory>

#ifdef ZQ_BENCHMARK_PEERS
#    include <BulletCollision/BroadphaseCollision/btDbvt.h>
#    include <Eigen/Geometry>
#    include <Imath/ImathBox.h>
#    include <Imath/ImathFrustum.h>
#    include <Imath/ImathFrustumTest.h>
#    include <cglm/cglm.h>
#    include <glm/glm.hpp>
#endif

namespace ZqBench
{

namespace
{

using Box = Zq::GeAlignedBox3<float>;
using Frustum = Zq::GeFrustum<float>;
using Point = Zq::GePoint3<float>;

constexpr std::size_t SMALL = 100000;
constexpr std::size_t LARGE = 1000000;

constexpr unsigned char OUTSIDE = Frustum::FRUSTUM_OUTSIDE;
constexpr unsigned char INSIDE = Frustum::FRUSTUM_INSIDE;
constexpr unsigned char INTERSECT = Frustum::FRUSTUM_INTERSECT;

Frustum makeFrustum()
{
    return Frustum( makeClipMatrix() );
}

std::vector<Box> makeBoxes( std::size_t count )
{
    return makeBoxesAbout( makeFrustum(), OUTSIDE, count );
}

std::vector<Point> makePoints( std::size_t count )
{
    Random random( 2 );
    const Frustum frustum = makeFrustum();
    return makeBalanced(
        count, 2, random, [&] { return makePoint( random ); },
        [&]( const Point& point ) { return frustum.classify( point ) - OUTSIDE; } );
}

constexpr auto getBoxes = getShared<Box, makeBoxes>;
constexpr auto getPoints = getShared<Point, makePoints>;

ZqPlain::Frustum<float> getPlanes()
{
    const Frustum frustum = makeFrustum();
    ZqPlain::Frustum<float> planes;
    for ( int i = 0; i < 6; ++i )
    {
        const Zq::GeNormalizedPlane3<float> plane = frustum.getPlane( i );
        const Zq::GeVector3<float>& n = plane.getNormal();
        planes[static_cast<std::size_t>( i )] = { n.getX(), n.getY(), n.getZ(), plane.getOffset() };
    }
    return planes;
}

struct PlainFrustum
{
    ZqPlain::Frustum<float> planes = getPlanes();

    unsigned char operator()( const ZqPlain::Box<float>& box ) const { return ZqPlain::classifyBox( planes, box ); }
    unsigned char operator()( const ZqPlain::Three<float>& point ) const
    {
        return ZqPlain::classifyPoint( planes, point );
    }
};

/// A contender that answers one by one, in the rows of its kind of item.
template <class MakeItems, class Operation>
void addOneByOne( const std::string& single, const std::string& array, const std::string& contender,
    MakeItems makeItems, Operation operation )
{
    addSingles( { single, contender, SMALL }, makeItems, operation );
    addLoop( { array, contender, SMALL }, makeItems, operation );
    addLoop( { array, contender, LARGE }, makeItems, operation );
}

template <class MakeItems, class Operation>
void addBoxRows( const std::string& contender, MakeItems makeItems, Operation operation )
{
    addOneByOne( "frustumBox", "frustumBoxArray", contender, makeItems, operation );
}

template <class MakeItems, class Operation>
void addPointRows( const std::string& contender, MakeItems makeItems, Operation operation )
{
    addOneByOne( "frustumPoint", "frustumPointArray", contender, makeItems, operation );
}

void addOwnRows()
{
    const Frustum frustum = makeFrustum();
    const auto classify = [=]( const auto& item ) { return static_cast<unsigned char>( frustum.classify( item ) ); };
    addSingles( { "frustumBox", "ours", SMALL }, getBoxes, classify );
    addSingles( { "frustumPoint", "ours", SMALL }, getPoints, classify );
    const auto plainBoxes = makeConverted( getBoxes, numbersOf<float, Box> );
    addBoxRows( "plain", plainBoxes, PlainFrustum() );
    addPointRows( "plain", makeConverted( getPoints, numbersOf<float, Point> ), PlainFrustum() );
    for ( const std::size_t count : { SMALL, LARGE } )
    {
        addArray<unsigned char>( { "frustumBoxArray", "ours", count }, getBoxes,
            [=]( const Box* boxes, std::size_t nbBoxes, unsigned char* verdicts )
            { frustum.classify( boxes, nbBoxes, verdicts ); } );
        addArray<unsigned char>( { "frustumPointArray", "ours", count }, getPoints,
            [=]( const Point* points, std::size_t nbPoints, unsigned char* verdicts )
            { frustum.classify( points, nbPoints, verdicts ); } );
        addFloor( "frustumBoxArray", count, getBoxes );
        addFloor( "frustumPointArray", count, getPoints );
    }

    const auto indices = std::make_shared<std::vector<std::uint32_t>>( SMALL );
    addReduction( { "frustumNotOutsideArray", "ours", SMALL }, getBoxes,
        [=]( const Box* boxes, std::size_t nbBoxes )
        { return frustum.findNotOutside( boxes, nbBoxes, indices->data() ); } );
    addReduction( { "frustumNotOutsideArray", "plain", SMALL }, plainBoxes,
        [=, plain = PlainFrustum()]( const ZqPlain::Box<float>* boxes, std::size_t nbBoxes )
        {
            std::size_t nbFound = 0;
            for ( std::size_t i = 0; i < nbBoxes; ++i )
                if ( plain( boxes[i] ) != OUTSIDE )
                    ( *indices )[nbFound++] = static_cast<std::uint32_t>( i );
            return nbFound;
        } );
    addFloor( "frustumNotOutsideArray", SMALL, getBoxes );
}

#ifdef ZQ_BENCHMARK_PEERS

/// Centre and half extent against the absolute normals, the form that users of vector libraries write.
struct GlmFrustum
{
    glm::vec3 normals[6];
    glm::vec3 absolutes[6];
    float offsets[6];

    GlmFrustum()
    {
        const ZqPlain::Frustum<float> planes = getPlanes();
        for ( std::size_t i = 0; i < 6; ++i )
        {
            normals[i] = glm::vec3( planes[i][0], planes[i][1], planes[i][2] );
            absolutes[i] = glm::abs( normals[i] );
            offsets[i] = planes[i][3];
        }
    }
};

struct GlmBox
{
    glm::vec3 lower;
    glm::vec3 upper;
};

struct GlmEarlyOut : GlmFrustum
{
    unsigned char operator()( const GlmBox& box ) const
    {
        const glm::vec3 center = ( box.lower + box.upper ) * 0.5F;
        const glm::vec3 half = ( box.upper - box.lower ) * 0.5F;
        unsigned char answer = INSIDE;
        for ( int i = 0; i < 6; ++i )
        {
            const float distance = glm::dot( normals[i], center ) + offsets[i];
            const float reach = glm::dot( absolutes[i], half );
            if ( distance < -reach )
                return OUTSIDE;
            if ( distance < reach )
                answer = INTERSECT;
        }
        return answer;
    }

    unsigned char operator()( const glm::vec3& point ) const
    {
        for ( int i = 0; i < 6; ++i )
            if ( glm::dot( normals[i], point ) + offsets[i] < 0 )
                return OUTSIDE;
        return INSIDE;
    }
};

struct GlmBranchless : GlmFrustum
{
    unsigned char operator()( const GlmBox& box ) const
    {
        const glm::vec3 center = ( box.lower + box.upper ) * 0.5F;
        const glm::vec3 half = ( box.upper - box.lower ) * 0.5F;
        bool isOutside = false;
        bool crosses = false;
        for ( int i = 0; i < 6; ++i )
        {
            const float distance = glm::dot( normals[i], center ) + offsets[i];
            const float reach = glm::dot( absolutes[i], half );
            isOutside |= distance < -reach;
            crosses |= distance < reach;
        }
        return isOutside ? OUTSIDE : crosses ? INTERSECT : INSIDE;
    }

    unsigned char operator()( const glm::vec3& point ) const
    {
        bool isOutside = false;
        for ( int i = 0; i < 6; ++i )
            isOutside |= glm::dot( normals[i], point ) + offsets[i] < 0;
        return isOutside ? OUTSIDE : INSIDE;
    }
};

/// All planes at once, filled up to eight by planes that reject nothing.
struct EigenFrustum
{
    using Eight = Eigen::Array<float, 8, 1>;

    Eight x = Eight::Zero();
    Eight y = Eight::Zero();
    Eight z = Eight::Zero();
    Eight d = Eight::Constant( 1 );

    EigenFrustum()
    {
        const ZqPlain::Frustum<float> planes = getPlanes();
        for ( int i = 0; i < 6; ++i )
        {
            const ZqPlain::Four<float>& plane = planes[static_cast<std::size_t>( i )];
            x[i] = plane[0];
            y[i] = plane[1];
            z[i] = plane[2];
            d[i] = plane[3];
        }
    }

    unsigned char operator()( const Eigen::AlignedBox3f& box ) const
    {
        const Eigen::Vector3f center = box.center();
        const Eigen::Vector3f half = box.sizes() * 0.5F;
        const Eight distance = x * center.x() + y * center.y() + z * center.z() + d;
        const Eight reach = x.abs() * half.x() + y.abs() * half.y() + z.abs() * half.z();
        if ( ( distance + reach ).minCoeff() < 0 )
            return OUTSIDE;
        return ( distance - reach ).minCoeff() < 0 ? INTERSECT : INSIDE;
    }

    unsigned char operator()( const Eigen::Vector3f& point ) const
    {
        return ( x * point.x() + y * point.y() + z * point.z() + d ).minCoeff() < 0 ? OUTSIDE : INSIDE;
    }
};

struct ImathFrustum
{
    Imath::FrustumTestf test;

    ImathFrustum()
    {
        const float top = NEAR_DISTANCE * std::tan( FIELD_OF_VIEW / 2 );
        const Zq::GeAffineMatrix3<float> camera = makeCameraToWorld();
        Imath::M44f matrix; // for row vectors
        for ( int row = 0; row < 4; ++row )
            for ( int column = 0; column < 4; ++column )
                matrix[row][column] = camera( column, row );
        const Imath::Frustumf frustum( NEAR_DISTANCE, FAR_DISTANCE, -top * ASPECT, top * ASPECT, top, -top, false );
        test.setFrustum( frustum, matrix );
    }

    unsigned char operator()( const Imath::Box3f& box ) const
    {
        if ( !test.isVisible( box ) )
            return OUTSIDE;
        return test.completelyContains( box ) ? INSIDE : INTERSECT;
    }

    unsigned char operator()( const Imath::V3f& point ) const { return test.isVisible( point ) ? INSIDE : OUTSIDE; }
};

struct CglmBox
{
    vec3 bounds[2];
};

/// Its own test says outside; what is left is asked for the opposite corner in the same manner.
struct CglmFrustum
{
    ZqPlain::Frustum<float> plain = getPlanes();

    unsigned char operator()( const CglmBox& item ) const
    {
        auto& box = const_cast<CglmBox&>( item ).bounds; // C without const
        vec4 planes[6];
        std::memcpy( planes, plain.data(), sizeof planes );
        if ( !glm_aabb_frustum( box, planes ) )
            return OUTSIDE;
        for ( const vec4& p : planes )
            if ( p[0] * box[p[0] < 0][0] + p[1] * box[p[1] < 0][1] + p[2] * box[p[2] < 0][2] < -p[3] )
                return INTERSECT;
        return INSIDE;
    }
};

/// The three-way test of its bounding volume trees, with the signs prepared as the trees do it.
struct BulletFrustum
{
    btVector3 normals[6];
    btScalar offsets[6];
    int signs[6];

    BulletFrustum()
    {
        const ZqPlain::Frustum<float> planes = getPlanes();
        for ( std::size_t i = 0; i < 6; ++i )
        {
            normals[i] = btVector3( planes[i][0], planes[i][1], planes[i][2] );
            offsets[i] = planes[i][3];
            signs[i] =
                ( normals[i].x() >= 0 ? 1 : 0 ) + ( normals[i].y() >= 0 ? 2 : 0 ) + ( normals[i].z() >= 0 ? 4 : 0 );
        }
    }

    unsigned char operator()( const btDbvtVolume& box ) const
    {
        unsigned char answer = INSIDE;
        for ( int i = 0; i < 6; ++i )
        {
            const int side = box.Classify( normals[i], offsets[i], signs[i] );
            if ( side < 0 )
                return OUTSIDE;
            if ( side == 0 )
                answer = INTERSECT;
        }
        return answer;
    }

    unsigned char operator()( const btVector3& point ) const
    {
        for ( int i = 0; i < 6; ++i )
            if ( btDot( normals[i], point ) + offsets[i] < 0 )
                return OUTSIDE;
        return INSIDE;
    }
};

template <class Vector>
std::pair<Vector, Vector> getCorners( const Box& box )
{
    return { convertTriple<Vector>( box.getCorner( 0 ) ), convertTriple<Vector>( box.getCorner( 7 ) ) };
}

void addPeerRows()
{
    const auto glmBoxes = makeConverted( getBoxes,
        []( const Box& box )
        {
            const auto [lower, upper] = getCorners<glm::vec3>( box );
            return GlmBox{ lower, upper };
        } );
    addBoxRows( "glm", glmBoxes, GlmEarlyOut() );
    addBoxRows( "glmBranchless", glmBoxes, GlmBranchless() );
    const auto glmPoints = makeConverted( getPoints, convertTriple<glm::vec3, Point> );
    addPointRows( "glm", glmPoints, GlmEarlyOut() );
    addPointRows( "glmBranchless", glmPoints, GlmBranchless() );

    const auto eigenBoxes = makeConverted( getBoxes,
        []( const Box& box )
        {
            const auto [lower, upper] = getCorners<Eigen::Vector3f>( box );
            return Eigen::AlignedBox3f( lower, upper );
        } );
    addBoxRows( "eigen", eigenBoxes, EigenFrustum() );
    addPointRows( "eigen", makeConverted( getPoints, convertTriple<Eigen::Vector3f, Point> ), EigenFrustum() );

    const auto imathBoxes = makeConverted( getBoxes,
        []( const Box& box )
        {
            const auto [lower, upper] = getCorners<Imath::V3f>( box );
            return Imath::Box3f( lower, upper );
        } );
    addBoxRows( "imath", imathBoxes, ImathFrustum() );
    addPointRows( "imath", makeConverted( getPoints, convertTriple<Imath::V3f, Point> ), ImathFrustum() );

    const auto cglmBoxes = makeConverted( getBoxes,
        []( const Box& box )
        {
            const Point lower = box.getCorner( 0 );
            const Point upper = box.getCorner( 7 );
            return CglmBox{
                { { lower.getX(), lower.getY(), lower.getZ() }, { upper.getX(), upper.getY(), upper.getZ() } } };
        } );
    addBoxRows( "cglm", cglmBoxes, CglmFrustum() );

    const auto bulletBoxes = makeConverted( getBoxes,
        []( const Box& box )
        {
            const auto [lower, upper] = getCorners<btVector3>( box );
            return btDbvtVolume::FromMM( lower, upper );
        } );
    addBoxRows( "bullet", bulletBoxes, BulletFrustum() );
    addPointRows( "bullet", makeConverted( getPoints, convertTriple<btVector3, Point> ), BulletFrustum() );
}

#endif

} // namespace

void addFrustumRows()
{
    addOwnRows();
#ifdef ZQ_BENCHMARK_PEERS
    addPeerRows();
#endif
}

} // namespace ZqBench
