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

template <class Value>
std::string toText( const Value& value )
{
    std::ostringstream os;
    os << value;
    return os.str();
}

/// Moves each number of the value by itself. Every comparison must see it, strictly within the tolerance, and a NaN
/// equals nothing. The numbers are small integers, so that the moves are exact; some may be fixed and never looked at.
template <class T, std::size_t fixedEvery = 1000, class Value>
void expectComparisonsSeeEveryNumber( const Value& start )
{
    for ( std::size_t i = 0; i < sizeof start / sizeof( T ); ++i )
        for ( const T amount : { T( 0 ), T( 0.25 ), T( -0.25 ), T( 0.5 ), ZqTest::nan<T> } )
        {
            const T change = ( i + 1 ) % fixedEvery == 0 ? T( 0 ) : amount;
            const Value moved = ZqTest::withChange( start, i, change );
            const bool isUnmoved = change == 0, shouldBeNear = isUnmoved || amount < T( 0.5 );
            EXPECT_EQ( moved == start, isUnmoved ) << i << amount;
            EXPECT_EQ( moved != start, !isUnmoved ) << i << amount;
            EXPECT_EQ( moved.isEqual( start, T( 0.5 ) ), shouldBeNear ) << i << amount;
            EXPECT_EQ( start.isEqual( moved, T( 0.5 ) ), shouldBeNear ) << i << amount;
            EXPECT_EQ( moved == moved, change == change );
        }
}

ZQ_TWIN_TEST( ValueClasses, ComparisonLooksAtEveryNumber )
{
    using Point = GePoint3<T>;
    const GeVector3<T> v( 1, 2, 3 );
    const GeFrustum<T> frustum{ GeProjectiveMatrix3<T>() };
    const auto expectAll = []( const auto&... values ) { ( expectComparisonsSeeEveryNumber<T>( values ), ... ); };
    expectAll( Interval<T>( 0, 1 ), v, Point( v ), GeUnitVector3<T>( 0, 1, 0 ), GeVector2<T>( 1, 2 ),
        GePoint2<T>( 1, 2 ), GeUnitVector2<T>( 0, 1 ), GeHomogeneousCoord3<T>( 1, 2, 3, 4 ), GeLinearMatrix3<T>(),
        GeProjectiveMatrix3<T>(), GeRotation3<T>(), GeXAxisRotation3<T>( 0, 1 ), GeScale3<T>( v ),
        GeTranslation3<T>( v ), GeQuaternion3<T>( 1, 2, 3, 4 ), GePlane3<T>( 1, 2, 3, 4 ),
        GeNormalizedPlane3<T>( 0, 1, 0, 4 ), GeAlignedBox3<T>( Point( 0, 1, 2 ), Point( 3, 4, 5 ) ), frustum,
        CoRgbColorT<T>( 1, 2, 3 ), CoHsvColorT<T>( 1, 2, 3 ), CoSpectrumT<T>( 1, 2, 3 ) );
    expectComparisonsSeeEveryNumber<T, 4>( GeAffineMatrix3<T>() ); // the bottom row
    // within a tolerance: sphere3Test.cpp
    const GeSphere3<T> sphere( Point( v ), 4 ), moved( Point( 1, 2, 5 ), 4 ), grown( Point( v ), 5 );
    EXPECT_EQ( sphere, sphere );
    EXPECT_NE( moved, sphere );
    EXPECT_NE( grown, sphere );
    EXPECT_FALSE( grown == moved );
    EXPECT_FALSE( moved.isEqual( sphere, 2, 9 ) );
    EXPECT_FALSE( grown.isEqual( sphere, 9, 1 ) );
    EXPECT_TRUE( isEqual( frustum, frustum, T( 1 ) ) );
    EXPECT_FALSE( isEqual( frustum, frustum, T( 0 ) ) );
    EXPECT_EQ( GeVector3<T>( 0, 1, 0 ), GeVector3<T>( T( -0.0 ), 1, 0 ) );
}

/// All that a description may ask of its reader.
class ItemList
{
public:
    ItemList& operator<<( char mark ) { return add( mark ); }
    ItemList& operator<<( std::string_view literal ) { return add( literal ); }
    ItemList& operator<<( int number ) { return add( number ); }
    ItemList& operator<<( double number ) { return add( number ); }
    std::string getText() const { return _os.str(); }

private:
    template <class Item>
    ItemList& add( Item item )
    {
        _os << item;
        return *this;
    }

    std::ostringstream _os;
};

/// Written by << and by a client from the description.
template <class Value>
void expectWritten( const Value& value, const std::string& text )
{
    ItemList collector;
    value.writeText( collector );
    EXPECT_EQ( collector.getText(), text );
    EXPECT_EQ( toText( value ), text );
}

/// Sets each component by its setter; no other number changes, and the getter returns it.
template <class T, class Value, class... Access>
void expectComponents( const Value& start, const Access&... accesses )
{
    std::size_t i = 0;
    const auto expectComponent = [&]( const auto& access )
    {
        Value value = start;
        ( value.*access.first )( T( 42 ) );
        auto expected = ZqTest::numbersOf<T>( start );
        expected[i++] = T( 42 );
        EXPECT_EQ( ZqTest::numbersOf<T>( value ), expected );
        EXPECT_EQ( ( value.*access.second )(), T( 42 ) );
    };
    ( expectComponent( accesses ), ... );
    EXPECT_EQ( i, sizeof( Value ) / sizeof( T ) );
}

template <class T, class Value>
void expectXYZ( const Value& start )
{
    expectComponents<T>( start, std::pair( &Value::setX, &Value::getX ), std::pair( &Value::setY, &Value::getY ),
        std::pair( &Value::setZ, &Value::getZ ) );
}

ZQ_TWIN_TEST( ValueClasses, SettersAndGettersNameTheSameNumber )
{
    using std::pair;
    using V2 = GeVector2<T>;
    using P2 = GePoint2<T>;
    using H = GeHomogeneousCoord3<T>;
    using Q = GeQuaternion3<T>;
    using Rgb = CoRgbColorT<T>;
    using Hsv = CoHsvColorT<T>;
    expectXYZ<T>( GeVector3<T>( 1, 2, 3 ) );
    expectXYZ<T>( GePoint3<T>( 1, 2, 3 ) );
    expectComponents<T>( V2( 1, 2 ), pair( &V2::setX, &V2::getX ), pair( &V2::setY, &V2::getY ) );
    expectComponents<T>( P2( 1, 2 ), pair( &P2::setX, &P2::getX ), pair( &P2::setY, &P2::getY ) );
    expectComponents<T>( H( 1, 2, 3, 4 ), pair( &H::setX, &H::getX ), pair( &H::setY, &H::getY ),
        pair( &H::setZ, &H::getZ ), pair( &H::setW, &H::getW ) );
    expectComponents<T>( Q( 1, 2, 3, 4 ), pair( &Q::setX, &Q::getX ), pair( &Q::setY, &Q::getY ),
        pair( &Q::setZ, &Q::getZ ), pair( &Q::setW, &Q::getW ) );
    expectComponents<T>( Rgb( 1, 2, 3 ), pair( &Rgb::setRed, &Rgb::getRed ), pair( &Rgb::setGreen, &Rgb::getGreen ),
        pair( &Rgb::setBlue, &Rgb::getBlue ) );
    expectComponents<T>( Hsv( 1, 2, 3 ), pair( &Hsv::setHue, &Hsv::getHue ),
        pair( &Hsv::setSaturation, &Hsv::getSaturation ), pair( &Hsv::setValue, &Hsv::getValue ) );
    CoSpectrumT<T> spectrum( 1, 2, 3 );
    spectrum.setSample( 1, 42 );
    EXPECT_EQ( spectrum, CoSpectrumT<T>( 1, 42, 3 ) );
    H h( 1, 2, 3, 4 );
    h.setZero();
    EXPECT_EQ( h, H( 0, 0, 0, 0 ) );
}

// What can be read as well: in the next test. Streams of other states: textBitsTest.cpp.
ZQ_TWIN_TEST( ValueClasses, Text )
{
    const T half = T( 0.5 );
    const double rows[4][4] = { { 1, 2, 3, 4 }, { 5, 6, 7, 8 }, { 9, 10, 11, 0.5 }, { 0, 0, -1, 0 } };
    const std::string upperRows = "| 1 2 3 4 |\n| 5 6 7 8 |\n| 9 10 11 0.5 |\n";
    expectWritten( GeAffineMatrix3<T>( rows, false ), upperRows + "| 0 0 0 1 |\n" );
    expectWritten( GeProjectiveMatrix3<T>( rows, false ), upperRows + "| 0 0 -1 0 |\n" );
    expectWritten( GeXAxisRotation3<T>( half, 2 ), "| 1 0 0 |\n| 0 0.5 -2 |\n| 0 2 0.5 |\n" );
    expectWritten( GeYAxisRotation3<T>( half, 2 ), "| 0.5 0 2 |\n| 0 1 0 |\n| -2 0 0.5 |\n" );
    expectWritten( GeZAxisRotation3<T>( half, 2 ), "| 0.5 -2 0 |\n| 2 0.5 0 |\n| 0 0 1 |\n" );
    expectWritten( GeScale3<T>( 2, 1, half ), "Scale3(2, 1, 0.5)" );
    expectWritten( GeTranslation3<T>( -1, 0, half ), "Translation3(-1, 0, 0.5)" );
    expectWritten( GeSphere3<T>( GePoint3<T>( 1, 2, 3 ), half ), "GeSphere {(1, 2, 3), 0.5} " );
    expectWritten( GeHomogeneousCoord3<T>( 1, 2, 3, half ), "(1, 2, 3, 0.5)" );
    expectWritten( Interval<T>( 4, -half ), "[ 4, -0.5 ]" );
    expectWritten( GeAlignedBox3<T>( GePoint3<T>( 0, -half, 2 ), GePoint3<T>( 1, 4, 3 ) ),
        "( X=[ 0, 1 ], Y=[ -0.5, 4 ], Z=[ 2, 3 ] )" );
    expectWritten( GeNormalizedPlane3<T>( 2, 0, 0, -1 ), "[1, 0, 0, -0.5]" );
    expectWritten( GeFrustum<T>( GeProjectiveMatrix3<T>() ),
        "\nplane( 0 ) = [1, 0, 0, 1]\nplane( 1 ) = [-1, 0, 0, 1]\nplane( 2 ) = [0, 1, 0, 1]"
        "\nplane( 3 ) = [0, -1, 0, 1]\nplane( 4 ) = [0, 0, 1, 1]\nplane( 5 ) = [0, 0, -1, 1]" );
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

/// The value is written as `text` and read from it, with white space before every item. Cut off anywhere, without any
/// one of its characters or with another in its place, the text is refused and nothing changed. The numbers have one
/// digit each.
template <class Value>
void expectText( const std::string& text, const Value& value, const Value& before )
{
    expectWritten( value, text );
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
    expectText<GePoint3<T>>( "(1, 2, 3)", { 1, 2, 3 }, { 7, 8, 9 } );
    expectText<Unit>( "(0, 0, 1)", { 0, 0, 1 }, { 0, 1, 0 } );
    expectText<GeVector2<T>>( "(1, 2)", { 1, 2 }, { 7, 8 } );
    expectText<GePoint2<int>>( "(1, 2)", { 1, 2 }, { 7, 8 } );
    expectText<GeUnitVector2<T>>( "(0, 1)", { 0, 1 }, { 1, 0 } );
    expectText<GeQuaternion3<T>>( "[(5, 6, 7), 8]", { 5, 6, 7, 8 }, { 1, 2, 3, 4 } );
    expectText<CoHsvColorT<T>>( "1 2 3", { 1, 2, 3 }, { 7, 8, 9 } );
    expectText<CoSpectrumT<T>>( "1 2 3", { 1, 2, 3 }, { 7, 8, 9 } );
    // integers stop at a decimal point and at overflow
    for ( const char* text : { "(1, 2.5)", "(9999999999, 1)" } )
        EXPECT_EQ( parse( text, GeVector2<int>( 7, 8 ), true ), ( GeVector2<int>( 7, 8 ) ) );
    EXPECT_EQ( parse( "(0, 4, 0)", Unit( 1, 0, 0 ) ), Unit( 0, 1, 0 ) );
    // a zero vector is read without complaint and keeps the direction
    EXPECT_EQ( parse( "(0, 0, 0)", Unit( 0, 1, 0 ) ), Unit( 0, 1, 0 ) );
    EXPECT_EQ( parse( "(0, 0)", GeUnitVector2<T>( 0, 1 ) ), ( GeUnitVector2<T>( 0, 1 ) ) );
}

} // namespace
