#include "testing/soak/SessionOwner.h"

#include <algorithm>
#include <optional>

#include "testing/soak/LivelyCallbacks.h"

namespace soak {

void SessionOwner::Open(bool livelyCallbacks) {
    // Read before the opening: a plug pulled during it counts as pulled from this session.
    const unsigned unplugged = touchpad_.Unplugged();
    ++scans_;
    if (agent_.Init() != VELA_INIT_OPEN) return;
    if (!open_) {
        open_ = true;
        unplugged_ = unplugged;
        ++sessions_;
    }
    SetCallbacks(agent_, livelyCallbacks);
}

void SessionOwner::Close() {
    using std::chrono::steady_clock;
    const auto begin = steady_clock::now();
    agent_.UnInit();
    const auto took =
        std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - begin);
    longestClosing_ = (std::max)(longestClosing_, took);
    open_ = false;
}

bool SessionOwner::CloseAtRest() {
    Close();
    const std::optional<Bytes> lights = touchpad_.LightsAfterClosing();
    return !lights || IsDark(*lights);
}

void SessionOwner::IsPresent() {
    if (!open_) ++scans_;
    agent_.IsVelaPresent();
}

}  // namespace soak
