// Inverses, products and transforms of matrices.

#include "../tests/bits/plainRules.h"
#include "inputs.h"
#include "rows.h"

#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/geProjectiveMatrix3.h>

#ifdef ZQ_BENCHMARK_PEERS
#    include <Eigen/Dense>
#    include <Eigen/Geometry>
#    include <Imath/ImathMatrix.h>
#    include <LinearMath/btTransform.h>
#    include <cglm/cglm.h>
#    include <glm/glm.hpp>
#    include <glm/matrix.hpp>
#endif

namespace ZqBench
{

namespace
{

/// As many points as fit into the first cache, so that arithmetic and not memory is measured.
constexpr std::size_t POINTS = 4096;

/// Random elements: the pivots are all over the place, and hardly any matrix is near a singular one.
template <class T, int size>
using Elements = ZqPlain::Matrix<T, size>;

template <class T, int size>
T computePlainDeterminant( const Elements<T, size>& e )
{
    if constexpr ( size == 3 )
        return e.m[0][0] * ( e.m[1][1] * e.m[2][2] - e.m[1][2] * e.m[2][1] ) -
            e.m[0][1] * ( e.m[1][0] * e.m[2][2] - e.m[1][2] * e.m[2][0] ) +
            e.m[0][2] * ( e.m[1][0] * e.m[2][1] - e.m[1][1] * e.m[2][0] );
    else
    {
        T sum = 0;
        for ( int column = 0; column < size; ++column )
        {
            Elements<T, size - 1> minor;
            for ( int i = 1; i < size; ++i )
                for ( int j = 0, k = 0; j < size; ++j )
                    if ( j != column )
                        minor.m[i - 1][k++] = e.m[i][j];
            sum += ( column % 2 == 0 ? e.m[0][column] : -e.m[0][column] ) * computePlainDeterminant( minor );
        }
        return sum;
    }
}

template <class T, int size>
Elements<T, size> makeElements( Random& random )
{
    for ( ;; )
    {
        Elements<T, size> elements;
        for ( auto& row : elements.m )
            for ( T& element : row )
                element = random.uniform<T>( T( -1 ), T( 1 ) );
        if ( std::fabs( computePlainDeterminant( elements ) ) > T( 0.05 ) )
            return elements;
    }
}

template <class T, int size>
std::vector<Elements<T, size>> makeMatrices( std::size_t count )
{
    Random random( 12 );
    std::vector<Elements<T, size>> matrices;
    for ( std::size_t i = 0; i < count; ++i )
        matrices.push_back( makeElements<T, size>( random ) );
    return matrices;
}

template <class T, int size>
constexpr auto getMatrices = getShared<Elements<T, size>, makeMatrices<T, size>>;

/// Anything that comes in twos: the factors of a product, a matrix and what it transforms.
template <class A, class B = A>
struct Pair
{
    A a;
    B b;
};

template <class T, int size>
std::vector<Pair<Elements<T, size>>> makePairs( std::size_t count )
{
    Random random( 13 );
    std::vector<Pair<Elements<T, size>>> pairs;
    for ( std::size_t i = 0; i < count; ++i )
    {
        const Elements<T, size> a = makeElements<T, size>( random );
        pairs.push_back( { a, makeElements<T, size>( random ) } );
    }
    return pairs;
}

template <class T, int size>
constexpr auto getPairs = getShared<Pair<Elements<T, size>>, makePairs<T, size>>;

template <class T>
struct Four
{
    T v[4];
};

template <class T>
std::vector<Pair<Elements<T, 4>, Four<T>>> makeTransforms( std::size_t count )
{
    Random random( 14 );
    std::vector<Pair<Elements<T, 4>, Four<T>>> transforms;
    for ( std::size_t i = 0; i < count; ++i )
    {
        Pair<Elements<T, 4>, Four<T>> transform;
        transform.a = makeElements<T, 4>( random );
        for ( T& x : transform.b.v )
            x = random.uniform<T>( T( -10 ), T( 10 ) );
        transforms.push_back( transform );
    }
    return transforms;
}

template <class T>
constexpr auto getTransforms = getShared<Pair<Elements<T, 4>, Four<T>>, makeTransforms<T>>;

std::vector<Zq::GePoint3<float>> makePoints( std::size_t count )
{
    Random random( 15 );
    std::vector<Zq::GePoint3<float>> points;
    for ( std::size_t i = 0; i < count; ++i )
        points.push_back( random.point( 10.0F ) );
    return points;
}

constexpr auto getPoints = getShared<Zq::GePoint3<float>, makePoints>;

std::vector<Zq::GeHomogeneousCoord3<float>> makeCoords( std::size_t count )
{
    Random random( 16 );
    std::vector<Zq::GeHomogeneousCoord3<float>> coords;
    for ( std::size_t i = 0; i < count; ++i )
    {
        const Zq::GePoint3<float> p = random.point( 10.0F );
        coords.emplace_back( p.getX(), p.getY(), p.getZ(), random.uniform( 0.5F, 2.0F ) );
    }
    return coords;
}

constexpr auto getCoords = getShared<Zq::GeHomogeneousCoord3<float>, makeCoords>;

/// The one matrix that the array rows transform by; its last row is that of an affine one.
Elements<float, 4> makeTransform()
{
    Random random( 17 );
    Elements<float, 4> elements = makeElements<float, 4>( random );
    elements.m[3][0] = elements.m[3][1] = elements.m[3][2] = 0;
    elements.m[3][3] = 1;
    return elements;
}

// A name for each pair of scalar and size, as in "inverse4Double".
template <class T, int size>
std::string getName( const std::string& operation )
{
    return operation + std::to_string( size ) + ( sizeof( T ) == sizeof( float ) ? "Float" : "Double" );
}

// ---- the library and the plain rule ----

template <class T>
Zq::GeLinearMatrix3<T> convertLinear( const Elements<T, 3>& e )
{
    return { e.m[0][0], e.m[0][1], e.m[0][2], e.m[1][0], e.m[1][1], e.m[1][2], e.m[2][0], e.m[2][1], e.m[2][2] };
}

template <class T>
Zq::GeProjectiveMatrix3<T> convertProjective( const Elements<T, 4>& e )
{
    return Zq::GeProjectiveMatrix3<T>( e.m, false );
}

template <class T>
Zq::GeAffineMatrix3<T> convertAffine( const Elements<T, 4>& e )
{
    return Zq::GeAffineMatrix3<T>( e.m, false );
}

/// Crout's decomposition with scaled pivoting, then a solution per column, as the textbooks have it.
template <class T, int size>
Elements<T, size> invertPlain( const Elements<T, size>& matrix )
{
    Elements<T, size> lu = matrix;
    T scales[std::size_t( size )];
    int pivots[std::size_t( size )];
    for ( int i = 0; i < size; ++i )
    {
        T largest = 0;
        for ( int j = 0; j < size; ++j )
            largest = ( std::max )( largest, std::fabs( lu.m[i][j] ) );
        if ( largest == 0 )
            return {};
        scales[i] = 1 / largest;
    }
    for ( int j = 0; j < size; ++j )
    {
        for ( int i = 0; i < j; ++i )
            for ( int k = 0; k < i; ++k )
                lu.m[i][j] -= lu.m[i][k] * lu.m[k][j];
        T heaviest = 0;
        pivots[j] = j;
        for ( int i = j; i < size; ++i )
        {
            for ( int k = 0; k < j; ++k )
                lu.m[i][j] -= lu.m[i][k] * lu.m[k][j];
            const T weight = scales[i] * std::fabs( lu.m[i][j] );
            if ( weight >= heaviest )
            {
                heaviest = weight;
                pivots[j] = i;
            }
        }
        if ( pivots[j] != j )
        {
            std::swap( lu.m[pivots[j]], lu.m[j] );
            scales[pivots[j]] = scales[j];
        }
        if ( lu.m[j][j] == 0 )
            return {};
        for ( int i = j + 1; i < size; ++i )
            lu.m[i][j] /= lu.m[j][j];
    }
    Elements<T, size> inverse;
    for ( int column = 0; column < size; ++column )
    {
        T b[std::size_t( size )] = {};
        b[column] = 1;
        for ( int i = 0; i < size; ++i )
        {
            std::swap( b[pivots[i]], b[i] );
            for ( int k = 0; k < i; ++k )
                b[i] -= lu.m[i][k] * b[k];
        }
        for ( int i = size - 1; i >= 0; --i )
        {
            for ( int k = i + 1; k < size; ++k )
                b[i] -= lu.m[i][k] * b[k];
            b[i] /= lu.m[i][i];
            inverse.m[i][column] = b[i];
        }
    }
    return inverse;
}

template <class T, int size>
Elements<T, size> multiplyPlain( const Pair<Elements<T, size>>& pair )
{
    return ZqPlain::multiplyMatrices( pair.a, pair.b );
}

template <class T>
Four<T> transformPlain( const Elements<T, 4>& matrix, const Four<T>& coord )
{
    Four<T> result;
    for ( int i = 0; i < 4; ++i )
        result.v[i] = matrix.m[i][0] * coord.v[0] + matrix.m[i][1] * coord.v[1] + matrix.m[i][2] * coord.v[2] +
            matrix.m[i][3] * coord.v[3];
    return result;
}

struct Three
{
    float v[3];
};

Three transformPlain( const Elements<float, 4>& matrix, const Three& point )
{
    Three result;
    for ( int i = 0; i < 3; ++i )
        result.v[i] =
            matrix.m[i][0] * point.v[0] + matrix.m[i][1] * point.v[1] + matrix.m[i][2] * point.v[2] + matrix.m[i][3];
    return result;
}

/// Both factors of a product in the type of another library.
template <class T, int size, class Convert>
auto makeConvertedPairs( Convert convert )
{
    return makeConverted( getPairs<T, size>,
        [=]( const Pair<Elements<T, size>>& pair )
        {
            using Matrix = decltype( convert( pair.a ) );
            return Pair<Matrix>{ convert( pair.a ), convert( pair.b ) };
        } );
}

template <class T, class ConvertMatrix, class ConvertCoord>
auto makeConvertedTransforms( ConvertMatrix convertMatrix, ConvertCoord convertCoord )
{
    return makeConverted( getTransforms<T>,
        [=]( const Pair<Elements<T, 4>, Four<T>>& pair )
        {
            using Matrix = decltype( convertMatrix( pair.a ) );
            using Coord = decltype( convertCoord( pair.b ) );
            return Pair<Matrix, Coord>{ convertMatrix( pair.a ), convertCoord( pair.b ) };
        } );
}

template <class T, int size, class Convert>
void addOwnSizeRows( Convert convert )
{
    addSingles<T>( { getName<T, size>( "inverse" ), "ours", BRANCHY_COUNT },
        makeConverted( getMatrices<T, size>, convert ), []( const auto& m ) { return m.computeInverse(); } );
    addSingles<T>(
        { getName<T, size>( "inverse" ), "plain", BRANCHY_COUNT }, getMatrices<T, size>, invertPlain<T, size> );
    addSingles<T>( { getName<T, size>( "product" ), "ours" }, makeConvertedPairs<T, size>( convert ),
        []( const auto& pair ) { return pair.a * pair.b; } );
    addSingles<T>( { getName<T, size>( "product" ), "plain" }, getPairs<T, size>, multiplyPlain<T, size> );
}

template <class T>
void addOwnScalarRows()
{
    addOwnSizeRows<T, 3>( convertLinear<T> );
    addOwnSizeRows<T, 4>( convertProjective<T> );
    const auto own = makeConvertedTransforms<T>( convertProjective<T>,
        []( const Four<T>& c ) { return Zq::GeHomogeneousCoord3<T>( c.v[0], c.v[1], c.v[2], c.v[3] ); } );
    addSingles<T>( { getName<T, 4>( "transform" ), "ours" }, own, []( const auto& pair ) { return pair.a * pair.b; } );
    addSingles<T>( { getName<T, 4>( "transform" ), "plain" }, getTransforms<T>,
        []( const Pair<Elements<T, 4>, Four<T>>& pair ) { return transformPlain( pair.a, pair.b ); } );
}

/// Affine matrices that are as far from singular as their source.
constexpr auto getAffines = makeConverted( getMatrices<float, 3>,
    []( const Elements<float, 3>& linear )
    {
        Elements<float, 4> affine = {};
        for ( int i = 0; i < 3; ++i )
        {
            for ( int j = 0; j < 3; ++j )
                affine.m[i][j] = linear.m[i][j];
            affine.m[i][3] = linear.m[i][i] * 5;
        }
        affine.m[3][3] = 1;
        return affine;
    } );

void addOwnRows()
{
    addOwnScalarRows<float>();
    addOwnScalarRows<double>();
    addSingles( { "inverseAffine", "ours", BRANCHY_COUNT }, makeConverted( getAffines, convertAffine<float> ),
        []( const Zq::GeAffineMatrix3<float>& m ) { return m.computeInverse(); } );
    addSingles( { "inverseAffine", "plain", BRANCHY_COUNT }, getAffines, invertPlain<float, 4> );

    addArray<Zq::GePoint3<float>>( { "affinePointsArray", "ours", POINTS }, getPoints,
        [m = convertAffine( makeTransform() )]( const Zq::GePoint3<float>* points, std::size_t count,
            Zq::GePoint3<float>* results ) { m.transform( points, count, results ); } );
    addLoop( { "affinePointsArray", "plain", POINTS },
        makeConverted( getPoints,
            []( const auto& p ) {
                return Three{ { p.getX(), p.getY(), p.getZ() } };
            } ),
        [m = makeTransform()]( const Three& point ) { return transformPlain( m, point ); } );
    addFloor( "affinePointsArray", POINTS, getPoints );
    addArray<Zq::GeHomogeneousCoord3<float>>( { "projectiveCoordsArray", "ours", POINTS }, getCoords,
        [m = convertProjective( makeTransform() )]( const Zq::GeHomogeneousCoord3<float>* coords, std::size_t count,
            Zq::GeHomogeneousCoord3<float>* results ) { m.transform( coords, count, results ); } );
    addLoop( { "projectiveCoordsArray", "plain", POINTS },
        makeConverted( getCoords,
            []( const auto& c ) {
                return Four<float>{ { c.getX(), c.getY(), c.getZ(), c.getW() } };
            } ),
        [m = makeTransform()]( const Four<float>& coord ) { return transformPlain( m, coord ); } );
    addFloor( "projectiveCoordsArray", POINTS, getCoords );
}

#ifdef ZQ_BENCHMARK_PEERS

// ---- the peers; those that transform row vectors get the transposed matrix ----

template <class T, int size>
glm::mat<size, size, T> convertGlm( const Elements<T, size>& e )
{
    glm::mat<size, size, T> matrix;
    for ( int i = 0; i < size; ++i )
        for ( int j = 0; j < size; ++j )
            matrix[j][i] = e.m[i][j];
    return matrix;
}

template <class T, int size>
Eigen::Matrix<T, size, size> convertEigen( const Elements<T, size>& e )
{
    Eigen::Matrix<T, size, size> matrix;
    for ( int i = 0; i < size; ++i )
        for ( int j = 0; j < size; ++j )
            matrix( i, j ) = e.m[i][j];
    return matrix;
}

template <class T, int size>
auto convertImath( const Elements<T, size>& e )
{
    std::conditional_t<size == 3, Imath::Matrix33<T>, Imath::Matrix44<T>> matrix;
    for ( int i = 0; i < size; ++i )
        for ( int j = 0; j < size; ++j )
            matrix[j][i] = e.m[i][j];
    return matrix;
}

struct CglmMatrix3
{
    mat3 m;
    /// For C that knows no const.
    vec3* get() const { return const_cast<CglmMatrix3*>( this )->m; }
};

struct CglmMatrix4
{
    mat4 m;
    vec4* get() const { return const_cast<CglmMatrix4*>( this )->m; }
};

struct CglmCoord
{
    vec4 v;
    float* get() const { return const_cast<CglmCoord*>( this )->v; }
};

template <int size>
auto convertCglm( const Elements<float, size>& e )
{
    std::conditional_t<size == 3, CglmMatrix3, CglmMatrix4> matrix;
    for ( int i = 0; i < size; ++i )
        for ( int j = 0; j < size; ++j )
            matrix.m[j][i] = e.m[i][j];
    return matrix;
}

btMatrix3x3 convertBullet( const Elements<float, 3>& e )
{
    return { e.m[0][0], e.m[0][1], e.m[0][2], e.m[1][0], e.m[1][1], e.m[1][2], e.m[2][0], e.m[2][1], e.m[2][2] };
}

btTransform convertBulletTransform( const Elements<float, 4>& e )
{
    const btMatrix3x3 basis(
        e.m[0][0], e.m[0][1], e.m[0][2], e.m[1][0], e.m[1][1], e.m[1][2], e.m[2][0], e.m[2][1], e.m[2][2] );
    return btTransform( basis, btVector3( e.m[0][3], e.m[1][3], e.m[2][3] ) );
}

template <class T, int size>
void addPeerSizeRows()
{
    const std::string inverse = getName<T, size>( "inverse" );
    const std::string product = getName<T, size>( "product" );
    const auto multiply = []( const auto& pair ) { return pair.a * pair.b; };

    addSingles<T>( { inverse, "glm", BRANCHY_COUNT }, makeConverted( getMatrices<T, size>, convertGlm<T, size> ),
        []( const auto& m ) { return glm::inverse( m ); } );
    addSingles<T>( { product, "glm" }, makeConvertedPairs<T, size>( convertGlm<T, size> ), multiply );

    using EigenMatrix = Eigen::Matrix<T, size, size>;
    const auto eigenMatrices = makeConverted( getMatrices<T, size>, convertEigen<T, size> );
    addSingles<T>( { inverse, "eigenPivoting", BRANCHY_COUNT }, eigenMatrices,
        []( const EigenMatrix& m ) -> EigenMatrix { return m.partialPivLu().inverse(); } );
    addSingles<T>( { inverse, "eigen", BRANCHY_COUNT }, eigenMatrices,
        []( const EigenMatrix& m ) -> EigenMatrix { return m.inverse(); } );
    addSingles<T>( { product, "eigen" }, makeConvertedPairs<T, size>( convertEigen<T, size> ),
        []( const Pair<EigenMatrix>& pair ) -> EigenMatrix { return pair.a * pair.b; } );

    const auto imathMatrices = makeConverted( getMatrices<T, size>, convertImath<T, size> );
    addSingles<T>(
        { inverse, "imathPivoting", BRANCHY_COUNT }, imathMatrices, []( const auto& m ) { return m.gjInverse(); } );
    addSingles<T>( { inverse, "imath", BRANCHY_COUNT }, imathMatrices, []( const auto& m ) { return m.inverse(); } );
    addSingles<T>( { product, "imath" }, makeConvertedPairs<T, size>( convertImath<T, size> ),
        []( const auto& pair ) { return pair.b * pair.a; } );
}

template <class T>
void addPeerTransformRows()
{
    const std::string transform = getName<T, 4>( "transform" );
    addSingles<T>( { transform, "glm" },
        makeConvertedTransforms<T>(
            convertGlm<T, 4>, []( const Four<T>& c ) { return glm::vec<4, T>( c.v[0], c.v[1], c.v[2], c.v[3] ); } ),
        []( const auto& pair ) { return pair.a * pair.b; } );
    using EigenMatrix = Eigen::Matrix<T, 4, 4>;
    using EigenCoord = Eigen::Matrix<T, 4, 1>;
    addSingles<T>( { transform, "eigen" },
        makeConvertedTransforms<T>(
            convertEigen<T, 4>, []( const Four<T>& c ) { return EigenCoord( c.v[0], c.v[1], c.v[2], c.v[3] ); } ),
        []( const Pair<EigenMatrix, EigenCoord>& pair ) -> EigenCoord { return pair.a * pair.b; } );
    addSingles<T>( { transform, "imath" },
        makeConvertedTransforms<T>(
            convertImath<T, 4>, []( const Four<T>& c ) { return Imath::Vec4<T>( c.v[0], c.v[1], c.v[2], c.v[3] ); } ),
        []( const auto& pair ) { return pair.b * pair.a; } );
}

void addCglmRows()
{
    addSingles( { "inverse3Float", "cglm", BRANCHY_COUNT }, makeConverted( getMatrices<float, 3>, convertCglm<3> ),
        []( const CglmMatrix3& m )
        {
            CglmMatrix3 inverse;
            glm_mat3_inv( m.get(), inverse.m );
            return inverse;
        } );
    addSingles( { "inverse4Float", "cglm", BRANCHY_COUNT }, makeConverted( getMatrices<float, 4>, convertCglm<4> ),
        []( const CglmMatrix4& m )
        {
            CglmMatrix4 inverse;
            glm_mat4_inv( m.get(), inverse.m );
            return inverse;
        } );
    addSingles( { "product3Float", "cglm" }, makeConvertedPairs<float, 3>( convertCglm<3> ),
        []( const Pair<CglmMatrix3>& pair )
        {
            CglmMatrix3 product;
            glm_mat3_mul( pair.a.get(), pair.b.get(), product.m );
            return product;
        } );
    addSingles( { "product4Float", "cglm" }, makeConvertedPairs<float, 4>( convertCglm<4> ),
        []( const Pair<CglmMatrix4>& pair )
        {
            CglmMatrix4 product;
            glm_mat4_mul( pair.a.get(), pair.b.get(), product.m );
            return product;
        } );
    addSingles( { "transform4Float", "cglm" },
        makeConvertedTransforms<float>( convertCglm<4>,
            []( const Four<float>& c ) {
                return CglmCoord{ { c.v[0], c.v[1], c.v[2], c.v[3] } };
            } ),
        []( const Pair<CglmMatrix4, CglmCoord>& pair )
        {
            CglmCoord result;
            glm_mat4_mulv( pair.a.get(), pair.b.get(), result.v );
            return result;
        } );
}

/// Bullet pads its rows to four, so it is not compared.
void addBulletRows()
{
    addSingles( { "inverse3Float", "bullet", BRANCHY_COUNT, Compare::NOTHING },
        makeConverted( getMatrices<float, 3>, convertBullet ), []( const btMatrix3x3& m ) { return m.inverse(); } );
    addSingles( { "product3Float", "bullet", SINGLE_COUNT, Compare::NOTHING },
        makeConvertedPairs<float, 3>( convertBullet ),
        []( const Pair<btMatrix3x3>& pair ) { return pair.a * pair.b; } );
    addSingles( { "inverseAffine", "bullet", BRANCHY_COUNT, Compare::NOTHING },
        makeConverted( getAffines, convertBulletTransform ),
        []( const btTransform& t )
        {
            const btMatrix3x3 inverse = t.getBasis().inverse();
            return btTransform( inverse, inverse * -t.getOrigin() );
        } );
}

void addAffineRows()
{
    addSingles( { "inverseAffine", "glm", BRANCHY_COUNT }, makeConverted( getAffines, convertGlm<float, 4> ),
        []( const glm::mat4& m ) { return glm::inverse( m ); } );
    addSingles( { "inverseAffine", "eigen", BRANCHY_COUNT },
        makeConverted( getAffines, []( const Elements<float, 4>& e ) { return Eigen::Affine3f( convertEigen( e ) ); } ),
        []( const Eigen::Affine3f& m ) { return m.inverse( Eigen::Affine ); } );
    addSingles( { "inverseAffine", "imathPivoting", BRANCHY_COUNT },
        makeConverted( getAffines, convertImath<float, 4> ), []( const Imath::M44f& m ) { return m.gjInverse(); } );
    addSingles( { "inverseAffine", "imath", BRANCHY_COUNT }, makeConverted( getAffines, convertImath<float, 4> ),
        []( const Imath::M44f& m ) { return m.inverse(); } );

    const auto plainPoints = getPoints;
    addLoop( { "affinePointsArray", "glm", POINTS },
        makeConverted( plainPoints, convertTriple<glm::vec3, Zq::GePoint3<float>> ),
        [m = convertGlm( makeTransform() )]( const glm::vec3& p ) { return glm::vec3( m * glm::vec4( p, 1.0F ) ); } );
    const auto eigenPoints = makeConverted( plainPoints, convertTriple<Eigen::Vector3f, Zq::GePoint3<float>> );
    const Eigen::Affine3f eigenTransform( convertEigen( makeTransform() ) );
    addLoop( { "affinePointsArray", "eigen", POINTS }, eigenPoints,
        [=]( const Eigen::Vector3f& p ) -> Eigen::Vector3f { return eigenTransform * p; } );
    addArray<Eigen::Vector3f>( { "affinePointsArray", "eigenMap", POINTS }, eigenPoints,
        [=]( const Eigen::Vector3f* points, std::size_t count, Eigen::Vector3f* results )
        {
            const auto columns = static_cast<Eigen::Index>( count );
            const Eigen::Map<const Eigen::Matrix3Xf> all( points->data(), 3, columns );
            Eigen::Map<Eigen::Matrix3Xf> out( results->data(), 3, columns );
            out.noalias() = eigenTransform.linear() * all;
            out.colwise() += eigenTransform.translation();
        } );
    addLoop( { "affinePointsArray", "imath", POINTS },
        makeConverted( plainPoints, convertTriple<Imath::V3f, Zq::GePoint3<float>> ),
        [m = convertImath( makeTransform() )]( const Imath::V3f& p )
        {
            Imath::V3f result;
            m.multVecMatrix( p, result );
            return result;
        } );
    addLoop( { "affinePointsArray", "bullet", POINTS, Compare::NOTHING },
        makeConverted( plainPoints, convertTriple<btVector3, Zq::GePoint3<float>> ),
        [t = convertBulletTransform( makeTransform() )]( const btVector3& p ) { return t * p; } );
    addLoop( { "affinePointsArray", "cglm", POINTS },
        makeConverted( plainPoints,
            []( const Zq::GePoint3<float>& p ) {
                return Three{ { p.getX(), p.getY(), p.getZ() } };
            } ),
        [m = convertCglm( makeTransform() )]( const Three& p )
        {
            Three result;
            glm_mat4_mulv3( m.get(), const_cast<Three&>( p ).v, 1.0F, result.v );
            return result;
        } );

    addLoop( { "projectiveCoordsArray", "glm", POINTS },
        makeConverted( getCoords, []( const auto& c ) { return glm::vec4( c.getX(), c.getY(), c.getZ(), c.getW() ); } ),
        [m = convertGlm( makeTransform() )]( const glm::vec4& c ) { return m * c; } );
    const auto eigenCoords = makeConverted(
        getCoords, []( const auto& c ) { return Eigen::Vector4f( c.getX(), c.getY(), c.getZ(), c.getW() ); } );
    addLoop( { "projectiveCoordsArray", "eigen", POINTS }, eigenCoords,
        [m = convertEigen( makeTransform() )]( const Eigen::Vector4f& c ) -> Eigen::Vector4f { return m * c; } );
    addLoop( { "projectiveCoordsArray", "cglm", POINTS },
        makeConverted( getCoords,
            []( const auto& c ) {
                return CglmCoord{ { c.getX(), c.getY(), c.getZ(), c.getW() } };
            } ),
        [m = convertCglm( makeTransform() )]( const CglmCoord& c )
        {
            CglmCoord result;
            glm_mat4_mulv( m.get(), c.get(), result.v );
            return result;
        } );
}

void addPeerRows()
{
    addPeerSizeRows<float, 3>();
    addPeerSizeRows<float, 4>();
    addPeerSizeRows<double, 3>();
    addPeerSizeRows<double, 4>();
    addPeerTransformRows<float>();
    addPeerTransformRows<double>();
    addCglmRows();
    addBulletRows();
    addAffineRows();
}

#endif

} // namespace

void addMatrixRows()
{
    addOwnRows();
#ifdef ZQ_BENCHMARK_PEERS
    addPeerRows();
#endif
}

} // namespace ZqBench
