#ifndef ZQ_COLOR_EXPORT_H
#define ZQ_COLOR_EXPORT_H

/// ZQ_COLOR_API marks the colour classes that libZQprimitives exports; they are part of that library and know nothing
/// of its geometry.

#if defined( _WIN32 )
#    if defined( ZQ_PRIMITIVES_BUILDING )
#        define ZQ_COLOR_API __declspec( dllexport )
#    else
#        define ZQ_COLOR_API __declspec( dllimport )
#    endif
#else
#    define ZQ_COLOR_API __attribute__( ( visibility( "default" ) ) )
#endif

#endif
