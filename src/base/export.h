#ifndef ZQ_BASE_EXPORT_H
#define ZQ_BASE_EXPORT_H

/// ZQ_BASE_API marks what libZQbase exports; everything else in it is hidden.
/// ZQ_TEMPLATE_API marks class templates and tags that several libraries instantiate and whose type identities
/// must be the same everywhere.

#if defined( _WIN32 )
#    if defined( ZQ_BASE_BUILDING )
#        define ZQ_BASE_API __declspec( dllexport )
#    else
#        define ZQ_BASE_API __declspec( dllimport )
#    endif
#    define ZQ_TEMPLATE_API
#else
#    define ZQ_BASE_API __attribute__( ( visibility( "default" ) ) )
#    define ZQ_TEMPLATE_API __attribute__( ( visibility( "default" ) ) )
#endif

#endif
