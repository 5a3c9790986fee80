// The interface of a device session, as the exports see it.
#pragma once

#include <cstdint>
#include <memory>

#include "hid/IDiscoveryQuery.h"

namespace vela {

class CHIDInformation;

// The results of Initialize.
enum HidInitializeResult : std::uint32_t {
    kHidOpen = 1,         // opened now, or open already
    kHidFailed = 2,       // no record, or the device could not be opened
    kHidHeldByOther = 3,  // another process holds the device for itself
};

// A session is also the discovery query that finds its device.
class IHid : public IDiscoveryQuery {
 public:
    // Opens the device of the record. The session keeps the record while it is open.
    virtual std::uint32_t Initialize(const std::shared_ptr<const CHIDInformation>& information) = 0;
    // Closes the device. Returns false when it was not open.
    virtual bool Uninitialize() = 0;

    virtual ~IHid() = default;
};

}  // namespace vela
