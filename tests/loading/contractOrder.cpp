#include "contractOrder.h"

// The classes in the order of the contract. They carry the library's names, so that tools that check the type of an
// object agree; nothing here is defined, so that nothing here takes the place of the library's own.
namespace Zq
{

class InVariableBase;

class DbgBuildInfo
{
public:
    virtual const char* slot0() const = 0;
    virtual int slot1() const = 0;
    virtual int slot2() const = 0;
    virtual const char* slot3() const = 0;
    virtual const char* slot4( bool longForm ) const = 0;
    virtual const char* slot5( bool longForm ) const = 0;
    virtual const char* slot6( bool longForm ) const = 0;
    virtual const char* slot7( bool longForm ) const = 0;
    virtual const char* slot8( bool longForm ) const = 0;
    virtual const char* slot9( bool longForm ) const = 0;
    virtual ~DbgBuildInfo();
};

class InPackageInit
{
public:
    virtual ~InPackageInit();
    virtual void slot1( InVariableBase* variable ) = 0;
    virtual void slot2( InVariableBase* variable ) = 0;
    virtual const char* slot3() const = 0;
    virtual void slot4() = 0;
    virtual void slot5() = 0;
    virtual bool slot6( bool value ) = 0;
};

class Trace;

class TraceManager
{
public:
    virtual Trace& slot0() = 0;
    virtual void slot1( const char* text ) = 0;

protected:
    ~TraceManager() = default;
};

} // namespace Zq

using namespace Zq;

const char* zqOldRecordText( const void* record, int slot, bool longForm )
{
    const DbgBuildInfo& info = *static_cast<const DbgBuildInfo*>( record );
    switch ( slot )
    {
    case 0:
        return info.slot0();
    case 3:
        return info.slot3();
    case 4:
        return info.slot4( longForm );
    case 5:
        return info.slot5( longForm );
    case 6:
        return info.slot6( longForm );
    case 7:
        return info.slot7( longForm );
    case 8:
        return info.slot8( longForm );
    case 9:
        return info.slot9( longForm );
    default:
        return "";
    }
}

int zqOldRecordNumber( const void* record, int slot )
{
    const DbgBuildInfo& info = *static_cast<const DbgBuildInfo*>( record );
    return slot == 1 ? info.slot1() : info.slot2();
}

void zqOldRecordDelete( void* record )
{
    delete static_cast<DbgBuildInfo*>( record );
}

void zqOldPackageAdd( void* package, void* variable )
{
    static_cast<InPackageInit*>( package )->slot1( static_cast<InVariableBase*>( variable ) );
}

void zqOldPackageRemove( void* package, void* variable )
{
    static_cast<InPackageInit*>( package )->slot2( static_cast<InVariableBase*>( variable ) );
}

const char* zqOldPackageName( const void* package )
{
    return static_cast<const InPackageInit*>( package )->slot3();
}

void zqOldPackageInitialize( void* package )
{
    static_cast<InPackageInit*>( package )->slot4();
}

void zqOldPackageShutdown( void* package )
{
    static_cast<InPackageInit*>( package )->slot5();
}

bool zqOldPackageSetInitialized( void* package, bool value )
{
    return static_cast<InPackageInit*>( package )->slot6( value );
}

void zqOldPackageDelete( void* package )
{
    delete static_cast<InPackageInit*>( package );
}

void* zqOldManagerTrace( void* manager )
{
    return &static_cast<TraceManager*>( manager )->slot0();
}

void zqOldManagerOutput( void* manager, const char* text )
{
    static_cast<TraceManager*>( manager )->slot1( text );
}
