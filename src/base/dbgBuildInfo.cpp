#include "dbgBuildInfo.h"

#include "internal/registry.h"

#include <utility>

namespace Zq
{

DbgBuildInfo::~DbgBuildInfo() = default;

void DbgBuildInfoUtil::registerInfo( ObjPtr<DbgBuildInfo> info )
{
    if ( !info )
        return;
    const std::string name = info->getLibraryName( false );
    Detail::Registry& registry = Detail::getRegistry();
    const std::lock_guard<std::mutex> lock( registry.infosMutex );
    std::swap( registry.infos[name], info ); // the record that was there is deleted after the lock is gone
}

void DbgBuildInfoUtil::unregisterInfo( const char* libraryName )
{
    Detail::Registry& registry = Detail::getRegistry();
    ObjPtr<DbgBuildInfo> dropped; // deleted after the lock is gone
    const std::lock_guard<std::mutex> lock( registry.infosMutex );
    const auto found = registry.infos.find( libraryName );
    if ( found == registry.infos.end() )
        return;
    dropped = found->second;
    registry.infos.erase( found );
}

std::size_t DbgBuildInfoUtil::getNbInfos()
{
    Detail::Registry& registry = Detail::getRegistry();
    const std::lock_guard<std::mutex> lock( registry.infosMutex );
    return registry.infos.size();
}

ObjPtr<DbgBuildInfo> DbgBuildInfoUtil::findInfo( const char* libraryName )
{
    Detail::Registry& registry = Detail::getRegistry();
    const std::lock_guard<std::mutex> lock( registry.infosMutex );
    const auto found = registry.infos.find( libraryName );
    return found == registry.infos.end() ? ObjPtr<DbgBuildInfo>() : found->second;
}

} // namespace Zq
