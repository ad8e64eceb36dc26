#ifndef ZQ_BASE_LU_VECTORLUDECOMPOSITION_H
#define ZQ_BASE_LU_VECTORLUDECOMPOSITION_H

#include "../floatUtil.h"
#include "../registers.h"
#include "luDecomposition.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Zq
{

namespace Detail
{

#if ZQ_HAS_VECTOR_TYPES

/// Four elements in registers of 16 bytes, which every processor of a supported family has. Words are those of
/// ../lanes/lanes.imp: a Value is a register of lanes, and a Mask has -1 or 0 in each.
template <class T>
struct LuLanes;

template <>
struct LuLanes<float>
{
    using Value = Register<float, 4>;
    using Mask [[gnu::vector_size( 16 )]] = std::int32_t;
    struct Row
    {
        Value parts[1];
    };
    static Row makeRow( float a, float b, float c, float d ) { return { { Value{ a, b, c, d } } }; }
};

template <>
struct LuLanes<double>
{
    using Value = Register<double, 2>;
    using Mask [[gnu::vector_size( 16 )]] = std::int64_t;
    struct Row
    {
        Value parts[2];
    };
    static Row makeRow( double a, double b, double c, double d ) { return { { Value{ a, b }, Value{ c, d } } }; }
};

/// LuDecomposition for 3 or 4 rows, without jumps that depend on the data and with the same bits, NaN and infinity
/// included.
///
/// A step subtracts its products from all rows below at once. So each element sees the subtractions of Crout's sums, in
/// their order. The rows are those of [A | I] in one: the columns of A that are done with make room for those of the
/// right-hand side that are not zero yet, which are numbered by their pivots. Pivots are found and rows exchanged by
/// comparisons that become masks; the reciprocals of all candidates are ready by then.
template <class T, std::size_t rows>
class VectorLuDecomposition
{
public:
    template <class Matrix>
    bool decompose( const Matrix& m );

    T computeDeterminant() const;

    template <class Matrix>
    void writeInverse( Matrix& inverse ) const;

private:
    using Lanes = LuLanes<T>;
    using Value = typename Lanes::Value;
    using Mask = typename Lanes::Mask;
    using Row = typename Lanes::Row;
    static constexpr int size = static_cast<int>( rows );
    static constexpr int width = 16 / static_cast<int>( sizeof( T ) );
    static constexpr int nbParts = 4 / width;
    static_assert( size == 3 || size == 4 );

    static T get( const Row& row, int lane ) { return row.parts[lane / width][lane % width]; }
    template <int lane>
    static Value broadcast( const Row& row )
    {
        return Detail::broadcast<width>( row.parts[lane / width][lane % width] );
    }
    static Value select( Mask mask, Value a, Value b )
    {
        return reinterpret_cast<Value>(
            ( reinterpret_cast<Mask>( a ) & mask ) | ( reinterpret_cast<Mask>( b ) & ~mask ) );
    }
    /// The lanes of a whose bits are set, else those of b. Comparisons of constants would make GCC 12 fail at -O1.
    template <int lanes>
    static Row selectLanes( const Row& a, const Row& b )
    {
        if constexpr ( nbParts == 1 )
        {
            constexpr Mask mask = { -( lanes & 1 ), -( lanes >> 1 & 1 ), -( lanes >> 2 & 1 ), -( lanes >> 3 & 1 ) };
            return { { select( mask, a.parts[0], b.parts[0] ) } };
        }
        else // faster for double, and slower for float
            return Lanes::makeRow( get( lanes & 1 ? a : b, 0 ), get( lanes & 2 ? a : b, 1 ),
                get( lanes & 4 ? a : b, 2 ), get( lanes & 8 ? a : b, 3 ) );
    }
    static Value abs( Value v )
    {
        return select( reinterpret_cast<Mask>( Detail::broadcast<width>( -T( 0 ) ) ), Value{}, v );
    }
    /// The first where both are equal, be it -0 and 0, or either is NaN: the processor has these in one instruction.
    static Value largerElseFirst( Value a, Value b ) { return b > a ? b : a; }
    static Value smallerElseFirst( Value a, Value b ) { return b < a ? b : a; }
    static Row makeUnit( int lane ) { return Lanes::makeRow( lane == 0, lane == 1, lane == 2, lane == 3 ); }

    template <int step>
    T getCandidate( int row ) const;
    template <int step>
    void eliminate();
    template <int row>
    void solve( Row ( &x )[rows] ) const;
    template <int row, int column>
    void subtract( Row& r, const Row ( &x )[rows] ) const;

    Row _rows[rows]; // U, and below the diagonal the inverse of L
    Row _scales;
    Value _least;    // of all that must not count as zero, in its lanes
    unsigned _order; // the row of A that is pivot k, in byte k
    bool _isOdd;
};

template <class T, std::size_t rows>
template <class Matrix>
inline bool VectorLuDecomposition<T, rows>::decompose( const Matrix& m )
{
    const auto element = [&m]( int r, int c ) { return c < size ? m( r, c ) : T( 0 ); };
    Row largest{};
    for ( int j = 0; j < size; ++j )
    {
        const Row column = Lanes::makeRow( m( 0, j ), m( 1, j ), m( 2, j ), size > 3 ? m( size - 1, j ) : T( 1 ) );
        for ( int n = 0; n < nbParts; ++n )
            // if ( abs( m( i, j ) ) > largest[i] ) largest[i] = abs( m( i, j ) ), for all rows i
            largest.parts[n] = largerElseFirst( largest.parts[n], abs( column.parts[n] ) );
    }
    _least = smallerElseFirst( largest.parts[0], largest.parts[nbParts - 1] );
    for ( int n = 0; n < nbParts; ++n )
        _scales.parts[n] = T( 1 ) / largest.parts[n];
    for ( int i = 0; i < size; ++i )
        _rows[i] = Lanes::makeRow( element( i, 0 ), element( i, 1 ), element( i, 2 ), element( i, 3 ) );
    _order = 0x03020100;
    _isOdd = false;

    eliminate<0>();
    if constexpr ( size > 3 )
        eliminate<1>();
    eliminate<size - 2>();
    _least = smallerElseFirst( _least, abs( broadcast<size - 1>( _rows[size - 1] ) ) );

    constexpr T zero = sizeof( T ) == sizeof( float ) ? static_cast<T>( FloatUtil::defaultFloatTolerance )
                                                      : static_cast<T>( FloatUtil::defaultDoubleTolerance );
    // for each pivot and largest of a row: if ( FloatUtil::isEqual( x, 0 ) ) return false
    const Mask isZero = _least < Detail::broadcast<width>( zero );
    std::int64_t halves[2];
    std::memcpy( halves, &isZero, sizeof halves );
    return ( halves[0] | halves[1] ) == 0;
}

template <class T, std::size_t rows>
inline T VectorLuDecomposition<T, rows>::computeDeterminant() const
{
    T determinant = _isOdd ? T( -1 ) : T( 1 );
    for ( int i = 0; i < size; ++i )
        determinant *= get( _rows[i], i );
    return determinant;
}

template <class T, std::size_t rows>
template <class Matrix>
inline void VectorLuDecomposition<T, rows>::writeInverse( Matrix& inverse ) const
{
    Row x[rows];
    solve<size - 1>( x );
    for ( int i = 0; i < size; ++i )
    {
        for ( int k = 0; k < size; ++k )
            inverse( i, static_cast<int>( _order >> ( 8 * k ) & 255U ) ) = get( x[i], k );
    }
}

/// What may become the pivot of a step; anything for the rows that may not.
template <class T, std::size_t rows>
template <int step>
inline T VectorLuDecomposition<T, rows>::getCandidate( int row ) const
{
    return row < step ? get( _rows[step], step ) : row < size ? get( _rows[row], step ) : T( 1 );
}

template <class T, std::size_t rows>
template <int step>
inline void VectorLuDecomposition<T, rows>::eliminate()
{
    const Row column = Lanes::makeRow(
        getCandidate<step>( 0 ), getCandidate<step>( 1 ), getCandidate<step>( 2 ), getCandidate<step>( 3 ) );
    Row weights;
    Row reciprocals;
    for ( int n = 0; n < nbParts; ++n )
    {
        // weight[i] = scale[i] * abs( a[i][step] ), inverse[i] = 1 / a[i][step]
        weights.parts[n] = _scales.parts[n] * abs( column.parts[n] );
        reciprocals.parts[n] = T( 1 ) / column.parts[n];
    }
    const Value weight[4] = {
        broadcast<0>( weights ), broadcast<1>( weights ), broadcast<2>( weights ), broadcast<3>( weights ) };
    const Value inverse[4] = { broadcast<0>( reciprocals ), broadcast<1>( reciprocals ), broadcast<2>( reciprocals ),
        broadcast<3>( reciprocals ) };

    Row pivot = _rows[step];
    Value reciprocal = inverse[step];
    Value heaviest = largerElseFirst( Value{}, weight[step] );
    Mask wins[rows];
    int p = step;
    for ( int i = step + 1; i < size; ++i )
    {
        // if ( weight[i] >= heaviest ) { heaviest = weight[i]; pivot = rows[i]; reciprocal = inverse[i]; p = i; }
        wins[i] = weight[i] >= heaviest;
        heaviest = largerElseFirst( heaviest, weight[i] );
        for ( int n = 0; n < nbParts; ++n )
            pivot.parts[n] = select( wins[i], _rows[i].parts[n], pivot.parts[n] );
        reciprocal = select( wins[i], inverse[i], reciprocal );
        p ^= ( p ^ i ) & static_cast<int>( wins[i][0] ); // a choice in C++ becomes a jump
    }
    // the last to win is the pivot: its place gets the row of this step
    Mask later{};
    for ( int i = size - 1; i > step; --i )
    {
        for ( int n = 0; n < nbParts; ++n )
            // if ( i == p ) rows[i] = rows[step]
            _rows[i].parts[n] = select( wins[i] & ~later, _rows[step].parts[n], _rows[i].parts[n] );
        later |= wins[i];
    }
    _rows[step] = pivot;
    const unsigned change = ( _order >> ( 8 * step ) ^ _order >> ( 8 * p ) ) & 255U;
    _order ^= change << ( 8 * step ) ^ change << ( 8 * p );
    _isOdd ^= p != step;
    _least = smallerElseFirst( _least, abs( broadcast<step>( pivot ) ) );

    // the column of this step becomes one of the right-hand side, where the pivot has 1 and the rows below 0
    pivot = selectLanes<1 << step>( makeUnit( step ), pivot );
    for ( int i = step + 1; i < size; ++i )
    {
        const Value factor = broadcast<step>( _rows[i] ) * reciprocal;
        const Row row = selectLanes<1 << step>( Row{}, _rows[i] );
        for ( int n = 0; n < nbParts; ++n )
            // a[i][k] -= ( a[i][step] * reciprocal ) * a[step][k], for all columns k
            _rows[i].parts[n] = row.parts[n] - factor * pivot.parts[n];
    }
}

/// Back substitution for all columns at once, from this row upwards.
template <class T, std::size_t rows>
template <int row>
inline void VectorLuDecomposition<T, rows>::solve( Row ( &x )[rows] ) const
{
    Row r = selectLanes<( 1 << row ) - 1>( _rows[row], makeUnit( row ) );
    subtract<row, row + 1>( r, x );
    for ( int n = 0; n < nbParts; ++n )
        x[row].parts[n] = r.parts[n] / broadcast<row>( _rows[row] );
    if constexpr ( row > 0 )
        solve<row - 1>( x );
}

template <class T, std::size_t rows>
template <int row, int column>
inline void VectorLuDecomposition<T, rows>::subtract( Row& r, const Row ( &x )[rows] ) const
{
    if constexpr ( column < size )
    {
        for ( int n = 0; n < nbParts; ++n )
            r.parts[n] -= broadcast<column>( _rows[row] ) * x[column].parts[n];
        subtract<row, column + 1>( r, x );
    }
}

template <class T, std::size_t rows>
using FastLuDecomposition = VectorLuDecomposition<T, rows>;

#else

template <class T, std::size_t rows>
using FastLuDecomposition = LuDecomposition<T, rows>;

#endif

/// Writes inverse and determinant; a singular matrix writes nothing and answers false.
template <class T, std::size_t rows, class Matrix>
inline bool tryInvert( const Matrix& m, Matrix& inverse, T& determinant )
{
    FastLuDecomposition<T, rows> lu;
    if ( !lu.decompose( m ) )
        return false;
    lu.writeInverse( inverse );
    determinant = lu.computeDeterminant();
    return true;
}

} // namespace Detail

} // namespace Zq

#endif
