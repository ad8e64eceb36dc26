// Writes cameras of many families, boxes near the planes of their volumes, and what GeViewVolume<float> and, where it
// takes the camera, GeFrustum<float> say of them: for rasterise.py, which draws them.
//
//     zq_raster_cases BOXES SEED FILE
//
// BOXES are called outside by the volume per family, depth range and ratio. The file is one line of JSON with the names
// of families, ranges and ratios, then records as `Record` has them. It ends with code 1 when it cannot be written or a
// family has too few boxes outside, 2 for wrong arguments.

#include "support/random.h"

#include <zq/base/assertions.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/geProjectionBuilder.h>
#include <zq/primitives/geViewBuilder.h>
#include <zq/primitives/geViewVolume.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>

namespace
{

using namespace Zq;
using ZqTest::Random;

struct Record
{
    float matrix[16]; // by columns
    float lower[3];
    float upper[3];
    std::uint8_t family;
    std::uint8_t range;
    std::uint8_t ratio;
    std::uint8_t volume;  // Classification
    std::uint8_t frustum; // Classification, or 0 when there is no frustum of the matrix
    std::uint8_t unused[3];
};
static_assert( sizeof( Record ) == 96 && std::is_trivially_copyable_v<Record> );

enum Family
{
    PERSPECTIVE,
    OFF_CENTRE,
    UPSIDE_DOWN,
    OBLIQUE,
    INFINITE,
    ORTHOGRAPHIC,
    NB_FAMILIES
};

const char* const names =
    R"({"families": ["perspective", "off-centre", "upside down", "oblique", "infinite", "orthographic"],)"
    R"( "ranges": ["-1 to 1", "0 to 1", "1 to 0"], "ratios": [1e3, 1e4, 1e5, 1e6, 1e8]})";
constexpr std::array<double, 5> ratios = { 1e3, 1e4, 1e5, 1e6, 1e8 };
constexpr std::array<GeDepthRange, 3> ranges = {
    GeDepthRange::MINUS_ONE_TO_ONE, GeDepthRange::ZERO_TO_ONE, GeDepthRange::ONE_TO_ZERO };

struct Camera
{
    GeAffineMatrix3<float> view;
    GeProjectiveMatrix3<float> matrix; // of the projection and the view, rounded as float programs do
    double nearDistance, farDistance;
    double edges[4]; // left, right, bottom, top: tangents, or lengths for an orthographic camera
};

double logarithmic( Random& random, double lower, double upper )
{
    return std::pow( 10.0, random.uniform( std::log10( lower ), std::log10( upper ) ) );
}

GeProjectiveMatrix3<float> makeProjection( Random& random, Family family, GeDepthRange range, const Camera& camera )
{
    using Builder = GeProjectionBuilder<float>;
    const auto edge = [&]( int i ) { return static_cast<float>( camera.edges[i] ); };
    const float nearDistance = static_cast<float>( camera.nearDistance );
    const float farDistance =
        family == INFINITE ? std::numeric_limits<float>::infinity() : static_cast<float>( camera.farDistance );
    const auto make =
        family == ORTHOGRAPHIC ? Builder::makeOrthographicFromEdges : Builder::makePerspectiveFromTangents;
    const auto projection = make( edge( 0 ), edge( 1 ), edge( 2 ), edge( 3 ), nearDistance, farDistance, range );
    if ( family == UPSIDE_DOWN )
        return Builder::makeYDown( projection );
    if ( family != OBLIQUE )
        return projection;
    const GeVector3<float> normal( random.uniform( -0.5F, 0.5F ), random.uniform( -0.5F, 0.5F ), -1 );
    return Builder::makeOblique(
        projection, GePlane3<float>( normal, -nearDistance * random.uniform( 1.0F, 3.0F ) ), range );
}

Camera makeCamera( Random& random, Family family, GeDepthRange range, double ratio )
{
    Camera camera;
    camera.nearDistance = logarithmic( random, 0.01, 10 );
    camera.farDistance = camera.nearDistance * ratio;
    const double width =
        family == ORTHOGRAPHIC ? camera.farDistance * logarithmic( random, 0.01, 1 ) : random.uniform( 0.3, 1.5 );
    for ( int i = 0; i < 4; ++i )
        camera.edges[i] = ( i % 2 ? width : -width ) * ( i < 2 ? 1 : 0.75 );
    if ( family == OFF_CENTRE || ( family == ORTHOGRAPHIC && random.index( 2 ) ) )
        for ( int i = 0; i < 4; i += 2 )
        {
            const double shift = width * random.uniform( -1.2, 1.2 );
            camera.edges[i] += shift;
            camera.edges[i + 1] += shift;
        }
    // at the origin, moved, moved and turned twice: the larger the numbers, the more is lost
    const int placement = random.index( 4 );
    if ( placement > 0 )
    {
        const float distance = static_cast<float>( logarithmic( random, camera.nearDistance, 3 * camera.farDistance ) );
        const GePoint3<float> eye = random.point( distance );
        camera.view = placement == 1
            ? GeViewBuilder<float>::makeViewAlong( eye, GeVector3<float>( 0, 0, -1 ), GeVector3<float>( 0, 1, 0 ) )
            : GeViewBuilder<float>::makeViewAlong( eye, random.direction<float>(), GeVector3<float>( 0, 1, 0 ) );
    }
    camera.matrix = makeProjection( random, family, range, camera ) * camera.view;
    return camera;
}

/// The inequality of a side of the volume, a x + b y + c z + d >= 0, rounded.
std::array<double, 4> makePlane( const GeProjectiveMatrix3<float>& m, GeDepthRange range, int side )
{
    std::array<double, 4> plane;
    const bool isReversed = side >= 4 && range == GeDepthRange::ONE_TO_ZERO;
    const double sign = ( side % 2 == 1 ) != isReversed ? -1 : 1;
    const double weight = sign > 0 && side >= 4 && range != GeDepthRange::MINUS_ONE_TO_ONE ? 0 : 1;
    for ( int i = 0; i < 4; ++i )
        plane[std::size_t( i )] = weight * double( m( 3, i ) ) + sign * double( m( side / 2, i ) );
    return plane;
}

/// A box that is seen in some size, and mostly moved to where it just crosses a plane of the volume or just does not.
GeAlignedBox3<float> makeBox( Random& random, const Camera& camera, Family family, GeDepthRange range )
{
    const bool isOrthographic = family == ORTHOGRAPHIC;
    const double depth = isOrthographic ? random.uniform( camera.nearDistance, camera.farDistance )
                                        : logarithmic( random, 0.7 * camera.nearDistance, 1.4 * camera.farDistance );
    const double scale = isOrthographic ? 1 : depth;
    double inView[3] = { 0, 0, -depth };
    for ( std::size_t axis = 0; axis < 2; ++axis )
        inView[axis] = scale * random.uniform( camera.edges[2 * axis], camera.edges[2 * axis + 1] ) * 1.2;
    double centre[3] = {}, half[3];
    for ( int axis = 0; axis < 3; ++axis )
    {
        for ( int i = 0; i < 3; ++i )
            centre[axis] += double( camera.view( i, axis ) ) * ( inView[i] - double( camera.view( i, 3 ) ) );
        half[axis] = scale * ( camera.edges[1] - camera.edges[0] ) * logarithmic( random, 0.002, 1 );
    }
    const std::array<double, 4> plane = makePlane( camera.matrix, range, random.index( 6 ) );
    double value = plane[3], reach = 0, lengthSquared = 0;
    for ( std::size_t i = 0; i < 3; ++i )
    {
        value += plane[i] * centre[i];
        reach += std::fabs( plane[i] ) * half[i];
        lengthSquared += plane[i] * plane[i];
    }
    if ( lengthSquared > 0 && random.index( 8 ) != 0 )
    {
        // by some roundings, or by so much that it is seen in some pixels
        const double share = random.index( 2 ) ? logarithmic( random, 1e-9, 1e-2 ) : logarithmic( random, 1e-2, 2 );
        const double wanted = ( random.index( 2 ) ? 1 : -1 ) * reach * share;
        for ( std::size_t i = 0; i < 3; ++i )
            centre[i] += plane[i] * ( wanted - reach - value ) / lengthSquared;
    }
    GePoint3<float> corners[2];
    for ( int axis = 0; axis < 3; ++axis )
    {
        corners[0][axis] = static_cast<float>( centre[axis] - half[axis] );
        corners[1][axis] = static_cast<float>( centre[axis] + half[axis] );
    }
    return { corners[0], corners[1] };
}

/// What a call makes, or nothing where it reports: an oblique plane or a matrix that no camera or frustum can have.
template <class Make>
auto makeOrNothing( const Make& make ) -> std::optional<decltype( make() )>
{
    try
    {
        return make();
    }
    catch ( const AssertionException& )
    {
        return std::nullopt;
    }
}

void write( std::ostream& out, const Camera& camera, const GeAlignedBox3<float>& box, Record record )
{
    for ( int i = 0; i < 16; ++i )
        record.matrix[i] = camera.matrix( i % 4, i / 4 );
    for ( int axis = 0; axis < 3; ++axis )
    {
        record.lower[axis] = box.getInterval( axis ).min;
        record.upper[axis] = box.getInterval( axis ).max;
    }
    out.write( reinterpret_cast<const char*>( &record ), sizeof record );
}

/// Cases of a family, range and ratio. False when there are too few boxes outside.
bool write( std::ostream& out, Random& random, Family family, std::size_t range, std::size_t ratio, int nbOutside )
{
    // what is neither outside is drawn as well, some of it, to see that drawing works
    int nbLeft = nbOutside, nbKeptLeft = ( nbOutside + 15 ) / 16;
    for ( int tries = 0; nbLeft > 0 && tries < nbOutside + 1000; ++tries )
    {
        const auto camera = makeOrNothing( [&] { return makeCamera( random, family, ranges[range], ratios[ratio] ); } );
        if ( !camera )
            continue;
        const GeViewVolume<float> volume( camera->matrix, ranges[range] );
        std::optional<GeFrustum<float>> frustum; // of the range that it takes
        if ( ranges[range] == GeDepthRange::MINUS_ONE_TO_ONE )
            frustum = makeOrNothing( [&] { return GeFrustum<float>( camera->matrix ); } );
        for ( int i = 0; i < 16 && nbLeft > 0; ++i )
        {
            const GeAlignedBox3<float> box = makeBox( random, *camera, family, ranges[range] );
            const int verdict = volume.classify( box );
            const int verdictOfFrustum = frustum ? frustum->classify( box ) : 0;
            const bool isOutside = verdict == GeViewVolume<float>::VIEW_OUTSIDE;
            nbLeft -= isOutside;
            if ( isOutside || verdictOfFrustum == GeFrustum<float>::FRUSTUM_OUTSIDE || nbKeptLeft-- > 0 )
                write( out, *camera, box,
                    { {}, {}, {}, std::uint8_t( family ), std::uint8_t( range ), std::uint8_t( ratio ),
                        std::uint8_t( verdict ), std::uint8_t( verdictOfFrustum ), {} } );
        }
    }
    return nbLeft == 0;
}

std::optional<int> parseNumber( const std::string& digits )
{
    if ( digits.empty() || digits.size() > 7 || digits.find_first_not_of( "0123456789" ) != std::string::npos )
        return std::nullopt;
    return std::stoi( digits );
}

} // namespace

int main( int argc, char** argv )
{
    const std::optional<int> nbOutside = parseNumber( argc == 4 ? argv[1] : "" );
    const std::optional<int> seed = parseNumber( argc == 4 ? argv[2] : "" );
    if ( !nbOutside || !seed || *nbOutside == 0 )
    {
        std::cerr << "usage: zq_raster_cases BOXES SEED FILE, with numbers of up to 7 digits\n";
        return 2;
    }
    Random random( static_cast<unsigned>( *seed ) );
    std::ofstream out( argv[3], std::ios::binary );
    out << names << '\n';
    for ( int family = 0; family < NB_FAMILIES; ++family )
        for ( std::size_t range = 0; range < ranges.size(); ++range )
            for ( std::size_t ratio = 0; ratio < ratios.size(); ++ratio )
                if ( !write( out, random, static_cast<Family>( family ), range, ratio, *nbOutside ) )
                {
                    std::cerr << "zq_raster_cases: too few boxes outside in family " << family << ", range " << range
                              << ", ratio " << ratios[ratio] << '\n';
                    return 1;
                }
    if ( !out.flush() )
    {
        std::cerr << "zq_raster_cases: " << argv[3] << " cannot be written\n";
        return 1;
    }
    return 0;
}
