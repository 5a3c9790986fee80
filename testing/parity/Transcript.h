// What a platform answered to a row of calls, as text: one line for each.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace parity {

using Bytes = std::vector<std::uint8_t>;

// One call, or one record of the list that a call gave. Nothing in it follows from an earlier
// entry, so that one difference between two platforms makes one line differ.
struct Entry {
    using Answer = std::pair<std::string, std::string>;  // what it is, and its value

    std::string call;
    std::vector<Answer> answers;

    // Empty when there is none of the name.
    std::string ValueOf(const std::string& name) const;
    bool operator==(const Entry& other) const {
        return call == other.call && answers == other.answers;
    }
};

using Transcript = std::vector<Entry>;

std::string ToText(const Entry& entry);
std::string ToText(const Transcript& transcript);
// The inverse of ToText.
Transcript FromText(const std::string& text);

// Values as they stand in the text.
std::string Hex(std::uint32_t value, int digits);
// Runs of eight and more equal bytes in short: "02 00*12 FF".
std::string HexBytes(const Bytes& bytes);
Bytes BytesFromHex(const std::string& text);

}  // namespace parity
