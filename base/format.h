// The engine's printf for wide texts.
#pragma once

#include <cstdarg>

#include "engine/types.h"

namespace qen::base {

// Appends the formatted text. Formats as IOutput promises them: flags - + 0 space #, width and precision (numbers or
// *); d i u x X c f g p %; %s takes a zero-terminated wide text, null prints "(null)". The length marks h, l, ll, j, z
// and t are understood. What is no format is copied. A null format is empty.
QEN_API void AppendFormat(String& out, const Char* format, std::va_list arguments);

}  // namespace qen::base
