#include "tools/velactl/Firmware.h"

#include "tools/velactl/StopSignal.h"

namespace velactl {
namespace {

constexpr std::chrono::seconds kPatience{2};

// True when there was one within `time`; it is in `status` then.
bool WaitForStatus(EventQueue& events, std::chrono::milliseconds time, std::string& status) {
    const auto end = std::chrono::steady_clock::now() + time;
    for (;;) {
        while (const auto event = events.Take()) {
            if (event->at("event") != "status") continue;
            status = event->at("status").get<std::string>();
            return true;
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        if (left.count() <= 0) return false;
        WaitForSingleObject(events.Arrival(), static_cast<DWORD>(left.count()));
    }
}

}  // namespace

FirmwareAnswer AskFirmware(vela_agent::Session& session, EventQueue& events) {
    FirmwareAnswer answer;
    // Answers are told to an active session only, and this one tells what it knows at once.
    session.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS);
    WaitForStatus(events, std::chrono::milliseconds::zero(), answer.status);
    answer.asked = session.RequestState();
    if (answer.asked) answer.answered = WaitForStatus(events, kPatience, answer.status);
    return answer;
}

}  // namespace velactl
