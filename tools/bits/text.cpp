// Text forms: the characters that are written, what is read from right and from spoilt text, the state of the stream
// afterwards; with default and with formatted streams.

#include "results.h"

#include <zq/primitives/geCullingCones.h>

#include <iomanip>
#include <locale>
#include <sstream>

namespace ZqBits
{

namespace
{

/// Marks of its own, so that no installed locale is needed.
struct Marks : public std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '\''; }
    std::string do_grouping() const override { return "\3"; }
};

void format( Inputs& in, std::ios& stream )
{
    static const std::locale marked( std::locale::classic(), new Marks );
    static constexpr std::ios::fmtflags notations[] = {
        {}, std::ios::fixed, std::ios::scientific, std::ios::fixed | std::ios::scientific };
    static constexpr std::ios::fmtflags sides[] = { {}, std::ios::left, std::ios::right, std::ios::internal };
    static constexpr std::ios::fmtflags bases[] = { std::ios::dec, std::ios::dec, std::ios::hex, std::ios::oct };
    stream.setf( notations[in.index( 4 )], std::ios::floatfield );
    stream.setf( sides[in.index( 4 )], std::ios::adjustfield );
    stream.setf( bases[in.index( 4 )], std::ios::basefield );
    for ( const auto flag : { std::ios::showpos, std::ios::showpoint, std::ios::uppercase, std::ios::showbase } )
        if ( in.oneIn( 4 ) )
            stream.setf( flag );
    if ( in.oneIn( 8 ) )
        stream.unsetf( std::ios::skipws );
    stream.precision( in.index( 20 ) );
    stream.width( in.oneIn( 2 ) ? in.index( 14 ) : 0 );
    stream.fill( in.oneIn( 2 ) ? '*' : ' ' );
    if ( in.oneIn( 4 ) )
        stream.imbue( marked );
    if ( in.oneIn( 32 ) )
        stream.setstate( in.oneIn( 2 ) ? std::ios::failbit : std::ios::eofbit );
}

template <class Stream>
void addState( Results& out, const Stream& stream )
{
    out( stream.good(), stream.eof(), stream.fail(), stream.bad(), static_cast<int>( stream.width() ) );
}

/// Writes a value of one of the classes.
template <class... Values>
void writeAny( Inputs& in, std::ostream& os )
{
    int chosen = in.index( sizeof...( Values ) );
    ( ( chosen-- == 0 ? static_cast<void>( os << in.make<Values>() ) : static_cast<void>( 0 ) ), ... );
}

template <class T, bool isFormatted>
void write( Inputs& in, Results& out )
{
    std::ostringstream os;
    if ( isFormatted )
        format( in, os );
    else if ( in.oneIn( 2 ) )
        os << std::setprecision( in.oneIn( 2 ) ? std::numeric_limits<T>::max_digits10 : in.index( 20 ) );
    writeAny<GeVector2<int>, GePoint2<int>, GeVector2<T>, GePoint2<T>, GeUnitVector2<T>, GeVector3<T>, GePoint3<T>,
        GeUnitVector3<T>, GeHomogeneousCoord3<T>, GeLinearMatrix3<T>, GeAffineMatrix3<T>, GeProjectiveMatrix3<T>,
        GeScale3<T>, GeTranslation3<T>, GeRotation3<T>, GeXAxisRotation3<T>, GeYAxisRotation3<T>, GeZAxisRotation3<T>,
        GeQuaternion3<T>, GeAlignedBox3<T>, GePlane3<T>, GeNormalizedPlane3<T>, GeSphere3<T>, CoRgbColorT<T>,
        CoHsvColorT<T>, CoSpectrumT<T>>( in, os );
    out( os.str() );
    addState( out, os );
}

/// The classes that are built from others, with the numbers of ordinary runs.
template <bool isFormatted>
void writeBuilt( Inputs& in, Results& out )
{
    std::ostringstream os;
    if ( isFormatted )
        format( in, os );
    const auto a = in.make<GeAlignedBox3<float>>(), b = in.make<GeAlignedBox3<float>>();
    const auto axis = in.make<GeUnitVector3<float>>();
    GeProjectiveMatrix3<double> projection;
    projection( 0, 0 ) = 1.5 + in.uniform( 1.0 );
    projection( 2, 3 ) = in.uniform( 0.5 );
    const GeFloatingCone cone( axis, 0.0F );
    switch ( in.index( 5 ) )
    {
    case 0:
        os << GeShaft( a, b );
        break;
    case 1:
        os << GeShaft();
        break;
    case 2:
        os << GeFrustum<double>( projection ) << GeFrustum<float>( GeProjectiveMatrix3<float>() );
        break;
    case 3:
        os << GeFloatingCone( axis, in.number<float>() );
        break;
    default:
        os << GeCullingCones( cone, a.getCenter(), in.number<float>() );
        break;
    }
    // these numbers were worked out, and the sign of a NaN that arithmetic gives is the compiler's choice
    std::string text = os.str();
    for ( const char* const nan : { "nan", "NAN" } )
        if ( text.find( nan ) != std::string::npos )
            text = nan;
    out( text );
    addState( out, os );
}

/// One mark in three texts is changed, left out or put in.
void spoil( Inputs& in, std::string& text )
{
    static constexpr char marks[] = "()[],.-+eE0123456789xXnaNifp \t\n'";
    while ( in.oneIn( 3 ) && !text.empty() )
    {
        const auto place = static_cast<std::size_t>( in.index( static_cast<int>( text.size() ) ) );
        const char mark = marks[in.index( sizeof marks - 1 )];
        const int way = in.index( 4 );
        text.replace( place, way == 0 ? 0 : 1, way == 1 ? 0 : 1, mark );
        if ( way == 3 )
            text.resize( place );
    }
}

template <class Value, bool isFormatted>
void readOne( Inputs& in, Results& out )
{
    std::ostringstream os;
    os << std::setprecision( in.index( 20 ) );
    if ( in.oneIn( 4 ) )
        format( in, os );
    os << in.make<Value>() << ' ';
    os << in.make<Value>();
    std::string text = os.str();
    spoil( in, text );
    std::istringstream is( text );
    if ( isFormatted )
        format( in, is );
    Value value = in.make<Value>();
    for ( int i = 0; i < 2; ++i )
    {
        out.call( [&] { is >> value; } );
        out( value );
        addState( out, is );
    }
    is.clear();
    out( static_cast<long long>( is.tellg() ) );
}

template <bool isFormatted, class... Values>
void readAny( Inputs& in, Results& out )
{
    int chosen = in.index( sizeof...( Values ) );
    ( ( chosen-- == 0 ? readOne<Values, isFormatted>( in, out ) : static_cast<void>( 0 ) ), ... );
}

template <class T, bool isFormatted>
void read( Inputs& in, Results& out )
{
    readAny<isFormatted, GeVector2<int>, GePoint2<int>, GeVector2<T>, GePoint2<T>, GeUnitVector2<T>, GeVector3<T>,
        GePoint3<T>, GeUnitVector3<T>, GeQuaternion3<T>, CoRgbColorT<T>, CoHsvColorT<T>, CoSpectrumT<T>>( in, out );
}

} // namespace

std::vector<Group> getTextGroups()
{
    return {
        { "textOut.float", write<float, false> },
        { "textOut.double", write<double, false> },
        { "textOutFormatted.float", write<float, true> },
        { "textOutFormatted.double", write<double, true> },
        { "textOutBuilt", writeBuilt<false> },
        { "textOutBuiltFormatted", writeBuilt<true> },
        { "textIn.float", read<float, false> },
        { "textIn.double", read<double, false> },
        { "textInFormatted.float", read<float, true> },
        { "textInFormatted.double", read<double, true> },
    };
}

} // namespace ZqBits
