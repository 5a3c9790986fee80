#include "log/LogText.h"

#include <windows.h>

#include <cstdio>

namespace vela {
namespace {

// Nearly all of the agent's own texts fit.
constexpr std::size_t kShortText = 256;

// Measures the text, then formats it. Empty also when it cannot be formatted.
std::string FormatLongText(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = _vscprintf(format, arguments);
    std::string text;
    if (length > 0) {
        // The formatter ends the text with a null character.
        text.resize(static_cast<std::size_t>(length) + 1);
        const int written = _vsnprintf(text.data(), text.size(), format, again);
        text.resize(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    va_end(again);
    return text;
}

}  // namespace

std::string FormatText(const char* format, va_list arguments) {
    char buffer[kShortText];
    va_list again;
    va_copy(again, arguments);
    const int written = _vsnprintf(buffer, kShortText, format, arguments);
    // A negative result means a longer text, or one that cannot be formatted.
    std::string text = written >= 0 ? std::string(buffer, static_cast<std::size_t>(written))
                                    : FormatLongText(format, again);
    va_end(again);
    return text;
}

}  // namespace vela
