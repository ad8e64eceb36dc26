#ifndef ZQ_TESTS_LOADING_RECORDER_H
#define ZQ_TESTS_LOADING_RECORDER_H

#include <string>
#include <vector>

namespace ZqTest
{

/// What libraries told the registry while they were loaded and unloaded, in order:
///
///     package NAME        needs TYPE        level NAME SOURCE-FILE        gone NAME
///
/// The library of this header stands before libZQbase in the search order, so that it sees these calls first; it writes
/// them down and passes them on.
__attribute__( ( visibility( "default" ) ) ) std::vector<std::string> takeRecord();

} // namespace ZqTest

#endif
