#ifndef ZQ_TESTS_SUPPORT_COLLECTINGTRACEMANAGER_H
#define ZQ_TESTS_SUPPORT_COLLECTINGTRACEMANAGER_H

#include <zq/base/trace.h>

#include <string>
#include <vector>

namespace ZqTest
{

/// Keeps every trace message for as long as it lives, instead of printing it.
class CollectingTraceManager final : public Zq::TraceManager
{
public:
    CollectingTraceManager() : _previous( setInstance( this ) ) {}
    ~CollectingTraceManager() { setInstance( _previous ); }
    void output( const char* text ) override { messages.emplace_back( text ); }

    std::vector<std::string> messages;

private:
    Zq::TraceManager* _previous;
};

} // namespace ZqTest

#endif
