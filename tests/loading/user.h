#ifndef ZQ_TESTS_LOADING_USER_H
#define ZQ_TESTS_LOADING_USER_H

#define ZQ_USER_API extern "C" __attribute__( ( visibility( "default" ) ) )

/// Length of (x, y, z), computed in the library.
ZQ_USER_API double zqUserLength( double x, double y, double z );

/// Violates a check of the library.
ZQ_USER_API void zqUserReport();

/// Whether the packages' identities are those that this library sees.
ZQ_USER_API int zqUserHasIdentities();

#endif
