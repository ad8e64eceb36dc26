#ifndef ZQ_TESTS_SUPPORT_CAMERAS_H
#define ZQ_TESTS_SUPPORT_CAMERAS_H

#include "random.h"

#include <zq/primitives/geProjectionBuilder.h>
#include <zq/primitives/geViewBuilder.h>

#include <array>
#include <cmath>

namespace ZqTest
{

using Number = long double;

constexpr Zq::GeDepthRange ranges[] = {
    Zq::GeDepthRange::MINUS_ONE_TO_ONE, Zq::GeDepthRange::ZERO_TO_ONE, Zq::GeDepthRange::ONE_TO_ZERO };
constexpr Number nearDepths[] = { -1, 0, 1 }, farDepths[] = { 1, 1, 0 };

/// The opening of a camera, at far / near of 3 to 1e6: tangents, or the edges of an orthographic view.
template <class T>
struct Lens
{
    explicit Lens( Random& random )
        : left( random.uniform<T>( -2, T( 0.5 ) ) ), right( left + random.uniform<T>( 1, 2 ) ),
          bottom( random.uniform<T>( -2, T( 0.5 ) ) ), top( bottom + random.uniform<T>( 1, 2 ) ),
          nearDistance( random.uniform<T>( T( 0.1 ), 2 ) ),
          farDistance( nearDistance * std::pow( T( 10 ), random.uniform<T>( T( 0.5 ), 6 ) ) )
    {
    }
    Zq::GeProjectiveMatrix3<T> makePerspective( Zq::GeDepthRange range ) const
    {
        return Zq::GeProjectionBuilder<T>::makePerspectiveFromTangents(
            left, right, bottom, top, nearDistance, farDistance, range );
    }
    Zq::GeProjectiveMatrix3<T> makeOrthographic( Zq::GeDepthRange range ) const
    {
        return Zq::GeProjectionBuilder<T>::makeOrthographicFromEdges(
            left, right, bottom, top, nearDistance, farDistance, range );
    }

    T left, right, bottom, top, nearDistance, farDistance;
};

/// From some place, turned somehow.
template <class T>
Zq::GeAffineMatrix3<T> makeView( Random& random, T distance )
{
    const Zq::GePoint3<T> eye = random.point<T>( distance );
    const Zq::GeUnitVector3<T> towards = random.direction<T>();
    return Zq::GeViewBuilder<T>::makeViewAlong( eye, towards, random.direction<T>() );
}

} // namespace ZqTest

#endif
