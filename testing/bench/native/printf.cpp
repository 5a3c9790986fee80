// Replaces the platform's printf by one without the simulator's translation of formats, which costs
// more than the rest of a log call. No measured format needs it.
#include <cstdarg>
#include <cstdio>

extern "C" {

int _vscprintf(const char* format, va_list arguments) {
    return std::vsnprintf(nullptr, 0, format, arguments);
}

int _vsnprintf(char* buffer, std::size_t count, const char* format, va_list arguments) {
    const int length = std::vsnprintf(buffer, count, format, arguments);
    // vsnprintf cuts off the last letter of a text that fits only without its null character.
    return static_cast<std::size_t>(length) < count ? length : -1;
}

}  // extern "C"
