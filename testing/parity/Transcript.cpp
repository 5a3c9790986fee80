#include "testing/parity/Transcript.h"

#include <cstdio>
#include <sstream>

namespace parity {
namespace {

constexpr char kBeforeAnswers[] = " -> ";
constexpr char kBetweenAnswers[] = "; ";
constexpr char kBeforeValue[] = ": ";

// Gives the part in front of the separator and takes both off the text.
std::string Cut(std::string& text, const std::string& separator) {
    const std::size_t end = text.find(separator);
    const std::string part = text.substr(0, end);
    text = end == std::string::npos ? "" : text.substr(end + separator.size());
    return part;
}

Entry EntryFrom(std::string line) {
    Entry entry;
    entry.call = Cut(line, kBeforeAnswers);
    while (!line.empty()) {
        std::string answer = Cut(line, kBetweenAnswers);
        const std::string name = Cut(answer, kBeforeValue);
        entry.answers.emplace_back(name, answer);
    }
    return entry;
}

}  // namespace

std::string Entry::ValueOf(const std::string& name) const {
    for (const auto& [answerName, value] : answers) {
        if (answerName == name) return value;
    }
    return "";
}

std::string ToText(const Entry& entry) {
    std::string text = entry.call;
    const char* separator = kBeforeAnswers;
    for (const auto& [name, value] : entry.answers) {
        text += separator + name + kBeforeValue + value;
        separator = kBetweenAnswers;
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
