#include "trace.h"

#include "internal/registry.h"

#include <cstdio>
#include <ostream>

namespace Zq
{

namespace
{

class DefaultTraceManager final : public TraceManager
{
};

DefaultTraceManager defaultManager;
std::atomic<TraceManager*> currentManager{ nullptr };

} // namespace

TraceLevel::TraceLevel( const char* name, const char* sourceFile ) : _name( name ), _sourceFile( sourceFile )
{
}

TraceLevel::~TraceLevel() = default;

TraceLevel* Trace::registerLevel( const char* name, const char* sourceFile )
{
    Detail::Registry& registry = Detail::getRegistry();
    const std::lock_guard<std::mutex> lock( registry.levelsMutex );
    return &registry.levels.try_emplace( name, name, sourceFile ).first->second;
}

TraceLevel* Trace::findLevel( const char* name )
{
    Detail::Registry& registry = Detail::getRegistry();
    const std::lock_guard<std::mutex> lock( registry.levelsMutex );
    const auto found = registry.levels.find( name );
    return found == registry.levels.end() ? nullptr : &found->second;
}

void Trace::log( std::ostream& stream, const char* file, int line )
{
    stream << file << ':' << line << ": ";
}

Trace& TraceManager::getTrace()
{
    return _trace;
}

void TraceManager::output( const char* text )
{
    std::fputs( text, stderr );
}

TraceManager& TraceManager::getInstance()
{
    TraceManager* const manager = currentManager.load( std::memory_order_acquire );
    return manager ? *manager : defaultManager;
}

TraceManager* TraceManager::setInstance( TraceManager* manager )
{
    return currentManager.exchange( manager, std::memory_order_acq_rel );
}

} // namespace Zq
