// The platform's HID parser functions on one collection; each call is recorded in a transcript.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "testing/parity/PreparsedData.h"
#include "testing/parity/Transcript.h"

namespace parity {

using UsageList = std::vector<USAGE>;

// A value that is not a report type of the platform.
constexpr auto kNoReportType = static_cast<HIDP_REPORT_TYPE>(3);
constexpr HIDP_REPORT_TYPE kReportTypes[] = {HidP_Input, HidP_Output, HidP_Feature};

// The part of a report that a call refers to: report type, usage page and link collection.
struct Place {
    HIDP_REPORT_TYPE type;
    USAGE page;
    USHORT link;
};

class RecordedCalls {
 public:
    explicit RecordedCalls(PreparsedData preparsed) : preparsed_(std::move(preparsed)) {}

    HIDP_CAPS GetCaps();
    void GetLinkCollectionNodes(ULONG room);
    // The list calls return what fits into `room`.
    std::vector<HIDP_VALUE_CAPS> GetValueCaps(HIDP_REPORT_TYPE type, USHORT room);
    std::vector<HIDP_BUTTON_CAPS> GetButtonCaps(HIDP_REPORT_TYPE type, USHORT room);
    void MaxUsageListLength(HIDP_REPORT_TYPE type, USAGE page);

    void GetUsages(const Place& place, ULONG room, const Bytes& report);
    void SetUsages(const Place& place, UsageList usages, const Bytes& report);
    void UnsetUsages(const Place& place, UsageList usages, const Bytes& report);

    void GetUsageValue(const Place& place, USAGE usage, const Bytes& report);
    void SetUsageValue(const Place& place, USAGE usage, ULONG value, const Bytes& report);

    const Transcript& Notes() const { return notes_; }

 private:
    void Note(Entry entry);

    PreparsedData preparsed_;
    Transcript notes_;
    std::set<std::string> noted_;  // texts of the calls
};

}  // namespace parity
