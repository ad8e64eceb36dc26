#ifndef ZQ_INTEROP_THREADTASKRUNNER_H
#define ZQ_INTEROP_THREADTASKRUNNER_H

#include "../base/taskRunner.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace Zq
{

/// Runs tasks on threads of its own and on the caller's. The threads live as long as the runner; between runs they
/// sleep. A program links its system's thread library for it.
///
/// A run that is asked for while another one is under way, by a task or by another thread, stays on the thread that
/// asks.
class ThreadTaskRunner : public TaskRunner
{
public:
    /// @name Running
    /// @{

    /// With the caller's thread it is `nbThreads` that work; 0 counts as 1. Throws std::system_error when a thread
    /// cannot be started.
    explicit ThreadTaskRunner( unsigned nbThreads = std::thread::hardware_concurrency() )
    {
        try
        {
            for ( unsigned i = 1; i < nbThreads; ++i )
                _threads.emplace_back( [this] { serve(); } );
        }
        catch ( ... )
        {
            stop();
            throw;
        }
    }
    /// Waits for its threads to end.
    ~ThreadTaskRunner() override { stop(); }

    void run( std::size_t count, void ( *task )( void* context, std::size_t index ), void* context ) override
    {
        if ( _threads.empty() || _isRunning.exchange( true ) )
        {
            for ( std::size_t i = 0; i < count; ++i )
                task( context, i );
            return;
        }
        {
            const std::lock_guard<std::mutex> lock( _mutex );
            _task = task;
            _context = context;
            _count = count;
            _next = 0;
            _failure = nullptr;
            _isOpen = true;
            ++_nbRuns;
        }
        _begun.notify_all();
        work();
        std::exception_ptr failure;
        {
            // a thread that has not come by now is not waited for
            std::unique_lock<std::mutex> lock( _mutex );
            _isOpen = false;
            _ended.wait( lock, [this] { return _nbWorking == 0; } );
            std::swap( failure, _failure );
        }
        _isRunning = false;
        if ( failure )
            std::rethrow_exception( failure );
    }
    /// @}

private:
    /// Takes one task after the other until none is left.
    void work()
    {
        for ( std::size_t i = _next++; i < _count; i = _next++ )
        {
            try
            {
                _task( _context, i );
            }
            catch ( ... )
            {
                const std::lock_guard<std::mutex> lock( _mutex );
                if ( !_failure )
                    _failure = std::current_exception();
                _next = _count;
            }
        }
    }

    void serve()
    {
        std::uint64_t nbSeen = 0;
        std::unique_lock<std::mutex> lock( _mutex );
        for ( ;; )
        {
            _begun.wait( lock, [&] { return _isStopped || ( _isOpen && _nbRuns != nbSeen ); } );
            if ( _isStopped )
                return;
            nbSeen = _nbRuns;
            ++_nbWorking;
            lock.unlock();
            work();
            lock.lock();
            if ( --_nbWorking == 0 )
                _ended.notify_one();
        }
    }

    void stop()
    {
        {
            const std::lock_guard<std::mutex> lock( _mutex );
            _isStopped = true;
        }
        _begun.notify_all();
        for ( std::thread& thread : _threads )
            thread.join();
    }

    std::mutex _mutex; // guards all that is not atomic, but for what a run leaves as it is
    std::condition_variable _begun;
    std::condition_variable _ended;
    void ( *_task )( void*, std::size_t ) = nullptr;
    void* _context = nullptr;
    std::size_t _count = 0;
    std::atomic<std::size_t> _next{ 0 };
    std::atomic<bool> _isRunning{ false };
    std::exception_ptr _failure;
    std::uint64_t _nbRuns = 0;
    int _nbWorking = 0;
    bool _isOpen = false;
    bool _isStopped = false;
    std::vector<std::thread> _threads;
};

} // namespace Zq

#endif
