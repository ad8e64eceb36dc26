#include "progressLine.h"

#include <iostream>
#include <utility>

#ifdef _WIN32
#    include <io.h>
#else
#    include <unistd.h>
#endif

namespace Examples
{

namespace
{

constexpr const char* CLEAR_LINE = "\r\x1b[K";
constexpr std::size_t BAR_LENGTH = 30;

bool isErrorTerminal()
{
#ifdef _WIN32
    return _isatty( 2 ) != 0;
#else
    return isatty( STDERR_FILENO ) != 0;
#endif
}

} // namespace

ProgressLine::ProgressLine( std::string label, std::size_t total )
    : _label( std::move( label ) ), _total( total ), _isTerminal( isErrorTerminal() ),
      _next( std::chrono::steady_clock::now() )
{
}

ProgressLine::~ProgressLine()
{
    if ( _isTerminal )
    {
        std::cerr << CLEAR_LINE << std::flush;
    }
}

void ProgressLine::show( std::size_t done )
{
    const auto now = std::chrono::steady_clock::now();
    if ( !_isTerminal || now < _next || _total == 0 )
    {
        return;
    }
    _next = now + std::chrono::milliseconds( 100 );
    const std::size_t filled = BAR_LENGTH * done / _total;
    std::cerr << CLEAR_LINE << _label << " [" << std::string( filled, '#' ) << std::string( BAR_LENGTH - filled, '.' )
              << "] " << done << " of " << _total << std::flush;
}

} // namespace Examples
