#include "dbgBuildInfo.h"

#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace Zq
{

namespace
{

struct InfoRegistry
{
    std::mutex mutex;
    std::map<std::string, ObjPtr<DbgBuildInfo>> infos; // by library name, copied
};

InfoRegistry& getInfoRegistry()
{
    static InfoRegistry registry;
    return registry;
}

} // namespace

DbgBuildInfo::~DbgBuildInfo() = default;

void DbgBuildInfoUtil::registerInfo( ObjPtr<DbgBuildInfo> info )
{
    if ( !info )
        return;
    const std::string name = info->getLibraryName( false );
    InfoRegistry& registry = getInfoRegistry();
    const std::lock_guard<std::mutex> lock( registry.mutex );
    std::swap( registry.infos[ name ], info ); // the record that was there is deleted after the lock is gone
}

void DbgBuildInfoUtil::unregisterInfo( const char* libraryName )
{
    InfoRegistry& registry = getInfoRegistry();
    ObjPtr<DbgBuildInfo> dropped; // deleted after the lock is gone
    const std::lock_guard<std::mutex> lock( registry.mutex );
    const auto found = registry.infos.find( libraryName );
    if ( found == registry.infos.end() )
        return;
    dropped = found->second;
    registry.infos.erase( found );
}

std::size_t DbgBuildInfoUtil::getNbInfos()
{
    InfoRegistry& registry = getInfoRegistry();
    const std::lock_guard<std::mutex> lock( registry.mutex );
    return registry.infos.size();
}

ObjPtr<DbgBuildInfo> DbgBuildInfoUtil::findInfo( const char* libraryName )
{
    InfoRegistry& registry = getInfoRegistry();
    const std::lock_guard<std::mutex> lock( registry.mutex );
    const auto found = registry.infos.find( libraryName );
    return found == registry.infos.end() ? ObjPtr<DbgBuildInfo>() : found->second;
}

} // namespace Zq
