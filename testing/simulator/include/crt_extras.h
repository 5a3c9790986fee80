// What the platform's C runtime has in <stdio.h> and <time.h> and this machine's has not.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <ctime>

typedef int errno_t;
typedef std::int64_t __time64_t;

extern "C" {

// Both know "%ws", a wide string. The length without the terminator; -1 when it cannot be
// formatted.
int _vscprintf(const char* format, va_list arguments);
// -1 as well when the text is longer than `count`; a text that leaves no room is not terminated.
int _vsnprintf(char* buffer, std::size_t count, const char* format, va_list arguments);

__time64_t _time64(__time64_t* time);
errno_t _localtime64_s(std::tm* localTime, const __time64_t* time);

}  // extern "C"
