// Every check of the geometry classes, provoked: file, exact text and, where it is fixed, the line. docs/checks.md
// prints the same table.

#include "support/prelude.h"

#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geAlignedBoxTree.h>
#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geCascadeBuilder.h>
#include <zq/primitives/geDecomposition3.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geIcosahedron.h>
#include <zq/primitives/gePlane3Builder.h>
#include <zq/primitives/geProjectionBuilder.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geRotation3.h>
#include <zq/primitives/geShaft.h>
#include <zq/primitives/geVector2.h>
#include <zq/primitives/geViewBuilder.h>
#include <zq/primitives/geViewVolume.h>
#include <zq/primitives/geViewport.h>

#include <fstream>
#include <functional>
#include <regex>

namespace
{

struct Check
{
    const char* file;
    int line; // 0: not fixed
    const char* text;
    std::function<void()> provoke;
};

struct Checks : std::vector<Check>
{
    void operator()( const char* file, int line, const char* text, std::function<void()> provoke )
    {
        push_back( { file, line, text, std::move( provoke ) } );
    }
};

template <class T>
void addTwinChecks( Checks& add )
{
    // Vectors of space and of the plane
    const char* file = "src/primitives/geVector3.inline";
    const char* unitLength = "FloatUtil::isEqual( length(), static_cast<T>(1.0) )";
    add( file, 496, "len > 0", [] { GeUnitVector3<T>( 0, 0, 0 ); } );
    add( file, 496, "len > 0", [] { GeVector3<T>().computeUnit(); } );
    add( file, 525, unitLength, [] { GeUnitVector3<T>( 0, T( 1.001 ), 0, GE_TRUSTED ); } );
    file = "src/primitives/geVector2.inline";
    add( file, 0, "len > 0", [] { GeUnitVector2<T>( 0, 0 ); } );
    add( file, 0, "len > 0", [] { GeVector2<T>().computeUnit(); } );
    add( file, 495, unitLength, [] { GeUnitVector2<T>( 0, T( 1.001 ), GE_TRUSTED ); } );
    add( file, 506, unitLength, [] { GeUnitVector2<T>( GeVector2<T>( 0, 2 ), GE_TRUSTED ); } );

    // Matrices
    const GeLinearMatrix3<T> flat( 1, 0, 0, 0, 0, 0, 0, 0, 1 );
    add( "src/base/matrix3x3Imp", 126, "nonSingular", [=] { flat.computeInverse(); } );
    add( "src/base/matrix3x3Imp", 126, "nonSingular", [=] { GeAffineMatrix3<T>( flat ).computeInverse(); } );
    add( "src/base/matrix4x4Imp", 175, "nonSingular", [=] { GeProjectiveMatrix3<T>( flat ).computeInverse(); } );

    // Rotations
    using Rotation = GeRotation3<T>;
    file = "src/primitives/geRotation3.imp";
    const GeUnitVector3<T> x( 1, 0, 0 );
    const GeVector3<T> up( 0, 1, 0 );
    static const GePoint3<T> repeated[3];
    add( file, 0, "aimAxis >= 0 && aimAxis <= 2", [=] { Rotation::aim( x, 3, true ); } );
    add( file, 0, "aimAxis >= 0 && aimAxis <= 2", [=] { Rotation::aim( x, up, -1, 1, true ); } );
    add( file, 0, "planeAxis >= 0 && planeAxis <= 2", [=] { Rotation::aim( x, up, 0, 3, true ); } );
    add( file, 0, "aimAxis != planeAxis", [=] { Rotation::aim( x, up, 1, 1, true ); } );
    add( file, 0, "nbPoints >= 3", [] { Rotation::aim( 2, repeated, 2, 0, true ); } );
    add( file, 0, "points != 0", [] { Rotation::aim( 3, nullptr, 2, 0, true ); } );
    add( file, 0, "len > 0", [] { Rotation::aim( 3, repeated, 2, 0, true ); } );

    for ( const T bad : { ZqTest::nan<T>, ZqTest::infinity<T> } )
        add( "src/primitives/geDecomposition3.imp", 0, "isFinite( matrix )",
            [=] { GeTranslation3<T>( 0, 0, bad ).getMatrix().computeDecomposition(); } );

    // Boxes: classify() answers OUTSIDE before it combines the axes, so no box reaches this check
    const auto outside = Interval<T>::OUTSIDE;
    add( "src/primitives/geAlignedBox.inline", 0, "conx == Interval<T>::CONTAIN || conx == Interval<T>::INSIDE",
        [=] { Detail::combineContainments<T>( outside, outside, outside ); } );

    // Planes
    file = "src/primitives/geNormalizedPlane3.inline";
    add( file, 0, "len != 0", [] { GeNormalizedPlane3<T>( 0, 0, 0, 1 ); } );
    add( file, 0, "len != 0", [] { GeNormalizedPlane3<T>( GeVector3<T>(), 1 ); } );
    add( file, 0, "len != 0", [] { GeNormalizedPlane3<T>( GePlane3<T>( 0, 0, 0, 1 ) ); } );
    const auto fit = []( int count )
    {
        GePlane3Builder<T> builder;
        for ( int i = 0; i < count; ++i )
            builder.addPoint( { 1, 2, T( i ) } );
        builder.getPlane();
    };
    add( "src/primitives/gePlane3Builder", 0, "len > 0", [=] { fit( 3 ); } );
    add( "src/primitives/gePlane3Builder", 0, "program aborted", [=] { fit( 2 ); } );

    // Frusta; for z = -1 row 3 + row 2 has no direction
    const auto make = []( double w, double z )
    {
        const double rows[4][4] = { { w, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, 1, 0 }, { 0, 0, z, 1 } };
        return GeFrustum<T>( GeProjectiveMatrix3<T>( rows, false ) );
    };
    for ( const int plane : { -1, 7 } )
        add( "src/primitives/geFrustum.inline", 0, "plane >= 0 && plane <= NB_PLANES",
            [=] { make( 1, 0 ).getPlane( plane ); } );
    if constexpr ( sizeof( std::size_t ) > 4 )
        add( "src/primitives/geFrustum.inline", 0, "count <= 0xFFFFFFFF",
            [=] { make( 1, 0 ).findNotOutside( nullptr, std::size_t( 1 ) << 32, nullptr ); } );
    add( "src/primitives/geVector3.inline", 496, "len > 0", [=] { make( 1, -1 ); } );
    add( "src/base/matrix4x4Imp", 175, "nonSingular", [=] { make( 0, 0 ); } );

    // View volumes
    file = "src/primitives/geViewVolume.imp";
    const T nan = ZqTest::nan<T>;
    const GeViewVolume<T> volume( GeProjectiveMatrix3<T>(), GeDepthRange::ZERO_TO_ONE );
    const GeAlignedBox3<T> unknown( Interval<T>( 0, 1 ), Interval<T>( 0, nan ), Interval<T>( 0, 1 ) );
    GeProjectiveMatrix3<T> spoilt;
    spoilt( 3, 1 ) = nan;
    GeAffineMatrix3<T> overflown;
    overflown( 1, 3 ) = ZqTest::infinity<T>;
    add( file, 0, "isFinite( matrix )", [=] { GeViewVolume<T>( spoilt, GeDepthRange::ZERO_TO_ONE ); } );
    add( file, 0, "isFinite( eyeOffsets )", [=] { volume.computeSwept( unknown ); } );
    add( file, 0, "isOrdered( eyeOffsets )", [=] { volume.computeSwept( GeAlignedBox3<T>() ); } );
    add( file, 0, "isFinite( toWorld )", [=] { volume.computeTransformed( overflown ); } );
    add( file, 0, "hasMatrix()",
        [=] { volume.computeTransformed( GeAffineMatrix3<T>() ).computePart( 0, 1, 0, 1, 0, 1 ); } );
    add( file, 0, "isFinite( bounds )", [=] { volume.computePart( 0, 1, 0, nan, 0, 1 ); } );
    add( file, 0, "isOrdered( bounds )", [=] { volume.computePart( 0, 1, 1, 0, 0, 1 ); } );
    for ( const int plane : { -1, 6 } )
        add( "src/primitives/geViewVolume.inline", 0, "plane >= 0 && plane < _nbPlanes",
            [=] { volume.getPlane( plane ); } );
    add( "src/primitives/geViewVolume.inline", 0, "plane >= 0 && plane < _nbPlanes", [=] { volume.getSide( 6 ); } );
    const char* const treeFile = "src/primitives/geAlignedBoxTree.imp";
    add( treeFile, 0, "count == getNbBoxes()", [=] { GeAlignedBoxTree<T>().refit( &unknown, 1 ); } );
    if constexpr ( sizeof( std::size_t ) > 4 )
    {
        const std::size_t tooMany = std::size_t( 1 ) << 32;
        const auto addFind = [&]( const auto* items )
        { add( file, 0, "count <= 0xFFFFFFFF", [=] { volume.findNotOutside( items, tooMany, nullptr ); } ); };
        addFind( static_cast<const GePoint3<T>*>( nullptr ) );
        addFind( static_cast<const GeSphere3<T>*>( nullptr ) );
        addFind( static_cast<const GeAlignedBox3<float>*>( nullptr ) );
        addFind( static_cast<const GeAlignedBox3<double>*>( nullptr ) );
        add( treeFile, 0, "count <= 0xFFFFFFFF", [=] { GeAlignedBoxTree<T>().build( nullptr, tooMany ); } );
    }

    // Quaternions
    using Q = GeQuaternion3<T>;
    file = "src/primitives/geQuaternion3.imp";
    const GeLinearMatrix3<T> zero( 0, 0, 0, 0, 0, 0, 0, 0, 0 );
    Q q;
    add( file, 0, "s != 0", [=] { Q().setMatrix( zero, 0 ); } );
    add( file, 0, "m44 != 0", [=] { Q().setMatrix( GeLinearMatrix3<T>(), 0 ); } );
    add( file, 0, "0 <= i && i <= 2", [] { Q().setEuler( typename Q::EulerConvention( 3 ), 1, 2, 3 ); } );
    add( file, 0, "prodNorms != 0", [=] { Q().aim( GeVector3<T>(), up ); } );
    add( file, 0, "a > 0", [] { Q::exp( Q() ); } );
    add( file, 0, "h2uinv.getMagnitude() == 0", [=]() mutable { Q::computeIntermediates( q, q, q, q, q ); } );
    for ( const int axis : { -1, 3 } )
        add( "src/primitives/geQuaternion3.inline", 0, "0 <= innerAxis && innerAxis <= 2",
            [=] { Q::makeEulerConvention( axis, 0, 0, 0 ); } );
}

template <class T>
void addProjectionChecks( Checks& add )
{
    using Builder = GeProjectionBuilder<T>;
    const char* file = "src/primitives/geProjectionBuilder.imp";
    const T infinity = ZqTest::infinity<T>, nan = ZqTest::nan<T>, largest = std::numeric_limits<T>::max();
    const auto range = GeDepthRange::ZERO_TO_ONE;
    const T pi = T( 3.14159265358979323847L ); // which double has below pi, float above
    for ( const T angle : { T( 60 ), T( 0 ), T( -1 ), std::nextafter( pi, T( 4 ) ), pi, nan } )
    {
        add( file, 0, "verticalAngle > 0 && verticalAngle < PI",
            [=] { Builder::makePerspectiveFromVerticalAngle( angle, 1, 1, 2, range ); } );
        add( file, 0, "horizontalAngle > 0 && horizontalAngle < PI",
            [=] { Builder::makePerspectiveFromHorizontalAngle( angle, 1, 1, 2, range ); } );
    }
    for ( const T aspect : { T( 0 ), T( -1 ), infinity, nan } )
        for ( const auto make :
            { Builder::makePerspectiveFromVerticalAngle, Builder::makePerspectiveFromHorizontalAngle } )
            add( file, 0, "aspect > 0 && isFinite( aspect )", [=] { make( 1, aspect, 1, 2, range ); } );

    // each of them with these distances
    const auto addDistances = [&]( const char* text, T n, T f )
    {
        add( file, 0, text, [=] { Builder::makePerspectiveFromVerticalAngle( 1, 1, n, f, range ); } );
        add( file, 0, text, [=] { Builder::makePerspectiveFromHorizontalAngle( 1, 1, n, f, range ); } );
        add( file, 0, text, [=] { Builder::makePerspectiveFromTangents( -1, 1, -1, 1, n, f, range ); } );
        add( file, 0, text, [=] { Builder::makePerspectiveFromNearEdges( -1, 1, -1, 1, n, f, range ); } );
    };
    for ( const T distance : { T( 0 ), T( -1 ), nan } )
        addDistances( "nearDistance > 0", distance, 2 );
    for ( const T distance : { T( 2 ), T( 1 ), T( 0.5 ), nan } )
        addDistances( "nearDistance < farDistance", 2, distance );
    addDistances( "nearDistance < farDistance", infinity, infinity );
    for ( const T distance : { T( 2 ), T( 1 ), infinity, nan } )
        add( file, 0, "nearDistance < farDistance && isFinite( farDistance - nearDistance )",
            [=] { Builder::makeOrthographicFromEdges( -1, 1, -1, 1, 2, distance, range ); } );
    using Edges = std::pair<T, T>;
    for ( const auto& [a, b] :
        { Edges( 1, 1 ), Edges( 1, -1 ), Edges( 1, nan ), Edges( 1, infinity ), Edges( -largest, largest ) } )
    {
        const T l = a, r = b;
        for ( const auto make : { Builder::makePerspectiveFromNearEdges, Builder::makeOrthographicFromEdges } )
        {
            add( file, 0, "left < right && isFinite( right - left )", [=] { make( l, r, -1, 1, 1, 2, range ); } );
            add( file, 0, "bottom < top && isFinite( top - bottom )", [=] { make( -1, 1, l, r, 1, 2, range ); } );
        }
        const auto make = Builder::makePerspectiveFromTangents;
        add( file, 0, "left < right && isFinite( right - left )", [=] { make( l, r, -1, 1, 1, 2, range ); } );
        add( file, 0, "down < up && isFinite( up - down )", [=] { make( -1, 1, l, r, 1, 2, range ); } );
    }
    const T tiny = std::numeric_limits<T>::denorm_min();
    add(
        file, 0, "isRepresentable( rows )", [=] { Builder::makeOrthographicFromEdges( 0, tiny, 0, 1, 1, 2, range ); } );
    add( file, 0, "isRepresentable( rows )",
        [=] { Builder::makePerspectiveFromNearEdges( 0, largest, 0, 1, tiny, 2, range ); } );

    const auto camera = Builder::makePerspectiveFromVerticalAngle( 1, 1, 1, 9, range );
    const auto shadow = Builder::makeOrthographicFromEdges( -1, 1, -1, 1, 1, 9, range );
    const auto addOblique = [&]( const char* text, const GeProjectiveMatrix3<T>& m, const GePlane3<T>& plane )
    { add( file, 0, text, [=] { Builder::makeOblique( m, plane, range ); } ); };
    const GePlane3<T> water( 0, 1, -1, -2 );
    addOblique( "isProjection( projection )", Builder::makeOblique( camera, water, range ), water );
    addOblique( "isProjection( projection )", GeProjectiveMatrix3<T>( GeAffineMatrix3<T>() ) * camera * camera, water );
    addOblique( "isPlane( plane )", camera, { 0, 0, 0, -1 } );
    addOblique( "isPlane( plane )", camera, { 0, 0, nan, -1 } );
    addOblique( "isEyeBehindPlane", camera, { 0, 0, -1, 0 } );
    addOblique( "isPlaneInView", camera, { 0, 0, 1, -2 } );
    addOblique( "isPlaneInView", shadow, { 0, 0, -1, -10 } );
    addOblique( "isRepresentable( rows )", shadow, { 1, 0, 0, 0 } ); // along the view: there is no depth
}

template <class T>
void addViewChecks( Checks& add )
{
    const T infinity = ZqTest::infinity<T>, nan = ZqTest::nan<T>;
    using View = GeViewBuilder<T>;
    const char* file = "src/primitives/geViewBuilder.imp";
    const GePoint3<T> eye( 1, 2, 3 );
    const GeVector3<T> up( 0, 1, 0 );
    for ( const T bad : { nan, infinity } )
    {
        const GePoint3<T> nowhere( 1, 2, bad );
        add( file, 0, "isFinite( eye )", [=] { View::makeView( nowhere, eye, up ); } );
        add( file, 0, "isFinite( eye )", [=] { View::makeViewAlong( nowhere, up, up ); } );
        add( file, 0, "isFinite( eye )", [=] { View::makeView( nowhere, GeRotation3<T>() ); } );
    }
    for ( const GePoint3<T>& target : { eye, GePoint3<T>( 1, nan, 3 ), GePoint3<T>( infinity, 2, 3 ) } )
        add( file, 0, "isDirection( target - eye )", [=] { View::makeView( eye, target, up ); } );
    for ( const GeVector3<T>& bad : { GeVector3<T>(), GeVector3<T>( 1, nan, 0 ), GeVector3<T>( 0, 0, infinity ) } )
    {
        add( file, 0, "isDirection( towards )", [=] { View::makeViewAlong( eye, bad, up ); } );
        add( file, 0, "isDirection( up )", [=] { View::makeViewAlong( eye, up, bad ); } );
        add( file, 0, "isDirection( up )", [=] { View::makeView( eye, GePoint3<T>(), bad ); } );
        add( "src/primitives/geCascadeBuilder.imp", 0, "isDirection( direction )",
            [=] { GeCascadeBuilder<T>( bad, 64, 0, GeDepthRange::ZERO_TO_ONE ); } );
    }

    file = "src/primitives/geViewport.imp";
    const auto range = GeDepthRange::ZERO_TO_ONE;
    const auto camera = GeProjectionBuilder<T>::makePerspectiveFromVerticalAngle( 1, 1, 1, 9, range );
    const GeLinearMatrix3<T> flat( 1, 0, 0, 0, 0, 0, 0, 0, 1 );
    const GeAffineMatrix3<T> plain, badView( GeLinearMatrix3<T>(), GeVector3<T>( 0, nan, 0 ) ), flatView( flat );
    const auto rows = GeImageRows::FROM_PLUS_ONE;
    auto badCamera = camera;
    badCamera( 3, 2 ) = 1; // left-handed
    for ( const int size : { 0, -1 } )
    {
        add( file, 0, "width > 0 && height > 0", [=] { GeViewport<T>( camera, plain, size, 1, rows ); } );
        add( file, 0, "width > 0 && height > 0", [=] { GeViewport<T>( camera, plain, 1, size, rows ); } );
    }
    add( file, 0, "isProjection( projection )", [=] { GeViewport<T>( badCamera, plain, 1, 1, rows ); } );
    add( file, 0, "isFinite( view )", [=] { GeViewport<T>( camera, badView, 1, 1, rows ); } );
    add( "src/base/matrix3x3Imp", 126, "nonSingular", [=] { GeViewport<T>( camera, flatView, 1, 1, rows ); } );

    file = "src/primitives/geCascadeBuilder.imp";
    for ( const int resolution : { 3, -1, 65537 } )
        add( file, 0, "resolution >= 4 && resolution <= 65536",
            [=] { GeCascadeBuilder<T>( up, resolution, 0, range ); } );
    for ( const T distance : { T( -1 ), nan, infinity } )
        add( file, 0, "casterDistance >= 0 && isFinite( casterDistance )",
            [=] { GeCascadeBuilder<T>( up, 64, distance, range ); } );
    const GeCascadeBuilder<T> light( up, 64, 0, range );
    add( file, 0, "isProjection( projection )", [=] { light.fitSlice( badCamera, plain, 1, 2 ); } );
    add( file, 0, "isFinite( view )", [=] { light.fitSlice( camera, badView, 1, 2 ); } );
    add( "src/base/matrix3x3Imp", 126, "nonSingular", [=] { light.fitSlice( camera, flatView, 1, 2 ); } );
    using Distances = std::pair<T, T>;
    for ( const auto& [n, f] :
        { Distances( -1, 2 ), Distances( 2, 2 ), Distances( 1, infinity ), Distances( nan, 1 ) } )
        add( file, 0, "nearDistance >= 0 && nearDistance < farDistance && isFinite( farDistance )",
            [=, near = n, far = f] { light.fitSlice( camera, plain, near, far ); } );
    const GeAffineMatrix3<T> shrinking( GeLinearMatrix3<T>( T( 0.5 ), 0, 0, 0, T( 0.5 ), 0, 0, 0, T( 0.5 ) ) );
    add( file, 0, "isHeld( points )", [=] { light.fitSlice( camera, shrinking, 1, 2 ); } );
    const std::array<GePoint3<T>, 2> points = { GePoint3<T>(), GePoint3<T>( 3, 0, 0 ) }, bad = { eye, { 0, 0, nan } };
    add( file, 0, "count > 0", [=] { light.fitPoints( points.data(), 0, 3 ); } );
    add( file, 0, "isFinite( points )", [=] { light.fitPoints( bad.data(), 2, 3 ); } );
    for ( const T diameter : { T( 0 ), T( -1 ), nan, infinity } )
        add( file, 0, "diameter > 0 && isFinite( diameter )", [=] { light.fitPoints( points.data(), 2, diameter ); } );
    add( file, 0, "isHeld( points )", [=] { light.fitPoints( points.data(), 2, T( 2.9 ) ); } );
    add( file, 0, "isRepresentable( rows )",
        [=] { light.fitPoints( points.data(), 1, std::numeric_limits<T>::denorm_min() ); } );
}

void addOtherChecks( Checks& add )
{
    // Shafts: no two boxes make a ninth plane, and no loop reaches a seventh face: the inner functions do
    add( "src/primitives/geShaft", 0, "nbPlanes <= 8", [] { Detail::checkNbPlanes( 9 ); } );
    for ( const int face : { -1, 6 } )
        add( "src/primitives/geShaft", 0, "program aborted",
            [=] { Detail::getFaceCoordinate( GeAlignedBox3<float>(), face ); } );

    // The icosahedron
    const char* file = "src/primitives/geIcosahedron.inline";
    using Ico = GeIcosahedron;
    GeVector3<float> v;
    for ( const int i : { -1, 12 } )
        add( file, 0, "0 <= i && i < NB_VERTICES", [=]() mutable { Ico::getVertex( i, v ); } );
    for ( const int i : { -1, 30 } )
        add( file, 0, "0 <= i && i < NB_EDGES", [=]() mutable { Ico::getEdge( i, v, v ); } );
    for ( const int i : { -1, 20 } )
        add( file, 0, "0 <= i && i < NB_FACES", [=]() mutable { Ico::getFace( i, v, v, v ); } );

    // Cones
    const GeFloatingCone upright( GeUnitVector3<float>( 0, 0, 1 ), 0.5F ), axisless( GeUnitVector3<float>(), 0.5F );
    add( "src/primitives/geFloatingCone", 0, "len > 0", [=] { GeFloatingCone( axisless ).expand( upright ); } );
    file = "src/primitives/geAnchoredConeBuilder";
    add( file, 0, "bottomIndex != -1", [=] { GeAnchoredConeBuilder().createCone( upright ); } );
    GeAnchoredConeBuilder builder;
    builder( GePoint3<float>() );
    add( file, 0, "len > 0", [=]() mutable { builder.createCone( axisless ); } );
    // no points lead to these two: they guard the inner workings
    static const std::vector<GePoint3<float>> two( 2 );
    add( file, 0, "bottomIndex < _points.size()", [] { Detail::getBottomPoint( two, 2 ); } );
    add( file, 0, "nbOutsidePoints <= _points.size()", [] { Detail::checkNbOutsidePoints( 3, 2 ); } );
}

Checks makeTable()
{
    Checks checks;
    addTwinChecks<float>( checks );
    addTwinChecks<double>( checks );
    addProjectionChecks<float>( checks );
    addProjectionChecks<double>( checks );
    addViewChecks<float>( checks );
    addViewChecks<double>( checks );
    addOtherChecks( checks );
    return checks;
}

TEST( CheckTable, EveryReportHasItsFileLineAndText )
{
    for ( const Check& check : makeTable() )
    {
        const ZqTest::Report report = ZqTest::catchReport( check.provoke );
        EXPECT_EQ( report.text, check.text ) << check.file;
        EXPECT_EQ( report.file, check.file ) << check.text;
        if ( check.line )
            EXPECT_EQ( report.line, check.line ) << check.text;
        else
            EXPECT_GT( report.line, 0 ) << check.text;
    }
}

TEST( CheckTable, TheDocumentPrintsTheSameTable )
{
    std::set<std::string> provoked, documented;
    for ( const Check& check : makeTable() )
    {
        const std::string text = std::regex_replace( check.text, std::regex( "\\|" ), "\\|" );
        const std::string line = check.line ? std::to_string( check.line ) : "any";
        provoked.insert( std::string( "| `" ) + check.file + "` | " + line + " | `" + text + "` |" );
    }
    const std::regex row( R"((\| `src/.*?` \| \w+ \| `.*?` \|).*)" );
    std::ifstream document( ZQ_DOCS_DIR "/checks.md" );
    std::smatch cells;
    for ( std::string text; std::getline( document, text ); )
        if ( std::regex_match( text, cells, row ) )
            documented.insert( cells[1] );
    EXPECT_EQ( documented, provoked );
}

} // namespace
