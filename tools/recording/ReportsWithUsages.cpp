#include "tools/recording/ReportsWithUsages.h"

#include <algorithm>

namespace recording {
namespace {

constexpr USHORT kVariable = 0x02;  // of a capability's bit field; without it, it is an array

// Some parsers write beyond a report whose arrays they misjudge.
constexpr std::size_t kSpareBytes = 64;

// An array of another size is no real one: no parser may keep the recording busy for ever.
constexpr int kMostSlots = 1024;

class EmptyReport {
 public:
    // The id is there from the start, as not every parser fills it in.
    EmptyReport(const ReportType& reports, UCHAR reportId)
        : reports_(reports), bytes_(reports.length + kSpareBytes) {
        bytes_[0] = reportId;
    }

    NTSTATUS SetValue(const HIDP_VALUE_CAPS& caps, USAGE usage) {
        constexpr ULONG kAllBits = 0xFFFFFFFF;
        return HidP_SetUsageValue(reports_.type, caps.UsagePage, caps.LinkCollection, usage,
                                  kAllBits, reports_.preparsed, Data(), reports_.length);
    }
    NTSTATUS Set(const HIDP_BUTTON_CAPS& caps, USAGE usage) {
        ULONG length = 1;
        return HidP_SetUsages(reports_.type, caps.UsagePage, caps.LinkCollection, &usage, &length,
                              reports_.preparsed, Data(), reports_.length);
    }
    // Sets usages from `first` to `last` and then `last` again, as long as there are free slots.
    NTSTATUS Fill(const HIDP_BUTTON_CAPS& caps, USAGE first, USAGE last) {
        const NTSTATUS status = Set(caps, first);
        std::uint32_t usage = first;
        for (int slot = 1; status >= 0 && slot < kMostSlots; ++slot) {
            usage = (std::min)(usage + 1U, std::uint32_t{last});
            const Bytes before = bytes_;
            if (Set(caps, static_cast<USAGE>(usage)) < 0 || bytes_ == before) break;
        }
        return status;
    }
    // Returns the report, or the status of the call that failed.
    Json Result(NTSTATUS status) const {
        if (status < 0) return {{"status", Hex(static_cast<std::uint32_t>(status))}};
        return Hex(Bytes(bytes_.begin(), bytes_.begin() + reports_.length));
    }

 private:
    PCHAR Data() { return reinterpret_cast<PCHAR>(bytes_.data()); }

    const ReportType& reports_;
    Bytes bytes_;
};

bool IsArray(const HIDP_BUTTON_CAPS& caps) { return (caps.BitField & kVariable) == 0; }

USAGE FirstUsage(const HIDP_BUTTON_CAPS& caps) {
    const USAGE lowest = IsArray(caps) ? 1 : 0;
    return (std::max)(caps.Range.UsageMin, lowest);
}
USAGE LastUsage(const HIDP_BUTTON_CAPS& caps) {
    return caps.IsRange ? caps.Range.UsageMax : caps.Range.UsageMin;
}

Json WithUsage(const ReportType& reports, const HIDP_BUTTON_CAPS& caps, USAGE usage) {
    EmptyReport report(reports, caps.ReportID);
    return report.Result(report.Set(caps, usage));
}

Json Full(const ReportType& reports, const HIDP_BUTTON_CAPS& caps) {
    EmptyReport report(reports, caps.ReportID);
    return report.Result(report.Fill(caps, FirstUsage(caps), LastUsage(caps)));
}

bool SharesSlots(const ReportType& reports, const HIDP_BUTTON_CAPS& caps,
                 const HIDP_BUTTON_CAPS* previous) {
    if (previous == nullptr || !IsArray(*previous) || previous->ReportID != caps.ReportID ||
        FirstUsage(*previous) > LastUsage(*previous)) {
        return false;
    }
    EmptyReport report(reports, caps.ReportID);
    report.Fill(*previous, FirstUsage(*previous), LastUsage(*previous));
    return report.Set(caps, FirstUsage(caps)) < 0;
}

}  // namespace

Json ReportsWith(const ReportType& reports, const HIDP_VALUE_CAPS& caps) {
    EmptyReport report(reports, caps.ReportID);
    return {{"first", report.Result(report.SetValue(caps, caps.Range.UsageMin))}};
}

Json ReportsWith(const ReportType& reports, const HIDP_BUTTON_CAPS& caps,
                 const HIDP_BUTTON_CAPS* previous) {
    if (FirstUsage(caps) > LastUsage(caps)) return Json::object();
    Json json = {{"first", WithUsage(reports, caps, FirstUsage(caps))},
                 {"last", WithUsage(reports, caps, LastUsage(caps))}};
    if (!IsArray(caps)) return json;
    json["full"] = Full(reports, caps);
    json["sharesSlots"] = SharesSlots(reports, caps, previous);
    return json;
}

}  // namespace recording
