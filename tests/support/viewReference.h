#ifndef ZQ_TESTS_SUPPORT_VIEWREFERENCE_H
#define ZQ_TESTS_SUPPORT_VIEWREFERENCE_H

// View volumes by exact rationals: the inequalities of a matrix as they are stated, and cameras of every family to ask
// them about.

#include "prelude.h"

#include <gmpxx.h>
#include <zq/primitives/geRotation3.h>
#include <zq/primitives/geViewVolume.h>

namespace ZqTest
{

using Four = std::array<long double, 4>;
using MatrixRows = std::array<Four, 4>;

/// The six inequalities a x + b y + c z + d >= 0 of a part of a view, exactly; side by side as the volume numbers them.
template <class T>
class ExactView
{
public:
    ExactView( const GeProjectiveMatrix3<T>& m, GeDepthRange range, const std::array<T, 6>& bounds )
    {
        for ( int side = 0; side < 6; ++side )
        {
            const bool isReversed = side >= 4 && range == GeDepthRange::ONE_TO_ZERO;
            const bool isUpper = ( side % 2 == 1 ) != isReversed;
            for ( int i = 0; i < 4; ++i )
            {
                const mpq_class row( m( side / 2, i ) ), w( m( 3, i ) ),
                    bound( bounds[std::size_t( side / 2 ) * 2 + std::size_t( isUpper )] );
                const mpq_class lower = row - bound * w;
                _rows[side][i] = isUpper ? mpq_class( -lower ) : lower;
                _rough[side][i] = _rows[side][i].get_d();
            }
        }
    }
    ExactView( const GeProjectiveMatrix3<T>& m, GeDepthRange range )
        : ExactView( m, range, { -1, 1, -1, 1, T( range == GeDepthRange::MINUS_ONE_TO_ONE ? -1 : 0 ), 1 } )
    {
    }

    /// The sign of the largest (the smallest) value of a side in the box.
    int largestSign( int side, const GeAlignedBox3<T>& box ) const { return extremeSign( side, box, true ); }
    int smallestSign( int side, const GeAlignedBox3<T>& box ) const { return extremeSign( side, box, false ); }

    /// The sign of the largest value at p - e, for all p in the box and all e in the offsets.
    int largestSweptSign( int side, const GeAlignedBox3<T>& box, const GeAlignedBox3<T>& offsets ) const
    {
        mpq_class value = _rows[side][3];
        for ( int axis = 0; axis < 3; ++axis )
        {
            const mpq_class& n = _rows[side][axis];
            const Interval<T> p = box.getInterval( axis ), e = offsets.getInterval( axis );
            value += n * ( n > 0 ? mpq_class( mpq_class( p.max ) - e.min ) : mpq_class( mpq_class( p.min ) - e.max ) );
        }
        return sgn( value );
    }

    bool isBeyondOne( const GeAlignedBox3<T>& box ) const
    {
        for ( int side = 0; side < 6; ++side )
            if ( largestSign( side, box ) < 0 )
                return true;
        return false;
    }
    bool isWithinAll( const GeAlignedBox3<T>& box ) const
    {
        for ( int side = 0; side < 6; ++side )
            if ( smallestSign( side, box ) < 0 )
                return false;
        return true;
    }
    /// Whether any point of the box is in the volume. What is bounded has a corner: a point where three of the twelve
    /// planes meet that is beyond none.
    bool hasCommonPoint( const GeAlignedBox3<T>& box ) const
    {
        mpq_class planes[12][4];
        for ( int side = 0; side < 6; ++side )
        {
            std::copy_n( _rows[side], 4, planes[side] );
            const Interval<T> interval = box.getInterval( side / 2 );
            planes[6 + side][side / 2] = side % 2 ? -1 : 1;
            planes[6 + side][3] = side % 2 ? mpq_class( interval.max ) : mpq_class( -interval.min );
        }
        for ( int i = 0; i < 12; ++i )
            for ( int j = i + 1; j < 12; ++j )
                for ( int k = j + 1; k < 12; ++k )
                {
                    const auto minor = [&]( int a, int b, int c )
                    {
                        return mpq_class( planes[i][a] * ( planes[j][b] * planes[k][c] - planes[j][c] * planes[k][b] ) -
                            planes[i][b] * ( planes[j][a] * planes[k][c] - planes[j][c] * planes[k][a] ) +
                            planes[i][c] * ( planes[j][a] * planes[k][b] - planes[j][b] * planes[k][a] ) );
                    };
                    mpq_class w = -minor( 0, 1, 2 );
                    if ( w == 0 )
                        continue;
                    mpq_class point[3] = { minor( 1, 2, 3 ) / w, -minor( 0, 2, 3 ) / w, minor( 0, 1, 3 ) / w };
                    bool isCommon = true;
                    for ( int p = 0; p < 12 && isCommon; ++p )
                        isCommon = planes[p][0] * point[0] + planes[p][1] * point[1] + planes[p][2] * point[2] +
                                planes[p][3] >=
                            0;
                    if ( isCommon )
                        return true;
                }
        return false;
    }

private:
    int extremeSign( int side, const GeAlignedBox3<T>& box, bool isLargest ) const
    {
        T corner[3];
        long double value = _rough[side][3], size = std::fabs( value );
        for ( int axis = 0; axis < 3; ++axis )
        {
            const Interval<T> interval = box.getInterval( axis );
            corner[axis] = ( sgn( _rows[side][axis] ) > 0 ) == isLargest ? interval.max : interval.min;
            const long double term = _rough[side][axis] * static_cast<long double>( corner[axis] );
            value += term;
            size += std::fabs( term );
        }
        // the coefficients were rounded to double
        if ( std::fabs( value ) > size * 0x1p-50L )
            return value > 0 ? 1 : -1;
        mpq_class exact = _rows[side][3];
        for ( int axis = 0; axis < 3; ++axis )
            exact += _rows[side][axis] * mpq_class( corner[axis] );
        return sgn( exact );
    }

    mpq_class _rows[6][4];
    long double _rough[6][4];
};

inline MatrixRows multiply( const MatrixRows& a, const MatrixRows& b )
{
    MatrixRows product = {};
    for ( std::size_t i = 0; i < 4; ++i )
        for ( std::size_t j = 0; j < 4; ++j )
            for ( std::size_t k = 0; k < 4; ++k )
                product[i][j] += a[i][k] * b[k][j];
    return product;
}

/// The solution of rows * x = y, by elimination; false where there is none.
inline bool solve( MatrixRows rows, Four y, Four& x )
{
    for ( std::size_t i = 0; i < 4; ++i )
    {
        std::size_t pivot = i;
        for ( std::size_t r = i; r < 4; ++r )
            if ( std::fabs( rows[r][i] ) > std::fabs( rows[pivot][i] ) )
                pivot = r;
        std::swap( rows[i], rows[pivot] );
        std::swap( y[i], y[pivot] );
        if ( rows[i][i] == 0 )
            return false;
        for ( std::size_t r = 0; r < 4; ++r )
            if ( r != i )
            {
                const long double factor = rows[r][i] / rows[i][i];
                for ( std::size_t c = 0; c < 4; ++c )
                    rows[r][c] -= factor * rows[i][c];
                y[r] -= factor * y[i];
            }
    }
    for ( std::size_t i = 0; i < 4; ++i )
        x[i] = y[i] / rows[i][i];
    return true;
}

/// A camera, as an engine would make it, in long double.
struct Camera
{
    MatrixRows rows;
    GeDepthRange range;

    template <class T>
    GeProjectiveMatrix3<T> round() const
    {
        GeProjectiveMatrix3<T> m;
        for ( int i = 0; i < 16; ++i )
            m( i / 4, i % 4 ) = static_cast<T>( rows[std::size_t( i / 4 )][std::size_t( i % 4 )] );
        return m;
    }
};

/// MatrixRows of depth and weight such that z / w goes from the range's value at distance n to that at distance f along
/// `forward` times z; f may be infinite.
inline void setDepth( MatrixRows& rows, GeDepthRange range, long double n, long double f, long double forward )
{
    const long double atNear = range == GeDepthRange::MINUS_ONE_TO_ONE ? -1
        : range == GeDepthRange::ZERO_TO_ONE                           ? 0
                                                                       : 1;
    const long double atFar = range == GeDepthRange::ONE_TO_ZERO ? 0 : 1;
    // z = a t + b for the distance t, and z / t is atNear at n, atFar at f
    const bool isInfinite = std::isinf( f );
    const long double a = isInfinite ? atFar : ( atFar * f - atNear * n ) / ( f - n );
    const long double b = ( atNear - a ) * n;
    rows[2] = { 0, 0, a * forward, b };
    rows[3] = { 0, 0, forward, 0 };
}

constexpr int NB_FAMILIES = 14;

/// A random camera of a family, whose far plane is `ratio` times as far away as the near plane.
inline Camera makeCamera( Random& random, int family, long double ratio )
{
    const GeDepthRange ranges[] = {
        GeDepthRange::MINUS_ONE_TO_ONE, GeDepthRange::ZERO_TO_ONE, GeDepthRange::ONE_TO_ZERO };
    Camera camera = { {}, ranges[random.index( 3 )] };
    MatrixRows& rows = camera.rows;
    const auto uniform = [&]( double lower, double upper ) -> long double { return random.uniform( lower, upper ); };
    const long double n = std::pow( 10.0L, uniform( -2, 1 ) ), f = n * ratio;
    const long double scale = uniform( 0.5, 2.5 ), aspect = uniform( 0.5, 2 );
    const long double forward = family == 3 ? 1 : -1; // left-handed
    rows[0] = { scale / aspect, 0, 0, 0 };
    rows[1] = { 0, family == 4 ? -scale : scale, 0, 0 }; // upside down
    if ( family == 5 || family == 6 )                    // infinite; reversed and infinite
    {
        camera.range = family == 6 ? GeDepthRange::ONE_TO_ZERO : ranges[random.index( 2 )];
        setDepth( rows, camera.range, n, std::numeric_limits<long double>::infinity(), forward );
    }
    else
        setDepth( rows, camera.range, n, f, forward );
    if ( family == 1 ) // off-centre
    {
        rows[0][2] = uniform( -0.8, 0.8 );
        rows[1][2] = uniform( -0.8, 0.8 );
    }
    if ( family == 2 ) // oblique: another near plane, and whatever far plane that leaves
    {
        const Four plane = { uniform( -0.3, 0.3 ), uniform( -0.3, 0.3 ), -1, -n * uniform( 1, 3 ) };
        const long double size = uniform( 0.5, 2 );
        for ( std::size_t i = 0; i < 4; ++i )
            rows[2][i] = plane[i] * size - ( camera.range == GeDepthRange::MINUS_ONE_TO_ONE ? rows[3][i] : 0 );
    }
    if ( family == 7 || family == 8 ) // orthographic, for images and for cascades
    {
        const long double near = family == 7 ? n : -f / 2, depth = family == 7 ? f - n : f;
        const long double lower = camera.range == GeDepthRange::MINUS_ONE_TO_ONE ? -1 : 0;
        const bool isReversed = camera.range == GeDepthRange::ONE_TO_ZERO;
        const long double a = ( isReversed ? -1 : 1 - lower ) / depth;
        rows[0] = { 1 / ( f * uniform( 0.1, 1 ) ), 0, 0, uniform( -0.5, 0.5 ) };
        rows[1] = { 0, 1 / ( f * uniform( 0.1, 1 ) ), 0, uniform( -0.5, 0.5 ) };
        rows[2] = { 0, 0, -a, ( isReversed ? 1 : lower ) - a * near };
        rows[3] = { 0, 0, 0, 1 };
    }
    if ( family == 9 ) // numbers that mean nothing
        for ( Four& row : rows )
            for ( long double& element : row )
                element = std::ldexp( uniform( -1, 1 ), random.index( 20 ) - 10 );
    if ( family >= 1 && family <= 12 && random.index( 8 ) != 0 ) // an eye somewhere, that looks anywhere
    {
        const GeUnitVector3<double> axis = random.direction<double>();
        const GeLinearMatrix3<double> turn = GeRotation3<double>::aim( axis, random.vector<double>( 1 ), 2, 1, true );
        const long double distance = std::pow( 10.0L, uniform( -1, family == 12 ? 6 : 3 ) );
        const long double size = family == 11 ? std::pow( 10.0L, uniform( -4, 4 ) ) : 1; // units of another scale
        MatrixRows view = {};
        for ( int i = 0; i < 9; ++i )
            view[std::size_t( i / 3 )][std::size_t( i % 3 )] = turn( i / 3, i % 3 ) * size;
        for ( std::size_t i = 0; i < 3; ++i )
            view[i][3] = uniform( -1, 1 ) * distance;
        view[3][3] = 1;
        rows = multiply( rows, view );
    }
    if ( family == 13 ) // as a whole very large or very small
    {
        const int power = random.index( 2 ) ? 90 : -90;
        for ( Four& row : rows )
            for ( long double& element : row )
                element = std::ldexp( element, power );
    }
    return camera;
}

/// A box that touches, or nearly touches, what the matrix puts at a random place on a side, edge or corner of the
/// volume.
template <class T>
GeAlignedBox3<T> makeBoxNear( Random& random, const Camera& camera )
{
    Four clip = { 0, 0, 0, 1 }, p = { 0, 0, 0, 1 };
    for ( std::size_t i = 0; i < 3; ++i )
        clip[i] = random.index( 2 ) ? random.uniform( -1.1, 1.1 ) : random.index( 2 ) ? 1 : -1;
    if ( camera.range != GeDepthRange::MINUS_ONE_TO_ONE && clip[2] < 0 )
        clip[2] = random.index( 2 ) ? 0 : -clip[2];
    if ( !solve( camera.rows, clip, p ) || p[3] == 0 )
        p = { 1, 1, 1, 1 };
    T corner[3];
    long double size = 0;
    for ( std::size_t i = 0; i < 3; ++i )
        size = std::max( size, std::fabs( p[i] / p[3] ) );
    const long double near = size * epsilon<T> * random.uniform( -6.0, 6.0 ); // some roundings away
    long double half = 0;
    if ( random.index( 4 ) != 0 )
        half = size * std::pow( 10.0, random.uniform( -8.0, 0.5 ) );
    GeAlignedBox3<T> box;
    const int anchor = random.index( 8 );
    for ( int i = 0; i < 3; ++i )
    {
        const long double x = p[std::size_t( i )] / p[3] + ( random.index( 3 ) == 0 ? near : 0 );
        const long double other =
            anchor >> i & 1 ? x + half * random.uniform( 0.1, 1.0 ) : x - half * random.uniform( 0.1, 1.0 );
        const T a = static_cast<T>( x ), b = static_cast<T>( other );
        box.setInterval( i, Interval<T>( std::min( a, b ), std::max( a, b ) ) );
        corner[i] = a;
    }
    for ( const T x : corner )
        if ( !std::isfinite( x ) )
            return GeAlignedBox3<T>( GePoint3<T>( 1, 2, 3 ) );
    return box;
}

} // namespace ZqTest

#endif
