// Waiting for what another thread or process does.
#pragma once

#include <chrono>
#include <thread>

namespace kit {

// The time limit for events that must come: only a failing test reaches it.
constexpr std::chrono::seconds kPatience{10};

// Returns true once the condition holds; gives up when the time is over.
template <typename Condition>
bool WaitUntil(const Condition& condition, std::chrono::milliseconds patience = kPatience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

}  // namespace kit
