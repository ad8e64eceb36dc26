#ifndef ZQ_TESTS_LOADING_CONTRACTORDER_H
#define ZQ_TESTS_LOADING_CONTRACTORDER_H

/// Calls virtual operations by their slot, as a program does that was compiled long ago. The unit behind this header
/// declares the same classes for itself, slot by slot, and never sees the library's headers.

#if defined( ZQ_OLD_API_BUILDING )
#    define ZQ_OLD_API extern "C" __attribute__( ( visibility( "default" ) ) )
#else
#    define ZQ_OLD_API extern "C"
#endif

ZQ_OLD_API const char* zqOldRecordText( const void* record, int slot, bool longForm ); // slots 0, 3, 4 to 9
ZQ_OLD_API int zqOldRecordNumber( const void* record, int slot );                      // slots 1, 2
ZQ_OLD_API void zqOldRecordDelete( void* record );                                     // slot 10

ZQ_OLD_API void zqOldPackageAdd( void* package, void* variable );        // slot 1
ZQ_OLD_API void zqOldPackageRemove( void* package, void* variable );     // slot 2
ZQ_OLD_API const char* zqOldPackageName( const void* package );          // slot 3
ZQ_OLD_API void zqOldPackageInitialize( void* package );                 // slot 4
ZQ_OLD_API void zqOldPackageShutdown( void* package );                   // slot 5
ZQ_OLD_API bool zqOldPackageSetInitialized( void* package, bool value ); // slot 6
ZQ_OLD_API void zqOldPackageDelete( void* package );                     // slot 0

ZQ_OLD_API void* zqOldManagerTrace( void* manager );                   // slot 0
ZQ_OLD_API void zqOldManagerOutput( void* manager, const char* text ); // slot 1

#endif
