// Rounds of opening and closing the session on two of a host's threads, while its other threads
// make every other call and a person presses the touchpad's buttons.
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>

#include "testing/soak/Agent.h"
#include "testing/soak/RandomCalls.h"
#include "testing/kit/LogFolder.h"
#include "testing/soak/SoakTouchpad.h"

namespace soak {

class Rounds {
 public:
    Rounds(const Agent& agent, SoakTouchpad& touchpad);

    // A query for the touchpad between two sessions leaves a handle of the name that tells of a
    // session, when it meets one.
    void QueryPresence(bool query) { queriesPresence_ = query; }
    // So many pairs of Init and UnInit. Then no thread of the host's is left, and as each pair ends
    // with UnInit, no session.
    void Run(std::int64_t count);

    std::int64_t Calls() const { return calls_; }
    // Calls of Init that did not find the touchpad, or not free.
    std::int64_t Refused() const { return refused_; }
    // Calls of UnInit that closed a session.
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
