#include "camera.h"

#include <zq/primitives/geUnitVector3.h>

#include <cmath>

namespace Examples
{

using namespace Zq;

template <class T>
GeAffineMatrix3<T> makeView( const Camera& camera )
{
    const GePoint3<T> eye( camera.eye );
    const GeUnitVector3<T> back( eye - GePoint3<T>( camera.target ) );

    // Looking straight up or down, another axis takes the part of the upward direction.
    const GeVector3<T> upward( camera.up );
    const bool isSteep = upward.cross( back ).length() < static_cast<T>( 1e-3 ) * upward.length();
    const GeVector3<T> other =
        std::abs( camera.up.getY() ) > std::abs( camera.up.getZ() ) ? GeVector3<T>( 0, 0, 1 ) : GeVector3<T>( 0, 1, 0 );
    const GeUnitVector3<T> right( ( isSteep ? other : upward ).cross( back ) );
    const GeUnitVector3<T> up( back.cross( right ) );

    // The rows are the camera's axes: a vector's components along them are its coordinates in camera space.
    const GeLinearMatrix3<T> rotation( right, up, back );
    return GeAffineMatrix3<T>( rotation, -( rotation * GeVector3<T>( eye ) ) );
}

template GeAffineMatrix3<float> makeView<float>( const Camera& );
template GeAffineMatrix3<double> makeView<double>( const Camera& );

} // namespace Examples
