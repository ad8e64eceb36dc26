#ifndef ZQ_RESMGT_EXPORT_H
#define ZQ_RESMGT_EXPORT_H

/// ZQ_RESMGT_API marks what libZQresmgt exports; everything else in it is hidden.

#if defined( _WIN32 )
#    if defined( ZQ_RESMGT_BUILDING )
#        define ZQ_RESMGT_API __declspec( dllexport )
#    else
#        define ZQ_RESMGT_API __declspec( dllimport )
#    endif
#else
#    define ZQ_RESMGT_API __attribute__( ( visibility( "default" ) ) )
#endif

#endif
