#include "trace.h"

#include <cstdio>
#include <map>
#include <mutex>
#include <ostream>

namespace Zq
{

namespace
{

struct LevelRegistry
{
    std::mutex mutex;
    std::map<std::string, TraceLevel> levels; // nodes keep their address
};

// Made at first use, which is during the load of the first library that registers a level; it dies after it.
LevelRegistry& getLevelRegistry()
{
    static LevelRegistry registry;
    return registry;
}

class DefaultTraceManager final : public TraceManager
{
};

DefaultTraceManager defaultManager;
std::atomic<TraceManager*> currentManager{ nullptr };

} // namespace

TraceLevel::TraceLevel( const char* name, const char* sourceFile ) : _name( name ), _sourceFile( sourceFile ) {}

TraceLevel::~TraceLevel() = default;

TraceLevel* Trace::registerLevel( const char* name, const char* sourceFile )
{
    LevelRegistry& registry = getLevelRegistry();
    const std::lock_guard<std::mutex> lock( registry.mutex );
    return &registry.levels.try_emplace( name, name, sourceFile ).first->second;
}

TraceLevel* Trace::findLevel( const char* name )
{
    LevelRegistry& registry = getLevelRegistry();
    const std::lock_guard<std::mutex> lock( registry.mutex );
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
