#ifndef ZQ_BASE_ASSERTIONS_H
#define ZQ_BASE_ASSERTIONS_H

#include "forward.h"

#include <stdexcept>
#include <string>

namespace Zq
{

/// Thrown when a precondition or postcondition does not hold. Checks are active in every build.
/// what() reads: file:line: assertion failed: expression
class ZQ_BASE_API AssertionException : public std::logic_error
{
public:
    /// @name Construction
    /// The texts are copied: they may lie in a library that is unloaded while the report is on its way.
    /// @{
    AssertionException( const char* file, int line, const char* expression );
    AssertionException( const AssertionException& ) = default;
    AssertionException& operator=( const AssertionException& ) = default;
    ~AssertionException() override;
    /// @}

    /// @name Access
    /// @{

    /// Source path of the check, as it is known to the library; some paths carry no extension.
    const std::string& getFile() const { return _file; }
    /// The line of the check; some are fixed and do not follow the source.
    int getLine() const { return _line; }
    /// The text of the condition that did not hold.
    const std::string& getExpression() const { return _expression; }
    /// @}

private:
    std::string _file;
    int _line;
    std::string _expression;
};

/// Thrown when the program reaches a branch that must never be reached.
/// what() reads: file:line: program aborted
class ZQ_BASE_API ProgramAbortedException : public std::logic_error
{
public:
    /// @name Construction
    /// The text is copied, as that of AssertionException is.
    /// @{
    ProgramAbortedException( const char* file, int line );
    ProgramAbortedException( const ProgramAbortedException& ) = default;
    ProgramAbortedException& operator=( const ProgramAbortedException& ) = default;
    ~ProgramAbortedException() override;
    /// @}

    /// @name Access
    /// @{

    /// Source path of the branch, as it is known to the library.
    const std::string& getFile() const { return _file; }
    /// The line of the branch.
    int getLine() const { return _line; }
    /// @}

private:
    std::string _file;
    int _line;
};

/// The two reports of the library. Both throw; nothing in the library catches them. A report leaves the library
/// before the result of the reporting operation can be used.
class ZQ_BASE_API Assertions
{
public:
    Assertions() = delete;

    /// @name Reports
    /// @{

    /// Reports a violated condition; throws AssertionException.
    [[noreturn]] static void throwAssertionFailed( const char* file, int line, const char* expression );

    /// Reports a branch that must not be reached; throws ProgramAbortedException.
    [[noreturn]] static void throwProgramAborted( const char* file, int line );
    /// @}
};

} // namespace Zq

// The checks are expressions. The file is given, not __FILE__: a report names the same path from the library and
// from code that was inlined into a client. The reported text is the condition as it is written here, which is why
// the formatter must not touch it.

/// Checks a condition; the report carries the current line.
#define ZQ_ASSERT( file, condition ) ZQ_ASSERT_TEXT( file, condition, #condition )

/// Checks a condition whose report carries a fixed line.
#define ZQ_ASSERT_AT( file, line, condition )                                                                          \
    ( ( condition ) ? static_cast<void>( 0 ) : ::Zq::Assertions::throwAssertionFailed( file, line, #condition ) )

/// Checks a condition whose reported text cannot be compiled as it stands.
#define ZQ_ASSERT_TEXT( file, condition, text )                                                                        \
    ( ( condition ) ? static_cast<void>( 0 ) : ::Zq::Assertions::throwAssertionFailed( file, __LINE__, text ) )

/// Reports a branch that must not be reached.
#define ZQ_ABORT( file ) ::Zq::Assertions::throwProgramAborted( file, __LINE__ )

#endif
