// Every check of the geometry classes, provoked: file, exact text and, where it is fixed, the line. docs/checks.md
// prints the same table.

#include "support/report.h"

#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geIcosahedron.h>
#include <zq/primitives/gePlane3Builder.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geRotation3.h>
#include <zq/primitives/geShaft.h>
#include <zq/primitives/geVector2.h>
#include <zq/primitives/geVector3.h>

#include <fstream>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

using namespace Zq;

namespace
{

struct Check
{
    const char* file;
    int line; // 0: not fixed
    const char* text;
    std::function<void()> provoke;
};

const char UNIT_LENGTH[] = "FloatUtil::isEqual( length(), static_cast<T>(1.0) )";

// Vectors --------------------------------------------------------------------------------------------------------

template <class T>
void addVectorChecks( std::vector<Check>& checks )
{
    const char* file = "src/primitives/geVector3.inline";
    checks.push_back( { file, 496, "len > 0", [] { GeUnitVector3<T>( 0, 0, 0 ); } } );
    checks.push_back( { file, 496, "len > 0", [] { static_cast<void>( GeVector3<T>().computeUnit() ); } } );
    checks.push_back( { file, 525, UNIT_LENGTH, [] { GeUnitVector3<T>( 0, T( 1.001 ), 0, GE_TRUSTED ); } } );
}

// Matrices -------------------------------------------------------------------------------------------------------

template <class T>
void addMatrixChecks( std::vector<Check>& checks )
{
    const char* file3 = "src/base/matrix3x3Imp";
    const char* file4 = "src/base/matrix4x4Imp";
    GeLinearMatrix3<T> flat;
    flat( 1, 1 ) = 0;
    checks.push_back( { file3, 126, "nonSingular", [flat] { static_cast<void>( flat.computeInverse() ); } } );
    checks.push_back(
        { file3, 126, "nonSingular", [flat] { static_cast<void>( GeAffineMatrix3<T>( flat ).computeInverse() ); } } );
    checks.push_back( { file4, 175, "nonSingular",
        [flat] { static_cast<void>( GeProjectiveMatrix3<T>( flat ).computeInverse() ); } } );
}

// Plane vectors, rotations ---------------------------------------------------------------------------------------

template <class T>
void addVector2Checks( std::vector<Check>& checks )
{
    const char* file = "src/primitives/geVector2.inline";
    checks.push_back( { file, 0, "len > 0", [] { GeUnitVector2<T>( 0, 0 ); } } );
    checks.push_back( { file, 0, "len > 0", [] { static_cast<void>( GeVector2<T>().computeUnit() ); } } );
    checks.push_back( { file, 495, UNIT_LENGTH, [] { GeUnitVector2<T>( 0, T( 1.001 ), GE_TRUSTED ); } } );
    checks.push_back( { file, 506, UNIT_LENGTH, [] { GeUnitVector2<T>( GeVector2<T>( 0, 2 ), GE_TRUSTED ); } } );
}

template <class T>
void addRotationChecks( std::vector<Check>& checks )
{
    const char* file = "src/primitives/geRotation3.imp";
    const auto add = [&]( const char* text, std::function<void()> provoke ) {
        checks.push_back( { file, 0, text, std::move( provoke ) } );
    };
    const GeUnitVector3<T> x( 1, 0, 0 );
    const GeVector3<T> up( 0, 1, 0 );
    static const GePoint3<T> repeated[3];
    add( "aimAxis >= 0 && aimAxis <= 2", [=] { GeRotation3<T>::aim( x, 3, true ); } );
    add( "aimAxis >= 0 && aimAxis <= 2", [=] { GeRotation3<T>::aim( x, up, -1, 1, true ); } );
    add( "planeAxis >= 0 && planeAxis <= 2", [=] { GeRotation3<T>::aim( x, up, 0, 3, true ); } );
    add( "aimAxis != planeAxis", [=] { GeRotation3<T>::aim( x, up, 1, 1, true ); } );
    add( "nbPoints >= 3", [=] { GeRotation3<T>::aim( 2, repeated, 2, 0, true ); } );
    add( "points != 0", [=] { GeRotation3<T>::aim( 3, nullptr, 2, 0, true ); } );
    add( "len > 0", [=] { GeRotation3<T>::aim( 3, repeated, 2, 0, true ); } );
}

// Boxes, planes, frusta ------------------------------------------------------------------------------------------

template <class T>
void addBoxChecks( std::vector<Check>& checks )
{
    // classify() answers OUTSIDE before it combines the axes, so no box reaches this check: the combination does
    checks.push_back(
        { "src/primitives/geAlignedBox.inline", 0, "conx == Interval<T>::CONTAIN || conx == Interval<T>::INSIDE",
            []
            {
                const auto outside = Interval<T>::OUTSIDE;
                Detail::combineContainments<T>( outside, outside, outside );
            } } );
}

template <class T>
void addPlaneChecks( std::vector<Check>& checks )
{
    const char* file = "src/primitives/geNormalizedPlane3.inline";
    checks.push_back( { file, 0, "len != 0", [] { GeNormalizedPlane3<T>( 0, 0, 0, 1 ); } } );
    checks.push_back( { file, 0, "len != 0", [] { GeNormalizedPlane3<T>( GeVector3<T>(), 1 ); } } );
    checks.push_back( { file, 0, "len != 0", [] { GeNormalizedPlane3<T>( GePlane3<T>( 0, 0, 0, 1 ) ); } } );
    const auto fit = []( int count )
    {
        GePlane3Builder<T> builder;
        for ( int i = 0; i < count; ++i )
            builder.addPoint( { 1, 2, T( i ) } );
        builder.getPlane();
    };
    checks.push_back( { "src/primitives/gePlane3Builder", 0, "len > 0", [=] { fit( 3 ); } } );
    checks.push_back( { "src/primitives/gePlane3Builder", 0, "program aborted", [=] { fit( 2 ); } } );
}

template <class T>
void addFrustumChecks( std::vector<Check>& checks )
{
    const auto make = []( double x, double z )
    {
        const double rows[4][4] = { { x, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, 1, 0 }, { 0, 0, z, 1 } };
        return GeFrustum<T>( GeProjectiveMatrix3<T>( rows, false ) );
    };
    const char* range = "plane >= 0 && plane <= NB_PLANES";
    checks.push_back( { "src/primitives/geFrustum.inline", 0, range, [=] { make( 1, 0 ).getPlane( -1 ); } } );
    checks.push_back( { "src/primitives/geFrustum.inline", 0, range, [=] { make( 1, 0 ).getPlane( 7 ); } } );
    if constexpr ( sizeof( std::size_t ) > 4 )
        checks.push_back( { "src/primitives/geFrustum.inline", 0, "count <= 0xFFFFFFFF",
            [=] { make( 1, 0 ).findNotOutside( nullptr, std::size_t( 1 ) << 32, nullptr ); } } );
    // for z = -1 row 3 + row 2 has no direction
    checks.push_back( { "src/primitives/geVector3.inline", 496, "len > 0", [=] { make( 1, -1 ); } } );
    checks.push_back( { "src/base/matrix4x4Imp", 175, "nonSingular", [=] { make( 0, 0 ); } } );
}

// Shaft and icosahedron ------------------------------------------------------------------------------------------

void addShaftChecks( std::vector<Check>& checks )
{
    // no two boxes make a ninth plane, and no loop reaches a seventh face: the inner functions do
    checks.push_back( { "src/primitives/geShaft", 0, "nbPlanes <= 8", [] { Detail::checkNbPlanes( 9 ); } } );
    for ( const int face : { -1, 6 } )
        checks.push_back( { "src/primitives/geShaft", 0, "program aborted",
            [=] { Detail::getFaceCoordinate( GeAlignedBox3<float>(), face ); } } );
}

void addIcosahedronChecks( std::vector<Check>& checks )
{
    const char* file = "src/primitives/geIcosahedron.inline";
    GeVector3<float> v;
    for ( const bool isAbove : { false, true } )
    {
        checks.push_back( { file, 0, "0 <= i && i < NB_VERTICES",
            [=]() mutable { GeIcosahedron::getVertex( isAbove ? 12 : -1, v ); } } );
        checks.push_back( { file, 0, "0 <= i && i < NB_EDGES",
            [=]() mutable { GeIcosahedron::getEdge( isAbove ? 30 : -1, v, v ); } } );
        checks.push_back( { file, 0, "0 <= i && i < NB_FACES",
            [=]() mutable { GeIcosahedron::getFace( isAbove ? 20 : -1, v, v, v ); } } );
    }
}

// Cones ----------------------------------------------------------------------------------------------------------

void addConeChecks( std::vector<Check>& checks )
{
    const GeFloatingCone upright( GeUnitVector3<float>( 0, 0, 1 ), 0.5F );
    const GeFloatingCone axisless( GeUnitVector3<float>(), 0.5F );
    checks.push_back(
        { "src/primitives/geFloatingCone", 0, "len > 0", [=] { GeFloatingCone( axisless ).expand( upright ); } } );

    const char* file = "src/primitives/geAnchoredConeBuilder";
    checks.push_back( { file, 0, "bottomIndex != -1", [=] { GeAnchoredConeBuilder().createCone( upright ); } } );
    checks.push_back( { file, 0, "len > 0",
        [=]
        {
            GeAnchoredConeBuilder builder;
            builder( GePoint3<float>() );
            builder.createCone( axisless );
        } } );
    // no points lead to these two: they guard the inner workings
    checks.push_back( { file, 0, "bottomIndex < _points.size()",
        [] { Detail::getBottomPoint( std::vector<GePoint3<float>>( 2 ), 2 ); } } );
    checks.push_back( { file, 0, "nbOutsidePoints <= _points.size()",
        [] { Detail::computeMaxDistance2( std::vector<GePoint3<float>>( 2 ), 3, GePoint3<float>() ); } } );
}

// Quaternions -----------------------------------------------------------------------------------------------------

template <class T>
void addQuaternionChecks( std::vector<Check>& checks )
{
    using Q = GeQuaternion3<T>;
    const char* file = "src/primitives/geQuaternion3.imp";
    const char* range = "0 <= innerAxis && innerAxis <= 2";
    const GeLinearMatrix3<T> zero( 0, 0, 0, 0, 0, 0, 0, 0, 0 );
    checks.push_back( { file, 0, "s != 0", [=] { Q().setMatrix( zero, 0 ); } } );
    checks.push_back( { file, 0, "m44 != 0", [=] { Q().setMatrix( GeLinearMatrix3<T>(), 0 ); } } );
    checks.push_back(
        { file, 0, "0 <= i && i <= 2", [] { Q().setEuler( typename Q::EulerConvention( 3 ), 1, 2, 3 ); } } );
    checks.push_back( { file, 0, "prodNorms != 0", [] { Q().aim( GeVector3<T>(), GeVector3<T>( 1, 0, 0 ) ); } } );
    checks.push_back( { file, 0, "a > 0", [] { Q::exp( Q() ); } } );
    checks.push_back( { file, 0, "h2uinv.getMagnitude() == 0",
        []
        {
            Q a, b;
            Q::computeIntermediates( Q(), Q(), Q(), a, b );
        } } );
    for ( const int axis : { -1, 3 } )
        checks.push_back(
            { "src/primitives/geQuaternion3.inline", 0, range, [=] { Q::makeEulerConvention( axis, 0, 0, 0 ); } } );
}

// ----------------------------------------------------------------------------------------------------------------

std::vector<Check> makeTable()
{
    std::vector<Check> checks;
    addVectorChecks<float>( checks );
    addVectorChecks<double>( checks );
    addMatrixChecks<float>( checks );
    addMatrixChecks<double>( checks );
    addVector2Checks<float>( checks );
    addVector2Checks<double>( checks );
    addRotationChecks<float>( checks );
    addRotationChecks<double>( checks );
    addBoxChecks<float>( checks );
    addBoxChecks<double>( checks );
    addPlaneChecks<float>( checks );
    addPlaneChecks<double>( checks );
    addFrustumChecks<float>( checks );
    addFrustumChecks<double>( checks );
    addShaftChecks( checks );
    addIcosahedronChecks( checks );
    addConeChecks( checks );
    addQuaternionChecks<float>( checks );
    addQuaternionChecks<double>( checks );
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
    std::set<std::string> provoked;
    for ( const Check& check : makeTable() )
    {
        std::string text;
        for ( const char* c = check.text; *c; ++c )
            text += *c == '|' ? std::string( "\\|" ) : std::string( 1, *c );
        const std::string line = check.line ? std::to_string( check.line ) : std::string( "any" );
        provoked.insert( std::string( "| `" ) + check.file + "` | " + line + " | `" + text + "` |" );
    }
    std::set<std::string> documented;
    std::ifstream document( ZQ_DOCS_DIR "/checks.md" );
    for ( std::string row; std::getline( document, row ); )
    {
        if ( row.rfind( "| `src/", 0 ) == 0 )
            documented.insert( row.substr( 0, row.find( "` |", row.find( "` |" ) + 3 ) + 3 ) );
    }
    for ( const std::string& row : provoked )
        EXPECT_TRUE( documented.count( row ) ) << "docs/checks.md lacks " << row;
    for ( const std::string& row : documented )
        EXPECT_TRUE( provoked.count( row ) ) << "nothing provokes " << row;
}

} // namespace
