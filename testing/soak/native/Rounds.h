// Opens and closes the session in rounds on two of a host's threads, while its other threads make
// every other call and buttons are pressed.
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>

#include "testing/kit/LogFolder.h"
#include "testing/soak/Agent.h"
#include "testing/soak/RandomCalls.h"
#include "testing/soak/SoakTouchpad.h"

namespace soak {

class Rounds {
 public:
    Rounds(const Agent& agent, SoakTouchpad& touchpad);

    // Enables calls of IsVelaPresent: one made between two sessions leaves a handle of the device's
    // mutex when the mutex exists.
    void QueryPresence(bool query) { queriesPresence_ = query; }
    // Makes `count` pairs of Init and UnInit. Afterwards no thread of the host is left, and no
    // session is open.
    void Run(std::int64_t count);

    std::int64_t Calls() const { return calls_; }
    // Counts the calls of Init that found no touchpad, or none that was free.
    std::int64_t Refused() const { return refused_; }
    // Counts the calls of UnInit that closed a session.
    std::int64_t Closings() const { return closings_; }

 private:
    void OpenAndClose();
    void MakeCalls();
    void MakeCall(Random& random);
    void Log(Random& random);
    void Press();

    const Agent& agent_;
    SoakTouchpad& touchpad_;
    const kit::LogFolder logFolder_;
    bool queriesPresence_ = false;
    std::atomic<std::int64_t> roundsLeft_{0};
    std::atomic<bool> over_{false};
    std::atomic<std::int64_t> calls_{0};
    std::atomic<std::int64_t> refused_{0};
    std::atomic<std::int64_t> closings_{0};
};

}  // namespace soak
