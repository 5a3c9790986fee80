// Functions of the platform's C runtime that are missing in this machine's <stdio.h> and <time.h>.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <ctime>

typedef int errno_t;
typedef std::int64_t __time64_t;

extern "C" {

// Both support "%ws", a wide string. Returns the length without the terminator, or -1 when the text
// cannot be formatted.
int _vscprintf(const char* format, va_list arguments);
// Returns -1 as well when the text is longer than `count`; the text is terminated only if it leaves
// room.
int _vsnprintf(char* buffer, std::size_t count, const char* format, va_list arguments);

__time64_t _time64(__time64_t* time);
errno_t _localtime64_s(std::tm* localTime, const __time64_t* time);

}  // extern "C"
