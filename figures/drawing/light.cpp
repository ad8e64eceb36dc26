#include "light.h"

#include <algorithm>
#include <cmath>

namespace Figures
{

using Zq::GePoint3;
using Zq::GeVector3;

Studio::Studio( const GePoint3<float>& eye, const GeVector3<float>& right, const GeVector3<float>& up,
    const GeVector3<float>& back, const GeVector3<float>& skyward )
    : _eye( eye ), _toSky( skyward ), _toLamp( back * 0.75F + up * 0.8F - right * 0.6F ),
      _toFill( back * 0.3F + up * 0.1F + right * 0.9F )
{
}

Color Studio::shade(
    const GePoint3<float>& position, const GeVector3<float>& normal, const Color& surface, float gloss ) const
{
    GeVector3<float> n = normal;
    n.normalize();
    GeVector3<float> toEye = _eye - position;
    toEye.normalize();
    if ( n.dot( toEye ) < 0 )
    {
        n = -n;
    }
    const float sky = 0.5F + 0.5F * n.dot( _toSky );
    const float lamp = std::max( n.dot( _toLamp ), 0.0F );
    const float fill = std::max( n.dot( _toFill ), 0.0F );
    GeVector3<float> halfway = _toLamp + toEye;
    halfway.normalize();
    const float highlight = gloss * 0.5F * std::pow( std::max( n.dot( halfway ), 0.0F ), 60.0F );

    // ground and sky give off a warm and a cool light
    const Color ambient = mix( Color{ 0.20F, 0.18F, 0.16F }, Color{ 0.40F, 0.43F, 0.48F }, sky );
    const Color diffuse = ambient + Color{ 0.64F, 0.62F, 0.57F } * lamp + Color{ 0.10F, 0.11F, 0.14F } * fill;
    return surface * diffuse + Color{ 1, 1, 1 } * highlight;
}

} // namespace Figures
