// Text output and input against << and >> item by item: characters, state, exceptions and what is left in the stream,
// over streams of many states and buffers of many sizes.

#include "support/bits.h"

#include <zq/color/coRgbColor.h>
#include <zq/primitives/geLinearMatrix3.h>
#include <zq/primitives/gePlane3.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geVector2.h>

#include <locale>
#include <streambuf>

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

using Setter = void ( * )( std::ios& );
const Setter setters[] = {
    []( std::ios& ) {},
    []( std::ios& stream ) { stream.precision( 3 ); },
    []( std::ios& stream ) { stream.precision( 17 ); },
    []( std::ios& stream ) { stream.width( 9 ), stream.fill( '*' ); },
    []( std::ios& stream ) { stream.setf( std::ios_base::fixed, std::ios_base::floatfield ); },
    []( std::ios& stream ) { stream.setf( std::ios_base::showpos ); },
    []( std::ios& stream ) { stream.setf( std::ios_base::uppercase | std::ios_base::showpoint ); },
    []( std::ios& stream ) { stream.setf( std::ios_base::hex, std::ios_base::basefield ); },
    []( std::ios& stream ) { stream.setf( std::ios_base::unitbuf ); },
    []( std::ios& stream ) { stream.unsetf( std::ios_base::skipws ); },
    []( std::ios& stream ) { stream.imbue( std::locale( std::locale::classic(), new CommaPunct ) ); },
    []( std::ios& stream ) { stream.setstate( std::ios_base::eofbit ); },
    []( std::ios& stream ) { stream.setstate( std::ios_base::badbit ); },
};

/// The circumstances of an operation, drawn once for the plain way and the fast one.
struct Circumstances
{
    explicit Circumstances( Random& random )
    {
        const std::ios_base::iostate masks[] = { std::ios_base::goodbit, std::ios_base::badbit, std::ios_base::failbit,
            std::ios_base::eofbit, std::ios_base::badbit | std::ios_base::failbit };
        mask = masks[random.index( 5 )];
        state = random.index( 2 ) * random.index( std::size( setters ) );
        isTied = random.index( 8 ) == 0;
        chunk = static_cast<std::size_t>( random.index( 2 ) == 0 ? 1 : random.index( 200 ) + 1 );
        limit = static_cast<std::size_t>( random.index( 4 ) == 0 ? random.index( 90 ) : 1000 );
        doesThrow = random.index( 2 ) == 0;
    }
    std::string describe() const
    {
        return "chunk " + std::to_string( chunk ) + " limit " + std::to_string( limit ) + " state " +
            std::to_string( state );
    }

    std::ios_base::iostate mask;
    int state;
    bool isTied, doesThrow;
    std::size_t chunk, limit;
};

/// All that can be seen of an operation on a stream, as one text.
template <class Stream, class Operation>
std::string observe( Device& device, const Circumstances& with, const Operation& operation )
{
    Device tiedDevice( "", 8, 1000, false );
    std::ostream tied( &tiedDevice );
    Stream stream( &device );
    setters[with.state]( stream );
    stream.tie( with.isTied ? &tied : nullptr );
    std::ostringstream seen;
    try
    {
        stream.exceptions( with.mask );
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

template <class Plain, class Value>
void expectSameOutput( Random& random, const Plain& plain, const Value& value )
{
    const Circumstances with( random );
    std::string texts[2];
    for ( int way = 0; way < 2; ++way )
    {
        Device device( "", with.chunk, with.limit, with.doesThrow );
        texts[way] = observe<std::ostream>( device, with,
            [&]( std::ostream& os, std::ostream& ) { way == 0 ? plain( os ) : static_cast<void>( os << value ); } );
        texts[way] += " wrote " + device.takeWritten();
    }
    ASSERT_EQ( texts[0], texts[1] ) << with.describe();
}

ZQ_TWIN_TEST( TextBits, outputIsThatOfTheStream )
{
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < 5000 && !::testing::Test::HasFatalFailure(); ++n )
    {
        T v[9];
        for ( T& element : v )
        {
            element = ZqTest::anyNumber<T>( random );
            // few digits, and sums of few powers of two, which can be ties of the sixth digit
            if ( random.index( 2 ) == 0 )
                element = std::round( element * T( 64 ) ) / T( random.index( 2 ) == 0 ? 64 : 1000 );
        }
        const int lowest = int( v[0] > 0 ) - 2147483647 - 1;
        const GeVector3<T> vector( v[0], v[1], v[2] );
        expectSameOutput(
            random, [&]( std::ostream& os ) { os << '(' << v[0] << ", " << v[1] << ", " << v[2] << ')'; }, vector );
        expectSameOutput(
            random, [&]( std::ostream& os ) { os << v[0] << ' ' << v[1] << ' ' << v[2]; },
            CoRgbColorT<T>( v[0], v[1], v[2] ) );
        expectSameOutput(
            random, [&]( std::ostream& os ) { os << '(' << lowest << ", " << 7 << ')'; }, GeVector2<int>( lowest, 7 ) );
        expectSameOutput(
            random,
            [&]( std::ostream& os ) { os << '[' << v[0] << ", " << v[1] << ", " << v[2] << ", " << v[3] << ']'; },
            GePlane3<T>( vector, v[3] ) );
        expectSameOutput(
            random,
            [&]( std::ostream& os ) { os << "[(" << v[0] << ", " << v[1] << ", " << v[2] << "), " << v[3] << "]"; },
            GeQuaternion3<T>( v[0], v[1], v[2], v[3] ) );
        expectSameOutput(
            random,
            [&]( std::ostream& os )
            {
                for ( int r = 0; r < 9; r += 3 )
                    os << "| " << v[r] << ' ' << v[r + 1] << ' ' << v[r + 2] << ' ' << '|' << std::endl;
            },
            GeLinearMatrix3<T>( v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8] ) );
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

/// Reads the form item by item; it does not stop at a wrong mark.
template <class T>
std::vector<T> readPlainly( std::istream& is, const char* form )
{
    std::vector<T> numbers;
    bool matches = true;
    for ( ; *form != '\0'; ++form )
    {
        char mark = 0;
        if ( *form == 'n' )
            is >> numbers.emplace_back();
        else if ( *form != ' ' )
            matches = is >> mark && mark == *form && matches;
    }
    if ( !matches )
        is.setstate( std::ios_base::failbit );
    return numbers;
}

template <class Value, class T, class... Indices>
void expectSameInput( Random& random, const char* form, Indices... indices )
{
    const Circumstances with( random );
    const std::string text =
        makeText<T>( random, form ) + ( random.index( 2 ) == 0 ? " " : "" ) + makeText<T>( random, form );
    std::string seen[2];
    Value values[2];
    for ( int way = 0; way < 2; ++way )
    {
        Device device( text, with.chunk, with.limit, with.doesThrow );
        const auto readPlain = [&]( std::istream& is )
        {
            const std::vector<T> numbers = readPlainly<T>( is, form );
            if ( !is.fail() )
                values[0] = Value( numbers[indices]... );
        };
        seen[way] = observe<std::istream>( device, with,
            [&]( std::istream& is, std::ostream& note )
            {
                note << ( is.ignore( 1 ).gcount() ) << ' ';
                is.unget();
                way == 0 ? readPlain( is ) : static_cast<void>( is >> values[1] );
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
    ASSERT_EQ( seen[0], seen[1] ) << text << ' ' << with.describe();
    ASSERT_TRUE( ZqTest::isSame<T>( values[0], values[1] ) ) << text;
}

ZQ_TWIN_TEST( TextBits, inputIsThatOfTheStream )
{
    Random random( ZqTest::wideSeed() );
    for ( int n = 0; n < 5000 && !::testing::Test::HasFatalFailure(); ++n )
    {
        expectSameInput<GeVector3<T>, T>( random, "(n,n,n)", 0U, 1U, 2U );
        expectSameInput<CoRgbColorT<T>, T>( random, "n n n", 0U, 1U, 2U );
        expectSameInput<GeQuaternion3<T>, T>( random, "[(n,n,n),n]", 0U, 1U, 2U, 3U );
    }
}

} // namespace
