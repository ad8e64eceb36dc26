#ifndef ZQ_EXAMPLES_SUPPORT_NUMBERTEXT_H
#define ZQ_EXAMPLES_SUPPORT_NUMBERTEXT_H

#include <cstddef>
#include <string>

namespace Examples
{

/// "65,280"
std::string makeGroupedText( std::size_t number );
/// "65,280 triangles", "1 triangle"
std::string makeCountText( std::size_t number, const std::string& noun );
/// "0.25"; `nbDecimals` digits after the point.
std::string makeDecimalText( double number, int nbDecimals );

} // namespace Examples

#endif
