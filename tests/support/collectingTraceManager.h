#ifndef ZQ_TESTS_SUPPORT_COLLECTINGTRACEMANAGER_H
#define ZQ_TESTS_SUPPORT_COLLECTINGTRACEMANAGER_H

#include <zq/base/trace.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ZqTest
{

/// Keeps every trace message for as long as it lives, instead of printing it, and leaves the level switched off.
class CollectingTraceManager final : public Zq::TraceManager
{
public:
    explicit CollectingTraceManager( const char* name ) : level( Zq::Trace::findLevel( name ) ) {}
    ~CollectingTraceManager()
    {
        level->setEnabled( false );
        setInstance( _previous );
    }
    void output( const char* text ) override { _messages.emplace_back( text ); }

    /// The messages since the last call, one after the other, without "file:line: ". All must come from that file.
    std::string takeText( const std::string& file )
    {
        std::string text;
        for ( const std::string& message : _messages )
        {
            EXPECT_EQ( message.rfind( file + ':', 0 ), 0U ) << message;
            text += message.substr( message.find( ": " ) + 2 );
        }
        _messages.clear();
        return text;
    }

    Zq::TraceLevel* const level;

private:
    std::vector<std::string> _messages;
    Zq::TraceManager* const _previous = setInstance( this );
};

} // namespace ZqTest

#endif
