// Asks a touchpad's firmware for its state: the proof that reports travel both ways.
#pragma once

#include <string>

#include "tools/velactl/EventQueue.h"

namespace velactl {

struct FirmwareAnswer {
    bool asked = false;     // false: this touchpad knows no such request
    bool answered = false;  // false: not within two seconds
    std::string status;     // "normal", "disabled"; as far as it is known without an answer

    std::string Text() const {
        return !asked ? "cannot be asked" : answered ? "answers" : "does not answer";
    }
};

// Leaves the session active, its lights dark. `events` are the session's, and are used up.
FirmwareAnswer AskFirmware(vela_agent::Session& session, EventQueue& events);

}  // namespace velactl
