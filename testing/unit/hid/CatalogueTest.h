// The catalogues of values and of buttons follow the same rules: each typed test runs for both.
#pragma once

#include <cstring>
#include <iterator>

#include "hid/CapabilityCatalogue.h"
#include "testing/unit/hid/HidTest.h"
#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace hid_test {

using simulator::hid::Application;
using simulator::hid::kOtherPage;
using simulator::hid::kPage;
using simulator::hid::ParsedDevice;
using simulator::hid::ReportDescriptorBuilder;
using Item = virtual_touchpad::MainItem;

struct Values {
    using Caps = HIDP_VALUE_CAPS;
    using Map = vela::ValueCapsMap;
    static constexpr char kName[] = "Value";
    static constexpr char kCall[] = "HidP_GetValueCaps";
    static constexpr std::uint32_t kFieldBits = 8;
    static constexpr USHORT HIDP_CAPS::*kOutputCount = &HIDP_CAPS::NumberOutputValueCaps;
    static constexpr auto kFill = vela::FillValueCapUsagePages;
    static constexpr auto kPages = &ScriptedQuery::valuePages;
    static std::vector<Caps> List(const ParsedDevice& device, HIDP_REPORT_TYPE type) {
        return device.ValueCaps(type);
    }
};

struct Buttons {
    using Caps = HIDP_BUTTON_CAPS;
    using Map = vela::ButtonCapsMap;
    static constexpr char kName[] = "Button";
    static constexpr char kCall[] = "HidP_GetButtonCaps";
    static constexpr std::uint32_t kFieldBits = 1;
    static constexpr USHORT HIDP_CAPS::*kOutputCount = &HIDP_CAPS::NumberOutputButtonCaps;
    static constexpr auto kFill = vela::FillButtonCapUsagePages;
    static constexpr auto kPages = &ScriptedQuery::buttonPages;
    static std::vector<Caps> List(const ParsedDevice& device, HIDP_REPORT_TYPE type) {
        return device.ButtonCaps(type);
    }
};

template <typename Kind>
class CatalogueTest : public HidTest {
 protected:
    using Map = typename Kind::Map;
    using Caps = typename Kind::Caps;

    // A collection whose fields are of this kind. With `first` and `last` a usage range.
    class Fields {
     public:
        Fields& Page(std::uint16_t page) { return Do(builder_.UsagePage(page)); }
        Fields& Id(std::uint8_t reportId) { return Do(builder_.ReportId(reportId)); }
        Fields& Usage(Item item, std::uint16_t usage) {
            Size(1).Usage(usage).Main(item, virtual_touchpad::kDataVariable);
            return Pad(item, 1);
        }
        Fields& Range(Item item, std::uint16_t first, std::uint16_t last) {
            const auto count = static_cast<std::uint32_t>(last - first + 1);
            Size(count).UsageMinimum(first).UsageMaximum(last).Main(
                item, virtual_touchpad::kDataVariable);
            return Pad(item, count);
        }
        operator ReportDescriptorBuilder() const { return builder_; }

     private:
        Fields& Do(ReportDescriptorBuilder&) { return *this; }
        // The platform refuses a report that does not end on a byte.
        Fields& Pad(Item item, std::uint32_t count) {
            const std::uint32_t bits = Kind::kFieldBits * count;
            return Do(builder_.Padding(item, (8 - bits % 8) % 8));
        }
        ReportDescriptorBuilder& Size(std::uint32_t count) {
            return builder_.LogicalMinimum(0)
                .LogicalMaximum(1)
                .ReportSize(Kind::kFieldBits)
                .ReportCount(count);
        }
        ReportDescriptorBuilder builder_ = Application();
    };

    void Want(vela::HidCapUsagePageList pages) { query_.*Kind::kPages = std::move(pages); }

    bool Fill(const ParsedDevice& device) { return Fill(device, device.Caps()); }
    // Takes caps whose counts may differ from the device's.
    bool Fill(const ParsedDevice& device, const HIDP_CAPS& caps) {
        machine_.ForgetCalls();
        return Kind::kFill(&query_, caps, device.Preparsed(), map_);
    }

    std::vector<std::wstring> Keys() const {
        std::vector<std::wstring> keys;
        for (const auto& entry : map_) keys.push_back(entry.first);
        return keys;
    }
    // Returns whether the entry is a whole copy of the platform's record.
    bool Holds(const wchar_t* key, const Caps& caps) const {
        const auto entry = map_.find(key);
        return entry != map_.end() && std::memcmp(&entry->second, &caps, sizeof caps) == 0;
    }

    static std::string FillFunction() {
        return "Fill" + std::string(Kind::kName) + "CapUsagePages";
    }
    static std::string NoMatchLine() {
        return "WARNING " + FillFunction() + ": " + FillFunction() +
               " failed, doesn't have matched report type";
    }
    // The button catalogue's line names HidP_GetValueCaps too.
    static std::string CallFailedLine(int error) {
        return "ERROR " + FillFunction() + ": " + FillFunction() +
               " HidP_GetValueCaps faild, last error (" + std::to_string(error) + ").";
    }
    static std::string ListCall(const std::string& arguments) {
        return std::string(Kind::kCall) + "(" + arguments + ")";
    }

    Map map_;
};

using Kinds = testing::Types<Values, Buttons>;

struct KindName {
    template <typename Kind>
    static std::string GetName(int) {
        return Kind::kName;
    }
};

}  // namespace hid_test
