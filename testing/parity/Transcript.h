// The results of a series of calls on a platform, as text: one line for each.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace parity {

using Bytes = std::vector<std::uint8_t>;

// One call, or one record of the list that a call returned. No entry depends on an earlier one, so
// one difference between two platforms makes one line differ.
struct Entry {
    using Result = std::pair<std::string, std::string>;  // name and value

    std::string call;
    std::vector<Result> results;

    // Returns an empty text when there is no result of that name.
    std::string ValueOf(const std::string& name) const;
    bool operator==(const Entry& other) const {
        return call == other.call && results == other.results;
    }
};

using Transcript = std::vector<Entry>;

std::string ToText(const Entry& entry);
std::string ToText(const Transcript& transcript);
// The inverse of ToText.
Transcript FromText(const std::string& text);

// Values in the format of the text.
std::string Hex(std::uint32_t value, int digits);
// Abbreviates runs of eight and more equal bytes: "02 00*12 FF".
std::string HexBytes(const Bytes& bytes);
Bytes BytesFromHex(const std::string& text);

}  // namespace parity
