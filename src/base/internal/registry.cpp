#include "registry.h"

namespace Zq
{

Detail::Registry& Detail::getRegistry()
{
    static Registry registry;
    return registry;
}

} // namespace Zq
