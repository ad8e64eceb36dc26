#ifndef ZQ_BASE_ININIT_H
#define ZQ_BASE_ININIT_H

#include "inPackageInit.h"

namespace Zq
{

/// Empty classes that name the packages; each library declares those of its own packages.
namespace ZqInit
{

class ZQ_TEMPLATE_API base
{
};

} // namespace ZqInit

/// The package of a tag. It has no data of its own; what a package does in its constructor, initialize(), shutdown()
/// and setInitialized() is given by specialising these for the tag, in the one unit that holds the package object.
/// The address that getType() returns is the package's identity, the same in every library and in every client.
template <class Tag>
class ZQ_TEMPLATE_API InInit : public InPackageInit
{
public:
    InInit();
    ~InInit() override;
    void initialize() override;
    void shutdown() override;
    bool setInitialized( bool value ) override;

    InInit( const InInit& ) = delete;
    InInit& operator=( const InInit& ) = delete;

    static const std::type_info* getType();
};

template <class Tag>
InInit<Tag>::~InInit() = default;

template <class Tag>
void InInit<Tag>::initialize()
{
}

template <class Tag>
void InInit<Tag>::shutdown()
{
}

template <class Tag>
const std::type_info* InInit<Tag>::getType()
{
    return &typeid( InInit );
}

template <>
ZQ_BASE_API bool InInit<ZqInit::base>::setInitialized( bool value );
extern template class InInit<ZqInit::base>;

} // namespace Zq

#endif
