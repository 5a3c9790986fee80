#include "hid/CapabilityCatalogue.h"

#include <iterator>
#include <vector>

#include "log/ILog.h"

namespace vela {
namespace {

// The differences between value caps and button caps; Fill is the same for both. The counts are in
// the order of the report types.
struct ValueCapability {
    using Caps = HIDP_VALUE_CAPS;
    static constexpr USHORT HIDP_CAPS::*kCounts[] = {&HIDP_CAPS::NumberInputValueCaps,
                                                     &HIDP_CAPS::NumberOutputValueCaps,
                                                     &HIDP_CAPS::NumberFeatureValueCaps};
    static HidCapUsagePageList WantedPages(IDiscoveryQuery& query) {
        return query.GetValueCapUsagePages();
    }
    static NTSTATUS List(HIDP_REPORT_TYPE type, Caps* caps, USHORT* length,
                         PHIDP_PREPARSED_DATA preparsed) {
        return HidP_GetValueCaps(type, caps, length, preparsed);
    }
    static constexpr const char* kFunction = "FillValueCapUsagePages";
    static constexpr char kCallFailed[] =
        "FillValueCapUsagePages HidP_GetValueCaps faild, last error (%d).";
    static constexpr char kNoMatch[] =
        "FillValueCapUsagePages failed, doesn't have matched report type";
};

struct ButtonCapability {
    using Caps = HIDP_BUTTON_CAPS;
    static constexpr USHORT HIDP_CAPS::*kCounts[] = {&HIDP_CAPS::NumberInputButtonCaps,
                                                     &HIDP_CAPS::NumberOutputButtonCaps,
                                                     &HIDP_CAPS::NumberFeatureButtonCaps};
    static HidCapUsagePageList WantedPages(IDiscoveryQuery& query) {
        return query.GetButtonCapUsagePages();
    }
    static NTSTATUS List(HIDP_REPORT_TYPE type, Caps* caps, USHORT* length,
                         PHIDP_PREPARSED_DATA preparsed) {
        return HidP_GetButtonCaps(type, caps, length, preparsed);
    }
    static constexpr const char* kFunction = "FillButtonCapUsagePages";
    // Names HidP_GetValueCaps although HidP_GetButtonCaps failed: log readers search for this text.
    static constexpr char kCallFailed[] =
        "FillButtonCapUsagePages HidP_GetValueCaps faild, last error (%d).";
    static constexpr char kNoMatch[] =
        "FillButtonCapUsagePages failed, doesn't have matched report type";
};

// The later of two capabilities with the same key, in the platform's order, replaces the other.
template <typename Map, typename Caps>
void Store(Map& map, std::uint32_t reportType, const Caps& caps) {
    if (!caps.IsRange) {
        map.insert_or_assign(MakeCapsKey(reportType, caps.NotRange.Usage), caps);
        return;
    }
    // The counter is wider than a usage, as a range may end at 0xFFFF.
    for (std::uint32_t usage = caps.Range.UsageMin; usage <= caps.Range.UsageMax; ++usage) {
        map.insert_or_assign(MakeCapsKey(reportType, static_cast<std::uint16_t>(usage)), caps);
    }
}

template <typename Capability, typename Map>
bool Fill(IDiscoveryQuery* query, const HIDP_CAPS& caps, PHIDP_PREPARSED_DATA preparsed, Map& map) {
    if (query == nullptr) return false;
    const HidCapUsagePageList wantedPages = Capability::WantedPages(*query);
    if (wantedPages.empty()) return true;

    bool matched = false;
    for (const HidCapUsagePage& wanted : wantedPages) {
        // For an unknown report type there is no count: the platform is called without room for a
        // record, and its status decides.
        const bool counted = wanted.ReportType < std::size(Capability::kCounts);
        USHORT length = counted ? caps.*Capability::kCounts[wanted.ReportType] : USHORT{0};
        if (counted && length == 0) continue;

        std::vector<typename Capability::Caps> records(length);
        const NTSTATUS status =
            Capability::List(static_cast<HIDP_REPORT_TYPE>(wanted.ReportType),
                             records.empty() ? nullptr : records.data(), &length, preparsed);
        if (status < 0) {
            const auto error = static_cast<int>(GetLastError());
            GetLogger()->Log(kLogError, Capability::kFunction, Capability::kCallFailed, error);
            return false;
        }
        records.resize(length < records.size() ? length : records.size());
        for (const typename Capability::Caps& record : records) {
            if (record.UsagePage != wanted.UsagePage) continue;
            matched = true;
            Store(map, wanted.ReportType, record);
        }
    }
    if (matched) return true;

    GetLogger()->Log(kLogWarning, Capability::kFunction, Capability::kNoMatch);
    map.clear();
    return false;
}

}  // namespace

bool FillValueCapUsagePages(IDiscoveryQuery* query, const HIDP_CAPS& caps,
                            PHIDP_PREPARSED_DATA preparsed, ValueCapsMap& map) {
    return Fill<ValueCapability>(query, caps, preparsed, map);
}

bool FillButtonCapUsagePages(IDiscoveryQuery* query, const HIDP_CAPS& caps,
                             PHIDP_PREPARSED_DATA preparsed, ButtonCapsMap& map) {
    return Fill<ButtonCapability>(query, caps, preparsed, map);
}

}  // namespace vela
