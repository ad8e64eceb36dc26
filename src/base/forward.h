#ifndef ZQ_BASE_FORWARD_H
#define ZQ_BASE_FORWARD_H

/// Declarations of every class of libZQbase, for headers that only name them.

namespace Zq
{

class AssertionException;
class Assertions;
class DbgBuildInfo;
class DbgBuildInfoUtil;
class FloatUtil;
class InPackageInit;
class InPackageRegistry;
class InVariableBase;
class ProgramAbortedException;
class Trace;
class TraceLevel;
class TraceManager;
template <class Tag>
class InInit;
template <class T>
class Interval;
template <class T>
class ObjPtr;

} // namespace Zq

#endif
