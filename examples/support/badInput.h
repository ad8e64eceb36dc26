#ifndef ZQ_EXAMPLES_SUPPORT_BADINPUT_H
#define ZQ_EXAMPLES_SUPPORT_BADINPUT_H

#include <stdexcept>

namespace Examples
{

/// What the user gave cannot be used; the text is one line that says why. Programs print it and end with code 2.
class BadInput : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace Examples

#endif
