// A program of its own, because it replaces operator new. Value classes never allocate: a counting operator new watches every operation that is called here.

#include <zq/primitives/geAlignedBoxBuilder.h>
#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geCameraBuilder.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFloatingConeBuilder.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/gePlane3Builder.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geVector3.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <vector>

using namespace Zq;

namespace
{

std::atomic<long> allocations{ 0 };

void* countedAllocate( std::size_t size )
{
    ++allocations;
    if ( void* memory = std::malloc( size ? size : 1 ) )
        return memory;
    throw std::bad_alloc();
}

} // namespace

// The program's operator new also serves the shared libraries.
void* operator new( std::size_t size )
{
    return countedAllocate( size );
}

void* operator new[]( std::size_t size )
{
    return countedAllocate( size );
}

void operator delete( void* memory ) noexcept
{
    std::free( memory );
}

void operator delete[]( void* memory ) noexcept
{
    std::free( memory );
}

void operator delete( void* memory, std::size_t ) noexcept
{
    std::free( memory );
}

void operator delete[]( void* memory, std::size_t ) noexcept
{
    std::free( memory );
}

namespace
{

// keeps results alive without optimising the calls away
template <class V>
void use( const V& value )
{
    static const void* volatile sink = nullptr;
    sink = &value;
    static_cast<void>( sink );
}

template <class Call>
long countAllocations( Call&& call )
{
    const long before = allocations;
    call();
    return allocations - before;
}

template <class T>
void useVectors()
{
    GeVector3<T> v( 1, 2, 3 );
    GePoint3<T> p( 3, 2, 1 );
    const GeUnitVector3<T> u( v );
    T cosine = 0;
    use( v.cross( u ) + u.computeReflection( v.computeUnit(), cosine ) / v.computeAngle( u ) );
    use( GePoint3<T>::computeMin( p, p + v ) );
    use( v.normalize() );
}

template <class T>
void useMatrices()
{
    const GeLinearMatrix3<T> m( 1, 2, 3, 0, 1, 4, 5, 6, 0 );
    GeAffineMatrix3<T> a( m, GeVector3<T>( 1, 2, 3 ) );
    T determinant = 0;
    a.computeInverseAndDeterminant( a, determinant );
    use( m * m.computeInverse() * m.computeAdjoint() );
    use( a.mulOnRight( m ) * a.computeInverse() );
    const GeProjectiveMatrix3<T> p( a );
    use( p * GeCameraBuilder<T>::makePerspective( 1, 1, 3, 2 ) * GeCameraBuilder<T>::makeOrthographic( 1, 1, 3, 2 ) );
    use( p * p.computeInverse() * a * p.computeAdjoint().computeTranspose() );
    use( p * GeHomogeneousCoord3<T>( 1, 2, 3, p.computeDeterminant() ) );
}

template <class T>
void useVolumes()
{
    const GePoint3<T> p( 3, 2, 1 );
    const GeVector3<T> v( 1, 2, 3 );
    const GeAlignedBox3<T> box( p, p + v );
    use( box.classify( GeAlignedBox3<T>( p ).extend( GePoint3<T>( v ) ) ) );
    use( box.intersectLine( GePoint3<T>(), v ) );
    GePlane3Builder<T> builder;
    for ( int corner = 0; corner < 4; ++corner )
        builder.addPoint( box.getCorner( corner ^ corner >> 1 ) );
    GeNormalizedPlane3<T> plane = builder.getPlane();
    T t = 0;
    use( plane.intersectRay( p, v, t ) );
    const GeFrustum<T> frustum{ GeProjectiveMatrix3<T>() };
    use( frustum.classify( p ) + frustum.classify( box ) );
    use( frustum.isEqual( frustum, t ) );
}

void useBoxBuilder()
{
    GeAlignedBoxBuilder builder;
    GeAlignedBox3<float>( GePoint3<float>( 1, 2, 3 ) ).enumerateCorners( builder );
    use( builder.getBox() );
}

// The builders are made with room for 16 and may not grow it: fitting works in place.
void useCones( GeFloatingConeBuilder& normals, GeAnchoredConeBuilder& points )
{
    GeFloatingCone cone = normals.createCone();
    cone.expand( GeFloatingCone( GeUnitVector3<float>( 0, 1, 1 ), 0.5F ) );
    const GeCullingCones cones( points.createCone( cone ) );
    use( cones.isBehind( GePoint3<float>() ) );
    use( cones.isInFront( GePoint3<float>() ) );
    use( cones );
}

std::vector<int> kept;

TEST( Allocation, TheCounterCounts )
{
    EXPECT_EQ( countAllocations( [] { std::vector<int>( 100 ).swap( kept ); } ), 1 );
}

TEST( Allocation, VectorsDoNotAllocate )
{
    EXPECT_EQ( countAllocations( useVectors<float> ), 0 );
    EXPECT_EQ( countAllocations( useVectors<double> ), 0 );
}

TEST( Allocation, MatricesDoNotAllocate )
{
    EXPECT_EQ( countAllocations( useMatrices<float> ), 0 );
    EXPECT_EQ( countAllocations( useMatrices<double> ), 0 );
}

TEST( Allocation, VolumesDoNotAllocate )
{
    EXPECT_EQ( countAllocations( useVolumes<float> ), 0 );
    EXPECT_EQ( countAllocations( useVolumes<double> ), 0 );
    EXPECT_EQ( countAllocations( useBoxBuilder ), 0 );
}

TEST( Allocation, ConesDoNotAllocate )
{
    GeFloatingConeBuilder normals;
    GeAnchoredConeBuilder points;
    const auto fillAndUse = [&]
    {
        for ( int i = 0; i < 16; ++i )
        {
            const float x = static_cast<float>( i );
            normals( GeUnitVector3<float>( x, 3, 20 ) );
            points( GePoint3<float>( x, x * x, 1 ) );
        }
        useCones( normals, points );
    };
    EXPECT_EQ( countAllocations( fillAndUse ), 0 );
}

} // namespace
