#ifndef ZQ_EXAMPLES_SUPPORT_EXAMPLE_H
#define ZQ_EXAMPLES_SUPPORT_EXAMPLE_H

namespace Examples
{

/// The main of an example that takes no arguments: answers --help with the question and --version, refuses anything else
/// with a line on stderr and code 2, and prints the answer otherwise.
int runExample( int argc, const char* const* argv, const char* name, const char* question, void ( *answer )() );

} // namespace Examples

#endif
