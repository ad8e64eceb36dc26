#include "support/prelude.h"

#include <zq/primitives/geViewBuilder.h>

namespace
{

ZQ_TWIN_SUITE( ViewBuilder );

template <class T>
void expectRotation( const GeLinearMatrix3<T>& m )
{
    const GeLinearMatrix3<T> transpose(
        m( 0, 0 ), m( 1, 0 ), m( 2, 0 ), m( 0, 1 ), m( 1, 1 ), m( 2, 1 ), m( 0, 2 ), m( 1, 2 ), m( 2, 2 ) );
    EXPECT_CLOSE( m * transpose, GeLinearMatrix3<T>(), 4 * epsilon<T> );
    EXPECT_GT( m.computeDeterminant(), T( 0 ) );
}

// Lengths whose squares leave the range of T, and of double
ZQ_TWIN_TEST( ViewBuilder, SeesTheTargetAheadAndUpUpwards )
{
    Random random( 311 );
    for ( const auto run : random.runs( 300 ) )
    {
        const T length = std::pow( T( 10 ), T( ( run % 31 - 15 ) * ( sizeof( T ) == sizeof( float ) ? 1 : 12 ) ) );
        const GeVector3<T> towards = random.direction<T>() * length, up = random.vector<T>( 1 ) / length;
        const GePoint3<T> eye = random.point<T>( length );
        const GeAffineMatrix3<T> view = GeViewBuilder<T>::makeViewAlong( eye, towards, up );
        expectRotation( view.getLinear() );
        EXPECT_CLOSE( view * eye, GePoint3<T>(), 8 * epsilon<T> * length );
        EXPECT_CLOSE( view * towards, GeVector3<T>( 0, 0, -length ), 8 * epsilon<T> * length );
        EXPECT_NEAR( double( ( view * up ).getX() * length ), 0, 8 * double( epsilon<T> ) );
        EXPECT_GT( ( view * up ).getY(), T( 0 ) );
        const GePoint3<T> target = eye + towards;
        const GeVector3<T> back = GeViewBuilder<T>::makeView( eye, target, up ) * ( target - eye );
        EXPECT_CLOSE(
            back, GeVector3<T>( 0, 0, -( ( target - eye ) / length ).length() * length ), 8 * epsilon<T> * length );
    }
}

ZQ_TWIN_TEST( ViewBuilder, AParallelUpIsReplacedByTheAxisFarthestFromTheView )
{
    const auto make = GeViewBuilder<T>::makeViewAlong;
    const auto expectUp = [&]( const GeVector3<T>& towards, const GeVector3<T>& taken )
    {
        for ( const T factor : { T( 3 ), T( -0.7 ) } )
            EXPECT_EQ( make( {}, towards, towards * factor ), make( {}, towards, taken ) ) << towards;
        expectRotation( make( {}, towards, towards ).getLinear() );
    };
    expectUp( { 0, -1, 0 }, { 0, 0, 1 } );
    expectUp( { 0, 0, 2 }, { 0, 1, 0 } );
    expectUp( { 1, 0, 0 }, { 0, 0, 1 } );
    expectUp( { 1, 1, 1 }, { 0, 0, 1 } );
    expectUp( { 1, 2, 3 }, { 1, 0, 0 } );
    expectUp( { 3, 1, 2 }, { 0, 1, 0 } );
    // nearly parallel, a cross product is mostly rounding
    Random random( 313 );
    for ( const auto run : random.runs( 200 ) )
    {
        const GeVector3<T> towards = random.direction<T>(), side = random.direction<T>();
        expectRotation( make( {}, towards, towards + side * ( epsilon<T> * T( run ) ) ).getLinear() );
    }
    // the angle at which `up` starts to count: still a right frame on both sides of it
    for ( const int sine : { 1, 8, 15, 17, 32, 1024 } )
    {
        const auto view = make( {}, { 0, 0, -1 }, { T( sine ) * epsilon<T>, 0, -1 } );
        expectRotation( view.getLinear() );
        EXPECT_CLOSE( view * ( sine > 16 ? GeVector3<T>( 1, 0, 0 ) : GeVector3<T>( 0, 1, 0 ) ), GeVector3<T>( 0, 1, 0 ),
            epsilon<T> );
    }
}

ZQ_TWIN_TEST( ViewBuilder, ARotationPlacesTheCamera )
{
    Random random( 312 );
    for ( const auto run : random.runs( 100 ) )
    {
        const auto rotation = GeRotation3<T>::makeRotation( random.direction<T>(), random.uniform<T>( -4, 4 ) );
        const GePoint3<T> eye = random.point<T>( 10 );
        const GeAffineMatrix3<T> view = GeViewBuilder<T>::makeView( eye, rotation );
        const GeVector3<T> v = random.vector<T>( 10 );
        EXPECT_CLOSE( view * ( eye + rotation * v ), GePoint3<T>( v ), 100 * epsilon<T> ) << run;
        EXPECT_EQ( view.getLinear(), rotation.computeInverse().getMatrix() );
    }
}

} // namespace
