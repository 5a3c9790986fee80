// The interface of a device session, as discovery and the exports see it.
#pragma once

#include <cstdint>
#include <memory>

#include "hid/DiscoveryQuery.h"

namespace vela {

class CHIDInformation;

// What Initialize answers.
enum HidInitializeResult : std::uint32_t {
    kHidOpen = 1,         // opened now, or open already
    kHidFailed = 2,       // no record, or the device could not be opened
    kHidHeldByOther = 3,  // another process holds the device for itself
};

class IHid {
 public:
    // Discovery asks these three, on the thread that scans.
    virtual HidDeviceFilterList GetHidDeviceFilters() = 0;
    virtual HidCapUsagePageList GetValueCapUsagePages() = 0;
    virtual HidCapUsagePageList GetButtonCapUsagePages() = 0;

    // Opens the device of the record. The session keeps the record while it is open.
    virtual std::uint32_t Initialize(const std::shared_ptr<const CHIDInformation>& information) = 0;
    // Closes it. False when it was not open.
    virtual bool Uninitialize() = 0;

    virtual ~IHid() = default;
};

}  // namespace vela
