#include "hid/HIDInformation.h"

#include <iterator>

#include "log/ILog.h"

namespace vela {
namespace {

constexpr const wchar_t* kReportTypeNames[] = {L"HID_INPUT", L"HID_OUTPUT", L"HID_FEATURE"};

template <typename Map, typename Caps>
bool LookUp(const Map& map, const std::wstring& key, Caps& out) {
    const auto entry = map.find(key);
    if (entry == map.end()) return false;
    out = entry->second;
    return true;
}

}  // namespace

std::wstring MakeCapsKey(std::uint32_t reportType, std::uint16_t usage) {
    constexpr std::size_t kLongestKey = 17;  // "HID_FEATURE_65535"
    std::wstring key;
    key.reserve(kLongestKey);
    if (reportType < std::size(kReportTypeNames)) key = kReportTypeNames[reportType];
    key += L'_';
    // std::to_string needs no format, and its digits have the same values as wide characters.
    const std::string digits = std::to_string(usage);
    key.append(digits.begin(), digits.end());
    return key;
}

CHIDInformation::~CHIDInformation() {
    GetLogger()->Log(kLogInfo, "~CHIDInformation",
                     "CHIDInformation clear device UsagePage (%x),  Usage (%x) information",
                     caps.UsagePage, caps.Usage);
    if (preparsedData != nullptr) HidD_FreePreparsedData(preparsedData);
}

bool CHIDInformation::GetFeatureValueCaps(std::uint16_t usage, HIDP_VALUE_CAPS& out) const {
    return LookUp(valueCapsMap, MakeCapsKey(HidP_Feature, usage), out);
}

bool CHIDInformation::GetButtonCaps(std::uint32_t reportType, std::uint16_t usage,
                                    HIDP_BUTTON_CAPS& out) const {
    return LookUp(buttonCapsMap, MakeCapsKey(reportType, usage), out);
}

}  // namespace vela
