// The first arrival of a device for a process that has just begun to be notified of devices. Wine
// registers the process on a thread of its own some milliseconds after the process has asked for
// it, and loses what happens before that.
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>

#include "testing/kit/WaitUntil.h"

namespace kit {

// Waits until another process has its window for notifications, and has looked for the devices that
// were there before it: what arrives from then on it knows from a notification only.
inline bool WaitForNotifiedWindow(const wchar_t* windowClass) {
    constexpr DWORD kLookingMs = 300;
    const bool isThere = WaitUntil(
        [&] { return FindWindowExW(HWND_MESSAGE, nullptr, windowClass, nullptr) != nullptr; });
    Sleep(kLookingMs);
    return isThere;
}

// Plugs the device in until the process notices it; returns false when it does not.
inline bool PlugUntilNoticed(const std::function<void()>& plug, const std::function<void()>& unplug,
                             const std::function<bool()>& isNoticed) {
    constexpr int kAttempts = 5;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        plug();
        if (WaitUntil(isNoticed, kPatience / kAttempts)) return true;
        unplug();
    }
    return false;
}

}  // namespace kit
