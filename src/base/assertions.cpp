#include "assertions.h"

namespace Zq
{

namespace
{

std::string makePlace( const char* file, int line )
{
    return std::string( file ) + ":" + std::to_string( line ) + ": ";
}

} // namespace

AssertionException::AssertionException( const char* file, int line, const char* expression )
    : std::logic_error( makePlace( file, line ) + "assertion failed: " + expression ), _file( file ), _line( line ),
      _expression( expression )
{
}

// Out of line, so that the type identity lives in this library alone and a client's catch always matches.
AssertionException::~AssertionException() = default;

ProgramAbortedException::ProgramAbortedException( const char* file, int line )
    : std::logic_error( makePlace( file, line ) + "program aborted" ), _file( file ), _line( line )
{
}

ProgramAbortedException::~ProgramAbortedException() = default;

void Assertions::throwAssertionFailed( const char* file, int line, const char* expression )
{
    throw AssertionException( file, line, expression );
}

void Assertions::throwProgramAborted( const char* file, int line )
{
    throw ProgramAbortedException( file, line );
}

} // namespace Zq
