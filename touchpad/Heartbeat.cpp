#include "touchpad/Heartbeat.h"

#include <chrono>
#include <exception>
#include <utility>

#include "log/ILog.h"
#include "platform/Lock.h"

namespace vela {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kHeartbeatInterval{20};

Clock::time_point NextBeat() {
    const Clock::time_point now = Clock::now();
    constexpr Clock::time_point kLatest = (Clock::time_point::max)();
    return now > kLatest - kHeartbeatInterval ? kLatest : now + kHeartbeatInterval;
}

}  // namespace

Heartbeat::~Heartbeat() {
    // On some platforms the destructor of a condition variable blocks for ever while a thread waits
    // on it, so the process is ended before the members are destroyed.
    const Lock lock(startMutex_);
    if (thread_.joinable()) std::terminate();
}

void Heartbeat::Permit() {
    const Lock lock(mutex_);
    permitted_ = true;
}

void Heartbeat::Stop() {
    const Lock lock(mutex_);
    stop_ = true;
    changed_.notify_all();
}

void Heartbeat::Forbid() {
    const Lock lock(mutex_);
    permitted_ = false;
    stop_ = true;
    changed_.notify_all();
}

void Heartbeat::Start(Beat beat) {
    const Lock startLock(startMutex_);
    if (thread_.joinable()) {
        Stop();
        thread_.join();
    }
    if (!ClearStop()) return;
    thread_ = std::thread(&Heartbeat::HeartbeatThread, this, std::move(beat));
}

// Returns false while the heartbeat is forbidden.
bool Heartbeat::ClearStop() {
    const Lock lock(mutex_);
    if (permitted_) stop_ = false;
    return permitted_;
}

void Heartbeat::HeartbeatThread(const Beat& beat) {
    GetLogger()->Log(kLogInfo, "HeartbeatThread", "HeartbeatThread created.");
    while (WaitForNextBeat()) beat();
    GetLogger()->Log(kLogInfo, "HeartbeatThread", "HeartbeatThread leaved.");
}

// Returns false when the thread is to stop.
bool Heartbeat::WaitForNextBeat() {
    const Clock::time_point next = NextBeat();
    const Lock lock(mutex_);
    while (!stop_) {
        if (changed_.wait_until(mutex_, next) == std::cv_status::timeout) break;
    }
    return !stop_;
}

}  // namespace vela
