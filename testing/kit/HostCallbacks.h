// A host's two callbacks, which record their calls.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace kit {

// Plain functions, as a host registers them. Each records its call and then runs its hook.
void OnButtonPress(std::uint32_t buttonId, std::uint32_t newLightState);
void OnStatusChange(std::uint32_t status);

class HostCallbacks {
 public:
    static void Reset();

    // Returns "press 0 1", "status 3", ... in the order of the calls.
    static std::vector<std::string> Calls();
    // Returns true once `count` calls came; gives up after ten seconds.
    static bool WaitForCalls(std::size_t count);
    // The thread of the last call.
    static std::thread::id LastThread();

    // Set a hook that runs inside the callback, on its thread.
    static void DuringButtonPress(std::function<void()> hook);
    static void DuringStatusChange(std::function<void()> hook);
};

}  // namespace kit
