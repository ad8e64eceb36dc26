// Which value can be made of which: all pairs of classes, of one scalar and of two. A conversion is part of the interface,
// and one too many makes calls compile that should not.

#include "support/prelude.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/coSpectrum.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geShaft.h>
#include <zq/primitives/geSphere3.h>
#include <zq/primitives/geTolerances.h>
#include <zq/primitives/geVector2.h>
#include <zq/primitives/geXAxisRotation3.h>
#include <zq/primitives/geYAxisRotation3.h>
#include <zq/primitives/geZAxisRotation3.h>

namespace
{

ZQ_TWIN_SUITE( Conversions );

template <class... Types>
struct List
{
};

const char* const names[] = { "number", "Interval", "Vector2", "Point2", "UnitVector2", "Vector3", "Point3",
    "UnitVector3", "HomogeneousCoord3", "LinearMatrix3", "AffineMatrix3", "ProjectiveMatrix3", "Rotation3", "AxisX",
    "XAxisRotation3", "YAxisRotation3", "ZAxisRotation3", "Scale3", "Translation3", "Quaternion3", "AlignedBox3",
    "Plane3", "NormalizedPlane3", "Sphere3", "Frustum", "RgbColor", "HsvColor", "Spectrum" };
template <class T>
using Twins = List<T, Interval<T>, GeVector2<T>, GePoint2<T>, GeUnitVector2<T>, GeVector3<T>, GePoint3<T>,
    GeUnitVector3<T>, GeHomogeneousCoord3<T>, GeLinearMatrix3<T>, GeAffineMatrix3<T>, GeProjectiveMatrix3<T>,
    GeRotation3<T>, GeAxisRotation3<0, T>, GeXAxisRotation3<T>, GeYAxisRotation3<T>, GeZAxisRotation3<T>, GeScale3<T>,
    GeTranslation3<T>, GeQuaternion3<T>, GeAlignedBox3<T>, GePlane3<T>, GeNormalizedPlane3<T>, GeSphere3<T>,
    GeFrustum<T>, CoRgbColorT<T>, CoHsvColorT<T>, CoSpectrumT<T>>;
const char* const singleNames[] = {
    "int", "Vector2<int>", "Point2<int>", "FloatingCone", "AnchoredCone", "CullingCones", "Shaft", "Tolerances" };
using Singles =
    List<int, GeVector2<int>, GePoint2<int>, GeFloatingCone, GeAnchoredCone, GeCullingCones, GeShaft, GeTolerances>;

/// What each target takes; = before what is converted without being asked.
template <class... To, class... From>
std::string tell( List<To...>, const char* const* targets, List<From...>, const char* const* sources )
{
    std::string table;
    const auto tellTarget = [&]( auto* to, const char* target )
    {
        using Target = std::remove_pointer_t<decltype( to )>;
        std::string row;
        const char* const* source = sources;
        const auto tellSource = [&]( auto* from )
        {
            using Source = std::remove_pointer_t<decltype( from )>;
            const bool isScalar = std::is_arithmetic_v<Target>;
            if ( !isScalar && !std::is_same_v<Target, Source> && std::is_constructible_v<Target, const Source&> )
                row += ( std::is_convertible_v<const Source&, Target> ? " =" : " " ) + std::string( *source );
            ++source;
        };
        ( tellSource( static_cast<From*>( nullptr ) ), ... );
        if ( !row.empty() )
            table += target + ( ":" + row ) + '\n';
    };
    ( tellTarget( static_cast<To*>( nullptr ), *targets++ ), ... );
    return table;
}

ZQ_TWIN_TEST( Conversions, BetweenTheClassesOfOneScalar )
{
    EXPECT_EQ( tell( Twins<T>(), names, Twins<T>(), names ), R"(Vector2: Point2 =UnitVector2
Point2: Vector2 UnitVector2
UnitVector2: Vector2
Vector3: Point3 =UnitVector3
Point3: Vector3 UnitVector3
UnitVector3: Vector3
LinearMatrix3: =Rotation3
AffineMatrix3: LinearMatrix3 Rotation3
ProjectiveMatrix3: LinearMatrix3 AffineMatrix3 Rotation3
Rotation3: LinearMatrix3
AxisX: number =XAxisRotation3
XAxisRotation3: number AxisX
YAxisRotation3: number
ZAxisRotation3: number
Scale3: Vector3 UnitVector3
Translation3: Vector3 UnitVector3
Quaternion3: LinearMatrix3 Rotation3
AlignedBox3: Point3
NormalizedPlane3: Plane3
Frustum: ProjectiveMatrix3
RgbColor: number
Spectrum: number
)" );
}

ZQ_TWIN_TEST( Conversions, FromTheOtherScalar )
{
    using Other = std::conditional_t<std::is_same_v<T, float>, double, float>;
    EXPECT_EQ( tell( Twins<T>(), names, Twins<Other>(), names ), R"(Vector2: Vector2
Point2: Point2
Vector3: Vector3
Point3: Point3
AxisX: number
XAxisRotation3: number
YAxisRotation3: number
ZAxisRotation3: number
Quaternion3: Quaternion3
RgbColor: number
Spectrum: number
)" );
}

ZQ_TWIN_TEST( Conversions, OfTheClassesWithoutATwin )
{
    EXPECT_EQ( tell( Singles(), singleNames, Singles(), singleNames ),
        "Vector2<int>: Point2<int>\nPoint2<int>: Vector2<int>\nCullingCones: AnchoredCone\n" );
    EXPECT_EQ( tell( Singles(), singleNames, Twins<T>(), names ), "Vector2<int>: Vector2\nPoint2<int>: Point2\n" );
    EXPECT_EQ( tell( Twins<T>(), names, Singles(), singleNames ), R"(Vector2: Vector2<int>
Point2: Point2<int>
AxisX: int
XAxisRotation3: int
YAxisRotation3: int
ZAxisRotation3: int
RgbColor: int
Spectrum: int
)" );
}

} // namespace
