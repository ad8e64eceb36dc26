#ifndef ZQ_TESTS_SUPPORT_REPORT_H
#define ZQ_TESTS_SUPPORT_REPORT_H

#include <zq/base/assertions.h>

#include <gtest/gtest.h>

#include <string>

namespace ZqTest
{

/// What a violated check said; empty when the call came back.
struct Report
{
    std::string file;
    int line = 0;
    std::string text; // "program aborted" for a branch that must not be reached
};

template <class Call>
Report catchReport( Call&& call )
{
    try
    {
        call();
    }
    catch ( const Zq::AssertionException& e )
    {
        return { e.getFile(), e.getLine(), e.getExpression() };
    }
    catch ( const Zq::ProgramAbortedException& e )
    {
        return { e.getFile(), e.getLine(), "program aborted" };
    }
    return {};
}

} // namespace ZqTest

/// Expects that `statement` reports `expectedText` from `expectedFile`.
#define EXPECT_REPORT( statement, expectedFile, expectedText )                                                         \
    do                                                                                                                 \
    {                                                                                                                  \
        const ::ZqTest::Report report = ::ZqTest::catchReport( [&] { static_cast<void>( statement ); } );              \
        EXPECT_EQ( report.text, expectedText ) << #statement;                                                          \
        EXPECT_EQ( report.file, expectedFile ) << #statement;                                                          \
    } while ( false )

#endif
