#ifndef ZQ_BASE_INPACKAGEINIT_H
#define ZQ_BASE_INPACKAGEINIT_H

#include "forward.h"

#include <cstddef>
#include <string>
#include <typeinfo>
#include <vector>

namespace Zq
{

/// A process-wide variable that exists only while a package is initialised. It enters itself with
/// InPackageInit::addDependency and stays the property of whoever made it.
class ZQ_BASE_API InVariableBase
{
public:
    /// @name Slots
    /// The order is part of the binary interface.
    /// @{

    /// Variables are deleted by whoever made them.
    virtual ~InVariableBase();
    /// Called right after the package's own initialize(), in the order in which the variables were entered.
    virtual void create() = 0;
    /// Called right before the package's own shutdown(), in the reverse order.
    virtual void destroy() = 0;
    /// @}

    /// @name Construction
    /// A variable is known by its address: it is not copied.
    /// @{
    InVariableBase() = default;
    InVariableBase( const InVariableBase& ) = delete;
    InVariableBase& operator=( const InVariableBase& ) = delete;
    /// @}
};

/// A part of a library that announces itself while the library is loaded, names what it needs and is initialised
/// later, by InPackageRegistry. The order of the virtual operations is part of the binary interface.
/// Loading and unloading happen on one thread; nothing here is locked.
class ZQ_BASE_API InPackageInit
{
public:
    /// @name Slots
    /// The order is part of the binary interface.
    /// @{

    /// Takes the package out of the registry.
    virtual ~InPackageInit();
    /// Ties a variable's life to the package's initialised state; it is borrowed until it is removed.
    virtual void addDependency( InVariableBase* variable );
    /// Lets go of a variable; one that was not entered is ignored.
    virtual void removeDependency( InVariableBase* variable );
    /// The name of the package, which it keeps.
    virtual const char* getName() const;
    /// Sets the package up; called by the registry after the packages that it needs.
    virtual void initialize() = 0;
    /// Takes down what initialize() set up.
    virtual void shutdown() = 0;
    /// Tells the package whether it is initialised; returns `value`.
    virtual bool setInitialized( bool value ) = 0;
    /// @}

    /// @name Access
    /// @{

    /// The identities of the packages that this one needs, in the order in which it named them.
    const std::vector<const std::type_info*>& getDependencies() const { return _dependencies; }
    /// @}

    /// @name Construction
    /// @{

    /// A package is one object: it is not copied.
    InPackageInit( const InPackageInit& ) = delete;
    /// A package is one object: it is not assigned.
    InPackageInit& operator=( const InPackageInit& ) = delete;
    /// @}

protected:
    /// @name For packages
    /// @{

    /// Copies the name. The package is not registered yet.
    explicit InPackageInit( const char* name );
    /// Enters the package in the registry; the destructor takes it out.
    void registerPackage();
    /// Names a package that this one needs, by its InInit<tag>::getType().
    void addDependency( const std::type_info* package );
    /// @}

private:
    friend class InPackageRegistry;

    std::string _name;
    std::vector<const std::type_info*> _dependencies;
    std::vector<InVariableBase*> _variables;
    bool _isInitialized = false; // as the registry sees it
};

/// The packages of all libraries that are loaded, in the order in which they registered.
class ZQ_BASE_API InPackageRegistry
{
public:
    InPackageRegistry() = delete;

    /// @name Initialisation
    /// @{

    /// Initialises every package that is not initialised yet, each after those that it needs: initialize(), then its
    /// variables, then setInitialized( true ). A needed package that is not registered has nothing to set up and does
    /// not hold anybody up; packages that need each other are initialised in the order of registration.
    static void initialize();

    /// The reverse of initialize(), in reverse order.
    static void shutdown();
    /// @}

    /// @name Queries
    /// @{

    /// How many packages are registered now.
    static std::size_t getNbPackages();
    /// Package number `index` in registration order; null outside 0 to getNbPackages() - 1.
    static InPackageInit* getPackage( std::size_t index );
    /// The package of this name, or null.
    static InPackageInit* findPackage( const char* name );
    /// Whether the package was initialised by initialize() and not shut down since.
    static bool isInitialized( const InPackageInit& package ) { return package._isInitialized; }
    /// @}

private:
    static void initializeWithDependencies( InPackageInit& package, std::vector<const InPackageInit*>& visiting );
};

} // namespace Zq

#endif
