// The touchpad itself: opens and closes it, and queries whether it is connected and detachable.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include <windows.h>

#include "platform/Mutex.h"
#include "touchpad/OpenTouchpad.h"
#include "touchpad/OverlappedOperations.h"

namespace vela {

// Any thread may call any operation; only one at a time may call Open, MarkSessionOpen or Close.
class TouchpadDevice {
 public:
    TouchpadDevice() = default;
    TouchpadDevice(const TouchpadDevice&) = delete;
    TouchpadDevice& operator=(const TouchpadDevice&) = delete;

    // Opens the device of the record for this process alone. Returns a HidInitializeResult and logs
    // a failure.
    std::uint32_t Open(const std::shared_ptr<const CHIDInformation>& information);
    // Shows other processes, by the named mutex, that a session is open.
    void MarkSessionOpen();
    // Closes the device and the named mutex, and releases the record. Waits for the platform calls
    // that other threads have in flight on the device.
    void Close();

    // Whether the session accepts calls: set when all of its threads run, cleared before Close.
    bool IsInitialized() const { return initialized_; }
    void SetInitialized(bool initialized) { initialized_ = initialized; }

    // The touchpad that is open now. Never null; without record and handle while none is open.
    std::shared_ptr<OpenTouchpad> Current() const { return std::atomic_load(&current_); }

    // Sets `connected` and returns true while the session is open; otherwise returns false.
    bool GetDeviceConnectState(bool& connected);
    // Returns true for a touchpad that can be taken off the machine, and for one whose product
    // string cannot be read.
    bool IsDetachable();

    OverlappedOperations& Operations() { return operations_; }

 private:
    void ReadProductString() VELA_REQUIRES(productMutex_);

    std::atomic<bool> initialized_{false};  // no lock: a reader may briefly see the older value
    // All accesses use the std::atomic_ functions for shared_ptr.
    std::shared_ptr<OpenTouchpad> current_ = std::make_shared<OpenTouchpad>(nullptr, nullptr);
    // Null unless this session created the mutex. Used by the thread that opens or closes.
    HANDLE deviceMutex_ = nullptr;
    Mutex queryMutex_;    // guards: the connection probe, one at a time
    Mutex productMutex_;  // guards: productString_
    // The product string in lower case, kept for good: the first one that was read decides.
    std::wstring productString_ VELA_GUARDED_BY(productMutex_);
    OverlappedOperations operations_;  // has a mutex of its own
};

}  // namespace vela
