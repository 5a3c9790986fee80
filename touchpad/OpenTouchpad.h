// A touchpad from one opening to its closing.
#pragma once

#include <memory>
#include <utility>

#include "hid/HIDInformation.h"
#include "touchpad/DeviceHandle.h"

namespace vela {

// Shared by all threads that use the touchpad, including the heartbeat's, which closing does not
// join: a late thread finds its own touchpad closed, never the one that was opened next.
struct OpenTouchpad {
    OpenTouchpad(std::shared_ptr<const CHIDInformation> record, HANDLE device)
        : information(std::move(record)), handle(device) {}

    const std::shared_ptr<const CHIDInformation> information;  // null: no touchpad is open
    DeviceHandle handle;
};

}  // namespace vela
