#ifndef ZQ_BASE_TRACE_H
#define ZQ_BASE_TRACE_H

#include "forward.h"

#include <atomic>
#include <iosfwd>
#include <string>

namespace Zq
{

/// A named kind of diagnostic message that can be switched on and off while the program runs. Off at first.
/// Levels belong to the trace registry, live as long as libZQbase and are known by their address.
/// All operations may be called from any thread.
class ZQ_BASE_API TraceLevel
{
public:
    /// @name Construction
    /// The level keeps copies of both texts: they may lie in a library that is unloaded later. It is known by its
    /// address and not copied.
    /// @{
    TraceLevel( const char* name, const char* sourceFile );
    TraceLevel( const TraceLevel& ) = delete;
    TraceLevel& operator=( const TraceLevel& ) = delete;
    ~TraceLevel();
    /// @}

    /// @name Access
    /// @{

    /// Switches the level on or off, for messages from now on.
    void setEnabled( bool enabled ) { _enabled.store( enabled, std::memory_order_relaxed ); }
    /// Whether messages are wanted now. Lock-free.
    bool isEnabled() const { return _enabled.load( std::memory_order_relaxed ); }
    /// The name by which the level is found.
    const char* getName() const { return _name.c_str(); }
    /// Path of the source file that registered the level first.
    const char* getSourceFile() const { return _sourceFile.c_str(); }
    /// @}

private:
    std::string _name;
    std::string _sourceFile;
    std::atomic<bool> _enabled{ false };
};

/// The levels, and the header of a message.
class ZQ_BASE_API Trace
{
public:
    /// @name Levels
    /// @{

    /// Creates the level of this name, or finds it when it exists already; never null.
    static TraceLevel* registerLevel( const char* name, const char* sourceFile );

    /// The level of this name, or null.
    static TraceLevel* findLevel( const char* name );

    /// Whether messages of the level are wanted now. Lock-free.
    static bool isEnabled( const TraceLevel& level ) { return level.isEnabled(); }
    /// @}

    /// @name Messages
    /// @{

    /// Writes the header of a message, "file:line: ", into the stream.
    void log( std::ostream& stream, const char* file, int line );
    /// @}
};

/// Where finished messages go: to the standard error stream, unless a program puts its own manager in place.
class ZQ_BASE_API TraceManager
{
public:
    /// @name Slots
    /// The order of these two is part of the binary interface; no virtual destructor may come before them.
    /// @{

    /// What writes the headers of messages.
    virtual Trace& getTrace();
    /// Takes one finished message, its line end included. The text is borrowed for the call.
    virtual void output( const char* text );
    /// @}

    /// @name Access
    /// @{

    /// The manager in use. May be called from any thread.
    static TraceManager& getInstance();

    /// Puts another manager in place, which stays the caller's and must outlive its use; null restores the default.
    /// Returns the manager that was in place, null for the default.
    static TraceManager* setInstance( TraceManager* manager );
    /// @}

    /// @name Construction
    /// A manager is known by its address: it is not copied, and not deleted through this class.
    /// @{
    constexpr TraceManager() = default;
    TraceManager( const TraceManager& ) = delete;
    TraceManager& operator=( const TraceManager& ) = delete;
    /// @}

protected:
    ~TraceManager() = default;

private:
    Trace _trace;
};

} // namespace Zq

/// Writes one message at a trace point: header, then everything streamed by `items`, then the end of the line.
/// Nothing is evaluated while the level is off. `items` is what stands right of the first <<, as in
/// ZQ_TRACE( *level, file, "point=" << p ). Needs the headers sstream and ostream.
#define ZQ_TRACE( level, file, items )                                                                                 \
    do                                                                                                                 \
    {                                                                                                                  \
        if ( ::Zq::Trace::isEnabled( level ) )                                                                         \
        {                                                                                                              \
            std::ostringstream zqTraceStream;                                                                          \
            ::Zq::TraceManager& zqTraceManager = ::Zq::TraceManager::getInstance();                                    \
            zqTraceManager.getTrace().log( zqTraceStream, file, __LINE__ );                                            \
            zqTraceStream << items << std::endl;                                                                       \
            zqTraceManager.output( zqTraceStream.str().c_str() );                                                      \
        }                                                                                                              \
    } while ( false )

#endif
