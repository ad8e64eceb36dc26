#ifndef ZQ_EXAMPLES_SUPPORT_OUTPUTFILES_H
#define ZQ_EXAMPLES_SUPPORT_OUTPUTFILES_H

#include <filesystem>
#include <string>
#include <vector>

namespace Examples
{

struct OutputFile
{
    std::filesystem::path path;
    std::string bytes;
};

/// Throws BadInput unless a file can be created or replaced there. Leaves nothing behind and changes nothing, so a
/// program can ask before its work begins.
void checkWritable( const std::filesystem::path& path );

/// Writes all files or, throwing BadInput, none: each is written beside its place first and then moved there. What is
/// no regular file (a device, a pipe) is written to directly.
void writeAll( const std::vector<OutputFile>& files );

} // namespace Examples

#endif
