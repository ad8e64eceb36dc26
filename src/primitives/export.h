#ifndef ZQ_PRIMITIVES_EXPORT_H
#define ZQ_PRIMITIVES_EXPORT_H

/// ZQ_PRIMITIVES_API marks what libZQprimitives exports; everything else in it is hidden.

#if defined( _WIN32 )
#    if defined( ZQ_PRIMITIVES_BUILDING )
#        define ZQ_PRIMITIVES_API __declspec( dllexport )
#    else
#        define ZQ_PRIMITIVES_API __declspec( dllimport )
#    endif
#else
#    define ZQ_PRIMITIVES_API __attribute__( ( visibility( "default" ) ) )
#endif

#endif
