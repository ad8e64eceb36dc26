// Text output and input against << and >> item by item: characters, state, exceptions and what is left in the stream,
// over streams of many states and buffers of many sizes.

#include <zq/color/coRgbColor.h>
#include <zq/primitives/geLinearMatrix3.h>
#include <zq/primitives/gePlane3.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geVector2.h>
#include <zq/primitives/geVector3.h>

#include "support/bits.h"

#include <iomanip>
#include <istream>
#include <locale>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

using namespace Zq;
using ZqTest::Random;

namespace
{

ZQ_TWIN_SUITE( TextBits );

/// Gives and takes `chunk` characters at a time and breaks off after `limit`, by a failure or by throwing.
class Device : public std::streambuf
{
public:
    Device( std::string text, std::size_t chunk, std::size_t limit, bool doesThrow )
        : _text( std::move( text ) ), _area( chunk, '\0' ), _chunk( chunk ), _limit( limit ), _doesThrow( doesThrow )
    {
    }

    std::string takeWritten()
    {
        _written.append( pbase(), pptr() );
        setp( nullptr, nullptr );
        return _written;
    }

protected:
    int_type overflow( int_type c ) override
    {
        takeWritten();
        if ( _written.size() >= _limit )
            return breakOff();
        if ( _chunk > 1 )
            setp( _area.data(), _area.data() + std::min( _chunk, _limit - _written.size() ) );
        if ( traits_type::eq_int_type( c, traits_type::eof() ) )
            return traits_type::not_eof( c );
        if ( _chunk > 1 )
            return sputc( traits_type::to_char_type( c ) );
        _written += traits_type::to_char_type( c );
        return c;
    }
    int_type underflow() override
    {
        if ( _given >= _limit )
            return breakOff();
        if ( _given >= _text.size() )
            return traits_type::eof();
        const std::size_t count = std::min( { _chunk, _text.size() - _given, _limit - _given } );
        setg( _text.data() + _given, _text.data() + _given, _text.data() + _given + count );
        _given += count;
        return traits_type::to_int_type( *gptr() );
    }
    int sync() override
    {
        ++syncs;
        return 0;
    }

private:
    int_type breakOff() const { return _doesThrow ? throw 42 : traits_type::eof(); }

    std::string _text, _area, _written;
    std::size_t _chunk, _limit, _given = 0;
    bool _doesThrow;

public:
    int syncs = 0;
};

struct CommaPunct : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

constexpr std::ios_base::iostate masks[] = { std::ios_base::goodbit, std::ios_base::badbit, std::ios_base::failbit,
    std::ios_base::eofbit, std::ios_base::badbit | std::ios_base::failbit };

constexpr int nbStates = 14;

void setState( std::ios& stream, int state, std::ostream& tied )
{
    switch ( state )
    {
    case 1:
        stream.precision( 3 );
        break;
    case 2:
        stream.precision( 17 );
        break;
    case 3:
        stream.width( 9 );
        stream.fill( '*' );
        break;
    case 4:
        stream.setf( std::ios_base::fixed, std::ios_base::floatfield );
        break;
    case 5:
        stream.setf( std::ios_base::showpos );
        break;
    case 6:
        stream.setf( std::ios_base::uppercase | std::ios_base::showpoint );
        break;
    case 7:
        stream.setf( std::ios_base::hex, std::ios_base::basefield );
        break;
    case 8:
        stream.setf( std::ios_base::unitbuf );
        break;
    case 9:
        stream.unsetf( std::ios_base::skipws );
        break;
    case 10:
        stream.imbue( std::locale( std::locale::classic(), new CommaPunct ) );
        break;
    case 11:
        stream.tie( &tied );
        break;
    case 12:
        stream.setstate( std::ios_base::eofbit );
        break;
    case 13:
        stream.setstate( std::ios_base::badbit );
        break;
    default:
        break;
    }
}

/// All that can be seen of an operation on a stream, as one text.
template <class Stream, class Operation>
std::string observe( Device& device, int state, std::ios_base::iostate mask, const Operation& operation )
{
    Device tiedDevice( "", 8, 1000, false );
    std::ostream tied( &tiedDevice );
    Stream stream( &device );
    setState( stream, state, tied );
    std::ostringstream seen;
    try
    {
        stream.exceptions( mask );
        operation( stream, seen );
        operation( stream, seen );
    }
    catch ( const std::ios_base::failure& )
    {
        seen << " failure";
    }
    catch ( int )
    {
        seen << " thrown";
    }
    seen << " state " << stream.rdstate() << " width " << stream.width() << " syncs " << device.syncs << ' '
         << ( tiedDevice.syncs != 0 );
    stream.exceptions( std::ios_base::goodbit );
    stream.clear();
    return seen.str();
}

template <class Plain, class Fast>
void expectSameOutput( Random& random, const Plain& plain, const Fast& fast )
{
    const auto mask = masks[random.index( 5 )];
    const int state = random.index( 2 ) * random.index( nbStates );
    const std::size_t chunk = static_cast<std::size_t>( 1 + random.index( 2 ) * random.index( 90 ) );
    const std::size_t limit = static_cast<std::size_t>( random.index( 4 ) == 0 ? random.index( 90 ) : 1000 );
    const bool doesThrow = random.index( 2 ) == 0;
    std::string texts[2];
    for ( int way = 0; way < 2; ++way )
    {
        Device device( "", chunk, limit, doesThrow );
        texts[way] = observe<std::ostream>(
            device, state, mask, [&]( std::ostream& os, std::ostream& ) { way == 0 ? plain( os ) : fast( os ); } );
        texts[way] += " wrote " + device.takeWritten();
    }
    ASSERT_EQ( texts[0], texts[1] ) << "chunk " << chunk << " limit " << limit << " state " << state;
}

TYPED_TEST( TextBits, outputIsThatOfTheStream )
{
    using T = TypeParam;
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < 5000; ++n )
    {
        T v[9];
        for ( T& element : v )
        {
            element = ZqTest::anyNumber<T>( random );
            // few digits, and sums of few powers of two, which can be ties of the sixth digit
            if ( random.index( 2 ) == 0 )
                element = std::round( element * T( 64 ) ) / T( random.index( 2 ) == 0 ? 64 : 1000 );
        }
        const auto tuple = [&v]( std::ostream& os ) { os << '(' << v[0] << ", " << v[1] << ", " << v[2] << ')'; };
        expectSameOutput( random, tuple, [&v]( std::ostream& os ) { os << GeVector3<T>( v[0], v[1], v[2] ); } );
        const auto triple = [&v]( std::ostream& os ) { os << v[0] << ' ' << v[1] << ' ' << v[2]; };
        expectSameOutput( random, triple, [&v]( std::ostream& os ) { os << CoRgbColorT<T>( v[0], v[1], v[2] ); } );
        const auto integers = [&v]( std::ostream& os )
        { os << '(' << int( v[0] > 0 ) - 2147483647 - 1 << ", " << 7 << ')'; };
        expectSameOutput( random, integers,
            [&v]( std::ostream& os ) { os << GeVector2<int>( int( v[0] > 0 ) - 2147483647 - 1, 7 ); } );
        const auto plane = [&v]( std::ostream& os )
        { os << '[' << v[0] << ", " << v[1] << ", " << v[2] << ", " << v[3] << ']'; };
        expectSameOutput(
            random, plane, [&v]( std::ostream& os ) { os << GePlane3<T>( GeVector3<T>( v[0], v[1], v[2] ), v[3] ); } );
        const auto quaternion = [&v]( std::ostream& os )
        { os << "[(" << v[0] << ", " << v[1] << ", " << v[2] << "), " << v[3] << "]"; };
        expectSameOutput(
            random, quaternion, [&v]( std::ostream& os ) { os << GeQuaternion3<T>( v[0], v[1], v[2], v[3] ); } );
        const auto matrix = [&v]( std::ostream& os )
        {
            for ( int r = 0; r < 9; r += 3 )
                os << "| " << v[r] << ' ' << v[r + 1] << ' ' << v[r + 2] << ' ' << '|' << std::endl;
        };
        expectSameOutput( random, matrix,
            [&v]( std::ostream& os )
            { os << GeLinearMatrix3<T>( v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8] ); } );
        if ( this->HasFatalFailure() )
            return;
    }
}

/// A text of the form, at times with an odd number, a wrong mark, other white space, or cut off.
template <class T>
std::string makeText( Random& random, const char* form )
{
    constexpr const char* odd[] = { "+2.5", "-.5", "5.", "1e5", "1E+5", "1e", "1e-", "0x1p3", "inf", "nan", "-inf",
        "1e400", "-1e400", "1e-400", "1e39", "1e-46", "1.5.2", "007.50", "12345678901234567890123",
        "0.1234567890123456789012345678901234567890123456789", "+-1", ".", "-", "", "1,2", "3f", "1e5e", "1_000", "--1",
        "+", ".e1", "0x", "1d5" };
    constexpr const char* spaces[] = { " ", "\n", "\t\v\f\r", "   ", "" };
    std::ostringstream text;
    text << std::setprecision( 1 + random.index( 20 ) );
    for ( ; *form != '\0'; ++form )
    {
        if ( random.index( 3 ) == 0 )
            text << spaces[random.index( 5 )];
        if ( *form != 'n' )
            text << ( random.index( 60 ) == 0 ? ';' : *form );
        else if ( random.index( 8 ) == 0 )
            text << odd[random.index( sizeof odd / sizeof *odd )];
        else
            text << ZqTest::anyNumber<T>( random );
    }
    std::string result = text.str();
    if ( random.index( 8 ) == 0 )
        result.resize( result.size() - static_cast<std::size_t>( random.index( static_cast<int>( result.size() ) ) ) );
    return result;
}

template <class T>
void readPlainTuple( std::istream& is, GeVector3<T>& v )
{
    T read[3] = {};
    char mark = 0;
    is >> mark;
    bool matches = mark == '(';
    for ( int i = 0; i < 3; ++i )
    {
        is >> read[i];
        mark = 0;
        is >> mark;
        matches = matches && mark == ",,)"[i];
    }
    if ( is.fail() || !matches )
        is.setstate( std::ios_base::failbit );
    else
        v.set( read[0], read[1], read[2] );
}

template <class T>
void readPlainTriple( std::istream& is, CoRgbColorT<T>& color )
{
    T a{}, b{}, c{};
    is >> a >> b >> c;
    if ( !is.fail() )
        color = CoRgbColorT<T>( a, b, c );
}

template <class T>
void readPlainQuaternion( std::istream& is, GeQuaternion3<T>& q )
{
    T v[4];
    char marks[8] = {};
    is >> marks[0] >> marks[1] >> v[0] >> marks[2] >> v[1] >> marks[3] >> v[2] >> marks[4] >> marks[5] >> v[3] >>
        marks[6];
    if ( !is.fail() && std::string( marks ) == "[(,,),]" )
        q = GeQuaternion3<T>( v[0], v[1], v[2], v[3] );
    else
        is.setstate( std::ios_base::failbit );
}

template <class T, class Value>
void expectSameInput( Random& random, const char* form, void ( *plain )( std::istream&, Value& ) )
{
    const auto mask = masks[random.index( 5 )];
    const int state = random.index( 2 ) * random.index( nbStates );
    const std::string text =
        makeText<T>( random, form ) + ( random.index( 2 ) == 0 ? " " : "" ) + makeText<T>( random, form );
    const std::size_t chunk = static_cast<std::size_t>( 1 + random.index( 2 ) * random.index( 200 ) );
    const std::size_t limit = static_cast<std::size_t>( random.index( 4 ) == 0 ? random.index( 90 ) : 1000 );
    const bool doesThrow = random.index( 2 ) == 0;
    std::string seen[2];
    Value values[2];
    for ( int way = 0; way < 2; ++way )
    {
        Device device( text, chunk, limit, doesThrow );
        seen[way] = observe<std::istream>( device, state, mask,
            [&]( std::istream& is, std::ostream& note )
            {
                note << ( is.ignore( 1 ).gcount() ) << ' ';
                is.unget();
                way == 0 ? plain( is, values[0] ) : static_cast<void>( is >> values[1] );
                note << is.gcount() << ' ';
            } );
        try
        {
            for ( int c = device.sbumpc(); c != std::char_traits<char>::eof(); c = device.sbumpc() )
                seen[way] += static_cast<char>( c );
        }
        catch ( int )
        {
        }
    }
    ASSERT_EQ( seen[0], seen[1] ) << text << " chunk " << chunk << " limit " << limit << " state " << state;
    ASSERT_TRUE( ZqTest::isSame<T>( values[0], values[1] ) ) << text;
}

TYPED_TEST( TextBits, inputIsThatOfTheStream )
{
    using T = TypeParam;
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < 5000; ++n )
    {
        expectSameInput<T, GeVector3<T>>( random, "(n,n,n)", readPlainTuple<T> );
        expectSameInput<T, CoRgbColorT<T>>( random, "n n n", readPlainTriple<T> );
        expectSameInput<T, GeQuaternion3<T>>( random, "[(n,n,n),n]", readPlainQuaternion<T> );
        if ( this->HasFatalFailure() )
            return;
    }
}

} // namespace
