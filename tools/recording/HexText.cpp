#include "tools/recording/HexText.h"

#include <cstdio>
#include <sstream>
#include <stdexcept>

namespace recording {
namespace {

constexpr int kHexadecimal = 16;

std::uint32_t Parse(const std::string& text) {
    std::size_t length = 0;
    unsigned long long number = 0;
    try {
        number = std::stoull(text, &length, kHexadecimal);
    } catch (const std::out_of_range&) {
        length = 0;
    }
    if (length == 0 || length != text.size() || number > 0xFFFFFFFF) {
        throw std::invalid_argument("\"" + text + "\" is no hexadecimal number");
    }
    return static_cast<std::uint32_t>(number);
}

}  // namespace

std::string Hex(std::uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%04x", static_cast<unsigned>(number));
    return text;
}

std::string Hex(const Bytes& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        char digits[8];
        std::snprintf(digits, sizeof(digits), "%s%02x", text.empty() ? "" : " ",
                      static_cast<unsigned>(byte));
        text += digits;
    }
    return text;
}

std::uint32_t NumberOf(const std::string& hex) { return Parse(hex); }

Bytes BytesOf(const std::string& hex) {
    Bytes bytes;
    std::istringstream words(hex);
    for (std::string word; words >> word;) {
        const std::uint32_t byte = Parse(word);
        if (byte > 0xFF) throw std::invalid_argument("\"" + word + "\" is no byte");
        bytes.push_back(static_cast<std::uint8_t>(byte));
    }
    return bytes;
}

}  // namespace recording
