// The requests that reach virtual devices while something is done.
#pragma once

#include <vector>

#include "testing/virtual-touchpad/control/VirtualDevice.h"

namespace kit {

// Returns the requests to each device, in the order of the devices.
template <typename Function>
std::vector<virtual_touchpad::Requests> RequestsDuring(
    const std::vector<const virtual_touchpad::VirtualDevice*>& devices, Function function) {
    std::vector<virtual_touchpad::Requests> requests;
    for (const auto* device : devices) requests.push_back(device->RequestsSince({}));
    function();
    for (std::size_t i = 0; i < devices.size(); ++i) {
        requests[i] = devices[i]->RequestsSince(requests[i]);
    }
    return requests;
}

}  // namespace kit
