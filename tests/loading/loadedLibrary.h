#ifndef ZQ_TESTS_LOADING_LOADEDLIBRARY_H
#define ZQ_TESTS_LOADING_LOADEDLIBRARY_H

#include <cstring>
#include <dlfcn.h>
#include <stdexcept>

namespace ZqTest
{

/// A library that is loaded for as long as this lives.
class LoadedLibrary
{
public:
    explicit LoadedLibrary( const char* path ) : _handle( dlopen( path, RTLD_NOW | RTLD_LOCAL ) )
    {
        if ( !_handle )
            throw std::runtime_error( dlerror() );
    }
    ~LoadedLibrary() { dlclose( _handle ); }
    LoadedLibrary( const LoadedLibrary& ) = delete;
    LoadedLibrary& operator=( const LoadedLibrary& ) = delete;

    template <class Function>
    Function* find( const char* name ) const
    {
        void* const address = dlsym( _handle, name );
        if ( !address )
            throw std::runtime_error( dlerror() );
        Function* function = nullptr;
        std::memcpy( &function, &address, sizeof( function ) );
        return function;
    }

    /// Whether the library is in the process, whoever loaded it.
    static bool isLoaded( const char* path )
    {
        void* const handle = dlopen( path, RTLD_NOW | RTLD_NOLOAD );
        if ( handle )
            dlclose( handle );
        return handle != nullptr;
    }

private:
    void* _handle;
};

} // namespace ZqTest

#endif
