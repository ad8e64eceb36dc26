#ifndef ZQ_COLOR_FORWARD_H
#define ZQ_COLOR_FORWARD_H

#include "export.h"

/// Declarations of every colour class, for headers that only name them. Visibility belongs to the first declaration:
/// clang hides a specialisation that was named before it was given.

namespace Zq
{

template <class T>
class ZQ_COLOR_API CoHsvColorT;
template <class T>
class ZQ_COLOR_API CoRgbColorT;
template <class T>
class ZQ_COLOR_API CoSpectrumT;

} // namespace Zq

#endif
