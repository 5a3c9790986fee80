#include "testing/parity/Transcript.h"

#include <cstdio>
#include <sstream>

namespace parity {
namespace {

constexpr char kBeforeResults[] = " -> ";
constexpr char kBetweenResults[] = "; ";
constexpr char kBeforeValue[] = ": ";

// Removes the part before the separator, and the separator, from the text and returns that part.
std::string Cut(std::string& text, const std::string& separator) {
    const std::size_t end = text.find(separator);
    const std::string part = text.substr(0, end);
    text = end == std::string::npos ? "" : text.substr(end + separator.size());
    return part;
}

Entry EntryFrom(std::string line) {
    Entry entry;
    entry.call = Cut(line, kBeforeResults);
    while (!line.empty()) {
        std::string result = Cut(line, kBetweenResults);
        const std::string name = Cut(result, kBeforeValue);
        entry.results.emplace_back(name, result);
    }
    return entry;
}

}  // namespace

std::string Entry::ValueOf(const std::string& name) const {
    for (const auto& [resultName, value] : results) {
        if (resultName == name) return value;
    }
    return "";
}

std::string ToText(const Entry& entry) {
    std::string text = entry.call;
    const char* separator = kBeforeResults;
    for (const auto& [name, value] : entry.results) {
        text += separator + name + kBeforeValue + value;
        separator = kBetweenResults;
    }
    return text;
}

std::string ToText(const Transcript& transcript) {
    std::string text;
    for (const Entry& entry : transcript) text += ToText(entry) + "\n";
    return text;
}

Transcript FromText(const std::string& text) {
    Transcript transcript;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) transcript.push_back(EntryFrom(line));
    return transcript;
}

std::string Hex(std::uint32_t value, int digits) {
    char text[16];
    std::snprintf(text, sizeof(text), "%0*X", digits, static_cast<unsigned>(value));
    return text;
}

std::string HexBytes(const Bytes& bytes) {
    constexpr std::size_t kLongRun = 8;
    std::string text;
    for (std::size_t i = 0; i < bytes.size();) {
        std::size_t end = i + 1;
        while (end < bytes.size() && bytes[end] == bytes[i]) ++end;
        const bool isLong = end - i >= kLongRun;
        text += (i == 0 ? "" : " ") + Hex(bytes[i], 2);
        if (isLong) text += "*" + std::to_string(end - i);
        i = isLong ? end : i + 1;
    }
    return text;
}

Bytes BytesFromHex(const std::string& text) {
    Bytes bytes;
    std::istringstream runs(text);
    for (std::string run; runs >> run;) {
        const std::string byte = Cut(run, "*");
        bytes.insert(bytes.end(), run.empty() ? 1 : std::stoul(run),
                     static_cast<std::uint8_t>(std::stoul(byte, nullptr, 16)));
    }
    return bytes;
}

}  // namespace parity
