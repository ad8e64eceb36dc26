// What all value classes share: comparison and text form.

#include "support/prelude.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/coSpectrum.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geSphere3.h>
#include <zq/primitives/geVector2.h>
#include <zq/primitives/geXAxisRotation3.h>
#include <zq/primitives/geYAxisRotation3.h>
#include <zq/primitives/geZAxisRotation3.h>

namespace
{

ZQ_TWIN_SUITE( ValueClasses );

/// Moves each number of each value by itself. Every comparison must see it, strictly within the tolerance, and a NaN
/// equals nothing. The numbers are small integers, so that the moves are exact; some may be fixed and never looked at.
template <class T, std::size_t fixedEvery = 1000, class... Values>
void expectComparisonsSeeEveryNumber( const Values&... values )
{
    const auto isNear = []( const auto& a, const auto& b )
    {
        if constexpr ( std::is_same_v<decltype( a ), const GeSphere3<T>&> )
            return a.isEqual( b, T( 0.5 ), T( 0.5 ) );
        else
            return a.isEqual( b, T( 0.5 ) );
    };
    const auto expectAll = [&]( const auto& start )
    {
        const auto numbers = ZqTest::numbersOf<T>( start );
        for ( std::size_t i = 0; i < numbers.size(); ++i )
            for ( const T amount : { T( 0 ), T( 0.25 ), T( -0.25 ), T( 0.5 ), ZqTest::nan<T> } )
            {
                auto changed = numbers;
                changed[i] += ( i + 1 ) % fixedEvery == 0 ? T( 0 ) : amount;
                const bool isUnmoved = changed == numbers, shouldBeNear = isUnmoved || amount < T( 0.5 );
                auto moved = start;
                std::memcpy( static_cast<void*>( &moved ), changed.data(), sizeof moved );
                EXPECT_TRUE( ( moved == start ) == isUnmoved && ( moved != start ) == !isUnmoved ) << i << amount;
                EXPECT_TRUE( isNear( moved, start ) == shouldBeNear && isNear( start, moved ) == shouldBeNear );
                EXPECT_TRUE( ( moved == moved ) == ( changed == changed ) );
            }
    };
    ( expectAll( values ), ... );
}

ZQ_TWIN_TEST( ValueClasses, ComparisonLooksAtEveryNumber )
{
    using Point = GePoint3<T>;
    const GeVector3<T> v( 1, 2, 3 );
    const GeFrustum<T> frustum{ GeProjectiveMatrix3<T>() };
    expectComparisonsSeeEveryNumber<T>( Interval<T>( 0, 1 ), v, Point( v ), GeUnitVector3<T>( 0, 1, 0 ),
        GeVector2<T>( 1, 2 ), GePoint2<T>( 1, 2 ), GeUnitVector2<T>( 0, 1 ), GeHomogeneousCoord3<T>( 1, 2, 3, 4 ) );
    expectComparisonsSeeEveryNumber<T>( GeLinearMatrix3<T>(), GeProjectiveMatrix3<T>(), GeRotation3<T>(),
        GeXAxisRotation3<T>( 0, 1 ), GeScale3<T>( v ), GeTranslation3<T>( v ), GeQuaternion3<T>( 1, 2, 3, 4 ) );
    expectComparisonsSeeEveryNumber<T>( GeAlignedBox3<T>( Point( 0, 1, 2 ), Point( 3, 4, 5 ) ),
        GePlane3<T>( 1, 2, 3, 4 ), GeNormalizedPlane3<T>( 0, 1, 0, 4 ), GeSphere3<T>( Point( v ), 4 ), frustum );
    expectComparisonsSeeEveryNumber<T>(
        CoRgbColorT<T>( 1, 2, 3 ), CoHsvColorT<T>( 1, 2, 3 ), CoSpectrumT<T>( 1, 2, 3 ) );
    expectComparisonsSeeEveryNumber<T, 4>( GeAffineMatrix3<T>() ); // the bottom row
    EXPECT_TRUE( isEqual( frustum, frustum, T( 1 ) ) && !isEqual( frustum, frustum, T( 0 ) ) );
    EXPECT_EQ( GeVector3<T>( 0, 1, 0 ), GeVector3<T>( T( -0.0 ), 1, 0 ) );
}

// Vector, plane, quaternion, linear matrix, RGB colour, and flushing: textBitsTest.cpp.
ZQ_TWIN_TEST( ValueClasses, TextFollowsTheStream )
{
    const auto textOf = []( const auto& value )
    {
        std::ostringstream os;
        os << std::fixed << std::setprecision( 1 ) << value;
        return os.str();
    };
    const double rows[4][4] = { { 1, 2, 3, 4 }, { 5, 6, 7, 8 }, { 9, 10, 11, 0.5 }, { 0, 0, -1, 0 } };
    EXPECT_EQ( textOf( GePoint3<T>( 0, 1, 2 ) ), "(0.0, 1.0, 2.0)" );
    EXPECT_EQ( textOf( GeVector2<T>( 1, T( 2.5 ) ) ), "(1.0, 2.5)" );
    EXPECT_EQ( textOf( GePoint2<int>( 3, -4 ) ), "(3, -4)" );
    EXPECT_EQ( textOf( GeScale3<T>( 2, 1, T( 0.5 ) ) ), "Scale3(2.0, 1.0, 0.5)" );
    EXPECT_EQ( textOf( GeTranslation3<T>( -1, 0, T( 2.5 ) ) ), "Translation3(-1.0, 0.0, 2.5)" );
    EXPECT_EQ( textOf( GeSphere3<T>( GePoint3<T>( 1, 2, 3 ), 4 ) ), "GeSphere {(1.0, 2.0, 3.0), 4.0} " );
    EXPECT_EQ( textOf( CoHsvColorT<T>( 120, T( 0.5 ), 1 ) ), "120.0 0.5 1.0" );
    EXPECT_EQ( textOf( CoSpectrumT<T>( 1, T( 2.5 ), -3 ) ), "1.0 2.5 -3.0" );
    EXPECT_EQ( textOf( GeHomogeneousCoord3<T>( 1, 2, 3, T( 0.5 ) ) ), "(1.0, 2.0, 3.0, 0.5)" );
    EXPECT_EQ( textOf( GeRotation3<T>( GeLinearMatrix3<T>( 0, -1, 0, 1, 0, 0, 0, 0, 1 ) ) ),
        "| 0.0 -1.0 0.0 |\n| 1.0 0.0 0.0 |\n| 0.0 0.0 1.0 |\n" );
    const T half = T( 0.5 );
    EXPECT_EQ( textOf( GeXAxisRotation3<T>( half, 2 ) ), "| 1.0 0.0 0.0 |\n| 0.0 0.5 -2.0 |\n| 0.0 2.0 0.5 |\n" );
    EXPECT_EQ( textOf( GeYAxisRotation3<T>( half, 2 ) ), "| 0.5 0.0 2.0 |\n| 0.0 1.0 0.0 |\n| -2.0 0.0 0.5 |\n" );
    EXPECT_EQ( textOf( GeZAxisRotation3<T>( half, 2 ) ), "| 0.5 -2.0 0.0 |\n| 2.0 0.5 0.0 |\n| 0.0 0.0 1.0 |\n" );
    const std::string upperRows = "| 1.0 2.0 3.0 4.0 |\n| 5.0 6.0 7.0 8.0 |\n| 9.0 10.0 11.0 0.5 |\n";
    EXPECT_EQ( textOf( GeAffineMatrix3<T>( rows, false ) ), upperRows + "| 0.0 0.0 0.0 1.0 |\n" );
    EXPECT_EQ( textOf( GeProjectiveMatrix3<T>( rows, false ) ), upperRows + "| 0.0 0.0 -1.0 0.0 |\n" );
    EXPECT_EQ( textOf( GeAlignedBox3<T>( GePoint3<T>( 0, T( -1.5 ), 2 ), GePoint3<T>( 1, 1, 3 ) ) ),
        "( X=[ 0.0, 1.0 ], Y=[ -1.5, 1.0 ], Z=[ 2.0, 3.0 ] )" );
    EXPECT_EQ( textOf( GeNormalizedPlane3<T>( 2, 0, 0, -2 ) ), "[1.0, 0.0, 0.0, -1.0]" );
    EXPECT_EQ( textOf( GeFrustum<T>( GeProjectiveMatrix3<T>() ) ),
        "\nplane( 0 ) = [1.0, 0.0, 0.0, 1.0]\nplane( 1 ) = [-1.0, 0.0, 0.0, 1.0]\nplane( 2 ) = [0.0, 1.0, 0.0, 1.0]"
        "\nplane( 3 ) = [0.0, -1.0, 0.0, 1.0]\nplane( 4 ) = [0.0, 0.0, 1.0, 1.0]\nplane( 5 ) = [0.0, 0.0, -1.0, 1.0]" );
}

/// What becomes of `value` when it reads the text.
template <class Value>
Value parse( const std::string& text, Value value, bool shouldFail = false )
{
    std::istringstream is( text );
    EXPECT_EQ( &( is >> value ), &is );
    EXPECT_EQ( is.fail(), shouldFail ) << text;
    return value;
}

/// White space is welcome before every item. Cut off anywhere, without any one of its characters or with another in its
/// place, the text is refused and nothing changed. The numbers have one digit each.
template <class Value>
void expectReading( const std::string& text, const Value& value, const Value& before )
{
    std::string spaced;
    for ( std::size_t i = 0; i < text.size(); ++i )
    {
        spaced += { '\n', text[i] };
        if ( text[i] == ' ' )
            continue;
        for ( const std::string& bad :
            { text.substr( 0, i ), std::string( text ).erase( i, 1 ), std::string( text ).replace( i, 1, ";" ) } )
            EXPECT_EQ( parse( bad, before, true ), before ) << bad;
    }
    EXPECT_EQ( parse( spaced + "rest", before ), value ) << text;
}

ZQ_TWIN_TEST( ValueClasses, TextIsReadWholeOrNotAtAll )
{
    using Unit = GeUnitVector3<T>;
    expectReading<GePoint3<T>>( "(1, 2, 3)", { 1, 2, 3 }, { 7, 8, 9 } );
    expectReading<Unit>( "(0, 0, 4)", { 0, 0, 1 }, { 0, 1, 0 } );
    expectReading<GeVector2<T>>( "(1, 2)", { 1, 2 }, { 7, 8 } );
    expectReading<GePoint2<int>>( "(1, 2)", { 1, 2 }, { 7, 8 } );
    expectReading<GeUnitVector2<T>>( "(0, 4)", { 0, 1 }, { 1, 0 } );
    expectReading<GeQuaternion3<T>>( "[(5, 6, 7), 8]", { 5, 6, 7, 8 }, { 1, 2, 3, 4 } );
    expectReading<CoHsvColorT<T>>( "1 2 3", { 1, 2, 3 }, { 7, 8, 9 } );
    expectReading<CoSpectrumT<T>>( "1 2 3", { 1, 2, 3 }, { 7, 8, 9 } );
    // integers stop at a decimal point and at overflow
    for ( const char* text : { "(1, 2.5)", "(9999999999, 1)" } )
        EXPECT_EQ( parse( text, GeVector2<int>( 7, 8 ), true ), ( GeVector2<int>( 7, 8 ) ) );
    // a zero vector is read without complaint and keeps the direction
    EXPECT_EQ( parse( "(0, 0, 0)", Unit( 0, 1, 0 ) ), Unit( 0, 1, 0 ) );
    EXPECT_EQ( parse( "(0, 0)", GeUnitVector2<T>( 0, 1 ) ), ( GeUnitVector2<T>( 0, 1 ) ) );
    std::istream noBuffer( nullptr );
    GeVector3<T>().read( noBuffer );
    EXPECT_TRUE( noBuffer.bad() && noBuffer.fail() );
}

} // namespace
