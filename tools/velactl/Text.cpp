#include "tools/velactl/Text.h"

#include <windows.h>

#include <cstdio>
#include <system_error>

namespace velactl {

std::string Utf8(const std::wstring& text) {
    const auto length = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

std::string Hex(std::uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%04x", static_cast<unsigned>(number));
    return text;
}

std::string Joined(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& item : items) text += (text.empty() ? "" : ", ") + item;
    return text;
}

std::string LocalTime() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    char text[64];
    std::snprintf(text, sizeof(text), "%04d-%02d-%02d %02d:%02d:%02d.%03d", now.wYear, now.wMonth,
                  now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds);
    return text;
}

std::string SystemErrorText(std::uint32_t error) {
    return std::system_category().message(static_cast<int>(error)) + " (error " +
           std::to_string(error) + ")";
}

}  // namespace velactl
