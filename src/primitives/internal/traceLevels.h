#ifndef ZQ_PRIMITIVES_INTERNAL_TRACELEVELS_H
#define ZQ_PRIMITIVES_INTERNAL_TRACELEVELS_H

namespace Zq
{

class TraceLevel;

/// The trace levels of the library, registered while it is loaded and constant afterwards. Not for clients: they
/// find a level by its name, with Trace::findLevel.
namespace Detail
{

extern TraceLevel* geometryTraceLevel; ///< "Geometry"
extern TraceLevel* frustumTraceLevel;  ///< "GeFrustum"
extern TraceLevel* shaftTraceLevel;    ///< "GeShaft"

} // namespace Detail

} // namespace Zq

#endif
