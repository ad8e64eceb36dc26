#include "city.h"

#include <cmath>
#include <random>

namespace ManyObjects
{

using namespace Zq;

namespace
{

constexpr float LOT = 12;             // metres
constexpr std::size_t BLOCK_SIZE = 8; // lots from street to street

std::size_t computeNbColumns( std::size_t nbBoxes )
{
    return static_cast<std::size_t>( std::ceil( std::sqrt( static_cast<double>( nbBoxes ) ) ) );
}

} // namespace

float computeSide( std::size_t nbBoxes )
{
    return LOT * static_cast<float>( computeNbColumns( nbBoxes ) );
}

std::vector<Box> makeCity( std::size_t nbBoxes, unsigned seed )
{
    std::mt19937 engine( seed );
    const auto uniform = [&engine]( float low, float high )
    { return low + ( high - low ) * static_cast<float>( engine() >> 8U ) * 0x1p-24F; };

    const std::size_t nbColumns = computeNbColumns( nbBoxes );
    const float side = computeSide( nbBoxes );
    std::vector<Box> city;
    city.reserve( nbBoxes );
    for ( std::size_t i = 0; i < nbBoxes; ++i )
    {
        const std::size_t column = i % nbColumns;
        const std::size_t row = i / nbColumns;
        const float x = LOT * static_cast<float>( column ) - side / 2;
        const float y = LOT * static_cast<float>( row ) - side / 2;

        const float bend = y / side;
        const bool isRiver = std::abs( x / side - 0.15F + 0.7F * bend * bend ) < 0.02F;
        const bool isStreet = column % BLOCK_SIZE == 0 || row % BLOCK_SIZE == 0;
        const float fromCentre = ( x * x + y * y ) / ( 0.02F * side * side );
        const float luck = uniform( 0, 1 );
        const float tower = 200 * luck * luck / ( ( 1 + fromCentre ) * ( 1 + fromCentre ) );

        // in braces, where the order is that of the text
        const GeVector3<float> size = isRiver || isStreet
            ? GeVector3<float>{ uniform( 2, 5 ), uniform( 2, 5 ), uniform( 1, 3 ) }
            : GeVector3<float>{ uniform( 8, 11 ), uniform( 8, 11 ), uniform( 4, 12 ) + tower };
        const GePoint3<float> corner{ x + uniform( 0, LOT - size.getX() ), y + uniform( 0, LOT - size.getY() ), 0 };
        city.emplace_back( corner, corner + size );
    }
    return city;
}

Camera makeCamera( float side, double moment )
{
    constexpr double TURN = 6.283185307179586;
    const double reach = 0.3 * static_cast<double>( side );
    const auto pointAt = [&]( double time )
    {
        return GePoint3<double>( reach * std::sin( TURN * time ), reach * std::sin( 2 * TURN * time ),
            150 + 50 * std::cos( 3 * TURN * time ) );
    };
    const GePoint3<double> eye = pointAt( moment );
    GeVector3<double> ahead = pointAt( moment + 0.005 ) - eye;
    ahead = GeVector3<double>( ahead.getX(), ahead.getY(), 0 ).computeUnit() - GeVector3<double>( 0, 0, 0.15 );
    return { GePoint3<float>( eye ), GePoint3<float>( eye + 100.0 * ahead ), 0.9F, 16.0F / 9, 0.5F, 2000, { 0, 0, 1 },
        GeDepthRange::ZERO_TO_ONE };
}

} // namespace ManyObjects
