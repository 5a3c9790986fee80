// Requests the state of a touchpad's firmware, which shows that reports travel both ways.
#pragma once

#include <string>

#include "tools/velactl/EventQueue.h"

namespace velactl {

struct FirmwareState {
    bool isRequested = false;  // false: this touchpad has no such request
    bool isReceived = false;   // false: no state within two seconds
    std::string status;        // "normal", "disabled"; the last known one if not received

    std::string Text() const {
        return !isRequested ? "cannot be asked" : isReceived ? "answers" : "does not answer";
    }
};

// The session is active afterwards, its lights dark. `events` must be those of the session, and are
// removed from the queue.
FirmwareState RequestFirmwareState(vela_agent::Session& session, EventQueue& events);

}  // namespace velactl
