// The text of a log line, in the C library's printf format.
#pragma once

#include <cstdarg>
#include <string>

namespace vela {

// Returns the formatted text, whatever its length. Empty also when it cannot be formatted.
std::string FormatText(const char* format, va_list arguments);

}  // namespace vela
