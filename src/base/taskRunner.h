#ifndef ZQ_BASE_TASKRUNNER_H
#define ZQ_BASE_TASKRUNNER_H

#include <cstddef>

namespace Zq
{

/// Runs independent tasks: how a program lends its own threads to an operation that can use several. The library starts
/// none itself. Ready ones, for the standard execution policies, oneTBB and plain threads, are the headers in
/// <zq/interop/>.
class TaskRunner
{
public:
    TaskRunner() = default;
    TaskRunner( const TaskRunner& ) = delete;
    TaskRunner& operator=( const TaskRunner& ) = delete;
    virtual ~TaskRunner() = default;

    /// @name Running
    /// @{

    /// Calls task( context, i ) once for each i from 0 to count - 1, in any order, as many at a time as it likes, on
    /// any threads, and returns when all calls have. What the calls have written is seen by the caller then. When a
    /// call throws, one of the exceptions leaves run() after all calls that were begun have returned; the others may be
    /// left out. The tasks of this library do not throw.
    virtual void run( std::size_t count, void ( *task )( void* context, std::size_t index ), void* context ) = 0;
    /// @}
};

} // namespace Zq

#endif
