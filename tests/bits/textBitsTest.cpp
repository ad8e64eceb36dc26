// Text output and input against << and >> item by item: characters, state, exceptions and what is left in the stream,
// over streams of many states and buffers of many sizes.

#include "support/bits.h"

#include <zq/color/coRgbColor.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geShaft.h>
#include <zq/primitives/geSphere3.h>
#include <zq/primitives/geVector2.h>
#include <zq/primitives/geZAxisRotation3.h>

#include <cfenv>
#include <locale>
#include <streambuf>

using namespace ZqTest;

namespace
{

ZQ_TWIN_SUITE( TextBits );

/// Gives its text `chunk` characters at a time and has room for as many; then it fails or throws.
class Device : public std::streambuf
{
public:
    Device( const std::string& text, std::size_t chunk, bool doesThrow )
        : _text( text ), _area( chunk, '\0' ), _doesThrow( doesThrow )
    {
        setp( _area.data(), _area.data() + chunk );
    }

    /// Where it was flushed, what was written and what is left to read.
    std::string describe() const
    {
        return "syncs" + _syncs + ", wrote " + std::string( pbase(), pptr() ) + ", left " +
            std::string( gptr(), egptr() ) + _text.substr( _nbGiven );
    }

protected:
    int_type overflow( int_type ) override { return breakOff(); }
    int_type underflow() override
    {
        _given = _text.substr( _nbGiven, _area.size() );
        _nbGiven += _given.size();
        _given += ','; // behind the end, as if a number ended there
        setg( _given.data(), _given.data(), &_given.back() );
        return gptr() == egptr() ? breakOff() : traits_type::to_int_type( *gptr() );
    }
    int sync() override
    {
        _syncs += ' ' + std::to_string( pptr() - pbase() );
        return 0;
    }

private:
    int_type breakOff() const { return _doesThrow ? throw 42 : traits_type::eof(); }

    std::string _text, _given, _area, _syncs;
    std::size_t _nbGiven = 0;
    bool _doesThrow;
};

struct CommaPunct : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
};

using Setter = void ( * )( std::ios& );
const Setter setters[] = {
    []( std::ios& stream ) { stream.precision( 3 ); },
    []( std::ios& stream ) { stream.width( 9 ), stream.fill( '*' ); },
    []( std::ios& stream ) { stream.setf( std::ios_base::fixed, std::ios_base::floatfield ); },
    []( std::ios& stream ) { stream.setf( std::ios_base::unitbuf ); },
    []( std::ios& stream ) { stream.unsetf( std::ios_base::skipws ); },
    []( std::ios& stream ) { stream.imbue( std::locale( std::locale::classic(), new CommaPunct ) ); },
    []( std::ios& stream ) { stream.setstate( std::ios_base::eofbit ); },
    []( std::ios& stream ) { stream.rdbuf( nullptr ); },
    []( std::ios& ) { std::fesetround( FE_UPWARD ); },
};

/// All that can be seen when an operation is done twice on a stream of the text. The circumstances are drawn from a
/// copy of the generator: those of the plain way are those of the fast one.
template <class Operation>
std::string observe( Random random, const std::string& text, const Operation& operation )
{
    const std::ios_base::iostate masks[] = {
        std::ios_base::goodbit, std::ios_base::badbit, std::ios_base::failbit, std::ios_base::eofbit };
    const int chunk = random.index( random.index( 2 ) == 0 ? 9 : 600 ) + 1;
    Device device( text, static_cast<std::size_t>( chunk ), random.index( 2 ) == 0 ), tiedDevice( "", 1, false );
    std::ostream tied( &tiedDevice );
    std::iostream stream( &device );
    if ( random.index( 2 ) == 0 )
        setters[random.index( std::size( setters ) )]( stream );
    stream.tie( random.index( 8 ) == 0 ? &tied : nullptr );
    std::ostringstream seen;
    try
    {
        stream.exceptions( masks[random.index( 4 )] );
        operation( stream, seen );
        operation( stream, seen );
    }
    catch ( ... )
    {
        seen << " thrown";
    }
    std::fesetround( FE_TONEAREST );
    seen << " state " << stream.rdstate() << " width " << stream.width() << " chunk " << chunk << " tied "
         << tiedDevice.describe() << ' ' << device.describe();
    return seen.str();
}

/// Now and then a number of few digits, or a sum of few powers of two, which can be a tie of the sixth digit.
template <class T>
T makeNumber( Random& random )
{
    if constexpr ( std::is_integral_v<T> )
        return random.index( 4 ) == 0 ? std::numeric_limits<T>::min() : random.index( 2000 ) - 1000;
    else
    {
        const T number = anyNumber<T>( random );
        return random.index( 2 ) == 0 ? number
                                      : std::round( number * T( 64 ) ) / T( random.index( 2 ) == 0 ? 64 : 1000 );
    }
}

/// Writes what a value describes item by item.
struct ItemWriter
{
    template <class Item>
    ItemWriter& operator<<( Item item )
    {
        os << item;
        if constexpr ( std::is_same_v<Item, char> )
            if ( doesFlush && item == '\n' )
                os.flush();
        return *this;
    }
    std::ostream& os;
    bool doesFlush; // at each end of a line
};

/// Writes a value of any numbers, and the same item by item. The last `nbKept` numbers are left as they are.
template <class T, class Value>
void expectSameOutput( Random& random, Value value, bool doesFlush = false, int nbKept = 0 )
{
    auto numbers = numbersOf<T>( value );
    std::generate( numbers.begin(), numbers.end() - nbKept, [&] { return makeNumber<T>( random ); } );
    std::memcpy( static_cast<void*>( &value ), numbers.data(), sizeof value );
    const auto writeItems = [&]( std::ostream& os, std::ostream& )
    {
        ItemWriter items{ os, doesFlush };
        value.writeText( items );
    };
    const auto expected = observe( random, "", writeItems );
    ASSERT_EQ( observe( random, "", [&]( std::ostream& os, std::ostream& ) { os << value; } ), expected );
}

/// A text of the form, at times with an odd number, a wrong mark, other white space, or cut off.
template <class T>
std::string makeText( Random& random, const char* form )
{
    constexpr const char* odd[] = { "+2.5", "-.5", "5.", "1E+5", "1e", "0x1p3", "inf", "-nan", "1e400", "1e-400",
        "1e39", "1e-46", "1.5.2", "+-1", "+", ".", "", "1,2", "3f",
        "0.1234567890123456789012345678901234567890123456789" };
    constexpr const char* spaces[] = { " ", "\n", "\t\v\f\r", "" };
    std::ostringstream text;
    text << std::setprecision( 1 + random.index( 20 ) );
    for ( ; *form != '\0'; ++form )
    {
        if ( random.index( 3 ) == 0 )
            text << spaces[random.index( std::size( spaces ) )];
        if ( *form != 'n' )
            text << ( random.index( 60 ) == 0 ? ';' : *form );
        else if ( random.index( 8 ) == 0 )
            text << odd[random.index( std::size( odd ) )];
        else
            text << makeNumber<T>( random );
    }
    std::string result = text.str();
    if ( random.index( 8 ) == 0 )
        result.resize( static_cast<std::size_t>( random.index( static_cast<int>( result.size() ) ) ) );
    return result;
}

/// Reads a value of the form item by item; that does not stop at a wrong mark, but it fails.
template <class Value, class T>
void expectSameInput( Random& random, const char* form )
{
    const auto readPlainly = [&]( std::istream& is, std::ostream& seen )
    {
        auto numbers = numbersOf<T>( Value() );
        auto next = numbers.begin();
        bool matches = true;
        for ( const char* c = form; *c != '\0'; ++c )
        {
            char mark = *c;
            if ( *c == 'n' )
                is >> *next++;
            else if ( *c != ' ' )
                matches = is >> mark && mark == *c && matches;
        }
        if ( !matches )
            is.setstate( std::ios_base::failbit );
        for ( const T number : is.fail() ? numbersOf<T>( Value() ) : numbers )
            seen << std::hexfloat << number << ' ';
    };
    const auto read = [&]( std::istream& is, std::ostream& seen )
    {
        Value value;
        is >> value;
        for ( const T number : numbersOf<T>( value ) )
            seen << std::hexfloat << number << ' ';
    };
    const std::string text = makeText<T>( random, form ) + makeText<T>( random, form );
    ASSERT_EQ( observe( random, text, readPlainly ), observe( random, text, read ) ) << text;
}

/// Counts the pieces that come to it.
struct PieceCounter : std::stringbuf
{
    std::streamsize xsputn( const char* text, std::streamsize size ) override
    {
        ++nbPieces;
        return std::stringbuf::xsputn( text, size );
    }
    int nbPieces = 0;
};

// The fast way shows: where there is room, all comes in one piece.
ZQ_TWIN_TEST( TextBits, PlainOutputIsOnePiece )
{
    const auto count = []( bool isPlain )
    {
        PieceCounter buffer;
        std::ostream os( &buffer );
        os << std::string( 100, '-' );
        os.seekp( 0 );
        buffer.nbPieces = 0;
        os.precision( isPlain ? 6 : 7 );
        os << GeQuaternion3<T>( 1, T( 2.5 ), T( 1e-9 ), 4 );
        return buffer.nbPieces;
    };
    EXPECT_EQ( count( true ), 1 );
    EXPECT_GT( count( false ), 1 );
}

ZQ_TWIN_TEST( TextBits, output )
{
    Random random( wideSeed() );
    for ( const auto n : random.runs( 1000 ) )
    {
        if ( ::testing::Test::HasFatalFailure() )
            return;
        expectSameOutput<T>( random, GeVector3<T>() );
        expectSameOutput<int>( random, GeVector2<int>() );
        expectSameOutput<T>( random, CoRgbColorT<T>() );
        expectSameOutput<T>( random, GeQuaternion3<T>() );
        expectSameOutput<T>( random, Interval<T>( 0, 1 ) );
        expectSameOutput<T>( random, GeAlignedBox3<T>() );
        expectSameOutput<T>( random, GeNormalizedPlane3<T>() );
        expectSameOutput<T>( random, GeScale3<T>( 1, 1, 1 ) );
        expectSameOutput<T>( random, GeSphere3<T>() );
        expectSameOutput<float>( random, GeAnchoredCone( GeFloatingCone( { 0, 0, 1 }, 0 ), {}, 0, 0 ) );
        expectSameOutput<float>( random, GeCullingCones() );
        expectSameOutput<T>( random, GeLinearMatrix3<T>(), true );
        expectSameOutput<T>( random, GeProjectiveMatrix3<T>(), true );
        expectSameOutput<T>( random, GeZAxisRotation3<T>( 1, 0 ), true );
        expectSameOutput<T>( random, GeFrustum<T>( GeProjectiveMatrix3<T>() ) );
        const auto [box1, box2] = makeRecords<float, GeAlignedBox3<float>, GeAlignedBox3<float>>( random );
        expectSameOutput<float>( random, GeShaft( box1, box2 ), true, 1 );
    }
}

ZQ_TWIN_TEST( TextBits, input )
{
    Random random( wideSeed() );
    for ( const auto n : random.runs( 3000 ) )
    {
        if ( ::testing::Test::HasFatalFailure() )
            return;
        expectSameInput<GeVector3<T>, T>( random, "(n,n,n)" );
        expectSameInput<CoRgbColorT<T>, T>( random, "n n n" );
        expectSameInput<GeQuaternion3<T>, T>( random, "[(n,n,n),n]" );
    }
}

} // namespace
