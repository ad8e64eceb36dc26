#ifndef ZQ_BASE_DBGBUILDINFO_H
#define ZQ_BASE_DBGBUILDINFO_H

#include "forward.h"
#include "objPtr.h"

#include <cstddef>

namespace Zq
{

/// How one library was built. The order of the operations is part of the binary interface; the destructor comes last.
/// The `longForm` requests may be ignored by a record.
class ZQ_BASE_API DbgBuildInfo
{
public:
    /// @name Slots
    /// All texts belong to the record and live as long as it does. The order is part of the binary interface.
    /// @{

    /// The project that the library belongs to.
    virtual const char* getProjectName() const = 0;
    /// The first number of the version.
    virtual int getMajorVersion() const = 0;
    /// The second number of the version.
    virtual int getMinorVersion() const = 0;
    /// How ready the release is, a word.
    virtual const char* getReleaseStage() const = 0;
    /// The name by which the record is found.
    virtual const char* getLibraryName( bool longForm ) const = 0;
    /// What tells this build from others of the same version.
    virtual const char* getBuildLabel( bool longForm ) const = 0;
    /// Three-letter month, blank, day padded to two characters with a blank, blank, four-digit year.
    virtual const char* getBuildDate( bool longForm ) const = 0;
    /// How the library was compiled, such as with or without optimisation.
    virtual const char* getBuildConfiguration( bool longForm ) const = 0;
    /// Domain name, backslash, user name.
    virtual const char* getBuilder( bool longForm ) const = 0;
    /// Anything else, possibly empty.
    virtual const char* getInformation( bool longForm ) const = 0;
    /// Records are deleted through this class.
    virtual ~DbgBuildInfo();
    /// @}

    /// @name Construction
    /// A record is an object of its own: it is not copied.
    /// @{
    DbgBuildInfo() = default;
    DbgBuildInfo( const DbgBuildInfo& ) = delete;
    DbgBuildInfo& operator=( const DbgBuildInfo& ) = delete;
    /// @}
};

/// The build records of the libraries that are loaded and initialised. May be used from any thread.
class ZQ_BASE_API DbgBuildInfoUtil
{
public:
    DbgBuildInfoUtil() = delete;

    /// @name Registration
    /// @{

    /// Shares ownership of the record and shows it from now on. A record of the same library name is replaced;
    /// an empty pointer is ignored.
    static void registerInfo( ObjPtr<DbgBuildInfo> info );

    /// Drops the record of a library. A library calls it while it is unloaded: its record's code goes with it.
    static void unregisterInfo( const char* libraryName );
    /// @}

    /// @name Queries
    /// @{

    /// How many records there are now.
    static std::size_t getNbInfos();

    /// The record of a library, empty when it has none. Do not keep it beyond the library's unload.
    static ObjPtr<DbgBuildInfo> findInfo( const char* libraryName );
    /// @}
};

} // namespace Zq

#endif
