#include "testing/soak/LivelyCallbacks.h"

#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <numeric>

#include "testing/soak/RandomCalls.h"

namespace soak {
namespace {

constexpr std::chrono::seconds kPatience{10};

std::mutex mutex;  // guards: presses
std::condition_variable pressed;
std::array<std::int64_t, 4> presses{};
std::atomic<std::int64_t> statuses{0};
std::atomic<const Agent*> calledBack{nullptr};

// A call made inside a callback may cause a nested callback on this thread, which makes no call.
void CallBackNowAndThen() {
    static thread_local Random random(std::random_device{}());
    static thread_local bool inside = false;
    const Agent* const agent = calledBack;
    if (agent == nullptr || inside || Below(random, 8) != 0) return;
    inside = true;
    MakeRandomCall(*agent, random);
    inside = false;
}

void OnPress(std::uint32_t buttonId, std::uint32_t) {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ++presses.at(buttonId);
        pressed.notify_all();
    }
    CallBackNowAndThen();
}

void OnStatus(std::uint32_t) {
    ++statuses;
    CallBackNowAndThen();
}

}  // namespace

void SetCallbacks(const Agent& agent, bool lively) {
    calledBack = lively ? &agent : nullptr;
    agent.SetVelaButtonPressCallback(OnPress);
    agent.SetVelaStatusChangeCallback(OnStatus);
}

std::int64_t PressesReported() {
    const std::lock_guard<std::mutex> lock(mutex);
    return std::accumulate(presses.begin(), presses.end(), std::int64_t{0});
}

std::int64_t PressesReported(std::uint32_t buttonId) {
    const std::lock_guard<std::mutex> lock(mutex);
    return presses.at(buttonId);
}

std::int64_t StatusesReported() { return statuses; }

bool WaitForPresses(std::uint32_t buttonId, std::int64_t count) {
    std::unique_lock<std::mutex> lock(mutex);
    return pressed.wait_for(lock, kPatience, [&] { return presses.at(buttonId) >= count; });
}

}  // namespace soak
