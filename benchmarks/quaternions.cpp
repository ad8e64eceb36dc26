// Quaternions: products, interpolation, and the ways to and from matrices and Euler angles.

#include "../tests/bits/plainRules.h"
#include "inputs.h"
#include "rows.h"

#include <zq/primitives/geQuaternion3.h>

#ifdef ZQ_BENCHMARK_PEERS
#    define GLM_ENABLE_EXPERIMENTAL
#    include <Eigen/Geometry>
#    include <Imath/ImathEuler.h>
#    include <Imath/ImathMatrix.h>
#    include <Imath/ImathMatrixAlgo.h>
#    include <Imath/ImathQuat.h>
#    include <LinearMath/btMatrix3x3.h>
#    include <LinearMath/btQuaternion.h>
#    include <cglm/cglm.h>
#    include <glm/glm.hpp>
#    include <glm/gtc/quaternion.hpp>
#    include <glm/gtx/euler_angles.hpp>
#endif

namespace ZqBench
{

namespace
{

using Linear = Zq::GeLinearMatrix3<float>;
using Quaternion = Zq::GeQuaternion3<float>;

Quaternion makeQuaternion( Random& random )
{
    const float w = random.uniform( -1.0F, 1.0F );
    const Zq::GeVector3<float> v = random.vector( 1.0F );
    Quaternion q( v.getX(), v.getY(), v.getZ(), w );
    q.normalize();
    return q;
}

std::vector<Quaternion> makeQuaternions( std::size_t count )
{
    Random random( 20 );
    std::vector<Quaternion> quaternions;
    for ( std::size_t i = 0; i < count; ++i )
        quaternions.push_back( makeQuaternion( random ) );
    return quaternions;
}

template <class Q>
struct Blend
{
    Q a;
    Q b;
    float t;
};

std::vector<Blend<Quaternion>> makeBlends( std::size_t count )
{
    Random random( 21 );
    std::vector<Blend<Quaternion>> blends;
    for ( std::size_t i = 0; i < count; ++i )
    {
        const Quaternion a = makeQuaternion( random );
        const Quaternion b = makeQuaternion( random );
        blends.push_back( { a, b, random.uniform( 0.0F, 1.0F ) } );
    }
    return blends;
}

std::vector<Linear> makeRotations( std::size_t count )
{
    std::vector<Linear> rotations( count );
    const std::vector<Quaternion> quaternions = makeQuaternions( count );
    for ( std::size_t i = 0; i < count; ++i )
        quaternions[i].getMatrix( rotations[i] );
    return rotations;
}

/// Turns about the fixed axes x, y, z in this order.
struct Angles
{
    float x;
    float y;
    float z;
};

std::vector<Angles> makeAngles( std::size_t count )
{
    Random random( 22 );
    std::vector<Angles> angles;
    for ( std::size_t i = 0; i < count; ++i )
    {
        const float x = random.uniform( -3.0F, 3.0F );
        const float y = random.uniform( -1.5F, 1.5F );
        angles.push_back( { x, y, random.uniform( -3.0F, 3.0F ) } );
    }
    return angles;
}

constexpr auto getQuaternions = getShared<Quaternion, makeQuaternions>;
constexpr auto getBlends = getShared<Blend<Quaternion>, makeBlends>;
constexpr auto getRotations = getShared<Linear, makeRotations>;
constexpr auto getAngles = getShared<Angles, makeAngles>;

// ---- the plain rules ----

using PlainQuaternion = ZqPlain::Four<float>;
using PlainMatrix = std::array<float, 9>;

PlainMatrix toMatrixPlain( const PlainQuaternion& q )
{
    const auto& [x, y, z, w] = q;
    const float s = 2 / ( x * x + y * y + z * z + w * w );
    return { 1 - s * ( y * y + z * z ), s * ( x * y - w * z ), s * ( x * z + w * y ), //
        s * ( x * y + w * z ), 1 - s * ( x * x + z * z ), s * ( y * z - w * x ),      //
        s * ( x * z - w * y ), s * ( y * z + w * x ), 1 - s * ( x * x + y * y ) };
}

PlainQuaternion fromMatrixPlain( const PlainMatrix& matrix )
{
    const auto m = [&]( std::size_t row, std::size_t column ) { return matrix[3 * row + column]; };
    const float trace = m( 0, 0 ) + m( 1, 1 ) + m( 2, 2 );
    if ( trace >= 0 )
    {
        const float root = std::sqrt( trace + 1 );
        const float s = 0.5F / root;
        return {
            ( m( 2, 1 ) - m( 1, 2 ) ) * s, ( m( 0, 2 ) - m( 2, 0 ) ) * s, ( m( 1, 0 ) - m( 0, 1 ) ) * s, root * 0.5F };
    }
    std::size_t h = 0;
    if ( m( 1, 1 ) > m( 0, 0 ) )
        h = 1;
    if ( m( 2, 2 ) > m( h, h ) )
        h = 2;
    const std::size_t i = ( h + 1 ) % 3;
    const std::size_t j = ( i + 1 ) % 3;
    const float root = std::sqrt( m( h, h ) - m( i, i ) - m( j, j ) + 1 );
    const float s = 0.5F / root;
    float v[3];
    v[h] = root * 0.5F;
    v[i] = ( m( i, h ) + m( h, i ) ) * s;
    v[j] = ( m( j, h ) + m( h, j ) ) * s;
    return { v[0], v[1], v[2], ( m( j, i ) - m( i, j ) ) * s };
}

PlainMatrix fromAnglesPlain( const Angles& a )
{
    const float cx = std::cos( a.x ), cy = std::cos( a.y ), cz = std::cos( a.z );
    const float sx = std::sin( a.x ), sy = std::sin( a.y ), sz = std::sin( a.z );
    return { cy * cz, sx * sy * cz - cx * sz, cx * sy * cz + sx * sz, //
        cy * sz, sx * sy * sz + cx * cz, cx * sy * sz - sx * cz,      //
        -sy, cy * sx, cy * cx };
}

/// Both ends of a blend in the type of another library.
template <class Convert>
auto makeConvertedBlends( Convert convert )
{
    return makeConverted( getBlends,
        [=]( const Blend<Quaternion>& blend )
        {
            using Q = decltype( convert( blend.a ) );
            return Blend<Q>{ convert( blend.a ), convert( blend.b ), blend.t };
        } );
}

void addOwnRows()
{
    addSingles(
        { "quaternionProduct", "ours" }, getBlends, []( const Blend<Quaternion>& pair ) { return pair.a * pair.b; } );
    addSingles( { "quaternionProduct", "plain" }, makeConvertedBlends( numbersOf<float, Quaternion> ),
        []( const Blend<PlainQuaternion>& pair ) { return ZqPlain::multiplyQuaternions( pair.a, pair.b ); } );

    addSingles( { "slerp", "ours", BRANCHY_COUNT, Compare::MAGNITUDE }, getBlends,
        []( const Blend<Quaternion>& blend ) { return Quaternion::slerp( blend.a, blend.b, blend.t, 0.0F ); } );
    addSingles( { "slerp", "plain", BRANCHY_COUNT, Compare::MAGNITUDE },
        makeConvertedBlends( numbersOf<float, Quaternion> ),
        []( const Blend<PlainQuaternion>& pair ) { return ZqPlain::slerp( pair.a, pair.b, pair.t, 0.0F ); } );

    addSingles( { "quaternionToMatrix", "ours" }, getQuaternions,
        []( const Quaternion& q )
        {
            Linear matrix;
            q.getMatrix( matrix );
            return matrix;
        } );
    addSingles( { "quaternionToMatrix", "plain" }, makeConverted( getQuaternions, numbersOf<float, Quaternion> ),
        toMatrixPlain );

    addSingles( { "matrixToQuaternion", "ours", BRANCHY_COUNT, Compare::MAGNITUDE }, getRotations,
        []( const Linear& matrix )
        {
            Quaternion q;
            q.setMatrix( matrix );
            return q;
        } );
    addSingles( { "matrixToQuaternion", "plain", BRANCHY_COUNT, Compare::MAGNITUDE },
        makeConverted( getRotations, numbersOf<float, Linear> ), fromMatrixPlain );

    addSingles( { "eulerToMatrix", "ours", BRANCHY_COUNT }, getAngles,
        []( const Angles& angles )
        {
            Linear matrix;
            Quaternion::eulerToMatrix( matrix, Quaternion::EULER_XYZ_STATIC, angles.x, angles.y, angles.z );
            return matrix;
        } );
    addSingles( { "eulerToMatrix", "plain", BRANCHY_COUNT }, getAngles, fromAnglesPlain );

    addSingles( { "matrixToEuler", "ours", BRANCHY_COUNT }, getRotations,
        []( const Linear& matrix )
        {
            Angles angles;
            Quaternion::matrixToEuler( matrix, Quaternion::EULER_XYZ_STATIC, angles.x, angles.y, angles.z );
            return angles;
        } );
    addSingles( { "matrixToEuler", "plain", BRANCHY_COUNT }, makeConverted( getRotations, numbersOf<float, Linear> ),
        []( const PlainMatrix& m ) { return ZqPlain::extractAngles( m, 0, 1, 2, false, false, false ); } );
}

#ifdef ZQ_BENCHMARK_PEERS

glm::quat convertGlm( const Quaternion& q )
{
    return { q.getW(), q.getX(), q.getY(), q.getZ() };
}

glm::mat3 convertGlmMatrix( const Linear& linear )
{
    glm::mat3 matrix;
    for ( int i = 0; i < 3; ++i )
        for ( int j = 0; j < 3; ++j )
            matrix[j][i] = linear( i, j );
    return matrix;
}

Eigen::Quaternionf convertEigen( const Quaternion& q )
{
    return { q.getW(), q.getX(), q.getY(), q.getZ() };
}

Eigen::Matrix3f convertEigenMatrix( const Linear& linear )
{
    Eigen::Matrix3f matrix;
    for ( int i = 0; i < 3; ++i )
        for ( int j = 0; j < 3; ++j )
            matrix( i, j ) = linear( i, j );
    return matrix;
}

Imath::Quatf convertImath( const Quaternion& q )
{
    return { q.getW(), q.getX(), q.getY(), q.getZ() };
}

Imath::M44f convertImathMatrix( const Linear& linear )
{
    Imath::M44f matrix; // for row vectors
    for ( int i = 0; i < 3; ++i )
        for ( int j = 0; j < 3; ++j )
            matrix[j][i] = linear( i, j );
    return matrix;
}

struct CglmQuaternion
{
    versor q;
    /// For C that knows no const.
    float* get() const { return const_cast<CglmQuaternion*>( this )->q; }
};

struct CglmMatrix3
{
    mat3 m;
    vec3* get() const { return const_cast<CglmMatrix3*>( this )->m; }
};

CglmQuaternion convertCglm( const Quaternion& q )
{
    return { { q.getX(), q.getY(), q.getZ(), q.getW() } };
}

CglmMatrix3 convertCglmMatrix( const Linear& linear )
{
    CglmMatrix3 matrix;
    for ( int i = 0; i < 3; ++i )
        for ( int j = 0; j < 3; ++j )
            matrix.m[j][i] = linear( i, j );
    return matrix;
}

btQuaternion convertBullet( const Quaternion& q )
{
    return { q.getX(), q.getY(), q.getZ(), q.getW() };
}

btMatrix3x3 convertBulletMatrix( const Linear& m )
{
    return { m( 0, 0 ), m( 0, 1 ), m( 0, 2 ), m( 1, 0 ), m( 1, 1 ), m( 1, 2 ), m( 2, 0 ), m( 2, 1 ), m( 2, 2 ) };
}

void addProductRows()
{
    const auto multiply = []( const auto& pair ) { return pair.a * pair.b; };
    addSingles( { "quaternionProduct", "glm" }, makeConvertedBlends( convertGlm ), multiply );
    addSingles( { "quaternionProduct", "eigen" }, makeConvertedBlends( convertEigen ), multiply );
    addSingles( { "quaternionProduct", "imath" }, makeConvertedBlends( convertImath ), multiply );
    addSingles( { "quaternionProduct", "cglm" }, makeConvertedBlends( convertCglm ),
        []( const Blend<CglmQuaternion>& pair )
        {
            CglmQuaternion product;
            glm_quat_mul( pair.a.get(), pair.b.get(), product.q );
            return product;
        } );
    addSingles( { "quaternionProduct", "bullet" }, makeConvertedBlends( convertBullet ), multiply );
}

void addSlerpRows()
{
    addSingles( { "slerp", "glm", BRANCHY_COUNT, Compare::MAGNITUDE }, makeConvertedBlends( convertGlm ),
        []( const Blend<glm::quat>& blend ) { return glm::slerp( blend.a, blend.b, blend.t ); } );
    addSingles( { "slerp", "eigen", BRANCHY_COUNT, Compare::MAGNITUDE }, makeConvertedBlends( convertEigen ),
        []( const Blend<Eigen::Quaternionf>& blend ) { return blend.a.slerp( blend.t, blend.b ); } );
    addSingles( { "slerp", "imath", BRANCHY_COUNT, Compare::MAGNITUDE }, makeConvertedBlends( convertImath ),
        []( const Blend<Imath::Quatf>& blend ) { return Imath::slerpShortestArc( blend.a, blend.b, blend.t ); } );
    addSingles( { "slerp", "cglm", BRANCHY_COUNT, Compare::MAGNITUDE }, makeConvertedBlends( convertCglm ),
        []( const Blend<CglmQuaternion>& blend )
        {
            CglmQuaternion result;
            glm_quat_slerp( blend.a.get(), blend.b.get(), blend.t, result.q );
            return result;
        } );
    addSingles( { "slerp", "bullet", BRANCHY_COUNT, Compare::MAGNITUDE }, makeConvertedBlends( convertBullet ),
        []( const Blend<btQuaternion>& blend ) { return blend.a.slerp( blend.b, blend.t ); } );
}

void addMatrixConversionRows()
{
    addSingles( { "quaternionToMatrix", "glm" }, makeConverted( getQuaternions, convertGlm ),
        []( const glm::quat& q ) { return glm::mat3_cast( q ); } );
    addSingles( { "quaternionToMatrix", "eigen" }, makeConverted( getQuaternions, convertEigen ),
        []( const Eigen::Quaternionf& q ) { return q.toRotationMatrix(); } );
    addSingles( { "quaternionToMatrix", "imath" }, makeConverted( getQuaternions, convertImath ),
        []( const Imath::Quatf& q ) { return q.toMatrix33(); } );
    addSingles( { "quaternionToMatrix", "cglm" }, makeConverted( getQuaternions, convertCglm ),
        []( const CglmQuaternion& q )
        {
            CglmMatrix3 matrix;
            glm_quat_mat3( q.get(), matrix.m );
            return matrix;
        } );
    // rows padded to four, so not compared
    addSingles( { "quaternionToMatrix", "bullet", SINGLE_COUNT, Compare::NOTHING },
        makeConverted( getQuaternions, convertBullet ), []( const btQuaternion& q ) { return btMatrix3x3( q ); } );

    const auto makeRow = []( const char* contender ) {
        return Row{ "matrixToQuaternion", contender, BRANCHY_COUNT, Compare::MAGNITUDE };
    };
    addSingles( makeRow( "glm" ), makeConverted( getRotations, convertGlmMatrix ),
        []( const glm::mat3& m ) { return glm::quat_cast( m ); } );
    addSingles( makeRow( "eigen" ), makeConverted( getRotations, convertEigenMatrix ),
        []( const Eigen::Matrix3f& m ) { return Eigen::Quaternionf( m ); } );
    addSingles( makeRow( "imath" ), makeConverted( getRotations, convertImathMatrix ),
        []( const Imath::M44f& m ) { return Imath::extractQuat( m ); } );
    addSingles( makeRow( "cglm" ), makeConverted( getRotations, convertCglmMatrix ),
        []( const CglmMatrix3& m )
        {
            CglmQuaternion q;
            glm_mat3_quat( m.get(), q.q );
            return q;
        } );
    addSingles( makeRow( "bullet" ), makeConverted( getRotations, convertBulletMatrix ),
        []( const btMatrix3x3& m )
        {
            btQuaternion q;
            m.getRotation( q );
            return q;
        } );
}

void addEulerRows()
{
    addSingles( { "eulerToMatrix", "glm", BRANCHY_COUNT }, getAngles,
        []( const Angles& a ) { return glm::mat3( glm::eulerAngleZYX( a.z, a.y, a.x ) ); } );
    addSingles( { "eulerToMatrix", "eigen", BRANCHY_COUNT }, getAngles,
        []( const Angles& a ) -> Eigen::Matrix3f
        {
            using Turn = Eigen::AngleAxisf;
            return ( Turn( a.z, Eigen::Vector3f::UnitZ() ) * Turn( a.y, Eigen::Vector3f::UnitY() ) *
                Turn( a.x, Eigen::Vector3f::UnitX() ) )
                .toRotationMatrix();
        } );
    addSingles( { "eulerToMatrix", "imath", BRANCHY_COUNT }, getAngles,
        []( const Angles& a ) { return Imath::Eulerf( a.x, a.y, a.z ).toMatrix33(); } );
    addSingles( { "eulerToMatrix", "cglm", BRANCHY_COUNT, Compare::NOTHING }, getAngles,
        []( const Angles& a )
        {
            struct
            {
                mat4 m;
            } matrix;
            vec3 angles = { a.x, a.y, a.z };
            glm_euler_xyz( angles, matrix.m );
            return matrix;
        } );
    addSingles( { "eulerToMatrix", "bullet", BRANCHY_COUNT, Compare::NOTHING }, getAngles,
        []( const Angles& a )
        {
            btMatrix3x3 matrix;
            matrix.setEulerZYX( a.x, a.y, a.z );
            return matrix;
        } );

    addSingles( { "matrixToEuler", "glm", BRANCHY_COUNT },
        makeConverted( getRotations, []( const Linear& m ) { return glm::mat4( convertGlmMatrix( m ) ); } ),
        []( const glm::mat4& m )
        {
            Angles a;
            glm::extractEulerAngleZYX( m, a.z, a.y, a.x );
            return a;
        } );
    // other ranges of the angles
    addSingles( { "matrixToEuler", "eigen", BRANCHY_COUNT, Compare::NOTHING },
        makeConverted( getRotations, convertEigenMatrix ),
        []( const Eigen::Matrix3f& m ) -> Eigen::Vector3f { return m.eulerAngles( 2, 1, 0 ); } );
    addSingles( { "matrixToEuler", "imath", BRANCHY_COUNT }, makeConverted( getRotations, convertImathMatrix ),
        []( const Imath::M44f& m )
        {
            Imath::Eulerf euler;
            euler.extract( m );
            return Angles{ euler.x, euler.y, euler.z };
        } );
    addSingles( { "matrixToEuler", "bullet", BRANCHY_COUNT }, makeConverted( getRotations, convertBulletMatrix ),
        []( const btMatrix3x3& m )
        {
            Angles a;
            m.getEulerZYX( a.z, a.y, a.x );
            return a;
        } );
}

void addPeerRows()
{
    addProductRows();
    addSlerpRows();
    addMatrixConversionRows();
    addEulerRows();
}

#endif

} // namespace

void addQuaternionRows()
{
    addOwnRows();
#ifdef ZQ_BENCHMARK_PEERS
    addPeerRows();
#endif
}

} // namespace ZqBench
