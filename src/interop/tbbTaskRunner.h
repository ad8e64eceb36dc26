#ifndef ZQ_INTEROP_TBBTASKRUNNER_H
#define ZQ_INTEROP_TBBTASKRUNNER_H

#include "../base/taskRunner.h"

#include <cstddef>

// oneTBB is the program's to install and to link; without its headers there is nothing here
#if __has_include( <oneapi/tbb/parallel_for.h> )

#    include <oneapi/tbb/parallel_for.h>

namespace Zq
{

/// Runs tasks by tbb::parallel_for, in the arena of the thread that asks. When a task throws, oneTBB leaves out those
/// that have not begun. Programs link oneTBB for it.
class TbbTaskRunner : public TaskRunner
{
public:
    void run( std::size_t count, void ( *task )( void* context, std::size_t index ), void* context ) override
    {
        tbb::parallel_for( std::size_t( 0 ), count, [=]( std::size_t i ) { task( context, i ); } );
    }
};

} // namespace Zq

#endif

#endif
