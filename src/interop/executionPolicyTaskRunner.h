#ifndef ZQ_INTEROP_EXECUTIONPOLICYTASKRUNNER_H
#define ZQ_INTEROP_EXECUTIONPOLICYTASKRUNNER_H

#include "../base/taskRunner.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <mutex>
#include <numeric>
#include <vector>

namespace Zq
{

/// Runs tasks by std::for_each with an execution policy: std::execution::par, or seq. Not par_unseq, since tasks may
/// lock. The program includes the header `execution`, and links what its standard library needs for that: oneTBB in the
/// case of libstdc++. An exception of a task ends no program, as it would in the algorithm itself: all other tasks are done
/// first.
template <class Policy>
class ExecutionPolicyTaskRunner : public TaskRunner
{
public:
    /// @name Running
    /// @{

    /// The policy is copied.
    explicit ExecutionPolicyTaskRunner( const Policy& policy ) : _policy( policy ) {}

    void run( std::size_t count, void ( *task )( void* context, std::size_t index ), void* context ) override
    {
        std::vector<std::size_t> indices( count );
        std::iota( indices.begin(), indices.end(), std::size_t( 0 ) );
        std::mutex mutex;
        std::exception_ptr failure;
        std::for_each( _policy, indices.begin(), indices.end(),
            [&]( std::size_t i )
            {
                try
                {
                    task( context, i );
                }
                catch ( ... )
                {
                    const std::lock_guard<std::mutex> lock( mutex );
                    failure = std::current_exception();
                }
            } );
        if ( failure )
            std::rethrow_exception( failure );
    }
    /// @}

private:
    Policy _policy;
};

} // namespace Zq

#endif
