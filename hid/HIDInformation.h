// The record of one found HID top-level collection: where it is, what it is, and a catalogue of its
// value and button capabilities.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "hid/HidHeaders.h"

namespace vela {

using ValueCapsMap = std::unordered_map<std::wstring, HIDP_VALUE_CAPS>;
using ButtonCapsMap = std::unordered_map<std::wstring, HIDP_BUTTON_CAPS>;

// The catalogue's key: "HID_INPUT_69" for usage 69 of an input report; "HID_OUTPUT_",
// "HID_FEATURE_" likewise, and "_69" for a report type that is none of the three. The usage page is
// not part of it.
std::wstring MakeCapsKey(std::uint32_t reportType, std::uint16_t usage);

// Discovery fills a record before it shares it; from then on it is only read, from any thread,
// without a lock. It cannot be copied, as it owns the preparsed data.
class CHIDInformation {
 public:
    CHIDInformation() = default;
    ~CHIDInformation();
    CHIDInformation(const CHIDInformation&) = delete;
    CHIDInformation& operator=(const CHIDInformation&) = delete;

    // Look a usage up in the catalogue. Return true with the whole capability in `out`; false, with
    // `out` unchanged, when it is not catalogued. The value look-up is for feature reports only.
    bool GetFeatureValueCaps(std::uint16_t usage, HIDP_VALUE_CAPS& out) const;
    bool GetButtonCaps(std::uint32_t reportType, std::uint16_t usage, HIDP_BUTTON_CAPS& out) const;

    std::wstring devicePath;  // empty: discovery found no device
    HIDD_ATTRIBUTES attributes{};
    HIDP_CAPS caps{};
    PHIDP_PREPARSED_DATA preparsedData = nullptr;  // owned
    ValueCapsMap valueCapsMap;
    ButtonCapsMap buttonCapsMap;
};

}  // namespace vela
