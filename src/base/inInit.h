#ifndef ZQ_BASE_ININIT_H
#define ZQ_BASE_ININIT_H

#include "inPackageInit.h"

namespace Zq
{

/// Empty classes that name the packages; each library declares those of its own packages.
namespace ZqInit
{

/// The package of libZQbase, which needs nothing.
class ZQ_TEMPLATE_API base
{
};

} // namespace ZqInit

/// The package of a tag. It has no data of its own; what a package does in its constructor, initialize(), shutdown()
/// and setInitialized() is given by specialising these for the tag, in the one unit that holds the package object.
template <class Tag>
class ZQ_TEMPLATE_API InInit : public InPackageInit
{
public:
    /// @name Construction
    /// The constructor announces the package and names what it needs; the destructor takes it back. There is one object
    /// per package.
    /// @{
    InInit();
    ~InInit() override;
    InInit( const InInit& ) = delete;
    InInit& operator=( const InInit& ) = delete;
    /// @}

    /// @name Slots
    /// What InPackageInit says; without a specialisation the first two do nothing.
    /// @{
    void initialize() override;
    void shutdown() override;
    bool setInitialized( bool value ) override;
    /// @}

    /// @name Identity
    /// @{

    /// The package's identity: the address is the same in every library and in every client. A unit that is compiled
    /// without run-time type information has the packages of the libraries, but can instantiate none for a tag of its own.
    static const std::type_info* getType();
    /// @}
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

// A unit without run-time type information asks the libraries for the identities of their packages.
#if defined( __cpp_rtti ) || defined( _CPPRTTI )
template <class Tag>
const std::type_info* InInit<Tag>::getType()
{
    return &typeid( InInit );
}
#endif

template <>
ZQ_BASE_API bool InInit<ZqInit::base>::setInitialized( bool value );
extern template class InInit<ZqInit::base>;

} // namespace Zq

#endif
