#ifndef ZQ_EXAMPLES_SUPPORT_COMMANDLINE_H
#define ZQ_EXAMPLES_SUPPORT_COMMANDLINE_H

#include <functional>
#include <string>

namespace CLI
{
class App;
}

namespace Examples
{

/// Adds --version. Whether there is something left to do: false when help or the version was asked for, and printed.
/// Throws BadInput.
bool parseCommandLine( CLI::App& app, int argc, const char* const* argv );

/// The whole text as a number from lowest to highest, for double, int, unsigned, unsigned long and unsigned long
/// long. Throws BadInput, which names the option.
template <class Number>
Number parseNumber( const std::string& option, const std::string& text, Number lowest, Number highest );

/// What main returns: what `run` returns, or 2 after one line on stderr, "name: reason", when it throws or when what it
/// printed cannot be written.
int runProgram( const char* name, const std::function<int()>& run );

} // namespace Examples

#endif
