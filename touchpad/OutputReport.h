// One output report of a touchpad while it is composed.
#pragma once

#include <vector>

#include "hid/HIDInformation.h"
#include "touchpad/ButtonUsages.h"
#include "touchpad/TouchpadUsages.h"

namespace vela {

// Sets usages on the usage page of the touchpad's collection. The report id is never written here:
// the platform's set calls put the id of the usage's report into the zeroed first byte.
class OutputReport {
 public:
    // `bytes` is zero-filled and has the collection's output report length.
    OutputReport(const CHIDInformation& information, std::vector<BYTE>& bytes)
        : information_(information), bytes_(bytes) {}

    NTSTATUS SetValue(USAGE usage, ULONG value) {
        return HidP_SetUsageValue(HidP_Output, Page(), kNoLinkCollection, usage, value,
                                  information_.preparsedData, Data(), Length());
    }
    // Takes a copy of the list, as the platform may change it.
    NTSTATUS SetButtons(ButtonUsages usages) {
        ULONG count = usages.Count();
        return HidP_SetUsages(HidP_Output, Page(), kNoLinkCollection, usages.Data(), &count,
                              information_.preparsedData, Data(), Length());
    }
    NTSTATUS UnsetButton(USAGE usage) {
        ULONG count = 1;
        return HidP_UnsetUsages(HidP_Output, Page(), kNoLinkCollection, &usage, &count,
                                information_.preparsedData, Data(), Length());
    }

 private:
    USAGE Page() const { return information_.caps.UsagePage; }
    PCHAR Data() { return reinterpret_cast<PCHAR>(bytes_.data()); }
    ULONG Length() const { return static_cast<ULONG>(bytes_.size()); }

    const CHIDInformation& information_;
    std::vector<BYTE>& bytes_;
};

}  // namespace vela
