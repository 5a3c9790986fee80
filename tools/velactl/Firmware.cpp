#include "tools/velactl/Firmware.h"

#include "tools/velactl/StopSignal.h"

namespace velactl {
namespace {

constexpr std::chrono::seconds kTimeout{2};

// Returns true and sets `status` when a status arrives within `time`.
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

FirmwareState RequestFirmwareState(vela_agent::Session& session, EventQueue& events) {
    FirmwareState state;
    // Only an active session is notified of states, and it is notified of the known one at once.
    session.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS);
    WaitForStatus(events, std::chrono::milliseconds::zero(), state.status);
    state.isRequested = session.RequestState();
    if (state.isRequested) state.isReceived = WaitForStatus(events, kTimeout, state.status);
    return state;
}

}  // namespace velactl
