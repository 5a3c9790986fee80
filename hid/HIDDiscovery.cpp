#include "hid/HIDDiscovery.h"

#include <algorithm>

#include "hid/CapabilityCatalogue.h"
#include "hid/FileHandle.h"
#include "log/ILog.h"

namespace vela {
namespace {

bool MatchesFilter(const HidDeviceFilterList& filters, std::uint16_t vendorId,
                   const HIDP_CAPS& caps) {
    return std::any_of(filters.begin(), filters.end(), [&](const HidDeviceFilter& filter) {
        return (filter.VendorID == vendorId || filter.VendorID == 0) &&
               filter.UsagePage == caps.UsagePage && filter.Usage == caps.Usage;
    });
}

// Fills the record and returns true when the interface at `path` is what the query wants.
//
// The parsed descriptor of an interface that is turned down stays allocated: freeing belongs to the
// record alone, and only the chosen interface gets one. It is a small block per scanned interface.
bool Examine(IDiscoveryQuery& query, const std::wstring& path, CHIDInformation& record) {
    // Without read or write access an interface opens even while another process holds it for
    // itself, and its attributes and descriptor can be read all the same.
    const FileHandle handle(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        nullptr, OPEN_EXISTING, 0, nullptr));
    if (!handle.IsValid()) return false;

    PHIDP_PREPARSED_DATA preparsed = nullptr;
    if (!HidD_GetPreparsedData(handle.Get(), &preparsed)) return false;

    HIDD_ATTRIBUTES attributes{};
    attributes.Size = sizeof(attributes);
    if (!HidD_GetAttributes(handle.Get(), &attributes)) return false;

    HIDP_CAPS caps{};
    if (HidP_GetCaps(preparsed, &caps) < 0) return false;

    if (!MatchesFilter(query.GetHidDeviceFilters(), attributes.VendorID, caps)) return false;

    ValueCapsMap valueCapsMap;
    ButtonCapsMap buttonCapsMap;
    if (!FillValueCapUsagePages(&query, caps, preparsed, valueCapsMap) ||
        !FillButtonCapUsagePages(&query, caps, preparsed, buttonCapsMap)) {
        return false;
    }

    record.devicePath = path;
    record.attributes = attributes;
    record.caps = caps;
    record.preparsedData = preparsed;
    record.valueCapsMap.swap(valueCapsMap);
    record.buttonCapsMap.swap(buttonCapsMap);
    // The version number of a HID device is that of its firmware.
    GetLogger()->Log(kLogInfo, "ScanHIDInformation",
                     "GetHIDInformation PID (0x%x) FW version(0x%x).", attributes.ProductID,
                     attributes.VersionNumber);
    return true;
}

}  // namespace

std::shared_ptr<CHIDInformation> ScanHIDInformation(IDiscoveryQuery* query) {
    auto record = std::make_shared<CHIDInformation>();
    if (query == nullptr) return record;
    for (const std::wstring& path : GetHidDevicePathList()) {
        if (Examine(*query, path, *record)) break;
    }
    return record;
}

}  // namespace vela
