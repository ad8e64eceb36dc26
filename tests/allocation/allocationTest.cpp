// Value classes never allocate: a counting operator new watches every operation that is called here, in the libraries,
// too. A program of its own, because it replaces that operator.

#include "support/scalars.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/coSpectrum.h>
#include <zq/primitives/geAlignedBoxBuilder.h>
#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geCameraBuilder.h>
#include <zq/primitives/geCascadeBuilder.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFloatingConeBuilder.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geIcosahedron.h>
#include <zq/primitives/gePlane3Builder.h>
#include <zq/primitives/geProjectionBuilder.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geShaft.h>
#include <zq/primitives/geSphere3.h>
#include <zq/primitives/geTolerances.h>
#include <zq/primitives/geVector2Utils.h>
#include <zq/primitives/geViewBuilder.h>
#include <zq/primitives/geViewport.h>
#include <zq/primitives/geXAxisRotation3.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <sstream>

static std::atomic<long> allocations{ 0 };

// The array forms of the standard library come here. Inlined on one side only, GCC would call the pair mismatched.
[[gnu::noinline]] void* operator new( std::size_t size )
{
    ++allocations;
    if ( void* memory = std::malloc( size ? size : 1 ) )
        return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete( void* memory ) noexcept
{
    std::free( memory );
}

[[gnu::noinline]] void operator delete( void* memory, std::size_t ) noexcept
{
    std::free( memory );
}

namespace
{

using namespace Zq;

/// Counts what was allocated since it was made.
struct Watch
{
    ~Watch() { EXPECT_EQ( allocations - before, 0 ); }
    const long before = allocations;
};

/// The results are asked for by someone the optimiser does not know.
template <class... Values>
void use( const Values&... values )
{
    static const void* volatile sink = nullptr;
    ( ( sink = &values ), ... );
    static_cast<void>( sink );
}

ZQ_TWIN_SUITE( Allocation );

ZQ_TWIN_TEST( Allocation, OfTheTwins )
{
    T t = 0, t1 = 0;
    const Watch watch;
    GeVector3<T> v( 1, 2, 3 );
    GePoint3<T> p( 3, 2, 1 );
    const GePoint3<T> origin;
    const GeUnitVector3<T> u( v );
    use( v.cross( u ), u.computeReflection( v.computeUnit(), t ), v.computeAngle( u ), v.normalize() );

    const GeLinearMatrix3<T> l( 1, 2, 3, 0, 1, 4, 5, 6, 0 );
    GeAffineMatrix3<T> a( l, v );
    const GeProjectiveMatrix3<T> m( a );
    use( l * l.computeInverse() * l.computeAdjoint(), a.mulOnRight( l ) * a.computeInverse() );
    a.computeInverseAndDeterminant( a, t );
    use( m * m.computeInverse() * a * m.computeAdjoint(),
        m * GeHomogeneousCoord3<T>( 1, 2, 3, m.computeDeterminant() ) );
    use( GeCameraBuilder<T>::makePerspective( 1, 1, 3, 2 ), GeCameraBuilder<T>::makeOrthographic( 1, 1, 3, 2 ) );
    const auto range = GeDepthRange::ZERO_TO_ONE;
    const auto lens = GeProjectionBuilder<T>::makePerspectiveFromTangents( -1, 1, -1, 1, 1, 3, range );
    const auto view = GeViewBuilder<T>::makeView( GePoint3<T>( 1, 2, 3 ), GePoint3<T>(), GeVector3<T>( 0, 1, 0 ) );
    GePoint3<T> image;
    use( GeViewport<T>( lens, view, 4, 4, GeImageRows::FROM_PLUS_ONE ).project( GePoint3<T>(), image ),
        GeCascadeBuilder<T>( GeVector3<T>( 1, 1, 1 ), 8, 1, range ).fitSlice( lens, view, 1, 2 ).view );

    GeQuaternion3<T> q( GeRotation3<T>::aim( u, GeVector3<T>( 0, 0, 1 ), 0, 1, true ) );
    q.aim( v, GeVector3<T>( 3, 2, 1 ) );
    use( GeQuaternion3<T>::squad( q, q, q.computeInverse(), q * q, T( 0.3 ) ), q.getRotation() * v );
    use( GeXAxisRotation3<T>( 1 ) * a, GeScale3<T>( v ) * a, GeTranslation3<T>( v ) * m );
    const GePoint2<T> a2( 1, 1 ), b2( 2, 0 );
    use( GeVector2Utils<T>::distanceSquaredFromPointToLineSegment( a2, b2, GePoint2<T>(), false ) );
    use( CoHsvColorT<T>::convertFromRgb( CoRgbColorT<T>( 1, 2, 3 ) ).convertToRgb().gammaCorrect( 2 ) );
    use( ( CoSpectrumT<T>( 1, 2, 3 ) * T( 2 ) ).computeScaledTo( 1 ) );

    const GeAlignedBox3<T> box( p, p + v );
    const GeSphere3<T> sphere( p, 1 );
    use( sphere.intersectRay( origin, v, t, t1 ), sphere.getClosestPoint( p, v, p ) );
    use( box.classify( GeAlignedBox3<T>( p ).extend( origin ) ), box.intersectLine( origin, v ) );
    GePlane3Builder<T> builder;
    for ( int corner = 0; corner < 4; ++corner )
        builder.addPoint( box.getCorner( corner ^ corner >> 1 ) );
    const GeFrustum<T> frustum{ GeProjectiveMatrix3<T>() };
    use( builder.getPlane().intersectRay( p, v, t ), frustum.classify( p ), frustum.classify( box ) );
}

// The fast way of reading shows by this, too: where libstdc++ reads a number by itself, it allocates.
ZQ_TWIN_TEST( Allocation, OfPlainInput )
{
    std::istringstream is( "(1, 2.5, -3e4) (4, 5, 6) " );
    GePoint3<T> p, q;
    {
        const Watch watch;
        is >> p >> q;
    }
    EXPECT_EQ( p, GePoint3<T>( 1, T( 2.5 ), -30000 ) );
    EXPECT_EQ( q, GePoint3<T>( 4, 5, 6 ) );
#ifdef __GLIBCXX__
    std::istringstream other( "(1, 2, 3) " );
    other.unsetf( std::ios_base::skipws ); // not plain
    const long before = allocations;
    other >> p;
    EXPECT_GT( allocations - before, 0 );
#endif
}

struct Flat final : RnRng<float>, UnaryFunctor<GeVector3<float>, void>
{
    float operator()() override { return 0.25F; }
    void operator()( const GeVector3<float>& v ) override { use( v ); }
};

// The cones' builders are made with room for 16 and may not grow it: fitting works in place.
TEST( AllocationOfOthers, OfShaftsSamplesTolerancesAndCones )
{
    const long before = allocations;
    GeFloatingConeBuilder normals;
    GeAnchoredConeBuilder points;
    EXPECT_EQ( allocations - before, 2 ); // they are counted
    const Watch watch;
    const GePoint3<float> p( 3, 2, 1 ), q( 4, -5, 6 );
    const GeAlignedBox3<float> box1( p, GePoint3<float>() ), box2( p, q );
    const GeShaft shaft( box1, box2 );
    Flat flat;
    use( shaft.contains( p ), shaft.overlaps( box1 ), shaft.overlapsExclude( box2 ) );
    use( GeIcosahedron::getStratifiedSamples( 320, flat, flat ), GeTolerances().samePoint( p, q ) );
    for ( float x = 0; x < 16; ++x )
    {
        normals( GeUnitVector3<float>( x, 3, 20 ) );
        points( GePoint3<float>( x, x * x, 1 ) );
    }
    GeFloatingCone cone = normals.createCone();
    cone.expand( GeFloatingCone( GeUnitVector3<float>( 0, 1, 1 ), 0.5F ) );
    const GeCullingCones cones( points.createCone( cone ) );
    GeAlignedBoxBuilder corners;
    box1.enumerateCorners( corners );
    use( cones.isBehind( p ), cones.isInFront( p ), corners.getBox() );
}

} // namespace
