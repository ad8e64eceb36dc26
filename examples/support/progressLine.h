#ifndef ZQ_EXAMPLES_SUPPORT_PROGRESSLINE_H
#define ZQ_EXAMPLES_SUPPORT_PROGRESSLINE_H

#include <chrono>
#include <cstddef>
#include <string>

namespace Examples
{

/// One line on the standard error that counts up, drawn over itself; nothing at all when that is no terminal. The line
/// is gone when the object dies.
class ProgressLine
{
public:
    ProgressLine( std::string label, std::size_t total );
    ProgressLine( const ProgressLine& ) = delete;
    ProgressLine& operator=( const ProgressLine& ) = delete;
    ~ProgressLine();

    /// Shows `done` of the total, at most ten times a second.
    void show( std::size_t done );

private:
    std::string _label;
    std::size_t _total;
    bool _isTerminal;
    std::chrono::steady_clock::time_point _next;
};

} // namespace Examples

#endif
