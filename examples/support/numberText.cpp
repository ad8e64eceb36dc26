#include "numberText.h"

#include <iomanip>
#include <locale>
#include <sstream>

namespace Examples
{

std::string makeGroupedText( std::size_t number )
{
    std::string text = std::to_string( number );
    for ( std::size_t end = text.size(); end > 3; end -= 3 )
    {
        text.insert( end - 3, 1, ',' );
    }
    return text;
}

std::string makeCountText( std::size_t number, const std::string& noun )
{
    return makeGroupedText( number ) + ' ' + noun + ( number == 1 ? "" : "s" );
}

std::string makeDecimalText( double number, int nbDecimals )
{
    std::ostringstream text;
    text.imbue( std::locale::classic() );
    text << std::fixed << std::setprecision( nbDecimals ) << number;
    return text.str();
}

} // namespace Examples
