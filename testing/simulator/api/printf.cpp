// The platform's printf functions, based on those of this machine.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

// Replaces the platform's "w" for wide text by "l" and drops its "h" for narrow text.
std::string Translate(const char* format) {
    std::string translated;
    while (*format != '\0') {
        if (*format != '%') {
            translated += *format++;
            continue;
        }
        // Copies the flags, width and precision. In "%%", the second "%" is the conversion letter.
        const std::size_t prefix = 1 + std::strspn(format + 1, "-+ #0123456789.*");
        translated.append(format, prefix);
        format += prefix;
        const bool isText =
            (*format == 'w' || *format == 'h') && (format[1] == 's' || format[1] == 'c');
        if (isText) {
            if (*format == 'w') translated += 'l';
            ++format;
        }
        if (*format != '\0') translated += *format++;
    }
    return translated;
}

}  // namespace

extern "C" {

int _vscprintf(const char* format, va_list arguments) {
    return std::vsnprintf(nullptr, 0, Translate(format).c_str(), arguments);
}

int _vsnprintf(char* buffer, std::size_t count, const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = _vscprintf(format, again);
    va_end(again);
    if (length < 0 || buffer == nullptr) return length;

    const auto size = static_cast<std::size_t>(length);
    std::vector<char> text(size + 1);
    std::vsnprintf(text.data(), text.size(), Translate(format).c_str(), arguments);
    std::copy_n(text.begin(), std::min(count, size + 1), buffer);
    return size <= count ? length : -1;
}

}  // extern "C"
