#ifndef ZQ_BASE_FORWARD_H
#define ZQ_BASE_FORWARD_H

#include "export.h"

/// Declarations of every class of libZQbase, for headers that only name them. Visibility belongs to the first
/// declaration: clang hides a specialisation that was named before it was given.

namespace Zq
{

class ZQ_BASE_API AssertionException;
class ZQ_BASE_API Assertions;
class ZQ_BASE_API DbgBuildInfo;
class ZQ_BASE_API DbgBuildInfoUtil;
class FloatUtil;
class ZQ_BASE_API InPackageInit;
class ZQ_BASE_API InPackageRegistry;
class ZQ_BASE_API InVariableBase;
class ZQ_BASE_API ProgramAbortedException;
class TaskRunner;
class ZQ_BASE_API Trace;
class ZQ_BASE_API TraceLevel;
class ZQ_BASE_API TraceManager;
template <class Tag>
class ZQ_TEMPLATE_API InInit;
template <class T>
class ZQ_BASE_API Interval;
template <class T>
class ObjPtr;

} // namespace Zq

#endif
