#ifndef ZQ_BASE_INTERNAL_REGISTRY_H
#define ZQ_BASE_INTERNAL_REGISTRY_H

#include "../dbgBuildInfo.h"
#include "../inPackageInit.h"
#include "../trace.h"

#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace Zq
{

namespace Detail
{

/// All state of the library, in one object: it is made when the first package is constructed and so dies after the
/// last one, whatever was registered in between. Internal: not installed.
struct Registry
{
    // Loading is done by one thread; packages need no lock.
    std::vector<InPackageInit*> packages;
    std::vector<InPackageInit*> initialized; // in the order in which they were initialised

    std::mutex infosMutex;
    std::map<std::string, ObjPtr<DbgBuildInfo>> infos; // by library name, copied

    std::mutex levelsMutex;
    std::map<std::string, TraceLevel> levels; // nodes keep their address
};

Registry& getRegistry();

} // namespace Detail

} // namespace Zq

#endif
