// The examination of one HID device interface: is it the collection that a query wants?
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

// What was read until the verdict was clear; zero or empty from there on.
struct Examination {
    Verdict verdict = Verdict::kMatches;
    HIDD_ATTRIBUTES attributes{};
    HIDP_CAPS caps{};
    PHIDP_PREPARSED_DATA preparsedData = nullptr;  // the caller's to free
    ValueCapsMap valueCapsMap;
    ButtonCapsMap buttonCapsMap;
};

// Without read or write access, with which an interface opens even while another process holds it
// for itself; its attributes and descriptor can be read all the same.
FileHandle OpenForExamination(const std::wstring& path);

// Reads only as far as the verdict needs, in the order of the verdicts. `device` may be invalid.
// Any thread.
Examination Examine(IDiscoveryQuery& query, const FileHandle& device);

}  // namespace vela
