// The heartbeat of a detachable touchpad: while its keyboard half was away it may have lost its
// state, so the state is sent again every 20 seconds.
#include <chrono>

#include "log/ILog.h"
#include "touchpad/TandrelHID.h"

namespace vela {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kHeartbeatInterval{20};

Clock::time_point NextBeat() {
    const Clock::time_point now = Clock::now();
    const bool wouldOverflow = now > Clock::time_point::max() - kHeartbeatInterval;
    return wouldOverflow ? Clock::time_point::max() : now + kHeartbeatInterval;
}

}  // namespace

void CTandrelHID::HeartbeatThread() {
    GetLogger()->Log(kLogInfo, "HeartbeatThread", "HeartbeatThread created.");
    for (;;) {
        {
            std::unique_lock<std::mutex> lock(heartbeatMutex_);
            if (heartbeatCondition_.wait_until(lock, NextBeat(),
                                               [this] { return heartbeatStop_; })) {
                break;
            }
        }
        SendHeartbeat();
    }
    GetLogger()->Log(kLogInfo, "HeartbeatThread", "HeartbeatThread leaved.");
}

// Holds no lock while it writes or updates, so its write may overlap one of the writer thread.
void CTandrelHID::SendHeartbeat() {
    if (TemporaryDisable_) {
        UpdateVelaState();
    } else if (CopyButton(BUTTON_ID_CHAT).breathingState != kBreathingRunning) {
        WriteOutputReportInternal(LastReport(), true);
    } else {
        // A breathing light restarts on the very report that started it; it needs a new one, which
        // tells it to go on.
        Update(true);
    }
}

void CTandrelHID::StopHeartbeat() {
    const std::lock_guard<std::mutex> lock(heartbeatMutex_);
    heartbeatStop_ = true;
    heartbeatCondition_.notify_all();
}

void CTandrelHID::StartHeartbeat() {
    if (!IsDetachable()) return;
    const std::lock_guard<std::mutex> startLock(heartbeatStartMutex_);
    if (heartbeatThread_.joinable()) {
        StopHeartbeat();
        heartbeatThread_.join();
    }
    {
        const std::lock_guard<std::mutex> lock(heartbeatMutex_);
        heartbeatStop_ = false;
    }
    heartbeatThread_ = std::thread(&CTandrelHID::HeartbeatThread, this);
}

}  // namespace vela
