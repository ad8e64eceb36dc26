#ifndef ZQ_TOOLS_BITS_RESULTS_H
#define ZQ_TOOLS_BITS_RESULTS_H

#include "inputs.h"

#include <zq/base/assertions.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geShaft.h>

#include <string>

namespace ZqBits
{

/// One hash over all results of a group, in order. Each result enters as numbers, so the order of a machine's bytes does
/// not count; all NaN are one, since which of them an operation gives is up to the processor.
class Results
{
public:
    explicit Results( bool isWithLines ) : _isWithLines( isWithLines ) {}

    std::uint64_t getHash() const { return mix( _hash ); }
    std::uint64_t getCount() const { return _count; }

    template <class... Values>
    void operator()( const Values&... values )
    {
        ( add( values ), ... );
        _count += sizeof...( values );
    }

    /// The result of an operation, or its report. The line of a report counts on request: most of them move with the
    /// source around them.
    template <class Operation>
    void call( const Operation& operation )
    {
        try
        {
            if constexpr ( std::is_void_v<decltype( operation() )> )
                operation();
            else
                ( *this )( operation() );
        }
        catch ( const AssertionException& report )
        {
            ( *this )( report.getFile() + ": " + report.getExpression() );
            addWord( _isWithLines ? static_cast<std::uint64_t>( report.getLine() ) : 0 );
        }
        catch ( const ProgramAbortedException& report )
        {
            ( *this )( report.getFile() );
            addWord( _isWithLines ? static_cast<std::uint64_t>( report.getLine() ) : 0 );
        }
    }

    /// What an operation makes of a value.
    template <class Value, class Operation>
    void change( Value value, const Operation& operation )
    {
        call( [&] { return operation( value ); } );
        ( *this )( value );
    }

private:
    /// For a given hash each word leads to another one.
    void addWord( std::uint64_t word )
    {
        _hash = ( _hash ^ word ) * 0x9E3779B97F4A7C15U;
        _hash ^= _hash >> 32;
    }

    template <class Value>
    std::enable_if_t<std::is_integral_v<Value> || std::is_enum_v<Value>> add( Value value )
    {
        addWord( static_cast<std::uint64_t>( static_cast<std::int64_t>( value ) ) );
    }

    void add( float value )
    {
        std::uint32_t word = 0x7FC00000U;
        if ( value == value )
            std::memcpy( &word, &value, sizeof word );
        addWord( word );
    }

    void add( double value )
    {
        std::uint64_t word = 0x7FF8000000000000U;
        if ( value == value )
            std::memcpy( &word, &value, sizeof word );
        addWord( word );
    }

    void add( const std::string& text )
    {
        addWord( text.size() );
        for ( const char each : text )
            addWord( static_cast<unsigned char>( each ) );
    }

    template <class Value>
    void add( const std::vector<Value>& values )
    {
        for ( const Value& value : values )
            add( value );
    }

    template <class T, class Value>
    void addNumbers( const Value& value )
    {
        T numbers[sizeof value / sizeof( T )];
        static_assert( sizeof numbers == sizeof value );
        std::memcpy( numbers, &value, sizeof value );
        for ( const T number : numbers )
            add( number );
    }

    template <template <class> class Value, class T>
    void add( const Value<T>& value )
    {
        addNumbers<T>( value );
    }

    template <int axis, class T>
    void add( const GeAxisRotation3<axis, T>& rotation )
    {
        addNumbers<T>( rotation );
    }

    /// The classes that are no templates consist of floats.
    template <class Value>
    std::enable_if_t<std::is_class_v<Value>> add( const Value& value )
    {
        addNumbers<float>( value );
    }

    template <class T>
    void add( const GeFrustum<T>& frustum )
    {
        for ( int i = 0; i < GeFrustum<T>::NB_PLANES; ++i )
            add( frustum.getPlane( i ) );
    }

    void add( const GeShaft& shaft )
    {
        unsigned short nbPlanes = 0;
        const GePlane3<float>* const planes = shaft.getPlaneSet( nbPlanes );
        add( nbPlanes );
        for ( int i = 0; i < nbPlanes; ++i )
            add( planes[i] );
        add( shaft.getRefBox1() );
        add( shaft.getRefBox2() );
        add( shaft.getExtentBox() );
    }

    bool _isWithLines;
    std::uint64_t _hash = 0;
    std::uint64_t _count = 0;
};

/// A group of operations: run is called once per input. Whose results depend on functions of the C library (sin, cos,
/// tan, acos, atan2, pow) has ".libm" in its name.
struct Group
{
    const char* name;
    void ( *run )( Inputs& in, Results& out );
};

std::vector<Group> getValueGroups();
std::vector<Group> getQueryGroups();
std::vector<Group> getColorGroups();
std::vector<Group> getTextGroups();

} // namespace ZqBits

#endif
