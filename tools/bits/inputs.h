#ifndef ZQ_TOOLS_BITS_INPUTS_H
#define ZQ_TOOLS_BITS_INPUTS_H

#include <zq/color/coHsvColor.h>
#include <zq/color/coRgbColor.h>
#include <zq/color/coSpectrum.h>
#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geAlignedBox.h>
#include <zq/primitives/geHomogeneousCoord3.h>
#include <zq/primitives/geNormalizedPlane3.h>
#include <zq/primitives/gePoint2.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geRotation3.h>
#include <zq/primitives/geScale3.h>
#include <zq/primitives/geSphere3.h>
#include <zq/primitives/geTranslation3.h>
#include <zq/primitives/geUnitVector2.h>
#include <zq/primitives/geXAxisRotation3.h>
#include <zq/primitives/geYAxisRotation3.h>
#include <zq/primitives/geZAxisRotation3.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace ZqBits
{

using namespace Zq;

/// Turns a number into one that looks like chance; each has its own.
constexpr std::uint64_t mix( std::uint64_t x )
{
    x = ( x ^ ( x >> 30 ) ) * 0xBF58476D1CE4E5B9U;
    x = ( x ^ ( x >> 27 ) ) * 0x94D049BB133111EBU;
    return x ^ ( x >> 31 );
}

/// The inputs of one run of a group, which follow from the group's seed and the number of the run alone. A caller draws
/// each in a statement, or a declarator, of its own: the order within a list of arguments differs by compiler.
///
/// Method: Steele, Lea and Flood, "Fast Splittable Pseudorandom Number Generators", 2014 (the mixer of SplitMix64).
class Inputs
{
public:
    Inputs( std::uint64_t seed, std::uint64_t run ) : _state( mix( seed + mix( run ) ) ), _kind( index( NB_KINDS ) ) {}

    std::uint64_t bits() { return mix( _state += 0x9E3779B97F4A7C15U ); }

    /// In [0, count).
    int index( int count ) { return static_cast<int>( ( bits() >> 32 ) % static_cast<unsigned>( count ) ); }
    bool oneIn( int count ) { return index( count ) == 0; }

    /// In [-size, size): an integer that T holds, multiplied once.
    template <class T>
    T uniform( T size )
    {
        constexpr int digits = std::numeric_limits<T>::digits;
        constexpr auto half = std::int64_t( 1 ) << ( digits - 1 );
        return static_cast<T>( static_cast<std::int64_t>( bits() >> ( 64 - digits ) ) - half ) *
            ( size / static_cast<T>( half ) );
    }

    /// What the kind of this run gives: ordinary numbers in four of eight runs, with ties, of any magnitude, or odd ones.
    template <class T>
    T number()
    {
        using Word = std::conditional_t<sizeof( T ) == 4, std::uint32_t, std::uint64_t>;
        using Limits = std::numeric_limits<T>;
        static constexpr T odd[] = { T( 0 ), -T( 0 ), Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
            ( Limits::max )(), Limits::lowest(), ( Limits::min )(), Limits::denorm_min(), -Limits::denorm_min(),
            ( Limits::min )() / 4, T( 1 ), T( -1 ), T( 1e-6F ), T( 1e-7 ), T( 0.0016F ), T( -0.0001F ), T( 360 ) };
        switch ( _kind )
        {
        case ANY_BITS:
            return copyAs<T>( static_cast<Word>( bits() ) );
        case ODD:
            return oneIn( 3 ) ? odd[index( sizeof odd / sizeof *odd )] : uniform( T( 2 ) );
        case LATTICE:
            return oneIn( 16 ) ? -T( 0 ) : static_cast<T>( index( 9 ) - 4 ) / T( 2 );
        case SCALED: // by a power of two from 2^-31 to 2^31
        {
            const T scale = static_cast<T>( std::uint64_t( 1 ) << index( 32 ) );
            return oneIn( 2 ) ? uniform( scale ) : uniform( T( 1 ) ) / scale;
        }
        default:
            return uniform( T( _kind % 2 == 0 ? 2 : 100 ) );
        }
    }

    /// A value of any class.
    template <class Value>
    Value make()
    {
        return make( static_cast<Value*>( nullptr ) );
    }

    template <class Value>
    std::vector<Value> makeArray( std::size_t count )
    {
        std::vector<Value> values;
        values.reserve( count );
        while ( values.size() < count )
            values.push_back( make<Value>() );
        return values;
    }

private:
    enum Kind
    {
        ANY_BITS = 4,
        ODD,
        LATTICE,
        SCALED,
        NB_KINDS
    };

    template <class To, class From>
    static To copyAs( const From& from )
    {
        To to;
        static_assert( sizeof to == sizeof from );
        std::memcpy( static_cast<void*>( &to ), &from, sizeof to );
        return to;
    }

    template <class T, class = std::enable_if_t<std::is_floating_point_v<T>>>
    T make( T* )
    {
        return number<T>();
    }

    /// A class that is its numbers, each of which may be any.
    template <template <class> class Value, class T>
    Value<T> make( Value<T>* )
    {
        struct
        {
            T number[sizeof( Value<T> ) / sizeof( T )];
        } numbers;
        for ( T& each : numbers.number )
            each = number<T>();
        return copyAs<Value<T>>( numbers );
    }

    GeVector2<int> make( GeVector2<int>* )
    {
        const int x = index( 2001 ) - 1000, y = oneIn( 4 ) ? x : index( 7 ) - 3;
        return { x, y };
    }
    GePoint2<int> make( GePoint2<int>* ) { return GePoint2<int>( make<GeVector2<int>>() ); }

    template <class T>
    GeUnitVector2<T> make( GeUnitVector2<T>* )
    {
        const auto v = make<GeVector2<T>>();
        return v.length() > T( 0 ) && v.length() <= ( std::numeric_limits<T>::max )() ? v.computeUnit()
                                                                                      : GeUnitVector2<T>();
    }

    template <class T>
    GeUnitVector3<T> make( GeUnitVector3<T>* )
    {
        const auto v = make<GeVector3<T>>();
        return v.length() > T( 0 ) && v.length() <= ( std::numeric_limits<T>::max )() ? v.computeUnit()
                                                                                      : GeUnitVector3<T>();
    }

    /// At times singular, or nearly so: a row that is twice another.
    template <class T>
    GeLinearMatrix3<T> make( GeLinearMatrix3<T>* )
    {
        const auto r0 = make<GeVector3<T>>(), r1 = make<GeVector3<T>>(), r2 = make<GeVector3<T>>();
        return { r0, r1, oneIn( 8 ) ? r0 * T( 2 ) : r2 };
    }

    template <class T>
    GeAffineMatrix3<T> make( GeAffineMatrix3<T>* )
    {
        const auto linear = make<GeLinearMatrix3<T>>();
        return { linear, make<GeVector3<T>>() };
    }

    template <class T>
    GeRotation3<T> make( GeRotation3<T>* )
    {
        return GeRotation3<T>( make<GeLinearMatrix3<T>>() );
    }
    template <class T>
    GeScale3<T> make( GeScale3<T>* )
    {
        return GeScale3<T>( make<GeVector3<T>>() );
    }
    template <class T>
    GeTranslation3<T> make( GeTranslation3<T>* )
    {
        return GeTranslation3<T>( make<GeVector3<T>>() );
    }

    template <template <class> class Rotation, class T>
    Rotation<T> makeAxisRotation()
    {
        const T cosine = number<T>(), sine = number<T>();
        return { cosine, sine };
    }
    template <class T>
    GeXAxisRotation3<T> make( GeXAxisRotation3<T>* )
    {
        return makeAxisRotation<GeXAxisRotation3, T>();
    }
    template <class T>
    GeYAxisRotation3<T> make( GeYAxisRotation3<T>* )
    {
        return makeAxisRotation<GeYAxisRotation3, T>();
    }
    template <class T>
    GeZAxisRotation3<T> make( GeZAxisRotation3<T>* )
    {
        return makeAxisRotation<GeZAxisRotation3, T>();
    }

    /// Inverted on an axis in one of eight.
    template <class T>
    GeAlignedBox3<T> make( GeAlignedBox3<T>* )
    {
        const auto x = make<Interval<T>>(), y = make<Interval<T>>(), z = make<Interval<T>>();
        const bool isAsDrawn = oneIn( 8 );
        const auto sort = [&]( const Interval<T>& i )
        { return isAsDrawn || !( i.max < i.min ) ? i : Interval<T>( i.max, i.min ); };
        return { sort( x ), sort( y ), sort( z ) };
    }

    template <class T>
    GeNormalizedPlane3<T> make( GeNormalizedPlane3<T>* )
    {
        const auto normal = make<GeUnitVector3<T>>();
        return { normal, number<T>() };
    }

    std::uint64_t _state;
    int _kind;
};

} // namespace ZqBits

#endif
