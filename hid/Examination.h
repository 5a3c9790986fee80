// Examines one HID device interface: is it the top-level collection that a query wants?
#pragma once

#include <string>

#include "platform/FileHandle.h"
#include "hid/HIDInformation.h"
#include "hid/IDiscoveryQuery.h"

namespace vela {

enum class Verdict {
    kMatches,
    kNotOpened,         // GetLastError says why
    kNotRead,           // no preparsed data or no attributes; GetLastError says why
    kNoCaps,            // the preparsed data has no caps
    kOtherCollection,   // no filter has its usage page and usage
    kOtherVendor,       // of the filters that have both, none has its vendor
    kNoWantedValueCap,  // the value catalogue could not be filled
    kNoWantedButtonCap,
};

// The data that was read up to the verdict; the rest is zero or empty.
struct Examination {
    Verdict verdict = Verdict::kMatches;
    HIDD_ATTRIBUTES attributes{};
    HIDP_CAPS caps{};
    PHIDP_PREPARSED_DATA preparsedData = nullptr;  // the caller frees it
    ValueCapsMap valueCapsMap;
    ButtonCapsMap buttonCapsMap;
};

// Opens the interface without read or write access, which succeeds even while another process holds
// it exclusively; its attributes and preparsed data can still be read.
FileHandle OpenForExamination(const std::wstring& path);

// Reads only as far as the verdict needs, in the order of the verdicts. `device` may be invalid.
// Any thread may call it.
Examination Examine(IDiscoveryQuery& query, const FileHandle& device);

}  // namespace vela
